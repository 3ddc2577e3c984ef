// The number of the run-time error a call raises, or 0 when it raises none.
#pragma once

#include <cstdint>

#include "core/Errors.h"

namespace bw::test {

template <class F>
int32_t ErrNumberOf(F&& f) {
    try {
        f();
    } catch (const RunError& e) {
        return e.Number();
    }
    return 0;
}

}  // namespace bw::test
