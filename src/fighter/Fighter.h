// The fighter design as plain data: every field in its declared order, the
// live weapon list and the six OmniFighter configurations. The construction
// rules that fill these fields live with the fighter editor; the database
// owns the file record (database/DatabaseFile.cpp).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace bw {

class frmFtr;

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
    frmFtr* frm = nullptr;  // the editor of this design; never stored
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
};

}  // namespace bw
