// The vehicle picker: one row per design of the open database. It serves
// the open, delete and multi-print commands, which change its caption and
// action button.
#pragma once

#include "shell/DesignPicker.h"

namespace bw {

class frmVOpen : public DesignPicker {
public:
    frmVOpen() : DesignPicker("frmVOpen", "Open Vehicle") { Wire(lvVHLs, [this] { zOpenVHL(); }); }

    ListView lvVHLs{"lvVHLs"};
    ListView& List() override { return lvVHLs; }

    void Form_Activate() override {
        zLoadData();
        Activate(lvVHLs);
    }
    void zLoadData();
    void zOpenVHL() { OpenSelected(lvVHLs); }
};

}  // namespace bw
