// The New Vehicle dialog: what it offers by tech base, the defaults it
// picks from the preferences, and the super heavy tank refusals.
#include <gtest/gtest.h>

#include "core/Settings.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"
#include "vehicle/frmNVhl.h"

using namespace bw;
using namespace bw::test;

namespace {

class NewVehicleDialog : public ::testing::Test {
protected:
    ScopedFakeUi fake;
    AppFolder app;
    int16_t savedType = gDefVhlType, savedBase = gDefVhlBase, savedLevel = gDefVhlLevel;
    frmNVhl dlg;

    void TearDown() override {
        gDefVhlType = savedType;
        gDefVhlBase = savedBase;
        gDefVhlLevel = savedLevel;
    }
    void Load(int16_t type, int16_t base, int16_t level) {
        gDefVhlType = type;
        gDefVhlBase = base;
        gDefVhlLevel = level;
        dlg.Form_Load();
        dlg.Visible = true;
    }
    static std::vector<std::string> Lines(const ComboBox& c) {
        std::vector<std::string> v;
        for (int32_t i = 0; i < c.ListCount(); ++i) v.push_back(c.List(i));
        return v;
    }
};

}  // namespace

TEST_F(NewVehicleDialog, ListsInTheirOrderAndLevelsFollowTheBase) {
    Load(0, 0, 1);
    EXPECT_EQ(Lines(dlg.cmboBase), (std::vector<std::string>{"Inner Sphere", "Clan"}));
    EXPECT_EQ(Lines(dlg.cmboType),
              (std::vector<std::string>{"Tracked", "Wheeled", "Hover", "V.T.O.L.", "Hydrofoil", "Naval Ship",
                                        "Submarine", "Super Heavy Tank"}));
    EXPECT_EQ(Lines(dlg.cmboLevel), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(dlg.TechLevel(), 1);

    dlg.cmboLevel.SetListIndex(2);
    dlg.cmboBase.SetListIndex(1);
    EXPECT_EQ(Lines(dlg.cmboLevel), (std::vector<std::string>{"2", "3"}));
    EXPECT_EQ(dlg.cmboLevel.ListIndex(), 0) << "a new base starts again at its first level";
    dlg.cmboBase.SetListIndex(0);
    EXPECT_EQ(Lines(dlg.cmboLevel), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(NewVehicleDialog, DefaultsFromThePreferences) {
    Load(4, 0, 3);
    EXPECT_EQ(dlg.TechBase(), 0);
    EXPECT_EQ(dlg.VhlType(), 4);
    EXPECT_EQ(dlg.cmboLevel.Text(), "3");
    EXPECT_EQ(dlg.TechLevel(), 3);
}

TEST_F(NewVehicleDialog, ClanDefaultLevelOneLeavesLevelTwo) {
    Load(0, 1, 1);
    EXPECT_EQ(dlg.cmboBase.Text(), "Clan");
    EXPECT_EQ(dlg.cmboLevel.Text(), "2");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(NewVehicleDialog, DefaultsOutOfRangeAreReportedAndFirstEntriesStay) {
    Load(0, 0, 7);  // no such level: the first stays, silently
    EXPECT_EQ(dlg.cmboLevel.Text(), "1");
    EXPECT_TRUE(fake.ui.boxes.empty());

    frmNVhl other;
    gDefVhlBase = 5;
    other.Form_Load();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].title, "Error");
    EXPECT_NE(fake.ui.boxes[0].text.find("zLoadDefaults"), std::string::npos);
    EXPECT_EQ(other.cmboBase.Text(), "Inner Sphere");
    EXPECT_EQ(other.cmboType.Text(), "Tracked");
    EXPECT_EQ(other.cmboLevel.Text(), "1");
}

TEST_F(NewVehicleDialog, CancelAndCreate) {
    Load(0, 0, 1);
    dlg.PButCancel.DoClick();
    EXPECT_EQ(dlg.wCancel, -1);
    EXPECT_FALSE(dlg.Visible);

    dlg.Visible = true;
    dlg.PButCreate.DoClick();
    EXPECT_EQ(dlg.wCancel, 0);
    EXPECT_FALSE(dlg.Visible);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(NewVehicleDialog, SuperHeavyTankOnlyInnerSphereLevelThree) {
    Load(7, 0, 2);
    dlg.PButCreate.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text, "You must set the tech level to 3 if you want to create a Super Heavy Tank.");
    EXPECT_EQ(fake.ui.boxes[0].title, "Unable to create vehicle");
    EXPECT_EQ(fake.ui.boxes[0].icon, MsgIcon::Information);
    EXPECT_TRUE(dlg.Visible);
    EXPECT_EQ(dlg.wCancel, -1);
    EXPECT_EQ(dlg.cmboLevel.Text(), "2") << "the choices stay as they are";
    EXPECT_EQ(dlg.VhlType(), 7);

    dlg.cmboBase.SetListIndex(1);
    dlg.cmboLevel.SetListIndex(1);
    dlg.PButCreate.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(fake.ui.boxes[1].text,
              "Clan Super Heavy Tanks are not allowed. This tank must be an Inner Sphere vehicle.");
    EXPECT_EQ(fake.ui.boxes[1].title, "Unable to create vehicle");
    EXPECT_EQ(fake.ui.boxes[1].icon, MsgIcon::Information);
    EXPECT_TRUE(dlg.Visible);
    EXPECT_EQ(dlg.cmboBase.Text(), "Clan");

    dlg.cmboBase.SetListIndex(0);
    dlg.cmboLevel.SetListIndex(2);
    dlg.PButCreate.DoClick();
    EXPECT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(dlg.wCancel, 0);
    EXPECT_FALSE(dlg.Visible);
}

TEST_F(NewVehicleDialog, ClanLevelTwoOfOtherTypesIsAccepted) {
    Load(3, 1, 2);
    dlg.PButCreate.DoClick();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(dlg.wCancel, 0);
}
