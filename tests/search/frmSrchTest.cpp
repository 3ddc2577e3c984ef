// The Search window: its databases, criteria, run, results and opening.
#include <gtest/gtest.h>

#include "core/Globals.h"
#include "search/SearchSupport.h"
#include "search/frmCriteria.h"
#include "search/frmSrch.h"
#include "shell/frmMain.h"
#include "support/FakeFormHost.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"
#include "vehicle/frmVhl.h"

namespace bw {
namespace {

using test::Any;
using test::DbBytes;
using test::Design;

using Row = std::vector<std::string>;
Row RowOf(const ListView::ListItem& it) {
    Row r{it.Text};
    r.insert(r.end(), it.SubItems.begin(), it.SubItems.end());
    return r;
}

struct SrchFixture : ::testing::Test {
    test::ScopedFakeUi fake;
    test::ScopedFakeFormHost host;
    test::TempDir dir;
    frmSrch srch;
    std::string a, b;
    void SetUp() override {
        gLogFile = "/dev/null";
        Fighter f;
        f.Name = "Sparrow";
        dir.Write("a.bwd", DbBytes({Design("Alpha", 0, 1, 1, 30, 6), Design("Beta", 1, 3, 7, 150, 3),
                                    Design("Gamma", 0, 2, 0, 60)}));
        dir.Write("b.bwd", DbBytes({}, {f}));
        a = dir.File("a.bwd");
        b = dir.File("b.bwd");
    }
};

TEST_F(SrchFixture, AddingDatabasesChecksAndFillsTheRow) {
    dir.Write("v1.bwd", std::string("Brasswick Works 3 Database    \x01\x00", 32));
    fake.ui.fileAnswers = {a, b, a, dir.File("v1.bwd"), ""};
    for (int i = 0; i < 5; ++i) srch.PButAddDB.DoClick();
    EXPECT_EQ(fake.ui.dialogs[0].title, "Open");
    EXPECT_EQ(fake.ui.dialogs[0].filter, "Database Files (*.bwd)|*.bwd");
    ASSERT_EQ(srch.lvDB.Count(), 2);
    EXPECT_EQ(srch.lvDB.ColumnHeaders, (Row{"Database", "Vehicles", "IS/Clan", "Fighters", "IS/Clan"}));
    EXPECT_EQ(RowOf(srch.lvDB.Item(0)), (Row{a, "3", "67%/33%", "N/A", "N/A"}));
    EXPECT_EQ(RowOf(srch.lvDB.Item(1)), (Row{b, "N/A", "N/A", "1", "100%/0%"}));
    ASSERT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(fake.ui.boxes[0].text, "That database is already on your list.");
    EXPECT_EQ(fake.ui.boxes[0].title, "Database on list");
    EXPECT_EQ(fake.ui.boxes[1].title, "Wrong DB version");

    // Removing asks first; No keeps the rows.
    srch.lvDB.Item(0).Selected = true;
    fake.ui.answers = {MsgResult::No};
    srch.PButRemoveDB.DoClick();
    EXPECT_EQ(srch.lvDB.Count(), 2);
    EXPECT_EQ(fake.ui.LastBox().text, "Are you sure you want to remove the select databases from the search list?");
    EXPECT_EQ(fake.ui.LastBox().title, "Remove from list?");
    srch.PButRemoveDB.DoClick();
    EXPECT_EQ(srch.DatabasePaths(), std::vector<std::string>{b});
}

TEST_F(SrchFixture, CriteriaComeFromTheDialogAndAreRemovedInOrder) {
    int shown = 0;
    host->onShow["frmCriteria"] = [&](FormModel& f) {
        auto& dlg = static_cast<frmCriteria&>(f);
        dlg.cmboMovementType.SetListIndex(++shown);
        if (shown == 3) dlg.PButCancel.DoClick();
        else dlg.PButDone.DoClick();
    };
    for (int i = 0; i < 4; ++i) srch.PButAddCrit.DoClick();
    ASSERT_EQ(srch.wCriteria.size(), 3u);
    EXPECT_EQ(RowOf(srch.lvCriteria.Item(0)),
              (Row{"Vehicle: Tracked", "I.S. or Clan", "Level 1,2,3", "Any Tonnage", "Any Speed", ""}));
    srch.lvCriteria.Item(0).Selected = true;
    srch.lvCriteria.Item(2).Selected = true;
    srch.PButRemoveCrit.DoClick();
    EXPECT_EQ(fake.ui.LastBox().text, "Are you sure you want to remove the select search criteria from the list?");
    EXPECT_EQ(fake.ui.LastBox().title, "Remove?");
    ASSERT_EQ(srch.wCriteria.size(), 1u);
    EXPECT_EQ(srch.wCriteria[0].MovementType, 1);
    EXPECT_EQ(srch.lvCriteria.Item(0).Text, "Vehicle: Wheeled");
}

TEST_F(SrchFixture, SearchRefusesWithoutDatabasesOrCriteria) {
    srch.PButSearch.DoClick();
    srch.zAddDatabase(a);
    srch.PButSearch.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(fake.ui.beeps, 2);
    EXPECT_EQ(fake.ui.boxes[0].text, "You have no databases selected.");
    EXPECT_EQ(fake.ui.boxes[0].title, "No Databases");
    EXPECT_EQ(fake.ui.boxes[1].text, "You have not defined any search criteria.");
    EXPECT_EQ(fake.ui.boxes[1].title, "No Criteria");
    EXPECT_EQ(fake.ui.boxes[1].icon, MsgIcon::Critical);
    EXPECT_EQ(srch.SSTab1Tab, frmSrch::kTabCriteria);
}

TEST_F(SrchFixture, SearchListsMatchesSortsCountsAndSkipsADamagedFile) {
    dir.Write("c.bwd", DbBytes({Design("Delta", 0, 1, 2, 20, 9)}));
    for (const auto& p : {a, b, dir.File("c.bwd")}) srch.zAddDatabase(p);
    dir.Write("c.bwd", "replaced");  // after it was listed
    SearchCriterion c = Any();
    c.Tonnage = 100, c.TonnageCompare = 0;
    srch.zAddCriterion(c);
    srch.PButSearch.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Unable to certify");
    EXPECT_EQ(srch.lvResult.ColumnHeaders, (Row{"Name", "Type", "Base", "Level", "Tonnage", "Speed", "Database"}));
    ASSERT_EQ(srch.lvResult.Count(), 2);
    EXPECT_EQ(RowOf(srch.lvResult.Item(0)), (Row{"Alpha", "Wheeled", "0", "1", "30", "6", a}));
    EXPECT_EQ(srch.lvResult.Item(1).Key, zResultKey(2, a));
    EXPECT_EQ(srch.LMatchCount.Caption(), "Total Matches: 2");
    EXPECT_EQ(srch.SSTab1Tab, frmSrch::kTabResults);
    EXPECT_GT(fake.ui.doEvents, 0);
    EXPECT_FALSE(srch.PBarSearch.Visible());
    EXPECT_TRUE(srch.PButSearch.Enabled());

    srch.lvResult.ColumnClick(4);  // tonnage, as numbers: 30 before 60
    EXPECT_EQ(srch.lvResult.Item(0).Text, "Alpha");
    srch.lvResult.ColumnClick(4);
    EXPECT_EQ(srch.lvResult.Item(0).Text, "Gamma");
    srch.lvResult.Item(0).Selected = true;
    srch.lvResult.Item(1).Selected = true;
    srch.lvResult.ItemClick(1);
    EXPECT_EQ(srch.LSelectedCount.Caption(), "Total Selected: 2");

    // Nothing fits: the list empties and says so.
    srch.wCriteria[0].MovementType = 6;
    srch.PButSearch.DoClick();
    EXPECT_EQ(srch.lvResult.Count(), 0);
    EXPECT_EQ(fake.ui.LastBox().text, "There were no units that fit your search criteria in the selected databases.");
    EXPECT_EQ(fake.ui.LastBox().title, "Search result empty");
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Information);
}

TEST_F(SrchFixture, StopEndsTheRunAndTheWindowWaitsForIt) {
    srch.zAddDatabase(a);
    srch.zAddCriterion(Any());
    bool refused = false;
    fake.ui.answers.clear();
    // The first chance to stop is taken: nothing is searched.
    srch.PButStop.SetEnabled(true);
    srch.wSearching = true;
    srch.Form_QueryUnload(refused);
    EXPECT_TRUE(refused);
    EXPECT_TRUE(srch.wCancelSearch);
    srch.wSearching = false;
    struct StopUi : test::FakeUi {
        frmSrch* s;
        void DoEvents() override { s->PButStop.DoClick(); }
    } ui;
    ui.s = &srch;
    SetUi(&ui);
    srch.PButSearch.DoClick();
    EXPECT_EQ(srch.lvResult.Count(), 0);
    EXPECT_TRUE(ui.boxes.empty());
    SetUi(&fake.ui);
}

TEST_F(SrchFixture, OpenSelectedOpensEditorsOnCopies) {
    srch.PButOpenSelected.DoClick();
    EXPECT_EQ(fake.ui.LastBox().text, "You have not selected anything.");
    EXPECT_EQ(fake.ui.LastBox().title, "Nothing selected");
    srch.zAddDatabase(a);
    srch.zAddCriterion(Any());
    srch.PButSearch.DoClick();
    srch.lvResult.Item(1).Selected = true;
    srch.lvResult.Item(2).Selected = true;
    frmSrch owner;  // stands for the main window
    srch.Owner = &owner;
    srch.PButOpenSelected.DoClick();
    ASSERT_EQ(host->adopted.size(), 2u);
    auto* first = dynamic_cast<frmVhl*>(host->adopted[0].get());
    ASSERT_TRUE(first);
    EXPECT_EQ(first->vhl->Name, "Beta");
    EXPECT_EQ(first->Owner, &owner);
    EXPECT_EQ(host.host.Last<frmVhl>()->vhl->Name, "Gamma");
    // Through the main window's hook when it gives one.
    std::vector<std::string> opened;
    srch.OpenVehicle = [&](const Vehicle& v) { opened.push_back(v.Name); };
    srch.PButOpenSelected.DoClick();
    EXPECT_EQ(opened, (std::vector<std::string>{"Beta", "Gamma"}));
}

TEST_F(SrchFixture, TheMainWindowKeepsOneSearchWindowAndOwnsItsEditors) {
    frmMain main;
    main.Form_Load();
    main.mnuSearch.DoClick();
    main.mnuSearch.DoClick();
    ASSERT_EQ(host->adopted.size(), 1u);
    auto* s = host.host.Last<frmSrch>();
    ASSERT_TRUE(s);
    EXPECT_EQ(s->Owner, &main);
    EXPECT_EQ(host->shown, (std::vector<std::string>{"frmSrch", "frmSrch"}));
    s->OpenVehicle(Design("Found"));
    auto* editor = host.host.Last<frmVhl>();
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->Owner, &main);
    EXPECT_EQ(editor->Left, main.Left + 500);  // placed on the cascade
    s->Unload();
}

TEST_F(SrchFixture, CriteriaAreSavedAndLoaded) {
    srch.PButSaveCrit.DoClick();
    EXPECT_EQ(fake.ui.LastBox().title, "No Criteria");
    SearchCriterion c = Any();
    c.ExtraItems = {"Mobile HQ"};
    srch.zAddCriterion(c);
    fake.ui.fileAnswers = {dir.File("mine"), dir.File("mine.json"), dir.File("a.bwd")};
    srch.PButSaveCrit.DoClick();
    EXPECT_EQ(zReadCriteriaFile(dir.File("mine.json")).criteria, std::vector<SearchCriterion>{c});
    srch.wCriteria.clear();
    srch.zFillCriteriaList();
    srch.PButLoadCrit.DoClick();
    EXPECT_EQ(srch.wCriteria, std::vector<SearchCriterion>{c});
    EXPECT_EQ(srch.lvCriteria.Item(0).SubItem(5), "Mobile HQ");
    srch.PButLoadCrit.DoClick();  // not a criteria file: the list stays
    EXPECT_EQ(srch.wCriteria.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Unable to load criteria");
    EXPECT_EQ(fake.ui.LastBox().text.rfind("The criteria in " + dir.File("a.bwd") + " could not be loaded: not JSON: ", 0),
              0u);
}

}  // namespace
}  // namespace bw
