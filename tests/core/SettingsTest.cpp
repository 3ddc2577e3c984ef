#include <gtest/gtest.h>

#include <map>

#include "core/Errors.h"
#include "core/Settings.h"
#include "core/frmSet.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"
#include "support/RaisesError.h"

using namespace bw;

namespace {
struct SettingsFixture : ::testing::Test {
    test::ScopedFakeUi fake;
    test::AppFolder app;
};
using LoadSettings = SettingsFixture;
using SettingsWindow = SettingsFixture;
}  // namespace

TEST_F(LoadSettings, EmptyStoreGivesTheDefaults) {
    gDefVhlLevel = 3;
    gActiveText = 5;
    zLoadSettings();
    EXPECT_EQ(gOpenDBPath, app.dir.File("Works.BWD"));
    EXPECT_EQ(std::vector<int32_t>({gOpenLast, gGiftMessage, gDefVhlType, gDefVhlLevel, gDefFtrLevel, gActiveEdit,
                                    gDeActiveEdit, gActiveText, gDeActiveText}),
              std::vector<int32_t>({0, 0, 0, 1, 1, 16777215, 16777215, 0, 0}));
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
    EXPECT_EQ(test::ErrNumberOf([] { zLoadSettings(); }), kErrTypeMismatch);
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
    // Every key is written; the last database only at shutdown.
    const std::map<std::pair<std::string, std::string>, std::string> want = {
        {{"General", "OpenLast"}, "1"},         {{"General", "GiftMessage"}, "0"},
        {{"General", "AeroPrintHeader"}, "0"},  {{"General", "ExpandSel"}, "1"},
        {{"Vehicle", "Type"}, "3"},             {{"Vehicle", "Base"}, "0"},
        {{"Vehicle", "Level"}, "2"},            {{"Fighter", "Type"}, "0"},
        {{"Fighter", "Base"}, "1"},             {{"Fighter", "Level"}, "3"},
        {{"General", "ActiveEdit"}, "16777215"}, {{"General", "DeActiveEdit"}, "12632256"},
        {{"General", "ActiveText"}, "0"},       {{"General", "DeActiveText"}, "0"},
    };
    EXPECT_EQ(fake.settings.values, want);
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
