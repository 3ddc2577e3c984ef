// The vehicle editor model: set-up by tech and type, the speed and tonnage
// stepping, the text corrections, the saved mark, the free-tonnage colours,
// the save checks and the close question.
#include <gtest/gtest.h>

#include <memory>

#include "core/Forms.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Settings.h"
#include "database/DatabaseOps.h"
#include "VehicleTestSupport.h"
#include "support/NewEditor.h"
#include "vehicle/frmVhl.h"

using namespace bw;
using namespace bw::test;

namespace {

constexpr int32_t kRed = 0x0000FF, kGreen = 0x00FF00, kBlack = 0;

class EditorTest : public VehicleTest {
protected:
    int16_t savedGift = gGiftMessage;
    std::unique_ptr<frmVhl> win;

    void TearDown() override {
        gGiftMessage = savedGift;
        win.reset();
        zResetDatabase();
    }
    // As the New Vehicle command makes an editor.
    frmVhl& New(int16_t type, int16_t base = 0, int16_t level = 3) {
        win = NewEditor(type, base, level);
        return *win;
    }
    static std::vector<std::string> Lines(const ComboBox& c) {
        std::vector<std::string> v;
        for (int32_t i = 0; i < c.ListCount(); ++i) v.push_back(c.List(i));
        return v;
    }
    // Types a text and leaves the box.
    static void Type(TextBox& t, const std::string& text) {
        t.SetText(text);
        t.LostFocus();
    }
};

}  // namespace

TEST(CheckTextBox, CorrectsWithoutRefusing) {
    TextBox t;
    auto check = [&](const std::string& in, int16_t lo, int16_t hi, bool strip) {
        t.SetText(in);
        zCheckTextBox(t, lo, hi, strip);
        return t.Text();
    };
    EXPECT_EQ(check("abc", 1, 30, true), "1");
    EXPECT_EQ(check("", 1, 30, true), "1");
    EXPECT_EQ(check("45", 1, 30, true), "30");
    EXPECT_EQ(check("99999999999", 1, 30, true), "30");
    EXPECT_EQ(check("-4", 1, 30, true), "1");
    EXPECT_EQ(check("007", 1, 30, true), "7");
    EXPECT_EQ(check("007", 1, 30, false), "007");
    EXPECT_EQ(check("000", 0, 30, true), "0");
    EXPECT_EQ(check("0", 3, 30, true), "3");
}

TEST_F(EditorTest, OfferByTechBaseAndLevel) {
    New(kVhlTracked, 0, 1);
    EXPECT_EQ(Lines(win->cmboEngType), (std::vector<std::string>{"I.C.E.", "Fusion"}));
    EXPECT_FALSE(win->cmboArmorType.Visible());
    EXPECT_FALSE(win->CBoxTC.Visible());
    EXPECT_FALSE(win->TAdditionalCrew.Visible());
    EXPECT_EQ(win->LTechBase.Caption(), "Inner Sphere");

    New(kVhlTracked, 0, 2);
    EXPECT_EQ(Lines(win->cmboEngType), (std::vector<std::string>{"I.C.E.", "Fusion", "Fusion XL"}));
    EXPECT_EQ(Lines(win->cmboArmorType), (std::vector<std::string>{"Normal", "Ferro-Fibrous"}));
    EXPECT_FALSE(win->CBoxTC.Visible());

    New(kVhlTracked, 0, 3);
    EXPECT_EQ(Lines(win->cmboEngType),
              (std::vector<std::string>{"I.C.E.", "Fusion", "Fusion XL", "Fusion XXL", "Large I.C.E.",
                                        "Large Fusion", "Large Fusion XL", "Large Fusion XXL"}));
    EXPECT_EQ(win->cmboArmorType.ListCount(), 6);
    EXPECT_TRUE(win->CBoxTC.Visible());
    EXPECT_TRUE(win->TAdditionalCrew.Visible());

    New(kVhlTracked, 1, 2);
    EXPECT_EQ(Lines(win->cmboEngType), (std::vector<std::string>{"I.C.E.", "Fusion", "Fusion XL"}));
    EXPECT_TRUE(win->CBoxTC.Visible());
    EXPECT_FALSE(win->TAdditionalCrew.Visible());
    EXPECT_EQ(win->LTechBase.Caption(), "Clan");

    New(kVhlTracked, 1, 3);
    EXPECT_EQ(win->cmboEngType.ListCount(), 8);
    EXPECT_EQ(Lines(win->cmboArmorType), (std::vector<std::string>{"Normal", "Ferro-Fibrous"}))
        << "the four extra armors are Inner Sphere only";
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
    EXPECT_TRUE(win->CBoxHasTurret.Visible());
    EXPECT_EQ(win->CBoxHasTurret.Caption(), "Chin Turret");
    EXPECT_TRUE(win->cmboRotorArrangement.Visible());

    New(kVhlSubmarine, 0, 1);
    EXPECT_EQ(win->scrlTonnage.Max(), 300);
    EXPECT_EQ(win->LControlDesc[2].Caption(), "Dive Equipment");

    New(kVhlSuperHeavy, 0, 3);
    EXPECT_EQ(win->scrlTonnage.Min(), 100);
    EXPECT_EQ(win->scrlTonnage.Max(), 200);
    EXPECT_EQ(win->vhl->Tonnage, 100) << "the tonnage input moved into its range";
    EXPECT_TRUE(win->CBoxSupercharger.Visible());
    EXPECT_FALSE(win->CBoxJJs.Visible());
    EXPECT_FALSE(win->TArmorLoc[1].Visible());
    EXPECT_TRUE(win->TArmorLoc[8].Visible());
    EXPECT_EQ(win->wArmorPicture, 13);
}

TEST_F(EditorTest, NewDesignStartsUnsavedAtFiveTonsWithASensibleRating) {
    New(kVhlTracked);
    EXPECT_EQ(win->vhl->Tonnage, 5);
    EXPECT_EQ(win->vhl->CruiseSpeed, 1);
    EXPECT_EQ(win->vhl->EngineRating, 5);
    EXPECT_EQ(win->wSaved, 0);
    EXPECT_EQ(win->Window.Caption(), " *");
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
    EXPECT_EQ(win->vhl->EngineRating, 100);
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
    New(kVhlTracked);
    Type(win->TTonnage, "52");
    EXPECT_EQ(win->TTonnage.Text(), "5");
    EXPECT_EQ(win->vhl->Tonnage, 5);
    Type(win->TTonnage, "0050");
    EXPECT_EQ(win->vhl->Tonnage, 50);
    Type(win->TTonnage, "400");
    EXPECT_EQ(win->vhl->Tonnage, 100);
    Type(win->TTonnage, "heavy");
    EXPECT_EQ(win->vhl->Tonnage, 5);

    Type(win->TCruise, "x");
    EXPECT_EQ(win->vhl->CruiseSpeed, 1);
    Type(win->TCruise, "04");
    EXPECT_EQ(win->TCruise.Text(), "4");
    EXPECT_EQ(win->vhl->CruiseSpeed, 4);
    Type(win->TCruise, "99");
    EXPECT_EQ(win->scrlSpeed.Value(), 30);

    New(kVhlSuperHeavy);
    Type(win->TTonnage, "152");
    EXPECT_EQ(win->TTonnage.Text(), "100");
    EXPECT_EQ(win->vhl->Tonnage, 100);
    Type(win->TTonnage, "150");
    EXPECT_EQ(win->vhl->Tonnage, 150);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(EditorTest, SavedMarkAndTitle) {
    New(kVhlTracked);
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
    const Vehicle before = *win->vhl;
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
    EXPECT_EQ(win->vhl->Tonnage, before.Tonnage);
    EXPECT_EQ(win->vhl->CruiseSpeed, before.CruiseSpeed);
    EXPECT_EQ(win->vhl->Name, before.Name);
    EXPECT_EQ(win->vhl->HasBridgeLayer, 0);
    EXPECT_EQ(win->vhl->HasTurret, 0);
    EXPECT_EQ(win->vhl->ArmorType, 0);
    EXPECT_EQ(win->vhl->ArmorTonnage, 0);
    EXPECT_EQ(win->vhl->FrontArmor, 0);
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
    frmVhl& Ready(double armorHalfTons) {
        New(kVhlTracked);
        win->scrlTonnage.SetValue(50);
        win->scrlSpeed.SetValue(4);
        win->scrlArmorTonnage.SetValue(static_cast<int16_t>(armorHalfTons));
        // Every point allocated: front takes it all.
        win->scrlArmorLoc[0].SetValue(win->scrlArmorLoc[0].Max());
        win->TName.SetText("  Scorpion ");
        gDatabasePath = zAppFile("designs.bwd");
        return *win;
    }
};

}  // namespace

TEST_F(SaveTest, NameIsRequired) {
    Ready(0);
    win->TName.SetText("   ");
    EXPECT_EQ(win->zValidateSave(), 0);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().text, "You must supply a name for this vehicle!");
    EXPECT_EQ(fake.ui.LastBox().title, "No name");
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Critical);
}

TEST_F(SaveTest, GiftRangeSavesWithItsMessageUnlessSuppressed) {
    Ready(52);  // half a ton over
    gGiftMessage = 0;
    EXPECT_EQ(win->zValidateSave(), -1);
    EXPECT_EQ(win->vhl->Name, "Scorpion") << "trimmed";
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Within 'Gift' Range");
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Information);
    EXPECT_EQ(fake.ui.LastBox().text,
              "This vehicle is overweight by 0.5 but falls under the one ton 'Brasswick Works Gift Tonnage'. The "
              "vehicle is a valid design. The gift tonnage exists for poorly templated stock vehicles made by people "
              "who can't add.");
    gGiftMessage = 1;
    EXPECT_EQ(win->zValidateSave(), -1);
    EXPECT_EQ(fake.ui.boxes.size(), 1u);

    win->PButSave.DoClick();
    EXPECT_EQ(win->wSaved, -1);
    EXPECT_EQ(win->Window.Caption(), "Scorpion");
    ASSERT_EQ(gVehicles.size(), 1u);
    EXPECT_EQ(gVehicles[0].get(), win->vhl.get());
    EXPECT_TRUE(zFileExists(gDatabasePath));
    EXPECT_EQ(win->vhl->FreeTonnage, -0.5) << "saved with a negative free tonnage";
}

TEST_F(SaveTest, ExactlyOneTonOverIsRefused) {
    Ready(53);
    EXPECT_EQ(win->zValidateSave(), 0);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().text, "This vehicle is overweight by 1 tons.");
    EXPECT_EQ(fake.ui.LastBox().title, "Overweight");
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Information);
    win->PButSave.DoClick();
    EXPECT_EQ(win->wSaved, 0);
    EXPECT_FALSE(zFileExists(gDatabasePath));
}

TEST_F(SaveTest, ArmorAndItemsMustBeAllocated) {
    Ready(20);
    win->scrlArmorLoc[0].SetValue(0);
    EXPECT_EQ(win->zValidateSave(), 0);
    EXPECT_EQ(fake.ui.LastBox().text, "You have not allocated all of your armor. Please do so before saving.");
    EXPECT_EQ(fake.ui.LastBox().title, "Armor remaining");
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Information);

    win->scrlArmorLoc[0].SetValue(win->scrlArmorLoc[0].Max());
    win->vhl->AddWeapon(kMedLaser);
    EXPECT_EQ(win->zValidateSave(), 0);
    EXPECT_EQ(fake.ui.LastBox().text,
              "There are weapons and equipment that are not yet allocated. Please allocate these before saving.");
    EXPECT_EQ(fake.ui.LastBox().title, "Unallocated equipment");
    win->vhl->UpdateWeaponLocation(0, kLocFront);
    EXPECT_EQ(win->zValidateSave(), -1);
}

TEST_F(SaveTest, CloseQuestion) {
    Ready(20);
    // Cancel keeps the window.
    fake.ui.answers = {MsgResult::Cancel};
    win->PButClose.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().text, "This vehicle is not yet saved, would you like to save it?");
    EXPECT_EQ(fake.ui.LastBox().title, "Save?");
    EXPECT_EQ(fake.ui.LastBox().buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Question);
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
    int closed = 0;
    win->CloseWindow = [&] { ++closed; };
    fake.ui.answers = {MsgResult::Yes, MsgResult::Yes};
    win->PButClose.DoClick();
    EXPECT_FALSE(win->Loaded);
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(gForms().empty());
    EXPECT_EQ(gVehicles[0].get(), win->vhl.get());
    EXPECT_EQ(win->vhl->frm, nullptr);
}

TEST_F(SaveTest, NoLosesTheChangesAndASavedDesignAsksNothing) {
    Ready(20);
    fake.ui.answers = {MsgResult::No};
    win->RequestUnload();
    EXPECT_FALSE(win->Loaded);
    EXPECT_FALSE(zFileExists(gDatabasePath));

    Ready(20);
    win->zSetSaved(kTrue);
    fake.ui.boxes.clear();
    win->RequestUnload();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_FALSE(win->Loaded);
}
