#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Forms.h"
#include "core/Settings.h"
#include "database/DatabaseOps.h"
#include "core/Config.h"
#include "sheets/frmAAMaker.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "support/AppFolder.h"
#include "support/FakeFormHost.h"
#include "support/FakeUi.h"
#include "vehicle/EditorTestSupport.h"

using namespace bw;
using namespace bw::test;

namespace {

// An editor that asks about unsaved work: it stays when its answer is to
// refuse, otherwise it unloads.
class FakeEditor : public FormModel {
public:
    FakeEditor(std::string name, bool saved, bool refuses, std::vector<std::string>* log)
        : FormModel(std::move(name)), saved_(saved), refuses_(refuses), log_(log) {
        Load();
    }
    bool IsSaved() const override { return saved_; }
    void Form_QueryUnload(bool& cancel) override {
        log_->push_back("asked " + FormName() + (refuses_ ? " (stays)" : ""));
        cancel = refuses_;
    }

private:
    bool saved_, refuses_;
    std::vector<std::string>* log_;
};

struct MainFixture : ::testing::Test {
    AppFolder app;
    ScopedFakeUi fake;
    int16_t savedOpenLast = gOpenLast;
    ~MainFixture() override {
        gOpenLast = savedOpenLast;
        zResetDatabase();
    }
};

}  // namespace

TEST_F(MainFixture, LoadSetsTitleAndTheSpecialMenuOnlyOnAnExactParmLine) {
    app.dir.Write("parm.txt", "Special Menu \r\n");
    {
        frmMain m;
        m.Form_Load();
        EXPECT_EQ(m.Window.Caption(), "The Brasswick Works 3.0 - ");
        EXPECT_FALSE(m.mnuSpecial.Visible());
    }
    app.dir.Write("parm.txt", "ignore version\r\nspecial menu\r\n");
    frmMain m;
    m.Form_Load();
    EXPECT_TRUE(m.mnuSpecial.Visible());
    EXPECT_TRUE(m.mnuSpecial.Enabled());
}

TEST_F(MainFixture, MenuCaptionsAreTheProgramsOwn) {
    frmMain m;
    EXPECT_EQ(m.mnuFileOpne.Caption(), "&Open Database");
    EXPECT_EQ(m.mnuFileUpgDB.Caption(), "&Upgrade Existing v3 Database");
    EXPECT_EQ(m.mnuSettings.Caption(), "&Preferences");
    EXPECT_EQ(m.mnuFighterPrintBSpace.Caption(), "Print Battlespace Sheet");
    EXPECT_EQ(m.mnuSpecialArmorArrayCreator.Caption(), "Display Armor Array Creator");
    // Commands of later work are disabled, not faked.
    EXPECT_FALSE(m.mnuFighterMultiPrint.Enabled());
    EXPECT_TRUE(m.mnuSearch.Enabled());
    EXPECT_EQ(m.mnuSearch.Caption(), "&Search");
    // The Dropship and Warship menus hold no items.
    for (auto& menu : m.Menus())
        if (menu.menu == &m.mnuDropship || menu.menu == &m.mnuWarship) {
            EXPECT_TRUE(menu.items.empty());
        }
}

TEST_F(MainFixture, CommandsNotInThisProgramAreDisabledAndSaySo) {
    ScopedFakeFormHost host;
    frmMain m;
    const std::string why = "Not available in this version of The Brasswick Works.";
    const std::pair<MenuItem*, bool> items[] = {
        {&m.mnuFileOpenV2, false},           {&m.mnuFighterPrintBSpace, false},
        {&m.mnuSpecialImport, false},        {&m.mnuSpecialWriteData, false},
        {&m.mnuSpecialNavalWeapons, false},  {&m.mnuSpecialNavalItems, false},
        {&m.mnuSpecialImportOld, false},     {&m.mnuSpecialCreateConvTable, false},
        {&m.mnuSpecialCreateArmor, true},    {&m.mnuSpecialCreateInternal, true},
        {&m.mnuSpecialArmorArrayCreator, true}, {&m.mnuFileOpne, true},
    };
    for (const auto& [item, works] : items) {
        EXPECT_EQ(item->Enabled(), works) << item->Name;
        EXPECT_EQ(item->ToolTip(), works ? "" : why) << item->Name;
    }
    m.mnuSpecialArmorArrayCreator.DoClick();
    EXPECT_EQ(host->shown, std::vector<std::string>{"frmAAMaker"});
    ASSERT_NE(host->Last<frmAAMaker>(), nullptr);
    EXPECT_EQ(host->Last<frmAAMaker>()->Owner, &m);
}

TEST_F(MainFixture, DropShipAndWarShipButtonsShowTheNotice) {
    frmMain m;
    for (const char* key : {"butNewDS", "butOpenDS", "butDelDS", "butNewWar", "butOpenWar", "butDelWar"}) {
        fake.ui.boxes.clear();
        m.TBarMain_ButtonClick(key);
        ASSERT_EQ(fake.ui.boxes.size(), 1u) << key;
        EXPECT_EQ(LastShown(fake.ui),
                  (Shown{"Not Implemented", "This feature is not yet implemented.", MsgIcon::None}));
    }
    fake.ui.boxes.clear();
    m.TBarMain_ButtonClick("butnewds");  // keys compare exactly
    EXPECT_TRUE(fake.ui.boxes.empty());
}

// From the last loaded to the first, every editor is asked, even after one
// refused; the refusal cancels the shutdown.
TEST_F(MainFixture, AnEditorThatRefusesDoesNotStopTheWalk) {
    std::vector<std::string> log;
    frmMain m;
    m.Load();
    FakeEditor older("frmVhl", false, false, &log);  // unsaved, lets go
    FakeEditor report("frmCost", true, false, &log);
    FakeEditor newer("frmFtr", false, true, &log);   // asked first, refuses
    gOpenLast = 0;
    bool cancel = false;
    m.Form_QueryUnload(cancel);
    EXPECT_TRUE(cancel);
    EXPECT_TRUE(m.wUnloadCancelled);
    EXPECT_EQ(log, (std::vector<std::string>{"asked frmFtr (stays)", "asked frmCost", "asked frmVhl"}));
    // Only the refusing editor and the main window are left.
    EXPECT_EQ(gForms(), (std::vector<FormModel*>{&m, &newer}));
}

TEST_F(MainFixture, ExitClosesOnlyWhenNoEditorRefuses) {
    std::vector<std::string> log;
    ScopedFakeFormHost host;
    frmMain m;
    m.Load();
    {
        FakeEditor stubborn("frmVhl", false, true, &log);
        EXPECT_FALSE(m.Unload());
        EXPECT_TRUE(host->closed.empty());
    }
    m.mnuFileExit.Click();  // Exit only asks the main window to unload
    EXPECT_EQ(host->closed, std::vector<std::string>{"frmMain"});
}

TEST_F(MainFixture, SavedEditorsAndOtherWindowsDoNotRefuse) {
    std::vector<std::string> log;
    frmMain m;
    FakeEditor saved("frmVhl", true, true, &log);
    FakeEditor search("frmSrch", false, false, &log);
    bool cancel = true;
    m.Form_QueryUnload(cancel);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(log.size(), 2u);
}

TEST_F(MainFixture, LastDatabaseIsStoredWhenAskedEvenIfRefused) {
    std::vector<std::string> log;
    frmMain m;
    FakeEditor stubborn("frmVhl", false, true, &log);
    gDatabasePath = "/data/my designs.bwd";
    gOpenLast = 1;
    bool cancel = false;
    m.Form_QueryUnload(cancel);
    EXPECT_TRUE(cancel);
    EXPECT_EQ(fake.settings.Get("General", "LastDB", "<none>"), "/data/my designs.bwd");

    gOpenLast = 0;
    gDatabasePath = "/elsewhere.bwd";
    m.Form_QueryUnload(cancel);
    EXPECT_EQ(fake.settings.Get("General", "LastDB", "<none>"), "/data/my designs.bwd");
}

TEST_F(MainFixture, NewWindowsCascadeAndRestartAtTheScreenEdge) {
    frmMain m;
    m.Form_Load();
    int32_t l1 = 0, t1 = 0, l2 = 0, t2 = 0;
    m.zSetStartPos(l1, t1, 9000, 6000);
    m.zSetStartPos(l2, t2, 9000, 6000);
    EXPECT_EQ(l1, 1000);
    EXPECT_EQ(t1, 1805);
    EXPECT_EQ(l2 - l1, 120);
    EXPECT_EQ(t2 - t1, 120);
    EXPECT_EQ(m.wStartCount, 2);

    EXPECT_EQ(m.Top, 500);
    // Far down the cascade a window would pass the screen: it restarts at
    // the origin, and the origin moves only in the direction that overflowed.
    m.ScreenWidth = 30000;
    m.ScreenHeight = 1805 + 6000 + 240;
    int32_t l3 = 0, t3 = 0;
    m.zSetStartPos(l3, t3, 9000, 6000);
    EXPECT_EQ(l3, 1000 + 240);
    EXPECT_EQ(t3, 1805 + 240);
    m.zSetStartPos(l3, t3, 9000, 6000);
    EXPECT_EQ(l3, 1000 + 360);
    EXPECT_EQ(t3, 1805);
    EXPECT_EQ(m.wStartTop, 1805);
    // Across as well: a window past the right edge starts again at the left.
    m.ScreenWidth = 1000 + 480 + 9000 - 1;
    m.zSetStartPos(l3, t3, 9000, 6000);
    EXPECT_EQ(l3, 1000);
    EXPECT_EQ(m.wStartLeft, 1000);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(MainFixture, AboutShowsTheVersionTheMakerAndTheSplashNotice) {
    ScopedFakeFormHost host;
    std::vector<std::string> texts;
    host->onShow["frmAbout"] = [&](FormModel& f) {
        auto& a = static_cast<frmAbout&>(f);
        for (Label* l : {&a.LTitle, &a.LVersion, &a.LCompany, &a.LNotice, &a.LMaker, &a.LWeb})
            texts.push_back(l->Caption());
        a.PButOK.DoClick();
    };
    frmMain m;
    m.mnuAboutBW.DoClick();
    EXPECT_EQ(texts, (std::vector<std::string>{"The Brasswick Works", "3.0.18", "Tallowmere Workshop",
                                               "BattleTech is a registered Trademark of the FASA corporation",
                                               kMakerNotice, kSupportWeb}));
    EXPECT_EQ(host->closed, std::vector<std::string>{"frmAbout"});
}

TEST_F(MainFixture, UpgradeAsksForTheFileAndCancelDoesNothing) {
    frmMain m;
    m.Form_Load();
    EXPECT_TRUE(m.mnuFileUpgDB.Enabled());
    m.mnuFileUpgDB.DoClick();
    ASSERT_EQ(fake.ui.dialogs.size(), 1u);
    EXPECT_EQ(fake.ui.dialogs[0].title, "Open Database");
    EXPECT_EQ(fake.ui.dialogs[0].filter, "Brasswick Works Databases (*.bwd)|*.bwd");
    EXPECT_TRUE(fake.ui.boxes.empty());
}
