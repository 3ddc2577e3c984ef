// The weapon data window's texts.
#include <gtest/gtest.h>

#include "core/Errors.h"
#include "refdata/Weapons.h"
#include "refdata/frmWData.h"
#include "support/FakeUi.h"
#include "support/RaisesError.h"

#include <tuple>

using namespace bw;

namespace {

struct Bands {
    int16_t s, m, l;
    const char* unit;
    const char* shortText;
    const char* medText;
    const char* longText;
};

}  // namespace

TEST(WeaponDataTexts, RangeBands) {
    const Bands cases[] = {
        {3, 6, 9, "Hex", "1-3", "4-6", "7-9"},
        {1, 2, 3, "Hex", "1", "2", "3"},
        {7, 14, 21, "Hex", "1-7", "8-14", "15-21"},
        // Bands one hex apart show the single hex; the others a span.
        {1, 3, 4, "Hex", "1", "2-3", "4"},
        {-1, -1, -1, "Hex", "-", "-", "-"},
        // Equipment with a reach only: the long band covers it all.
        {-1, -1, 6, "Hex", "-", "-", "1-6"},
        // No short band: the medium one starts at 1.
        {-1, 4, 8, "Hex", "-", "1-4", "5-8"},
        // Heavy machine gun: no long band.
        {1, 2, -1, "Hex", "1", "2", "-"},
        // Artillery in map sheets.
        {-1, -1, 8, "Map", "-", "-", "8 maps"},
        {-1, -1, 1, "Map", "-", "-", "1 maps"},
        {-1, -1, 30, "MAP", "-", "-", "30 maps"},
        // Only a row without a medium band reads its unit.
        {-1, 5, 9, "Map", "-", "1-5", "6-9"},
        // Short band of 0 is not 1.
        {0, 1, 2, "Hex", "1-0", "1", "2"},
    };
    for (const Bands& b : cases) {
        SCOPED_TRACE(std::to_string(b.s) + "/" + std::to_string(b.m) + "/" + std::to_string(b.l) + " " + b.unit);
        EXPECT_EQ(zWpnShortRangeText(b.s), b.shortText);
        EXPECT_EQ(zWpnMedRangeText(b.s, b.m), b.medText);
        EXPECT_EQ(zWpnLongRangeText(b.m, b.l, b.unit), b.longText);
    }
    // The unit compare is exact: "hex" is a unit of its own.
    EXPECT_EQ(zWpnLongRangeText(-1, 4, "hex"), "4 hexs");
    // The band after the largest 16-bit end overflows.
    EXPECT_EQ(test::ErrNumberOf([] { zWpnMedRangeText(32767, 5); }), kErrOverflow);
    EXPECT_EQ(test::ErrNumberOf([] { zWpnLongRangeText(32767, 5, "Hex"); }), kErrOverflow);
    EXPECT_EQ(zWpnLongRangeText(32766, 32767, "Hex"), "32767");
}

TEST(WeaponDataTexts, DamageHeatShotsCostAndTonnage) {
    // Split damage shows the per-missile figure and its unit, never the total.
    const std::tuple<int16_t, int16_t, const char*, const char*> damage[] = {
        {5, -1, "", "5"}, {-1, -1, "", "-"}, {0, -1, "", "0"},
        {1, 20, "Msl", "1/Msl"}, {2, 0, "Msl", "2/Msl"}, {-1, 12, "Msl", "-1/Msl"}};
    for (const auto& [d, unitValue, unit, text] : damage) EXPECT_EQ(zWpnDamageText(d, unitValue, unit), text);
    for (int16_t n : {-2, 0, 32767}) EXPECT_EQ(zWpnNumberOrDash(n), std::to_string(n));
    EXPECT_EQ(zWpnNumberOrDash(-1), "-");
    for (int32_t c : {-2, 0, 40000, 1500000}) EXPECT_EQ(zWpnCostText(c), std::to_string(c));
    EXPECT_EQ(zWpnCostText(-1), "0");
    const std::pair<double, const char*> tons[] = {{1, "1"}, {0.5, "0.5"}, {0.25, "0.25"}, {4.5, "4.5"}, {0, "0"}, {30, "30"}};
    for (const auto& [t, text] : tons) EXPECT_EQ(zWpnTonnageText(t), text);
}

namespace {

struct WeaponDataWindow : ::testing::Test {
    test::ScopedFakeUi fake;
    std::vector<WeaponRec> saved;
    void SetUp() override {
        saved = gWeapons;
        // Level 2 rows in the field order of WeaponRec.
        gWeapons = {
            {"Medium Laser", 0, 2, 0, 1, 3, 5, -1, 3, 6, 9, "Hex", 0, 40000, 46, -1, "", -1, 0, 0},
            {"LRM 20", 2, 2, 1, 5, 6, 1, -1, 7, 14, 21, "Hex", 0, 250000, 220, -1, "Msl", 20, 0, 0},
            {"Arrow IV", 5, 2, 0, 15, 10, 20, -1, -1, -1, 8, "Map", 0, 450000, 171, -1, "", -1, 0, 0},
            {"Cargo Space", 3, 2, 0, 1, -1, -1, -1, -1, -1, -1, "Hex", 0, -1, -1, -1, "", -1, 0, 0},
            {"AC/20 Ammo", 4, 2, 0, 1, -1, -1, -1, -1, -1, -1, "Hex", 0, 10000, 20, 5, "", -1, 0, 0},
            {"Broken", 0, 2, 0, 1, 0, 1, -1, 32767, 5, 9, "Hex", 0, 0, 0, -1, "", -1, 0, 0},
        };
    }
    void TearDown() override { gWeapons = saved; }

    static std::vector<std::string> Texts(const frmWData& f) {
        return {f.LName.Caption(),  f.LType.Caption(),  f.LLevel.Caption(),  f.LBase.Caption(), f.LTonnage.Caption(),
                f.LHeat.Caption(),  f.LDamage.Caption(), f.LMin.Caption(),   f.LShort.Caption(), f.LMedium.Caption(),
                f.LLong.Caption(),  f.LShots.Caption(), f.lCV.Caption(),     f.LCost.Caption()};
    }
};

}  // namespace

TEST_F(WeaponDataWindow, ShowsEachKindOfRow) {
    frmWData f;
    ASSERT_TRUE(f.zGetWpnData(0));
    EXPECT_EQ(f.Window.Caption(), "Medium Laser");
    EXPECT_EQ(Texts(f), (std::vector<std::string>{"Medium Laser", "Energy", "2", "Inner Sphere", "1", "3", "5", "-",
                                                  "1-3", "4-6", "7-9", "-", "46", "40000"}));
    ASSERT_TRUE(f.zGetWpnData(1));
    EXPECT_EQ(Texts(f), (std::vector<std::string>{"LRM 20", "Missile", "2", "Clan", "5", "6", "1/Msl", "-", "1-7",
                                                  "8-14", "15-21", "-", "220", "250000"}));
    ASSERT_TRUE(f.zGetWpnData(2));
    EXPECT_EQ(Texts(f), (std::vector<std::string>{"Arrow IV", "Artillery", "2", "Inner Sphere", "15", "10", "20", "-",
                                                  "-", "-", "8 maps", "-", "171", "450000"}));
    ASSERT_TRUE(f.zGetWpnData(3));
    EXPECT_EQ(Texts(f), (std::vector<std::string>{"Cargo Space", "Equipment", "2", "Inner Sphere", "1", "-", "-", "-",
                                                  "-", "-", "-", "-", "-1", "0"}));
    ASSERT_TRUE(f.zGetWpnData(4));
    // The category text keeps its own spelling.
    EXPECT_EQ(f.LType.Caption(), "Ammuntion");
    EXPECT_EQ(f.LShots.Caption(), "5");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(WeaponDataWindow, BadRowsAreReportedAndLeaveTheWindowAsItWas) {
    frmWData f;
    ASSERT_TRUE(f.zGetWpnData(0));
    const auto before = Texts(f);
    for (int32_t i : {-1, 6, 100000}) {
        fake.ui.boxes.clear();
        EXPECT_FALSE(f.zGetWpnData(i));
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_NE(fake.ui.LastBox().text.find("zGetWpnData"), std::string::npos) << fake.ui.LastBox().text;
        EXPECT_EQ(Texts(f), before);
    }
    // A short band at the 16-bit limit overflows on the next hex.
    fake.ui.boxes.clear();
    EXPECT_FALSE(f.zGetWpnData(5));
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_NE(fake.ui.LastBox().text.find("Overflow"), std::string::npos) << fake.ui.LastBox().text;
    EXPECT_EQ(Texts(f), before);
    EXPECT_EQ(f.Window.Caption(), "Medium Laser");
}

TEST_F(WeaponDataWindow, DoneCloses) {
    frmWData f;
    f.Show();
    ASSERT_TRUE(f.zGetWpnData(0));
    EXPECT_TRUE(f.Window.Visible());
    f.PButDone.DoClick();
    EXPECT_FALSE(f.Window.Visible());
    EXPECT_FALSE(f.Loaded);
}
