// The tests a vehicle must pass, the criteria list texts, the offered extra
// items and the criteria file.
#include <gtest/gtest.h>

#include <functional>

#include "search/SearchSupport.h"
#include "support/FakeUi.h"

namespace bw {
namespace {

using test::Any;
using test::Design;

struct MatchCase {
    const char* what;
    std::vector<SearchCriterion> criteria;
    Vehicle v;
    bool matched;
};

SearchCriterion With(std::function<void(SearchCriterion&)> f) {
    SearchCriterion c = Any();
    f(c);
    return c;
}

TEST(ProcessVehicle, SectionsAreJoinedByAndChoicesAndCriteriaByOr) {
    Vehicle turret = Design("T");
    turret.HasTurret = -1;
    const auto extras = [](std::vector<std::string> items) {
        return With([=](SearchCriterion& c) { c.ExtraItems = items; });
    };
    const std::vector<MatchCase> cases = {
        {"any", {Any()}, Design("A"), true},
        {"fighter class never lists a vehicle", {With([](auto& c) { c.UnitClass = 1; })}, Design("A"), false},
        {"removed entry", {With([](auto& c) { c.UnitClass = -1; })}, Design("A"), false},
        {"clan only, IS design", {With([](auto& c) { c.TechBase = {false, true}; })}, Design("A"), false},
        {"both bases, clan design", {Any()}, Design("A", 1, 2), true},
        {"levels 1 and 2, level 3 design", {With([](auto& c) { c.TechLevel = {true, true, false}; })},
         Design("A", 0, 3), false},
        {"type of its own", {With([](auto& c) { c.MovementType = 3; })}, Design("A", 0, 1, 3), true},
        {"other type", {With([](auto& c) { c.MovementType = 2; })}, Design("A", 0, 1, 3), false},
        {"speed 5 equal, cruise 6", {With([](auto& c) { c.Speed = 5, c.SpeedCompare = 1; })},
         Design("A", 0, 1, 0, 50, 6), false},
        {"speed below 5, cruise 4", {With([](auto& c) { c.Speed = 5, c.SpeedCompare = 0; })}, Design("A"), true},
        {"tonnage any ignores compare", {With([](auto& c) { c.Tonnage = 0, c.TonnageCompare = 0; })},
         Design("A"), true},
        {"tonnage above 45", {With([](auto& c) { c.Tonnage = 45, c.TonnageCompare = 2; })}, Design("A"), true},
        {"tonnage below 50", {With([](auto& c) { c.Tonnage = 50, c.TonnageCompare = 0; })}, Design("A"), false},
        {"extras or: turret", {extras({"Minesweeper", "Main Turret"})}, turret, true},
        {"extras none hold", {extras({"No Turret"})}, turret, false},
        {"first extra empty passes", {extras({"", "Minesweeper"})}, turret, true},
        {"speed fails though extras pass",
         {With([](auto& c) { c.ExtraItems = {"Main Turret"}, c.Speed = 9, c.SpeedCompare = 1; })}, turret, false},
        {"second criterion passes",
         {With([](auto& c) { c.MovementType = 5; }), With([](auto& c) { c.TechBase = {true, false}; })},
         Design("A"), true},
    };
    for (const auto& tc : cases) {
        bool matched = !tc.matched;
        ProcessVehicle(tc.criteria, tc.v, matched);
        EXPECT_EQ(matched, tc.matched) << tc.what;
    }
}

TEST(ProcessVehicle, ADesignOutsideTheFlagsIsReportedAndNotListed) {
    for (Vehicle v : {Design("A", 2), Design("A", 0, 0), Design("A", 0, 4)}) {
        test::ScopedFakeUi fake;
        bool matched = true;
        ProcessVehicle({Any()}, v, matched);
        EXPECT_FALSE(matched);
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_NE(fake.ui.LastBox().text.find("Function: ProcessVehicle"), std::string::npos);
        EXPECT_NE(fake.ui.LastBox().text.find("Error Number: 9"), std::string::npos);
    }
}

TEST(ProcessExtras, EachItemTestsItsOwnField) {
    struct Case {
        const char* item;
        std::function<void(Vehicle&)> set;  // makes the item hold
    };
    const std::vector<Case> cases = {
        {"Main Turret", [](Vehicle& v) { v.HasTurret = -1; }},
        {"Turret", [](Vehicle& v) { v.HasTurret = -1; }},
        {"Chin Turret", [](Vehicle& v) { v.HasTurret = -1; }},
        {"Secondary Turret", [](Vehicle& v) { v.HasSecTurret = -1; }},
        {"Sponson Turrets", [](Vehicle& v) { v.HasSponsonTurrets = -1; }},
        {"Bridgelayer (light)", [](Vehicle& v) { v.HasBridgeLayer = -1; }},
        {"Bridgelayer (heavy)", [](Vehicle& v) { v.HasBridgeLayer = -1, v.BridgeLayerType = 2; }},
        {"Bulldozer Blade", [](Vehicle& v) { v.HasBulldozer = -1; }},
        {"Minesweeper", [](Vehicle& v) { v.HasMinesweeper = -1; }},
        {"Coolant System", [](Vehicle& v) { v.HasCoolantSystem = -1; }},
        {"M*A*S*H* Unit", [](Vehicle& v) { v.HasMASHUnit = -1; }},
        {"Mobile HQ", [](Vehicle& v) { v.HasMobileHQ = -1; }},
        {"Amphibious Equipment", [](Vehicle& v) { v.HasAmphibEquip = -1; }},
        {"Snowmobile Equipment", [](Vehicle& v) { v.HasSnowmobileEquip = -1; }},
        {"Dune Buggy Gear", [](Vehicle& v) { v.HasDuneBuggyEquip = -1; }},
        {"Jump Jets", [](Vehicle& v) { v.HasJumpJet = -1; }},
        {"Supercharger", [](Vehicle& v) { v.HasSupercharger = -1; }},
        {"Jet Boosters", [](Vehicle& v) { v.HasSupercharger = -1; }},
        {"Dual Rotor Config", [](Vehicle& v) { v.RotorConfig = 1; }},
        {"Coaxial Rotor Config", [](Vehicle& v) { v.RotorConfig = 2; }},
        {"Engine - Fusion", [](Vehicle& v) { v.EngineType = 1; }},
        {"Engine - Large Fusion", [](Vehicle& v) { v.EngineType = 7; }},
        {"Ferro Fiberous Armor", [](Vehicle& v) { v.ArmorType = 1; }},
        {"Reactive Armor", [](Vehicle& v) { v.ArmorType = 5; }},
    };
    // A bare design (I.C.E., standard armor and rotor) holds none of them,
    // but it has no turret.
    Vehicle bare = Design("A");
    bare.EngineType = 0;
    for (const auto& tc : cases) {
        Vehicle v = bare;
        bool matched = true;
        ProcessExtras({tc.item}, v, matched);
        EXPECT_FALSE(matched) << tc.item;
        tc.set(v);
        ProcessExtras({"Bogus", tc.item}, v, matched);
        EXPECT_TRUE(matched) << tc.item;
    }
    for (const char* item : {"No Turret", "Standard Rotor Config", "Standard Armor", "Engine - I.C.E."})
        EXPECT_TRUE(zExtraItemHolds(item, bare)) << item;
    Vehicle bridge = bare;
    bridge.BridgeLayerType = 1;  // a type without the flag is no bridge layer
    EXPECT_FALSE(zExtraItemHolds("Bridgelayer (medium)", bridge));
    for (const char* item : {"Engine - Bogus", "V.T.O.L. Jets", "Ferro-Aluminum Armor", "Engine - "})
        EXPECT_FALSE(zExtraItemHolds(item, bare)) << item;
}

TEST(CriterionTexts, TheRowsOfTheCriteriaList) {
    using Texts = std::array<std::string, 6>;
    struct Case {
        SearchCriterion c;
        Texts texts;
    };
    const std::vector<Case> cases = {
        {Any(), {"All Vehicles", "I.S. or Clan", "Level 1,2,3", "Any Tonnage", "Any Speed", ""}},
        {With([](auto& c) {
             c.MovementType = 7, c.TechBase = {false, true}, c.TechLevel = {false, true, true}, c.Tonnage = 150,
             c.TonnageCompare = 2, c.Speed = 3, c.SpeedCompare = 0, c.ExtraItems = {"Main Turret", "Supercharger"};
         }),
         {"Vehicle: Super Heavy Tank", "Clan", "Level 2,3", "Greater than 150", "Less than 3",
          "Main Turret,Supercharger"}},
        {With([](auto& c) {
             c.UnitClass = 1, c.MovementType = 2, c.TechBase = {true, false}, c.TechLevel = {true, false, true},
             c.Tonnage = 50, c.TonnageCompare = 1;
         }),
         {"Fighter: OmniFighter", "I.S.", "Level 1,3", "Equal to 50", "Any Speed", ""}},
        {With([](auto& c) { c.UnitClass = 1, c.TechLevel = {false, false, true}; }),
         {"All Fighters", "I.S. or Clan", "Level 3", "Any Tonnage", "Any Speed", ""}},
    };
    for (const auto& tc : cases) EXPECT_EQ(zCriterionTexts(tc.c), tc.texts);
}

TEST(ExtraItems, OfferedByClassAndType) {
    const auto has = [](const std::vector<std::string>& list, const std::string& item) {
        return std::find(list.begin(), list.end(), item) != list.end();
    };
    const auto vtol = zExtraItemsFor(0, 3), all = zExtraItemsFor(0, -1);
    EXPECT_TRUE(has(vtol, "Dual Rotor Config") && has(vtol, "Chin Turret") && !has(vtol, "Bulldozer Blade"));
    EXPECT_FALSE(has(zExtraItemsFor(0, 0), "Coaxial Rotor Config") || has(zExtraItemsFor(0, 0), "Dune Buggy Gear"));
    EXPECT_TRUE(has(all, "Dune Buggy Gear") && has(all, "Coaxial Rotor Config") && !has(all, "V.T.O.L. Jets"));
    EXPECT_TRUE(has(zExtraItemsFor(1, 0), "V.T.O.L. Jets") && !has(zExtraItemsFor(1, 1), "V.T.O.L. Jets"));
    // The vocabulary: 6 turret words, 3 bridge layers, 11 equipment, 3
    // rotors, 8 engines, 6 armors, 2 fighter items.
    EXPECT_EQ(zExtraItemsVocabulary().size(), 39u);
    for (int16_t t = -1; t <= 7; ++t)
        for (const auto& item : zExtraItemsFor(0, t)) EXPECT_TRUE(has(zExtraItemsVocabulary(), item)) << item;
}

TEST(CriteriaFile, WritesTheRecordAndReadsItBack) {
    SearchCriterion c = With([](auto& c) {
        c.MovementType = 3, c.TechBase = {true, false}, c.Tonnage = 25, c.TonnageCompare = 0, c.Speed = 8,
        c.SpeedCompare = 2, c.ExtraItems = {"Chin Turret", "Caf\xe9"};
    });
    const std::string text = zCriteriaToJson({c, Any()});
    EXPECT_EQ(text.rfind("[\n  {\n    \"UnitClass\": 0,\n    \"MovementType\": 3,\n    \"TechBase\": [\n      true,\n"
                         "      false\n    ],\n    \"TechLevel\": [\n",
                         0),
              0u);
    EXPECT_NE(text.find("\"Caf\xc3\xa9\""), std::string::npos);
    EXPECT_NE(text.find("\"ExtraItems\": []"), std::string::npos);  // none is an empty list
    const CriteriaFileResult r = zParseCriteria(text);
    ASSERT_TRUE(r.ok) << r.error;
    EXPECT_EQ(r.criteria, (std::vector<SearchCriterion>{c, Any()}));
    // A removed entry is not kept.
    EXPECT_EQ(zCriteriaToJson({With([](auto& c) { c.UnitClass = -1; })}), "[]\n");
    // Fields left out let everything through.
    const CriteriaFileResult d = zParseCriteria("[{\"Tonnage\": 5, \"TechLevel\": [-1, 1, true]}]");
    ASSERT_TRUE(d.ok);
    SearchCriterion want = Any();
    want.Tonnage = 5;
    want.TonnageCompare = 1;
    want.SpeedCompare = 1;
    EXPECT_EQ(d.criteria[0], want);
}

TEST(CriteriaFile, ABadFileSaysWhatIsWrongInOneLine) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"", "not JSON: parse error at line 1, column 1: syntax error while parsing value - unexpected end of input; "
             "expected '[', '{', or a literal"},
        {"{\"UnitClass\": 0}", "not a list of criteria"},
        {"[1]", "criterion 1: not an object"},
        {"[{}, {\"Tonage\": 5}]", "criterion 2: unknown field \"Tonage\""},
        {"[{\"UnitClass\": 2}]", "criterion 1: \"UnitClass\" must be a whole number from 0 to 1"},
        {"[{\"UnitClass\": 1, \"MovementType\": 3}]", "criterion 1: \"MovementType\" must be a whole number from -1 to 2"},
        {"[{\"Tonnage\": 18446744073709551615}]", "criterion 1: \"Tonnage\" must be a whole number from 0 to 32767"},
        {"[{\"Speed\": 5.5}]", "criterion 1: \"Speed\" must be a whole number from 0 to 32767"},
        {"[{\"TechLevel\": [true, \"1\", false]}]", "criterion 1: \"TechLevel\" must be a list of 3 booleans"},
        {"[{\"ExtraItems\": \"Turret\"}]", "criterion 1: \"ExtraItems\" must be a list of texts"},
        {"[{\"ExtraItems\": [\"\\u4e2d\"]}]",
         "criterion 1: \"ExtraItems\" holds a text with a character the program cannot store"},
        {"[{\"a\\nb\": 1}]", "criterion 1: unknown field \"a\\nb\""},
    };
    for (const auto& [text, error] : cases) {
        const CriteriaFileResult r = zParseCriteria(text);
        EXPECT_FALSE(r.ok) << text;
        EXPECT_EQ(r.error, error) << text;
        EXPECT_TRUE(r.criteria.empty());
    }
    EXPECT_EQ(zReadCriteriaFile("/no/such/criteria.json").error, "cannot be read");
}

}  // namespace
}  // namespace bw
