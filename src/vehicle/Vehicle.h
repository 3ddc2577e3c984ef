// The combat vehicle design: every figure of one vehicle, the construction
// rules that compute them, and the list of mounted items.
//
// Fields are public and are read directly by the database, the reports, the
// sheets and the search. Loading writes them directly and bypasses the
// recomputation that the Set* and Calc* operations do.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace bw {

class TreeView;

// One mounted item, eight bytes in a file: four 16-bit fields.
struct VehicleItem {
    int16_t wType = 0;    // row of the weapon table
    int16_t wNum = 0;     // instance number among items of the same row, from 1
    int16_t wLoc = 0;     // location; 99 body (ammunition), -1 not allocated
    int16_t wStatus = 0;  // -1 in use, 0 a free element

    bool operator==(const VehicleItem&) const = default;
};

// The current item record: one copy of an item for the allocation window,
// filled by SetVehicleWeaponGlobal/SetVehicleWeaponIdxGlobal and written
// back by UpdateWeapon.
extern VehicleItem gCurrentVehicleItem;

// What a design needs from its editor window, and no more. The editor
// implements it; a design without a window never calls it.
class VehicleWindow {
public:
    virtual ~VehicleWindow() = default;
    // Rebuilds the selected-items tree and the tonnage figures.
    virtual void zUpdateWeapons() = 0;
    // Shows the crew figure in the additional-crew text box.
    virtual void zShowCrew(int16_t wCrew) = 0;
};

class Vehicle {
public:
    Vehicle();

    // --- The record, in its declared order -------------------------------
    std::string Name;
    int16_t VhlType = 0;
    int16_t Tonnage = 0;
    double ISTonnage = 0;
    double TotalTonnage = 0;
    double FreeTonnage = 0;
    int16_t TechBase = 0;
    int16_t TechLevel = 0;
    int16_t MovementType = 0;  // kept in the file; no rule sets it
    int16_t CruiseSpeed = 0;
    int16_t FlankSpeed = 0;
    int16_t EngineType = 0;
    int16_t EngineRating = 0;
    double EngineTonnage = 0;
    int16_t SuspensionFactor = 0;
    int16_t RotorConfig = 0;
    int16_t HeatSinks = 0;
    int16_t HeatSinkTonnage = 0;
    int16_t ArmorType = 0;
    double ArmorTonnage = 0;
    int16_t ArmorPoints = 0;
    int16_t ArmorAllocated = 0;
    int16_t FrontArmor = 0;       // location 0
    int16_t LeftArmor = 0;        // 1
    int16_t RightArmor = 0;       // 2
    int16_t RearArmor = 0;        // 3
    int16_t TurretArmor = 0;      // 4
    int16_t SecTurretArmor = 0;   // 5
    int16_t FrontRightArmor = 0;  // 8
    int16_t FrontLeftArmor = 0;   // 9
    int16_t RearRightArmor = 0;   // 10
    int16_t RearLeftArmor = 0;    // 11
    double ControlTonnage = 0;
    double PowerAmpTonnage = 0;
    double LiftEqTonnage = 0;  // lift equipment, rotor, hydrofoil or dive equipment
    int16_t MaxItems = 0;
    int16_t NumItems = 0;
    int16_t WeaponItems = 0;
    int16_t AmmoItems = 0;
    int16_t HasSupercharger = 0;
    double SuperchargerTonnage = 0;
    int16_t HasMastMount = 0;
    double MastMountTonnage = 0;
    int16_t BaseCrew = 0;
    int16_t NumCrew = 0;
    double CrewTonnage = 0;
    int16_t HasBridgeLayer = 0;
    int16_t BridgeLayerType = 0;
    double BridgeLayerTonnage = 0;
    int16_t HasBulldozer = 0;
    double BulldozerTonnage = 0;
    int16_t HasMinesweeper = 0;
    double MinesweeperTonnage = 0;
    int16_t HasMASHUnit = 0;
    int16_t MASHTheatres = 0;
    double MASHTonnage = 0;
    int16_t HasAmphibEquip = 0;
    double AmphibTonnage = 0;
    int16_t HasDuneBuggyEquip = 0;
    double DuneBuggyTonnage = 0;
    int16_t HasSnowmobileEquip = 0;
    double SnowmobileTonnage = 0;
    int16_t HasCoolantSystem = 0;
    double CoolantSystemTonnage = 0;
    int16_t HasJumpJet = 0;
    int16_t NumJumpJets = 0;
    double JumpJetTonnage = 0;
    int16_t HasMobileHQ = 0;
    double MobileHQTonnage = 0;
    int16_t HasTC = 0;
    double TCTonnage = 0;
    int16_t TCLocation = 0;  // not in the file: 0 after loading
    int16_t EnergyHeat = 0;
    double EnergyTonnage = 0;
    double TurretWeaponTonnage = 0;
    double WeaponTonnage = 0;
    int16_t HasTurret = 0;
    double TurretTonnage = 0;
    int16_t HasSecTurret = 0;
    double SecTurretTonnage = 0;
    int16_t HasSponsonTurrets = 0;
    double SponsonTurretTonnage = 0;

    VehicleWindow* frm = nullptr;  // the editor of this design, if any; never stored
    std::vector<VehicleItem> Items;  // never empty: element 0 always exists

    // --- Construction figures --------------------------------------------
    void SetName(const std::string& strName);
    void SetType(int16_t wType);
    void SetTechBase(int16_t wType);
    void SetTechLevel(int16_t wType);
    void SetTonnage(int16_t wAmt);
    void SetCruiseSpeed(int16_t wCruise);
    void SetEngineType(int16_t wType);
    void CalcEngineRating();
    void CalcEngineTonnage();
    void CalcBaseCrew();
    void CalcTotalTonnage();
    void CalcMotiveEQTonnage();
    void CalcSuperchargerTonnage();
    void CalcBridgeLayerTonnage();
    void CalcMASHTonnage();

    // --- Options ---------------------------------------------------------
    // A wStatus of 1 is turned into -1 in the caller's variable.
    void SetSpecialEQ(int16_t wType, int16_t& wStatus);
    void SetSupercharger(int16_t wStatus);
    void SetMastMount(int16_t wStatus);
    void SetTurret(int16_t wStatus);
    void SetSecTurret(int16_t wStatus);
    void SetSponsonTurrets(int16_t wStatus);
    void SetBridgeType(int16_t wType);
    void SetCrew(int16_t wcCrew);
    void SetJumpJets(int16_t wNum);
    void SetMASHTheatres(int16_t wNum);
    void SetMobileHQ(double dTemp);
    void SetRotorType(int16_t wType);
    void SetTargComp(int16_t wStatus);
    void SetTCLocation(int16_t wLoc);
    void SetArmorType(int16_t wType);
    void SetArmorTonnage(double dTemp);
    void SetArmorLoc(int16_t wLoc, int16_t wAmt);

    // --- Items -----------------------------------------------------------
    // -1 when the item came in, 0 when refused (after telling the user) or
    // on an error.
    int16_t AddWeapon(int16_t wType);
    void RemoveWeapon(int16_t wType, int16_t wNum);
    void UpdateWeapon(int16_t wRef);
    void UpdateWeaponLocation(int16_t wRef, int16_t wLoc);
    void ClearWeapons();
    // A wAmt of -1 becomes 0, in the caller's variable as well.
    void SetWeaponsArraySize(int16_t& wAmt);
    int16_t WeaponCount() const;
    int16_t WcUnallocatedWeapons() const;
    int16_t GetLocationCount() const;
    int16_t SetVehicleWeaponGlobal(int16_t wNum) const;
    void SetVehicleWeaponIdxGlobal(int16_t wRef) const;
    void CalcWeaponTonnages();
    void CalcIndividualItems();
    void CalcItemCount();
    // Rebuilds the editor's tree of mounted items, grouped by location.
    void UpdateSelectedWeapons(TreeView& tvSelected) const;
    // Keeps the used elements in their order; none used leaves one free
    // element.
    void zCompactItems();

    // --- Mode ------------------------------------------------------------
    // For good: the design no longer writes to a window.
    void OverrideInteractiveMode();
    int16_t Interactive() const { return wInteractive; }

private:
    void zCalcArmorPoints();
    void zCalcHeatSinks();
    void zCalcPowerAmps();
    void zCalcTCTonnage();
    void zClearLocation(int16_t wLoc);
    void zTurretChanged();

    int16_t wInteractive = -1;
};

// --- Construction tables ---------------------------------------------------

// Suspension factor by vehicle type and tonnage; 0 where no row applies.
int16_t zSuspensionFactor(int16_t vhlType, int16_t tonnage);
// Base weight of a large engine above 400; 0 for a rating not in the table.
double zLargeEngineWeight(int16_t rating);
// Item slots that an armor type takes in the slot count (not the figure the
// editor asks for before allowing the armor).
int16_t zArmorItemSlots(int16_t armorType);

// --- Weapons a design may mount --------------------------------------------

// Rows of the weapon table valid for a design: same base, level not above
// the design's, and rows for naval and super heavy designs only
// (UseClass 2) kept off the four small types.
bool zVehicleMayMount(int32_t row, int16_t techBase, int16_t techLevel, int16_t vhlType);
// The valid rows, one list per class 0 to 5 (energy, ballistic, missile,
// equipment, ammunition, artillery), in table order; an empty list means
// the class has no valid row.
std::array<std::vector<int16_t>, 6> zValidVehicleWeapons(int16_t techBase, int16_t techLevel, int16_t vhlType);

}  // namespace bw
