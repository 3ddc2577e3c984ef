// The fighter picker: one row per design of the open database. It serves
// the open, delete and multi-print commands, which change its caption and
// action button.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/Controls.h"

namespace bw {

class frmFOpen {
public:
    frmFOpen();

    std::string Caption = "Open Fighter";
    bool Visible = false;
    // Size in twips; Form_Resize keeps the minimum and lays out the list.
    int32_t Width = 6000, Height = 2895;
    int32_t lvWidth = 0, lvHeight = 0, ButtonTop = 0;

    ListView lvFTRs{"lvFTRs"};
    CommandButton PButOpen{"PButOpen"};
    CommandButton PButCancel{"PButCancel"};

    // The result: wCancel true when nothing was picked; wSel the index of
    // the picked design in gFighters.
    int16_t wCancel = -1;
    int16_t wSel = -1;

    void Form_Activate();
    void Form_Resize();
    void zLoadData();
    void zOpenFTR();

private:
    void lvFTRs_DblClick();
};

// Shows the picker modally with the given caption and action button, puts
// them back to "Open Fighter" and "&Open" afterwards, and returns the index
// of the picked design or -1. showModal activates the dialog and returns
// once it is hidden.
int16_t zShowFOpen(const std::string& caption, const std::string& action,
                   const std::function<void(frmFOpen&)>& showModal);

}  // namespace bw
