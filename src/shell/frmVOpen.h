// The vehicle picker: one row per design of the open database. It serves
// the open, delete and multi-print commands, which change its caption and
// action button.
#pragma once

#include "shell/DesignPicker.h"

namespace bw {

class frmVOpen : public DesignPicker {
public:
    frmVOpen() : DesignPicker("Open Vehicle") { Wire(lvVHLs, [this] { zOpenVHL(); }); }

    ListView lvVHLs{"lvVHLs"};

    void Form_Activate() {
        zLoadData();
        Activate(lvVHLs);
    }
    void zLoadData();
    void zOpenVHL() { OpenSelected(lvVHLs); }
};

inline int16_t zShowVOpen(const std::string& caption, const std::string& action,
                          const std::function<void(frmVOpen&)>& showModal) {
    return zShowPicker<frmVOpen>(caption, action, showModal);
}

}  // namespace bw
