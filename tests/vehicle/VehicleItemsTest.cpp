// The item list: adding, numbering, removing, the slot refusal, the current
// item record, the selected tree and the valid-weapon filter.
#include <gtest/gtest.h>

#include "core/Controls.h"
#include "VehicleTestSupport.h"

using namespace bw;
using namespace bw::test;

namespace {

// A design whose slots are exactly full, with one AC/5 ammunition and one
// "Cargo Space" mounted.
Vehicle FullDesign() {
    Vehicle v;
    v.OverrideInteractiveMode();
    v.SetTonnage(5);  // 6 slots
    v.AddWeapon(kAC5Ammo);
    v.AddWeapon(kCargo);
    for (int i = 0; i < 4; ++i) v.AddWeapon(kMedLaser);
    return v;
}

std::vector<std::pair<std::string, std::string>> Tree(const TreeView& tv) {
    std::vector<std::pair<std::string, std::string>> out;
    for (const auto& n : tv.Nodes()) out.emplace_back(n.ParentKey.empty() ? n.Text : n.ParentKey + "> " + n.Text, n.Key);
    return out;
}

}  // namespace

TEST_F(VehicleTest, ItemsTakeElementZeroReuseTheSmallestNumberAndCompactOnRemoval) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    EXPECT_EQ(v.AddWeapon(kMedLaser), kTrue);
    ASSERT_EQ(v.Items.size(), 1u);
    EXPECT_EQ(v.Items[0], (VehicleItem{kMedLaser, 1, kLocUnallocated, kTrue}));
    v.AddWeapon(kMedLaser);
    v.AddWeapon(kMedLaser);
    v.AddWeapon(kAC5Ammo);
    ASSERT_EQ(v.Items.size(), 4u);
    EXPECT_EQ(v.Items[2].wNum, 3);
    // Ammunition goes to the body at once.
    EXPECT_EQ(v.Items[3], (VehicleItem{kAC5Ammo, 1, kLocBody, kTrue}));
    EXPECT_EQ(v.WcUnallocatedWeapons(), 3);

    v.RemoveWeapon(kMedLaser, 1);
    ASSERT_EQ(v.Items.size(), 3u);  // compact
    EXPECT_EQ(v.Items[0].wNum, 2);
    EXPECT_EQ(v.Items[1].wNum, 3);
    v.AddWeapon(kMedLaser);
    EXPECT_EQ(v.Items.back(), (VehicleItem{kMedLaser, 1, kLocUnallocated, kTrue}));
    v.AddWeapon(kMedLaser);
    EXPECT_EQ(v.Items.back().wNum, 4);

    // Removing a pair that is not there, even a number another row holds,
    // only compacts.
    v.RemoveWeapon(kMedLaser, 9);
    v.RemoveWeapon(kLargeLaser, 1);
    EXPECT_EQ(v.WeaponCount(), 5);

    // Removing the only item leaves one empty element, which the next item takes.
    Vehicle w = Made(kVhlTracked, 50, 4);
    w.AddWeapon(kLargeLaser);
    w.RemoveWeapon(kLargeLaser, 1);
    ASSERT_EQ(w.Items.size(), 1u);
    EXPECT_EQ(w.Items[0].wStatus, kFalse);
    EXPECT_EQ(w.WeaponTonnage, 0);
    EXPECT_EQ(w.NumItems, 0);
    w.AddWeapon(kAC5);
    EXPECT_EQ(w.Items, (std::vector<VehicleItem>{{kAC5, 1, kLocUnallocated, kTrue}}));
}

TEST_F(VehicleTest, FullSlotsRefuseAllButSharedSlotsAndOnlyAtZero) {
    Vehicle v = FullDesign();
    ASSERT_EQ(v.NumItems, v.MaxItems);
    ASSERT_TRUE(fake.ui.boxes.empty());

    EXPECT_EQ(v.AddWeapon(kAC5Ammo), kTrue);  // joins its ammunition
    EXPECT_EQ(v.AddWeapon(kCargo), kTrue);    // joins the cargo
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(v.NumItems, 6);

    EXPECT_EQ(v.AddWeapon(kSRMAmmo), kFalse);  // a new ammunition needs a slot
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text, "You don't enough free item slots to add this item.");
    EXPECT_EQ(fake.ui.boxes[0].title, "Cannot add item");
    EXPECT_EQ(fake.ui.boxes[0].icon, MsgIcon::Information);
    EXPECT_EQ(v.AddWeapon(kPassengers), kFalse);  // none mounted yet
    EXPECT_EQ(v.AddWeapon(kMedLaser), kFalse);
    EXPECT_EQ(fake.ui.boxes.size(), 3u);
    EXPECT_EQ(v.WeaponCount(), 8);

    // The refusal is for exactly zero free: an option can push a design
    // over, and it may still add.
    fake.ui.boxes.clear();
    int16_t yes = 1;
    v.SetSpecialEQ(4, yes);
    ASSERT_EQ(v.MaxItems - v.NumItems, -1);
    EXPECT_EQ(v.AddWeapon(kLargeLaser), kTrue);
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(v.NumItems, 8);
}

TEST_F(VehicleTest, BadRowIsReportedAndAddsNothing) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    EXPECT_EQ(v.AddWeapon(14), kFalse);
    ExpectOneReport("Vehicle.AddWeapon", kErrSubscript);
    EXPECT_EQ(v.WeaponCount(), 0);
    fake.ui.boxes.clear();
    EXPECT_EQ(v.AddWeapon(-1), kFalse);
    ExpectOneReport("Vehicle.AddWeapon", kErrSubscript);

    // A design read from a damaged file with a row the table lacks.
    fake.ui.boxes.clear();
    v.Items[0] = VehicleItem{500, 1, 0, kTrue};
    v.CalcWeaponTonnages();
    ExpectOneReport("Vehicle.CalcWeaponTonnages", kErrSubscript);
}

TEST_F(VehicleTest, ClearAndResizeTheList) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.AddWeapon(kLargeLaser);
    v.AddWeapon(kAC5);
    const int16_t slots = v.NumItems;
    v.ClearWeapons();
    ASSERT_EQ(v.Items.size(), 1u);
    EXPECT_EQ(v.Items[0], VehicleItem{});
    EXPECT_EQ(v.WeaponTonnage, 0);
    EXPECT_EQ(v.EnergyHeat, 0);
    EXPECT_EQ(v.NumItems, slots);  // not recounted

    int16_t n = -1;
    v.SetWeaponsArraySize(n);
    EXPECT_EQ(n, 0);
    EXPECT_EQ(v.Items.size(), 1u);
    v.AddWeapon(kAC5);
    n = 3;
    v.SetWeaponsArraySize(n);
    ASSERT_EQ(v.Items.size(), 4u);
    for (const auto& it : v.Items) EXPECT_EQ(it, VehicleItem{});
    n = -2;
    v.SetWeaponsArraySize(n);
    ExpectOneReport("Vehicle.SetWeaponsArraySize", kErrSubscript);
    EXPECT_EQ(v.Items.size(), 4u);
}

TEST_F(VehicleTest, CountsAndLocations) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    EXPECT_EQ(v.GetLocationCount(), 1);  // the empty element counts location 0
    v.AddWeapon(kMedLaser);
    v.AddWeapon(kMedLaser);
    v.AddWeapon(kLargeLaser);
    v.AddWeapon(kAC5Ammo);
    EXPECT_EQ(v.WeaponCount(), 4);
    EXPECT_EQ(v.WcUnallocatedWeapons(), 3);

    // Called with an item unallocated: a subscript error.
    EXPECT_EQ(v.GetLocationCount(), 0);
    ExpectOneReport("Vehicle.GetLocationCount", kErrSubscript);

    v.UpdateWeaponLocation(0, kLocFront);
    v.UpdateWeaponLocation(1, kLocFront);
    v.UpdateWeaponLocation(2, kLocTurret);
    EXPECT_EQ(v.WcUnallocatedWeapons(), 0);
    EXPECT_EQ(v.GetLocationCount(), 3);  // front, turret, body
    // Free elements count as well.
    v.Items.push_back(VehicleItem{0, 0, kLocRear, kFalse});
    EXPECT_EQ(v.GetLocationCount(), 4);
    EXPECT_EQ(v.WeaponCount(), 4);

    fake.ui.boxes.clear();
    v.UpdateWeaponLocation(9, kLocFront);
    ExpectOneReport("Vehicle.UpdateWeaponLocation", kErrSubscript);
}

TEST_F(VehicleTest, LargestListFromAFileIsReportedNotWrapped) {
    // A file's count field can give 32768 used elements.
    Vehicle v = Detached();
    v.Items.assign(32768, VehicleItem{kMedLaser, 1, kLocUnallocated, kTrue});
    EXPECT_EQ(v.WeaponCount(), 0);
    ExpectOneReport("Vehicle.WeaponCount", kErrOverflow);
    fake.ui.boxes.clear();
    EXPECT_EQ(v.WcUnallocatedWeapons(), 0);
    ExpectOneReport("Vehicle.WcUnallocatedWeapons", kErrOverflow);
    fake.ui.boxes.clear();
    v.NumItems = 7;
    v.CalcItemCount();
    ExpectOneReport("Vehicle.CalcItemCount", kErrOverflow);
    EXPECT_EQ(v.NumItems, 7);
    v.Items.pop_back();
    fake.ui.boxes.clear();
    EXPECT_EQ(v.WeaponCount(), 32767);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(VehicleTest, CurrentItemRecord) {
    Vehicle v = Made(kVhlTracked, 50, 4);
    v.AddWeapon(kMedLaser);
    v.AddWeapon(kLargeLaser);
    v.AddWeapon(kAC5);
    v.Items[1].wStatus = kFalse;  // a hole, as a loaded file may hold

    EXPECT_EQ(v.SetVehicleWeaponGlobal(1), 2);  // second used item
    EXPECT_EQ(gCurrentVehicleItem, v.Items[2]);
    gCurrentVehicleItem.wLoc = kLocRear;
    v.UpdateWeapon(2);
    EXPECT_EQ(v.Items[2].wLoc, kLocRear);

    const VehicleItem kept = gCurrentVehicleItem;
    EXPECT_EQ(v.SetVehicleWeaponGlobal(2), 0);  // no third used item
    EXPECT_EQ(v.SetVehicleWeaponGlobal(-1), 0);
    EXPECT_EQ(gCurrentVehicleItem, kept);

    v.SetVehicleWeaponIdxGlobal(1);
    EXPECT_EQ(gCurrentVehicleItem, v.Items[1]);
    EXPECT_TRUE(fake.ui.boxes.empty());
    v.SetVehicleWeaponIdxGlobal(3);
    ExpectOneReport("Vehicle.SetVehicleWeaponIdxGlobal", kErrSubscript);
}

TEST_F(VehicleTest, SelectedTreeGroupsByLocation) {
    Vehicle v = Made(kVhlTracked, 100, 2);
    // One laser in each place, added against the group order.
    const int16_t places[] = {kLocRightSponson, kLocLeftSponson, kLocSecondTurret, kLocTurret,
                              kLocBody,         kLocRear,        kLocRight,        kLocLeft};
    for (int16_t loc : places) {
        v.AddWeapon(kMedLaser);
        v.UpdateWeaponLocation(static_cast<int16_t>(v.Items.size() - 1), loc);
    }
    v.AddWeapon(kMedLaser);
    v.AddWeapon(kAC5);
    v.AddWeapon(kLargeLaser);  // left unallocated
    v.UpdateWeaponLocation(8, kLocFront);
    v.UpdateWeaponLocation(9, kLocFront);
    TreeView tv("tvSelectedEq");
    tv.Add({}, "stale", "Stale");
    v.UpdateSelectedWeapons(tv);
    using P = std::pair<std::string, std::string>;
    const std::vector<P> want = {
        {"Not Allocated", "loc-1"},      {"Front", "loc0"},
        {"Left", "loc1"},                {"Right", "loc2"},
        {"Rear", "loc3"},                {"Body", "loc99"},
        {"Main Turret", "loc4"},         {"Secondary Turret", "loc5"},
        {"Left Sponson Turret", "loc6"}, {"Right Sponson Turret", "loc7"},
        {"loc-1> Large Laser (#1)", "w1-1"},
        {"loc0> AC/5 (#1)", "w2-1"},  // sorted by text within the group
        {"loc0> Medium Laser (#9)", "w0-9"},
        {"loc1> Medium Laser (#8)", "w0-8"},
        {"loc2> Medium Laser (#7)", "w0-7"},
        {"loc3> Medium Laser (#6)", "w0-6"},
        {"loc99> Medium Laser (#5)", "w0-5"},
        {"loc4> Medium Laser (#4)", "w0-4"},
        {"loc5> Medium Laser (#3)", "w0-3"},
        {"loc6> Medium Laser (#2)", "w0-2"},
        {"loc7> Medium Laser (#1)", "w0-1"},
    };
    EXPECT_EQ(Tree(tv), want);

    // The names are the design type's; a location no design reaches goes
    // under the group of the item before.
    v.VhlType = kVhlVTOL;
    v.UpdateWeaponLocation(10, 8);
    v.UpdateSelectedWeapons(tv);
    EXPECT_EQ(tv.Find("loc0")->Text, "Nose");
    EXPECT_EQ(tv.Find("loc5")->Text, "Mast Mount");
    EXPECT_EQ(tv.Find("w1-1")->ParentKey, "loc0");
    EXPECT_EQ(tv.Find("loc-1"), nullptr);  // all allocated: no such group
}

TEST_F(VehicleTest, ValidWeaponsByBaseLevelAndUse) {
    // Inner Sphere level 2 tracked: no Clan row, no level 3 row, no naval row.
    auto lists = zValidVehicleWeapons(0, 2, kVhlTracked);
    EXPECT_EQ(lists[0], (std::vector<int16_t>{kMedLaser, kLargeLaser, kFlamer, kHotLaser}));
    EXPECT_EQ(lists[1], (std::vector<int16_t>{kAC5}));
    EXPECT_TRUE(lists[2].empty());
    EXPECT_EQ(lists[3], (std::vector<int16_t>{kCargo, kPassengers, kSearchlight}));
    EXPECT_EQ(lists[4], (std::vector<int16_t>{kAC5Ammo, kSRMAmmo}));
    EXPECT_EQ(lists[5], (std::vector<int16_t>{kArtillery}));

    // Level 1 drops the level 2 artillery.
    EXPECT_TRUE(zValidVehicleWeapons(0, 1, kVhlTracked)[5].empty());
    // The naval row is open to the naval types and the super heavy tank only.
    for (int16_t t = 0; t < 8; ++t) {
        const bool naval = zVehicleMayMount(kNavalGun, 0, 3, t);
        EXPECT_EQ(naval, t >= kVhlHydrofoil) << t;
    }
    EXPECT_EQ(zValidVehicleWeapons(0, 3, kVhlSuperHeavy)[1], (std::vector<int16_t>{kAC5, kNavalGun}));
    EXPECT_EQ(zValidVehicleWeapons(0, 3, kVhlTracked)[2], (std::vector<int16_t>{kLevel3Gun}));
    // Clan: its own rows only.
    auto clan = zValidVehicleWeapons(1, 3, kVhlTracked);
    EXPECT_EQ(clan[0], (std::vector<int16_t>{kClanLaser}));
    for (int c = 1; c < 6; ++c) EXPECT_TRUE(clan[c].empty()) << c;
}
