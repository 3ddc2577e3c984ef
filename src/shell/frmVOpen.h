// The vehicle picker: one row per design of the open database. It serves
// the open, delete and multi-print commands, which change its caption and
// action button.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/Controls.h"

namespace bw {

class frmVOpen {
public:
    frmVOpen();

    std::string Caption = "Open Vehicle";
    bool Visible = false;
    // Size in twips; Form_Resize keeps the minimum and lays out the list.
    int32_t Width = 6000, Height = 2895;
    int32_t lvWidth = 0, lvHeight = 0, ButtonTop = 0;

    ListView lvVHLs{"lvVHLs"};
    CommandButton PButOpen{"PButOpen"};
    CommandButton PButCancel{"PButCancel"};

    // The result: wCancel true when nothing was picked; wSel the index of
    // the picked design in gVehicles.
    int16_t wCancel = -1;
    int16_t wSel = -1;

    void Form_Activate();
    void Form_Resize();
    void zLoadData();
    void zOpenVHL();

private:
    void lvVHLs_DblClick();
};

// Shows the picker modally with the given caption and action button, puts
// them back to "Open Vehicle" and "&Open" afterwards, and returns the index
// of the picked design or -1. showModal activates the dialog and returns
// once it is hidden.
int16_t zShowVOpen(const std::string& caption, const std::string& action,
                   const std::function<void(frmVOpen&)>& showModal);

}  // namespace bw
