// Points the program's folder at a fresh temporary folder for one test and
// restores the previous folder afterwards.
#pragma once

#include <string>

#include "core/Globals.h"
#include "support/TempDir.h"

namespace bw::test {

class AppFolder {
public:
    TempDir dir;
    AppFolder() : saved_(gAppPath) { SetAppPath(dir.Path()); }
    ~AppFolder() { SetAppPath(saved_); }
    AppFolder(const AppFolder&) = delete;
    AppFolder& operator=(const AppFolder&) = delete;

private:
    std::string saved_;
};

}  // namespace bw::test
