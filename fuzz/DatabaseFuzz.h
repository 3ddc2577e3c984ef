// The entry of the database fuzz target, kept in the library so that the
// regular tests feed the stored corpus through the very same code.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace bw {

// Runs the strict check and the program's own reader over the bytes, then
// saves what was read twice over and requires the two images to agree.
// Aborts on a broken property; any other outcome is a pass. Message boxes go
// to whatever UI is installed (the silent default answers them).
void zFuzzDatabaseInput(const uint8_t* data, size_t size);

// Writes the bytes as "weapons.bin", "armorloc.bin" and "intloc.bin" in
// scratchFolder, makes that the program's folder, and runs the three
// reference loaders on them.
void zFuzzReferenceInput(const uint8_t* data, size_t size, const std::string& scratchFolder);

// The program's own road with the bytes as a database file in scratchFolder:
// the open (the whole-file read into tables of its own), a save over it, and
// a second open of what was saved, which must give the same image again.
void zFuzzProgramOpenSave(const uint8_t* data, size_t size, const std::string& scratchFolder);

// The bytes as "parm.txt" and as every value of the settings store, through
// the program's readers of both.
void zFuzzParmAndSettings(const uint8_t* data, size_t size, const std::string& scratchFolder);

}  // namespace bw
