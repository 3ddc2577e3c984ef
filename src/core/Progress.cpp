#include "core/Progress.h"

#include <algorithm>
#include <memory>

#include "core/Errors.h"
#include "core/Ui.h"

namespace bw {
namespace {
ProgFormHook gProgHook;
std::unique_ptr<frmProg> gProgForm;
MainProgressHook gMainHook;
SplashBar gNoSplash;
SplashBar* gSplash = &gNoSplash;

void Show(bool unload) {
    if (gProgHook && gProgForm) gProgHook(*gProgForm, unload);
}
}  // namespace

void SetProgFormHook(ProgFormHook hook) { gProgHook = std::move(hook); }
frmProg* zProgForm() { return gProgForm.get(); }

void zProgStart(const std::string& title, const std::string& text, int32_t max) {
    if (gProgForm) Show(true);
    gProgForm = std::make_unique<frmProg>();
    gProgForm->Caption = title;
    gProgForm->LText = text;
    gProgForm->PBarMax = max;
    Show(false);
    zDoEvents();
}

bool zProgStep(const std::string& text, int32_t value) {
    if (!gProgForm) return true;
    if (gProgForm->wCancel) return false;
    gProgForm->LText = text;
    gProgForm->PBarValue = std::clamp(value, 0, std::max(gProgForm->PBarMax, 0));
    Show(false);
    zDoEvents();
    // A cancel click seen while the window system ran.
    return gProgForm && !gProgForm->wCancel;
}

void zProgEnd() {
    if (!gProgForm) return;
    Show(true);
    gProgForm.reset();
}

void SetMainProgressHook(MainProgressHook hook) { gMainHook = std::move(hook); }

void zMainProgress(int32_t max, const std::string& text) {
    if (gMainHook.showBar) gMainHook.showBar(max);
    if (!text.empty() && gMainHook.showText) gMainHook.showText(text);
    zDoEvents();
}

void zMainProgressSet(int32_t value) {
    if (gMainHook.setValue) gMainHook.setValue(value);
    zDoEvents();
}

void zMainProgressEnd() {
    if (gMainHook.hide) gMainHook.hide();
    zDoEvents();
}

void SetSplashBar(SplashBar* bar) {
    if (!bar) {
        gNoSplash = SplashBar{0, gSplash->Value};
        gSplash = &gNoSplash;
    } else {
        gSplash = bar;
    }
}

void zSplashProgressSet(int32_t value) {
    gSplash->Value = gSplash == &gNoSplash ? std::max(value, 0) : std::clamp(value, 0, std::max(gSplash->Max, 0));
    zDoEvents();
}

int16_t zSplashProgressValue() { return zI16(gSplash->Value); }

}  // namespace bw
