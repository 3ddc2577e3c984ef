// The New Fighter dialog: tech base, tech level and fighter type of a design
// about to be created. The main window reads the three choices after the
// dialog hides, unless wCancel is set, and makes the design with
// zCreateFighter.
#pragma once

#include <cstdint>

#include "core/Controls.h"
#include "core/Forms.h"
#include "fighter/Fighter.h"

namespace bw {

class frmNFtr : public FormModel {
public:
    frmNFtr();

    ComboBox cmboBase{"cmboBase"};
    ComboBox cmboLevel{"cmboLevel"};
    ComboBox cmboType{"cmboType"};
    CommandButton PButCreate{"PButCreate"};
    CommandButton PButCancel{"PButCancel"};

    // Yes until Create accepts the choices.
    int16_t wCancel = -1;

    // Fills the bases and selects the defaults of the preferences.
    void Form_Load() override;
    void zLoadDefaults();
    // Refills the level and type lists for the base, first lines selected.
    void cmboBase_Click();
    void PButCreate_Click();
    void PButCancel_Click();
};

// The design the dialog's choices make, set up in the order each setter
// relies on: type, 5 tons, thrust 1, base, level. Its rating is that of
// thrust 0 until the editor's first change (-10 on an aerospace fighter).
Fighter zCreateFighter(const frmNFtr& dlg);

}  // namespace bw
