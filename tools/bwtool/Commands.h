// bwtool's commands register themselves from their own source files, so a
// new command never needs an edit of main.cpp.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bwtool {

// Returns the process exit code. args excludes the program and command names.
using CommandFn = std::function<int(const std::vector<std::string>& args)>;

struct Command {
    std::string name;
    std::string usage;  // e.g. "build-data DATA_DIR OUT_DIR"
    std::string help;   // one line
    CommandFn run;
};

std::vector<Command>& Registry();

struct Registrar {
    Registrar(std::string name, std::string usage, std::string help, CommandFn run) {
        Registry().push_back({std::move(name), std::move(usage), std::move(help), std::move(run)});
    }
};

}  // namespace bwtool

// Use at namespace scope in a command's source file:
//   static bwtool::Registrar reg("dump", "dump FILE", "print designs as JSON lines", &RunDump);
