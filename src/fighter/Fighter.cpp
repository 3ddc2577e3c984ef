#include "fighter/Fighter.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "core/Controls.h"
#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"

namespace bw {

FighterWeapon gCurrentFighterWeapon;

namespace {

// The rules test a flag against the stored truth value -1: a 1 or any other
// number left in a field by a direct write reads as no.
bool IsYes(int16_t flag) { return flag == kTrue; }

// Element c of a per-configuration array; a configuration outside 0 to 5 is
// the run-time's bounds error.
template <class A>
auto& At(A& a, int32_t c) {
    if (c < 0 || c >= kOmniConfigs) zRaise(kErrSubscript);
    return a[static_cast<size_t>(c)];
}

template <class E>
E& Entry(std::vector<E>& list, int32_t i) {
    if (i < 0 || static_cast<size_t>(i) >= list.size()) zRaise(kErrSubscript);
    return list[static_cast<size_t>(i)];
}

template <class E>
const E& Entry(const std::vector<E>& list, int32_t i) {
    if (i < 0 || static_cast<size_t>(i) >= list.size()) zRaise(kErrSubscript);
    return list[static_cast<size_t>(i)];
}

bool InConfigRange(int16_t c) { return c >= 0 && c < kOmniConfigs; }

// A list of upper bound n, every entry empty; -1 is the empty list.
std::vector<FighterWeapon> SizedList(int16_t n) {
    if (n == -1) n = 0;
    if (n < 0) zRaise(kErrSubscript);
    return std::vector<FighterWeapon>(static_cast<size_t>(n) + 1);
}

int16_t CountActive(const std::vector<FighterWeapon>& list) {
    return zI16(std::count_if(list.begin(), list.end(), [](const FighterWeapon& e) { return IsYes(e.wActive); }));
}

// The list index of the active entry number n (from 0), or -1.
int32_t NthActive(const std::vector<FighterWeapon>& list, int16_t n) {
    int32_t pos = 0;
    for (size_t i = 0; i < list.size(); ++i) {
        if (!IsYes(list[i].wActive)) continue;
        if (pos == n) return static_cast<int32_t>(i);
        ++pos;
    }
    return -1;
}

void InvalidIndex(const std::string& verb, int16_t wData, const std::string& procName) {
    zMsgBox("Invalid data index to " + verb + " " + std::to_string(wData) + " sent to " + procName + ".",
            MsgButtons::OK, MsgIcon::None, "Invalid index");
}

}  // namespace

// ---------------------------------------------------------------------------
// Construction figures

void Fighter::SetName(const std::string& strName) { Name = strName; }

void Fighter::SetType(int16_t wType) {
    zTrapVoid("Fighter.SetType", [&] {
        FighterType = wType;
        CalcPowerAmpTonnage();
    });
}

void Fighter::SetTechBase(int16_t wBase) { TechBase = wBase; }

void Fighter::SetTechLevel(int16_t wLevel) { TechLevel = wLevel; }

void Fighter::SetTonnage(int16_t wTons) {
    zTrapVoid("Fighter.SetTonnage", [&] {
        Tonnage = wTons;
        if (FighterType == kFtrConventional) {
            // Conventional controls grow with the airframe; a cockpit does not.
            CockpitTonnage = zRoundHalf(Tonnage / 10.0);
            CalcVTOLTonnage();
        } else {
            CockpitTonnage = 3.0;
        }
        CalcEngineRating();
        CalcSIRating();
    });
}

void Fighter::SetCruiseSpeed(int16_t wSpeed) {
    zTrapVoid("Fighter.SetCruiseSpeed", [&] {
        CruiseSpeed = wSpeed;
        FlankSpeed = zI16(int64_t{CruiseSpeed} + zRoundUp(CruiseSpeed / 2.0));
        // The engine follows only when the editor asks for the rating.
        CalcSIRating();
    });
}

void Fighter::SetEngineType(int16_t wType) {
    zTrapVoid("Fighter.SetEngineType", [&] {
        EngineType = wType;
        CalcEngineTonnage();
        CalcPowerAmpTonnage();
        CalcHeatSinks();
    });
}

void Fighter::CalcEngineRating() {
    zTrapVoid("Fighter.CalcEngineRating", [&] {
        // Two thrust points of an aerospace fighter come free of the engine.
        const int16_t thrust = FighterType == kFtrConventional ? CruiseSpeed : zI16(int64_t{CruiseSpeed} - 2);
        EngineRating = zI16(int64_t{thrust} * Tonnage);
        CalcEngineTonnage();
    });
}

void Fighter::CalcEngineTonnage() {
    zTrapVoid("Fighter.CalcEngineTonnage", [&] {
        double tons = zBaseEngineWeight(EngineRating);
        if (FighterType == kFtrConventional) {
            switch (EngineType) {
                case kEngICE: tons = tons * 2; break;
                case kEngFusion: tons = tons * 1.5; break;
                case kEngFusionXL: tons = tons / 2 * 1.5; break;
                default: break;
            }
        } else if (EngineType == kEngFusionXL) {
            // Code 0 of a fresh design weighs as Fusion.
            tons = tons / 2;
        }
        EngineTonnage = zRoundQuarter(tons);
    });
}

void Fighter::CalcSIRating() {
    zTrapVoid("Fighter.CalcSIRating", [&] {
        // zRoundDown takes one off a value that is not whole: 65 tons give 5,
        // 60 tons 6. The dip on odd fives is the rule as it stands.
        const int16_t b = zRoundDown(Tonnage / 10.0);
        SIRating = CruiseSpeed > b ? CruiseSpeed : b;
    });
}

void Fighter::SetVTOLJets(int16_t v) {
    zTrapVoid("Fighter.SetVTOLJets", [&] {
        HasVTOLJets = zBool(v == 1);
        CalcVTOLTonnage();
    });
}

void Fighter::CalcVTOLTonnage() { VTOLJetTonnage = IsYes(HasVTOLJets) ? zRoundHalf(Tonnage / 20.0) : 0.0; }

void Fighter::SetFuelTonnage(int16_t wTons) {
    zTrapVoid("Fighter.SetFuelTonnage", [&] {
        FuelTonnage = wTons;
        if (FighterType == kFtrOmni) At(OmniFuelTonnage, OmniCurrentConfig) = FuelTonnage;
    });
}

void Fighter::SetHeatSinks(int16_t wSinks) {
    zTrapVoid("Fighter.SetHeatSinks", [&] {
        HeatSinks = wSinks;
        // Ten sinks come with the engine, whatever the kind; a conventional
        // design's figure is put right by its next weapon sum.
        HeatSinkTonnage = zI16(int64_t{wSinks} - 10);
        if (FighterType == kFtrOmni) {
            At(OmniHeatSinks, OmniCurrentConfig) = HeatSinks;
            At(OmniHeatSinkTonnage, OmniCurrentConfig) = HeatSinkTonnage;
        }
    });
}

void Fighter::SetHeatSinkType(int16_t v) { HeatSinkType = v == 1 ? 1 : 0; }

void Fighter::SetArmorTonnage(double dTons) {
    zTrapVoid("Fighter.SetArmorTonnage", [&] {
        ArmorTonnage = dTons;
        CalcArmorPoints();
    });
}

void Fighter::SetArmorType(int16_t wType) {
    zTrapVoid("Fighter.SetArmorType", [&] {
        if (wType != kFtrArmNormal) {
            ArmorType = kFtrArmFerroAluminum;
            // Ferro-Aluminum takes slots 0 and 1 of both wings.
            bool moved = false;
            for (FighterWeapon& e : Weapons) {
                if ((e.wLoc == kFtrLocLeftWing || e.wLoc == kFtrLocRightWing) && (e.wSlot == 0 || e.wSlot == 1)) {
                    e.wLoc = kFtrLocUnallocated;
                    e.wSlot = -1;
                    moved = true;
                }
            }
            if (moved && FighterType == kFtrOmni) UpdateCurrentConfigData();
        } else {
            ArmorType = kFtrArmNormal;
        }
        CalcArmorPoints();
    });
}

void Fighter::SetArmorLoc(int16_t wLocIdx, int16_t wPoints) {
    zTrapVoid("Fighter.SetArmorLoc", [&] {
        switch (wLocIdx) {
            case 0: FrontArmor = wPoints; break;
            case 1: LeftArmor = wPoints; break;
            case 2: RightArmor = wPoints; break;
            case 3: FuselageArmor = wPoints; break;
            case 4: CPArmor = wPoints; break;
            case 5: EngineArmor = wPoints; break;
            default: break;  // no such location; the points are still recomputed
        }
        CalcArmorPoints();
    });
}

void Fighter::CalcArmorPoints() {
    int16_t n = zCInt(ArmorTonnage * 16);
    if (ArmorType == kFtrArmFerroAluminum)
        n = zCInt(std::floor(n * (TechBase != kBaseInnerSphere ? 1.2 : 1.12) + 0.49));
    ArmorPoints = n;
    int64_t sum = int64_t{FrontArmor} + LeftArmor + RightArmor + FuselageArmor + CPArmor + EngineArmor;
    // The first ten cockpit points of an aerospace fighter are not bought.
    if (FighterType != kFtrConventional) sum -= 10;
    ArmorAllocated = zI16(sum);
}

void Fighter::CalcHeatSinks() {
    // Only a conventional fighter's sinks follow its energy weapons; the
    // others are the user's choice.
    if (FighterType != kFtrConventional) return;
    if (EngineType == kEngICE) {
        HeatSinks = EnergyHeat;
        HeatSinkTonnage = EnergyHeat;
    } else if (EnergyHeat > 10) {
        HeatSinks = EnergyHeat;
        HeatSinkTonnage = zI16(int64_t{EnergyHeat} - 10);
    } else {
        HeatSinks = 10;
        HeatSinkTonnage = 0;
    }
}

void Fighter::CalcPowerAmpTonnage() {
    PowerAmpTonnage =
        FighterType == kFtrConventional && EngineType == kEngICE ? zRoundTenth(EnergyTonnage / 10.0) : 0.0;
}

void Fighter::CalcTCTonnage() {
    const bool omni = FighterType == kFtrOmni;
    const bool on = IsYes(HasTC) || (omni && IsYes(At(OmniHasTC, OmniCurrentConfig)));
    if (!on) {
        TCTonnage = 0;
    } else {
        double linked = 0;
        for (const FighterWeapon& e : Weapons) {
            if (!IsYes(e.wActive)) continue;
            const WeaponRec& w = zWeaponRow(e.wIdx);
            if (w.TCFlag == 1) linked += w.Tonnage;
        }
        TCTonnage = zRoundUp(linked / 5.0);
    }
    if (omni) At(OmniTCTonnage, OmniCurrentConfig) = TCTonnage;
}

void Fighter::CalcTotalTonnage() {
    zTrapVoid("Fighter.CalcTotalTonnage", [&] {
        if (FighterType == kFtrOmni) {
            // Jets and amplifiers belong to conventional fighters only.
            TotalTonnage = zRoundQuarter(EngineTonnage + HeatSinkTonnage + ArmorTonnage + FuelTonnage +
                                         CockpitTonnage + WeaponTonnage + TCTonnage);
            FreeTonnage = zRoundQuarter(Tonnage - TotalTonnage);
            At(OmniTotalTonnage, OmniCurrentConfig) = TotalTonnage;
            At(OmniFreeTonnage, OmniCurrentConfig) = FreeTonnage;
        } else {
            TotalTonnage = EngineTonnage + HeatSinkTonnage + ArmorTonnage + VTOLJetTonnage + FuelTonnage +
                           CockpitTonnage + PowerAmpTonnage + WeaponTonnage + TCTonnage;
            FreeTonnage = Tonnage - TotalTonnage;
        }
    });
}

void Fighter::CalcWeaponTonnages() {
    zTrapVoid("Fighter.CalcWeaponTonnages", [&] {
        EnergyHeat = 0;
        EnergyTonnage = 0;
        WeaponHeat = 0;
        WeaponTonnage = 0;
        for (const FighterWeapon& e : Weapons) {
            if (!IsYes(e.wActive)) continue;
            const WeaponRec& w = zWeaponRow(e.wIdx);
            WeaponTonnage += w.Tonnage;
            if (w.Type == kWpnEnergy) {
                EnergyTonnage += w.Tonnage;
                if (w.Heat > 0) EnergyHeat = zI16(int64_t{EnergyHeat} + w.Heat);
            }
            if (w.Heat > 0) WeaponHeat = zI16(int64_t{WeaponHeat} + w.Heat);
        }
        CalcHeatSinks();
        CalcPowerAmpTonnage();
        CalcTCTonnage();
        if (FighterType == kFtrOmni) UpdateCurrentConfigData();
    });
}

// ---------------------------------------------------------------------------
// The weapon list

int16_t Fighter::AddWeapon(int16_t wIdx) {
    return zTrap<int16_t>("Fighter.AddWeapon", kFalse, [&]() -> int16_t {
        const WeaponRec& w = zWeaponRow(wIdx);
        FighterWeapon e;
        e.wIdx = wIdx;
        e.wActive = kTrue;
        e.wSlot = -1;
        e.wLoc = w.Name.compare(0, 5, "Cargo") == 0 ? kFtrLocInternal : kFtrLocUnallocated;
        e.wBase = zBool(FighterType == kFtrOmni && OmniCurrentConfig == 0);
        if (!IsYes(Weapons.front().wActive)) {
            e.wNum = 1;
            Weapons.front() = e;
        } else {
            // The lowest number no entry of this row holds, free places
            // included. It is never above the list's length plus one.
            std::vector<bool> taken(Weapons.size() + 2, false);
            for (const FighterWeapon& o : Weapons)
                if (o.wIdx == wIdx && o.wNum >= 1 && static_cast<size_t>(o.wNum) < taken.size())
                    taken[static_cast<size_t>(o.wNum)] = true;
            size_t num = 1;
            while (taken[num]) ++num;
            e.wNum = zI16(static_cast<int64_t>(num));
            Weapons.push_back(e);
        }
        CalcWeaponTonnages();
        return kTrue;
    });
}

void Fighter::RemoveWeapon(int16_t wIdx, int16_t wNum) {
    zTrapVoid("Fighter.RemoveWeapon", [&] {
        for (FighterWeapon& e : Weapons)
            if (IsYes(e.wActive) && e.wIdx == wIdx && e.wNum == wNum) e.wActive = kFalse;
        CompactWeapons();
        CalcWeaponTonnages();
    });
}

void Fighter::CompactWeapons() {
    std::vector<FighterWeapon> used;
    for (const FighterWeapon& e : Weapons)
        if (IsYes(e.wActive)) used.push_back(e);
    if (used.empty()) used.resize(1);
    Weapons = std::move(used);
}

void Fighter::ClearWeapons() {
    zTrapVoid("Fighter.ClearWeapons", [&] {
        // Base items go too: the lock does not guard this command.
        Weapons.assign(1, FighterWeapon{});
        CalcWeaponTonnages();
    });
}

int16_t Fighter::CheckValidRemove(int16_t wIdx, int16_t wNum) const {
    for (const FighterWeapon& e : Weapons)
        if (e.wIdx == wIdx && e.wNum == wNum) return zBool(!IsYes(e.wBase));
    return kTrue;
}

int16_t Fighter::WeaponCount() const {
    return zTrap<int16_t>("Fighter.WeaponCount", 0, [&] { return CountActive(Weapons); });
}

int16_t Fighter::WeaponCount(int16_t wConfig) const {
    return zTrap<int16_t>("Fighter.WeaponCount", 0, [&]() -> int16_t {
        return InConfigRange(wConfig) ? CountActive(OmniWeapons[static_cast<size_t>(wConfig)]) : 0;
    });
}

int16_t Fighter::WcUnallocatedWeapons() const {
    return zTrap<int16_t>("Fighter.WcUnallocatedWeapons", 0, [&] {
        return zI16(std::count_if(Weapons.begin(), Weapons.end(), [](const FighterWeapon& e) {
            return IsYes(e.wActive) && e.wLoc == kFtrLocUnallocated;
        }));
    });
}

void Fighter::SetWeaponsArraySize(int16_t n) {
    zTrapVoid("Fighter.SetWeaponsArraySize", [&] { Weapons = SizedList(n); });
}

void Fighter::SetWeaponsArraySize(int16_t n, int16_t wConfig) {
    zTrapVoid("Fighter.SetWeaponsArraySize", [&] {
        if (InConfigRange(wConfig)) OmniWeapons[static_cast<size_t>(wConfig)] = SizedList(n);
    });
}

void Fighter::UpdateWeapon(int16_t i) {
    zTrapVoid("Fighter.UpdateWeapon", [&] { Entry(Weapons, i) = gCurrentFighterWeapon; });
}

void Fighter::UpdateWeapon(int16_t i, int16_t wConfig) {
    zTrapVoid("Fighter.UpdateWeapon", [&] {
        if (InConfigRange(wConfig)) Entry(OmniWeapons[static_cast<size_t>(wConfig)], i) = gCurrentFighterWeapon;
    });
}

void Fighter::UpdateWeaponLocation(int16_t i, int16_t wLoc, int16_t wSlot) {
    zTrapVoid("Fighter.UpdateWeaponLocation", [&] {
        FighterWeapon& e = Entry(Weapons, i);
        e.wLoc = wLoc;
        e.wSlot = wSlot;
        if (FighterType == kFtrOmni) Entry(At(OmniWeapons, OmniCurrentConfig), i) = e;
    });
}

int16_t Fighter::SetFighterWeaponGlobal(int16_t n) const {
    return zTrap<int16_t>("Fighter.SetFighterWeaponGlobal", 0, [&]() -> int16_t {
        const int32_t i = NthActive(Weapons, n);
        if (i < 0) return 0;
        gCurrentFighterWeapon = Weapons[static_cast<size_t>(i)];
        return zI16(i);
    });
}

int16_t Fighter::SetFighterWeaponGlobal(int16_t n, int16_t wConfig) const {
    return zTrap<int16_t>("Fighter.SetFighterWeaponGlobal", 0, [&]() -> int16_t {
        if (!InConfigRange(wConfig)) return 0;
        const auto& list = OmniWeapons[static_cast<size_t>(wConfig)];
        const int32_t i = NthActive(list, n);
        if (i < 0) return 0;
        gCurrentFighterWeapon = list[static_cast<size_t>(i)];
        return zI16(i);
    });
}

void Fighter::SetFighterWeaponIdxGlobal(int16_t i) const {
    zTrapVoid("Fighter.SetFighterWeaponIdxGlobal", [&] { gCurrentFighterWeapon = Entry(Weapons, i); });
}

int16_t Fighter::SetFighterWeaponRefGlobal(int16_t wIdx, int16_t wNum) const {
    return zTrap<int16_t>("Fighter.SetFighterWeaponRefGlobal", -1, [&]() -> int16_t {
        for (size_t i = 0; i < Weapons.size(); ++i) {
            const FighterWeapon& e = Weapons[i];
            if (IsYes(e.wActive) && e.wIdx == wIdx && e.wNum == wNum) {
                gCurrentFighterWeapon = e;
                return zI16(static_cast<int64_t>(i));
            }
        }
        return -1;
    });
}

void Fighter::SetFighterAmmoGlobal(int16_t n, int16_t wIdx) const {
    int32_t seen = 0;
    for (const FighterWeapon& e : Weapons) {
        if (!IsYes(e.wActive) || e.wIdx != wIdx) continue;
        if (++seen == n) {
            gCurrentFighterWeapon = e;
            return;
        }
    }
}

int16_t Fighter::GetTCStatus() const {
    return zTrap<int16_t>("Fighter.GetTCStatus", 0, [&]() -> int16_t {
        return FighterType == kFtrOmni ? At(OmniHasTC, OmniCurrentConfig) : HasTC;
    });
}

int16_t Fighter::GetTCStatus(int16_t wConfig) const {
    if (FighterType != kFtrOmni) return HasTC;
    return InConfigRange(wConfig) ? OmniHasTC[static_cast<size_t>(wConfig)] : int16_t{0};
}

void Fighter::SetTCStatus(int16_t v) {
    zTrapVoid("Fighter.SetTCStatus", [&] { zSetTCStatus(v, nullptr); });
}

void Fighter::SetTCStatus(int16_t v, int16_t wConfig) {
    zTrapVoid("Fighter.SetTCStatus", [&] { zSetTCStatus(v, &wConfig); });
}

void Fighter::zSetTCStatus(int16_t v, const int16_t* wConfig) {
    if (v == 1) v = kTrue;
    const bool omni = FighterType == kFtrOmni;
    if (!omni) {
        HasTC = v;
    } else if (!wConfig) {
        At(OmniHasTC, OmniCurrentConfig) = v;
        HasTC = v;
    } else if (InConfigRange(*wConfig)) {
        OmniHasTC[static_cast<size_t>(*wConfig)] = v;
    }
    if (IsYes(v) && !wConfig) {
        // The computer takes slot 0 of its location from whatever stood there.
        bool moved = false;
        for (FighterWeapon& e : Weapons) {
            if (e.wLoc == TCLocation && e.wSlot == 0) {
                e.wLoc = kFtrLocUnallocated;
                e.wSlot = -1;
                moved = true;
            }
        }
        if (moved && omni) UpdateCurrentConfigData();
    }
    CalcTCTonnage();
}

void Fighter::SetTCLocation(int16_t wLoc, int16_t wConfig) {
    // Unlike turning the computer on, moving it clears no slot: the item
    // there shares slot 0 until the allocation window next reloads.
    if (FighterType != kFtrOmni)
        TCLocation = wLoc;
    else if (InConfigRange(wConfig))
        OmniTCLocation[static_cast<size_t>(wConfig)] = wLoc;
}

void Fighter::UpdateSelectedWeapons() {
    zTrapVoid("Fighter.UpdateSelectedWeapons", [&] {
        if (frm == nullptr) return;
        TreeView& tv = frm->zSelectedTree();
        BatchUpdate batch(tv);
        tv.Clear();
        static constexpr int16_t kGroups[] = {kFtrLocUnallocated, kFtrLocNose, kFtrLocLeftWing,
                                              kFtrLocRightWing,   kFtrLocRear, kFtrLocInternal};
        static constexpr const char* kHeadings[] = {"Not Allocated", "Nose", "Left Wing",
                                                    "Right Wing",    "Rear", "Internal"};
        auto groupKey = [](int16_t loc) { return "loc" + std::to_string(loc); };
        for (size_t g = 0; g < std::size(kGroups); ++g) tv.Add({}, groupKey(kGroups[g]), kHeadings[g]);
        std::vector<std::vector<std::pair<std::string, std::string>>> children(std::size(kGroups));
        for (const FighterWeapon& e : Weapons) {
            if (!IsYes(e.wActive)) continue;
            const auto found = std::find(std::begin(kGroups), std::end(kGroups), e.wLoc);
            // A place without a heading (only a damaged file holds one) is not shown.
            if (found == std::end(kGroups)) continue;
            const std::string key = "w" + std::to_string(e.wIdx) + "-" + std::to_string(e.wNum);
            const std::string text = zWeaponRow(e.wIdx).Name + " (#" + std::to_string(e.wNum) + ")";
            children[static_cast<size_t>(found - std::begin(kGroups))].emplace_back(key, text);
        }
        for (size_t g = 0; g < std::size(kGroups); ++g) {
            auto& list = children[g];
            if (list.empty()) {
                tv.Remove(groupKey(kGroups[g]));
                continue;
            }
            std::stable_sort(list.begin(), list.end(),
                             [](const auto& a, const auto& b) { return zLower(a.second) < zLower(b.second); });
            for (const auto& [key, text] : list) tv.Add(groupKey(kGroups[g]), key, text);
        }
    });
}

// ---------------------------------------------------------------------------
// Omni-Fighter configurations

int16_t Fighter::GetOmniData(int16_t wData, int16_t wConfig) const {
    return zTrap<int16_t>("Fighter.GetOmniData", 0, [&]() -> int16_t {
        switch (wData) {
            case kOmniHasTC: return At(OmniHasTC, wConfig);
            case kOmniTCLocation: return At(OmniTCLocation, wConfig);
            case kOmniWeaponHeat: return At(OmniWeaponHeat, wConfig);
            case kOmniConfigUsed: return At(OmniConfigUsed, wConfig);
            case kOmniFuelTonnage: return At(OmniFuelTonnage, wConfig);
            case kOmniHeatSinks: return At(OmniHeatSinks, wConfig);
            case kOmniHeatSinkTonnage: return At(OmniHeatSinkTonnage, wConfig);
            default: InvalidIndex("get", wData, "GetOmniData"); return 0;
        }
    });
}

void Fighter::SetOmniData(int16_t wData, int16_t wConfig, int16_t value) {
    zTrapVoid("Fighter.SetOmniData", [&] {
        switch (wData) {
            case kOmniHasTC: At(OmniHasTC, wConfig) = value; break;
            case kOmniTCLocation: At(OmniTCLocation, wConfig) = value; break;
            case kOmniWeaponHeat: At(OmniWeaponHeat, wConfig) = value; break;
            case kOmniConfigUsed: At(OmniConfigUsed, wConfig) = value; break;
            case kOmniFuelTonnage: At(OmniFuelTonnage, wConfig) = value; break;
            case kOmniHeatSinks: At(OmniHeatSinks, wConfig) = value; break;
            case kOmniHeatSinkTonnage: At(OmniHeatSinkTonnage, wConfig) = value; break;
            default: InvalidIndex("set", wData, "SetOmniData"); break;
        }
    });
}

double Fighter::GetOmniData2(int16_t wData, int16_t wConfig) const {
    return zTrap<double>("Fighter.GetOmniData2", 0.0, [&]() -> double {
        switch (wData) {
            case kOmniWeaponTonnage: return At(OmniWeaponTonnage, wConfig);
            case kOmniTCTonnage: return At(OmniTCTonnage, wConfig);
            case kOmniTotalTonnage: return At(OmniTotalTonnage, wConfig);
            case kOmniFreeTonnage: return At(OmniFreeTonnage, wConfig);
            default: InvalidIndex("get", wData, "GetOmniData2"); return 0.0;
        }
    });
}

void Fighter::SetOmniData2(int16_t wData, int16_t wConfig, double dData) {
    zTrapVoid("Fighter.SetOmniData2", [&] {
        switch (wData) {
            case kOmniWeaponTonnage: At(OmniWeaponTonnage, wConfig) = dData; break;
            case kOmniTCTonnage: At(OmniTCTonnage, wConfig) = dData; break;
            case kOmniTotalTonnage: At(OmniTotalTonnage, wConfig) = dData; break;
            case kOmniFreeTonnage: At(OmniFreeTonnage, wConfig) = dData; break;
            default: InvalidIndex("set", wData, "SetOmniData2"); break;
        }
    });
}

void Fighter::ChangeOmniConfig(int16_t wConfig) {
    zTrapVoid("Fighter.ChangeOmniConfig", [&] {
        const int16_t c = wConfig;
        if (c != 0 && !IsYes(At(OmniConfigUsed, c))) {
            // A configuration is seeded from the base once, on its first visit.
            if (IsYes(OmniHasTC[0])) {
                At(OmniHasTC, c) = kTrue;
                // The base's location serves as an index into the same array:
                // a base computer in the Rear (3) gives the entry of
                // configuration 3. Kept as it has always been.
                At(OmniTCLocation, c) = At(OmniTCLocation, OmniTCLocation[0]);
            }
            At(OmniFuelTonnage, c) = OmniFuelTonnage[0];
            At(OmniHeatSinks, c) = OmniHeatSinks[0];
            At(OmniHeatSinkTonnage, c) = OmniHeatSinkTonnage[0];
            if (IsYes(OmniWeapons[0].front().wActive)) At(OmniWeapons, c) = OmniWeapons[0];
        }
        HasTC = At(OmniHasTC, c);
        TCLocation = At(OmniTCLocation, c);
        FuelTonnage = At(OmniFuelTonnage, c);
        HeatSinks = At(OmniHeatSinks, c);
        HeatSinkTonnage = At(OmniHeatSinkTonnage, c);
        if (frm != nullptr) {
            // Under the loading flag the controls take the figures without
            // running their change commands.
            frm->zSetLoading(kTrue);
            frm->zShowFuelTonnage(FuelTonnage);
            frm->zShowHeatSinks(HeatSinks);
            frm->zSetLoading(kFalse);
        }
        Weapons = At(OmniWeapons, c);
        OmniCurrentConfig = c;
        At(OmniConfigUsed, c) = kTrue;
        // The computer's weight is not read back: the sum makes it again.
        CalcWeaponTonnages();
        CalcTotalTonnage();
        if (frm != nullptr) frm->zShowTCStatus(IsYes(HasTC));
    });
}

void Fighter::UpdateCurrentConfigData() {
    zTrapVoid("Fighter.UpdateCurrentConfigData", [&] {
        const int16_t c = OmniCurrentConfig;
        At(OmniTCTonnage, c) = IsYes(At(OmniHasTC, c)) ? TCTonnage : 0.0;
        At(OmniFuelTonnage, c) = FuelTonnage;
        At(OmniHeatSinks, c) = HeatSinks;
        At(OmniHeatSinkTonnage, c) = HeatSinkTonnage;
        At(OmniWeaponHeat, c) = WeaponHeat;
        At(OmniWeaponTonnage, c) = WeaponTonnage;
        At(OmniWeapons, c) = Weapons;
    });
}

int16_t Fighter::OmniCheckTonnages() const {
    // A configuration never entered does not count, whatever its array holds.
    for (int c = 0; c < kOmniConfigs; ++c)
        if (IsYes(OmniConfigUsed[static_cast<size_t>(c)]) && OmniFreeTonnage[static_cast<size_t>(c)] < 0)
            return kFalse;
    return kTrue;
}

int16_t Fighter::OmniCheckAllocatedWeapons() const {
    // Free places count too; other kinds hold only empty entries (location 0).
    for (const auto& list : OmniWeapons)
        for (const FighterWeapon& e : list)
            if (e.wLoc == kFtrLocUnallocated) return kFalse;
    return kTrue;
}

void Fighter::DisableOmniControls() {
    zTrapVoid("Fighter.DisableOmniControls", [&] {
        if (frm == nullptr) return;
        frm->zFreezeChassis();
        frm->zEnableConfigList();
        // A configuration may carry more fuel and sinks than the base, never fewer.
        frm->zHoldLoadoutMinimums();
        // A base computer stays in every configuration; without one, each may add one.
        if (IsYes(OmniHasTC[0])) frm->zFreezeTC();
        frm->zFreezeArmor();
    });
}

}  // namespace bw
