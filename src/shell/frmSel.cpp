#include "shell/frmSel.h"

#include "core/Errors.h"
#include "core/Helpers.h"

namespace bw {

namespace {
constexpr int16_t kKeyEnter = 13;
}

frmSel::frmSel() : FormModel("frmSel") {
    PButDone.SetCaption("&Done");
    PButCancel.SetCaption("&Cancel");
    TSearch.Change = [this] { TSearch_Change(); };
    PButDone.Click = [this] { zPickSel(); };
    PButCancel.Click = [this] {
        wCancel = kTrue;
        Hide();
    };
    LBoxSel.DblClick = [this] { zPickSel(); };
    auto enter = [this](int16_t& key) {
        if (key == kKeyEnter) zPickSel();
    };
    LBoxSel.KeyPress = enter;
    TSearch.KeyPress = enter;
}

void frmSel::TSearch_Change() {
    const std::string want = zLower(TSearch.Text());
    for (int32_t i = 0; i < LBoxSel.ListCount(); ++i) {
        if (zLower(LBoxSel.List(i)).compare(0, want.size(), want) == 0) {
            LBoxSel.SetListIndex(i);
            return;
        }
    }
}

void frmSel::zPickSel() {
    const int32_t i = LBoxSel.ListIndex();
    if (i < 0) return;
    wSelText = LBoxSel.List(i);
    wSelData = LBoxSel.ItemData(i);
    wCancel = kFalse;
    Hide();
}

}  // namespace bw
