// Construction arithmetic of a fighter: cockpit, engine, structure, thrust,
// jets, heat sinks, amplifiers, armor points, totals and overflow.
#include <gtest/gtest.h>

#include "FighterTestSupport.h"

using namespace bw;
using namespace bw::test;

TEST_F(FighterTest, CockpitControlsAndJetsByKindAndTonnage) {
    struct Case {
        int16_t type, tons;
        double cockpit, jets;  // jets switched on before the tonnage changes
    };
    const Case cases[] = {
        // Jets round up to a half ton: 0.25, 1.25, 1.75.
        {kFtrConventional, 5, 0.5, 0.5}, {kFtrConventional, 25, 2.5, 1.5}, {kFtrConventional, 35, 3.5, 2.0},
        // A cockpit weighs 3 tons at every size; only a conventional
        // fighter's tonnage moves its jets.
        {kFtrAerospace, 100, 3, 9}, {kFtrOmni, 65, 3, 9},
    };
    for (const Case& c : cases) {
        Fighter f = Made(c.type, 20, 5);
        f.HasVTOLJets = kTrue;
        f.VTOLJetTonnage = 9;
        f.SetTonnage(c.tons);
        EXPECT_EQ(f.CockpitTonnage, c.cockpit) << c.type << " " << c.tons;
        EXPECT_EQ(f.VTOLJetTonnage, c.jets) << c.type << " " << c.tons;
    }
    Fighter f = Made(kFtrConventional, 40, 5);
    f.SetVTOLJets(1);
    EXPECT_EQ(f.VTOLJetTonnage, 2);
    f.SetVTOLJets(-1);  // only 1 means yes
    EXPECT_EQ(f.HasVTOLJets, kFalse);
}

TEST_F(FighterTest, EngineRatingAndWeightByKindEngineAndTable) {
    struct Case {
        int16_t type, engine, tons, thrust;
        int16_t rating;
        double weight;
    };
    const Case cases[] = {
        {kFtrAerospace, kEngFusion, 65, 3, 65, 2.0},
        {kFtrConventional, kEngICE, 60, 6, 360, 66},  // base 33, doubled
        {kFtrConventional, kEngFusion, 60, 6, 360, 49.5},
        {kFtrConventional, kEngFusionXL, 60, 6, 360, 24.75},
        {kFtrAerospace, kEngFusionXL, 60, 8, 360, 16.5},  // two thrust points come free
        {kFtrOmni, 0, 60, 8, 360, 33},  // a fresh design's code 0 weighs as Fusion
        // Quarters round up: 0.375 is 0.5, 1.125 is 1.25.
        {kFtrConventional, kEngFusionXL, 5, 1, 5, 0.5},
        {kFtrConventional, kEngFusionXL, 10, 5, 50, 1.25},
        {kFtrConventional, kEngICE, 80, 5, 400, 105},  // the table's last entry
        // Off the table: 100 before the engine's factor.
        {kFtrConventional, kEngICE, 5, 0, 0, 0},
        {kFtrAerospace, kEngFusion, 5, 1, -5, 100},
        {kFtrAerospace, kEngFusion, 100, 6, 400, 52.5},
        {kFtrAerospace, kEngFusionXL, 45, 11, 405, 50},
    };
    for (const Case& c : cases) {
        Fighter f = Made(c.type, c.tons, c.thrust);
        f.SetEngineType(c.engine);
        EXPECT_EQ(f.EngineRating, c.rating) << c.type << " " << c.tons << "t thrust " << c.thrust;
        EXPECT_EQ(f.EngineTonnage, c.weight) << c.type << " " << c.tons << "t thrust " << c.thrust;
    }
    // A rating that is not a multiple of five, whichever the engine.
    struct Odd {
        int16_t type, engine;
        double weight;
    };
    for (const Odd& o : {Odd{kFtrConventional, kEngICE, 200}, Odd{kFtrConventional, kEngFusionXL, 75},
                         Odd{kFtrConventional, 7, 100}, Odd{kFtrAerospace, kEngFusion, 100}}) {
        Fighter f = Made(o.type, 50, 5);
        f.EngineType = o.engine;
        f.EngineRating = 403;
        f.CalcEngineTonnage();
        EXPECT_EQ(f.EngineTonnage, o.weight) << o.type << " engine " << o.engine;
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FighterTest, StructureDipsOnOddFivesAndOverthrustAddsHalfRoundedUp) {
    struct Case {
        int16_t tons, thrust, si, overthrust;
    };
    const Case cases[] = {
        {60, 3, 6, 5}, {65, 3, 5, 5}, {55, 3, 4, 5}, {65, 6, 6, 9}, {100, 11, 11, 17}, {5, 0, 0, 0}, {5, 1, 1, 2},
    };
    for (const Case& c : cases) {
        Fighter f = Made(kFtrAerospace, c.tons, c.thrust);
        EXPECT_EQ(f.SIRating, c.si) << c.tons << "t thrust " << c.thrust;
        EXPECT_EQ(f.FlankSpeed, c.overthrust) << c.thrust;
    }
}

TEST_F(FighterTest, EachSetterRecomputesOnlyWhatItNames) {
    Fighter f = Made(kFtrAerospace, 50, 5);  // rating 150, 5.5 tons
    ASSERT_EQ(f.EngineTonnage, 5.5);
    f.SetCruiseSpeed(6);
    EXPECT_EQ(f.SIRating, 6);
    EXPECT_EQ(f.FlankSpeed, 9);
    EXPECT_EQ(f.EngineRating, 150);  // stale until the editor asks
    EXPECT_EQ(f.EngineTonnage, 5.5);
    f.CalcEngineRating();
    EXPECT_EQ(f.EngineRating, 200);
    EXPECT_EQ(f.EngineTonnage, 8.5);

    f.SetHeatSinkType(-1);  // only 1 means double
    EXPECT_EQ(f.HeatSinkType, 0);
    f.SetHeatSinks(14);
    f.AddWeapon(kPPC);  // an aerospace fighter's sinks are the user's, whatever the heat
    EXPECT_EQ(f.HeatSinkTonnage, 4);
    f.SetType(kFtrConventional);  // the amplifiers follow the kind, nothing else does
    EXPECT_EQ(f.PowerAmpTonnage, 0);
    f.EngineType = kEngICE;
    f.SetType(kFtrConventional);
    EXPECT_DOUBLE_EQ(f.PowerAmpTonnage, 0.7);
    EXPECT_EQ(f.CockpitTonnage, 3);
}

TEST_F(FighterTest, ConventionalSinksAndAmplifiersFollowEnergyWeapons) {
    struct Case {
        int16_t engine;
        std::vector<int16_t> rows;
        int16_t sinks, sinkTons, energyHeat, weaponHeat;
        double amps;
    };
    const Case cases[] = {
        // An I.C.E. pays for every sink and needs amplifiers of a tenth of
        // the energy tonnage, rounded up to a tenth.
        {kEngICE, {kPPC, kMedLaser}, 13, 13, 13, 13, 0.8},
        {kEngICE, {kSmallLaser}, 1, 1, 1, 1, 0.1},  // 0.05 up to 0.1
        {kEngFusion, {kPPC, kMedLaser}, 13, 3, 13, 13, 0},
        {kEngFusion, {kMedLaser}, 10, 0, 3, 3, 0},
        // Only energy heat counts; a flamer's heat of -1 counts nowhere.
        {kEngICE, {kAC5, kFlamer}, 0, 0, 0, 1, 0.1},
    };
    for (const Case& c : cases) {
        Fighter f = Made(kFtrConventional, 40, 5);
        f.SetEngineType(c.engine);
        for (int16_t r : c.rows) f.AddWeapon(r);
        EXPECT_EQ(f.HeatSinks, c.sinks) << c.engine << " " << c.rows.size();
        EXPECT_EQ(f.HeatSinkTonnage, c.sinkTons) << c.engine << " " << c.rows.size();
        EXPECT_EQ(f.EnergyHeat, c.energyHeat);
        EXPECT_EQ(f.WeaponHeat, c.weaponHeat);
        EXPECT_DOUBLE_EQ(f.PowerAmpTonnage, c.amps) << c.engine << " " << c.rows.size();
    }

    // Fusion to I.C.E. with 12 energy heat: sinks and amplifiers at once.
    Fighter f = Made(kFtrConventional, 40, 5);
    f.SetEngineType(kEngFusion);
    for (int16_t r : {kPPC, kSmallLaser, kSmallLaser}) f.AddWeapon(r);
    ASSERT_EQ(f.HeatSinkTonnage, 2);
    f.SetTonnage(45);  // changes neither
    EXPECT_EQ(f.HeatSinkTonnage, 2);
    EXPECT_EQ(f.PowerAmpTonnage, 0);
    f.SetEngineType(kEngICE);
    EXPECT_EQ(f.HeatSinkTonnage, 12);
    EXPECT_DOUBLE_EQ(f.PowerAmpTonnage, 0.8);
    // A typed sink count holds only until the next weapon sum.
    f.SetHeatSinks(10);
    EXPECT_EQ(f.HeatSinkTonnage, 0);
    f.CalcWeaponTonnages();
    EXPECT_EQ(f.HeatSinkTonnage, 12);
}

TEST_F(FighterTest, ArmorPointsByTypeAndBaseWithTheFreeCockpitPoints) {
    struct Case {
        int16_t base, type;
        double tons;
        int16_t points;
    };
    const Case cases[] = {
        {kBaseInnerSphere, 0, 7.5, 120}, {kBaseClan, 1, 7.5, 144},     {kBaseInnerSphere, 1, 7.5, 134},
        {kBaseClan, 1, 0.5, 10},         {kBaseInnerSphere, 1, 0.5, 9}, {kBaseClan, 7, 0.5, 10},  // any type but 0
        // 16 × tons converts half to even.
        {kBaseClan, 0, 1.03125, 16},     {kBaseClan, 0, 1.09375, 18},   {kBaseClan, 0, 0, 0},
    };
    for (const Case& c : cases) {
        Fighter f = Made(kFtrAerospace, 50, 5, c.base);
        f.SetArmorType(c.type);
        f.SetArmorTonnage(c.tons);
        EXPECT_EQ(f.ArmorPoints, c.points) << c.base << " " << c.type << " " << c.tons;
    }

    Fighter aero = Made(kFtrAerospace, 50, 5);
    aero.SetArmorLoc(4, 10);
    EXPECT_EQ(aero.ArmorAllocated, 0);
    aero.SetArmorLoc(4, 0);  // a design that skipped the editor
    EXPECT_EQ(aero.ArmorAllocated, -10);
    for (int16_t loc = 0; loc < 6; ++loc) aero.SetArmorLoc(loc, static_cast<int16_t>(1 << loc));
    EXPECT_EQ(aero.FrontArmor + 2 * aero.LeftArmor + 3 * aero.RightArmor + 4 * aero.FuselageArmor +
                  5 * aero.CPArmor + 6 * aero.EngineArmor,
              1 + 4 + 12 + 32 + 80 + 192);  // each in its own field
    EXPECT_EQ(aero.ArmorAllocated, 53);
    Fighter conv = Made(kFtrConventional, 50, 5);
    for (int16_t loc = 0; loc < 6; ++loc) conv.SetArmorLoc(loc, 4);
    EXPECT_EQ(conv.ArmorAllocated, 24);
    // No such location: nothing written, the points recomputed all the same.
    conv.ArmorTonnage = 2;
    conv.SetArmorLoc(6, 99);
    conv.SetArmorLoc(-1, 99);
    EXPECT_EQ(conv.ArmorAllocated, 24);
    EXPECT_EQ(conv.ArmorPoints, 32);
}

TEST_F(FighterTest, TotalsAreExactExceptOnAnOmniFighter) {
    auto load = [](int16_t type) {
        Fighter f = Made(type, 50, 5);
        f.EngineTonnage = 10;
        f.HeatSinkTonnage = 2;
        f.ArmorTonnage = 5;
        f.FuelTonnage = 5;
        f.CockpitTonnage = 3;
        f.WeaponTonnage = 1.1;
        f.TCTonnage = 1;
        f.VTOLJetTonnage = 0.5;
        f.PowerAmpTonnage = 0.25;
        f.CalcTotalTonnage();
        return f;
    };
    const Fighter aero = load(kFtrAerospace);
    EXPECT_DOUBLE_EQ(aero.TotalTonnage, 27.85);
    EXPECT_DOUBLE_EQ(aero.FreeTonnage, 22.15);
    EXPECT_EQ(aero.OmniTotalTonnage[0], 0);
    Fighter omni = load(kFtrOmni);  // 27.1 without jets and amplifiers
    EXPECT_EQ(omni.TotalTonnage, 27.25);
    EXPECT_EQ(omni.FreeTonnage, 22.75);
    EXPECT_EQ(omni.OmniTotalTonnage[0], 27.25);
    EXPECT_EQ(omni.OmniFreeTonnage[0], 22.75);
    // Overweight goes away from zero.
    omni.Tonnage = 27;
    omni.OmniCurrentConfig = 2;
    omni.CalcTotalTonnage();
    EXPECT_EQ(omni.FreeTonnage, -0.25);
    EXPECT_EQ(omni.OmniFreeTonnage[2], -0.25);
    EXPECT_EQ(omni.OmniFreeTonnage[0], 22.75);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FighterTest, SixteenBitOverflowIsReportedNotWrapped) {
    Fighter f = Made(kFtrConventional, 50, 45);  // rating 2250
    f.SetTonnage(800);                           // 36000 does not fit
    ExpectOneReport("Fighter.CalcEngineRating", kErrOverflow);
    EXPECT_EQ(f.EngineRating, 2250);
    EXPECT_EQ(f.SIRating, 80);  // the rest of SetTonnage still ran

    fake.ui.boxes.clear();
    Fighter a = Made(kFtrAerospace, 50, 5);
    a.SetHeatSinks(-32768);
    ExpectOneReport("Fighter.SetHeatSinks", kErrOverflow);
    EXPECT_EQ(a.HeatSinkTonnage, 0);
}
