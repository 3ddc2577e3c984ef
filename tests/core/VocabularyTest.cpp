#include <gtest/gtest.h>

#include "core/Vocabulary.h"
#include "support/FakeUi.h"

using namespace bw;

TEST(Vocabulary, TypeBaseAndCategoryNames) {
    EXPECT_EQ(zVehicleTypeName(0), "Tracked");
    EXPECT_EQ(zVehicleTypeName(3), "V.T.O.L.");
    EXPECT_EQ(zVehicleTypeName(7), "Super Heavy Tank");
    EXPECT_EQ(zVehicleTypeName(8), "");
    EXPECT_EQ(zVehicleTypeName(-1), "");
    EXPECT_EQ(zFighterTypeName(2), "Omni-Fighter");
    EXPECT_EQ(zDropshipTypeName(0), "Spheriod");  // as the program spells it
    EXPECT_EQ(zDropshipUseName(1), "Civilian");
    EXPECT_EQ(zTechBaseName(0), "Inner Sphere");
    EXPECT_EQ(zTechBaseName(1), "Clan");
    EXPECT_EQ(zTechBaseName(2), "Clan");
    EXPECT_EQ(zTechBaseName(-1), "Clan");
    EXPECT_EQ(zWeaponCategoryName(4), "Ammuntion");
    EXPECT_EQ(zWeaponCategoryName(5), "Artillery");
    EXPECT_EQ(zWeaponCategoryName(6), "");
    EXPECT_EQ(zWeaponCategoryName(-1), "");
    EXPECT_EQ(zVehicleArmorName(3), "Heavy Ferro-Fibrous");
    EXPECT_EQ(zVehicleArmorItemSlots(3), 3);
    EXPECT_EQ(zVehicleArmorItemSlots(0), 0);
    EXPECT_EQ(zFighterArmorName(1), "Ferro-Aluminum");
    EXPECT_EQ(zRotorConfigName(2), "Coaxial");
    EXPECT_EQ(zBridgeLayerName(1), "Medium");
    EXPECT_EQ(zOmniConfigName(5), "Delta");
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

    EXPECT_EQ(zEngineItemSlots(2, 1), 1);
    EXPECT_EQ(zEngineItemSlots(2, 0), 2);
    EXPECT_EQ(zEngineItemSlots(4, 1), 2);
    EXPECT_EQ(zEngineItemSlots(4, 0), 4);
    EXPECT_EQ(zEngineItemSlots(6, 7), 5);
    EXPECT_EQ(zEngineItemSlots(4, -3), 2);  // any non-zero base is Clan
    EXPECT_EQ(zEngineItemSlots(8, 0), 0);
    EXPECT_EQ(zEngineItemSlots(-1, 0), 0);

    EXPECT_EQ(zEngineCostFactor(0), 1250);
    EXPECT_EQ(zEngineCostFactor(6), 200000);
    EXPECT_EQ(zEngineCostFactor(7), 10000);
    EXPECT_EQ(zEngineCostFactor(8), 0);
}

TEST(Vocabulary, EngineTonnageMultiplyRoundsHalfToEvenAndKeepsTheDivision) {
    double t = 8.5;
    EXPECT_EQ(zEngineTonnageMultiply(t, 1), 13);  // 12.75
    EXPECT_EQ(t, 8.5);
    t = 0.5;
    EXPECT_EQ(zEngineTonnageMultiply(t, 2), 0);  // 0.375
    EXPECT_EQ(t, 0.25);
    t = 1.25;
    EXPECT_EQ(zEngineTonnageMultiply(t, 0), 2);  // 2.5 goes to even
    t = 1.75;
    EXPECT_EQ(zEngineTonnageMultiply(t, 3), 4);  // 3.5 goes to even
    t = 9;
    EXPECT_EQ(zEngineTonnageMultiply(t, 4), 4);  // 3 * 1.5 = 4.5 -> 4
    EXPECT_EQ(t, 3);
    t = 9;
    EXPECT_EQ(zEngineTonnageMultiply(t, 6), 4);
    t = 10;
    EXPECT_EQ(zEngineTonnageMultiply(t, 5), 8);  // 7.5 -> 8
    EXPECT_EQ(t, 5);
    t = 5;
    EXPECT_EQ(zEngineTonnageMultiply(t, 7), 8);  // 7.5 -> 8
    t = 5;
    EXPECT_EQ(zEngineTonnageMultiply(t, 9), 0);
    EXPECT_EQ(t, 5);
}

TEST(Vocabulary, VehicleLocationNamesDifferByFunctionAndType) {
    EXPECT_EQ(zItemLocationName(5, 3), "Mast Mount");
    EXPECT_EQ(zArmorLocationName(5, 3), "Rotor");
    EXPECT_EQ(zItemLocationName(5, 0), "Secondary Turret");
    EXPECT_EQ(zArmorLocationName(5, 0), "Secondary Turret");
    EXPECT_EQ(zItemLocationName(8, 7), "Unknown Location (8)");
    EXPECT_EQ(zArmorLocationName(8, 7), "Front-Right");
    EXPECT_EQ(zArmorLocationName(11, 5), "Rear-Left");
    EXPECT_EQ(zArmorLocationName(12, 0), "Unknown Location (12)");
    EXPECT_EQ(zItemLocationName(0, 7), "Front");
    EXPECT_EQ(zItemLocationName(0, 3), "Nose");
    EXPECT_EQ(zItemLocationName(3, 3), "Tail");
    EXPECT_EQ(zItemLocationName(4, 3), "Chin Turret");
    for (int16_t naval : {4, 5, 6}) {
        EXPECT_EQ(zArmorLocationName(0, naval), "Bow");
        EXPECT_EQ(zItemLocationName(3, naval), "Stern");
        EXPECT_EQ(zItemLocationName(4, naval), "Main Turret");
    }
    EXPECT_EQ(zItemLocationName(-1, 2), "Unallocated");
    EXPECT_EQ(zItemLocationName(99, 3), "Body");
    EXPECT_EQ(zArmorLocationName(99, 6), "Body");
    EXPECT_EQ(zItemLocationName(98, 0), "Unknown Location (98)");
    EXPECT_EQ(zItemLocationName(100, 0), "Unknown Location (100)");
    EXPECT_EQ(zItemLocationName(-2, 0), "Unknown Location (-2)");
    EXPECT_EQ(zItemLocationName(7, 1), "Right Sponson Turret");
}

TEST(Vocabulary, FighterAndDropshipLocations) {
    EXPECT_EQ(zFighterLocationName(-1), "Unallocated");
    EXPECT_EQ(zFighterLocationName(3), "Fuselage");
    EXPECT_EQ(zFighterLocationName(5), "Engine");
    EXPECT_EQ(zFighterLocationName(9), "");
    EXPECT_EQ(zFighterLocationName(6), "");
    EXPECT_EQ(zDropshipLocationName(6), "Internal");
    EXPECT_EQ(zDropshipLocationName(9), "Unknown Location (9)");
    EXPECT_EQ(zDropshipLocationName(-1), "Unallocated");
}

TEST(Vocabulary, NavalClassKeywordsAreExactLowerCase) {
    test::ScopedFakeUi fake;
    EXPECT_EQ(zNavalWeaponClassCode("l"), 0);
    EXPECT_EQ(zNavalWeaponClassCode("lbx"), 3);
    EXPECT_EQ(zNavalWeaponClassCode("ammo"), 8);
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(zNavalWeaponClassCode("LRM"), 0);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text, "Invalid type: LRM");
    EXPECT_EQ(fake.ui.boxes[0].icon, MsgIcon::None);
}
