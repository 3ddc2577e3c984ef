// Options, armor and the item-slot count.
#include <gtest/gtest.h>

#include "VehicleTestSupport.h"

using namespace bw;
using namespace bw::test;

TEST_F(VehicleTest, ArmorPointsByTypeAndBase) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.SetArmorTonnage(10);
    EXPECT_EQ(v.ArmorPoints, 160);
    const std::pair<int16_t, int16_t> is[] = {{kArmFerroFibrous, 179},  // 179.2
                                              {kArmLightFerro, 170},     // 169.6
                                              {kArmHeavyFerro, 198},     // 198.4
                                              {kArmLaserReflective, 160},
                                              {kArmReactive, 160},
                                              {6, 0},
                                              {-1, 0},
                                              {kArmNormal, 160}};
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
    const int16_t locs[] = {0, 1, 2, 3, 4, 5, 8, 9, 10, 11};
    int16_t amount = 1;
    for (int16_t loc : locs) v.SetArmorLoc(loc, amount++);
    EXPECT_EQ(v.FrontArmor, 1);
    EXPECT_EQ(v.LeftArmor, 2);
    EXPECT_EQ(v.RightArmor, 3);
    EXPECT_EQ(v.RearArmor, 4);
    EXPECT_EQ(v.TurretArmor, 5);
    EXPECT_EQ(v.SecTurretArmor, 6);
    EXPECT_EQ(v.FrontRightArmor, 7);
    EXPECT_EQ(v.FrontLeftArmor, 8);
    EXPECT_EQ(v.RearRightArmor, 9);
    EXPECT_EQ(v.RearLeftArmor, 10);
    EXPECT_EQ(v.ArmorAllocated, 55);
    // Sponsons and the body take no armor.
    for (int16_t loc : {6, 7, 99, -1}) v.SetArmorLoc(loc, 100);
    EXPECT_EQ(v.ArmorAllocated, 55);

    v.SetArmorLoc(0, 32767);
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text,
              zErrorReportText("Vehicle.SetArmorLoc", kErrOverflow, zErrorDescription(kErrOverflow)));
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

TEST_F(VehicleTest, SlotsOfEnginesByBase) {
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
}

TEST_F(VehicleTest, SlotsOfArmor) {
    // Laser Reflective takes one slot here, though the editor asks for two.
    const int16_t slots[] = {0, 2, 1, 3, 1, 2, 0};
    for (int16_t a = 0; a < 7; ++a) {
        Vehicle v = Made(kVhlTracked, 50, 4);
        v.SetArmorType(a);
        EXPECT_EQ(v.NumItems, slots[a]) << a;
        EXPECT_EQ(zArmorItemSlots(a), slots[a]);
    }
}

TEST_F(VehicleTest, SlotsOfOptions) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    int16_t yes = 1;
    auto slots = [&] {
        v.CalcItemCount();
        return v.NumItems;
    };
    v.SetSupercharger(1);
    EXPECT_EQ(slots(), 1);
    v.SetSpecialEQ(3, yes);  // bridge layer
    EXPECT_EQ(v.NumItems, 2);
    yes = 1;
    v.SetSpecialEQ(4, yes);  // bulldozer
    yes = 1;
    v.SetSpecialEQ(5, yes);  // minesweeper
    EXPECT_EQ(v.NumItems, 4);
    yes = 1;
    v.SetSpecialEQ(8, yes);  // mobile HQ
    EXPECT_EQ(v.NumItems, 5);
    yes = 1;
    v.SetSpecialEQ(6, yes);  // coolant: two
    EXPECT_EQ(v.NumItems, 7);
    yes = 1;
    v.SetSpecialEQ(7, yes);  // MASH: one per theatre
    EXPECT_EQ(v.NumItems, 8);
    v.SetMASHTheatres(3);
    EXPECT_EQ(v.NumItems, 10);
    yes = 1;
    v.SetSpecialEQ(12, yes);  // jump jets: one for all
    v.SetJumpJets(4);
    EXPECT_EQ(slots(), 11);
    // Each additional crew member takes a slot; SetCrew itself recounts nothing.
    v.SetCrew(v.BaseCrew + 2);
    EXPECT_EQ(v.NumItems, 11);
    EXPECT_EQ(slots(), 13);
    v.SetCrew(v.BaseCrew - 1);
    EXPECT_EQ(slots(), 11);

    // No slot for these.
    for (int16_t t : {9, 10, 11}) {
        yes = 1;
        v.SetSpecialEQ(t, yes);
    }
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

TEST_F(VehicleTest, SpecialEquipmentFlagsAndTonnage) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    int16_t s = 1;
    v.SetSpecialEQ(4, s);
    EXPECT_EQ(s, kTrue);  // the caller's variable is changed
    EXPECT_EQ(v.HasBulldozer, kTrue);
    EXPECT_EQ(v.BulldozerTonnage, 2);
    s = 1;
    v.SetSpecialEQ(5, s);
    EXPECT_EQ(v.MinesweeperTonnage, 3);
    s = 1;
    v.SetSpecialEQ(6, s);
    EXPECT_EQ(v.CoolantSystemTonnage, 9);
    s = 0;
    v.SetSpecialEQ(4, s);
    EXPECT_EQ(v.HasBulldozer, kFalse);
    EXPECT_EQ(v.BulldozerTonnage, 0);
    // Any other number is stored as given and weighs nothing.
    s = 2;
    v.SetSpecialEQ(5, s);
    EXPECT_EQ(s, 2);
    EXPECT_EQ(v.HasMinesweeper, 2);
    EXPECT_EQ(v.MinesweeperTonnage, 0);
    // Dune buggy and snowmobile gear weigh nothing.
    s = 1;
    v.SetSpecialEQ(10, s);
    s = 1;
    v.SetSpecialEQ(11, s);
    EXPECT_EQ(v.HasDuneBuggyEquip, kTrue);
    EXPECT_EQ(v.HasSnowmobileEquip, kTrue);
    EXPECT_EQ(v.DuneBuggyTonnage, 0);
    EXPECT_EQ(v.SnowmobileTonnage, 0);
    // An unknown option changes nothing but still recounts.
    const Vehicle before = v;
    v.NumItems = 99;
    s = 1;
    v.SetSpecialEQ(13, s);
    EXPECT_EQ(v.NumItems, before.NumItems);
    EXPECT_EQ(v.HasBridgeLayer, before.HasBridgeLayer);
}

TEST_F(VehicleTest, BridgeLayerMASHAndMobileHQ) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    int16_t s = 1;
    v.SetBridgeType(2);
    EXPECT_EQ(v.BridgeLayerTonnage, 0);  // not mounted
    v.SetSpecialEQ(3, s);
    EXPECT_EQ(v.BridgeLayerTonnage, 6);
    v.SetBridgeType(0);
    EXPECT_EQ(v.BridgeLayerTonnage, 1);
    v.SetBridgeType(1);
    EXPECT_EQ(v.BridgeLayerTonnage, 2);

    s = 1;
    v.SetSpecialEQ(7, s);
    EXPECT_EQ(v.MASHTheatres, 1);  // raised from 0
    EXPECT_EQ(v.MASHTonnage, 3.5);
    v.SetMASHTheatres(4);
    EXPECT_EQ(v.MASHTonnage, 6.5);
    v.SetMASHTheatres(-2);
    EXPECT_EQ(v.MASHTheatres, 1);
    EXPECT_EQ(v.MASHTonnage, 3.5);
    s = 0;
    v.SetSpecialEQ(7, s);
    EXPECT_EQ(v.MASHTonnage, 0);

    v.SetMobileHQ(3);
    EXPECT_EQ(v.MobileHQTonnage, 3);
    EXPECT_EQ(v.HasMobileHQ, kFalse);  // the flag is the check box's
}

TEST_F(VehicleTest, AmphibiousAndJumpJets) {
    Vehicle v = Made(kVhlTracked, 59, 1);
    int16_t s = 1;
    v.SetSpecialEQ(9, s);
    EXPECT_EQ(v.AmphibTonnage, static_cast<double>(59.0f / 10.0f));
    s = 0;
    v.SetSpecialEQ(9, s);
    EXPECT_EQ(v.AmphibTonnage, 0);

    v.SetJumpJets(4);
    EXPECT_EQ(v.NumJumpJets, 0);  // no jump jets mounted: reset
    s = 1;
    v.SetSpecialEQ(12, s);
    v.SetJumpJets(3);
    EXPECT_EQ(v.JumpJetTonnage, 1.5);
    v.SetTonnage(60);
    EXPECT_EQ(v.JumpJetTonnage, 3);
    v.SetTonnage(89);
    EXPECT_EQ(v.JumpJetTonnage, 3);
    v.SetTonnage(90);
    EXPECT_EQ(v.JumpJetTonnage, 6);
    s = 0;
    v.SetSpecialEQ(12, s);
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
    EXPECT_EQ(w.TurretTonnage, 1);         // 0.8
    EXPECT_EQ(w.SecTurretTonnage, 0.5);    // 0.1
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

TEST_F(VehicleTest, MastMountTakesLocationFive) {
    RecordingWindow win;
    Vehicle v;
    v.frm = &win;
    v.SetType(kVhlVTOL);
    v.SetTonnage(20);
    v.AddWeapon(kMedLaser);
    v.UpdateWeaponLocation(0, kLocSecondTurret);
    v.SetMastMount(1);
    EXPECT_EQ(v.HasMastMount, kTrue);
    EXPECT_EQ(v.MastMountTonnage, 0.5);
    EXPECT_EQ(v.Items[0].wLoc, kLocUnallocated);
    EXPECT_EQ(win.updates, 1);
    v.UpdateWeaponLocation(0, kLocSecondTurret);
    v.SetMastMount(kTrue);  // only 1 means yes
    EXPECT_EQ(v.HasMastMount, kFalse);
    EXPECT_EQ(v.MastMountTonnage, 0);
    EXPECT_EQ(v.Items[0].wLoc, kLocUnallocated);
    v.OverrideInteractiveMode();
    v.SetMastMount(1);
    EXPECT_EQ(win.updates, 2);
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
    v.SetTCLocation(99);
    EXPECT_EQ(v.TCLocation, 99);

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
