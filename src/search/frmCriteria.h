// The New Criteria dialog: fills in one search criterion. Modal; the search
// window reads Criterion after the dialog hides, unless wCancel is set.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"
#include "search/SearchCriterion.h"

namespace bw {

class frmCriteria : public FormModel {
public:
    frmCriteria();

    // Frames and labels.
    Label fraMoveType{"fraMoveType"}, fraTechnology{"fraTechnology"}, fraStructure{"fraStructure"},
        fraTonnage{"fraTonnage"}, fraSpeed{"fraSpeed"}, fraAdditional{"fraAdditional"};
    Label LAvail{"LAvail"}, LSel{"LSel"};

    std::vector<OptionButton*> MoveTypeGroup, TonnageGroup, SpeedGroup;
    std::array<OptionButton, 2> RButMoveType{OptionButton{"RButMoveType(0)"}, OptionButton{"RButMoveType(1)"}};
    ComboBox cmboMovementType{"cmboMovementType"};
    std::array<CheckBox, 2> CBoxBase{CheckBox{"CBoxBase(0)"}, CheckBox{"CBoxBase(1)"}};
    std::array<CheckBox, 3> CBoxLevel{CheckBox{"CBoxLevel(0)"}, CheckBox{"CBoxLevel(1)"}, CheckBox{"CBoxLevel(2)"}};
    ComboBox cmboTonnage{"cmboTonnage"};
    std::array<OptionButton, 3> RButTonnage{OptionButton{"RButTonnage(0)"}, OptionButton{"RButTonnage(1)"},
                                            OptionButton{"RButTonnage(2)"}};
    ComboBox cmboSpeed{"cmboSpeed"};
    std::array<OptionButton, 3> RButSpeed{OptionButton{"RButSpeed(0)"}, OptionButton{"RButSpeed(1)"},
                                          OptionButton{"RButSpeed(2)"}};
    ListBox LBoxAvail{"LBoxAvail"}, LBoxSel{"LBoxSel"};
    CommandButton PButDone{"PButDone"}, PButCancel{"PButCancel"}, PButHelp{"PButHelp"},
        PButAdvanced{"PButAdvanced"};

    // The window's height in twips: the short form hides "Additional
    // Selection", the full form shows it.
    static constexpr int32_t kShortHeight = 5460;
    static constexpr int32_t kFullHeight = 8800;
    int32_t Height = kShortHeight;

    // Yes until Done accepts the criterion.
    int16_t wCancel = -1;
    SearchCriterion Criterion;

    void Form_Load() override;
    void ResetControls();
    void GetMovementTypes();
    void GetExtraItems();
    void zFillTonnage();

    void RButMoveType_Click();
    void cmboMovementType_Click();
    void cmboTonnage_Click();
    void cmboSpeed_Click();
    void LBoxAvail_DblClick();
    void LBoxSel_DblClick();
    void PButAdvanced_Click();
    void PButHelp_Click();
    void PButDone_Click();
    void PButCancel_Click();

    // The class and type chosen now (type -1 for all).
    int16_t UnitClass() const { return RButMoveType[1].Value() ? 1 : 0; }
    int16_t MovementType() const { return static_cast<int16_t>(cmboMovementType.ListIndex() - 1); }
    // The help text, as the help button shows it.
    static std::string HelpText();

private:
    int16_t Chosen(const std::array<OptionButton, 3>& group) const;
    int16_t wFilling = 0;
};

}  // namespace bw
