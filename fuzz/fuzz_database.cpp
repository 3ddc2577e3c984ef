// libFuzzer target: any bytes as a database file (the strict check, the
// record readers, and the program's own open and save), as "parm.txt" and
// the settings values, and as each of the three reference files.
#include <cstddef>
#include <cstdint>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include "core/Globals.h"
#include "DatabaseFuzz.h"

namespace {

// The readers read files: keep them in memory-backed storage when there is
// some. The folder lives only while one input runs, so a run that ends in
// any way (done, interrupted, a finding) leaves nothing behind but what a
// crash cut short.
std::string MakeScratch() {
    const std::string tail = "/bwfuzz-" + std::to_string(::getpid());
    for (const char* base : {"/dev/shm", "/tmp"}) {
        const std::string d = base + tail;
        if (::mkdir(d.c_str(), 0700) == 0 || errno == EEXIST) return d;
    }
    return {};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string scratch = MakeScratch();
    if (scratch.empty()) return 0;
    // Reports of damaged records would otherwise fill a log file.
    bw::gLogFile = "/dev/null";
    // The readers in memory on every input; the ones that go through files
    // (and cost a file write each) take turns by the input's length, so the
    // run spends its time on inputs rather than on the file system.
    bw::zFuzzDatabaseInput(data, size);
    switch (size % 3) {
        case 0: bw::zFuzzProgramOpenSave(data, size, scratch); break;
        case 1: bw::zFuzzParmAndSettings(data, size, scratch); break;
        default: bw::zFuzzReferenceInput(data, size, scratch); break;
    }
    std::error_code ec;
    std::filesystem::remove_all(scratch, ec);
    return 0;
}
