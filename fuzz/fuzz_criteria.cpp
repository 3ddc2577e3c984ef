// libFuzzer target: any bytes as a search criteria file.
#include <cstddef>
#include <cstdint>

#include "CriteriaFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    bw::zFuzzCriteriaInput(data, size);
    return 0;
}
