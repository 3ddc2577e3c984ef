// The vehicle statistics window: a read-only text breakdown of where a
// design's tonnage and item slots go.
#pragma once

#include <functional>
#include <string>

#include "core/Controls.h"
#include "core/Forms.h"

namespace bw {

class Vehicle;

class frmVStat : public FormModel {
public:
    frmVStat();

    TextBox TStats{"TStats"};  // multi-line, locked
    CommandButton PButDone{"PButDone"};

    // The design, given by the editor before the window loads.
    Vehicle* vhl = nullptr;

    // Builds the report into TStats. It counts the items alone through
    // CalcIndividualItems, which leaves NumItems without the engine, armor
    // and option slots until the design's next CalcItemCount; that is left
    // to the editor's next change on purpose.
    void Form_Load() override;

    void zAddText(const std::string& text);
    void zIndentLine();
    void zNewLine();

private:
    std::string wText;
};

// The report of a design, as Form_Load writes it (with the same side effect
// on NumItems, AmmoItems and WeaponItems).
std::string zVehicleStatsText(Vehicle& vhl);

}  // namespace bw
