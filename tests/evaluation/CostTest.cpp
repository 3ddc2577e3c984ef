// Parts, weapons and total cost of a vehicle, and its combat value.
#include <utility>

#include "evaluation/EvalTestSupport.h"
#include "evaluation/frmCost.h"

namespace bw::test {
namespace {

using Lines = std::vector<std::pair<std::string, std::string>>;

Lines LinesOf(const ListView& lv) {
    Lines out;
    for (int32_t i = 0; i < lv.Count(); ++i) out.emplace_back(lv.Item(i).Text, lv.Item(i).SubItem(1));
    return out;
}

class PartsCostTest : public EvalTest {};

TEST_F(PartsCostTest, HoverWithTurretLiftAndCrew) {
    Vehicle v = Hover();  // 2.5 t of controls round half to even: 2
    frmCost f;
    zGenPartsCost(v, f);
    EXPECT_EQ(LinesOf(f.lvParts), (Lines{{"250 power rated Fusion power plant", "833333"},
                                         {"Control Components", "20000"},
                                         {"Internal Structure", "50000"},
                                         {"Heat Sinks", "4000"},
                                         {"6.5 tons armor (Ferro-Fibrous)", "130000"},
                                         {"Main Turret", "7500"},
                                         {"Lift Equipment", "100000"},
                                         {"Additional Crew", "5000"}}));
    EXPECT_EQ(f.lPartsSubtotal.Caption(), "1149833");
    EXPECT_EQ(f.lVhlMultiplier.Caption(), "x 2");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(PartsCostTest, VtolWordsAndPricesNoArmorLine) {
    Vehicle v = Design(kVhlVTOL, 30);
    v.EngineType = kEngICE;
    v.EngineRating = 90;
    v.ISTonnage = 3;
    v.HasTurret = kTrue;
    v.TurretTonnage = 0.5;
    v.LiftEqTonnage = 3;
    v.HasSupercharger = kTrue;
    v.HasMastMount = kTrue;
    frmCost f;
    zGenPartsCost(v, f);
    // An I.C.E. pays every heat sink, none here; no armor, no armor line.
    EXPECT_EQ(LinesOf(f.lvParts), (Lines{{"90 power rated I.C.E. power plant", "45000"},
                                         {"Internal Structure", "30000"},
                                         {"Heat Sinks", "0"},
                                         {"Chin Turret", "2500"},
                                         {"Rotor", "120000"},
                                         {"Jet Boosters", "900000"},
                                         {"Mast Mount", "50000"}}));
    EXPECT_EQ(f.lPartsSubtotal.Caption(), "1147500");
    EXPECT_EQ(f.lVhlMultiplier.Caption(), "x 2");
}

TEST_F(PartsCostTest, EveryOptionInItsPlace) {
    Vehicle v = Design(kVhlTracked, 40);
    v.EngineType = kEngFusionXL;
    v.EngineRating = 160;
    v.ISTonnage = 4;
    v.HeatSinks = 10;
    v.ArmorTonnage = 8;
    v.ArmorType = kArmReactive;
    v.PowerAmpTonnage = 1.5;
    v.HasTurret = kTrue;
    v.TurretTonnage = 2;
    v.HasSecTurret = kTrue;
    v.SecTurretTonnage = 1;
    v.HasSponsonTurrets = kTrue;
    v.SponsonTurretTonnage = 0.5;
    v.HasAmphibEquip = kTrue;
    v.AmphibTonnage = 4;
    v.HasBridgeLayer = kTrue;
    v.BridgeLayerType = 1;
    v.HasBulldozer = kTrue;
    v.HasCoolantSystem = kTrue;
    v.CoolantSystemTonnage = 9;
    v.HasDuneBuggyEquip = kTrue;
    v.HasSupercharger = kTrue;
    v.HasMASHUnit = kTrue;
    v.MASHTonnage = 3.5;
    v.HasMastMount = kTrue;
    v.HasMinesweeper = kTrue;
    v.HasMobileHQ = kTrue;
    v.MobileHQTonnage = 3;
    v.HasSnowmobileEquip = kTrue;
    v.HasJumpJet = kTrue;
    v.NumJumpJets = 3;
    v.HasTC = kTrue;
    frmCost f;
    zGenPartsCost(v, f);
    EXPECT_EQ(LinesOf(f.lvParts), (Lines{{"160 power rated Fusion XL power plant", "1706667"},
                                         {"Internal Structure", "40000"},
                                         {"Heat Sinks", "0"},
                                         {"8 tons armor (Reactive)", "240000"},
                                         {"Power Amplifiers", "30000"},
                                         {"Main Turret", "10000"},
                                         {"Secondary Turret", "5000"},
                                         {"Sponson Turrets", "2000"},
                                         {"Amphibious Equipment", "40000"},
                                         {"Bridge Layer - Medium", "75000"},
                                         {"Bulldozer Blade", "50000"},
                                         {"Coolant System", "90000"},
                                         {"Dune Buggy Equipment", "16000"},
                                         {"Supercharger", "1600000"},
                                         {"M*A*S*H* Unit", "35000"},
                                         {"Mast Mount", "50000"},
                                         {"Mine Sweeper", "40000"},
                                         {"Mobile HQ", "30000"},
                                         {"Snowmobile Equipment", "16000"},
                                         {"Jump Jets", "72000"},
                                         {"Targetting Computer", "0"}}));
    EXPECT_EQ(f.lPartsSubtotal.Caption(), "4147667");
    EXPECT_EQ(f.lVhlMultiplier.Caption(), "x 1.4");
}

TEST_F(PartsCostTest, ArmorRatesBridgeTypesAndWholeTonRounding) {
    const int32_t rates[] = {10000, 20000, 15000, 25000, 30000, 30000};
    const char* names[] = {"Normal", "Ferro-Fibrous", "Light Ferro-Fibrous", "Heavy Ferro-Fibrous",
                           "Laser Reflective", "Reactive"};
    for (int16_t a = 0; a <= 5; ++a) {
        Vehicle v = Design(kVhlTracked, 20);
        v.ArmorType = a;
        v.ArmorTonnage = 1.25;
        frmCost f;
        zGenPartsCost(v, f);
        // The armor price is rounded up to a whole C-bill: 1.25 t at 15000 is exact,
        // the others too; the line follows heat sinks.
        ASSERT_EQ(f.lvParts.Count(), 4) << a;
        EXPECT_EQ(f.lvParts.Item(3).Text, std::string("1.25 tons armor (") + names[a] + ")");
        EXPECT_EQ(f.lvParts.Item(3).SubItem(1), std::to_string(rates[a] * 5 / 4)) << a;
    }
    {
        Vehicle v = Design(kVhlTracked, 20);
        v.ArmorTonnage = 0.00001;  // 0.1 C-bill rounds up to 1
        frmCost f;
        zGenPartsCost(v, f);
        EXPECT_EQ(f.lvParts.Item(3).SubItem(1), "1");
    }
    const char* bridges[] = {"Bridge Layer - Light", "Bridge Layer - Medium", "Bridge Layer - Heavy"};
    const char* prices[] = {"40000", "75000", "100000"};
    for (int16_t b = 0; b <= 2; ++b) {
        Vehicle v = Design(kVhlWheeled, 20);
        v.HasBridgeLayer = kTrue;
        v.BridgeLayerType = b;
        frmCost f;
        zGenPartsCost(v, f);
        ASSERT_EQ(f.lvParts.Count(), 4);
        EXPECT_EQ(f.lvParts.Item(3).Text, bridges[b]);
        EXPECT_EQ(f.lvParts.Item(3).SubItem(1), prices[b]);
    }
    // Whole tons of structure, controls, amphibious and lift gear round half to even.
    Vehicle v = Design(kVhlSubmarine, 50);
    v.ISTonnage = 3.5;
    v.ControlTonnage = 0.5;
    v.LiftEqTonnage = 4.5;
    v.HasAmphibEquip = kTrue;
    v.AmphibTonnage = 1.5;
    frmCost f;
    zGenPartsCost(v, f);
    EXPECT_EQ(LinesOf(f.lvParts), (Lines{{"0 power rated I.C.E. power plant", "0"},
                                         {"Control Components", "0"},
                                         {"Internal Structure", "40000"},
                                         {"Heat Sinks", "0"},
                                         {"Dive Equipment", "80000"},
                                         {"Amphibious Equipment", "20000"}}));
}

TEST_F(PartsCostTest, FusionHeatSinksBelowTheFreeTenAreCredited) {
    Vehicle v = Design(kVhlTracked, 20);
    v.EngineType = kEngFusion;
    v.HeatSinks = 4;
    frmCost f;
    zGenPartsCost(v, f);
    EXPECT_EQ(f.lvParts.Item(2).Text, "Heat Sinks");
    EXPECT_EQ(f.lvParts.Item(2).SubItem(1), "-12000");
    EXPECT_EQ(f.lPartsSubtotal.Caption(), "-12000");
}

TEST_F(PartsCostTest, MultiplierByVehicleType) {
    const char* expected[] = {"x 1.5", "x 1.3", "x 2", "x 2.7", "x 1.7", "x 1.3", "x 2", "x 1.7"};
    for (int16_t t = 0; t <= 7; ++t) {
        Vehicle v = Design(t, 50);
        frmCost f;
        zGenPartsCost(v, f);
        EXPECT_EQ(f.lVhlMultiplier.Caption(), expected[t]) << t;
    }
}

TEST_F(PartsCostTest, UnknownTypeAndOverflowAreReported) {
    auto report = [&](Vehicle v, frmCost& f) {
        fake.ui.boxes.clear();
        zGenPartsCost(v, f);
    };
    Vehicle v = Design(8, 50);
    v.ISTonnage = 5;
    frmCost f;
    report(v, f);
    ExpectOneReport("zGenPartsCost", kErrDivByZero);
    EXPECT_EQ(f.lvParts.Count(), 3);  // the lines stay, the figures are not written
    EXPECT_EQ(f.lPartsSubtotal.Caption(), "");
    EXPECT_EQ(f.lVhlMultiplier.Caption(), "");

    // 100 t x 400 jump jets squared x 200 is past 32 bits.
    v = Design(kVhlTracked, 100);
    v.HasJumpJet = kTrue;
    v.NumJumpJets = 400;
    frmCost jets;
    report(v, jets);
    ExpectOneReport("zGenPartsCost", kErrOverflow);

    // One line's price past 32 bits.
    v = Design(kVhlTracked, 100);
    v.EngineType = kEngLargeFusionXXL;
    v.EngineRating = 32767;
    frmCost line;
    report(v, line);
    ExpectOneReport("zGenPartsCost", kErrOverflow);
    EXPECT_EQ(line.lvParts.Count(), 0);

    // Each line fits (2133333333 for the engine); their sum does not.
    v.EngineRating = 8000;
    v.ISTonnage = 5;
    v.HasSupercharger = kTrue;
    frmCost sum;
    report(v, sum);
    ExpectOneReport("zGenPartsCost", kErrOverflow);
    EXPECT_EQ(sum.lvParts.Item(0).SubItem(1), "2133333333");
    EXPECT_EQ(sum.lPartsSubtotal.Caption(), "");
}

class WeapCostTest : public EvalTest {};

TEST_F(WeapCostTest, GroupsByRowInFirstSeenOrderAndTotals) {
    Vehicle v = Hover();
    Mount(v, {kMedLaser, kLRMAmmo, kLRM5, kMedLaser, kLRMAmmo});
    VehicleItem spare;  // a free element costs nothing
    spare.wType = kBigGun;
    v.Items.push_back(spare);
    frmCost f;
    f.lPartsSubtotal.SetCaption("1149833");
    f.lVhlMultiplier.SetCaption("x 2");
    zGenWeapCost(v, f);
    EXPECT_EQ(LinesOf(f.lvWeapons), (Lines{{"(2) Medium Laser", "80000"}, {"(1) LRM 5", "30000"}}));
    EXPECT_EQ(LinesOf(f.lvAmmo), (Lines{{"(2) LRM 5 Ammo", "60000"}}));
    EXPECT_EQ(f.lWeapSubtotal.Caption(), "110000");
    EXPECT_EQ(f.lAmmoSubtotal.Caption(), "60000");
    EXPECT_EQ(f.lTotalCost.Caption(), "2639666");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(WeapCostTest, TotalReadsTheLabelsAndRoundsHalfToEven) {
    frmCost f;
    f.lVhlMultiplier.SetCaption("x 1.5");
    f.lPartsSubtotal.SetCaption("1001");
    zGenWeapCost(std::vector<int16_t>{}, f, true);
    EXPECT_EQ(f.lWeapSubtotal.Caption(), "0");
    EXPECT_EQ(f.lAmmoSubtotal.Caption(), "0");
    EXPECT_EQ(f.lTotalCost.Caption(), "1502");  // 1501.5
    f.lPartsSubtotal.SetCaption("1003");
    zGenWeapCost(std::vector<int16_t>{}, f, true);
    EXPECT_EQ(f.lTotalCost.Caption(), "1504");  // 1504.5
    // The fighter's way: no total here.
    frmCost g;
    zGenWeapCost(std::vector<int16_t>{kLight, kLight}, g, false);
    EXPECT_EQ(LinesOf(g.lvWeapons), (Lines{{"(2) Searchlight", "4000"}}));
    EXPECT_EQ(g.lTotalCost.Caption(), "");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(WeapCostTest, MissingPartsFiguresOrOverflowAreReported) {
    frmCost f;  // the parts report never ran
    zGenWeapCost(std::vector<int16_t>{kMedLaser}, f, true);
    ExpectOneReport("zGenWeapCost", kErrTypeMismatch);
    EXPECT_EQ(f.lWeapSubtotal.Caption(), "40000");
    EXPECT_EQ(f.lTotalCost.Caption(), "");
    fake.ui.boxes.clear();

    f.lVhlMultiplier.SetCaption("x 2");
    f.lPartsSubtotal.SetCaption("2000000000");
    zGenWeapCost(std::vector<int16_t>{kMedLaser}, f, true);  // sum fits, doubled does not
    ExpectOneReport("zGenWeapCost", kErrOverflow);
    fake.ui.boxes.clear();

    f.lPartsSubtotal.SetCaption("2147483647");
    zGenWeapCost(std::vector<int16_t>{kMedLaser}, f, true);  // the sum itself overflows
    ExpectOneReport("zGenWeapCost", kErrOverflow);
    fake.ui.boxes.clear();

    zGenWeapCost(std::vector<int16_t>{99}, f, false);  // no such row
    ExpectOneReport("zGenWeapCost", kErrSubscript);
}

class CombatValueTest : public EvalTest {};

TEST_F(CombatValueTest, EmptyDesignsByType) {
    // Chassis + I.C.E. 2T + 4T + 0 heat sinks + 4 x roundup(T/10), and T again
    // for hover, V.T.O.L., hydrofoil and submarine.
    const int32_t expected[] = {288, 328, 388, 348, 308, 248, 308, 128};
    for (int16_t t = 0; t <= 7; ++t) {
        Vehicle v = Design(t, 20);
        EXPECT_EQ(zCombatValue(v), expected[t]) << t;
    }
}

TEST_F(CombatValueTest, EngineArmorHeatSinksAndTurret) {
    Vehicle v = Design(kVhlTracked, 20);
    v.EngineType = kEngFusion;
    EXPECT_EQ(zCombatValue(v), 288 - 40 + 60);
    v.EngineType = kEngFusionXL;
    EXPECT_EQ(zCombatValue(v), 288 - 40 + 120);
    v.EngineType = kEngLargeICE;  // no engine figure
    EXPECT_EQ(zCombatValue(v), 248);
    v.EngineType = kEngICE;
    v.ArmorPoints = 50;
    EXPECT_EQ(zCombatValue(v), 338);
    v.ArmorType = kArmLaserReflective;
    EXPECT_EQ(zCombatValue(v), 388);
    v.HeatSinks = 10;
    EXPECT_EQ(zCombatValue(v), 588);

    Vehicle t = Design(kVhlTracked, 25);  // 200 + 50 + 100 + roundup(2.5)
    EXPECT_EQ(zCombatValue(t), 350 + 3 * 4);
    t.HasTurret = kTrue;
    EXPECT_EQ(zCombatValue(t), 350 + 3 * 5 + 100);
}

TEST_F(CombatValueTest, WeaponValuesAndHeat) {
    Vehicle v = Design(kVhlTracked, 20);
    // Energy and equipment: value only. Others: value plus T x heat. -1: nothing.
    Mount(v, {kMedLaser, kLRM5, kLRMAmmo, kLight, kHeatTool, kColdGun, kBigGun});
    VehicleItem spare;
    spare.wType = kLongTom;
    v.Items.push_back(spare);
    EXPECT_EQ(zCombatValue(v), 288 + 10 + (8 + 40) + 5 + 2 + (20 + 60));
    frmCost f;
    zGenCombatValue(v, f);
    EXPECT_EQ(f.lCV.Caption(), "433");
}

TEST_F(CombatValueTest, SixteenBitProductsOverflow) {
    Vehicle v = Design(kVhlTracked, 100);
    v.HeatSinks = 327;  // 32700 fits
    frmCost f;
    zGenCombatValue(v, f);
    EXPECT_EQ(f.lCV.Caption(), "34140");
    EXPECT_TRUE(fake.ui.boxes.empty());
    v.HeatSinks = 328;
    f.lCV.SetCaption("old");
    zGenCombatValue(v, f);
    ExpectOneReport("zGenCombatValue", kErrOverflow);
    EXPECT_EQ(f.lCV.Caption(), "old");
    fake.ui.boxes.clear();

    Vehicle h = Design(kVhlTracked, 100);
    Mount(h, {kHotGun});  // 100 x 400
    zGenCombatValue(h, f);
    ExpectOneReport("zGenCombatValue", kErrOverflow);
    fake.ui.boxes.clear();

    Vehicle a = Design(kVhlTracked, 10);
    a.ArmorType = kArmFerroFibrous;
    a.ArmorPoints = 20000;  // doubled past 16 bits
    zGenCombatValue(a, f);
    ExpectOneReport("zGenCombatValue", kErrOverflow);
}

}  // namespace
}  // namespace bw::test
