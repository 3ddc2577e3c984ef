// One search criterion, the vocabulary of the extra items, the tests a
// vehicle must pass, and the criteria file that keeps a list of criteria.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace bw {

class Vehicle;
class Fighter;

struct SearchCriterion {
    int16_t UnitClass = 0;      // 0 vehicle, 1 fighter, -1 a removed entry
    int16_t MovementType = -1;  // -1 all; else a vehicle or fighter type
    std::array<bool, 2> TechBase{};   // Inner Sphere, Clan
    std::array<bool, 3> TechLevel{};  // levels 1, 2, 3
    int16_t Tonnage = 0;              // 0 any
    int16_t TonnageCompare = 0;       // 0 less than, 1 equal to, 2 greater than
    int16_t Speed = 0;                // cruise speed; 0 any
    int16_t SpeedCompare = 0;
    // Names of the extra items vocabulary; one empty entry means none.
    std::vector<std::string> ExtraItems{std::string()};

    bool operator==(const SearchCriterion&) const = default;
};

// The whole extra items vocabulary, in its display order.
const std::vector<std::string>& zExtraItemsVocabulary();
// The items offered for a class (0 vehicle, 1 fighter) and a type (-1 all).
std::vector<std::string> zExtraItemsFor(int16_t unitClass, int16_t movementType);

// Whether one extra item holds for the vehicle; an unknown name never does.
bool zExtraItemHolds(const std::string& item, const Vehicle& v);
// The same by the item's place in the vocabulary (-1 for an unknown name),
// so that a run over many designs looks each name up once.
int16_t zExtraItemCode(const std::string& item);
bool zExtraItemCodeHolds(int16_t code, const Vehicle& v);
// The extras section: passes as soon as one listed item holds.
void ProcessExtras(const std::vector<std::string>& extraItems, const Vehicle& v, bool& matched);
// Tests one vehicle against the criteria, joined by or: the scan stops at the
// first criterion that passes. Reported under "ProcessVehicle" on failure
// (a design whose base or level lies outside the flags), matched stays no.
void ProcessVehicle(const std::vector<SearchCriterion>& criteria, const Vehicle& v, bool& matched);
// A criteria list ready for many designs: each criterion's extra items as
// codes, none when its first item is empty.
struct PreparedCriteria {
    std::vector<SearchCriterion> list;
    std::vector<std::vector<int16_t>> extras;
};
PreparedCriteria zPrepareCriteria(const std::vector<SearchCriterion>& criteria);
void ProcessVehicle(const PreparedCriteria& criteria, const Vehicle& v, bool& matched);
// Fighters are loaded and counted but the search never lists one.
void ProcessFighter(const Fighter& f);

// The texts of a criterion's row in the criteria list: movement type, tech
// base, tech level, tonnage, speed, other.
std::array<std::string, 6> zCriterionTexts(const SearchCriterion& c);

// The criteria file: a JSON list of objects with the record's fields
// (TechBase and TechLevel as lists of booleans, or of the program's -1 and
// 0; ExtraItems as a list of texts, empty for none). Reading raises nothing:
// ok is false and error says what is wrong in one line. A field left out takes the value that lets
// everything through (all types, both bases, all levels, any tonnage and
// speed, no extras).
struct CriteriaFileResult {
    bool ok = false;
    std::string error;
    std::vector<SearchCriterion> criteria;
};
CriteriaFileResult zParseCriteria(const std::string& text);
CriteriaFileResult zReadCriteriaFile(const std::string& path);
std::string zCriteriaToJson(const std::vector<SearchCriterion>& criteria);
// Writes atomically; raises 75 when the file cannot be written.
void zWriteCriteriaFile(const std::string& path, const std::vector<SearchCriterion>& criteria);

}  // namespace bw
