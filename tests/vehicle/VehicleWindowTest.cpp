// The design and its editor calling each other: what the window finds when
// the design asks it to refresh, and a window that writes back at once.
#include <gtest/gtest.h>

#include "core/Controls.h"
#include "VehicleTestSupport.h"

using namespace bw;
using namespace bw::test;

namespace {

// Refreshes as the editor does, from inside the design's call: rebuilds the
// selected tree and the totals, and notes what it saw.
class RefreshingWindow : public VehicleWindow {
public:
    Vehicle* vhl = nullptr;
    TreeView tv{"tvSelectedEq"};
    double totalSeen = -1;
    std::string parentOfFirstItem;
    int crewCalls = 0;
    bool writeCrewBack = false;

    void zUpdateWeapons() override {
        vhl->UpdateSelectedWeapons(tv);
        vhl->CalcTotalTonnage();
        totalSeen = vhl->TotalTonnage;
        const TreeView::Node* n = tv.Find("w" + std::to_string(vhl->Items[0].wType) + "-1");
        parentOfFirstItem = n ? n->ParentKey : "";
    }
    // Setting the crew text runs its change command, which sets the crew.
    void zShowCrew(int16_t wCrew) override {
        ++crewCalls;
        if (writeCrewBack) vhl->SetCrew(wCrew);
    }
};

// A design with the refreshing window attached.
struct Bound {
    Vehicle v;
    RefreshingWindow win;
    explicit Bound(bool writeCrewBack = false) {
        win.vhl = &v;
        win.writeCrewBack = writeCrewBack;
        v.frm = &win;
    }
};

}  // namespace

TEST_F(VehicleTest, WindowRefreshSeesTheTurretAlreadyTakenOff) {
    Bound b;
    auto& [v, win] = b;
    v.SetTechLevel(2);
    v.SetTonnage(50);
    v.SetCruiseSpeed(4);
    v.CalcEngineRating();
    v.SetTurret(1);
    v.AddWeapon(kAC5);
    v.UpdateWeaponLocation(0, kLocTurret);
    v.CalcWeaponTonnages();
    v.CalcTotalTonnage();
    const double withTurret = v.TotalTonnage;
    ASSERT_EQ(v.TurretTonnage, 1);

    v.SetTurret(0);
    // The item is back in "Not Allocated" and the turret's ton is gone before
    // the window is asked to show anything.
    EXPECT_EQ(win.parentOfFirstItem, "loc-1");
    EXPECT_EQ(win.totalSeen, withTurret - 1);
    EXPECT_EQ(win.tv.Find("loc4"), nullptr);

    v.SetSponsonTurrets(1);
    v.UpdateWeaponLocation(0, kLocRightSponson);
    v.SetSponsonTurrets(0);
    EXPECT_EQ(win.parentOfFirstItem, "loc-1");
    EXPECT_EQ(v.SponsonTurretTonnage, 0);
}

TEST_F(VehicleTest, WindowRefreshSeesTheMastMountPlaceCleared) {
    Bound b;
    auto& [v, win] = b;
    v.SetType(kVhlVTOL);
    v.SetTonnage(20);
    v.AddWeapon(kMedLaser);
    v.UpdateWeaponLocation(0, kLocSecondTurret);
    v.SetMastMount(1);
    EXPECT_EQ(win.parentOfFirstItem, "loc-1");
    // The mast's half ton is in the total the window computed.
    EXPECT_EQ(v.MastMountTonnage, 0.5);
    Vehicle bare = v;
    bare.frm = nullptr;
    bare.MastMountTonnage = 0;
    bare.CalcTotalTonnage();
    EXPECT_EQ(win.totalSeen, bare.TotalTonnage + 0.5);
}

TEST_F(VehicleTest, CrewWrittenBackByTheWindowSettles) {
    // The crew figure goes to a text box whose change sets the crew again:
    // the design must come out of that with its crew and tonnage agreeing.
    Bound b(true);
    auto& [v, win] = b;
    v.SetTechLevel(1);
    v.SetTonnage(45);  // crew 3
    EXPECT_EQ(win.crewCalls, 1);
    EXPECT_EQ(v.BaseCrew, 3);
    EXPECT_EQ(v.NumCrew, 3);
    EXPECT_EQ(v.CrewTonnage, 0);

    // Level 3: once a design has a crew, a new tonnage leaves the crew aboard
    // and shows nothing.
    Bound b3(true);
    auto& [w, win3] = b3;
    w.SetTechLevel(3);
    w.SetTonnage(5);
    EXPECT_EQ(win3.crewCalls, 1);
    w.SetCrew(4);
    w.SetTonnage(90);  // crew 6 needed, 4 aboard
    EXPECT_EQ(win3.crewCalls, 1);
    EXPECT_EQ(w.BaseCrew, 6);
    EXPECT_EQ(w.NumCrew, 4);
    EXPECT_EQ(w.CrewTonnage, -1);
}

TEST_F(VehicleTest, InstanceNumbersFillGapsPerRow) {
    Vehicle v = Made(kVhlTracked, 100, 2);
    for (int i = 0; i < 4; ++i) v.AddWeapon(kMedLaser);
    v.AddWeapon(kAC5);
    v.RemoveWeapon(kMedLaser, 2);
    v.RemoveWeapon(kMedLaser, 3);
    // Another row's numbers are its own.
    v.AddWeapon(kAC5);
    EXPECT_EQ(v.Items.back(), (VehicleItem{kAC5, 2, kLocUnallocated, kTrue}));
    v.AddWeapon(kMedLaser);
    EXPECT_EQ(v.Items.back().wNum, 2);
    v.AddWeapon(kMedLaser);
    EXPECT_EQ(v.Items.back().wNum, 3);
    v.AddWeapon(kMedLaser);
    EXPECT_EQ(v.Items.back().wNum, 5);
    // Removing by a number that belongs to another row removes nothing.
    v.RemoveWeapon(kLargeLaser, 1);
    EXPECT_EQ(v.WeaponCount(), 7);
}

TEST_F(VehicleTest, CurrentItemRecordIgnoresPositionsOutOfRange) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.AddWeapon(kMedLaser);
    gCurrentVehicleItem = VehicleItem{7, 7, 7, 7};
    EXPECT_EQ(v.SetVehicleWeaponGlobal(-1), 0);
    EXPECT_EQ(gCurrentVehicleItem, (VehicleItem{7, 7, 7, 7}));
    v.ClearWeapons();
    EXPECT_EQ(v.SetVehicleWeaponGlobal(0), 0);  // no used item at all
    EXPECT_EQ(gCurrentVehicleItem, (VehicleItem{7, 7, 7, 7}));
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(VehicleTest, RatingProductOverflowsBeforeTheSuspension) {
    // 656 * 50 = 32800 does not fit, although 32800 - 235 would.
    Vehicle v = Made(kVhlHover, 50, 5);
    ASSERT_EQ(v.EngineRating, 15);
    v.SetCruiseSpeed(656);
    v.CalcEngineRating();
    ExpectOneReport("Vehicle.CalcEngineRating", kErrOverflow);
    EXPECT_EQ(v.EngineRating, 15);
    // The largest product that fits.
    v.SetTonnage(1);  // suspension 40
    v.SetCruiseSpeed(32767);
    fake.ui.boxes.clear();
    v.CalcEngineRating();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(v.EngineRating, 32727);
}

TEST_F(VehicleTest, ArmorLocationWithoutArmorStillRecomputesThePoints) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.SetArmorLoc(kLocFront, 20);
    v.ArmorTonnage = 2;  // written directly, as loading does
    v.SetArmorLoc(kLocLeftSponson, 5);
    EXPECT_EQ(v.ArmorPoints, 32);
    EXPECT_EQ(v.ArmorAllocated, 20);
    v.ArmorTonnage = 3;
    v.SetArmorLoc(kLocBody, 5);
    EXPECT_EQ(v.ArmorPoints, 48);
    EXPECT_EQ(v.ArmorAllocated, 20);
}

TEST_F(VehicleTest, InstanceNumberPastTheLimitIsReportedNotWrapped) {
    // A list read from a file that already numbers one ammunition 1 to
    // 32767 (ammunition, so the slot and heat sums stay small).
    Vehicle v = Detached();
    v.Items.clear();
    for (int32_t n = 1; n <= 32767; ++n) v.Items.push_back(VehicleItem{kAC5Ammo, static_cast<int16_t>(n), kLocBody, kTrue});
    v.MaxItems = 1;
    EXPECT_EQ(v.AddWeapon(kAC5Ammo), kFalse);
    ExpectOneReport("Vehicle.AddWeapon", kErrOverflow);
    EXPECT_EQ(v.Items.size(), 32767u);

    // A gap is still found, and numbers outside 1..32767 in the file are no
    // obstacle.
    fake.ui.boxes.clear();
    v.Items[40000 % 32767].wNum = -5;  // frees number 7234
    EXPECT_EQ(v.AddWeapon(kAC5Ammo), kTrue);
    EXPECT_EQ(v.Items.back().wNum, 7234);
    EXPECT_TRUE(fake.ui.boxes.empty());
}
