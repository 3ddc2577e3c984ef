// The weapon data window: one row of the weapon table shown as labels.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/Controls.h"
#include "core/Forms.h"

namespace bw {

// The texts the window shows, one helper per kind of label. Each takes the
// row's raw numbers, so the rules can be checked without a table.

// A number, or "-" for -1 (heat, damage, minimum range, shots).
std::string zWpnNumberOrDash(int16_t v);
// Short band: "-", "1" or "1-S".
std::string zWpnShortRangeText(int16_t s);
// Medium band: "-", "M", "S+1-M" or "1-M" when there is no short band.
std::string zWpnMedRangeText(int16_t s, int16_t m);
// Long band; a row without a medium band whose unit is not "Hex" reaches in
// that unit: "8 maps".
std::string zWpnLongRangeText(int16_t m, int16_t l, const std::string& rangeUnit);
// "per-missile/unit" for split damage, else the number or "-".
std::string zWpnDamageText(int16_t damage, int16_t hasDamageUnit, const std::string& damageUnit);
// Tons in general number format: "1", "0.5", "0.25".
std::string zWpnTonnageText(double tons);
// Cost in C-bills; -1 (no price) shows 0.
std::string zWpnCostText(int32_t cost);

// The window: opened by a double click on a row in an editor's trees, shows
// that row, and closes on PButDone.
// The window's title is the row's name.
class frmWData : public FormModel {
public:
    frmWData();

    Label LName{"LName"};
    Label LType{"LType"};
    Label LLevel{"LLevel"};
    Label LBase{"LBase"};
    Label LTonnage{"LTonnage"};
    Label LHeat{"LHeat"};
    Label LDamage{"LDamage"};
    Label LMin{"LMin"};
    Label LShort{"LShort"};
    Label LMedium{"LMedium"};
    Label LLong{"LLong"};
    Label LShots{"LShots"};
    Label lCV{"lCV"};
    Label LCost{"LCost"};
    CommandButton PButDone{"PButDone"};

    // Fills the labels from gWeapons[i]. False, after reporting, for a row
    // outside the table (subscript error) or a band that overflows.
    bool zGetWpnData(int32_t i);

};

}  // namespace bw
