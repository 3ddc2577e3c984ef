#include "core/Startup.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <vector>

#include <sys/stat.h>

#include "core/Config.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Settings.h"
#include "core/Ui.h"

namespace bw {

void frmSplsh::Form_Load() {
    LVersion = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
               std::to_string(kVersionRevision) + " - Beta";
    LCoName = "Tallowmere Workshop";
    LDisclaimer = "BattleTech is a registered Trademark of the FASA corporation";
    LNotice = kMakerNotice;
    LWeb = kSupportWeb;
}

std::string zLongDate(const std::tm& d) {
    static const char* const kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                        "Thursday", "Friday", "Saturday"};
    static const char* const kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                          "July",    "August",   "September", "October", "November", "December"};
    char day[8];
    std::snprintf(day, sizeof day, "%02d", d.tm_mday % 100);
    const int wd = d.tm_wday >= 0 && d.tm_wday < 7 ? d.tm_wday : 0;
    const int mo = d.tm_mon >= 0 && d.tm_mon < 12 ? d.tm_mon : 0;
    return std::string(kDays[wd]) + ", " + kMonths[mo] + " " + day + ", " + std::to_string(d.tm_year + 1900);
}

std::string zLogStartLine(const std::tm& date) {
    return "Logging initialized for The Brasswick Works v" + std::to_string(kVersionMajor) + "." +
           std::to_string(kVersionMinor) + "." + std::to_string(kVersionRevision) + " on " + zLongDate(date);
}

void zMeasureDataFiles() {
    gLenWeapons = gLenNavalWeapons = gLenArmor = gLenInternal = 0;
    struct Item {
        const char* name;
        int16_t* length;
    };
    const Item items[] = {{"weapons.bin", &gLenWeapons},
                          {"nvlwpns.bin", &gLenNavalWeapons},
                          {"armorloc.bin", &gLenArmor},
                          {"intloc.bin", &gLenInternal}};
    for (const Item& it : items) {
        const std::string path = zAppFile(it.name);
        if (!zFileExists(path)) continue;
        struct stat st {};
        if (::stat(path.c_str(), &st) != 0) continue;
        *it.length = zI16(static_cast<int64_t>(st.st_size));
    }
    const int32_t total =
        zI32(int64_t{gLenWeapons} + int64_t{gLenNavalWeapons} + int64_t{gLenArmor} + int64_t{gLenInternal});
    gSplashTotal = zCInt(static_cast<double>(total) / 10);
}

bool zCheckFiles() {
    static const char* const kArt[] = {"ad002",  "ad003",  "ad004",  "ad011",  "ad021",  "ad031",
                                       "ad111",  "ad121",  "ad131",  "ad211",  "ad221",  "ad231",
                                       "ahw001", "alg001", "alg002", "avl001", "crt001", "crt002",
                                       "dt001",  "dt002",  "dt011",  "dt012",  "dt003",  "lgmn001"};
    try {
        gArtPath = zAppFile("bwp") + "/";
        gArtFiles.assign(std::begin(kArt), std::end(kArt));
        std::vector<std::string> missing;
        for (const std::string& name : gArtFiles) {
            const std::string file = name + ".bwp";
            if (zLower(zDirFind(gArtPath, file)) != file) missing.push_back(file);
        }
        if (missing.empty()) return true;
        std::string text =
            "Some of the needed printing resource files could not be located. Please make sure all *.BWP file are "
            "in the BWP directory before The Brasswick Works is started.";
        text += std::string(kNL) + kNL + "The following is a list of all the missing files:" + kNL + kNL;
        for (const std::string& f : missing) text += "\t" + f + kNL;
        zMsgBox(text, MsgButtons::OK, MsgIcon::Critical, "Missing BWP files");
        return false;
    } catch (const RunError& e) {
        if (e.Number() == kErrPathNotFound) {
            zMsgBox(
                "Unable to locate the BWP directory. This directory needs to exist and contain the *.BWP printing "
                "resource files.",
                MsgButtons::OK, MsgIcon::Critical, "Missing BWP directory");
        } else {
            zReportError("zCheckFiles", e);
        }
        return false;
    }
}

namespace {

// An error with no handler ends the program; say what it was first.
StartResult EndWithRunError(const RunError& e) {
    const std::string text =
        "Run-time error '" + std::to_string(e.Number()) + "':" + kNL + kNL + e.Description();
    std::fprintf(stderr, "The Brasswick Works: run-time error %d: %s\n", e.Number(), e.Description().c_str());
    zMsgBox(text, MsgButtons::OK, MsgIcon::Critical, "The Brasswick Works");
    return StartResult::Ended;
}

bool RestartLog() {
    std::FILE* f = std::fopen(gLogFile.c_str(), "wb");
    if (!f) {
        std::fprintf(stderr, "cannot write the log %s: %s\n", gLogFile.c_str(), std::strerror(errno));
        return false;
    }
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const std::string line = zLogStartLine(local) + kNL;
    const bool ok = std::fwrite(line.data(), 1, line.size(), f) == line.size();
    const int err = errno;
    if (std::fclose(f) != 0 || !ok) {
        std::fprintf(stderr, "cannot write the log %s: %s\n", gLogFile.c_str(), std::strerror(ok ? errno : err));
        return false;
    }
    return true;
}

// Detaches the splash bar however Main leaves.
struct SplashBarGuard {
    ~SplashBarGuard() { SetSplashBar(nullptr); }
};

}  // namespace

StartResult Main(IStartupHost& host) {
    frmSplsh splash;
    splash.Form_Load();
    host.ShowSplash(splash);
    SplashBarGuard guard;
    SetSplashBar(&splash.PBarProg);
    zPointerWait();

    gLogFile = zAppFile("Brasswick Works.Log");
    if (!RestartLog()) return StartResult::Ended;

    try {
        zMeasureDataFiles();
    } catch (const RunError& e) {
        return EndWithRunError(e);
    }
    splash.PBarProg.Max = gSplashTotal;
    gSplashDone = 0;

    // The version gate: a failed step ends the run unless "Ignore Version".
    std::vector<bool (*)()> steps = host.ReferenceLoaders();
    steps.push_back(&zCheckFiles);
    for (bool (*step)() : steps)
        if (!step() && !zHasParm("Ignore Version")) return StartResult::Ended;

    host.LoadPictures();
    host.LoadMainWindow();
    SetSplashBar(nullptr);
    host.UnloadSplash();

    try {
        zLoadSettings();
    } catch (const RunError& e) {
        return EndWithRunError(e);
    }
    host.ShowMainWindow();
    zPointerNormal();
    host.OpenDatabase(gOpenDBPath);
    return StartResult::Running;
}

}  // namespace bw
