// The vehicle editor model: set-up by tech and type, the speed and tonnage
// stepping, the text corrections, the saved mark, the free-tonnage colours,
// the save checks and the close question.
#include <gtest/gtest.h>

#include <functional>

#include "EditorFixture.h"
#include "core/Forms.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Settings.h"
#include "database/DatabaseOps.h"
#include "shell/frmMain.h"
#include "support/FakeFormHost.h"
#include "support/NewEditor.h"

using namespace bw;
using namespace bw::test;

namespace {

constexpr int32_t kRed = 0x0000FF, kGreen = 0x00FF00, kBlack = 0;
using Texts = std::vector<std::string>;

class EditorTest : public EditorFixture {
protected:
    int16_t savedGift = gGiftMessage;

    void TearDown() override {
        gGiftMessage = savedGift;
        EditorFixture::TearDown();
    }
    // Types a text and leaves the box.
    static void Type(TextBox& t, const std::string& text) {
        t.SetText(text);
        t.LostFocus();
    }
};

}  // namespace

TEST(CheckTextBox, CorrectsWithoutRefusing) {
    struct Case {
        const char* in;
        int16_t lo;
        bool strip;
        const char* out;
    } cases[] = {{"abc", 1, true, "1"}, {"", 1, true, "1"},     {"45", 1, true, "30"},   {"99999999999", 1, true, "30"},
                 {"-4", 1, true, "1"},  {"007", 1, true, "7"}, {"007", 1, false, "007"}, {"000", 0, true, "0"},
                 {"0", 3, true, "3"}};
    for (const Case& c : cases) {
        TextBox t;
        t.SetText(c.in);
        zCheckTextBox(t, c.lo, 30, c.strip);
        EXPECT_EQ(t.Text(), c.out) << c.in;
    }
}

TEST_F(EditorTest, OfferByTechBaseAndLevel) {
    const Texts engines3 = {"I.C.E.",       "Fusion",          "Fusion XL",       "Fusion XXL",
                            "Large I.C.E.", "Large Fusion",    "Large Fusion XL", "Large Fusion XXL"};
    struct Case {
        int16_t base, level, engines;
        Texts armor;  // empty: the armor list is hidden
        bool tc, crew;
    } cases[] = {
        {0, 1, 2, {}, false, false},
        {0, 2, 3, {"Normal", "Ferro-Fibrous"}, false, false},
        {0, 3, 8, {"Normal", "Ferro-Fibrous", "Light Ferro-Fibrous", "Heavy Ferro-Fibrous", "Laser Reflective",
                   "Reactive"}, true, true},
        {1, 2, 3, {"Normal", "Ferro-Fibrous"}, true, false},
        {1, 3, 8, {"Normal", "Ferro-Fibrous"}, true, true},  // the four extra armors are Inner Sphere only
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.base << "/" << c.level);
        New(kVhlTracked, c.base, c.level);
        EXPECT_EQ(Lines(win->cmboEngType), Texts(engines3.begin(), engines3.begin() + c.engines));
        EXPECT_EQ(win->cmboArmorType.Visible(), !c.armor.empty());
        if (!c.armor.empty()) { EXPECT_EQ(Lines(win->cmboArmorType), c.armor); }
        EXPECT_EQ(win->CBoxTC.Visible(), c.tc);
        EXPECT_EQ(win->TAdditionalCrew.Visible(), c.crew);
        EXPECT_EQ(win->LTechBase.Caption(), c.base ? "Clan" : "Inner Sphere");
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(EditorTest, OfferByType) {
    New(kVhlWheeled, 0, 2);
    EXPECT_EQ(win->scrlTonnage.Max(), 80);
    EXPECT_TRUE(win->CBoxDuneBuggy.Visible());
    EXPECT_FALSE(win->CBoxJJs.Visible());
    EXPECT_FALSE(win->CBoxSupercharger.Visible());
    EXPECT_FALSE(win->LControlTonnage[2].Visible());

    New(kVhlVTOL, 0, 2);
    EXPECT_EQ(win->scrlTonnage.Max(), 30);
    EXPECT_FALSE(win->CBoxHasTurret.Visible()) << "no main turret below level 3";
    EXPECT_FALSE(win->cmboRotorArrangement.Visible());
    EXPECT_TRUE(win->CBoxMastMount.Visible());
    EXPECT_FALSE(win->tabSpecials.Visible());
    EXPECT_EQ(win->LControlDesc[2].Caption(), "Rotor");
    EXPECT_TRUE(win->TArmorLoc[5].Visible()) << "the rotor always takes armor";

    New(kVhlVTOL, 0, 3);
    EXPECT_EQ(win->CBoxHasTurret.Caption(), "Chin Turret");
    EXPECT_TRUE(win->CBoxHasTurret.Visible());
    EXPECT_TRUE(win->cmboRotorArrangement.Visible());

    New(kVhlSubmarine, 0, 1);
    EXPECT_EQ(win->scrlTonnage.Max(), 300);
    EXPECT_EQ(win->LControlDesc[2].Caption(), "Dive Equipment");

    New(kVhlSuperHeavy, 0, 3);
    EXPECT_EQ(win->scrlTonnage.Min(), 100);
    EXPECT_EQ(win->scrlTonnage.Max(), 200);
    EXPECT_TRUE(win->CBoxSupercharger.Visible());
    EXPECT_FALSE(win->CBoxJJs.Visible());
    EXPECT_FALSE(win->TArmorLoc[1].Visible());
    EXPECT_TRUE(win->TArmorLoc[8].Visible());
    EXPECT_EQ(win->wArmorPicture, 13);
}

TEST_F(EditorTest, NewDesignIsAnUnsavedRegisteredWindowWithASensibleRating) {
    New(kVhlTracked);
    EXPECT_EQ(win->vhl->EngineRating, 5);
    // The speed input already stands at 1; its figures show all the same.
    EXPECT_EQ(win->TCruise.Text(), "1");
    EXPECT_EQ(win->LFlank.Caption(), "2");
    EXPECT_EQ(win->PButSave.Caption(), "&Save");
    // An unsaved design is refused before any print window opens.
    win->PButPrint.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text, "This vehicle is not yet saved. You must save it before printing.");
    EXPECT_EQ(fake.ui.boxes[0].title, "Save vehicle first");
    win->wSaved = -1;
    win->vhl->VhlType = kVhlSuperHeavy;
    win->PButPrint.DoClick();
    EXPECT_EQ(fake.ui.LastBox().text, "Printing is not implemented for Super Heavy Tanks yet.");
    EXPECT_EQ(fake.ui.LastBox().title, "Printing not available");
    win->vhl->VhlType = kVhlTracked;
    win->wSaved = 0;
    fake.ui.boxes.clear();
    ASSERT_EQ(gForms().size(), 1u);
    EXPECT_EQ(gForms()[0]->FormName(), "frmVhl");

    // A hover of five tons at one point has a rating below 5: the speed
    // steps up until it fits.
    New(kVhlHover);
    EXPECT_EQ(win->vhl->CruiseSpeed, 9);
    EXPECT_EQ(win->vhl->EngineRating, 5);
    EXPECT_EQ(win->TCruise.Text(), "9");
    EXPECT_EQ(win->LFlank.Caption(), "14");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(EditorTest, SpeedStepsDownToTheRatingLimitAndTonnageKeepsItAboveFive) {
    New(kVhlTracked);
    win->scrlTonnage.SetValue(100);
    win->scrlSpeed.SetValue(5);  // 500: above the limit of an I.C.E.
    EXPECT_EQ(win->vhl->CruiseSpeed, 4);
    EXPECT_EQ(win->vhl->EngineRating, 400);
    EXPECT_EQ(win->scrlSpeed.Value(), 4);

    // Falling tonnage cannot take the rating below 5.
    win->scrlSpeed.SetValue(1);
    for (int i = 0; i < 19; ++i) win->scrlTonnage.StepDown();
    EXPECT_EQ(win->vhl->Tonnage, 5);
    EXPECT_GE(win->vhl->EngineRating, 5);

    // A large engine allows 500.
    win->scrlTonnage.SetValue(100);
    win->cmboEngType.SetListIndex(win->zGetEngineIdx(kEngLargeFusion));
    win->scrlSpeed.SetValue(5);
    EXPECT_EQ(win->vhl->EngineRating, 500);
    // Back to a Fusion engine: the speed steps down at once.
    win->cmboEngType.SetListIndex(win->zGetEngineIdx(kEngFusion));
    EXPECT_EQ(win->vhl->EngineType, kEngFusion);
    EXPECT_EQ(win->vhl->EngineRating, 400);
    EXPECT_EQ(win->vhl->EngineTonnage, 79) << "52.5 as Fusion is 78.75, an integer 79";
}

TEST_F(EditorTest, TextCorrections) {
    struct Case {
        int16_t type;
        bool tonnage;  // else the cruise box
        const char* typed;
        const char* shown;
        int16_t value;
    } cases[] = {
        {kVhlTracked, true, "52", "5", 5},  // off the five-ton steps: back to the bottom
        {kVhlTracked, true, "0050", "50", 50},
        {kVhlTracked, true, "15", "15", 15},
        {kVhlTracked, true, "400", "100", 100},
        {kVhlTracked, true, "heavy", "5", 5},
        {kVhlTracked, false, "x", "1", 1},
        {kVhlTracked, false, "04", "4", 4},
        {kVhlTracked, false, "99", "30", 30},
        {kVhlSuperHeavy, true, "152", "100", 100},
        {kVhlSuperHeavy, true, "150", "150", 150},
    };
    int16_t type = -1;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        if (c.type != type) New(type = c.type);
        Type(c.tonnage ? win->TTonnage : win->TCruise, c.typed);
        EXPECT_EQ((c.tonnage ? win->TTonnage : win->TCruise).Text(), c.shown);
        EXPECT_EQ(c.tonnage ? win->vhl->Tonnage : win->vhl->CruiseSpeed, c.value);
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(EditorTest, ArmorTonnageTypedGoesToTheNearestHalfTonWithinLimits) {
    New(kVhlTracked);
    win->scrlArmorTonnage.SetMax(20);
    const std::pair<const char*, const char*> cases[] = {
        {"2.4", "2.5"}, {"1.25", "1"}, {"armor", "1"}, {"-3", "0"}, {"99", "10"}, {"3", "3"}};
    for (const auto& [typed, shown] : cases) {
        SCOPED_TRACE(typed);
        Type(win->TArmorTonnage, typed);
        EXPECT_EQ(win->TArmorTonnage.Text(), shown);
        EXPECT_EQ(win->vhl->ArmorTonnage, std::stod(shown));
        EXPECT_EQ(win->LArmorTonnage.Caption(), shown);
    }
    win->scrlArmorTonnage.StepUp();
    EXPECT_EQ(win->TArmorTonnage.Text(), "3.5");
}

TEST_F(EditorTest, SavedMarkAndTitle) {
    New(kVhlTracked);
    EXPECT_EQ(win->wSaved, 0);
    EXPECT_EQ(win->Window.Caption(), " *");
    win->zSetSaved(kTrue);
    win->TName.SetText("Scorpion");
    EXPECT_EQ(win->vhl->Name, "Scorpion");
    EXPECT_EQ(win->wSaved, 0);
    EXPECT_EQ(win->Window.Caption(), "Scorpion *");
    win->zSetSaved(kTrue);
    EXPECT_EQ(win->Window.Caption(), "Scorpion");
    win->cmboRotorArrangement.SetListIndex(2);
    EXPECT_EQ(win->Window.Caption(), "Scorpion *");
}

TEST_F(EditorTest, WhileLoadingNothingChangesAndNothingIsAsked) {
    New(kVhlTracked);
    win->scrlTonnage.SetValue(50);
    win->zSetSaved(kTrue);
    auto state = [&] {
        const Vehicle& v = *win->vhl;
        return std::vector<double>{double(v.Tonnage), double(v.CruiseSpeed), double(v.HasBridgeLayer),
                                   double(v.HasTurret),  double(v.ArmorType), v.ArmorTonnage,
                                   double(v.FrontArmor), double(v.Name.size())};
    };
    const auto before = state();
    win->wLoading = kTrue;
    win->scrlTonnage.SetValue(80);
    win->scrlSpeed.SetValue(7);
    win->TName.SetText("Other");
    win->CBoxBridgelayer.SetValue(1);
    win->CBoxHasTurret.SetValue(1);
    win->CBoxBulldozer.SetValue(1);
    win->cmboArmorType.SetListIndex(5);
    win->scrlArmorTonnage.SetValue(4);
    win->scrlArmorLoc[0].SetMax(10);
    win->scrlArmorLoc[0].SetValue(3);
    win->zUpdateTonnageLists();
    EXPECT_EQ(state(), before);
    EXPECT_EQ(win->wSaved, -1);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(EditorTest, FreeTonnageColourAndFlashing) {
    New(kVhlTracked);
    win->scrlTonnage.SetValue(50);
    win->scrlSpeed.SetValue(4);  // 17 t engine
    EXPECT_GE(win->vhl->FreeTonnage, 0);
    EXPECT_EQ(win->LTonnageFree.ForeColor(), kBlack);
    EXPECT_FALSE(win->Timer1.Enabled());

    // 24.5 t before armor. Half a ton over: red and steady, the gift range.
    win->scrlArmorTonnage.SetValue(52);
    EXPECT_EQ(win->vhl->FreeTonnage, -0.5);
    EXPECT_EQ(win->LTonnageFree.Caption(), "-0.5");
    EXPECT_EQ(win->LTonnageFree.ForeColor(), kRed);
    EXPECT_FALSE(win->Timer1.Enabled());
    // Exactly a ton over already flashes.
    win->scrlArmorTonnage.SetValue(53);
    EXPECT_EQ(win->vhl->FreeTonnage, -1);
    EXPECT_TRUE(win->Timer1.Enabled());
    win->Timer1.Tick();
    EXPECT_EQ(win->LTonnageFree.ForeColor(), kGreen);
    win->Timer1.Tick();
    EXPECT_EQ(win->LTonnageFree.ForeColor(), kRed);
    win->scrlArmorTonnage.SetValue(0);
    EXPECT_FALSE(win->Timer1.Enabled());
    EXPECT_EQ(win->LTonnageFree.ForeColor(), kBlack);
}

// --- Save checks and the close question ------------------------------------

namespace {

// A 50-ton tracked design at 4 points, 24.5 t before armor, named.
class SaveTest : public EditorTest {
protected:
    // The editor saves through the window that opened it.
    frmMain main;
    test::ScopedFakeFormHost host;
    frmVhl& Ready(int16_t armorHalfTons) {
        New(kVhlTracked);
        win->Owner = &main;
        win->scrlTonnage.SetValue(50);
        win->scrlSpeed.SetValue(4);
        win->scrlArmorTonnage.SetValue(armorHalfTons);
        // Every point allocated: front takes it all.
        win->scrlArmorLoc[0].SetValue(win->scrlArmorLoc[0].Max());
        win->TName.SetText("  Scorpion ");
        gDatabasePath = zAppFile("designs.bwd");
        return *win;
    }
};

}  // namespace

TEST_F(SaveTest, RefusalsNameTheirReasonAndSaveNothing) {
    struct Case {
        int16_t armor;
        std::function<void(frmVhl&)> spoil;
        Shown box;
    } cases[] = {
        {0, [](frmVhl& w) { w.TName.SetText("   "); },
         {"No name", "You must supply a name for this vehicle!", MsgIcon::Critical}},
        {53, [](frmVhl&) {}, {"Overweight", "This vehicle is overweight by 1 tons.", MsgIcon::Information}},
        {20, [](frmVhl& w) { w.scrlArmorLoc[0].SetValue(0); },
         {"Armor remaining", "You have not allocated all of your armor. Please do so before saving.",
          MsgIcon::Information}},
        {20, [](frmVhl& w) { w.vhl->AddWeapon(kMedLaser); },
         {"Unallocated equipment",
          "There are weapons and equipment that are not yet allocated. Please allocate these before saving.",
          MsgIcon::Information}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.box.title);
        fake.ui.boxes.clear();
        Ready(c.armor);
        c.spoil(*win);
        EXPECT_EQ(win->zValidateSave(), 0);
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_EQ(LastShown(fake.ui), c.box);
        win->PButSave.DoClick();
        EXPECT_EQ(win->wSaved, 0);
        EXPECT_FALSE(zFileExists(gDatabasePath));
    }
    // Placed, the item no longer stands in the way.
    win->vhl->UpdateWeaponLocation(0, kLocFront);
    EXPECT_EQ(win->zValidateSave(), -1);
}

TEST_F(SaveTest, GiftRangeSavesWithItsMessageUnlessSuppressed) {
    Ready(52);  // half a ton over
    gGiftMessage = 0;
    EXPECT_EQ(win->zValidateSave(), -1);
    EXPECT_EQ(win->vhl->Name, "Scorpion") << "trimmed";
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(LastShown(fake.ui),
              (Shown{"Within 'Gift' Range",
                     "This vehicle is overweight by 0.5 but falls under the one ton 'Brasswick Works Gift Tonnage'. "
                     "The vehicle is a valid design. The gift tonnage exists for poorly templated stock vehicles made "
                     "by people who can't add.",
                     MsgIcon::Information}));
    gGiftMessage = 1;
    EXPECT_EQ(win->zValidateSave(), -1);
    EXPECT_EQ(fake.ui.boxes.size(), 1u);

    win->PButSave.DoClick();
    EXPECT_EQ(win->wSaved, -1);
    EXPECT_EQ(win->Window.Caption(), "Scorpion");
    ASSERT_EQ(gVehicles.size(), 1u);
    EXPECT_EQ(gVehicles[0]->Name, "Scorpion");
    EXPECT_NE(gVehicles[0].get(), win->vhl.get()) << "the table keeps a copy of its own";
    EXPECT_EQ(gVehicles[0]->frm, nullptr);
    EXPECT_TRUE(zFileExists(gDatabasePath));
    EXPECT_EQ(win->vhl->FreeTonnage, -0.5) << "saved with a negative free tonnage";
}

TEST_F(SaveTest, CloseQuestion) {
    Ready(20);
    // Cancel keeps the window.
    fake.ui.answers = {MsgResult::Cancel};
    win->PButClose.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(LastShown(fake.ui),
              (Shown{"Save?", "This vehicle is not yet saved, would you like to save it?", MsgIcon::Question}));
    EXPECT_EQ(fake.ui.LastBox().buttons, MsgButtons::YesNoCancel);
    EXPECT_TRUE(win->Loaded);

    // Yes with a design that fails the checks keeps it too.
    win->TName.SetText("");
    fake.ui.answers = {MsgResult::Yes};
    win->PButClose.DoClick();
    EXPECT_EQ(fake.ui.LastBox().title, "No name");
    EXPECT_TRUE(win->Loaded);
    EXPECT_EQ(gForms().size(), 1u);

    // Yes, valid, but the overwrite is declined: the closing is cancelled.
    win->TName.SetText("Scorpion");
    auto twin = std::make_shared<Vehicle>(*win->vhl);
    twin->frm = nullptr;
    twin->OverrideInteractiveMode();
    gVehicles = {twin};
    fake.ui.answers = {MsgResult::Yes, MsgResult::No};
    win->PButClose.DoClick();
    EXPECT_EQ(fake.ui.LastBox().title, "Overwrite?");
    EXPECT_TRUE(win->Loaded);

    // Yes and saved: the window goes.
    fake.ui.answers = {MsgResult::Yes, MsgResult::Yes};
    win->PButClose.DoClick();
    EXPECT_FALSE(win->Loaded);
    EXPECT_EQ(host->closed, std::vector<std::string>{"frmVhl"});
    EXPECT_TRUE(gForms().empty());
    EXPECT_EQ(gVehicles[0]->Name, win->vhl->Name);
    EXPECT_EQ(win->vhl->frm, nullptr);
}

TEST_F(SaveTest, NoLosesTheChangesAndASavedDesignAsksNothing) {
    Ready(20);
    fake.ui.answers = {MsgResult::No};
    win->Unload();
    EXPECT_FALSE(win->Loaded);
    EXPECT_FALSE(zFileExists(gDatabasePath));

    Ready(20);
    win->zSetSaved(kTrue);
    fake.ui.boxes.clear();
    win->Unload();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_FALSE(win->Loaded);
}
