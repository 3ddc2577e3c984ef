// A vehicle test with one editor made as the New Vehicle command makes it,
// and the database emptied after.
#pragma once

#include <memory>

#include "EditorTestSupport.h"
#include "VehicleTestSupport.h"
#include "database/DatabaseOps.h"
#include "support/NewEditor.h"

namespace bw::test {

class EditorFixture : public VehicleTest {
protected:
    std::unique_ptr<frmVhl> win;

    void TearDown() override {
        win.reset();
        zResetDatabase();
    }
    frmVhl& New(int16_t type, int16_t base = 0, int16_t level = 3, int16_t tons = 5) {
        win = NewEditor(type, base, level);
        if (tons != 5) win->scrlTonnage.SetValue(tons);
        return *win;
    }
};

}  // namespace bw::test
