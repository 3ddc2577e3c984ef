// The editor's two equipment trees: the available tree by class, filled when
// a group opens, with its show boxes; the selected tree by location; adding
// and removing through them, and the slot rule seen from the editor.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "EditorFixture.h"
#include "core/Progress.h"
#include "core/Settings.h"

using namespace bw;
using namespace bw::test;

namespace {

class TreesTest : public EditorFixture {
protected:
    int16_t savedExpand = gExpandSel;

    void TearDown() override {
        gExpandSel = savedExpand;
        EditorFixture::TearDown();
    }
    // "key:text" of the children of a node, in tree order ("" for roots).
    static std::vector<std::string> Kids(const TreeView& tv, const std::string& parent) {
        std::vector<std::string> out;
        for (const TreeView::Node* n : tv.Children(parent)) out.push_back(n->Key + ":" + n->Text);
        return out;
    }
    void Add(int16_t row) { AddItem(*win, row); }
    void Remove(const std::string& key) {
        win->tvSelectedEq.Select(key);
        win->PButEquipment[1].DoClick();
    }
    // Whether every group of the selected tree is open (or every one closed).
    bool AllSelectedGroups(bool expanded) const {
        for (const auto* n : win->tvSelectedEq.Children(""))
            if (n->Expanded != expanded) return false;
        return true;
    }
};

const std::vector<std::string> kGroups = {"node0:Energy Weapons", "node1:Ballistic Weapons", "node2:Missile Weapons",
                                          "node3:Equipment",      "node4:Ammunition",        "node5:Artillery"};

}  // namespace

// ---- The available tree ---------------------------------------------------------

TEST_F(TreesTest, GroupsInClassOrderWithAPlaceholderWhereTheClassHasRows) {
    frmVhl& e = New(kVhlTracked, 0, 1);
    EXPECT_EQ(Kids(e.tvAvailEq, ""), kGroups);
    // Level 1 Inner Sphere: no missile row (the only one is level 3) and no
    // artillery (level 2). Clan level 3: its own laser only.
    const std::pair<int16_t, std::vector<bool>> filled[] = {{0, {true, true, false, true, true, false}},
                                                           {1, {true, false, false, false, false, false}}};
    for (const auto& [base, has] : filled) {
        New(kVhlTracked, base, base ? 3 : 1);
        for (int c = 0; c < 6; ++c) {
            const std::string n = std::to_string(c);
            EXPECT_EQ(Kids(win->tvAvailEq, "node" + n), has[c] ? std::vector<std::string>{"BLANK" + n + ":"}
                                                                : std::vector<std::string>{})
                << base << "/" << c;
        }
        for (const auto& n : win->tvAvailEq.Nodes()) EXPECT_FALSE(n.Expanded) << n.Key;
    }
    EXPECT_EQ(win->wValid[0], (std::vector<int16_t>{kClanLaser}));
    EXPECT_TRUE(win->PButExpandAvail.Enabled());
    EXPECT_TRUE(win->PButCollapseAvail.Enabled());
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(TreesTest, AGroupIsFilledOnceWhenOpenedInListOrder) {
    frmVhl& e = New(kVhlTracked, 0, 2);
    std::vector<bool> buttonsWhileFilling;
    e.tvAvailEq.Subscribe([&] { buttonsWhileFilling.push_back(e.PButExpandAvail.Enabled()); });
    const int waits = fake.ui.pointerWaits;
    e.tvAvailEq.SetExpanded("node0", true);
    EXPECT_EQ(Kids(e.tvAvailEq, "node0"),
              (std::vector<std::string>{"w0:Medium Laser", "w1:Large Laser", "w11:Flamer", "w12:Hot Laser"}));
    EXPECT_EQ(fake.ui.pointerWaits, waits + 1);
    EXPECT_EQ(fake.ui.pointerNormals, fake.ui.pointerWaits);
    // The expand itself, then the rows coming in (one by one or at once)
    // with the buttons off.
    ASSERT_GE(buttonsWhileFilling.size(), 2u);
    for (size_t i = 1; i < buttonsWhileFilling.size(); ++i) EXPECT_FALSE(buttonsWhileFilling[i]) << i;
    EXPECT_TRUE(e.PButExpandAvail.Enabled());
    EXPECT_TRUE(e.PButCollapseAvail.Enabled());

    // Closed and opened again: the rows are not added twice.
    e.tvAvailEq.SetExpanded("node0", false);
    e.tvAvailEq.SetExpanded("node0", true);
    EXPECT_EQ(Kids(e.tvAvailEq, "node0").size(), 4u);
    EXPECT_EQ(fake.ui.pointerWaits, waits + 1);

    // A group of a single row: once filled, its one child is a row, not a
    // placeholder.
    e.tvAvailEq.SetExpanded("node5", true);
    EXPECT_EQ(Kids(e.tvAvailEq, "node5"), (std::vector<std::string>{"w13:Long Tom"}));
    e.tvAvailEq.SetExpanded("node5", false);
    e.tvAvailEq.SetExpanded("node5", true);
    EXPECT_EQ(Kids(e.tvAvailEq, "node5"), (std::vector<std::string>{"w13:Long Tom"}));

    // A group without rows has nothing to open and stays closed.
    e.tvAvailEq.SetExpanded("node2", true);
    EXPECT_TRUE(Kids(e.tvAvailEq, "node2").empty());
    EXPECT_FALSE(e.tvAvailEq.Find("node2")->Expanded);

    // A row is not a group: opening it does nothing.
    e.tvAvailEq.Expand("w0");
    EXPECT_EQ(Kids(e.tvAvailEq, "node0").size(), 4u);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(TreesTest, ExpandAllOpensAndFillsEveryGroup) {
    frmVhl& e = New(kVhlTracked, 0, 2);
    e.PButExpandAvail.DoClick();
    EXPECT_EQ(Kids(e.tvAvailEq, "node3"),
              (std::vector<std::string>{"w5:Cargo Space", "w6:Passengers", "w10:Searchlight"}));
    EXPECT_EQ(Kids(e.tvAvailEq, "node4"), (std::vector<std::string>{"w3:AC/5 Ammo", "w4:SRM 2 Ammo"}));
    EXPECT_TRUE(e.tvAvailEq.Find("node1")->Expanded);
    e.PButCollapseAvail.DoClick();
    for (const auto* n : e.tvAvailEq.Children("")) EXPECT_FALSE(n->Expanded) << n->Key;
    EXPECT_EQ(e.tvAvailEq.Count(), 6 + 4 + 1 + 3 + 2 + 1);
}

TEST_F(TreesTest, NavalRowsAreOfferedToTheSuperHeavyTankAndNavalTypesOnly) {
    const std::pair<int16_t, bool> types[] = {{kVhlSuperHeavy, true}, {kVhlTracked, false}, {kVhlSubmarine, true}};
    for (auto [type, naval] : types) {
        New(type, 0, 3);
        win->tvAvailEq.SetExpanded("node1", true);
        std::vector<std::string> want{"w2:AC/5"};
        if (naval) want.push_back("w7:Naval Gun");
        EXPECT_EQ(Kids(win->tvAvailEq, "node1"), want) << type;
    }
}

TEST_F(TreesTest, ShowBoxesRemoveAGroupAtOnceAndRebuildOnSet) {
    frmVhl& e = New(kVhlTracked, 0, 2);
    e.tvAvailEq.SetExpanded("node0", true);
    e.tvAvailEq.SetExpanded("node3", true);

    e.CBoxShowType[1].SetValue(0);
    EXPECT_EQ(e.tvAvailEq.Find("node1"), nullptr);
    EXPECT_EQ(e.tvAvailEq.Find("BLANK1"), nullptr);
    // The others are untouched, open state included.
    EXPECT_TRUE(e.tvAvailEq.Find("node0")->Expanded);
    EXPECT_EQ(Kids(e.tvAvailEq, "node0").size(), 4u);

    e.CBoxShowType[4].SetValue(0);
    EXPECT_EQ(Kids(e.tvAvailEq, ""), (std::vector<std::string>{kGroups[0], kGroups[2], kGroups[3], kGroups[5]}));

    // Setting a box rebuilds the whole tree from the lists: the group comes
    // back in its place, and every group is closed again with its
    // placeholder. The boxes are off meanwhile.
    std::vector<bool> boxesDuringRebuild;
    e.tvAvailEq.Subscribe([&] { boxesDuringRebuild.push_back(e.CBoxShowType[0].Enabled()); });
    e.CBoxShowType[1].SetValue(1);
    EXPECT_EQ(Kids(e.tvAvailEq, ""), (std::vector<std::string>{kGroups[0], kGroups[1], kGroups[2], kGroups[3], kGroups[5]}));
    EXPECT_EQ(Kids(e.tvAvailEq, "node0"), (std::vector<std::string>{"BLANK0:"}));
    EXPECT_FALSE(e.tvAvailEq.Find("node0")->Expanded);
    ASSERT_FALSE(boxesDuringRebuild.empty());
    for (bool b : boxesDuringRebuild) EXPECT_FALSE(b);
    for (const CheckBox& b : e.CBoxShowType) EXPECT_TRUE(b.Enabled());

    // With every box cleared the tree is empty; a selected row goes with its
    // group and Add then does nothing.
    e.tvAvailEq.SetExpanded("node0", true);
    e.tvAvailEq.Select("w0");
    for (CheckBox& b : e.CBoxShowType) b.SetValue(0);
    EXPECT_EQ(e.tvAvailEq.Count(), 0);
    e.PButEquipment[0].DoClick();
    EXPECT_EQ(e.vhl->WeaponCount(), 0);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

// ---- Adding and removing -----------------------------------------------------------

TEST_F(TreesTest, AddActsOnlyOnASelectedRow) {
    frmVhl& e = New(kVhlTracked, 0, 2, 40);
    e.PButEquipment[0].DoClick();  // no selection
    EXPECT_EQ(e.vhl->WeaponCount(), 0);
    e.tvAvailEq.Select("node0");  // a group
    e.PButEquipment[0].DoClick();
    EXPECT_EQ(e.vhl->WeaponCount(), 0);
    EXPECT_EQ(e.tvSelectedEq.Count(), 0);

    Add(kLargeLaser);
    EXPECT_EQ(Kids(e.tvSelectedEq, ""), (std::vector<std::string>{"loc-1:Not Allocated"}));
    EXPECT_EQ(Kids(e.tvSelectedEq, "loc-1"), (std::vector<std::string>{"w1-1:Large Laser (#1)"}));
    // The figures follow at once: five tons of laser and its heat sinks.
    EXPECT_EQ(e.LTonnageFree.Caption(), "18.5");
    EXPECT_EQ(e.wSaved, kFalse);

    // Ammunition goes to the body without allocation, and shows there.
    Add(kAC5Ammo);
    EXPECT_EQ(Kids(e.tvSelectedEq, ""), (std::vector<std::string>{"loc-1:Not Allocated", "loc99:Body"}));
    EXPECT_EQ(Kids(e.tvSelectedEq, "loc99"), (std::vector<std::string>{"w3-1:AC/5 Ammo (#1)"}));
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(TreesTest, RemoveByItemKeyAndClear) {
    frmVhl& e = New(kVhlTracked, 0, 2, 40);
    for (int i = 0; i < 3; ++i) Add(kMedLaser);
    EXPECT_EQ(Kids(e.tvSelectedEq, "loc-1"), (std::vector<std::string>{"w0-1:Medium Laser (#1)",
                                                                      "w0-2:Medium Laser (#2)",
                                                                      "w0-3:Medium Laser (#3)"}));
    // A group is not an item: nothing goes.
    Remove("loc-1");
    EXPECT_EQ(e.vhl->WeaponCount(), 3);

    Remove("w0-1");
    EXPECT_EQ(Kids(e.tvSelectedEq, "loc-1"),
              (std::vector<std::string>{"w0-2:Medium Laser (#2)", "w0-3:Medium Laser (#3)"}));
    // The item that took the removed one's place is selected, so Remove goes on.
    EXPECT_EQ(e.tvSelectedEq.SelectedKey(), "w0-2");
    Remove("w0-3");
    EXPECT_EQ(e.tvSelectedEq.SelectedKey(), "w0-2") << "the last goes: the one before it";
    e.PButEquipment[1].DoClick();
    EXPECT_EQ(e.vhl->WeaponCount(), 0);
    EXPECT_TRUE(e.tvSelectedEq.SelectedKey().empty()) << "the group went with its last item";
    // Nothing selected: remove does nothing.
    Add(kMedLaser);
    Add(kMedLaser);
    e.PButEquipment[1].DoClick();
    EXPECT_EQ(e.vhl->WeaponCount(), 2);

    // Clear: everything goes.
    e.PButEquipment[2].DoClick();
    EXPECT_EQ(e.tvSelectedEq.Count(), 0);
    EXPECT_EQ(e.vhl->WeaponCount(), 0);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(TreesTest, ThePreferenceOpensTheSelectedGroups) {
    gExpandSel = 1;
    frmVhl& e = New(kVhlTracked, 0, 2, 40);
    Add(kMedLaser);
    Add(kAC5Ammo);
    EXPECT_TRUE(AllSelectedGroups(true));
    e.PButCollapseSel.DoClick();
    EXPECT_TRUE(AllSelectedGroups(false));

    gExpandSel = 0;
    Add(kMedLaser);
    // Without it only the group that received the item opens.
    EXPECT_TRUE(e.tvSelectedEq.Find("loc-1")->Expanded);
    EXPECT_FALSE(e.tvSelectedEq.Find("loc99")->Expanded);
    e.PButExpandSel.DoClick();
    EXPECT_TRUE(AllSelectedGroups(true));
}

TEST_F(TreesTest, RefreshKeepsOpenGroupsOpenAndOpensTheOneThatReceives) {
    frmVhl& e = New(kVhlTracked, 0, 2, 40);
    Add(kMedLaser);
    Add(kAC5Ammo);  // to the body
    EXPECT_TRUE(AllSelectedGroups(true));
    e.tvSelectedEq.SetExpanded("loc99", false);
    e.tvSelectedEq.Select("w3-1");
    Add(kMedLaser);
    EXPECT_TRUE(e.tvSelectedEq.Find("loc-1")->Expanded);
    EXPECT_FALSE(e.tvSelectedEq.Find("loc99")->Expanded) << "a closed group stays closed";
    EXPECT_EQ(e.tvSelectedEq.SelectedKey(), "w3-1");
}

TEST_F(TreesTest, EnterAddsOrRemovesDeleteRemovesAndOnAGroupEnterOpensIt) {
    frmVhl& e = New(kVhlTracked, 0, 2, 40);
    auto key = [](TreeView& tv, const std::string& node, int16_t code) {
        tv.Select(node);
        tv.KeyDown(code);
        return code;
    };
    EXPECT_EQ(key(e.tvAvailEq, "node0", kKeyReturn), 0);
    EXPECT_TRUE(e.tvAvailEq.Find("node0")->Expanded);
    EXPECT_EQ(key(e.tvAvailEq, "w0", kKeyDelete), kKeyDelete) << "Delete adds nothing and passes on";
    EXPECT_EQ(e.vhl->WeaponCount(), 0);
    EXPECT_EQ(key(e.tvAvailEq, "w0", kKeyReturn), 0);
    EXPECT_EQ(key(e.tvAvailEq, "w0", kKeyReturn), 0);
    EXPECT_EQ(e.vhl->WeaponCount(), 2);
    EXPECT_EQ(key(e.tvAvailEq, "node0", kKeyReturn), 0);
    EXPECT_FALSE(e.tvAvailEq.Find("node0")->Expanded);

    EXPECT_EQ(key(e.tvSelectedEq, "loc-1", kKeyDelete), 0) << "a group is not removed";
    EXPECT_EQ(e.vhl->WeaponCount(), 2);
    EXPECT_EQ(key(e.tvSelectedEq, "w0-1", kKeyDelete), 0);
    EXPECT_EQ(key(e.tvSelectedEq, "w0-2", kKeyReturn), 0);
    EXPECT_EQ(e.vhl->WeaponCount(), 0);
    EXPECT_EQ(key(e.tvAvailEq, "w0", 65), 65) << "other keys pass";
    EXPECT_TRUE(fake.ui.boxes.empty());
}

// ---- Faults ---------------------------------------------------------------------------

TEST_F(TreesTest, ARowOutsideTheTableIsReportedNotMounted) {
    frmVhl& e = New(kVhlTracked, 0, 2, 40);
    e.tvAvailEq.Add("node0", "w999", "Stray");
    e.tvAvailEq.Select("w999");
    e.PButEquipment[0].DoClick();
    ExpectOneReport("Vehicle.AddWeapon", kErrSubscript);
    EXPECT_EQ(e.vhl->WeaponCount(), 0);
}

TEST_F(TreesTest, LoadingTheValidRowsShowsItsProgress) {
    std::vector<std::string> seen;
    SetMainProgressHook({[&](int32_t max) { seen.push_back("bar " + std::to_string(max)); },
                         [&](const std::string& text) { seen.push_back(text); },
                         [&](int32_t value) { seen.push_back("at " + std::to_string(value)); },
                         [&] { seen.push_back("hide"); }});
    New(kVhlTracked, 0, 2);
    SetMainProgressHook({});
    const std::string rows = std::to_string(gWeapons.size());
    EXPECT_EQ(seen, (std::vector<std::string>{"bar " + rows, "Loading valid weapons...", "at " + rows, "hide"}));
}
