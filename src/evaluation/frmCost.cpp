#include "evaluation/frmCost.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace bw {

namespace {

std::string Num(double v) { return zNumText(v); }

std::string Num(int64_t v) { return std::to_string(v); }

// A figure read back from a label; text that is not a number is a type
// mismatch, as the run-time's conversion would raise.
double LabelNumber(const std::string& text) {
    if (!zIsNumeric(text)) zRaise(kErrTypeMismatch);
    return std::strtod(text.c_str(), nullptr);
}

void AddLine(ListView& lv, const std::string& text, int32_t cost) {
    ListView::ListItem& it = lv.Add({}, text);
    it.SetSubItem(1, Num(int64_t{cost}));
    // A bound list learns of the cost only from a refresh.
    lv.Refresh();
}

// Money: a whole number in 32 bits.
int32_t Money(double v) { return zCLng(v); }

void SetColumns(ListView& lv, const char* item) {
    lv.ColumnHeaders = {item, "Cost"};
    lv.FullRowSelect = true;
}

}  // namespace

int32_t zDamageColor(int32_t value) {
    if (value <= 10) return 0x000000;
    if (value <= 25) return 0xFFFF00;
    if (value <= 40) return 0xFF0000;
    if (value <= 60) return 0xFF00FF;
    if (value <= 80) return 0x00FF00;
    if (value <= 99) return 0x00FFFF;
    return 0x0000FF;
}

frmCost::frmCost() : FormModel("frmCost") {
    Window.SetCaption("Battle Stats and Cost");
    SetColumns(lvParts, "Item");
    SetColumns(lvWeapons, "Item");
    SetColumns(lvAmmo, "Item");
    lblPartsSubtotal.SetCaption("Parts Subtotal:");
    lblWeapSubtotal.SetCaption("Weapons and Equipment Subtotal:");
    lblAmmoSubtotal.SetCaption("Ammuntion Subtotal:");
    lblMultiplier.SetCaption("Cost Multiplier");
    lblCV.SetCaption("Combat Value:");
    lblDamWeap.SetCaption("Damage per ton of weapons:");
    fraDamage.SetCaption("Maximum Damage by Range");
    PButDone.SetCaption("&Done");
    PButDone.Click = [this] { Unload(); };
}

void frmCost::zSetUpForVehicle() {
    lblDamVhl.SetCaption("Damage per ton of vehicle:");
    lblTotalCost.SetCaption("Vehicle Cost:");
    lblCV.SetVisible(true);
    lCV.SetVisible(true);
}

void frmCost::zSetUpForFighter() {
    lblDamVhl.SetCaption("Damage per ton of fighter:");
    lblTotalCost.SetCaption("Fighter Cost:");
    lblCV.SetVisible(false);
    lCV.SetVisible(false);
}

void frmCost::zClear() {
    lvParts.Clear();
    lvWeapons.Clear();
    lvAmmo.Clear();
    for (Label* l : {&lPartsSubtotal, &lWeapSubtotal, &lAmmoSubtotal, &lVhlMultiplier, &lTotalCost, &lCV, &lDamVhl,
                     &lDamWeap})
        l->SetCaption({});
    wDamage.clear();
    wRuns.clear();
    shpDamage.clear();
    if (ChartChanged) ChartChanged();
}

// ---- damage report ---------------------------------------------------------

namespace {

void Reach(std::vector<int32_t>& profile, int64_t lastIndex) {
    if (lastIndex >= static_cast<int64_t>(profile.size())) profile.resize(static_cast<size_t>(lastIndex) + 1, 0);
}

// Adds d to entries first..last; a band that starts before the first hex
// starts at the first hex.
void AddBand(std::vector<int32_t>& profile, int64_t first, int64_t last, int32_t d) {
    if (last < 0 || first > last) return;
    Reach(profile, last);
    for (int64_t i = first < 0 ? 0 : first; i <= last; ++i) {
        int32_t& e = profile[static_cast<size_t>(i)];
        e = zI32(int64_t{e} + d);
    }
}

}  // namespace

void zGenDamageReport(const std::vector<int16_t>& activeRows, int16_t tonnage, frmCost& frm) {
    frm.wDamage.clear();
    frm.wRuns.clear();
    frm.shpDamage.clear();
    zTrapVoid("zGenDamageReport", [&] {
        std::vector<int32_t>& profile = frm.wDamage;
        double weaponTons = 0;
        for (int16_t row : activeRows) {
            const WeaponRec& w = zWeaponRow(row);
            if (w.Type != kWpnEquipment && w.Type != kWpnAmmunition) weaponTons += w.Tonnage;
            const int16_t split = w.HasDamageUnit == -1 ? w.Damage : w.HasDamageUnit;
            if (w.RangeUnit == "Map") {
                // Reaches over whole map sheets: every hex of the chart.
                AddBand(profile, 0, kMapRangeLastIndex, split);
                continue;
            }
            const int32_t d = w.Damage > 0 ? split : 0;
            if (d <= 0) continue;
            AddBand(profile, 0, int64_t{w.ShortRange} - 1, d);
            AddBand(profile, w.ShortRange, int64_t{w.MedRange} - 1, d);
            AddBand(profile, w.MedRange, int64_t{w.LongRange} - 1, d);
        }

        const double p0 = profile.empty() ? 0.0 : static_cast<double>(profile[0]);

        // Runs of the capped profile.
        for (int32_t v : profile) {
            if (v >= kDamageCap) v = kDamageCap;
            if (!frm.wRuns.empty() && frm.wRuns.back().first == v)
                ++frm.wRuns.back().second;
            else
                frm.wRuns.emplace_back(v, 1);
        }
        int64_t left = kDamageChartLeft;
        for (const auto& [value, count] : frm.wRuns) {
            DamageShape s;
            s.Left = zI32(left);
            s.Width = zI32(int64_t{count} * kDamageStepWidth);
            s.Height = value >= kDamageCap ? kDamageCapHeight : value * kDamagePointHeight;
            s.Color = zDamageColor(value);
            s.Visible = s.Height > 0;
            frm.shpDamage.push_back(s);
            left += s.Width;
        }
        if (frm.ChartChanged) frm.ChartChanged();

        // Floating division: 0 / 0 is an overflow, x / 0 a division by zero.
        if (tonnage == 0) zRaise(p0 == 0 ? kErrOverflow : kErrDivByZero);
        frm.lDamVhl.SetCaption(Num(zRoundTenth(p0 / tonnage)) + " points / ton");
        if (weaponTons > 0)
            frm.lDamWeap.SetCaption(Num(zRoundTenth(p0 / weaponTons)) + " points / ton");
        else
            frm.lDamWeap.SetCaption("0 points / ton");
    });
}

void zGenDamageReport(const Vehicle& vhl, frmCost& frm) {
    std::vector<int16_t> rows;
    for (const VehicleItem& it : vhl.Items)
        if (it.wStatus == kTrue) rows.push_back(it.wType);
    zGenDamageReport(rows, vhl.Tonnage, frm);
}

// ---- parts cost -------------------------------------------------------------

int32_t zVehicleCostMultiplierDivisor(int16_t vhlType) {
    static constexpr int32_t k[] = {100, 200, 50, 30, 75, 200, 50, 75};
    // A type without a divisor divides by nothing.
    if (vhlType < 0 || vhlType > 7) zRaise(kErrDivByZero);
    return k[vhlType];
}

void zGenPartsCost(const Vehicle& vhl, frmCost& frm) {
    frm.lvParts.Clear();
    zTrapVoid("zGenPartsCost", [&] {
        const int16_t T = vhl.Tonnage;
        int32_t P = 0;
        auto line = [&](const std::string& text, int32_t cost) {
            AddLine(frm.lvParts, text, cost);
            P = zI32(int64_t{P} + cost);
        };
        const bool vtol = vhl.VhlType == kVhlVTOL;

        const int32_t ratingTons = zI32(int64_t{vhl.EngineRating} * T);
        line(Num(int64_t{vhl.EngineRating}) + " power rated " + zEngineName(vhl.EngineType) + " power plant",
             Money(ratingTons / 75.0 * zEngineCostFactor(vhl.EngineType)));
        if (vhl.ControlTonnage > 0)
            line("Control Components", zI32(int64_t{zCLng(vhl.ControlTonnage)} * 10000));
        line("Internal Structure", zI32(int64_t{zCLng(vhl.ISTonnage)} * 10000));
        line("Heat Sinks", vhl.EngineType == kEngICE ? zI32(int64_t{vhl.HeatSinks} * 2000)
                                                    : zI32((int64_t{vhl.HeatSinks} - 10) * 2000));
        if (vhl.ArmorTonnage > 0) {
            static constexpr int32_t rate[] = {10000, 20000, 15000, 25000, 30000, 30000};
            const int32_t r = vhl.ArmorType >= 0 && vhl.ArmorType <= 5 ? rate[vhl.ArmorType] : 0;
            line(Num(vhl.ArmorTonnage) + " tons armor (" + zVehicleArmorName(vhl.ArmorType) + ")",
                 zRoundUp(vhl.ArmorTonnage * r));
        }
        if (vhl.PowerAmpTonnage > 0) line("Power Amplifiers", Money(vhl.PowerAmpTonnage * 20000));
        if (vhl.HasTurret) line(vtol ? "Chin Turret" : "Main Turret", Money(vhl.TurretTonnage * 5000));
        if (vhl.HasSecTurret) line("Secondary Turret", Money(vhl.SecTurretTonnage * 5000));
        if (vhl.HasSponsonTurrets) line("Sponson Turrets", Money(vhl.SponsonTurretTonnage * 4000));
        if (vhl.LiftEqTonnage > 0) {
            const int64_t tons = zCLng(vhl.LiftEqTonnage);
            if (vtol)
                line("Rotor", zI32(tons * 40000));
            else
                line(vhl.VhlType == kVhlSubmarine ? "Dive Equipment" : "Lift Equipment", zI32(tons * 20000));
        }
        const int32_t extraCrew = int32_t{vhl.NumCrew} - vhl.BaseCrew;
        if (extraCrew > 0) line("Additional Crew", zI32(int64_t{extraCrew} * 5000));
        if (vhl.HasAmphibEquip) line("Amphibious Equipment", zI32(int64_t{zCLng(vhl.AmphibTonnage)} * 10000));
        if (vhl.HasBridgeLayer) {
            switch (vhl.BridgeLayerType) {
                case 0: line("Bridge Layer - Light", 40000); break;
                case 1: line("Bridge Layer - Medium", 75000); break;
                case 2: line("Bridge Layer - Heavy", 100000); break;
                default: break;  // no such bridge: no line
            }
        }
        if (vhl.HasBulldozer) line("Bulldozer Blade", 50000);
        if (vhl.HasCoolantSystem) line("Coolant System", Money(vhl.CoolantSystemTonnage * 10000));
        if (vhl.HasDuneBuggyEquip) line("Dune Buggy Equipment", zI32(int64_t{T} * T * 10));
        if (vhl.HasSupercharger)
            line(vtol ? "Jet Boosters" : "Supercharger", zI32(int64_t{vhl.EngineRating} * 10000));
        if (vhl.HasMASHUnit) line("M*A*S*H* Unit", Money(vhl.MASHTonnage * 10000));
        if (vhl.HasMastMount) line("Mast Mount", 50000);
        if (vhl.HasMinesweeper) line("Mine Sweeper", 40000);
        if (vhl.HasMobileHQ) line("Mobile HQ", Money(vhl.MobileHQTonnage * 10000));
        if (vhl.HasSnowmobileEquip) line("Snowmobile Equipment", zI32(int64_t{T} * T * 10));
        if (vhl.HasJumpJet)
            line("Jump Jets", zI32(int64_t{T} * vhl.NumJumpJets * vhl.NumJumpJets * 200));
        // Recorded only: the computer is paid for through the weapon list.
        if (vhl.HasTC) line("Targetting Computer", 0);

        const double M = zRoundTenth(1.0 + static_cast<double>(T) / zVehicleCostMultiplierDivisor(vhl.VhlType));
        frm.lVhlMultiplier.SetCaption("x " + Num(M));
        frm.lPartsSubtotal.SetCaption(Num(int64_t{P}));
    });
}

// ---- weapon cost -------------------------------------------------------------

void zGenWeapCost(const std::vector<int16_t>& activeRows, frmCost& frm, bool wFinishTotal) {
    frm.lvWeapons.Clear();
    frm.lvAmmo.Clear();
    zTrapVoid("zGenWeapCost", [&] {
        struct Group {
            int16_t row;
            int32_t count;
            int32_t unitCost;
        };
        std::vector<Group> groups;
        for (int16_t r : activeRows) {
            const WeaponRec& w = zWeaponRow(r);
            bool found = false;
            for (Group& g : groups) {
                if (g.row == r) {
                    g.count = zI32(int64_t{g.count} + 1);
                    found = true;
                    break;
                }
            }
            if (!found) groups.push_back({r, 1, w.Cost});
        }
        int32_t weapons = 0, ammo = 0;
        for (const Group& g : groups) {
            const WeaponRec& w = zWeaponRow(g.row);
            const int32_t cost = zI32(int64_t{g.count} * g.unitCost);
            const std::string text = "(" + std::to_string(g.count) + ") " + w.Name;
            if (w.Type == kWpnAmmunition) {
                AddLine(frm.lvAmmo, text, cost);
                ammo = zI32(int64_t{ammo} + cost);
            } else {
                AddLine(frm.lvWeapons, text, cost);
                weapons = zI32(int64_t{weapons} + cost);
            }
        }
        frm.lWeapSubtotal.SetCaption(Num(int64_t{weapons}));
        frm.lAmmoSubtotal.SetCaption(Num(int64_t{ammo}));
        if (!wFinishTotal) return;
        const std::string& mult = frm.lVhlMultiplier.Caption();
        const double M = LabelNumber(mult.size() > 2 ? mult.substr(2) : std::string());
        const int32_t P = zCLng(LabelNumber(frm.lPartsSubtotal.Caption()));
        const int32_t sum = zI32(int64_t{P} + weapons + ammo);
        frm.lTotalCost.SetCaption(Num(int64_t{Money(M * sum)}));
    });
}

void zGenWeapCost(const Vehicle& vhl, frmCost& frm) {
    std::vector<int16_t> rows;
    for (const VehicleItem& it : vhl.Items)
        if (it.wStatus == kTrue) rows.push_back(it.wType);
    zGenWeapCost(rows, frm, true);
}

// ---- combat value -------------------------------------------------------------

int32_t zCombatValue(const Vehicle& vhl) {
    const int16_t T = vhl.Tonnage;
    // Products of two 16-bit figures overflow past 32767; the sum is 32-bit.
    auto mul16 = [](int16_t a, int32_t b) { return zI16(int64_t{a} * b); };
    int32_t S = 0;
    auto add = [&](int64_t v) { S = zI32(int64_t{S} + v); };

    for (const VehicleItem& it : vhl.Items) {
        if (it.wStatus != kTrue) continue;
        const WeaponRec& w = zWeaponRow(it.wType);
        if (w.CombatValue == -1) continue;
        add(w.CombatValue);
        if (w.Type != kWpnEnergy && w.Type != kWpnEquipment && w.Heat > 0) add(mul16(T, w.Heat));
    }
    switch (vhl.VhlType) {
        case kVhlTracked: add(mul16(T, 8)); break;
        case kVhlWheeled: add(mul16(T, 10)); break;
        case kVhlHover: add(mul16(T, 12)); break;
        case kVhlVTOL: add(mul16(T, 10)); break;
        case kVhlHydrofoil: add(mul16(T, 8)); break;
        case kVhlNaval: add(mul16(T, 6)); break;
        case kVhlSubmarine: add(mul16(T, 8)); break;
        default: break;  // a super heavy tank has no chassis figure
    }
    switch (vhl.EngineType) {
        case kEngICE: add(mul16(T, 2)); break;
        case kEngFusion: add(mul16(T, 3)); break;
        case kEngFusionXL: add(mul16(T, 6)); break;
        default: break;
    }
    add(vhl.ArmorType != kArmNormal ? mul16(vhl.ArmorPoints, 2) : vhl.ArmorPoints);
    add(mul16(T, 4));
    add(mul16(T, vhl.HeatSinks));
    const int32_t tenths = zRoundUp(T / 10.0);
    if (vhl.HasTurret) {
        add(zI32(int64_t{tenths} * 5));
        add(mul16(T, 4));
    } else {
        add(zI32(int64_t{tenths} * 4));
    }
    if (vhl.VhlType == kVhlHover || vhl.VhlType == kVhlVTOL || vhl.VhlType == kVhlHydrofoil ||
        vhl.VhlType == kVhlSubmarine)
        add(T);
    return S;
}

void zGenCombatValue(const Vehicle& vhl, frmCost& frm) {
    zTrapVoid("zGenCombatValue", [&] { frm.lCV.SetCaption(Num(int64_t{zCombatValue(vhl)})); });
}

void zFillVehicleCost(const Vehicle& vhl, frmCost& frm) {
    frm.zClear();
    frm.zSetUpForVehicle();
    zGenDamageReport(vhl, frm);
    zGenPartsCost(vhl, frm);
    zGenWeapCost(vhl, frm);
    zGenCombatValue(vhl, frm);
}

// ---- fighters ------------------------------------------------------------------

namespace {

std::vector<int16_t> ActiveRows(const Fighter& ftr) {
    std::vector<int16_t> rows;
    for (const FighterWeapon& e : ftr.Weapons)
        if (e.wActive == kTrue) rows.push_back(e.wIdx);
    return rows;
}

// The parts lines of a fighter, summed as they go.
struct FighterParts {
    frmCost& frm;
    int32_t P = 0;
    void Line(const std::string& text, int32_t cost) {
        AddLine(frm.lvParts, text, cost);
        P = zI32(int64_t{P} + cost);
    }
    // Weapons and ammunition as the weapon report left them on the window.
    int32_t WeaponsAndAmmo() const {
        return zI32(int64_t{zCLng(LabelNumber(frm.lWeapSubtotal.Caption()))} +
                    zCLng(LabelNumber(frm.lAmmoSubtotal.Caption())));
    }
    // The multiplier is not rounded, unlike a vehicle's.
    void Finish(int16_t T) {
        const double M = 1.0 + T / 200.0;
        frm.lVhlMultiplier.SetCaption("x " + Num(M));
        frm.lPartsSubtotal.SetCaption(Num(int64_t{P}));
        frm.lTotalCost.SetCaption(Num(int64_t{Money(M * zI32(int64_t{P} + WeaponsAndAmmo()))}));
    }
};

}  // namespace

void zGenDamageReport(const Fighter& ftr, frmCost& frm) { zGenDamageReport(ActiveRows(ftr), ftr.Tonnage, frm); }

void zGenWeapCost(const Fighter& ftr, frmCost& frm) { zGenWeapCost(ActiveRows(ftr), frm, false); }

void zGenAeroPartsCost(const Fighter& ftr, frmCost& frm) {
    frm.lvParts.Clear();
    zTrapVoid("zGenAeroPartsCost", [&] {
        const int16_t T = ftr.Tonnage;
        FighterParts parts{frm};
        // A 16-bit product: 100 tons at rating 400 overflow and end the report.
        const int16_t ratingTons = zI16(int64_t{ftr.EngineRating} * T);
        const std::string rating = Num(int64_t{ftr.EngineRating});
        switch (ftr.EngineType) {
            case kEngFusion:
                parts.Line(rating + " power rated fusion power plant", Money(zI32(int64_t{ratingTons} * 5000) / 75.0));
                break;
            case kEngFusionXL:
                parts.Line(rating + " power rated fusion XL power plant",
                           Money(zI32(int64_t{ratingTons} * 20000) / 75.0));
                break;
            default: parts.Line(rating, 0); break;  // a fresh design's code 0 names no engine
        }
        parts.Line("Cockpit", 200000);
        parts.Line("Structural Integrity", zI32(int64_t{ftr.SIRating} * 50000));
        const std::string sinks = Num(int64_t{ftr.HeatSinks});
        if (ftr.HeatSinkType != 0)
            parts.Line(sinks + " double heat sinks", zI32(int64_t{ftr.HeatSinks} * 6000));
        else
            parts.Line(sinks + " heat sinks", zI32((int64_t{ftr.HeatSinks} - 10) * 2000));
        // Normal armor is the dearer here, the reverse of the conventional
        // report; the prices stand as they are.
        if (ftr.ArmorType == kFtrArmNormal)
            parts.Line(Num(ftr.ArmorTonnage) + " tons armor (normal)", Money(ftr.ArmorTonnage * 20000));
        else
            parts.Line(Num(ftr.ArmorTonnage) + " tons armor (ferro)", Money(ftr.ArmorTonnage * 10000));
        parts.Line("Sensors", zI32(int64_t{T} * 2000));
        parts.Line("Life Support", 50000);
        if (ftr.FighterType == kFtrOmni)
            parts.Line("OmniFighter Conversion", Money(zI32(int64_t{parts.P} + parts.WeaponsAndAmmo()) / 4.0));
        parts.Finish(T);
    });
}

void zGenConvPartsCost(const Fighter& ftr, frmCost& frm) {
    frm.lvParts.Clear();
    zTrapVoid("zGenConvPartsCost", [&] {
        const int16_t T = ftr.Tonnage;
        FighterParts parts{frm};
        const int16_t rating = zI16(int64_t{ftr.CruiseSpeed} * T);
        const int32_t k = zEngineCostFactor(ftr.EngineType);
        const int32_t engineTons = zCLng(ftr.EngineTonnage);
        parts.Line(Num(int64_t{rating}) + " power rated " + zEngineName(ftr.EngineType) + " power plant",
                   Money(zI32(int64_t{zI32(int64_t{rating} * k)} * engineTons) / 75.0));
        parts.Line("Avionics", zI32(int64_t{T} * 4000));
        parts.Line("Structural Integrity", zI32(int64_t{ftr.SIRating} * 4000));
        if (ftr.HeatSinks > 0) {
            const int64_t paid = ftr.EngineType == kEngICE ? int64_t{ftr.HeatSinks} : int64_t{ftr.HeatSinks} - 10;
            parts.Line(Num(int64_t{ftr.HeatSinks}) + " heat sinks", zI32(paid * 2000));
        }
        parts.Line(Num(ftr.ArmorTonnage) + " tons armor (" + zFighterArmorName(ftr.ArmorType) + ")",
                   Money(ftr.ArmorTonnage * (ftr.ArmorType != kFtrArmNormal ? 20000 : 10000)));
        parts.Finish(T);
    });
}

void zFillFighterCost(const Fighter& ftr, frmCost& frm) {
    frm.zClear();
    frm.zSetUpForFighter();
    zGenDamageReport(ftr, frm);
    zGenWeapCost(ftr, frm);
    if (ftr.FighterType == kFtrConventional)
        zGenConvPartsCost(ftr, frm);
    else
        zGenAeroPartsCost(ftr, frm);
}

}  // namespace bw
