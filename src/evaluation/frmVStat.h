// The vehicle statistics window: a read-only text breakdown of where a
// design's tonnage and item slots go.
#pragma once

#include <functional>
#include <string>

#include "core/Controls.h"

namespace bw {

class Vehicle;

class frmVStat {
public:
    frmVStat();
    frmVStat(const frmVStat&) = delete;
    frmVStat& operator=(const frmVStat&) = delete;

    Label Caption{"frmVStat"};
    TextBox TStats{"TStats"};  // multi-line, locked
    CommandButton PButDone{"PButDone"};

    // The design, given by the editor before the window loads.
    Vehicle* vhl = nullptr;

    // Builds the report into TStats. It counts the items alone through
    // CalcIndividualItems, which leaves NumItems without the engine, armor
    // and option slots until the design's next CalcItemCount; that is left
    // to the editor's next change on purpose.
    void Form_Load();

    void zAddText(const std::string& text);
    void zIndentLine();
    void zNewLine();

    bool Visible() const { return wShown; }
    void Show() { wShown = true; }
    void Unload();
    std::function<void()> Unloaded;

private:
    std::string wText;
    bool wShown = false;
};

// The report of a design, as Form_Load writes it (with the same side effect
// on NumItems, AmmoItems and WeaponItems).
std::string zVehicleStatsText(Vehicle& vhl);

}  // namespace bw
