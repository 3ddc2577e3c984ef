#include "vehicle/Vehicle.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/Controls.h"
#include "core/EditorParts.h"
#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"

namespace bw {

VehicleItem gCurrentVehicleItem;

namespace {

// The rules test a flag against the stored truth value -1: a 1 or any other
// number left in a field by a direct write reads as no.
bool IsYes(int16_t flag) { return flag == kTrue; }

// The quotients the rules take in single precision, widened for storage.
double SingleQuotient(int16_t n, float d) { return static_cast<double>(static_cast<float>(n) / d); }


VehicleItem& Element(std::vector<VehicleItem>& items, int32_t wRef) {
    if (wRef < 0 || static_cast<size_t>(wRef) >= items.size()) zRaise(kErrSubscript);
    return items[static_cast<size_t>(wRef)];
}

const VehicleItem& Element(const std::vector<VehicleItem>& items, int32_t wRef) {
    if (wRef < 0 || static_cast<size_t>(wRef) >= items.size()) zRaise(kErrSubscript);
    return items[static_cast<size_t>(wRef)];
}

bool SharesOneSlot(const WeaponRec& w) { return w.Name == "Cargo Space" || w.Name == "Passengers"; }

// Slots of the used items: one per item, one for all "Cargo Space", one for
// all "Passengers", and one per distinct ammunition row.
struct ItemSlots {
    int16_t items = 0;
    int16_t ammoTypes = 0;
};

ItemSlots CountItemSlots(const std::vector<VehicleItem>& items) {
    ItemSlots out;
    std::vector<int16_t> ammo;
    bool cargo = false;
    bool passengers = false;
    for (const VehicleItem& it : items) {
        if (it.wStatus != kTrue) continue;
        const WeaponRec& w = zWeaponRow(it.wType);
        if (w.Type == kWpnAmmunition) {
            if (std::find(ammo.begin(), ammo.end(), it.wType) == ammo.end()) ammo.push_back(it.wType);
        } else if (w.Name == "Cargo Space") {
            if (!cargo) out.items = zI16(int32_t{out.items} + 1);
            cargo = true;
        } else if (w.Name == "Passengers") {
            if (!passengers) out.items = zI16(int32_t{out.items} + 1);
            passengers = true;
        } else {
            out.items = zI16(int32_t{out.items} + 1);
        }
    }
    out.ammoTypes = zI16(static_cast<int64_t>(ammo.size()));
    return out;
}

// Large engine weights for ratings 405 to 500 in steps of five.
constexpr std::array<double, 20> kLargeEngine = {
    56.5, 61, 66.5, 72.5, 79.5, 87.5, 97, 107.5, 119.5, 133.5,
    150, 168.5, 190, 214.5, 243, 275.5, 313, 356, 405.5, 462.5,
};

bool IsLargeEngine(int16_t e) {
    return e == kEngLargeICE || e == kEngLargeFusionXL || e == kEngLargeFusionXXL || e == kEngLargeFusion;
}

}  // namespace

// ---------------------------------------------------------------------------
// Tables

int16_t zSuspensionFactor(int16_t vhlType, int16_t t) {
    switch (vhlType) {
        case kVhlTracked: return 0;
        case kVhlWheeled: return 20;
        case kVhlHover:
            if (t <= 10) return 40;
            if (t <= 20) return 85;
            if (t <= 30) return 130;
            if (t <= 40) return 175;
            if (t <= 50) return 235;
            return 0;
        case kVhlVTOL:
            if (t <= 10) return 50;
            if (t <= 20) return 95;
            if (t <= 30) return 140;
            return 0;
        case kVhlHydrofoil: {
            if (t < 1 || t > 100) return 0;
            static constexpr int16_t kFactors[10] = {60, 105, 150, 195, 255, 300, 345, 390, 435, 480};
            return kFactors[(t - 1) / 10];
        }
        case kVhlNaval:
        case kVhlSubmarine: return 30;
        default: return 0;
    }
}

double zLargeEngineWeight(int16_t rating) {
    if (rating < 405 || rating > 500 || rating % 5 != 0) return 0;
    return kLargeEngine[static_cast<size_t>((rating - 405) / 5)];
}

int16_t zArmorItemSlots(int16_t armorType) {
    switch (armorType) {
        case kArmFerroFibrous: return 2;
        case kArmLightFerro: return 1;
        case kArmHeavyFerro: return 3;
        case kArmLaserReflective: return 1;
        case kArmReactive: return 2;
        default: return 0;
    }
}

bool zVehicleMayMount(int32_t row, int16_t techBase, int16_t techLevel, int16_t vhlType) {
    const WeaponRec& w = zWeaponRow(row);
    if (w.Base != techBase || w.Level > techLevel) return false;
    if (w.UseClass == 2 && vhlType >= kVhlTracked && vhlType <= kVhlVTOL) return false;
    return true;
}

std::array<std::vector<int16_t>, 6> zValidVehicleWeapons(int16_t techBase, int16_t techLevel, int16_t vhlType) {
    std::array<std::vector<int16_t>, 6> lists;
    const size_t n = std::min<size_t>(gWeapons.size(), 32768);
    for (size_t i = 0; i < n; ++i) {
        const auto row = static_cast<int16_t>(i);
        if (!zVehicleMayMount(row, techBase, techLevel, vhlType)) continue;
        const int16_t cls = gWeapons[i].Type;
        // A row of an unknown class belongs to no list.
        if (cls < 0 || cls > 5) continue;
        lists[static_cast<size_t>(cls)].push_back(row);
    }
    return lists;
}

// ---------------------------------------------------------------------------
// Life

Vehicle::Vehicle() : Items(1) {}

void Vehicle::OverrideInteractiveMode() { wInteractive = kFalse; }

// ---------------------------------------------------------------------------
// Construction figures

void Vehicle::SetName(const std::string& strName) { Name = strName; }

void Vehicle::SetTechBase(int16_t wType) { TechBase = wType; }

void Vehicle::SetTechLevel(int16_t wType) { TechLevel = wType; }

void Vehicle::SetType(int16_t wType) {
    zTrapVoid("Vehicle.SetType", [&] {
        VhlType = wType;
        SuspensionFactor = zSuspensionFactor(VhlType, Tonnage);
        zCalcPowerAmps();
    });
}

void Vehicle::SetTonnage(int16_t wAmt) {
    zTrapVoid("Vehicle.SetTonnage", [&] {
        Tonnage = wAmt;
        SuspensionFactor = zSuspensionFactor(VhlType, Tonnage);
        // The Super Heavy Tank's double structure is this divisor.
        ISTonnage = SingleQuotient(Tonnage, VhlType == kVhlSuperHeavy ? 5.0f : 10.0f);
        ControlTonnage = zRoundHalf(Tonnage / 20.0);
        switch (VhlType) {
            case kVhlHover:
            case kVhlVTOL:
            case kVhlHydrofoil:
            case kVhlSubmarine: LiftEqTonnage = SingleQuotient(Tonnage, 10.0f); break;
            default: LiftEqTonnage = 0; break;
        }
        MaxItems = zI16(static_cast<int64_t>(std::floor(Tonnage / 5.0)) + 5);
        CalcMotiveEQTonnage();
        CalcBaseCrew();
        CalcEngineRating();
    });
}

void Vehicle::SetCruiseSpeed(int16_t wCruise) {
    zTrapVoid("Vehicle.SetCruiseSpeed", [&] {
        CruiseSpeed = wCruise;
        FlankSpeed = zI16(int64_t{CruiseSpeed} + zRoundUp(CruiseSpeed / 2.0));
    });
}

void Vehicle::SetEngineType(int16_t wType) {
    zTrapVoid("Vehicle.SetEngineType", [&] {
        EngineType = wType;
        CalcItemCount();
        CalcEngineTonnage();
        zCalcPowerAmps();
        zCalcHeatSinks();
    });
}

void Vehicle::CalcEngineRating() {
    zTrapVoid("Vehicle.CalcEngineRating", [&] {
        // Not rounded to a multiple of five: a rating off the table weighs
        // 100 tons before the multiplier, which keeps such a speed out.
        // The product is a 16-bit value of its own: it overflows above 32767
        // even where the suspension factor would bring the rating back.
        const int16_t product = zI16(int64_t{CruiseSpeed} * Tonnage);
        EngineRating = zI16(int64_t{product} - SuspensionFactor);
        CalcEngineTonnage();
    });
}

void Vehicle::CalcEngineTonnage() {
    zTrapVoid("Vehicle.CalcEngineTonnage", [&] {
        double w = IsLargeEngine(EngineType) && EngineRating >= 401 ? zLargeEngineWeight(EngineRating)
                                                                     : zBaseEngineWeight(EngineRating);
        // Whole tons, half to even: a base of 3 as Fusion is 4, of 5 is 8.
        const double tons = zEngineTonnageMultiply(w, EngineType);
        EngineTonnage = zRoundQuarter(tons);
        CalcSuperchargerTonnage();
    });
}

void Vehicle::CalcSuperchargerTonnage() {
    SuperchargerTonnage = IsYes(HasSupercharger) ? zRoundHalf(EngineTonnage / 10.0) : 0.0;
}

void Vehicle::CalcBaseCrew() {
    zTrapVoid("Vehicle.CalcBaseCrew", [&] {
        int16_t c;
        if (Tonnage < 16)
            c = 1;
        else if (Tonnage <= 30)
            c = 2;
        else
            c = zI16(zRoundUp(Tonnage / 15.0));
        // At level 3 the crew aboard is the user's, once a design has one.
        if (TechLevel < 3 || (TechLevel == 3 && BaseCrew < 1)) {
            BaseCrew = c;
            NumCrew = c;
            if (IsYes(wInteractive) && frm) frm->zShowCrew(BaseCrew);
        } else {
            BaseCrew = c;
        }
        CrewTonnage = zI16(int64_t{NumCrew} - BaseCrew) / 2.0;
    });
}

void Vehicle::SetCrew(int16_t wcCrew) {
    zTrapVoid("Vehicle.SetCrew", [&] {
        NumCrew = wcCrew;
        CrewTonnage = zI16(int64_t{NumCrew} - BaseCrew) / 2.0;
    });
}

void Vehicle::CalcMotiveEQTonnage() {
    AmphibTonnage = IsYes(HasAmphibEquip) ? SingleQuotient(Tonnage, 10.0f) : 0.0;
    if (IsYes(HasJumpJet)) {
        if (Tonnage < 60)
            JumpJetTonnage = NumJumpJets / 2.0;
        else if (Tonnage < 90)
            JumpJetTonnage = NumJumpJets;
        else
            JumpJetTonnage = NumJumpJets * 2.0;
    } else {
        NumJumpJets = 0;
        JumpJetTonnage = 0;
    }
}

void Vehicle::CalcBridgeLayerTonnage() {
    if (!IsYes(HasBridgeLayer)) {
        BridgeLayerTonnage = 0;
        return;
    }
    switch (BridgeLayerType) {
        case 0: BridgeLayerTonnage = 1; break;
        case 1: BridgeLayerTonnage = 2; break;
        case 2: BridgeLayerTonnage = 6; break;
        default: break;  // an unknown type keeps the last figure
    }
}

void Vehicle::CalcMASHTonnage() {
    if (!IsYes(HasMASHUnit)) {
        MASHTonnage = 0;
        return;
    }
    if (MASHTheatres < 1) MASHTheatres = 1;
    MASHTonnage = 3.5 + (MASHTheatres - 1);
}

void Vehicle::CalcTotalTonnage() {
    const double sum = ISTonnage + EngineTonnage + HeatSinkTonnage + ArmorTonnage + TurretTonnage +
                       SecTurretTonnage + SponsonTurretTonnage + ControlTonnage + PowerAmpTonnage + LiftEqTonnage +
                       WeaponTonnage + TCTonnage + SuperchargerTonnage + MastMountTonnage + CrewTonnage +
                       BridgeLayerTonnage + BulldozerTonnage + MinesweeperTonnage + MASHTonnage + AmphibTonnage +
                       DuneBuggyTonnage + SnowmobileTonnage + CoolantSystemTonnage + JumpJetTonnage +
                       MobileHQTonnage;
    TotalTonnage = zRoundQuarter(sum);
    // Overweight goes away from zero: -0.1 free is shown as -0.25.
    FreeTonnage = zRoundQuarter(Tonnage - TotalTonnage);
}

void Vehicle::zCalcHeatSinks() {
    // Only the plain I.C.E. pays for every sink; a Large I.C.E. gets the ten
    // free sinks of any other engine.
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

void Vehicle::zCalcPowerAmps() { PowerAmpTonnage = EngineType == kEngICE ? zRoundTenth(EnergyTonnage / 10.0) : 0.0; }

void Vehicle::zCalcTCTonnage() {
    if (!IsYes(HasTC)) {
        TCTonnage = 0;
        return;
    }
    double sum = 0;
    for (const VehicleItem& it : Items) {
        if (it.wStatus != kTrue) continue;
        const WeaponRec& w = zWeaponRow(it.wType);
        if (w.TCFlag == 1) sum += w.Tonnage;
    }
    TCTonnage = TechBase == kBaseInnerSphere ? zRoundUp(sum / 4.0) : zRoundUp(sum / 5.0);
}

void Vehicle::zCalcArmorPoints() {
    int16_t p = zCInt(ArmorTonnage * 16);
    if (ArmorType != kArmNormal) {
        switch (ArmorType) {
            case kArmFerroFibrous:
                p = zCInt(std::floor(p * (TechBase == kBaseInnerSphere ? 1.12 : 1.2) + 0.49));
                break;
            case kArmLightFerro: p = zCInt(std::floor(p * 1.06 + 0.49)); break;
            case kArmHeavyFerro: p = zCInt(std::floor(p * 1.24 + 0.49)); break;
            case kArmLaserReflective:
            case kArmReactive: break;
            default: p = 0; break;
        }
    }
    ArmorPoints = p;
    const int64_t sum = int64_t{FrontArmor} + LeftArmor + RightArmor + RearArmor + TurretArmor + SecTurretArmor +
                        FrontRightArmor + FrontLeftArmor + RearRightArmor + RearLeftArmor;
    ArmorAllocated = zI16(sum);
}

// ---------------------------------------------------------------------------
// Options

void Vehicle::SetSpecialEQ(int16_t wType, int16_t& wStatus) {
    zTrapVoid("Vehicle.SetSpecialEQ", [&] {
        if (wStatus == 1) wStatus = kTrue;
        const bool yes = IsYes(wStatus);
        switch (wType) {
            case 3:
                HasBridgeLayer = wStatus;
                CalcBridgeLayerTonnage();
                break;
            case 4:
                HasBulldozer = wStatus;
                BulldozerTonnage = yes ? 2 : 0;
                break;
            case 5:
                HasMinesweeper = wStatus;
                MinesweeperTonnage = yes ? 3 : 0;
                break;
            case 6:
                HasCoolantSystem = wStatus;
                CoolantSystemTonnage = yes ? 9 : 0;
                break;
            case 7:
                HasMASHUnit = wStatus;
                CalcMASHTonnage();
                break;
            case 8: HasMobileHQ = wStatus; break;
            case 9:
                HasAmphibEquip = wStatus;
                CalcMotiveEQTonnage();
                break;
            case 10: HasDuneBuggyEquip = wStatus; break;
            case 11: HasSnowmobileEquip = wStatus; break;
            case 12:
                HasJumpJet = wStatus;
                CalcMotiveEQTonnage();
                break;
            default: break;
        }
        CalcItemCount();
    });
}

void Vehicle::SetSupercharger(int16_t wStatus) {
    HasSupercharger = zBool(wStatus == 1);
    CalcSuperchargerTonnage();
}

void Vehicle::zClearLocation(int16_t wLoc) {
    for (VehicleItem& it : Items)
        if (it.wLoc == wLoc) it.wLoc = kLocUnallocated;
}

void Vehicle::SetMastMount(int16_t wStatus) {
    zTrapVoid("Vehicle.SetMastMount", [&] {
        const bool yes = wStatus == 1;
        HasMastMount = zBool(yes);
        MastMountTonnage = yes ? 0.5 : 0.0;
        // The mast takes location 5: whatever stood there must be placed again.
        zClearLocation(kLocSecondTurret);
        if (IsYes(wInteractive) && frm) frm->zUpdateWeapons();
    });
}

void Vehicle::zTurretChanged() {
    CalcWeaponTonnages();
    CalcTotalTonnage();
    if (IsYes(wInteractive) && frm) frm->zUpdateWeapons();
}

void Vehicle::SetTurret(int16_t wStatus) {
    zTrapVoid("Vehicle.SetTurret", [&] {
        HasTurret = zBool(wStatus != 0);
        zClearLocation(kLocTurret);
        zTurretChanged();
    });
}

void Vehicle::SetSecTurret(int16_t wStatus) {
    zTrapVoid("Vehicle.SetSecTurret", [&] {
        HasSecTurret = zBool(wStatus != 0);
        zClearLocation(kLocSecondTurret);
        zTurretChanged();
    });
}

void Vehicle::SetSponsonTurrets(int16_t wStatus) {
    zTrapVoid("Vehicle.SetSponsonTurrets", [&] {
        HasSponsonTurrets = zBool(wStatus != 0);
        zClearLocation(kLocLeftSponson);
        zClearLocation(kLocRightSponson);
        zTurretChanged();
    });
}

void Vehicle::SetBridgeType(int16_t wType) {
    BridgeLayerType = wType;
    CalcBridgeLayerTonnage();
}

void Vehicle::SetJumpJets(int16_t wNum) {
    NumJumpJets = wNum;
    CalcMotiveEQTonnage();
}

void Vehicle::SetMASHTheatres(int16_t wNum) {
    zTrapVoid("Vehicle.SetMASHTheatres", [&] {
        MASHTheatres = wNum;
        CalcMASHTonnage();
        CalcItemCount();
    });
}

void Vehicle::SetMobileHQ(double dTemp) { MobileHQTonnage = dTemp; }

void Vehicle::SetRotorType(int16_t wType) { RotorConfig = wType; }

void Vehicle::SetTargComp(int16_t wStatus) {
    zTrapVoid("Vehicle.SetTargComp", [&] {
        if (wStatus == 1) {
            HasTC = kTrue;
            zCalcTCTonnage();
        } else {
            HasTC = kFalse;
            TCTonnage = 0;
        }
    });
}

void Vehicle::SetTCLocation(int16_t wLoc) { TCLocation = wLoc; }

void Vehicle::SetArmorType(int16_t wType) {
    zTrapVoid("Vehicle.SetArmorType", [&] {
        ArmorType = wType;
        CalcItemCount();
        zCalcArmorPoints();
    });
}

void Vehicle::SetArmorTonnage(double dTemp) {
    zTrapVoid("Vehicle.SetArmorTonnage", [&] {
        ArmorTonnage = dTemp;
        zCalcArmorPoints();
    });
}

void Vehicle::SetArmorLoc(int16_t wLoc, int16_t wAmt) {
    zTrapVoid("Vehicle.SetArmorLoc", [&] {
        switch (wLoc) {
            case kLocFront: FrontArmor = wAmt; break;
            case kLocLeft: LeftArmor = wAmt; break;
            case kLocRight: RightArmor = wAmt; break;
            case kLocRear: RearArmor = wAmt; break;
            case kLocTurret: TurretArmor = wAmt; break;
            case kLocSecondTurret: SecTurretArmor = wAmt; break;
            case kLocFrontRight: FrontRightArmor = wAmt; break;
            case kLocFrontLeft: FrontLeftArmor = wAmt; break;
            case kLocRearRight: RearRightArmor = wAmt; break;
            case kLocRearLeft: RearLeftArmor = wAmt; break;
            default: break;  // sponsons and the body take no armor; the points are still recomputed
        }
        zCalcArmorPoints();
    });
}

// ---------------------------------------------------------------------------
// Items

int16_t Vehicle::AddWeapon(int16_t wType) {
    return zTrap<int16_t>("Vehicle.AddWeapon", kFalse, [&]() -> int16_t {
        const int16_t free = zI16(int64_t{MaxItems} - NumItems);
        const WeaponRec& w = zWeaponRow(wType);
        // Exactly zero: a design already over its slots may go on adding.
        if (free == 0) {
            bool joins = false;
            if (w.Type == kWpnAmmunition || SharesOneSlot(w)) {
                for (const VehicleItem& it : Items)
                    if (it.wStatus == kTrue && it.wType == wType) joins = true;
            }
            if (!joins) {
                zMsgBox("You don't enough free item slots to add this item.", MsgButtons::OK, MsgIcon::Information,
                        "Cannot add item");
                return kFalse;
            }
        }
        const int16_t loc = w.Type == kWpnAmmunition ? kLocBody : kLocUnallocated;
        if (Items.front().wStatus == kFalse) {
            Items.front() = VehicleItem{wType, 1, loc, kTrue};
        } else {
            // The smallest number that this row does not use. It is never above
            // the count of elements plus one, so one pass marks all candidates
            // (a list read from a file can hold tens of thousands of items).
            std::vector<bool> taken(Items.size() + 2, false);
            for (const VehicleItem& it : Items)
                if (it.wStatus == kTrue && it.wType == wType && it.wNum >= 1 &&
                    static_cast<size_t>(it.wNum) < taken.size())
                    taken[static_cast<size_t>(it.wNum)] = true;
            size_t num = 1;
            while (taken[num]) ++num;
            Items.push_back(VehicleItem{wType, zI16(static_cast<int64_t>(num)), loc, kTrue});
        }
        CalcWeaponTonnages();
        CalcItemCount();
        return kTrue;
    });
}

void Vehicle::RemoveWeapon(int16_t wType, int16_t wNum) {
    zTrapVoid("Vehicle.RemoveWeapon", [&] {
        for (VehicleItem& it : Items)
            if (it.wStatus == kTrue && it.wType == wType && it.wNum == wNum) it.wStatus = kFalse;
        zCompactItems();
        CalcWeaponTonnages();
        CalcItemCount();
    });
}

void Vehicle::zCompactItems() {
    std::vector<VehicleItem> used;
    for (const VehicleItem& it : Items)
        if (it.wStatus == kTrue) used.push_back(it);
    if (used.empty()) used.resize(1);
    Items = std::move(used);
}

void Vehicle::ClearWeapons() {
    zTrapVoid("Vehicle.ClearWeapons", [&] {
        Items.assign(1, VehicleItem{});
        CalcWeaponTonnages();
    });
}

void Vehicle::SetWeaponsArraySize(int16_t& wAmt) {
    zTrapVoid("Vehicle.SetWeaponsArraySize", [&] {
        if (wAmt == -1) wAmt = 0;
        if (wAmt < 0) zRaise(kErrSubscript);
        Items.assign(static_cast<size_t>(wAmt) + 1, VehicleItem{});
    });
}

// A list read from a file can hold 32768 used elements, one more than the
// count can say.
int16_t Vehicle::WeaponCount() const {
    return zTrap<int16_t>("Vehicle.WeaponCount", 0, [&] {
        return zI16(
            std::count_if(Items.begin(), Items.end(), [](const VehicleItem& it) { return it.wStatus == kTrue; }));
    });
}

int16_t Vehicle::WcUnallocatedWeapons() const {
    return zTrap<int16_t>("Vehicle.WcUnallocatedWeapons", 0, [&] {
        return zI16(std::count_if(Items.begin(), Items.end(), [](const VehicleItem& it) {
            return it.wStatus == kTrue && it.wLoc == kLocUnallocated;
        }));
    });
}

int16_t Vehicle::GetLocationCount() const {
    return zTrap<int16_t>("Vehicle.GetLocationCount", 0, [&]() -> int16_t {
        // Every element, used or not; an unallocated item is a fault of the
        // caller, who must allocate everything first.
        std::array<bool, 100> seen{};
        int16_t n = 0;
        for (const VehicleItem& it : Items) {
            if (it.wLoc < 0 || it.wLoc > 99) zRaise(kErrSubscript);
            if (!seen[static_cast<size_t>(it.wLoc)]) {
                seen[static_cast<size_t>(it.wLoc)] = true;
                ++n;
            }
        }
        return n;
    });
}

int16_t Vehicle::SetVehicleWeaponGlobal(int16_t wNum) const {
    return zTrap<int16_t>("Vehicle.SetVehicleWeaponGlobal", 0, [&]() -> int16_t {
        int32_t pos = 0;
        for (size_t i = 0; i < Items.size(); ++i) {
            if (Items[i].wStatus != kTrue) continue;
            if (pos == wNum) {
                gCurrentVehicleItem = Items[i];
                return zI16(static_cast<int64_t>(i));
            }
            ++pos;
        }
        return 0;
    });
}

void Vehicle::SetVehicleWeaponIdxGlobal(int16_t wRef) const {
    zTrapVoid("Vehicle.SetVehicleWeaponIdxGlobal", [&] { gCurrentVehicleItem = Element(Items, wRef); });
}

void Vehicle::UpdateWeapon(int16_t wRef) {
    zTrapVoid("Vehicle.UpdateWeapon", [&] { Element(Items, wRef) = gCurrentVehicleItem; });
}

void Vehicle::UpdateWeaponLocation(int16_t wRef, int16_t wLoc) {
    zTrapVoid("Vehicle.UpdateWeaponLocation", [&] { Element(Items, wRef).wLoc = wLoc; });
}

void Vehicle::CalcWeaponTonnages() {
    zTrapVoid("Vehicle.CalcWeaponTonnages", [&] {
        EnergyHeat = 0;
        EnergyTonnage = 0;
        TurretWeaponTonnage = 0;
        WeaponTonnage = 0;
        SecTurretTonnage = 0;
        SponsonTurretTonnage = 0;
        for (const VehicleItem& it : Items) {
            if (it.wStatus != kTrue) continue;
            const WeaponRec& w = zWeaponRow(it.wType);
            const double t = w.Tonnage;
            WeaponTonnage += t;
            if (it.wLoc == kLocTurret && w.Type != kWpnEquipment) TurretWeaponTonnage += t;
            if (it.wLoc == kLocSecondTurret && w.Type != kWpnEquipment) SecTurretTonnage += t;
            if (it.wLoc == kLocLeftSponson || it.wLoc == kLocRightSponson) SponsonTurretTonnage += t;
            if (w.Type == kWpnEnergy) {
                if (w.Heat > 0) EnergyHeat = zI16(int64_t{EnergyHeat} + w.Heat);
                EnergyTonnage += t;
            }
        }
        // A turret weighs what its weapons say, mounted or not.
        TurretTonnage = zRoundHalf(TurretWeaponTonnage / 10.0);
        SecTurretTonnage = zRoundHalf(SecTurretTonnage / 10.0);
        SponsonTurretTonnage = zRoundHalf(SponsonTurretTonnage / 10.0);
        zCalcHeatSinks();
        zCalcPowerAmps();
        zCalcTCTonnage();
    });
}

void Vehicle::CalcItemCount() {
    zTrapVoid("Vehicle.CalcItemCount", [&] {
        int64_t n = zEngineItemSlots(EngineType, TechBase);
        n += zArmorItemSlots(ArmorType);
        // Options as the run-time reads a flag: any non-zero value is set.
        if (HasSupercharger) ++n;
        const int16_t extraCrew = zI16(int64_t{NumCrew} - BaseCrew);
        if (extraCrew > 0) n += extraCrew;
        if (HasBridgeLayer) ++n;
        if (HasBulldozer) ++n;
        if (HasMinesweeper) ++n;
        if (HasMobileHQ) ++n;
        if (HasCoolantSystem) n += 2;
        if (HasMASHUnit) n += MASHTheatres;
        if (HasJumpJet) ++n;
        n = zI16(n);
        const ItemSlots s = CountItemSlots(Items);
        n += s.items;
        n += s.ammoTypes;
        NumItems = zI16(n);
    });
}

void Vehicle::CalcIndividualItems() {
    zTrapVoid("Vehicle.CalcIndividualItems", [&] {
        const ItemSlots s = CountItemSlots(Items);
        const int16_t total = zI16(int64_t{s.items} + s.ammoTypes);
        // With no ammunition the old figure stands.
        if (s.ammoTypes > 0) AmmoItems = s.ammoTypes;
        WeaponItems = zI16(int64_t{total} - AmmoItems);
        NumItems = total;
    });
}

void Vehicle::UpdateSelectedWeapons(TreeView& tv) const {
    zTrapVoid("Vehicle.UpdateSelectedWeapons", [&] {
        BatchUpdate batch(tv);
        tv.Clear();
        auto groupKey = [](int16_t loc) { return "loc" + std::to_string(loc); };
        const int16_t groups[] = {kLocUnallocated, kLocFront,        kLocLeft,        kLocRight,       kLocRear,
                                  kLocBody,        kLocTurret,       kLocSecondTurret, kLocLeftSponson, kLocRightSponson};
        for (int16_t loc : groups) {
            std::string text;
            if (loc == kLocUnallocated)
                text = "Not Allocated";
            else if (loc == kLocBody)
                text = "Body";
            else
                text = zItemLocationName(loc, VhlType);
            tv.Add({}, groupKey(loc), text);
        }
        // Children per group, sorted by text before they go in.
        std::vector<std::vector<std::pair<std::string, std::string>>> children(std::size(groups));
        size_t current = 0;  // the group of the item before
        for (const VehicleItem& it : Items) {
            if (it.wStatus != kTrue) continue;
            const auto found = std::find(std::begin(groups), std::end(groups), it.wLoc);
            if (found != std::end(groups)) current = static_cast<size_t>(found - std::begin(groups));
            const std::string key = zItemKey(it.wType, it.wNum);
            const std::string text = zWeaponRow(it.wType).Name + " (#" + std::to_string(it.wNum) + ")";
            children[current].emplace_back(key, text);
        }
        for (size_t g = 0; g < std::size(groups); ++g) {
            auto& list = children[g];
            if (list.empty()) {
                tv.Remove(groupKey(groups[g]));
                continue;
            }
            std::stable_sort(list.begin(), list.end(),
                             [](const auto& a, const auto& b) { return zLower(a.second) < zLower(b.second); });
            for (const auto& [key, text] : list) tv.Add(groupKey(groups[g]), key, text);
        }
    });
}

}  // namespace bw
