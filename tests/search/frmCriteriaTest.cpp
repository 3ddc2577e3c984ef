// The New Criteria dialog: its lists, rules, refusals and the criterion it
// fills in.
#include <gtest/gtest.h>

#include "search/frmCriteria.h"
#include "support/FakeUi.h"

namespace bw {
namespace {

std::vector<std::string> Lines(const ListControl& c) {
    std::vector<std::string> out;
    for (int32_t i = 0; i < c.ListCount(); ++i) out.push_back(c.List(i));
    return out;
}

struct CriteriaFixture : ::testing::Test {
    test::ScopedFakeUi fake;
    frmCriteria dlg;
    void SetUp() override { dlg.Load(); }
};

TEST_F(CriteriaFixture, StartsShortWithTheWidestSearch) {
    EXPECT_EQ(dlg.Window.Caption(), "New Criteria");
    EXPECT_EQ(Lines(dlg.cmboMovementType),
              (std::vector<std::string>{"All Vehicles", "Tracked", "Wheeled", "Hover", "V.T.O.L.", "Hydrofoil",
                                        "Naval Ship", "Submarine", "Super Heavy Tank"}));
    EXPECT_EQ(dlg.cmboMovementType.ListIndex(), 0);
    EXPECT_EQ(dlg.cmboSpeed.ListCount(), 21);
    EXPECT_EQ(dlg.cmboSpeed.List(20), "20");
    EXPECT_EQ(dlg.cmboSpeed.Text(), "Any");
    EXPECT_EQ(dlg.Height, 5460);
    EXPECT_FALSE(dlg.fraAdditional.Visible());
    EXPECT_EQ(dlg.RButTonnage[2].Caption(), "Greater Than");
    EXPECT_EQ(dlg.PButAdvanced.Caption(), "&Advanced");
    dlg.PButAdvanced.DoClick();
    EXPECT_EQ(dlg.Height, 8800);
    EXPECT_TRUE(dlg.fraAdditional.Visible());
    dlg.PButAdvanced.DoClick();
    EXPECT_EQ(dlg.Height, 5460);
}

TEST_F(CriteriaFixture, TonnageListFollowsClassAndType) {
    struct Case {
        int cls, type;  // type as list index
        std::string last;
    };
    const std::vector<Case> cases = {{0, 0, "300"}, {0, 1, "100"}, {0, 2, "80"},  {0, 3, "50"}, {0, 4, "30"},
                                     {0, 5, "100"}, {0, 6, "300"}, {0, 7, "300"}, {0, 8, "200"}, {1, 0, "100"},
                                     {1, 1, "50"},  {1, 2, "100"}, {1, 3, "100"}};
    for (const auto& tc : cases) {
        dlg.RButMoveType[static_cast<size_t>(tc.cls)].SetValue(true);
        dlg.cmboMovementType.SetListIndex(tc.type);
        EXPECT_EQ(dlg.cmboTonnage.List(0), "Any");
        EXPECT_EQ(dlg.cmboTonnage.List(1), "5");
        EXPECT_EQ(dlg.cmboTonnage.List(dlg.cmboTonnage.ListCount() - 1), tc.last) << tc.cls << "/" << tc.type;
    }
    EXPECT_EQ(Lines(dlg.cmboMovementType),
              (std::vector<std::string>{"All Fighters", "Conventional", "Aerospace", "OmniFighters"}));
}

TEST_F(CriteriaFixture, AnyDisablesTheComparisons) {
    for (auto [list, group] : {std::pair{&dlg.cmboTonnage, &dlg.RButTonnage}, {&dlg.cmboSpeed, &dlg.RButSpeed}}) {
        EXPECT_FALSE((*group)[0].Enabled());
        list->SetListIndex(2);
        for (auto& b : *group) EXPECT_TRUE(b.Enabled());
        list->SetListIndex(0);
        EXPECT_FALSE((*group)[2].Enabled());
    }
}

TEST_F(CriteriaFixture, DoubleClicksMoveItemsAndAChangeOfClassDropsTheOthers) {
    dlg.cmboMovementType.SetListIndex(4);  // V.T.O.L.
    EXPECT_EQ(dlg.LBoxAvail.List(2), "Chin Turret");
    dlg.LBoxAvail.SetListIndex(2);
    dlg.LBoxAvail.DblClick();
    dlg.LBoxAvail.SetListIndex(0);
    dlg.LBoxAvail.DblClick();
    EXPECT_EQ(Lines(dlg.LBoxSel), (std::vector<std::string>{"Chin Turret", "No Turret"}));
    dlg.LBoxSel.SetListIndex(0);
    dlg.LBoxSel.DblClick();  // back in its place
    EXPECT_EQ(dlg.LBoxAvail.List(1), "Chin Turret");
    dlg.LBoxAvail.DblClick();  // nothing selected: nothing moves
    EXPECT_EQ(dlg.LBoxSel.ListCount(), 1);
    dlg.cmboMovementType.SetListIndex(1);  // Tracked still offers "No Turret"
    EXPECT_EQ(Lines(dlg.LBoxSel), (std::vector<std::string>{"No Turret"}));
    EXPECT_EQ(dlg.LBoxAvail.List(0), "Main Turret");
    dlg.RButMoveType[1].SetValue(true);
    EXPECT_EQ(dlg.LBoxSel.ListCount(), 0);
    EXPECT_EQ(dlg.LBoxAvail.List(dlg.LBoxAvail.ListCount() - 1), "V.T.O.L. Jets");
}

TEST_F(CriteriaFixture, DoneRefusesWithoutBaseOrLevelAndOtherwiseFillsTheCriterion) {
    dlg.CBoxBase[0].SetValue(0);
    dlg.CBoxBase[1].SetValue(0);
    dlg.PButDone.DoClick();
    dlg.CBoxBase[1].SetValue(1);
    for (auto& b : dlg.CBoxLevel) b.SetValue(0);
    dlg.PButDone.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(fake.ui.boxes[0].text, "You have not chosen a technology base to search.");
    EXPECT_EQ(fake.ui.boxes[0].title, "No Tech Base Chosen");
    EXPECT_EQ(fake.ui.boxes[1].text, "You have not chosen a technology level to search.");
    EXPECT_EQ(fake.ui.boxes[1].title, "No Tech Level Chosen");
    EXPECT_EQ(dlg.wCancel, -1);

    dlg.CBoxLevel[2].SetValue(1);
    dlg.cmboMovementType.SetListIndex(8);
    dlg.cmboTonnage.SetListIndex(30);  // 150
    dlg.RButTonnage[2].SetValue(true);
    dlg.cmboSpeed.SetListIndex(3);
    dlg.RButSpeed[0].SetValue(true);
    dlg.LBoxAvail.SetListIndex(0);
    dlg.LBoxAvail.DblClick();
    dlg.PButDone.DoClick();
    EXPECT_EQ(dlg.wCancel, 0);
    SearchCriterion want;
    want.MovementType = 7;
    want.TechBase = {false, true};
    want.TechLevel = {false, false, true};
    want.Tonnage = 150;
    want.TonnageCompare = 2;
    want.Speed = 3;
    want.SpeedCompare = 0;
    want.ExtraItems = {"No Turret"};
    EXPECT_EQ(dlg.Criterion, want);

    // "Any" stores 0 whatever comparison is chosen; no extras is one empty entry.
    dlg.ResetControls();
    dlg.RButTonnage[0].SetValue(true);
    dlg.PButDone.DoClick();
    EXPECT_EQ(dlg.Criterion.Tonnage, 0);
    EXPECT_EQ(dlg.Criterion.ExtraItems, std::vector<std::string>{""});
    dlg.PButCancel.DoClick();
    EXPECT_EQ(dlg.wCancel, -1);
}

TEST_F(CriteriaFixture, HelpExplainsInOrder) {
    dlg.PButHelp.DoClick();
    const std::string& t = fake.ui.LastBox().text;
    EXPECT_EQ(fake.ui.LastBox().title, "How does this work?");
    EXPECT_EQ(t.rfind("The search criteria works in the following way:\n\n\tA vehicle/fighter/etc... must pass each "
                      "section of the search requirements. To pass a search requirement, the vehicle/fighter/etc... "
                      "must meet atleast one of the items chosen. For example, if you choose Tech Level 1 and Tech "
                      "Level 2, the vehicle/fighter/etc... must be either ",
                      0),
              0u);
    EXPECT_NE(t.find("level. The vehicle/fighter/etc... only needs to meet one of the criteria within the advanced "
                     "section to pass that section. \n\n\tNOTE: If more that one search criteria is made, then the "
                     "results from each search are added together to get the file results."),
              std::string::npos);
}

}  // namespace
}  // namespace bw
