// The fighter picker, the vehicle picker's twin over the fighter table.
#pragma once

#include "shell/DesignPicker.h"

namespace bw {

class frmFOpen : public DesignPicker {
public:
    frmFOpen() : DesignPicker("frmFOpen", "Open Fighter") { Wire(lvFTRs, [this] { zOpenFTR(); }); }

    ListView lvFTRs{"lvFTRs"};
    ListView& List() override { return lvFTRs; }

    void Form_Activate() override {
        zLoadData();
        Activate(lvFTRs);
    }
    void zLoadData();
    void zOpenFTR() { OpenSelected(lvFTRs); }
};

}  // namespace bw
