// libFuzzer target: any bytes as a database file, and as each of the three
// reference files.
#include <cstddef>
#include <cstdint>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include "core/Globals.h"
#include "DatabaseFuzz.h"

namespace {

// The reference loaders read files: keep them in memory-backed storage
// when there is some.
std::string ScratchFolder() {
    const std::string tail = "/bwfuzz-" + std::to_string(::getpid());
    for (const char* base : {"/dev/shm", "/tmp"}) {
        const std::string d = base + tail;
        if (::mkdir(d.c_str(), 0700) == 0) return d;
    }
    return ".";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string scratch = ScratchFolder();
    // Reports of damaged records would otherwise fill a log file.
    bw::gLogFile = "/dev/null";
    bw::zFuzzDatabaseInput(data, size);
    bw::zFuzzReferenceInput(data, size, scratch);
    return 0;
}
