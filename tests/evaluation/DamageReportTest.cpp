// The damage profile, its runs and bars, and the two per-ton figures.
#include <utility>

#include "evaluation/EvalTestSupport.h"
#include "evaluation/frmCost.h"

namespace bw::test {
namespace {

using Runs = std::vector<std::pair<int32_t, int32_t>>;

class DamageReportTest : public EvalTest {};

TEST_F(DamageReportTest, NoItemsNoChart) {
    Vehicle v = Design(kVhlTracked, 20);
    frmCost f;
    zGenDamageReport(v, f);
    EXPECT_TRUE(f.wDamage.empty());
    EXPECT_TRUE(f.wRuns.empty());
    EXPECT_TRUE(f.shpDamage.empty());
    EXPECT_EQ(f.lDamVhl.Caption(), "0 points / ton");
    EXPECT_EQ(f.lDamWeap.Caption(), "0 points / ton");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(DamageReportTest, OneWeaponOneRunToLongRange) {
    Vehicle v = Design(kVhlTracked, 20);
    Mount(v, {kMedLaser});
    frmCost f;
    zGenDamageReport(v, f);
    EXPECT_EQ(f.wDamage, std::vector<int32_t>(9, 5));
    EXPECT_EQ(f.wRuns, (Runs{{5, 9}}));
    ASSERT_EQ(f.shpDamage.size(), 1u);
    const DamageShape& s = f.shpDamage[0];
    EXPECT_EQ(s.Left, 720);
    EXPECT_EQ(s.Width, 9 * 120);
    EXPECT_EQ(s.Height, 5 * 18);
    EXPECT_EQ(s.Color, 0x000000);
    EXPECT_TRUE(s.Visible);
    EXPECT_EQ(f.lDamVhl.Caption(), "0.3 points / ton");  // 0.25 rounds up to the tenth
    EXPECT_EQ(f.lDamWeap.Caption(), "5 points / ton");
}

TEST_F(DamageReportTest, TwoRangesMakeTwoRunsSideBySide) {
    Vehicle v = Design(kVhlTracked, 20);
    Mount(v, {kShortLaser, kMedLaser});
    frmCost f;
    zGenDamageReport(v, f);
    EXPECT_EQ(f.wRuns, (Runs{{10, 3}, {5, 6}}));
    ASSERT_EQ(f.shpDamage.size(), 2u);
    EXPECT_EQ(f.shpDamage[0].Left, 720);
    EXPECT_EQ(f.shpDamage[0].Width, 360);
    EXPECT_EQ(f.shpDamage[0].Height, 180);
    EXPECT_EQ(f.shpDamage[1].Left, 1080);
    EXPECT_EQ(f.shpDamage[1].Width, 720);
    EXPECT_EQ(f.shpDamage[1].Height, 90);
    EXPECT_EQ(f.lDamVhl.Caption(), "0.5 points / ton");
    EXPECT_EQ(f.lDamWeap.Caption(), "5 points / ton");
}

TEST_F(DamageReportTest, CapAtOneHundredButFiguresCountAll) {
    Vehicle v = Design(kVhlTracked, 40);
    Mount(v, {kBigGun});
    frmCost f;
    zGenDamageReport(v, f);
    EXPECT_EQ(f.wDamage, std::vector<int32_t>{120});
    EXPECT_EQ(f.wRuns, (Runs{{100, 1}}));
    ASSERT_EQ(f.shpDamage.size(), 1u);
    EXPECT_EQ(f.shpDamage[0].Height, 1800);
    EXPECT_EQ(f.shpDamage[0].Color, 0x0000FF);
    EXPECT_EQ(f.lDamVhl.Caption(), "3 points / ton");
    EXPECT_EQ(f.lDamWeap.Caption(), "12 points / ton");
    Vehicle w = Design(kVhlTracked, 40);
    Mount(w, {kBigGun, kMedLaser, kShortLaser, kShortLaser});
    zGenDamageReport(w, f);
    EXPECT_EQ(f.wDamage[0], 135);
    EXPECT_EQ(f.wRuns, (Runs{{100, 1}, {15, 2}, {5, 6}}));
    EXPECT_EQ(f.lDamVhl.Caption(), "3.4 points / ton");  // 135 / 40 = 3.375
    // 220 and 100 are both drawn at the cap: one run.
    gWeapons[kHotGun].Damage = 100;
    gWeapons[kHotGun].MedRange = 2;
    gWeapons[kHotGun].LongRange = 2;
    Vehicle x = Design(kVhlTracked, 40);
    Mount(x, {kBigGun, kHotGun});
    zGenDamageReport(x, f);
    EXPECT_EQ(f.wDamage, (std::vector<int32_t>{220, 100}));
    EXPECT_EQ(f.wRuns, (Runs{{100, 2}}));
}

TEST_F(DamageReportTest, MapWeaponsReachEveryHexOfTheChart) {
    Vehicle v = Design(kVhlTracked, 60);
    Mount(v, {kLongTom});
    frmCost f;
    zGenDamageReport(v, f);
    EXPECT_EQ(f.wDamage, std::vector<int32_t>(43, 20));
    EXPECT_EQ(f.wRuns, (Runs{{20, 43}}));
    EXPECT_EQ(f.shpDamage[0].Width, 43 * 120);
    EXPECT_EQ(f.shpDamage[0].Color, 0xFFFF00);
    EXPECT_EQ(f.lDamVhl.Caption(), "0.4 points / ton");
    EXPECT_EQ(f.lDamWeap.Caption(), "0.7 points / ton");
}

TEST_F(DamageReportTest, UnitValuesMissingBandsAndItemsThatDealNothing) {
    Vehicle v = Design(kVhlTracked, 20);
    // LRM 5 deals its unit value 5 to 21 hexes; a row without short and
    // medium bands starts at the first hex; damage 0 deals nothing whatever
    // its unit value; ammunition and equipment deal nothing and weigh
    // nothing in the weapons' tons.
    Mount(v, {kLRM5, kNoShort, kZeroSplit, kLRMAmmo, kLight});
    VehicleItem spare;  // a free element is not mounted
    spare.wType = kBigGun;
    v.Items.push_back(spare);
    frmCost f;
    zGenDamageReport(v, f);
    std::vector<int32_t> expected(21, 5);
    for (int i = 0; i < 4; ++i) expected[i] += 4;
    EXPECT_EQ(f.wDamage, expected);
    EXPECT_EQ(f.wRuns, (Runs{{9, 4}, {5, 17}}));
    EXPECT_EQ(f.lDamVhl.Caption(), "0.5 points / ton");   // 9 / 20 = 0.45
    EXPECT_EQ(f.lDamWeap.Caption(), "2.3 points / ton");  // 9 / (2 + 1 + 1)
}

TEST_F(DamageReportTest, RunOfNoDamageTakesItsPlaceButDrawsNothing) {
    Vehicle v = Design(kVhlTracked, 20);
    Mount(v, {kMedLaser, kDudMap});
    frmCost f;
    zGenDamageReport(v, f);
    EXPECT_EQ(f.wRuns, (Runs{{5, 9}, {0, 34}}));
    ASSERT_EQ(f.shpDamage.size(), 2u);
    EXPECT_FALSE(f.shpDamage[1].Visible);
    EXPECT_EQ(f.shpDamage[1].Height, 0);
    EXPECT_EQ(f.shpDamage[1].Left, 720 + 9 * 120);
}

TEST_F(DamageReportTest, ColoursByValue) {
    const std::pair<int32_t, int32_t> cases[] = {
        {1, 0x000000},   {10, 0x000000},  {11, 0xFFFF00}, {25, 0xFFFF00}, {26, 0xFF0000},
        {40, 0xFF0000},  {41, 0xFF00FF},  {60, 0xFF00FF}, {61, 0x00FF00}, {80, 0x00FF00},
        {81, 0x00FFFF},  {99, 0x00FFFF},  {100, 0x0000FF}, {5000, 0x0000FF},
    };
    for (const auto& [value, colour] : cases) EXPECT_EQ(zDamageColor(value), colour) << value;
}

TEST_F(DamageReportTest, RerunStartsAfresh) {
    Vehicle v = Design(kVhlTracked, 20);
    Mount(v, {kMedLaser});
    frmCost f;
    int charts = 0;
    f.ChartChanged = [&] { ++charts; };
    zGenDamageReport(v, f);
    zGenDamageReport(v, f);
    EXPECT_EQ(f.wRuns, (Runs{{5, 9}}));
    EXPECT_EQ(f.shpDamage.size(), 1u);
    EXPECT_EQ(charts, 2);
}

TEST_F(DamageReportTest, BadDesignsAreReported) {
    {
        Vehicle v = Design(kVhlTracked, 0);
        Mount(v, {kMedLaser});
        frmCost f;
        zGenDamageReport(v, f);
        ExpectOneReport("zGenDamageReport", kErrDivByZero);
        EXPECT_EQ(f.wRuns, (Runs{{5, 9}}));  // the chart stands
        EXPECT_EQ(f.lDamVhl.Caption(), "");
    }
    fake.ui.boxes.clear();
    {
        Vehicle v = Design(kVhlTracked, 0);
        frmCost f;
        zGenDamageReport(v, f);
        ExpectOneReport("zGenDamageReport", kErrOverflow);  // 0 / 0
    }
    fake.ui.boxes.clear();
    {
        Vehicle v = Design(kVhlTracked, 20);
        Mount(v, {kMedLaser, 77});
        frmCost f;
        zGenDamageReport(v, f);
        ExpectOneReport("zGenDamageReport", kErrSubscript);
    }
    fake.ui.boxes.clear();
    {
        // The longest band a row can give is built, not refused.
        gWeapons[kNoShort].LongRange = 32767;
        Vehicle v = Design(kVhlTracked, 20);
        Mount(v, {kNoShort});
        frmCost f;
        zGenDamageReport(v, f);
        EXPECT_TRUE(fake.ui.boxes.empty());
        EXPECT_EQ(f.wDamage.size(), 32767u);
        EXPECT_EQ(f.wRuns, (Runs{{4, 32767}}));
        EXPECT_EQ(f.shpDamage[0].Width, 32767 * 120);
    }
}

}  // namespace
}  // namespace bw::test
