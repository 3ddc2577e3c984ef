// An editor as the New Vehicle command makes one (a super heavy tank's range
// lifts it to its own bottom).
#pragma once

#include <memory>

#include "vehicle/frmVhl.h"

namespace bw::test {

inline std::unique_ptr<frmVhl> NewEditor(int16_t type, int16_t base = 0, int16_t level = 3) {
    return frmVhl::zNewDesign(base, level, type);
}

}  // namespace bw::test
