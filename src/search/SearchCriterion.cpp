#include "search/SearchCriterion.h"

#include <nlohmann/json.hpp>

#include "core/BinaryIO.h"
#include "core/Codepage.h"
#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace bw {

namespace {

// The extra items, by group, in display order.
const char* const kTurrets[] = {"No Turret", "Main Turret", "Secondary Turret", "Sponson Turrets", "Chin Turret",
                                "Turret"};
const char* const kBridges[] = {"Bridgelayer (light)", "Bridgelayer (medium)", "Bridgelayer (heavy)"};
const char* const kEquipment[] = {"Bulldozer Blade",      "Minesweeper",          "Coolant System",
                                  "M*A*S*H* Unit",        "Mobile HQ",            "Amphibious Equipment",
                                  "Snowmobile Equipment", "Dune Buggy Gear",      "Jump Jets",
                                  "Supercharger",         "Jet Boosters"};
const char* const kRotors[] = {"Standard Rotor Config", "Dual Rotor Config", "Coaxial Rotor Config"};
const char* const kArmors[] = {"Standard Armor",           "Ferro Fiberous Armor",       "Light Ferro Fiberous Armor",
                               "Heavy Ferro Fiberous Armor", "Laser Reflective Armor", "Reactive Armor"};
const char* const kFighterOnly[] = {"V.T.O.L. Jets", "Ferro-Aluminum Armor"};
// Engine codes in the order the editor lists them at level 3.
constexpr int16_t kEngineOrder[] = {kEngICE,        kEngFusion,      kEngFusionXL,       kEngFusionXXL,
                                    kEngLargeICE,   kEngLargeFusion, kEngLargeFusionXL, kEngLargeFusionXXL};
const std::string kEnginePrefix = "Engine - ";

std::vector<std::string> EngineItems() {
    std::vector<std::string> out;
    for (int16_t e : kEngineOrder) out.push_back(kEnginePrefix + zEngineName(e));
    return out;
}

// What each vehicle type can carry, following what the editor offers it:
// a turret word, the special equipment tab (bridge layers, coolant system,
// MASH unit, mobile HQ) on all but the V.T.O.L., and the motive equipment
// of its type.
std::vector<std::string> VehicleItems(int16_t type) {
    std::vector<std::string> wanted;
    const bool naval = type == kVhlHydrofoil || type == kVhlNaval || type == kVhlSubmarine;
    auto add = [&](std::initializer_list<const char*> names) {
        for (const char* n : names) wanted.emplace_back(n);
    };
    if (type == kVhlVTOL) {
        add({"No Turret", "Chin Turret", "Sponson Turrets"});
    } else {
        add({"No Turret", naval ? "Turret" : "Main Turret", "Secondary Turret"});
        if (type == kVhlTracked || type == kVhlWheeled || type == kVhlSuperHeavy) add({"Sponson Turrets"});
        add({"Bridgelayer (light)", "Bridgelayer (medium)", "Bridgelayer (heavy)", "Coolant System", "M*A*S*H* Unit",
             "Mobile HQ"});
    }
    if (type == kVhlTracked || type == kVhlWheeled)
        add({"Bulldozer Blade", "Minesweeper", "Amphibious Equipment", "Snowmobile Equipment"});
    if (type == kVhlWheeled) add({"Dune Buggy Gear"});
    if (type == kVhlTracked || type == kVhlWheeled || type == kVhlHover) add({"Jump Jets"});
    if (type == kVhlTracked || type == kVhlWheeled || type == kVhlHover || type == kVhlSuperHeavy)
        add({"Supercharger"});
    if (type == kVhlHover || type == kVhlVTOL) add({"Jet Boosters"});
    if (type == kVhlVTOL) add({"Standard Rotor Config", "Dual Rotor Config", "Coaxial Rotor Config"});
    // Kept in the vocabulary's order, whatever order they were wanted in.
    std::vector<std::string> out;
    for (const auto& item : zExtraItemsVocabulary())
        for (const auto& w : wanted)
            if (item == w) out.push_back(item);
    return out;
}

bool Flag(int16_t v) { return v != 0; }

// The comparison of one section; 0 asks for nothing.
bool Compare(int16_t wanted, int16_t how, int16_t actual) {
    if (wanted == 0) return true;
    switch (how) {
        case 0: return actual < wanted;
        case 1: return actual == wanted;
        case 2: return actual > wanted;
        default: return false;
    }
}

}  // namespace

const std::vector<std::string>& zExtraItemsVocabulary() {
    static const std::vector<std::string> all = [] {
        std::vector<std::string> v;
        for (const char* n : kTurrets) v.emplace_back(n);
        for (const char* n : kBridges) v.emplace_back(n);
        for (const char* n : kEquipment) v.emplace_back(n);
        for (const char* n : kRotors) v.emplace_back(n);
        for (const auto& e : EngineItems()) v.push_back(e);
        for (const char* n : kArmors) v.emplace_back(n);
        for (const char* n : kFighterOnly) v.emplace_back(n);
        return v;
    }();
    return all;
}

std::vector<std::string> zExtraItemsFor(int16_t unitClass, int16_t movementType) {
    std::vector<std::string> out;
    if (unitClass == 1) {
        for (const auto& e : EngineItems()) out.push_back(e);
        out.emplace_back("Standard Armor");
        out.emplace_back("Ferro-Aluminum Armor");
        if (movementType == -1 || movementType == kFtrConventional) out.emplace_back("V.T.O.L. Jets");
        return out;
    }
    if (movementType < 0) {
        // All vehicles: whatever any type is offered.
        for (const auto& item : zExtraItemsVocabulary()) {
            bool any = false;
            for (int16_t t = kVhlTracked; t <= kVhlSuperHeavy && !any; ++t)
                for (const auto& w : VehicleItems(t)) any = any || w == item;
            if (any) out.push_back(item);
        }
    } else {
        out = VehicleItems(movementType);
    }
    for (const auto& e : EngineItems()) out.push_back(e);
    for (const char* n : kArmors) out.emplace_back(n);
    return out;
}

int16_t zExtraItemCode(const std::string& item) {
    const auto& all = zExtraItemsVocabulary();
    for (size_t i = 0; i < all.size(); ++i)
        if (all[i] == item) return static_cast<int16_t>(i);
    return -1;
}

bool zExtraItemCodeHolds(int16_t code, const Vehicle& v) {
    // Codes are positions in the vocabulary: turrets 0-5, bridge layers 6-8,
    // equipment 9-19, rotors 20-22, engines 23-30, armors 31-36.
    switch (code) {
        case 0: return !Flag(v.HasTurret) && !Flag(v.HasSecTurret);
        case 1: case 4: case 5: return Flag(v.HasTurret);
        case 2: return Flag(v.HasSecTurret);
        case 3: return Flag(v.HasSponsonTurrets);
        case 6: case 7: case 8: return Flag(v.HasBridgeLayer) && v.BridgeLayerType == code - 6;
        case 9: return Flag(v.HasBulldozer);
        case 10: return Flag(v.HasMinesweeper);
        case 11: return Flag(v.HasCoolantSystem);
        case 12: return Flag(v.HasMASHUnit);
        case 13: return Flag(v.HasMobileHQ);
        case 14: return Flag(v.HasAmphibEquip);
        case 15: return Flag(v.HasSnowmobileEquip);
        case 16: return Flag(v.HasDuneBuggyEquip);
        case 17: return Flag(v.HasJumpJet);
        case 18: case 19: return Flag(v.HasSupercharger);
        case 20: case 21: case 22: return v.RotorConfig == code - 20;
        case 23: case 24: case 25: case 26: case 27: case 28: case 29: case 30:
            return v.EngineType == kEngineOrder[code - 23];
        case 31: case 32: case 33: case 34: case 35: case 36: return v.ArmorType == code - 31;
        default: return false;  // the fighters' items and unknown names
    }
}

bool zExtraItemHolds(const std::string& item, const Vehicle& v) {
    return zExtraItemCodeHolds(zExtraItemCode(item), v);
}

void ProcessExtras(const std::vector<std::string>& extraItems, const Vehicle& v, bool& matched) {
    matched = false;
    for (const auto& item : extraItems)
        if (zExtraItemHolds(item, v)) {
            matched = true;
            return;
        }
}

PreparedCriteria zPrepareCriteria(const std::vector<SearchCriterion>& criteria) {
    PreparedCriteria p;
    p.list = criteria;
    for (const auto& c : criteria) {
        std::vector<int16_t> codes;
        // An empty first item asks for no extras.
        if (!c.ExtraItems.empty() && !c.ExtraItems[0].empty())
            for (const auto& item : c.ExtraItems) codes.push_back(zExtraItemCode(item));
        p.extras.push_back(std::move(codes));
    }
    return p;
}

void ProcessVehicle(const PreparedCriteria& criteria, const Vehicle& v, bool& matched) {
    matched = false;
    zTrapVoid("ProcessVehicle", [&] {
        for (size_t i = 0; i < criteria.list.size(); ++i) {
            const SearchCriterion& c = criteria.list[i];
            // The flag is looked up before the class is tested, so a design
            // with a base or level outside the flags fails whatever the
            // criterion.
            if (v.TechBase < 0 || v.TechBase > 1) zRaise(kErrSubscript);
            if (!c.TechBase[static_cast<size_t>(v.TechBase)] || c.UnitClass != 0) continue;
            if (v.TechLevel < 1 || v.TechLevel > 3) zRaise(kErrSubscript);
            if (!c.TechLevel[static_cast<size_t>(v.TechLevel - 1)]) continue;
            if (c.MovementType != -1 && c.MovementType != v.VhlType) continue;
            const bool speed = Compare(c.Speed, c.SpeedCompare, v.CruiseSpeed);
            const bool tonnage = Compare(c.Tonnage, c.TonnageCompare, v.Tonnage);
            const auto& codes = criteria.extras[i];
            bool extras = codes.empty();
            for (size_t k = 0; k < codes.size() && !extras; ++k) extras = zExtraItemCodeHolds(codes[k], v);
            if (speed && tonnage && extras) {
                matched = true;
                return;
            }
        }
    });
}

void ProcessVehicle(const std::vector<SearchCriterion>& criteria, const Vehicle& v, bool& matched) {
    ProcessVehicle(zPrepareCriteria(criteria), v, matched);
}

void ProcessFighter(const Fighter&) {}

std::array<std::string, 6> zCriterionTexts(const SearchCriterion& c) {
    std::array<std::string, 6> t;
    if (c.UnitClass == 1) {
        static const char* const names[] = {"Conventional Fighter", "Aerospace Fighter", "OmniFighter"};
        t[0] = c.MovementType >= 0 && c.MovementType <= 2 ? std::string("Fighter: ") + names[c.MovementType]
                                                          : std::string("All Fighters");
    } else {
        t[0] = c.MovementType >= 0 ? "Vehicle: " + zVehicleTypeName(c.MovementType) : std::string("All Vehicles");
    }
    if (c.TechBase[0]) t[1] = c.TechBase[1] ? "I.S. or Clan" : "I.S.";
    else if (c.TechBase[1]) t[1] = "Clan";
    for (size_t i = 0; i < 3; ++i) {
        if (!c.TechLevel[i]) continue;
        t[2] += t[2].empty() ? "Level " : ",";
        t[2] += std::to_string(i + 1);
    }
    static const char* const compare[] = {"Less than ", "Equal to ", "Greater than "};
    auto section = [&](int16_t value, int16_t how, const char* any) {
        if (value == 0) return std::string(any);
        return (how >= 0 && how <= 2 ? compare[how] : "") + std::to_string(value);
    };
    t[3] = section(c.Tonnage, c.TonnageCompare, "Any Tonnage");
    t[4] = section(c.Speed, c.SpeedCompare, "Any Speed");
    for (size_t i = 0; i < c.ExtraItems.size(); ++i) t[5] += (i ? "," : "") + c.ExtraItems[i];
    return t;
}

// ---- The criteria file ------------------------------------------------------

namespace {

using nlohmann::json;

const char* const kFields[] = {"UnitClass", "MovementType", "TechBase",     "TechLevel",   "Tonnage",
                               "TonnageCompare", "Speed",   "SpeedCompare", "ExtraItems"};

struct BadFile {
    std::string what;
};

int16_t Whole(const json& o, const char* field, int lo, int hi, int16_t def) {
    auto it = o.find(field);
    if (it == o.end()) return def;
    // An unsigned number beyond the signed range must not wrap into it.
    const bool inRange = it->is_number_unsigned() ? it->get<uint64_t>() <= static_cast<uint64_t>(hi)
                         : it->is_number_integer() && it->get<int64_t>() >= lo && it->get<int64_t>() <= hi;
    if (!inRange)
        throw BadFile{std::string("\"") + field + "\" must be a whole number from " + std::to_string(lo) + " to " +
                      std::to_string(hi)};
    return static_cast<int16_t>(it->get<int64_t>());
}

template <size_t N>
std::array<bool, N> Flags(const json& o, const char* field) {
    std::array<bool, N> out;
    out.fill(true);
    auto it = o.find(field);
    if (it == o.end()) return out;
    const std::string what = std::string("\"") + field + "\" must be a list of " + std::to_string(N) + " booleans";
    if (!it->is_array() || it->size() != N) throw BadFile{what};
    // The program's own truth values, -1 and 0, are taken too.
    for (size_t i = 0; i < N; ++i) {
        const json& e = (*it)[i];
        if (e.is_boolean()) out[i] = e.get<bool>();
        else if (e.is_number_integer()) out[i] = e.get<int64_t>() != 0;
        else throw BadFile{what};
    }
    return out;
}

SearchCriterion Criterion(const json& o) {
    if (!o.is_object()) throw BadFile{"not an object"};
    for (const auto& [key, value] : o.items()) {
        bool known = false;
        for (const char* f : kFields) known = known || key == f;
        // Shown escaped, so that a hostile name stays on one line.
        if (!known) throw BadFile{"unknown field " + json(key).dump()};
    }
    SearchCriterion c;
    c.UnitClass = Whole(o, "UnitClass", 0, 1, 0);
    c.MovementType = Whole(o, "MovementType", -1, c.UnitClass == 1 ? int{kFtrOmni} : int{kVhlSuperHeavy}, -1);
    c.TechBase = Flags<2>(o, "TechBase");
    c.TechLevel = Flags<3>(o, "TechLevel");
    c.Tonnage = Whole(o, "Tonnage", 0, 32767, 0);
    c.TonnageCompare = Whole(o, "TonnageCompare", 0, 2, 1);
    c.Speed = Whole(o, "Speed", 0, 32767, 0);
    c.SpeedCompare = Whole(o, "SpeedCompare", 0, 2, 1);
    c.ExtraItems.clear();
    if (auto it = o.find("ExtraItems"); it != o.end()) {
        const char* what = "\"ExtraItems\" must be a list of texts";
        if (!it->is_array()) throw BadFile{what};
        for (const auto& e : *it) {
            if (!e.is_string()) throw BadFile{what};
            std::string text;
            if (!zUtf8ToCp1252(e.get<std::string>(), text))
                throw BadFile{"\"ExtraItems\" holds a text with a character the program cannot store"};
            c.ExtraItems.push_back(text);
        }
    }
    if (c.ExtraItems.empty()) c.ExtraItems.emplace_back();
    return c;
}

}  // namespace

CriteriaFileResult zParseCriteria(const std::string& text) {
    CriteriaFileResult r;
    json doc;
    try {
        doc = json::parse(text);
    } catch (const json::exception& e) {
        // The library's own words, without its bracketed error id.
        std::string what = e.what();
        if (auto close = what.find("] "); what.rfind('[', 0) == 0 && close != std::string::npos)
            what = what.substr(close + 2);
        for (char& ch : what)
            if (ch == '\n' || ch == '\r') ch = ' ';
        r.error = "not JSON: " + what;
        return r;
    }
    if (!doc.is_array()) {
        r.error = "not a list of criteria";
        return r;
    }
    for (size_t i = 0; i < doc.size(); ++i) {
        try {
            r.criteria.push_back(Criterion(doc[i]));
        } catch (const BadFile& bad) {
            r.criteria.clear();
            r.error = "criterion " + std::to_string(i + 1) + ": " + bad.what;
            return r;
        }
    }
    r.ok = true;
    return r;
}

CriteriaFileResult zReadCriteriaFile(const std::string& path) {
    std::string text;
    try {
        text = zReadWholeFile(path);
    } catch (const RunError&) {
        CriteriaFileResult r;
        r.error = "cannot be read";
        return r;
    }
    return zParseCriteria(text);
}

std::string zCriteriaToJson(const std::vector<SearchCriterion>& criteria) {
    // Written in the record's field order.
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const auto& c : criteria) {
        if (c.UnitClass < 0) continue;
        nlohmann::ordered_json extras = nlohmann::ordered_json::array();
        const bool none = c.ExtraItems.empty() || (c.ExtraItems.size() == 1 && c.ExtraItems[0].empty());
        if (!none)
            for (const auto& e : c.ExtraItems) extras.push_back(zCp1252ToUtf8(e));
        list.push_back({{"UnitClass", c.UnitClass},
                        {"MovementType", c.MovementType},
                        {"TechBase", c.TechBase},
                        {"TechLevel", c.TechLevel},
                        {"Tonnage", c.Tonnage},
                        {"TonnageCompare", c.TonnageCompare},
                        {"Speed", c.Speed},
                        {"SpeedCompare", c.SpeedCompare},
                        {"ExtraItems", extras}});
    }
    return list.dump(2) + "\n";
}

void zWriteCriteriaFile(const std::string& path, const std::vector<SearchCriterion>& criteria) {
    zWriteFileAtomic(path, zCriteriaToJson(criteria));
}

}  // namespace bw
