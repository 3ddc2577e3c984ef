// The New Vehicle dialog: what it offers by tech base, the defaults it
// picks from the preferences, and the super heavy tank refusals.
#include <gtest/gtest.h>

#include "EditorTestSupport.h"
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
    void Load(frmNVhl& d, int16_t type, int16_t base, int16_t level) {
        gDefVhlType = type;
        gDefVhlBase = base;
        gDefVhlLevel = level;
        d.Form_Load();
        d.Window.SetVisible(true);
    }
};

}  // namespace

TEST_F(NewVehicleDialog, ListsInTheirOrderAndLevelsFollowTheBase) {
    Load(dlg, 0, 0, 1);
    EXPECT_EQ(Lines(dlg.cmboBase), (std::vector<std::string>{"Inner Sphere", "Clan"}));
    EXPECT_EQ(Lines(dlg.cmboType),
              (std::vector<std::string>{"Tracked", "Wheeled", "Hover", "V.T.O.L.", "Hydrofoil", "Naval Ship",
                                        "Submarine", "Super Heavy Tank"}));
    EXPECT_EQ(Lines(dlg.cmboLevel), (std::vector<std::string>{"1", "2", "3"}));

    dlg.cmboLevel.SetListIndex(2);
    dlg.cmboBase.SetListIndex(1);
    EXPECT_EQ(Lines(dlg.cmboLevel), (std::vector<std::string>{"2", "3"}));
    EXPECT_EQ(dlg.cmboLevel.ListIndex(), 0) << "a new base starts again at its first level";
    dlg.cmboBase.SetListIndex(0);
    EXPECT_EQ(Lines(dlg.cmboLevel), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(NewVehicleDialog, DefaultsFromThePreferences) {
    struct Case {
        int16_t type, base, level;
        const char* baseText;
        int16_t level0;  // the level the dialog settles on
    } cases[] = {
        {4, 0, 3, "Inner Sphere", 3},
        {0, 1, 1, "Clan", 2},          // Clan has no level 1
        {0, 0, 7, "Inner Sphere", 1},  // no such level: the first stays, silently
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.level);
        frmNVhl d;
        Load(d, c.type, c.base, c.level);
        EXPECT_EQ(d.cmboBase.Text(), c.baseText);
        EXPECT_EQ(d.VhlType(), c.type);
        EXPECT_EQ(d.TechLevel(), c.level0);
        EXPECT_EQ(d.cmboLevel.Text(), std::to_string(c.level0));
    }
    EXPECT_TRUE(fake.ui.boxes.empty());

    // A base out of range is reported, and the first entries stay.
    Load(dlg, 3, 5, 3);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].title, "Error");
    EXPECT_NE(fake.ui.boxes[0].text.find("zLoadDefaults"), std::string::npos);
    EXPECT_EQ(dlg.cmboBase.Text(), "Inner Sphere");
    EXPECT_EQ(dlg.cmboType.Text(), "Tracked");
    EXPECT_EQ(dlg.cmboLevel.Text(), "1");
}

TEST_F(NewVehicleDialog, CancelAndCreate) {
    Load(dlg, 0, 0, 1);
    dlg.PButCancel.DoClick();
    EXPECT_EQ(dlg.wCancel, -1);
    EXPECT_FALSE(dlg.Window.Visible());

    // Clan level 2 is fine for every type but the super heavy tank.
    dlg.Window.SetVisible(true);
    dlg.cmboBase.SetListIndex(1);
    dlg.cmboType.SetListIndex(3);
    dlg.PButCreate.DoClick();
    EXPECT_EQ(dlg.wCancel, 0);
    EXPECT_FALSE(dlg.Window.Visible());
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(NewVehicleDialog, SuperHeavyTankOnlyInnerSphereLevelThree) {
    Load(dlg, 7, 0, 2);
    struct Case {
        int16_t base, levelIdx;
        const char* text;
    } refused[] = {
        {0, 1, "You must set the tech level to 3 if you want to create a Super Heavy Tank."},
        {1, 1, "Clan Super Heavy Tanks are not allowed. This tank must be an Inner Sphere vehicle."},
    };
    for (const Case& c : refused) {
        SCOPED_TRACE(c.text);
        fake.ui.boxes.clear();
        dlg.cmboBase.SetListIndex(c.base);
        dlg.cmboLevel.SetListIndex(c.levelIdx);
        const std::string level = dlg.cmboLevel.Text();
        dlg.PButCreate.DoClick();
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_EQ(LastShown(fake.ui), (Shown{"Unable to create vehicle", c.text, MsgIcon::Information}));
        // The dialog stays with the choices as they were.
        EXPECT_TRUE(dlg.Window.Visible());
        EXPECT_EQ(dlg.wCancel, -1);
        EXPECT_EQ(dlg.TechBase(), c.base);
        EXPECT_EQ(dlg.cmboLevel.Text(), level);
        EXPECT_EQ(dlg.VhlType(), 7);
    }
    fake.ui.boxes.clear();
    dlg.cmboBase.SetListIndex(0);
    dlg.cmboLevel.SetListIndex(2);
    dlg.PButCreate.DoClick();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(dlg.wCancel, 0);
    EXPECT_FALSE(dlg.Window.Visible());
}
