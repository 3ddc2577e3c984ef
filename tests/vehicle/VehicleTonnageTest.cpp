// Construction arithmetic: engine, structure, suspension, crew, heat sinks,
// power amplifiers, totals and overflow.
#include <gtest/gtest.h>

#include <utility>

#include "VehicleTestSupport.h"

using namespace bw;
using namespace bw::test;

TEST_F(VehicleTest, EngineWeightByTypeTableAndRounding) {
    struct Case {
        int16_t type, tons, speed, engine;
        double weight;
    };
    const Case cases[] = {
        // 50 tons at 4 points: rating 200, base 8.5, under every engine.
        {kVhlTracked, 50, 4, kEngICE, 17},          {kVhlTracked, 50, 4, kEngFusion, 13},
        {kVhlTracked, 50, 4, kEngFusionXL, 6},      {kVhlTracked, 50, 4, kEngLargeICE, 17},
        {kVhlTracked, 50, 4, kEngFusionXXL, 4},     {kVhlTracked, 50, 4, kEngLargeFusionXL, 6},
        {kVhlTracked, 50, 4, kEngLargeFusionXXL, 4}, {kVhlTracked, 50, 4, kEngLargeFusion, 13},
        {kVhlTracked, 50, 4, 8, 0},                 {kVhlTracked, 50, 4, -1, 0},
        // Conversions round half to even: 4.5 -> 4, 7.5 -> 8, 0.375 -> 0.
        {kVhlTracked, 25, 4, kEngFusion, 4},        {kVhlTracked, 35, 4, kEngFusion, 8},
        {kVhlTracked, 5, 1, kEngFusionXL, 0},
        // A rating off the base table weighs 100 before the multiplier,
        // above 400 too unless the engine is large.
        {kVhlTracked, 29, 7, kEngICE, 200},         {kVhlTracked, 29, 7, kEngFusion, 150},
        {kVhlSuperHeavy, 100, 5, kEngFusion, 150},  {kVhlSuperHeavy, 100, 5, kEngICE, 200},
        // Large engines take their own table from 401: rating 500, base 462.5.
        {kVhlSuperHeavy, 100, 5, kEngLargeICE, 925},
        {kVhlSuperHeavy, 100, 5, kEngLargeFusion, 694},     // 693.75
        {kVhlSuperHeavy, 100, 5, kEngLargeFusionXL, 347},   // 346.875
        {kVhlSuperHeavy, 100, 5, kEngLargeFusionXXL, 231},  // 231.25
        {kVhlSuperHeavy, 81, 5, kEngLargeFusion, 85},       // rating 405, base 56.5: 84.75
        {kVhlSuperHeavy, 100, 4, kEngLargeFusion, 79},      // 400 stays on the base table: 78.75
    };
    for (const Case& c : cases) {
        Vehicle v = Made(c.type, c.tons, c.speed);
        v.SetEngineType(c.engine);
        EXPECT_EQ(v.EngineTonnage, c.weight) << c.type << " " << c.tons << "t at " << c.speed << ", engine " << c.engine;
    }
    EXPECT_EQ(Made(kVhlTracked, 29, 7).EngineRating, 203);
    // A rating above 400 that the large table lacks gives 0.
    Vehicle v = Made(kVhlSuperHeavy, 100, 4);
    v.SetEngineType(kEngLargeFusion);
    v.EngineRating = 401;
    v.CalcEngineTonnage();
    EXPECT_EQ(v.EngineTonnage, 0);

    const std::pair<int16_t, double> base[] = {{0, 0},     {5, 0.5},   {200, 8.5}, {275, 15.5},
                                               {400, 52.5}, {3, 100},  {-5, 100},  {405, 100}};
    for (auto [rating, weight] : base) EXPECT_EQ(zBaseEngineWeight(rating), weight) << rating;
    const std::pair<int16_t, double> large[] = {{400, 0}, {405, 56.5}, {450, 133.5}, {500, 462.5}, {503, 0}, {505, 0}};
    for (auto [rating, weight] : large) EXPECT_EQ(zLargeEngineWeight(rating), weight) << rating;
}

TEST_F(VehicleTest, SuperchargerFollowsTheEngine) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.SetSupercharger(1);
    EXPECT_EQ(v.HasSupercharger, kTrue);
    EXPECT_EQ(v.SuperchargerTonnage, 2);  // 17 / 10 -> 2
    v.SetEngineType(kEngFusion);
    EXPECT_EQ(v.SuperchargerTonnage, 1.5);  // 13 / 10 -> 1.5
    // Only 1 means yes.
    v.SetSupercharger(kTrue);
    EXPECT_EQ(v.HasSupercharger, kFalse);
    EXPECT_EQ(v.SuperchargerTonnage, 0);
}

TEST_F(VehicleTest, SuspensionFactorByTypeAndTonnage) {
    const std::pair<int16_t, int16_t> hover[] = {{5, 40},    {10, 40},  {11, 85},  {20, 85}, {21, 130},
                                                 {30, 130},  {31, 175}, {40, 175}, {41, 235}, {50, 235},
                                                 {51, 0}};
    for (auto [t, f] : hover) EXPECT_EQ(zSuspensionFactor(kVhlHover, t), f) << t;
    const std::pair<int16_t, int16_t> vtol[] = {{10, 50}, {11, 95}, {20, 95}, {21, 140}, {30, 140}, {31, 0}};
    for (auto [t, f] : vtol) EXPECT_EQ(zSuspensionFactor(kVhlVTOL, t), f) << t;
    const std::pair<int16_t, int16_t> hydro[] = {{0, 0},    {1, 60},    {10, 60},   {11, 105}, {41, 255},
                                                 {60, 300}, {61, 345},  {80, 390},  {90, 435}, {91, 480},
                                                 {100, 480}, {101, 0},  {-5, 0}};
    for (auto [t, f] : hydro) EXPECT_EQ(zSuspensionFactor(kVhlHydrofoil, t), f) << t;
    for (int16_t t : {5, 100, 300}) {
        EXPECT_EQ(zSuspensionFactor(kVhlTracked, t), 0);
        EXPECT_EQ(zSuspensionFactor(kVhlWheeled, t), 20);
        EXPECT_EQ(zSuspensionFactor(kVhlNaval, t), 30);
        EXPECT_EQ(zSuspensionFactor(kVhlSubmarine, t), 30);
        EXPECT_EQ(zSuspensionFactor(kVhlSuperHeavy, t), 0);
        EXPECT_EQ(zSuspensionFactor(8, t), 0);
    }
}

TEST_F(VehicleTest, SuspensionEntersTheRating) {
    Vehicle v = Made(kVhlHover, 20, 8);
    EXPECT_EQ(v.SuspensionFactor, 85);
    EXPECT_EQ(v.EngineRating, 20 * 8 - 85);
    // A changed type takes the factor at once, the rating only when recomputed.
    v.SetType(kVhlWheeled);
    EXPECT_EQ(v.SuspensionFactor, 20);
    EXPECT_EQ(v.EngineRating, 75);
    v.CalcEngineRating();
    EXPECT_EQ(v.EngineRating, 140);
}

TEST_F(VehicleTest, StructureControlsAndLiftInSinglePrecision) {
    Vehicle v = Made(kVhlTracked, 33, 1);
    EXPECT_EQ(v.ISTonnage, static_cast<double>(33.0f / 10.0f));
    EXPECT_NE(v.ISTonnage, 3.3);
    EXPECT_EQ(v.LiftEqTonnage, 0);
    EXPECT_EQ(v.ControlTonnage, 2);  // 1.65 up to a half ton
    v.SetTonnage(55);
    EXPECT_EQ(v.ISTonnage, 5.5);
    EXPECT_EQ(v.ControlTonnage, 3);  // 2.75
    EXPECT_EQ(v.MaxItems, 16);
    v.SetTonnage(54);
    EXPECT_EQ(v.MaxItems, 15);
    v.SetTonnage(50);
    EXPECT_EQ(v.ControlTonnage, 2.5);

    for (int16_t type : {kVhlHover, kVhlVTOL, kVhlHydrofoil, kVhlSubmarine}) {
        Vehicle l = Made(type, 23, 1);
        EXPECT_EQ(l.LiftEqTonnage, static_cast<double>(23.0f / 10.0f)) << type;
    }
    for (int16_t type : {kVhlTracked, kVhlWheeled, kVhlNaval, kVhlSuperHeavy})
        EXPECT_EQ(Made(type, 30, 1).LiftEqTonnage, 0) << type;

    // The double structure of the super heavy tank; it is not half-ton rounded.
    EXPECT_EQ(Made(kVhlSuperHeavy, 101, 1).ISTonnage, static_cast<double>(101.0f / 5.0f));
    // A changed type leaves the structure until the next tonnage.
    Vehicle t = Made(kVhlTracked, 50, 2);
    t.SetType(kVhlSuperHeavy);
    EXPECT_EQ(t.ISTonnage, 5);
    t.SetTonnage(100);
    EXPECT_EQ(t.ISTonnage, 20);
}

TEST_F(VehicleTest, FlankSpeedIsCruiseAndHalfRoundedUp) {
    Vehicle v = Detached();
    const std::pair<int16_t, int16_t> cases[] = {{1, 2}, {2, 3}, {3, 5}, {4, 6}, {0, 0}, {-3, -4}};
    for (auto [c, f] : cases) {
        v.SetCruiseSpeed(c);
        EXPECT_EQ(v.FlankSpeed, f) << c;
    }
    // Nothing else follows the speed.
    EXPECT_EQ(v.EngineRating, 0);
}

TEST_F(VehicleTest, CrewByTonnage) {
    const std::pair<int16_t, int16_t> cases[] = {{5, 1}, {15, 1}, {16, 2}, {30, 2}, {31, 3}, {45, 3}, {46, 4}, {300, 20}};
    for (auto [t, c] : cases) {
        Vehicle v = Made(kVhlNaval, t, 1, 0, 2);
        EXPECT_EQ(v.BaseCrew, c) << t;
        EXPECT_EQ(v.NumCrew, c) << t;
        EXPECT_EQ(v.CrewTonnage, 0) << t;
    }
}

TEST_F(VehicleTest, LevelThreeKeepsTheCrewAboard) {
    Vehicle v = Made(kVhlTracked, 5, 1, 0, 3);
    v.SetCrew(4);
    EXPECT_EQ(v.CrewTonnage, 1.5);
    v.SetTonnage(50);  // base 4
    EXPECT_EQ(v.BaseCrew, 4);
    EXPECT_EQ(v.NumCrew, 4);
    EXPECT_EQ(v.CrewTonnage, 0);
    v.SetTonnage(100);  // base 7 with 4 aboard
    EXPECT_EQ(v.NumCrew, 4);
    EXPECT_EQ(v.CrewTonnage, -1.5);
    // A new design keeps the crew of its first five tons, and the total
    // takes the negative crew tonnage: 5 + 17 + 2.5 - 1.5.
    Vehicle n = Made(kVhlTracked, 50, 4, 0, 3);
    n.CalcTotalTonnage();
    EXPECT_EQ(n.TotalTonnage, 23);

    // Below level 3 the crew aboard follows the tonnage.
    Vehicle w = Made(kVhlTracked, 5, 1, 0, 2);
    w.SetCrew(4);
    w.SetTonnage(50);
    EXPECT_EQ(w.NumCrew, 4);
    w.SetCrew(9);
    w.SetTonnage(31);
    EXPECT_EQ(w.NumCrew, 3);
    EXPECT_EQ(w.CrewTonnage, 0);

    // The new-design case is level 3's alone: a level the editor never
    // offers leaves the crew aboard at 0.
    Vehicle x = Detached();
    x.SetTechLevel(4);
    x.SetTonnage(31);
    EXPECT_EQ(x.BaseCrew, 3);
    EXPECT_EQ(x.NumCrew, 0);
    EXPECT_EQ(x.CrewTonnage, -1.5);
}

TEST_F(VehicleTest, CrewIsShownInTheWindowOnlyWhileInteractive) {
    RecordingWindow win;
    Vehicle v;
    v.frm = &win;
    v.SetTechLevel(3);
    v.SetTonnage(5);
    v.SetTonnage(31);  // level 3, crew already set: window untouched
    EXPECT_EQ(win.crewShown, std::vector<int16_t>({1}));
    v.SetTechLevel(2);
    v.SetTonnage(31);
    EXPECT_EQ(win.crewShown, std::vector<int16_t>({1, 3}));
    v.OverrideInteractiveMode();
    v.SetTonnage(50);
    EXPECT_EQ(win.crewShown.size(), 2u);
    EXPECT_EQ(v.BaseCrew, 4);  // computed all the same
    EXPECT_EQ(v.Interactive(), kFalse);
}

TEST_F(VehicleTest, HeatSinksAndPowerAmplifiers) {
    // I.C.E. with no energy weapons: no sinks; a Large I.C.E. has the ten free ones.
    Vehicle v = Made(kVhlTracked, 50, 4);
    EXPECT_EQ(v.HeatSinks, 0);
    EXPECT_EQ(v.HeatSinkTonnage, 0);
    v.SetEngineType(kEngLargeICE);
    EXPECT_EQ(v.HeatSinks, 10);
    EXPECT_EQ(v.HeatSinkTonnage, 0);

    v.SetEngineType(kEngICE);
    v.SetTonnage(100);
    v.AddWeapon(kMedLaser);
    v.AddWeapon(kLargeLaser);  // heat 11, energy 6 t
    v.AddWeapon(kFlamer);      // energy 1 t, no heat
    v.AddWeapon(kAC5);         // not energy
    EXPECT_EQ(v.EnergyHeat, 11);
    EXPECT_EQ(v.EnergyTonnage, 7);
    EXPECT_EQ(v.HeatSinks, 11);
    EXPECT_EQ(v.HeatSinkTonnage, 11);
    EXPECT_DOUBLE_EQ(v.PowerAmpTonnage, 0.7);

    v.SetEngineType(kEngFusion);
    EXPECT_EQ(v.HeatSinks, 11);
    EXPECT_EQ(v.HeatSinkTonnage, 1);
    EXPECT_EQ(v.PowerAmpTonnage, 0);
    v.SetEngineType(kEngLargeICE);
    EXPECT_EQ(v.PowerAmpTonnage, 0);  // the test is on the plain I.C.E. only

    v.RemoveWeapon(kLargeLaser, 1);  // heat 3
    EXPECT_EQ(v.HeatSinks, 10);
    EXPECT_EQ(v.HeatSinkTonnage, 0);

    // Power amplifiers round up to a tenth: 1.5 / 10 -> 0.2.
    Vehicle p = Made(kVhlTracked, 50, 4);
    p.EnergyTonnage = 1.5;
    p.SetType(kVhlTracked);
    EXPECT_DOUBLE_EQ(p.PowerAmpTonnage, 0.2);
}

TEST_F(VehicleTest, TotalTakesEveryTonnageFieldAndRoundsToAQuarter) {
    double Vehicle::*fields[] = {
        &Vehicle::ISTonnage,          &Vehicle::EngineTonnage,        &Vehicle::ArmorTonnage,
        &Vehicle::TurretTonnage,      &Vehicle::SecTurretTonnage,     &Vehicle::SponsonTurretTonnage,
        &Vehicle::ControlTonnage,     &Vehicle::PowerAmpTonnage,      &Vehicle::LiftEqTonnage,
        &Vehicle::WeaponTonnage,      &Vehicle::TCTonnage,            &Vehicle::SuperchargerTonnage,
        &Vehicle::MastMountTonnage,   &Vehicle::CrewTonnage,          &Vehicle::BridgeLayerTonnage,
        &Vehicle::BulldozerTonnage,   &Vehicle::MinesweeperTonnage,   &Vehicle::MASHTonnage,
        &Vehicle::AmphibTonnage,      &Vehicle::DuneBuggyTonnage,     &Vehicle::SnowmobileTonnage,
        &Vehicle::CoolantSystemTonnage, &Vehicle::JumpJetTonnage,     &Vehicle::MobileHQTonnage,
    };
    for (auto f : fields) {
        Vehicle v = Detached();
        v.Tonnage = 10;
        v.*f = 2;
        v.CalcTotalTonnage();
        EXPECT_EQ(v.TotalTonnage, 2);
        EXPECT_EQ(v.FreeTonnage, 8);
    }
    Vehicle h = Detached();
    h.HeatSinkTonnage = 3;
    h.CalcTotalTonnage();
    EXPECT_EQ(h.TotalTonnage, 3);
    // Fields the total must not take.
    h.TurretWeaponTonnage = 5;
    h.EnergyTonnage = 5;
    h.CalcTotalTonnage();
    EXPECT_EQ(h.TotalTonnage, 3);

    Vehicle r = Detached();
    r.Tonnage = 20;
    r.ISTonnage = 10.255;
    r.CalcTotalTonnage();
    EXPECT_EQ(r.TotalTonnage, 10.25);
    r.ISTonnage = 10.26;
    r.CalcTotalTonnage();
    EXPECT_EQ(r.TotalTonnage, 10.5);
    EXPECT_EQ(r.FreeTonnage, 9.5);

    // Overweight goes away from zero.
    r.Tonnage = 10;
    r.ISTonnage = 10.1;
    r.CalcTotalTonnage();
    EXPECT_EQ(r.TotalTonnage, 10.25);
    EXPECT_EQ(r.FreeTonnage, -0.25);
}

TEST_F(VehicleTest, OverflowIsReportedAndTheFieldKept) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.SetCruiseSpeed(700);
    v.CalcEngineRating();  // 35000
    ExpectOneReport("Vehicle.CalcEngineRating", kErrOverflow);
    EXPECT_EQ(v.EngineRating, 200);
    EXPECT_EQ(v.EngineTonnage, 17);
    // The product overflows before the suspension comes off: 656 x 50 does
    // not fit, though 32800 - 235 would; 32767 x 1 - 40 does.
    Vehicle h = Made(kVhlHover, 50, 5);
    h.SetCruiseSpeed(656);
    fake.ui.boxes.clear();
    h.CalcEngineRating();
    ExpectOneReport("Vehicle.CalcEngineRating", kErrOverflow);
    EXPECT_EQ(h.EngineRating, 15);
    h.SetTonnage(1);
    h.SetCruiseSpeed(32767);
    fake.ui.boxes.clear();
    h.CalcEngineRating();
    EXPECT_EQ(h.EngineRating, 32727);

    fake.ui.boxes.clear();
    v.SetCruiseSpeed(30000);  // flank 45000
    ExpectOneReport("Vehicle.SetCruiseSpeed", kErrOverflow);
    EXPECT_EQ(v.CruiseSpeed, 30000);
    EXPECT_EQ(v.FlankSpeed, 1050);

    // Through SetTonnage the rating reports under its own name and the rest
    // of the tonnage is done.
    fake.ui.boxes.clear();
    v.SetCruiseSpeed(400);
    fake.ui.boxes.clear();
    v.SetTonnage(100);
    ExpectOneReport("Vehicle.CalcEngineRating", kErrOverflow);
    EXPECT_EQ(v.Tonnage, 100);
    EXPECT_EQ(v.ISTonnage, 10);
    EXPECT_EQ(v.MaxItems, 25);
    EXPECT_EQ(v.EngineRating, 200);

    // Crew aboard against a negative base crew.
    fake.ui.boxes.clear();
    v.BaseCrew = -32768;
    v.SetCrew(10);
    ExpectOneReport("Vehicle.SetCrew", kErrOverflow);
    EXPECT_EQ(v.NumCrew, 10);
}
