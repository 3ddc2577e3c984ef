// bwtool time-startup: times the reference-file part of start-up (measure,
// the three loads and the art check) on a program folder.
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "Commands.h"
#include "Options.h"
#include "ConsoleUi.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Startup.h"
#include "core/Ui.h"
#include "refdata/Loaders.h"

namespace {

using bwtool::ConsoleUi;

int RunTimeStartup(const std::vector<std::string>& options) {
    QCommandLineParser parser;
    std::vector<std::string> args;
    if (const int rc = bwtool::ParseCommand(parser, "time-startup", options,
                                            {{"DIR", "a folder holding the reference files"}}, 1, 1,
                                            "usage: time-startup DIR", args);
        rc >= 0)
        return rc;
    ConsoleUi ui;
    bw::SetUi(&ui);
    bw::SetAppPath(args[0]);
    // The log goes nowhere near the program's folder for a timing run.
    bw::gLogFile = "/dev/null";
    const auto t0 = std::chrono::steady_clock::now();
    bool ok = true;
    try {
        bw::zMeasureDataFiles();
    } catch (const bw::RunError& e) {
        std::fprintf(stderr, "run-time error %d: %s\n", e.Number(), e.Description().c_str());
        return 1;
    }
    for (bool (*load)() : bw::zReferenceLoaders()) ok = load() && ok;
    ok = bw::zCheckFiles() && ok;
    const auto t1 = std::chrono::steady_clock::now();
    bw::SetUi(nullptr);
    const double ms = std::chrono::duration<double, std::milli>(t1 - t0).count();
    std::printf("weapons %zu rows, armor %zu records, internal %zu records, art check %s\n", bw::gWeapons.size(),
                bw::gArmorDots.size(), bw::gInternalDots.size(), ok ? "passed" : "failed");
    std::printf("start-up data load: %.3f ms\n", ms);
    return ok ? 0 : 1;
}

bwtool::Registrar reg("time-startup", "time-startup DIR",
                      "time the measure, the three reference loads and the art check", &RunTimeStartup);

}  // namespace
