// The entry routine: splash, log, reference tables, sheet art, main window,
// settings, database, in that order. Toolkit-free: the window system plays
// its part through IStartupHost.
#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "core/Progress.h"

namespace bw {

// The splash window.
class frmSplsh {
public:
    std::string LVersion;
    std::string LCoName;
    std::string LDisclaimer;
    std::string LNotice;
    std::string LWeb;
    SplashBar PBarProg;

    // Fills the labels (the window system centres the window).
    void Form_Load();
};

class IStartupHost {
public:
    virtual ~IStartupHost() = default;
    virtual void ShowSplash(frmSplsh& splash) = 0;  // modeless
    virtual void LoadPictures() = 0;                // frmPic, not shown
    virtual void LoadMainWindow() = 0;              // frmMain's load step, not shown
    virtual void UnloadSplash() = 0;
    virtual void ShowMainWindow() = 0;
    virtual void OpenDatabase(const std::string& path) = 0;  // frmMain.zOpenDatabase
    // The reference loaders, in order (the weapon table, the armor and the
    // internal structure tables); the art check follows them.
    virtual std::vector<bool (*)()> ReferenceLoaders() = 0;
};

// Ended: a failed step ended the process (no "Ignore Version"), or the log
// or a reference file's size made start-up impossible.
enum class StartResult { Running, Ended };

// The splash window lives in Main: the host must not keep it past
// UnloadSplash or past Main's return. On Ended the host ends the process
// at once, running no unload steps.
StartResult Main(IStartupHost& host);

// Lengths of the reference files and the splash total. A file of 32768
// bytes or more raises overflow (6).
void zMeasureDataFiles();
// True when every required art file is in the "bwp" folder.
bool zCheckFiles();

// "Logging initialized for The Brasswick Works v3.0.18 on Friday, November 07, 2025"
std::string zLogStartLine(const std::tm& date);
// "dddd, mmmm dd, yyyy" with English names.
std::string zLongDate(const std::tm& date);

}  // namespace bw
