// The main window's fighter commands: the menu items and toolbar keys, New
// Fighter through its dialog, saving with the overwrite question, Open
// Fighter on a copy (an Omni-Fighter ends on "Primary"), the cost window,
// Delete Fighter, and the refusal of a blank table.
#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>

#include "core/Settings.h"
#include "database/DatabaseOps.h"
#include "evaluation/frmCost.h"
#include "fighter/FighterTestSupport.h"
#include "fighter/frmFtr.h"
#include "fighter/frmNFtr.h"
#include "shell/frmFOpen.h"
#include "shell/frmMain.h"
#include "support/FakeFormHost.h"

using namespace bw;
using namespace bw::test;

namespace {

struct Choice {
    int16_t base, levelPos, type;
    bool cancel = false;
};

class FighterCommands : public ::testing::Test {
protected:
    AppFolder app;
    ScopedFakeUi fake;
    ScopedFighterWeapons weapons;
    ScopedFakeFormHost host;
    frmMain m;
    std::deque<Choice> choices;
    std::string pickName;
    std::vector<std::string> pickerCaptions;

    void SetUp() override {
        m.Load();
        gDatabasePath = app.dir.File("works.bwd");
        host->onShow["frmNFtr"] = [this](FormModel& f) {
            auto& d = static_cast<frmNFtr&>(f);
            ASSERT_FALSE(choices.empty());
            const Choice c = choices.front();
            choices.pop_front();
            if (c.cancel) return d.PButCancel.DoClick();
            d.cmboBase.SetListIndex(c.base);
            d.cmboLevel.SetListIndex(c.levelPos);
            d.cmboType.SetListIndex(c.type);
            d.PButCreate.DoClick();
        };
        host->onShow["frmFOpen"] = [this](FormModel& f) {
            auto& d = static_cast<frmFOpen&>(f);
            pickerCaptions.push_back(d.Window.Caption() + "|" + d.PButOpen.Caption());
            for (int32_t i = 0; i < d.lvFTRs.Count(); ++i)
                if (d.lvFTRs.Item(i).Text == pickName) {
                    d.lvFTRs.Select(i);
                    return d.PButOpen.DoClick();
                }
            d.PButCancel.DoClick();
        };
    }
    void TearDown() override {
        host->adopted.clear();
        zResetDatabase();
    }
    std::vector<frmFtr*> Editors() const {
        std::vector<frmFtr*> out;
        for (const auto& f : host.host.adopted)
            if (auto* e = dynamic_cast<frmFtr*>(f.get())) out.push_back(e);
        return out;
    }
    frmFtr* New(Choice c) {
        choices.push_back(c);
        const size_t before = Editors().size();
        m.mnuFIghterNew.DoClick();
        return Editors().size() > before ? Editors().back() : nullptr;
    }
    // A small legal design of each kind, named.
    frmFtr& Legal(int16_t type, const std::string& name) {
        frmFtr* e = New({type == kFtrConventional ? int16_t{0} : int16_t{1}, 0, type});
        EXPECT_NE(e, nullptr);
        e->scrlTonnage.SetValue(30);
        e->TName.SetText(name);
        return *e;
    }
};

}  // namespace

TEST_F(FighterCommands, MenusAndToolbarReachTheFighterCommands) {
    const std::pair<const MenuItem*, const char*> items[] = {
        {&m.mnuFIghterNew, "&New Fighter"}, {&m.mnuFighterOpen, "&Open Fighter"}, {&m.mnuFighterDel, "&Delete Fighter"}};
    for (const auto& [item, caption] : items) {
        EXPECT_TRUE(item->Enabled()) << caption;
        EXPECT_EQ(item->Caption(), caption);
    }
    for (const auto& b : m.TBarMain)
        if (b.Kind == "fighter") EXPECT_TRUE(b.Enabled) << b.Key;
    // A blank table refuses both the open and the delete key.
    m.TBarMain_ButtonClick("butOpenFtr");
    EXPECT_EQ(fake.ui.LastBox().text, "There are no fighters within this database.");
    EXPECT_EQ(fake.ui.LastBox().title, "No Fighters");
    m.TBarMain_ButtonClick("butDelFtr");
    EXPECT_EQ(pickerCaptions, std::vector<std::string>{"Delete Fighter|&Delete"});
    choices.push_back({0, 0, 0, true});
    m.TBarMain_ButtonClick("butNewFtr");
    EXPECT_TRUE(choices.empty());
    EXPECT_TRUE(Editors().empty());
}

TEST_F(FighterCommands, NewFighterMakesTheChosenDesignOnTheCascade) {
    struct Row {
        Choice c;
        int16_t type, base, level;
        const char* kind;
    };
    const Row rows[] = {
        {{0, 0, 0}, kFtrConventional, 0, 1, "Conventional Fighter"},
        {{0, 2, 1}, kFtrAerospace, 0, 3, "Aerospace Fighter"},
        {{1, 0, 2}, kFtrOmni, 1, 2, "Omni-Fighter"},
    };
    int32_t lastLeft = -1;
    for (const Row& r : rows) {
        frmFtr* e = New(r.c);
        ASSERT_NE(e, nullptr) << r.kind;
        EXPECT_EQ(e->FTR->FighterType, r.type);
        EXPECT_EQ(e->FTR->TechBase, r.base);
        EXPECT_EQ(e->FTR->TechLevel, r.level);
        EXPECT_EQ(e->FTR->Tonnage, 5);
        EXPECT_EQ(e->FTR->frm, static_cast<FighterWindow*>(e));
        EXPECT_EQ(e->LFighterType.Caption(), r.kind);
        EXPECT_EQ(e->Owner, &m);
        if (lastLeft >= 0) EXPECT_EQ(e->Left - lastLeft, 120);
        lastLeft = e->Left;
    }
}

TEST_F(FighterCommands, SavingAsksBeforeOverwritingWithTheTypeWords) {
    const std::pair<int16_t, std::string> rows[] = {
        {kFtrConventional, "There is already  an Inner Sphere conventional fighter named Hawk in this database, "
                           "would you like to overwrite it?"},
        {kFtrAerospace, "There is already  a Clan aerospace fighter named Hawk in this database, would you like "
                        "to overwrite it?"},
        {kFtrOmni, "There is already  a Clan omni-fighter named Hawk in this database, would you like to "
                   "overwrite it?"},
    };
    for (const auto& [type, question] : rows) {
        frmFtr& first = Legal(type, "Hawk");
        first.PButSave.DoClick();
        ASSERT_EQ(first.wSaved, kTrue) << fake.ui.LastBox().text;
        frmFtr& second = Legal(type, "Hawk");
        fake.ui.answers = {MsgResult::No};
        second.PButSave.DoClick();
        EXPECT_EQ(fake.ui.LastBox().text, question);
        EXPECT_EQ(fake.ui.LastBox().title, "Overwrite?");
        EXPECT_EQ(second.wSaved, kFalse);
        fake.ui.answers = {MsgResult::Yes};
        second.PButSave.DoClick();
        EXPECT_EQ(second.wSaved, kTrue);
    }
    // Three designs of one name side by side: types differ.
    EXPECT_EQ(gFighters.size(), 3u);
}

TEST_F(FighterCommands, OpenWorksOnACopyAndAnOmniEndsOnPrimary) {
    frmFtr& made = Legal(kFtrOmni, "Sabre");
    made.scrlFuel.SetValue(2);
    made.PButSave.DoClick();
    ASSERT_EQ(made.wSaved, kTrue);
    pickName = "Sabre";
    m.mnuFighterOpen.DoClick();
    frmFtr* e = Editors().back();
    ASSERT_NE(e, &made);
    EXPECT_NE(e->FTR.get(), gFighters[0].get());
    EXPECT_EQ(e->FTR->OmniCurrentConfig, 1);
    EXPECT_EQ(e->Window.Caption(), "Sabre - P");
    EXPECT_EQ(e->wSaved, kTrue);
    EXPECT_EQ(e->scrlFuel.Value(), 2);
    EXPECT_EQ(gFighters[0]->OmniCurrentConfig, 0) << "the table's design is left alone";
    // Cost/Stats: the fighter's cost window through the main window.
    bool cost = false;
    host->onShow["frmCost"] = [&](FormModel& f) { cost = dynamic_cast<frmCost*>(&f) != nullptr; };
    e->PButCost.DoClick();
    EXPECT_TRUE(cost);
}

TEST_F(FighterCommands, DeleteAsksAndDropsTheDesign) {
    frmFtr& made = Legal(kFtrAerospace, "Gull");
    made.PButSave.DoClick();
    ASSERT_EQ(gFighters[0]->Name, "Gull");
    pickName = "Gull";
    fake.ui.answers = {MsgResult::No};
    m.mnuFighterDel.DoClick();
    EXPECT_EQ(fake.ui.LastBox().text, "Are you sure you want to delete the fighter named Gull?");
    EXPECT_EQ(fake.ui.LastBox().title, "Delete Fighter?");
    EXPECT_FALSE(zNoFighters());
    m.mnuFighterDel.DoClick();
    EXPECT_TRUE(zNoFighters());
}
