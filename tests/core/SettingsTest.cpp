#include <gtest/gtest.h>

#include "core/Errors.h"
#include "core/Settings.h"
#include "core/frmSet.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"

using namespace bw;

namespace {
struct SettingsFixture : ::testing::Test {
    test::ScopedFakeUi fake;
    test::AppFolder app;
    std::string Stored(const std::string& s, const std::string& k) { return fake.settings.Get(s, k, "<absent>"); }
};
using LoadSettings = SettingsFixture;
using SettingsWindow = SettingsFixture;
}  // namespace

TEST_F(LoadSettings, EmptyStoreGivesTheDefaults) {
    gDefVhlLevel = 3;
    gActiveText = 5;
    zLoadSettings();
    EXPECT_EQ(gOpenLast, 0);
    EXPECT_EQ(gGiftMessage, 0);
    EXPECT_EQ(gOpenDBPath, app.dir.File("Works.BWD"));
    EXPECT_EQ(gDefVhlType, 0);
    EXPECT_EQ(gDefVhlLevel, 1);
    EXPECT_EQ(gDefFtrLevel, 1);
    EXPECT_EQ(gActiveEdit, 16777215);
    EXPECT_EQ(gDeActiveEdit, 16777215);
    EXPECT_EQ(gActiveText, 0);
    EXPECT_EQ(gDeActiveText, 0);
}

TEST_F(LoadSettings, StoredValuesAndTheirConversion) {
    fake.settings.Set("General", "GiftMessage", "1");
    fake.settings.Set("General", "ExpandSel", "");  // empty reads as 0
    fake.settings.Set("Vehicle", "Type", "7");
    fake.settings.Set("Vehicle", "Level", "");  // empty takes the table's default
    fake.settings.Set("Fighter", "Base", "1");
    fake.settings.Set("Fighter", "Level", " 3 ");
    fake.settings.Set("General", "ActiveEdit", "255");
    fake.settings.Set("General", "DeActiveText", "blue");  // not numeric: default
    fake.settings.Set("General", "OpenLast", "2");          // only 1 opens the last database
    fake.settings.Set("General", "LastDB", "/x/Last.bwd");
    zLoadSettings();
    EXPECT_EQ(gGiftMessage, 1);
    EXPECT_EQ(gExpandSel, 0);
    EXPECT_EQ(gDefVhlType, 7);
    EXPECT_EQ(gDefVhlLevel, 1);
    EXPECT_EQ(gDefFtrBase, 1);
    EXPECT_EQ(gDefFtrLevel, 3);
    EXPECT_EQ(gActiveEdit, 255);
    EXPECT_EQ(gDeActiveText, 0);
    EXPECT_EQ(gOpenDBPath, app.dir.File("Works.BWD"));
    fake.settings.Set("General", "OpenLast", "1");
    zLoadSettings();
    EXPECT_EQ(gOpenDBPath, "/x/Last.bwd");
}

TEST_F(LoadSettings, NonNumericOrHugeValuesRaiseUntrapped) {
    fake.settings.Set("Vehicle", "Level", "two");
    try {
        zLoadSettings();
        FAIL();
    } catch (const RunError& e) {
        EXPECT_EQ(e.Number(), kErrTypeMismatch);
    }
    fake.settings.Set("Vehicle", "Level", "1");
    fake.settings.Set("General", "OpenLast", "70000");
    EXPECT_THROW(zLoadSettings(), RunError);
    fake.settings.Set("General", "OpenLast", "0");
    fake.settings.Set("General", "ActiveEdit", "1e12");
    EXPECT_THROW(zLoadSettings(), RunError);
    EXPECT_TRUE(fake.ui.boxes.empty());  // no trap: nothing shown here
}

TEST_F(SettingsWindow, LoadShowsStoredValuesAndOkStoresEveryKey) {
    fake.settings.Set("General", "OpenLast", "1");
    fake.settings.Set("Vehicle", "Type", "3");
    fake.settings.Set("Vehicle", "Level", "2");
    fake.settings.Set("Fighter", "Type", "9");  // out of the list: first line
    fake.settings.Set("General", "ActiveText", "garbage");
    frmSet f;
    f.Form_Load();
    EXPECT_EQ(f.CBoxOpenLast, 1);
    EXPECT_EQ(f.cmboDefVHL.List.size(), 8u);
    EXPECT_EQ(f.cmboDefVHL.Text(), "V.T.O.L.");
    EXPECT_EQ(f.cmboDefVHLLevel.Text(), "2");
    EXPECT_EQ(f.cmboDefFTR.Text(), "Conventional Fighter");
    EXPECT_EQ(f.cmboDefFTRBase.List, (std::vector<std::string>{"Inner Sphere", "Clan"}));
    EXPECT_EQ(f.pnlColor[frmSet::kActiveText], 0);

    f.CBoxExpandSel = 1;
    f.cmboDefFTRLevel.ListIndex = 2;
    f.cmboDefFTRBase.ListIndex = 1;
    f.pnlColor[frmSet::kDeActiveEdit] = 12632256;
    f.PButOK_Click();
    EXPECT_FALSE(f.Loaded);
    EXPECT_EQ(Stored("General", "OpenLast"), "1");
    EXPECT_EQ(Stored("General", "GiftMessage"), "0");
    EXPECT_EQ(Stored("General", "AeroPrintHeader"), "0");
    EXPECT_EQ(Stored("General", "ExpandSel"), "1");
    EXPECT_EQ(Stored("Vehicle", "Type"), "3");
    EXPECT_EQ(Stored("Vehicle", "Base"), "0");
    EXPECT_EQ(Stored("Vehicle", "Level"), "2");
    EXPECT_EQ(Stored("Fighter", "Type"), "0");
    EXPECT_EQ(Stored("Fighter", "Base"), "1");
    EXPECT_EQ(Stored("Fighter", "Level"), "3");
    EXPECT_EQ(Stored("General", "ActiveEdit"), "16777215");
    EXPECT_EQ(Stored("General", "DeActiveEdit"), "12632256");
    EXPECT_EQ(Stored("General", "ActiveText"), "0");
    EXPECT_EQ(Stored("General", "DeActiveText"), "0");
    EXPECT_EQ(Stored("General", "LastDB"), "<absent>");  // written only at shutdown
    EXPECT_EQ(gExpandSel, 1);
    EXPECT_EQ(gDefFtrLevel, 3);
    EXPECT_EQ(gDeActiveEdit, 12632256);

    // What OK stored reads back the same at the next start.
    zLoadSettings();
    EXPECT_EQ(gDefVhlType, 3);
    EXPECT_EQ(gDefFtrLevel, 3);
}

TEST_F(SettingsWindow, CancelStoresNothing) {
    frmSet f;
    f.Form_Load();
    f.CBoxSuppressGift = 1;
    f.cmboDefVHL.ListIndex = 5;
    f.PButCancel_Click();
    EXPECT_FALSE(f.Loaded);
    EXPECT_TRUE(fake.settings.values.empty());
}
