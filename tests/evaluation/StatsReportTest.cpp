// The stats report text and its effect on the item count; the two windows'
// captions, filling and closing.
#include "evaluation/EvalTestSupport.h"
#include "evaluation/frmCost.h"
#include "evaluation/frmVStat.h"

namespace bw::test {
namespace {

class StatsReportTest : public EvalTest {
protected:
    static Vehicle Plain() {
        Vehicle v = Design(kVhlTracked, 20);
        v.Name = "Striker";
        v.FreeTonnage = 0.5;
        v.TotalTonnage = 19.5;
        v.ArmorTonnage = 4;
        v.ArmorPoints = 64;
        v.WeaponTonnage = 3;
        v.EngineTonnage = 6;
        v.ISTonnage = 2;
        v.EngineType = kEngFusion;
        v.HeatSinks = 10;
        v.MaxItems = 5;
        return v;
    }
};

TEST_F(StatsReportTest, DesignWithoutOptions) {
    Vehicle v = Plain();
    EXPECT_EQ(zVehicleStatsText(v),
              "Unit type: Striker\r\n\r\n"
              "\tTonnage: 20\r\n"
              "\tFree tonnage: 0.5\r\n"
              "\tTotal used tonnage: 19.5\r\n"
              "\t   - 4 tons devoted to armor (64 points)\r\n"
              "\t   - 3 tons devoted to weapons and equipment\r\n"
              "\t   - 6 tons devoted to the engine\r\n"
              "\t   - 2 tons devoted to the internal structure\r\n"
              "\tHeat sinks: 10\r\n"
              "\t  - 10 Heat sinks free with engine\r\n"
              "\tMax number of items: 5\r\n");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(StatsReportTest, HeatSinkLinesByEngine) {
    Vehicle v = Plain();
    v.EngineType = kEngICE;
    v.HeatSinks = 0;  // an I.C.E. without energy weapons
    std::string text = zVehicleStatsText(v);
    EXPECT_EQ(text.find("eat sink"), std::string::npos);

    v.HeatSinks = 3;
    v.HeatSinkTonnage = 3;
    text = zVehicleStatsText(v);
    EXPECT_NE(text.find("\tHeat sinks: 3\r\n"
                        "\t  - 3 tons devoted to heat sinks\r\n"
                        "\t  - All heat sinks mounted due to energy weapon heat\r\n"
                        "\tMax number"),
              std::string::npos)
        << text;
}

TEST_F(StatsReportTest, EveryOptionAndItemSlotInOrder) {
    Vehicle v = Design(kVhlTracked, 40);
    v.Name = "Bulwark";
    v.TotalTonnage = 40;
    v.ArmorTonnage = 8;
    v.ArmorPoints = 128;
    v.ArmorType = kArmReactive;
    v.WeaponTonnage = 7;
    v.EngineType = kEngFusionXL;
    v.EngineTonnage = 6;
    v.ISTonnage = 4;
    v.TurretTonnage = 1;
    v.SecTurretTonnage = 0.5;
    v.SponsonTurretTonnage = 0.5;
    v.ControlTonnage = 2;
    v.HasMastMount = kTrue;
    v.HasSupercharger = kTrue;
    v.SuperchargerTonnage = 0.5;
    v.BaseCrew = 3;
    v.NumCrew = 4;
    v.CrewTonnage = 1;
    v.HasBridgeLayer = kTrue;
    v.BridgeLayerTonnage = 3;
    v.HasBulldozer = kTrue;
    v.BulldozerTonnage = 2;
    v.HasMinesweeper = kTrue;
    v.MinesweeperTonnage = 3;
    v.HasCoolantSystem = kTrue;
    v.CoolantSystemTonnage = 9;
    v.HasMASHUnit = kTrue;
    v.MASHTheatres = 2;
    v.MASHTonnage = 3.5;
    v.HasMobileHQ = kTrue;
    v.MobileHQTonnage = 3;
    v.HasAmphibEquip = kTrue;
    v.AmphibTonnage = 4;
    v.HasDuneBuggyEquip = kTrue;
    v.DuneBuggyTonnage = 2;
    v.HasSnowmobileEquip = kTrue;
    v.SnowmobileTonnage = 1;
    v.HasJumpJet = kTrue;
    v.JumpJetTonnage = 2;
    v.HasTC = kTrue;
    v.TCTonnage = 1;
    v.HeatSinks = 12;
    v.HeatSinkTonnage = 2;
    v.MaxItems = 25;
    Mount(v, {kMedLaser, kMedLaser, kLRM5, kLRMAmmo, kLRMAmmo});
    v.CalcItemCount();
    ASSERT_EQ(v.NumItems, 19);  // 15 for engine, armor and options, 4 for the items

    frmVStat f;
    f.vhl = &v;
    f.Form_Load();
    EXPECT_EQ(f.TStats.Text(),
              "Unit type: Bulwark\r\n\r\n"
              "\tTonnage: 40\r\n"
              "\tFree tonnage: 0\r\n"
              "\tTotal used tonnage: 40\r\n"
              "\t   - 8 tons devoted to armor (128 points)\r\n"
              "\t   - 7 tons devoted to weapons and equipment\r\n"
              "\t   - 6 tons devoted to the engine\r\n"
              "\t   - 4 tons devoted to the internal structure\r\n"
              "\t   - 1 tons devoted to a turret\r\n"
              "\t   - 0.5 tons devoted to a secondary turret\r\n"
              "\t   - 0.5 tons devoted to sponson turrets\r\n"
              "\t   - 2 tons devoted to controls\r\n"
              "\t   - .5 tons devoted to a mast mount\r\n"
              "\t   - 0.5 tons devoted to a supercharger \r\n"
              "\t   - 1 tons devoted to additional crew members\r\n"
              "\t   - 3 tons devoted to a bridge layer\r\n"
              "\t   - 2 tons devoted to a bulldozer blade\r\n"
              "\t   - 3 tons devoted to a minesweeper\r\n"
              "\t   - 9 tons devoted to a coolant system\r\n"
              "\t   - 3.5 tons devoted to a M*A*S*H* Unit\r\n"
              "\t   - 3 tons devoted to a Mobile HQ\r\n"
              "\t   - 4 tons devoted to amphibious equipment\r\n"
              "\t   - 2 tons devoted to dune buggy equipment\r\n"
              "\t   - 1 tons devoted to snowmobile equipment\r\n"
              "\t   - 2 tons devoted to jump jets\r\n"
              "\t   - 1 tons devoted to a targetting computer\r\n"
              "\tHeat sinks: 12\r\n"
              "\t  - 10 Heat sinks free with engine\r\n"
              "\t  - 2 extra tons devoted to additional heat sinks\r\n"
              "\t  - Additional heat sinks mounted due to energy weapon heat\r\n"
              "\tMax number of items: 25\r\n"
              "\tTotal items mounted: 19\r\n"
              "\t   - 3 item slots devoted to weapons and equipment\r\n"
              "\t   - 1 item slots devoted to ammunition\r\n"
              "\t   - 2 item slots devoted to Reactive armor\r\n"
              "\t   - 2 item slots devoted to a Fusion XL engine\r\n"
              "\t   - 1 item slot devoted to a supercharger\r\n"
              "\t   - 1 item slots devoted to additional crew members\r\n"
              "\t   - 1 item slot devoted to a bridge layer\r\n"
              "\t   - 1 item slot devoted to a bulldozer blade\r\n"
              "\t   - 1 item slot devoted to a minesweeper\r\n"
              "\t   - 2 items slots devoted to a coolant system\r\n"
              "\t   - 2 item slots devoted to a M*A*S*H* Unit\r\n"
              "\t   - 1 item slot devoted to a Mobile HQ\r\n"
              "\t   - 1 item slot devoted to jump jets\r\n");
    EXPECT_TRUE(fake.ui.boxes.empty());

    // The report leaves the count of items alone in NumItems; the next
    // recount by an edit puts the full figure back.
    EXPECT_EQ(v.NumItems, 4);
    EXPECT_EQ(v.WeaponItems, 3);
    EXPECT_EQ(v.AmmoItems, 1);
    v.CalcItemCount();
    EXPECT_EQ(v.NumItems, 19);
}

TEST_F(StatsReportTest, WordsByVehicleTypeAndArmor) {
    struct Case {
        int16_t type;
        const char* lift;
        const char* booster;
        const char* slot;
    };
    const Case cases[] = {
        {kVhlVTOL, " tons devoted to the rotor", "jet boosters \r\n", "1 item slot devoted to jet boosters\r\n"},
        {kVhlSubmarine, " tons devoted to dive equipment", "a supercharger \r\n",
         "1 item slot devoted to a supercharger\r\n"},
        {kVhlHover, " tons devoted to lift equipment", "a supercharger \r\n",
         "1 item slot devoted to a supercharger\r\n"},
    };
    for (const Case& c : cases) {
        Vehicle v = Plain();
        v.VhlType = c.type;
        v.LiftEqTonnage = 2.5;
        v.HasSupercharger = kTrue;
        v.SuperchargerTonnage = 1;
        v.NumItems = 1;
        const std::string text = zVehicleStatsText(v);
        EXPECT_NE(text.find(std::string("\t   - 2.5") + c.lift + "\r\n"), std::string::npos) << c.type;
        EXPECT_NE(text.find(std::string("\t   - 1 tons devoted to ") + c.booster), std::string::npos) << c.type;
        EXPECT_NE(text.find(std::string("\t   - ") + c.slot), std::string::npos) << c.type;
    }
    const char* armor[] = {nullptr,
                           "2 item slots devoted to Ferro-Fibrous armor",
                           "1 item slot devoted to Light Ferro-Fibrous armor",
                           "3 item slots devoted to Heavy Ferro-Fibrous armor",
                           "1 item slot devoted to Laser Reflective armor",
                           "2 item slots devoted to Reactive armor"};
    for (int16_t a = 0; a <= 6; ++a) {
        Vehicle v = Plain();
        v.ArmorType = a;
        v.NumItems = 2;
        const std::string text = zVehicleStatsText(v);
        EXPECT_EQ(text.find(" armor\r\n") != std::string::npos, a >= 1 && a <= 5) << a;
        if (a >= 1 && a <= 5) { EXPECT_NE(text.find(std::string("\t   - ") + armor[a] + "\r\n"), std::string::npos); }
    }
}

TEST_F(StatsReportTest, ItemLinesNeedMountedItemsAndEngineSlots) {
    // Fusion has no slots; an XL takes 2 on the Inner Sphere, 1 on the Clan.
    Vehicle v = Plain();
    v.NumItems = 1;
    EXPECT_EQ(zVehicleStatsText(v).find("item slots devoted to a "), std::string::npos);
    // The report counted the items alone: none, so without a recount there
    // is no breakdown the next time.
    EXPECT_EQ(v.NumItems, 0);
    v.EngineType = kEngFusionXL;
    v.TechBase = kBaseClan;
    v.NumItems = 1;
    EXPECT_NE(zVehicleStatsText(v).find("\t   - 1 item slots devoted to a Fusion XL engine\r\n"), std::string::npos);
    // With no item counted there is no slot breakdown at all.
    v.NumItems = 0;
    v.HasJumpJet = kTrue;
    const std::string text = zVehicleStatsText(v);
    EXPECT_EQ(text.find("Total items mounted"), std::string::npos);
    EXPECT_EQ(text.find("item slot"), std::string::npos);
}

TEST_F(StatsReportTest, WindowWithoutDesignIsReported) {
    frmVStat f;
    f.Form_Load();
    ExpectOneReport("frmVStat.Form_Load", kErrInvalidCall);
    EXPECT_EQ(f.TStats.Text(), "");
    f.Show();
    f.PButDone.DoClick();
    EXPECT_FALSE(f.Loaded);
    EXPECT_FALSE(f.Window.Visible());
}

TEST_F(StatsReportTest, CostWindowFilledForAVehicleAndRefilled) {
    Vehicle v = Hover();
    Mount(v, {kMedLaser, kLRMAmmo, kLRM5, kMedLaser, kLRMAmmo});
    frmCost f;
    EXPECT_EQ(f.Window.Caption(), "Battle Stats and Cost");
    EXPECT_EQ(f.lblAmmoSubtotal.Caption(), "Ammuntion Subtotal:");
    EXPECT_EQ(f.PButDone.Caption(), "&Done");
    f.lCV.SetVisible(false);
    zFillVehicleCost(v, f);
    zFillVehicleCost(v, f);  // a second fill does not pile up lines
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(f.lblDamVhl.Caption(), "Damage per ton of vehicle:");
    EXPECT_EQ(f.lblTotalCost.Caption(), "Vehicle Cost:");
    EXPECT_TRUE(f.lCV.Visible());
    EXPECT_EQ(f.lvParts.Count(), 8);
    EXPECT_EQ(f.lvWeapons.Count(), 2);
    EXPECT_EQ(f.lvAmmo.Count(), 1);
    EXPECT_EQ(f.lTotalCost.Caption(), "2639666");
    // Weapons 10 + 5 + (8 + 50 x 2) + 10 + 5, chassis 600, fusion 150, armor
    // 104 x 2, 4T 200, heat sinks 600, turret 5 x 5 + 200, hover 50.
    EXPECT_EQ(f.lCV.Caption(), "2171");
    // Damage: 5 + 5 + 5 at 1 to 9 hexes, 5 to 21: 15 / 50 and 15 / (1 + 2 + 1).
    EXPECT_EQ(f.lDamVhl.Caption(), "0.3 points / ton");
    EXPECT_EQ(f.lDamWeap.Caption(), "3.8 points / ton");
    f.Show();
    f.PButDone.DoClick();
    EXPECT_FALSE(f.Window.Visible());
}

}  // namespace
}  // namespace bw::test
