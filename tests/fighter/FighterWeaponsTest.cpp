// The weapon list of a fighter: adding and numbering, removal, the current
// entry, the targeting computer and the fixed slots, the selected tree.
#include <gtest/gtest.h>

#include "FighterTestSupport.h"

using namespace bw;
using namespace bw::test;

namespace {

std::vector<int16_t> Numbers(const Fighter& f) {
    std::vector<int16_t> out;
    for (const FighterWeapon& e : f.Weapons) out.push_back(e.wNum);
    return out;
}

}  // namespace

TEST_F(FighterTest, AddingFillsEntryZeroThenTakesTheLowestFreeNumber) {
    Fighter f = Made(kFtrAerospace, 50, 5);
    EXPECT_EQ(f.AddWeapon(kMedLaser), kTrue);
    EXPECT_EQ(f.Weapons, (std::vector<FighterWeapon>{{kMedLaser, 1, 0, kTrue, -1, -1}}));

    f.AddWeapon(kMedLaser);
    f.AddWeapon(kAC5);
    f.RemoveWeapon(kMedLaser, 1);
    EXPECT_EQ(Numbers(f), (std::vector<int16_t>{2, 1}));  // compacted, numbers kept
    f.AddWeapon(kMedLaser);
    f.AddWeapon(kMedLaser);
    EXPECT_EQ(Numbers(f), (std::vector<int16_t>{2, 1, 1, 3}));
    EXPECT_EQ(f.WeaponTonnage, 11);

    // Free places of the list hold their numbers too.
    f.Weapons = {Entry(kPPC, 2), FighterWeapon{kPPC, 1, 0, kFalse, -1, -1}};
    f.AddWeapon(kPPC);
    EXPECT_EQ(f.Weapons.back().wNum, 3);

    // Removing the last entry leaves the one empty entry.
    f.Weapons = {Entry(kLargeLaser, 1)};
    f.RemoveWeapon(kLargeLaser, 1);
    EXPECT_EQ(f.Weapons, std::vector<FighterWeapon>(1));
    EXPECT_EQ(f.WeaponTonnage, 0);
}

TEST_F(FighterTest, NewEntriesByKindConfigurationAndName) {
    struct Case {
        int16_t type, config, row;
        int16_t base, loc;
    };
    const Case cases[] = {
        {kFtrAerospace, 0, kMedLaser, 0, -1},
        {kFtrOmni, 0, kMedLaser, kTrue, -1},
        {kFtrOmni, 1, kMedLaser, 0, -1},
        {kFtrConventional, 0, kCargo, 0, kFtrLocInternal},  // "Cargo..." rides inside
    };
    for (const Case& c : cases) {
        Fighter f = Made(c.type, 50, 5);
        f.OmniCurrentConfig = c.config;
        f.AddWeapon(c.row);
        EXPECT_EQ(f.Weapons[0].wBase, c.base) << c.type << " " << c.config;
        EXPECT_EQ(f.Weapons[0].wLoc, c.loc) << c.row;
        EXPECT_EQ(f.Weapons[0].wSlot, -1);
    }
    Fighter f = Made(kFtrAerospace, 50, 5);
    for (int16_t r : {kCargo, kAC5, kAC5Ammo}) f.AddWeapon(r);
    EXPECT_EQ(f.WcUnallocatedWeapons(), 2);

    // A row off the table is reported and adds nothing.
    EXPECT_EQ(f.AddWeapon(99), kFalse);
    ExpectOneReport("Fighter.AddWeapon", kErrSubscript);
    EXPECT_EQ(f.Weapons.size(), 3u);
}

TEST_F(FighterTest, RemovalCheckLooksAtTheFirstEntryOfThePairOnly) {
    Fighter f = Made(kFtrOmni, 50, 5);
    f.Weapons = {FighterWeapon{kMedLaser, 1, 0, kFalse, -1, -1}, Entry(kMedLaser, 1, -1, -1, kTrue),
                 Entry(kAC5, 1, 0, 0, kTrue), Entry(kAC5, 2, 0, 1, 1)};
    EXPECT_EQ(f.CheckValidRemove(kMedLaser, 1), kTrue);  // the free place comes first
    EXPECT_EQ(f.CheckValidRemove(kAC5, 1), kFalse);
    EXPECT_EQ(f.CheckValidRemove(kAC5, 2), kTrue);  // a flag of 1 is not the truth value
    EXPECT_EQ(f.CheckValidRemove(kPPC, 1), kTrue);
    // Clearing is not guarded: base items go too.
    f.ClearWeapons();
    EXPECT_EQ(f.Weapons, std::vector<FighterWeapon>(1));
    EXPECT_EQ(f.OmniWeapons[0], std::vector<FighterWeapon>(1));
}

TEST_F(FighterTest, CurrentEntryHandOverAndListSizes) {
    Fighter f = Made(kFtrAerospace, 50, 5);
    f.Weapons = {Entry(kAC5Ammo, 1), FighterWeapon{kMedLaser, 5, 0, kFalse, 0, 0}, Entry(kMedLaser, 1),
                 Entry(kAC5Ammo, 2, 3, 1)};
    EXPECT_EQ(f.SetFighterWeaponGlobal(1), 2);  // free places are not counted
    EXPECT_EQ(f.SetFighterWeaponGlobal(3), 0);  // past the end: unchanged
    EXPECT_EQ(gCurrentFighterWeapon, Entry(kMedLaser, 1));
    f.SetFighterAmmoGlobal(2, kAC5Ammo);
    f.SetFighterAmmoGlobal(3, kAC5Ammo);
    EXPECT_EQ(gCurrentFighterWeapon, Entry(kAC5Ammo, 2, 3, 1));
    EXPECT_EQ(f.SetFighterWeaponRefGlobal(kMedLaser, 5), -1);  // only active entries
    EXPECT_EQ(f.SetFighterWeaponRefGlobal(kAC5Ammo, 1), 0);
    EXPECT_EQ(gCurrentFighterWeapon, Entry(kAC5Ammo, 1));

    gCurrentFighterWeapon = Entry(kPPC, 4, 2, 3);
    f.UpdateWeapon(1);
    f.UpdateWeapon(0, 3);
    EXPECT_EQ(f.Weapons[1], Entry(kPPC, 4, 2, 3));
    EXPECT_EQ(f.WeaponCount(3), 1);
    EXPECT_EQ(f.WcUnallocatedWeapons(), 2);
    // Configurations outside 0 to 5 match nothing, silently.
    f.UpdateWeapon(0, 6);
    f.SetWeaponsArraySize(4, -1);
    EXPECT_EQ(f.WeaponCount(6), 0);
    EXPECT_TRUE(fake.ui.boxes.empty());
    f.SetWeaponsArraySize(3, 5);
    EXPECT_EQ(f.OmniWeapons[5], std::vector<FighterWeapon>(4));
    f.SetWeaponsArraySize(-1);
    EXPECT_EQ(f.Weapons, std::vector<FighterWeapon>(1));
    f.UpdateWeapon(1);
    ExpectOneReport("Fighter.UpdateWeapon", kErrSubscript);
}

TEST_F(FighterTest, TargetingComputerWeighsATonPerFiveLinkedTons) {
    struct Case {
        std::vector<int16_t> rows;
        double tons;
    };
    const Case cases[] = {
        {{}, 0}, {{kAC5}, 0}, {{kMedLaser}, 1}, {{kLargeLaser}, 1}, {{kLargeLaser, kMedLaser}, 2},
    };
    for (const Case& c : cases) {
        Fighter f = Made(kFtrAerospace, 50, 5);
        f.SetTCStatus(1);
        for (int16_t r : c.rows) f.AddWeapon(r);
        EXPECT_EQ(f.TCTonnage, c.tons) << c.rows.size();
        f.SetTCStatus(0);
        EXPECT_EQ(f.TCTonnage, 0);
    }
}

TEST_F(FighterTest, ComputerAndFerroAluminumPushBackOnlyTheirOwnSlots) {
    const std::vector<FighterWeapon> placed = {
        Entry(kMedLaser, 1, 3, 0), Entry(kMedLaser, 2, 3, 1), Entry(kMedLaser, 3, 0, 0), Entry(kMedLaser, 4, 1, 0),
        Entry(kMedLaser, 5, 1, 1), Entry(kMedLaser, 6, 2, 0), Entry(kMedLaser, 7, 2, 1), Entry(kMedLaser, 8, 1, 2),
        Entry(kMedLaser, 9, 6, 0),
    };
    auto unallocated = [](const Fighter& f) {
        std::vector<int16_t> out;
        for (const FighterWeapon& e : f.Weapons)
            if (e.wLoc == -1) {
                EXPECT_EQ(e.wSlot, -1);
                out.push_back(e.wNum);
            }
        return out;
    };
    Fighter f = Made(kFtrAerospace, 50, 5);
    f.Weapons = placed;
    f.TCLocation = kFtrLocRear;
    f.SetTCStatus(0);
    EXPECT_EQ(unallocated(f), std::vector<int16_t>{});
    f.SetTCStatus(1);
    EXPECT_EQ(unallocated(f), std::vector<int16_t>{1});

    Fighter g = Made(kFtrAerospace, 50, 5);
    g.Weapons = placed;
    g.SetArmorType(0);
    EXPECT_EQ(unallocated(g), std::vector<int16_t>{});
    g.SetArmorType(1);
    EXPECT_EQ(g.ArmorType, 1);
    EXPECT_EQ(unallocated(g), (std::vector<int16_t>{4, 5, 6, 7}));

    // On an Omni-Fighter the configuration on show learns of the move.
    Fighter o = Made(kFtrOmni, 50, 5);
    o.OmniCurrentConfig = 2;
    o.Weapons = placed;
    o.SetArmorType(1);
    EXPECT_EQ(o.OmniWeapons[2], o.Weapons);
    o.Weapons = placed;
    o.OmniWeapons[2] = {};
    o.SetArmorType(0);
    EXPECT_TRUE(o.OmniWeapons[2].empty());
}

TEST_F(FighterTest, ComputerStatusAndLocationOnEachKind) {
    Fighter a = Made(kFtrAerospace, 50, 5);
    a.Weapons = {Entry(kMedLaser, 1, 3, 0)};
    a.TCLocation = kFtrLocRear;
    a.SetTCStatus(kTrue, 4);  // not Omni: the configuration is ignored, no push-back
    EXPECT_EQ(a.Weapons[0].wLoc, 3);
    EXPECT_EQ(a.GetTCStatus(3), kTrue);
    a.SetTCLocation(kFtrLocNose, 4);
    EXPECT_EQ(a.TCLocation, kFtrLocNose);

    Fighter o = Made(kFtrOmni, 50, 5);
    o.Weapons = {Entry(kMedLaser, 1, 3, 0)};
    o.OmniCurrentConfig = 1;
    o.TCLocation = kFtrLocRear;
    o.SetTCStatus(1, 2);  // another configuration only
    EXPECT_EQ(o.OmniHasTC, (std::array<int16_t, 6>{0, 0, kTrue, 0, 0, 0}));
    EXPECT_EQ(o.Weapons[0].wLoc, 3);
    EXPECT_EQ(o.GetTCStatus(), 0);
    EXPECT_EQ(o.GetTCStatus(2), kTrue);
    o.SetTCStatus(1);  // the one on show: both flags, the slot cleared
    EXPECT_EQ(o.HasTC, kTrue);
    EXPECT_EQ(o.GetTCStatus(), kTrue);
    EXPECT_EQ(o.Weapons[0].wLoc, -1);
    EXPECT_EQ(o.OmniWeapons[1], o.Weapons);
    EXPECT_EQ(o.OmniTCTonnage[1], 1);
    // The location goes to the named configuration and clears nothing.
    o.Weapons = {Entry(kMedLaser, 1, 0, 0)};
    o.SetTCLocation(kFtrLocNose, 0);
    EXPECT_EQ(o.OmniTCLocation[0], kFtrLocNose);
    EXPECT_EQ(o.TCLocation, kFtrLocRear);
    EXPECT_EQ(o.Weapons[0].wLoc, 0);
}

TEST_F(FighterTest, SelectedTreeGroupsEntriesUnderTheirLocations) {
    Fighter f = Made(kFtrAerospace, 50, 5);
    f.Weapons = {Entry(kMedLaser, 2, 1, 0), Entry(kAC5, 1, -1), Entry(kMedLaser, 1, 1, 1),
                 FighterWeapon{kPPC, 1, 0, kFalse, -1, -1}, Entry(kCargo, 1, 6), Entry(kAC5Ammo, 1, 4, 0),
                 Entry(kLargeLaser, 1, 1, 2)};
    RecordingFighterWindow w;
    w.tree.Add({}, "old", "old");
    f.frm = &w;
    f.UpdateSelectedWeapons();
    std::vector<std::string> rows;
    for (const TreeView::Node& n : w.tree.Nodes()) rows.push_back(n.ParentKey + "|" + n.Key + "|" + n.Text);
    EXPECT_EQ(rows, (std::vector<std::string>{
                        "|loc-1|Not Allocated",
                        "|loc1|Left Wing",
                        "|loc6|Internal",
                        "loc-1|w2-1|AC/5 (#1)",
                        "loc1|w1-1|Large Laser (#1)",
                        "loc1|w0-1|Medium Laser (#1)",
                        "loc1|w0-2|Medium Laser (#2)",
                        "loc6|w5-1|Cargo Bay (#1)",
                    }));
}
