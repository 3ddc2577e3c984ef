#include "refdata/frmWData.h"

#include <cctype>
#include <cstdio>

#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"

namespace bw {

namespace {

std::string Num(int32_t v) { return std::to_string(v); }

// Band ends are 16-bit: the next hex after 32767 is an overflow, as the
// rules' arithmetic has it, not a wrap to -32768.
int16_t Next(int16_t v) { return zI16(int32_t{v} + 1); }

}  // namespace

std::string zWpnNumberOrDash(int16_t v) { return v == -1 ? "-" : Num(v); }

std::string zWpnShortRangeText(int16_t s) {
    if (s == -1) return "-";
    if (s == 1) return "1";
    return "1-" + Num(s);
}

std::string zWpnMedRangeText(int16_t s, int16_t m) {
    if (m == -1) return "-";
    if (s == -1) return "1-" + Num(m);
    int16_t from = Next(s);
    if (from == m) return Num(m);
    return Num(from) + "-" + Num(m);
}

std::string zWpnLongRangeText(int16_t m, int16_t l, const std::string& rangeUnit) {
    if (l == -1) return "-";
    if (m != -1) {
        int16_t from = Next(m);
        if (from == l) return Num(l);
        return Num(from) + "-" + Num(l);
    }
    if (rangeUnit == "Hex") return "1-" + Num(l);
    std::string unit = rangeUnit;
    for (char& c : unit) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return Num(l) + " " + unit + "s";
}

std::string zWpnDamageText(int16_t damage, int16_t hasDamageUnit, const std::string& damageUnit) {
    if (hasDamageUnit != -1) return Num(damage) + "/" + damageUnit;
    return zWpnNumberOrDash(damage);
}

std::string zWpnTonnageText(double tons) {
    // General number format: up to 15 significant digits, no trailing zeros.
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.15g", tons);
    return buf;
}

std::string zWpnCostText(int32_t cost) { return cost == -1 ? "0" : Num(cost); }

frmWData::frmWData() : FormModel("frmWData") {
    PButDone.SetCaption("&Done");
    PButDone.Click = [this] { Unload(); };
}

bool frmWData::zGetWpnData(int32_t i) {
    return zTrap<bool>("zGetWpnData", false, [&] {
        if (i < 0 || static_cast<size_t>(i) >= gWeapons.size()) zRaise(kErrSubscript);
        const WeaponRec& w = gWeapons[static_cast<size_t>(i)];
        // Work out every text first, so a row that cannot be shown leaves the
        // window as it was.
        const std::string shortText = zWpnShortRangeText(w.ShortRange);
        const std::string medText = zWpnMedRangeText(w.ShortRange, w.MedRange);
        const std::string longText = zWpnLongRangeText(w.MedRange, w.LongRange, w.RangeUnit);
        Window.SetCaption(w.Name);
        LName.SetCaption(w.Name);
        LType.SetCaption(zWeaponCategoryName(w.Type));
        LLevel.SetCaption(Num(w.Level));
        LBase.SetCaption(zTechBaseName(w.Base));
        LTonnage.SetCaption(zWpnTonnageText(w.Tonnage));
        LHeat.SetCaption(zWpnNumberOrDash(w.Heat));
        LDamage.SetCaption(zWpnDamageText(w.Damage, w.HasDamageUnit, w.DamageUnit));
        LMin.SetCaption(zWpnNumberOrDash(w.MinRange));
        LShort.SetCaption(shortText);
        LMedium.SetCaption(medText);
        LLong.SetCaption(longText);
        LShots.SetCaption(zWpnNumberOrDash(w.Shots));
        lCV.SetCaption(Num(w.CombatValue));
        LCost.SetCaption(zWpnCostText(w.Cost));
        return true;
    });
}

}  // namespace bw
