// Options, armor and the item-slot count.
#include <gtest/gtest.h>

#include "VehicleTestSupport.h"

using namespace bw;
using namespace bw::test;

namespace {

// Mounts (1) or takes off (0) an option; returns what the call left in the
// caller's variable.
int16_t Option(Vehicle& v, int16_t type, int16_t status = 1) {
    v.SetSpecialEQ(type, status);
    return status;
}

}  // namespace

TEST_F(VehicleTest, ArmorPointsByTypeAndBase) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.SetArmorTonnage(10);
    const std::pair<int16_t, int16_t> is[] = {{kArmNormal, 160},          {kArmFerroFibrous, 179},  // 179.2
                                              {kArmLightFerro, 170},      // 169.6
                                              {kArmHeavyFerro, 198},      // 198.4
                                              {kArmLaserReflective, 160}, {kArmReactive, 160},
                                              {6, 0},                     {-1, 0}};
    for (auto [type, points] : is) {
        v.SetArmorType(type);
        EXPECT_EQ(v.ArmorPoints, points) << type;
    }
    Vehicle c = Made(kVhlTracked, 50, 4, 1, 2);
    c.SetArmorTonnage(10);
    c.SetArmorType(kArmFerroFibrous);
    EXPECT_EQ(c.ArmorPoints, 192);

    // The 0.49: a product ending in exactly .5 goes down (25 * 1.06 = 26.5).
    v.SetArmorType(kArmLightFerro);
    v.SetArmorTonnage(25.0 / 16);
    EXPECT_EQ(v.ArmorPoints, 26);
    // Tons to points rounds half to even: 1.5 -> 2, 0.5 -> 0.
    v.SetArmorType(kArmNormal);
    v.SetArmorTonnage(1.5 / 16);
    EXPECT_EQ(v.ArmorPoints, 2);
    v.SetArmorTonnage(0.5 / 16);
    EXPECT_EQ(v.ArmorPoints, 0);
}

TEST_F(VehicleTest, ArmorLocationsAndAllocation) {
    Vehicle v = Made(kVhlSuperHeavy, 100, 3);
    const std::pair<int16_t, int16_t Vehicle::*> places[] = {
        {0, &Vehicle::FrontArmor},      {1, &Vehicle::LeftArmor},       {2, &Vehicle::RightArmor},
        {3, &Vehicle::RearArmor},       {4, &Vehicle::TurretArmor},     {5, &Vehicle::SecTurretArmor},
        {8, &Vehicle::FrontRightArmor}, {9, &Vehicle::FrontLeftArmor},  {10, &Vehicle::RearRightArmor},
        {11, &Vehicle::RearLeftArmor}};
    int16_t amount = 1;
    for (auto [loc, field] : places) v.SetArmorLoc(loc, amount++);
    amount = 1;
    for (auto [loc, field] : places) EXPECT_EQ(v.*field, amount++) << loc;
    EXPECT_EQ(v.ArmorAllocated, 55);
    // Sponsons and the body take no armor.
    for (int16_t loc : {6, 7, 99, -1}) v.SetArmorLoc(loc, 100);
    EXPECT_EQ(v.ArmorAllocated, 55);

    // The sum overflows: reported, the location keeps its value.
    v.SetArmorLoc(0, 32767);
    ExpectOneReport("Vehicle.SetArmorLoc", kErrOverflow);
    EXPECT_EQ(v.FrontArmor, 32767);
    EXPECT_EQ(v.ArmorAllocated, 55);
}

TEST_F(VehicleTest, ArmorTonnageOverflowKeepsThePoints) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.SetArmorTonnage(4);
    v.SetArmorTonnage(2048);  // 32768 points
    ExpectOneReport("Vehicle.SetArmorTonnage", kErrOverflow);
    EXPECT_EQ(v.ArmorTonnage, 2048);
    EXPECT_EQ(v.ArmorPoints, 64);
}

TEST_F(VehicleTest, SlotsOfEnginesAndArmor) {
    const int16_t is[] = {0, 0, 2, 1, 4, 3, 5, 1};
    const int16_t clan[] = {0, 0, 1, 1, 2, 3, 5, 1};
    for (int16_t e = 0; e < 8; ++e) {
        Vehicle v = Made(kVhlTracked, 50, 4, 0, 3);
        v.SetEngineType(e);
        EXPECT_EQ(v.NumItems, is[e]) << e;
        Vehicle c = Made(kVhlTracked, 50, 4, 1, 3);
        c.SetEngineType(e);
        EXPECT_EQ(c.NumItems, clan[e]) << e;
    }
    // Laser Reflective takes one slot here, though the editor asks for two.
    const int16_t armor[] = {0, 2, 1, 3, 1, 2, 0};
    for (int16_t a = 0; a < 7; ++a) {
        Vehicle v = Made(kVhlTracked, 50, 4);
        v.SetArmorType(a);
        EXPECT_EQ(v.NumItems, armor[a]) << a;
        EXPECT_EQ(zArmorItemSlots(a), armor[a]);
    }
}

TEST_F(VehicleTest, SlotsOfOptions) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    auto slots = [&] {
        v.CalcItemCount();
        return v.NumItems;
    };
    v.SetSupercharger(1);
    EXPECT_EQ(slots(), 1);
    // Each option recounts on its own.
    const std::pair<int16_t, int16_t> steps[] = {{3, 2},   // bridge layer
                                                 {4, 3},   // bulldozer
                                                 {5, 4},   // minesweeper
                                                 {8, 5},   // mobile HQ
                                                 {6, 7},   // coolant: two
                                                 {7, 8}};  // MASH: one per theatre
    for (auto [type, count] : steps) {
        Option(v, type);
        EXPECT_EQ(v.NumItems, count) << type;
    }
    v.SetMASHTheatres(3);
    EXPECT_EQ(v.NumItems, 10);
    Option(v, 12);  // jump jets: one for all
    v.SetJumpJets(4);
    EXPECT_EQ(slots(), 11);
    // Each additional crew member takes a slot; SetCrew itself recounts nothing.
    v.SetCrew(v.BaseCrew + 2);
    EXPECT_EQ(v.NumItems, 11);
    EXPECT_EQ(slots(), 13);
    v.SetCrew(v.BaseCrew - 1);
    EXPECT_EQ(slots(), 11);

    // No slot for these.
    for (int16_t t : {9, 10, 11}) Option(v, t);
    v.SetTurret(1);
    v.SetSecTurret(1);
    v.SetSponsonTurrets(1);
    v.SetMastMount(1);
    v.SetTargComp(1);
    EXPECT_EQ(slots(), 11);
}

TEST_F(VehicleTest, SlotsOfItemsAmmunitionAndCargo) {
    Vehicle v = Made(kVhlTracked, 100, 2);
    v.AddWeapon(kAC5);
    v.AddWeapon(kAC5);
    EXPECT_EQ(v.NumItems, 2);
    // Three tons of one ammunition and one of another: two slots.
    for (int i = 0; i < 3; ++i) v.AddWeapon(kAC5Ammo);
    v.AddWeapon(kSRMAmmo);
    EXPECT_EQ(v.NumItems, 4);
    // Five "Cargo Space" take one slot, and "Passengers" one more.
    for (int i = 0; i < 5; ++i) v.AddWeapon(kCargo);
    EXPECT_EQ(v.NumItems, 5);
    v.AddWeapon(kPassengers);
    v.AddWeapon(kPassengers);
    EXPECT_EQ(v.NumItems, 6);
    EXPECT_EQ(v.WeaponCount(), 13);

    // The report's count of items alone overwrites the slot count.
    v.SetEngineType(kEngFusionXL);
    EXPECT_EQ(v.NumItems, 8);
    v.CalcIndividualItems();
    EXPECT_EQ(v.NumItems, 6);
    EXPECT_EQ(v.AmmoItems, 2);
    EXPECT_EQ(v.WeaponItems, 4);
    // Without ammunition the old ammunition figure stands.
    v.RemoveWeapon(kSRMAmmo, 1);
    for (int16_t n = 1; n <= 3; ++n) v.RemoveWeapon(kAC5Ammo, n);
    v.CalcIndividualItems();
    EXPECT_EQ(v.NumItems, 4);
    EXPECT_EQ(v.AmmoItems, 2);
    EXPECT_EQ(v.WeaponItems, 2);
}

TEST_F(VehicleTest, OptionFlagsAndTonnageOnAndOff) {
    struct Case {
        int16_t type;
        int16_t Vehicle::*flag;
        double Vehicle::*tons;
        double on;
    } cases[] = {
        {3, &Vehicle::HasBridgeLayer, &Vehicle::BridgeLayerTonnage, 1},
        {4, &Vehicle::HasBulldozer, &Vehicle::BulldozerTonnage, 2},
        {5, &Vehicle::HasMinesweeper, &Vehicle::MinesweeperTonnage, 3},
        {6, &Vehicle::HasCoolantSystem, &Vehicle::CoolantSystemTonnage, 9},
        {7, &Vehicle::HasMASHUnit, &Vehicle::MASHTonnage, 3.5},  // one theatre, raised from 0
        {9, &Vehicle::HasAmphibEquip, &Vehicle::AmphibTonnage, static_cast<double>(59.0f / 10.0f)},
        {10, &Vehicle::HasDuneBuggyEquip, &Vehicle::DuneBuggyTonnage, 0},
        {11, &Vehicle::HasSnowmobileEquip, &Vehicle::SnowmobileTonnage, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        Vehicle v = Made(kVhlTracked, 59, 1);
        EXPECT_EQ(Option(v, c.type), kTrue) << "the caller's variable is changed";
        EXPECT_EQ(v.*c.flag, kTrue);
        EXPECT_EQ(v.*c.tons, c.on);
        EXPECT_EQ(Option(v, c.type, 0), kFalse);
        EXPECT_EQ(v.*c.flag, kFalse);
        EXPECT_EQ(v.*c.tons, 0);
        // Any other number is stored as given and weighs nothing.
        EXPECT_EQ(Option(v, c.type, 2), 2);
        EXPECT_EQ(v.*c.flag, 2);
        EXPECT_EQ(v.*c.tons, 0);
    }

    // An unknown option changes nothing but still recounts.
    Vehicle v = Made(kVhlTracked, 50, 4);
    const Vehicle before = v;
    v.NumItems = 99;
    Option(v, 13);
    EXPECT_EQ(v.NumItems, before.NumItems);
    EXPECT_EQ(v.HasBridgeLayer, before.HasBridgeLayer);
}

TEST_F(VehicleTest, BridgeTypeMASHTheatresAndMobileHQ) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.SetBridgeType(2);
    EXPECT_EQ(v.BridgeLayerTonnage, 0);  // not mounted
    Option(v, 3);
    EXPECT_EQ(v.BridgeLayerTonnage, 6);
    v.SetBridgeType(1);
    EXPECT_EQ(v.BridgeLayerTonnage, 2);

    Option(v, 7);
    v.SetMASHTheatres(4);
    EXPECT_EQ(v.MASHTonnage, 6.5);
    v.SetMASHTheatres(-2);
    EXPECT_EQ(v.MASHTheatres, 1);
    EXPECT_EQ(v.MASHTonnage, 3.5);

    v.SetMobileHQ(3);
    EXPECT_EQ(v.MobileHQTonnage, 3);
    EXPECT_EQ(v.HasMobileHQ, kFalse);  // the flag is the check box's
}

TEST_F(VehicleTest, JumpJetsWeighByTonnageClass) {
    Vehicle v = Made(kVhlTracked, 59, 1);
    v.SetJumpJets(4);
    EXPECT_EQ(v.NumJumpJets, 0);  // no jump jets mounted: reset
    Option(v, 12);
    v.SetJumpJets(3);
    const std::pair<int16_t, double> classes[] = {{59, 1.5}, {60, 3}, {89, 3}, {90, 6}};
    for (auto [tons, weight] : classes) {
        v.SetTonnage(tons);
        EXPECT_EQ(v.JumpJetTonnage, weight) << tons;
    }
    Option(v, 12, 0);
    EXPECT_EQ(v.NumJumpJets, 0);
    EXPECT_EQ(v.JumpJetTonnage, 0);
}

TEST_F(VehicleTest, TurretsWeighWhatTheirWeaponsSay) {
    RecordingWindow win;
    Vehicle v = Made(kVhlTracked, 60, 4);
    v.frm = &win;
    Vehicle w;  // interactive, like the editor's
    v.SetTurret(1);
    EXPECT_EQ(v.HasTurret, kTrue);
    EXPECT_EQ(win.updates, 0);  // this design was made without a window

    w.frm = &win;
    w.SetTonnage(60);
    w.SetTurret(kTrue);
    EXPECT_EQ(w.HasTurret, kTrue);  // any non-zero value
    EXPECT_EQ(win.updates, 1);
    w.AddWeapon(kAC5);          // 8 t
    w.AddWeapon(kSearchlight);  // equipment: not in the turret's weight
    w.AddWeapon(kMedLaser);
    w.AddWeapon(kLargeLaser);
    w.UpdateWeaponLocation(0, kLocTurret);
    w.UpdateWeaponLocation(1, kLocTurret);
    w.UpdateWeaponLocation(2, kLocSecondTurret);
    w.UpdateWeaponLocation(3, kLocLeftSponson);
    w.CalcWeaponTonnages();
    EXPECT_EQ(w.TurretWeaponTonnage, 8);
    EXPECT_EQ(w.TurretTonnage, 1);       // 0.8
    EXPECT_EQ(w.SecTurretTonnage, 0.5);  // 0.1
    EXPECT_EQ(w.SponsonTurretTonnage, 0.5);
    EXPECT_EQ(w.WeaponTonnage, 14.5);

    // Taking the turret off sends its items back to be allocated.
    w.SetTurret(0);
    EXPECT_EQ(w.HasTurret, kFalse);
    EXPECT_EQ(w.Items[0].wLoc, kLocUnallocated);
    EXPECT_EQ(w.Items[1].wLoc, kLocUnallocated);
    EXPECT_EQ(w.Items[2].wLoc, kLocSecondTurret);
    EXPECT_EQ(w.TurretTonnage, 0);
    EXPECT_EQ(win.updates, 2);

    w.SetSecTurret(1);
    EXPECT_EQ(w.Items[2].wLoc, kLocUnallocated);
    EXPECT_EQ(w.SecTurretTonnage, 0);
    w.SetSponsonTurrets(1);
    EXPECT_EQ(w.Items[3].wLoc, kLocUnallocated);
    EXPECT_EQ(w.SponsonTurretTonnage, 0);
    EXPECT_EQ(win.updates, 4);

    // Removing the last weapon in a mounted turret leaves it weightless.
    w.SetTurret(1);
    w.UpdateWeaponLocation(0, kLocTurret);
    w.CalcWeaponTonnages();
    EXPECT_EQ(w.TurretTonnage, 1);
    w.RemoveWeapon(kAC5, 1);
    EXPECT_EQ(w.HasTurret, kTrue);
    EXPECT_EQ(w.TurretTonnage, 0);
}

TEST_F(VehicleTest, TurretChangeRecomputesTheTotal) {
    Vehicle v = Made(kVhlTracked, 50, 4, 0, 2);
    v.AddWeapon(kLargeLaser);
    v.UpdateWeaponLocation(0, kLocTurret);
    v.SetSecTurret(1);  // recomputes weapons and total, turret weapons included
    EXPECT_EQ(v.TurretTonnage, 0.5);
    // 5 structure + 17 engine + 2.5 controls + 5 laser + 0.5 turret + 0.5
    // amplifiers + 8 heat sinks (an I.C.E. pays for every one).
    EXPECT_EQ(v.HeatSinkTonnage, 8);
    EXPECT_EQ(v.TotalTonnage, 38.5);
    EXPECT_EQ(v.FreeTonnage, 11.5);
}

TEST_F(VehicleTest, TargetingComputerWeighsWholeTons) {
    Vehicle v = Made(kVhlTracked, 100, 2);
    v.AddWeapon(kMedLaser);    // 1, counted
    v.AddWeapon(kLargeLaser);  // 5, counted
    v.AddWeapon(kCargo);       // not counted
    v.SetTargComp(1);
    EXPECT_EQ(v.HasTC, kTrue);
    EXPECT_EQ(v.TCTonnage, 2);  // 6 / 4
    v.AddWeapon(kAC5);          // 14 / 4
    EXPECT_EQ(v.TCTonnage, 4);
    v.SetTargComp(kTrue);  // only 1 means yes
    EXPECT_EQ(v.HasTC, kFalse);
    EXPECT_EQ(v.TCTonnage, 0);

    Vehicle c = Made(kVhlTracked, 100, 2, 1, 3);
    c.AddWeapon(kMedLaser);
    c.AddWeapon(kLargeLaser);
    c.SetTargComp(1);
    EXPECT_EQ(c.TCTonnage, 2);  // 6 / 5
    c.RemoveWeapon(kMedLaser, 1);
    EXPECT_EQ(c.TCTonnage, 1);
}

TEST_F(VehicleTest, EnergyHeatOverflowIsReported) {
    Vehicle v = Made(kVhlTracked, 100, 2);
    v.AddWeapon(kHotLaser);
    EXPECT_TRUE(fake.ui.boxes.empty());
    v.AddWeapon(kHotLaser);  // 40000 heat
    ASSERT_FALSE(fake.ui.boxes.empty());
    EXPECT_EQ(fake.ui.boxes[0].text,
              zErrorReportText("Vehicle.CalcWeaponTonnages", kErrOverflow, zErrorDescription(kErrOverflow)));
    EXPECT_EQ(v.EnergyHeat, 20000);
    EXPECT_EQ(v.WeaponCount(), 2);
}
