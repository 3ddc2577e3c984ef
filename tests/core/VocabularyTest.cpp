#include <gtest/gtest.h>

#include <functional>

#include "core/Vocabulary.h"
#include "support/Boxes.h"

using namespace bw;

namespace {

struct Named {
    std::function<std::string()> call;
    const char* want;
};

void ExpectNames(const std::vector<Named>& cases) {
    for (size_t i = 0; i < cases.size(); ++i) EXPECT_EQ(cases[i].call(), cases[i].want) << "case " << i;
}

#define N(expr, want) Named{[] { return std::string(expr); }, want}

}  // namespace

TEST(Vocabulary, TypeBaseAndCategoryNames) {
    ExpectNames({
        N(zVehicleTypeName(0), "Tracked"),          N(zVehicleTypeName(3), "V.T.O.L."),
        N(zVehicleTypeName(7), "Super Heavy Tank"), N(zVehicleTypeName(8), ""),
        N(zVehicleTypeName(-1), ""),                N(zFighterTypeName(2), "Omni-Fighter"),
        N(zDropshipTypeName(0), "Spheriod"),  // as the program spells it
        N(zDropshipUseName(1), "Civilian"),         N(zTechBaseName(0), "Inner Sphere"),
        N(zTechBaseName(1), "Clan"),                N(zTechBaseName(2), "Clan"),
        N(zTechBaseName(-1), "Clan"),               N(zWeaponCategoryName(4), "Ammuntion"),
        N(zWeaponCategoryName(5), "Artillery"),     N(zWeaponCategoryName(6), ""),
        N(zWeaponCategoryName(-1), ""),             N(zVehicleArmorName(3), "Heavy Ferro-Fibrous"),
        N(zFighterArmorName(1), "Ferro-Aluminum"),  N(zRotorConfigName(2), "Coaxial"),
        N(zBridgeLayerName(1), "Medium"),           N(zOmniConfigName(5), "Delta"),
    });
    EXPECT_EQ(zVehicleArmorItemSlots(3), 3);
    EXPECT_EQ(zVehicleArmorItemSlots(0), 0);
}

TEST(Vocabulary, EngineTablesByCodeNotByListOrder) {
    const char* names[] = {"I.C.E.",     "Fusion",          "Fusion XL",        "Large I.C.E.",
                           "Fusion XXL", "Large Fusion XL", "Large Fusion XXL", "Large Fusion"};
    for (int16_t i = 0; i < 8; ++i) {
        EXPECT_EQ(zEngineName(i), names[i]);
        EXPECT_EQ(zEngineCodeFromName(names[i]), i);
    }
    EXPECT_EQ(zEngineName(8), "");
    EXPECT_EQ(zEngineCodeFromName("fusion"), 0);  // exact compare; unknown reads as I.C.E.
    EXPECT_EQ(zEngineCodeFromName("Fusion "), 0);
    // {engine, base, slots}: any non-zero base is Clan.
    const int16_t slots[][3] = {{2, 1, 1}, {2, 0, 2}, {4, 1, 2}, {4, 0, 4}, {6, 7, 5}, {4, -3, 2}, {8, 0, 0}, {-1, 0, 0}};
    for (const auto& s : slots) EXPECT_EQ(zEngineItemSlots(s[0], s[1]), s[2]) << s[0] << "/" << s[1];
    for (auto [code, factor] : {std::pair(0, 1250), {6, 200000}, {7, 10000}, {8, 0}})
        EXPECT_EQ(zEngineCostFactor(int16_t(code)), factor) << code;
}

TEST(Vocabulary, EngineTonnageMultiplyRoundsHalfToEvenAndKeepsTheDivision) {
    // {tons in, engine, result, tons after}
    const std::tuple<double, int16_t, int, double> cases[] = {
        {8.5, 1, 13, 8.5},  // 12.75
        {0.5, 2, 0, 0.25},  // 0.375
        {1.25, 0, 2, 1.25}, // 2.5 goes to even
        {1.75, 3, 4, 1.75}, // 3.5 goes to even
        {9, 4, 4, 3},       // 3 * 1.5 = 4.5 -> 4
        {9, 6, 4, 3},       {10, 5, 8, 5},  // 7.5 -> 8
        {5, 7, 8, 5},       {5, 9, 0, 5},
    };
    for (auto [in, engine, result, after] : cases) {
        double t = in;
        EXPECT_EQ(zEngineTonnageMultiply(t, engine), result) << in << " engine " << engine;
        EXPECT_EQ(t, after) << in << " engine " << engine;
    }
}

TEST(Vocabulary, LocationNamesDifferByFunctionAndType) {
    ExpectNames({
        N(zItemLocationName(5, 3), "Mast Mount"),         N(zArmorLocationName(5, 3), "Rotor"),
        N(zItemLocationName(5, 0), "Secondary Turret"),   N(zArmorLocationName(5, 0), "Secondary Turret"),
        N(zItemLocationName(8, 7), "Unknown Location (8)"), N(zArmorLocationName(8, 7), "Front-Right"),
        N(zArmorLocationName(11, 5), "Rear-Left"),        N(zArmorLocationName(12, 0), "Unknown Location (12)"),
        N(zItemLocationName(0, 7), "Front"),              N(zItemLocationName(0, 3), "Nose"),
        N(zItemLocationName(3, 3), "Tail"),               N(zItemLocationName(4, 3), "Chin Turret"),
        N(zItemLocationName(-1, 2), "Unallocated"),       N(zItemLocationName(99, 3), "Body"),
        N(zArmorLocationName(99, 6), "Body"),             N(zItemLocationName(98, 0), "Unknown Location (98)"),
        N(zItemLocationName(100, 0), "Unknown Location (100)"), N(zItemLocationName(-2, 0), "Unknown Location (-2)"),
        N(zItemLocationName(7, 1), "Right Sponson Turret"),
        N(zFighterLocationName(-1), "Unallocated"),       N(zFighterLocationName(3), "Fuselage"),
        N(zFighterLocationName(5), "Engine"),             N(zFighterLocationName(9), ""),
        N(zFighterLocationName(6), ""),                   N(zDropshipLocationName(6), "Internal"),
        N(zDropshipLocationName(9), "Unknown Location (9)"), N(zDropshipLocationName(-1), "Unallocated"),
    });
    for (int16_t naval : {4, 5, 6}) {
        EXPECT_EQ(zArmorLocationName(0, naval), "Bow");
        EXPECT_EQ(zItemLocationName(3, naval), "Stern");
        EXPECT_EQ(zItemLocationName(4, naval), "Main Turret");
    }
}

TEST(Vocabulary, NavalClassKeywordsAreExactLowerCase) {
    test::ScopedFakeUi fake;
    for (auto [word, code] : {std::pair("l", 0), {"lbx", 3}, {"ammo", 8}}) EXPECT_EQ(zNavalWeaponClassCode(word), code);
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(zNavalWeaponClassCode("LRM"), 0);
    EXPECT_EQ(test::TakeBoxes(fake.ui), (std::vector<test::Box>{{"", "Invalid type: LRM"}}));
}
