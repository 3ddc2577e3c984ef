// The weapon table: every weapon, item and ammunition a design can mount.
// Designs store row indices, so the row order of "weapons.bin" is part of
// every database.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bw {

struct WeaponRec {
    std::string Name;
    int16_t Type = 0;
    int16_t Level = 0;
    int16_t Base = 0;
    double Tonnage = 0;
    int16_t Heat = 0;
    int16_t Damage = 0;
    int16_t MinRange = 0;
    int16_t ShortRange = 0;
    int16_t MedRange = 0;
    int16_t LongRange = 0;
    std::string RangeUnit;
    int16_t Reserved15 = 0;
    int32_t Cost = 0;
    int16_t CombatValue = 0;
    int16_t Shots = 0;
    std::string DamageUnit;
    int16_t HasDamageUnit = 0;
    int16_t UseClass = 0;
    int16_t TCFlag = 0;

    bool operator==(const WeaponRec&) const = default;
};

extern std::vector<WeaponRec> gWeapons;

constexpr const char* kWeaponsFile = "weapons.bin";
constexpr const char* kWeaponsCert = "Brasswick Works 3 Weapon Database";
constexpr int16_t kWeaponsVersion = 2;
// Certification string, version and highest index.
constexpr int kRefHeaderBytes = 45 + 2 + 2;

// Row wType of the table; a number outside it raises the subscript error.
const WeaponRec& zWeaponRow(int32_t wType);

// Loads "weapons.bin" from the program's folder into gWeapons, reporting
// progress on the splash bar. False after telling the user.
bool zLoadWeapons();

// The complete file for a table (header and rows).
std::string zWeaponsFileBytes(const std::vector<WeaponRec>& rows);

// Parses the tab-separated source of the table: one row per line, "#" lines
// and blank lines are comments, 20 fields in the order Base, Level, Type,
// Name, Heat, Damage, HasDamageUnit, DamageUnit, MinRange, ShortRange,
// MedRange, LongRange, Tonnage, RangeUnit, Reserved15, Shots, CombatValue,
// Cost, UseClass, TCFlag. The text is UTF-8 (plain ASCII included) and is
// stored as Windows-1252. On a bad line returns false with error
// "FILE:LINE: what is wrong".
bool zParseWeaponsText(const std::string& text, const std::string& fileName, std::vector<WeaponRec>& rows,
                       std::string& error);

}  // namespace bw
