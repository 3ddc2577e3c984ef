// The New Vehicle dialog: tech base, tech level and vehicle type of a design
// about to be created. The main window reads the three choices after the
// dialog hides, unless wCancel is set.
#pragma once

#include <cstdint>

#include "core/Controls.h"
#include "core/Forms.h"

namespace bw {

class frmNVhl : public FormModel {
public:
    frmNVhl();

    ComboBox cmboBase{"cmboBase"};
    ComboBox cmboLevel{"cmboLevel"};
    ComboBox cmboType{"cmboType"};
    CommandButton PButCreate{"PButCreate"};
    CommandButton PButCancel{"PButCancel"};

    // Yes until Create accepts the choices.
    int16_t wCancel = -1;

    // Fills the lists and selects the defaults of the preferences.
    void Form_Load() override;
    void zLoadDefaults();
    void cmboBase_Click();
    void PButCreate_Click();
    void PButCancel_Click();

    // The choices as the new design takes them.
    int16_t TechBase() const { return static_cast<int16_t>(cmboBase.ListIndex()); }
    int16_t TechLevel() const;
    int16_t VhlType() const { return static_cast<int16_t>(cmboType.ListIndex()); }
};

}  // namespace bw
