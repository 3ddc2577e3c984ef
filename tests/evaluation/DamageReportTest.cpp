// The damage profile, its runs and bars, and the two per-ton figures.
#include <tuple>
#include <utility>

#include "evaluation/EvalTestSupport.h"
#include "evaluation/frmCost.h"

namespace bw::test {
namespace {

using Runs = std::vector<std::pair<int32_t, int32_t>>;

class DamageReportTest : public EvalTest {};

// One bar of the chart: left, width, height, colour, shown.
using Bar = std::tuple<int32_t, int32_t, int32_t, int32_t, bool>;

TEST_F(DamageReportTest, ProfileRunsBarsAndFiguresByDesign) {
    struct Case {
        const char* what;
        int16_t tons;
        std::vector<int16_t> mounts;
        Runs runs;
        std::vector<Bar> bars;
        const char* perVehicle;
        const char* perWeaponTon;
    };
    const Case cases[] = {
        {"no items, no chart", 20, {}, {}, {}, "0", "0"},
        // 0.25 rounds up to the tenth.
        {"one weapon, one run to long range", 20, {kMedLaser}, {{5, 9}}, {{720, 9 * 120, 5 * 18, 0, true}}, "0.3", "5"},
        {"two ranges, two runs side by side", 20, {kShortLaser, kMedLaser}, {{10, 3}, {5, 6}},
         {{720, 360, 180, 0, true}, {1080, 720, 90, 0, true}}, "0.5", "5"},
        {"map weapons reach every hex of the chart", 60, {kLongTom}, {{20, 43}},
         {{720, 43 * 120, 360, 0xFFFF00, true}}, "0.4", "0.7"},
        // LRM 5 deals its unit value 5 to 21 hexes; a row without short and
        // medium bands starts at the first hex; damage 0 deals nothing
        // whatever its unit value; ammunition and equipment deal nothing and
        // weigh nothing in the weapons' tons: 9 / 20 = 0.45, 9 / (2 + 1 + 1).
        {"unit values, missing bands, items that deal nothing", 20, {kLRM5, kNoShort, kZeroSplit, kLRMAmmo, kLight},
         {{9, 4}, {5, 17}}, {{720, 480, 162, 0, true}, {1200, 17 * 120, 90, 0, true}}, "0.5", "2.3"},
        // A run of no damage takes its place but draws nothing.
        {"run of no damage", 20, {kMedLaser, kDudMap}, {{5, 9}, {0, 34}},
         {{720, 1080, 90, 0, true}, {720 + 9 * 120, 34 * 120, 0, 0, false}}, "0.3", "0.5"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Vehicle v = Design(kVhlTracked, c.tons);
        Mount(v, c.mounts);
        VehicleItem spare;  // a free element is not mounted
        spare.wType = kBigGun;
        v.Items.push_back(spare);
        frmCost f;
        zGenDamageReport(v, f);
        std::vector<int32_t> damage;
        for (const auto& [value, hexes] : c.runs) damage.insert(damage.end(), hexes, value);
        EXPECT_EQ(f.wDamage, damage);
        EXPECT_EQ(f.wRuns, c.runs);
        std::vector<Bar> bars;
        for (const DamageShape& s : f.shpDamage) bars.emplace_back(s.Left, s.Width, s.Height, s.Color, s.Visible);
        EXPECT_EQ(bars, c.bars);
        EXPECT_EQ(f.lDamVhl.Caption(), std::string(c.perVehicle) + " points / ton");
        EXPECT_EQ(f.lDamWeap.Caption(), std::string(c.perWeaponTon) + " points / ton");
        EXPECT_TRUE(fake.ui.boxes.empty());
    }
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
