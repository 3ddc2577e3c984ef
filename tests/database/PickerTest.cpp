// The design pickers and the small search list.
#include <gtest/gtest.h>

#include <functional>

#include "database/DatabaseOps.h"
#include "fighter/Fighter.h"
#include "shell/frmFOpen.h"
#include "shell/frmSel.h"
#include "shell/frmVOpen.h"
#include "vehicle/Vehicle.h"
#include "support/FakeFormHost.h"

namespace bw {
namespace {

class Pickers : public ::testing::Test {
protected:
    void SetUp() override {
        zResetDatabase();
        gVehicles.clear();
        AddVehicle("Zebra", 0, 0, 100, 3, 5);
        AddVehicle("", 0, 0, 0, 0, 0);  // a blank left by a delete
        AddVehicle("Alpha", 1, 3, 20, 8, 12);
        AddVehicle("Mule", 0, 7, 5, 1, 2);
    }
    void TearDown() override { zResetDatabase(); }
    static void AddVehicle(const std::string& name, int16_t base, int16_t type, int16_t tons, int16_t cruise,
                           int16_t flank) {
        auto v = std::make_shared<Vehicle>();
        v->Name = name;
        v->TechBase = base;
        v->VhlType = type;
        v->Tonnage = tons;
        v->CruiseSpeed = cruise;
        v->FlankSpeed = flank;
        gVehicles.push_back(v);
    }
    static std::vector<std::string> Row(const ListView& lv, int32_t i) {
        const auto& r = lv.Item(i);
        return {r.Key, r.Text, r.SubItem(1), r.SubItem(2), r.SubItem(3), r.SubItem(4)};
    }
};

// Shows a picker modal as the commands do; user plays the dialog.
template <class P>
int16_t ShowPicker(const char* caption, const char* action, std::function<void(P&)> user) {
    test::ScopedFakeFormHost host;
    if (user) host->onShow[P().FormName()] = [&](FormModel& f) { user(static_cast<P&>(f)); };
    return zShowPicker<P>(caption, action);
}

TEST_F(Pickers, RowsCarryTheTableIndexInTheirKeys) {
    frmVOpen dlg;
    EXPECT_EQ(dlg.Window.Caption(), "Open Vehicle");
    EXPECT_EQ(dlg.PButOpen.Caption(), "&Open");
    EXPECT_EQ(dlg.PButCancel.Caption(), "&Cancel");
    EXPECT_EQ(dlg.lvVHLs.ColumnHeaders, (std::vector<std::string>{"Name", "Base", "Type", "Tonnage", "Speed"}));
    dlg.Form_Activate();
    ASSERT_EQ(dlg.lvVHLs.Count(), 3);
    EXPECT_EQ(Row(dlg.lvVHLs, 0), (std::vector<std::string>{"v0", "Zebra", "IS", "Tracked", "100", "3/5"}));
    EXPECT_EQ(Row(dlg.lvVHLs, 1), (std::vector<std::string>{"v2", "Alpha", "Clan", "V.T.O.L.", "20", "8/12"}));
    EXPECT_EQ(Row(dlg.lvVHLs, 2), (std::vector<std::string>{"v3", "Mule", "IS", "Super Heavy Tank", "5", "1/2"}));
    EXPECT_FALSE(dlg.PButOpen.Enabled());
    EXPECT_TRUE(dlg.lvVHLs.FullRowSelect);

    // Each activation loads afresh.
    gVehicles[0]->Name.clear();
    dlg.Form_Activate();
    EXPECT_EQ(dlg.lvVHLs.Count(), 2);
}

TEST_F(Pickers, ADoubleClickPicksOnlyAfterARowWasClicked) {
    frmVOpen dlg;
    dlg.Window.SetVisible(true);
    dlg.Form_Activate();
    dlg.lvVHLs.DblClick();
    EXPECT_TRUE(dlg.Window.Visible());
    EXPECT_EQ(dlg.wCancel, -1);

    // Sorted by tonnage as text: "100" before "20" before "5".
    dlg.lvVHLs.ColumnClick(3);
    EXPECT_EQ(dlg.lvVHLs.Item(0).Text, "Zebra");
    EXPECT_EQ(dlg.lvVHLs.Item(1).Text, "Alpha");
    EXPECT_EQ(dlg.lvVHLs.Item(2).Text, "Mule");
    dlg.lvVHLs.ColumnClick(0);
    EXPECT_EQ(dlg.lvVHLs.Item(0).Text, "Alpha");

    dlg.lvVHLs.Select(0);  // Alpha, table index 2
    EXPECT_TRUE(dlg.PButOpen.Enabled());
    dlg.lvVHLs.DblClick();
    EXPECT_FALSE(dlg.Window.Visible());
    EXPECT_EQ(dlg.wCancel, 0);
    EXPECT_EQ(dlg.wSel, 2);
}

TEST_F(Pickers, ShownForADeleteWithItsOwnCaptions) {
    std::string seenCaption, seenAction;
    int16_t got = ShowPicker<frmVOpen>("Delete Vehicle", "&Delete", [&](frmVOpen& d) {
        seenCaption = d.Window.Caption();
        seenAction = d.PButOpen.Caption();
        d.Form_Activate();
        d.lvVHLs.Select(2);
        d.PButOpen.DoClick();
    });
    EXPECT_EQ(seenCaption, "Delete Vehicle");
    EXPECT_EQ(seenAction, "&Delete");
    EXPECT_EQ(got, 3);

    got = ShowPicker<frmVOpen>("Delete Vehicle", "&Delete", [](frmVOpen& d) {
        d.Form_Activate();
        d.lvVHLs.Select(0);
        d.PButCancel.DoClick();
    });
    EXPECT_EQ(got, -1);
    EXPECT_EQ(ShowPicker<frmVOpen>("Open Vehicle", "&Open", nullptr), -1);
}

TEST_F(Pickers, TheFighterPickerIsTheTwin) {
    gFighters.clear();
    for (int16_t t = 0; t < 3; ++t) {
        auto f = std::make_shared<Fighter>();
        f->Name = "F" + std::to_string(t);
        f->FighterType = t;
        f->TechBase = 1;
        f->Tonnage = 50;
        f->CruiseSpeed = 5;
        f->FlankSpeed = 8;
        gFighters.push_back(f);
    }
    frmFOpen dlg;
    EXPECT_EQ(dlg.Window.Caption(), "Open Fighter");
    dlg.Form_Activate();
    ASSERT_EQ(dlg.lvFTRs.Count(), 3);
    EXPECT_EQ(Row(dlg.lvFTRs, 0), (std::vector<std::string>{"v0", "F0", "Clan", "Conventional Fighter", "50", "5/8"}));
    EXPECT_EQ(dlg.lvFTRs.Item(1).SubItem(2), "Aerospace Fighter");
    EXPECT_EQ(dlg.lvFTRs.Item(2).SubItem(2), "Omni-Fighter");
    const int16_t got = ShowPicker<frmFOpen>("Delete Fighter", "&Delete", [](frmFOpen& d) {
        d.Form_Activate();
        d.lvFTRs.Select(1);
        d.lvFTRs.DblClick();
    });
    EXPECT_EQ(got, 1);
}

TEST(SearchList, TypingSelectsTheFirstMatchAndEnterPicks) {
    frmSel dlg;
    EXPECT_EQ(dlg.PButDone.Caption(), "&Done");
    dlg.LBoxSel.AddItem("Large Laser");
    dlg.LBoxSel.SetItemData(0, 11);
    dlg.LBoxSel.AddItem("LRM 10");
    dlg.LBoxSel.SetItemData(1, 22);
    dlg.LBoxSel.AddItem("lrm 20");
    dlg.LBoxSel.SetItemData(2, 33);

    // Enter with nothing selected picks nothing.
    int16_t key = 13;
    dlg.TSearch.KeyPress(key);
    EXPECT_EQ(dlg.wCancel, -1);

    dlg.TSearch.SetText("LR");
    EXPECT_EQ(dlg.LBoxSel.ListIndex(), 1);
    dlg.TSearch.SetText("lrm 2");
    EXPECT_EQ(dlg.LBoxSel.ListIndex(), 2);
    dlg.TSearch.SetText("xyz");  // no match: the selection stays
    EXPECT_EQ(dlg.LBoxSel.ListIndex(), 2);

    dlg.Window.SetVisible(true);
    key = 65;
    dlg.LBoxSel.KeyPress(key);
    EXPECT_TRUE(dlg.Window.Visible());
    key = 13;
    dlg.LBoxSel.KeyPress(key);
    EXPECT_FALSE(dlg.Window.Visible());
    EXPECT_EQ(dlg.wCancel, 0);
    EXPECT_EQ(dlg.wSelText, "lrm 20");
    EXPECT_EQ(dlg.wSelData, 33);

    frmSel other;
    other.LBoxSel.AddItem("Only");
    other.LBoxSel.SetListIndex(0);
    other.PButCancel.DoClick();
    EXPECT_EQ(other.wCancel, -1);
    EXPECT_TRUE(other.wSelText.empty());
    other.LBoxSel.DblClick();
    EXPECT_EQ(other.wSelText, "Only");
}

}  // namespace
}  // namespace bw
