// An editor as the New Vehicle command makes one: a design at five tons and
// one movement point with its tech and type, then the window set up (a super
// heavy tank's range lifts it to its own bottom).
#pragma once

#include <memory>

#include "vehicle/frmVhl.h"

namespace bw::test {

inline std::unique_ptr<frmVhl> NewEditor(int16_t type, int16_t base = 0, int16_t level = 3) {
    auto win = std::make_unique<frmVhl>();
    auto v = std::make_shared<Vehicle>();
    win->vhl = v;
    v->frm = win.get();
    win->Form_Load();
    v->SetTechBase(base);
    v->SetTechLevel(level);
    v->SetType(type);
    v->SetTonnage(5);
    v->SetCruiseSpeed(1);
    win->zSetUpBaseData();
    return win;
}

}  // namespace bw::test
