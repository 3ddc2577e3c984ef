// The weapon data window: one row of the weapon table shown as labels.
#pragma once

#include <cstdint>
#include <string>

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

}  // namespace bw
