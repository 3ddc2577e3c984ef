// Progress reporting: the modeless progress window frmProg, the progress bar
// of the main window, and the splash bar that the reference loaders advance.
// The models hold the state; a window system shows them through hooks.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace bw {

// The progress window. PButCancel_Click sets wCancel; the next zProgStep
// then reports the cancel.
class frmProg {
public:
    std::string Caption;
    std::string LText;   // the label above the bar
    int32_t PBarMax = 100;
    int32_t PBarValue = 0;
    bool wCancel = false;

    void PButCancel_Click() { wCancel = true; }
};

// How a window system shows frmProg: called with the window after it is
// loaded or changed, and with Unload true when it goes away.
using ProgFormHook = std::function<void(frmProg& form, bool unload)>;
void SetProgFormHook(ProgFormHook hook);
// The loaded progress window, or nullptr.
frmProg* zProgForm();

void zProgStart(const std::string& title, const std::string& text, int32_t max);
// Sets label and bar, lets the window system run; false once cancelled.
bool zProgStep(const std::string& text, int32_t value);
void zProgEnd();

// The main window's bar PBarMainProg and label LProgInfo.
struct MainProgressHook {
    std::function<void(int32_t max)> showBar;             // set the maximum and show the bar
    std::function<void(const std::string& text)> showText;  // set LProgInfo and show it
    std::function<void(int32_t value)> setValue;
    std::function<void()> hide;                            // hide bar and label
};
void SetMainProgressHook(MainProgressHook hook);
void zMainProgress(int32_t max, const std::string& text = {});
void zMainProgressSet(int32_t value);
void zMainProgressEnd();

// The splash bar PBarProg: Main points it at the splash window; the
// reference loaders set it. Without a splash the value is still kept, so
// gSplashDone can follow it.
struct SplashBar {
    int32_t Max = 0;
    int32_t Value = 0;
};
void SetSplashBar(SplashBar* bar);
// Sets the bar's value (kept within 0..Max) and lets the window system run.
void zSplashProgressSet(int32_t value);
int16_t zSplashProgressValue();

}  // namespace bw
