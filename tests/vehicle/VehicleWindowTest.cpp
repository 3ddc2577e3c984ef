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

    // Only 1 means yes; any call clears the place.
    v.UpdateWeaponLocation(0, kLocSecondTurret);
    v.SetMastMount(kTrue);
    EXPECT_EQ(v.HasMastMount, kFalse);
    EXPECT_EQ(v.MastMountTonnage, 0);
    EXPECT_EQ(v.Items[0].wLoc, kLocUnallocated);
    // Not interactive: the window is not asked.
    win.totalSeen = -1;
    v.OverrideInteractiveMode();
    v.SetMastMount(1);
    EXPECT_EQ(win.totalSeen, -1);
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
