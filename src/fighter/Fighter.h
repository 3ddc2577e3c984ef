// The fighter design: every field in its declared order, the live weapon
// list, the six OmniFighter configurations, and the construction rules that
// compute the figures. The database owns the file record; loading bypasses
// the rules, so stored figures come back as saved.
//
// Each operation recomputes what it names and no more: the editor calls the
// rest, and some figures stay stale on purpose until it does.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "fighter/FighterWindow.h"

namespace bw {


// One selected weapon or piece of equipment: six 16-bit fields, 12 bytes in
// memory and in a file.
struct FighterWeapon {
    int16_t wIdx = 0;     // row of the weapon table
    int16_t wNum = 0;     // instance number among entries of the same row, from 1
    int16_t wBase = 0;    // -1 when added to the base configuration of an Omni-Fighter
    int16_t wActive = 0;  // -1 in use, 0 a free place in the list
    int16_t wSlot = 0;    // slot within the location, -1 unallocated
    int16_t wLoc = 0;     // 0 Nose, 1 Left Wing, 2 Right Wing, 3 Rear, 6 Internal, -1 unallocated

    bool operator==(const FighterWeapon&) const = default;
};

// Configurations of an Omni-Fighter: "Base", "Primary", "Alpha", "Beta",
// "Charlie", "Delta".
constexpr int kOmniConfigs = 6;

// Fighter locations of the weapon list. Nose to Rear take slots; Internal
// takes none.
enum : int16_t {
    kFtrLocUnallocated = -1,
    kFtrLocNose = 0,
    kFtrLocLeftWing = 1,
    kFtrLocRightWing = 2,
    kFtrLocRear = 3,
    kFtrLocInternal = 6,
};

// Fighter armor types.
enum : int16_t { kFtrArmNormal = 0, kFtrArmFerroAluminum = 1 };

// Data indices of GetOmniData (0 to 6) and GetOmniData2 (7 to 10).
enum : int16_t {
    kOmniHasTC = 0,
    kOmniTCLocation = 1,
    kOmniWeaponHeat = 2,
    kOmniConfigUsed = 3,
    kOmniFuelTonnage = 4,
    kOmniHeatSinks = 5,
    kOmniHeatSinkTonnage = 6,
    kOmniWeaponTonnage = 7,
    kOmniTCTonnage = 8,
    kOmniTotalTonnage = 9,
    kOmniFreeTonnage = 10,
};

// The current entry: the hand-over place between a design's weapon list and
// its callers, filled by the SetFighter*Global operations and written back
// by UpdateWeapon.
extern FighterWeapon gCurrentFighterWeapon;

class Fighter {
public:
    // Every list starts as its single empty entry; every number 0.
    Fighter() : Weapons(1) {
        for (auto& list : OmniWeapons) list.resize(1);
    }

    std::string Name;  // Windows-1252 bytes; at most 50 characters in a file
    int16_t FighterType = 0;
    int16_t Tonnage = 0;
    int16_t SIRating = 0;
    double CockpitTonnage = 0;
    double TotalTonnage = 0;
    double FreeTonnage = 0;
    int16_t TechBase = 0;
    int16_t TechLevel = 0;
    FighterWindow* frm = nullptr;  // the editor of this design, if any; never stored
    int16_t CruiseSpeed = 0;
    int16_t FlankSpeed = 0;
    int16_t EngineType = 0;
    int16_t EngineRating = 0;
    double EngineTonnage = 0;
    int16_t FuelTonnage = 0;
    int16_t HeatSinks = 0;
    int16_t HeatSinkTonnage = 0;
    int16_t HeatSinkType = 0;
    int16_t ArmorType = 0;
    double ArmorTonnage = 0;
    int16_t ArmorPoints = 0;
    int16_t ArmorAllocated = 0;
    int16_t FrontArmor = 0;
    int16_t LeftArmor = 0;
    int16_t RightArmor = 0;
    int16_t FuselageArmor = 0;
    int16_t CPArmor = 0;
    int16_t EngineArmor = 0;
    double PowerAmpTonnage = 0;
    int16_t HasVTOLJets = 0;
    double VTOLJetTonnage = 0;
    int16_t HasTC = 0;
    double TCTonnage = 0;
    int16_t TCLocation = 0;
    int16_t EnergyHeat = 0;
    double EnergyTonnage = 0;
    int16_t WeaponHeat = 0;
    double WeaponTonnage = 0;
    int16_t OmniCurrentConfig = 0;
    int16_t OmniBaseLocked = 0;

    // The live weapon list and the per-configuration data. Index 0 of every
    // list is always present; an empty list is one all-zero entry.
    std::vector<FighterWeapon> Weapons;
    std::array<std::vector<FighterWeapon>, kOmniConfigs> OmniWeapons;
    std::array<int16_t, kOmniConfigs> OmniHasTC{};
    std::array<int16_t, kOmniConfigs> OmniTCLocation{};
    std::array<int16_t, kOmniConfigs> OmniWeaponHeat{};
    std::array<int16_t, kOmniConfigs> OmniConfigUsed{};
    std::array<int16_t, kOmniConfigs> OmniFuelTonnage{};
    std::array<int16_t, kOmniConfigs> OmniHeatSinks{};
    std::array<int16_t, kOmniConfigs> OmniHeatSinkTonnage{};
    std::array<double, kOmniConfigs> OmniWeaponTonnage{};
    std::array<double, kOmniConfigs> OmniTCTonnage{};
    std::array<double, kOmniConfigs> OmniTotalTonnage{};
    std::array<double, kOmniConfigs> OmniFreeTonnage{};

    // --- Construction figures --------------------------------------------
    void SetName(const std::string& strName);
    void SetType(int16_t wType);
    void SetTechBase(int16_t wBase);
    void SetTechLevel(int16_t wLevel);
    void SetTonnage(int16_t wTons);
    void SetCruiseSpeed(int16_t wSpeed);
    void SetEngineType(int16_t wType);
    void CalcEngineRating();
    void CalcEngineTonnage();
    void CalcSIRating();
    // A v of 1 turns the jets on; anything else off.
    void SetVTOLJets(int16_t v);
    void CalcVTOLTonnage();
    void SetFuelTonnage(int16_t wTons);
    void SetHeatSinks(int16_t wSinks);
    void SetHeatSinkType(int16_t v);
    void SetArmorTonnage(double dTons);
    void SetArmorType(int16_t wType);
    void SetArmorLoc(int16_t wLocIdx, int16_t wPoints);
    void CalcTotalTonnage();
    void CalcWeaponTonnages();

    // --- The weapon list ---------------------------------------------------
    // A wConfig names an Omni configuration 0 to 5; the forms without one
    // mean the live list or the configuration on show. A wConfig outside 0
    // to 5 matches nothing: those forms do nothing and counts give 0.

    // Always -1 (0 only after a reported error).
    int16_t AddWeapon(int16_t wIdx);
    void RemoveWeapon(int16_t wIdx, int16_t wNum);
    void ClearWeapons();
    // -1 when the entry may go: only an entry of the base configuration
    // may not.
    int16_t CheckValidRemove(int16_t wIdx, int16_t wNum) const;
    int16_t WeaponCount() const;
    int16_t WeaponCount(int16_t wConfig) const;
    int16_t WcUnallocatedWeapons() const;
    // Upper bound n (-1 counts as 0); the contents are discarded.
    void SetWeaponsArraySize(int16_t n);
    void SetWeaponsArraySize(int16_t n, int16_t wConfig);
    void UpdateWeapon(int16_t i);
    void UpdateWeapon(int16_t i, int16_t wConfig);
    void UpdateWeaponLocation(int16_t i, int16_t wLoc, int16_t wSlot);
    // The list index of the active entry number n (from 0) now current;
    // past the end 0, with the current entry left as it was.
    int16_t SetFighterWeaponGlobal(int16_t n) const;
    int16_t SetFighterWeaponGlobal(int16_t n, int16_t wConfig) const;
    void SetFighterWeaponIdxGlobal(int16_t i) const;
    // The list index of the active entry of that row and number, or -1.
    int16_t SetFighterWeaponRefGlobal(int16_t wIdx, int16_t wNum) const;
    // The n-th (from 1) active entry of row wIdx becomes current.
    void SetFighterAmmoGlobal(int16_t n, int16_t wIdx) const;
    int16_t GetTCStatus() const;
    int16_t GetTCStatus(int16_t wConfig) const;
    void SetTCStatus(int16_t v);
    void SetTCStatus(int16_t v, int16_t wConfig);
    void SetTCLocation(int16_t wLoc, int16_t wConfig);
    // Refills the editor's selected-equipment tree; nothing without one.
    void UpdateSelectedWeapons();

    // --- Omni-Fighter configurations -------------------------------------
    int16_t GetOmniData(int16_t wData, int16_t wConfig) const;
    void SetOmniData(int16_t wData, int16_t wConfig, int16_t value);
    double GetOmniData2(int16_t wData, int16_t wConfig) const;
    void SetOmniData2(int16_t wData, int16_t wConfig, double dData);
    void ChangeOmniConfig(int16_t wConfig);
    void UpdateCurrentConfigData();
    // 0 when a configuration that was entered is overweight.
    int16_t OmniCheckTonnages() const;
    // 0 when any entry of the six lists, active or not, is unallocated.
    int16_t OmniCheckAllocatedWeapons() const;
    void DisableOmniControls();

private:
    void CalcArmorPoints();
    void CalcHeatSinks();
    void CalcPowerAmpTonnage();
    void CalcTCTonnage();
    void CompactWeapons();
    void zSetTCStatus(int16_t v, const int16_t* wConfig);
};

}  // namespace bw
