// The fighter picker, the vehicle picker's twin over the fighter table.
#pragma once

#include "shell/DesignPicker.h"

namespace bw {

class frmFOpen : public DesignPicker {
public:
    frmFOpen() : DesignPicker("Open Fighter") { Wire(lvFTRs, [this] { zOpenFTR(); }); }

    ListView lvFTRs{"lvFTRs"};

    void Form_Activate() {
        zLoadData();
        Activate(lvFTRs);
    }
    void zLoadData();
    void zOpenFTR() { OpenSelected(lvFTRs); }
};

inline int16_t zShowFOpen(const std::string& caption, const std::string& action,
                          const std::function<void(frmFOpen&)>& showModal) {
    return zShowPicker<frmFOpen>(caption, action, showModal);
}

}  // namespace bw
