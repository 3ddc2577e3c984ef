// The entry of the criteria-file fuzz target, kept in the library so that
// the regular tests feed the stored corpus through the very same code.
#pragma once

#include <cstddef>
#include <cstdint>

namespace bw {

// Reads the bytes as a criteria file. A file that reads must write back to
// text that reads to the same criteria, and every criterion must give its
// list texts; a refusal must say what is wrong in one line. Aborts on a
// broken property; any other outcome is a pass.
void zFuzzCriteriaInput(const uint8_t* data, size_t size);

}  // namespace bw
