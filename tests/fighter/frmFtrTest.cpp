// The fighter editor as its user drives it: set-up by kind, the thrust
// correction, the text checks, the mirrored wings and the armor bounds, the
// free-tonnage colour, the caption, the save tests in order, the close
// question, the print refusals, the Omni lock and the configuration list,
// and the opening of a stored design.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "FighterTestSupport.h"
#include "core/BinaryIO.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "database/DatabaseFile.h"
#include "core/Settings.h"
#include "fighter/frmFtr.h"
#include "support/FakeFormHost.h"

using namespace bw;
using namespace bw::test;

namespace {

class FtrTest : public FighterTest {
protected:
    ScopedFakeFormHost host;

    static std::unique_ptr<frmFtr> New(int16_t type, int16_t base = kBaseClan, int16_t level = 2) {
        Fighter f;
        f.FighterType = type;
        f.SetTonnage(5);
        f.SetCruiseSpeed(1);
        f.TechBase = base;
        f.TechLevel = level;
        return frmFtr::zNewDesign(f);
    }
    // A design at the given tonnage and thrust through the controls.
    static std::unique_ptr<frmFtr> Sized(int16_t type, int16_t tons, int16_t thrust) {
        auto e = New(type);
        e->scrlTonnage.SetValue(tons);
        e->scrlThrust.SetValue(thrust);
        return e;
    }
    // A light legal Omni base: named, armor spent, weapons allocated.
    static std::unique_ptr<frmFtr> LegalBase() {
        auto e = Sized(kFtrOmni, 50, 6);
        e->TName.SetText("Sabre");
        e->FTR->AddWeapon(kMedLaser);
        e->FTR->UpdateWeaponLocation(0, kFtrLocNose, 1);
        e->zUpdateWeapons();
        return e;
    }
    std::vector<std::string> Titles() const {
        std::vector<std::string> out;
        for (const auto& b : fake.ui.boxes) out.push_back(b.title);
        return out;
    }
};

std::string Items(const ComboBox& c) {
    std::string s;
    for (int32_t i = 0; i < c.ListCount(); ++i) s += c.List(i) + ";";
    return s;
}

}  // namespace

TEST_F(FtrTest, SetupShowsWhatTheKindBaseAndLevelCarry) {
    struct Row {
        int16_t type, base, level;
        const char* engines;
        bool jets, sinks, dhs, armorType, tc, lock;
        const char* cockpit;
        const char* heat;
        int16_t maxTons;
        const char* kind;
    };
    const Row rows[] = {
        {kFtrConventional, 0, 1, "I.C.E.;Fusion;", true, false, false, false, false, false, "Controls",
         "Energy Weapon Heat", 50, "Conventional Fighter"},
        {kFtrAerospace, 0, 2, "Fusion;Fusion XL;", false, true, true, true, false, false, "Cockpit", "Weapon Heat",
         100, "Aerospace Fighter"},
        {kFtrAerospace, 1, 3, "Fusion;Fusion XL;", false, true, true, true, true, false, "Cockpit", "Weapon Heat",
         100, "Aerospace Fighter"},
        {kFtrOmni, 1, 2, "Fusion;Fusion XL;", false, true, true, true, true, true, "Cockpit", "Weapon Heat", 100,
         "Omni-Fighter"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.kind);
        auto e = New(r.type, r.base, r.level);
        EXPECT_EQ(Items(e->cmboEngType), r.engines);
        EXPECT_EQ(e->cmboEngType.ListIndex(), 0);
        EXPECT_EQ(e->FTR->EngineType, 0);
        EXPECT_EQ(e->CBoxVTOLJets.Visible(), r.jets);
        EXPECT_EQ(e->LPowerAmpTonnage.Visible(), r.jets);
        EXPECT_EQ(e->scrlHS.Visible(), r.sinks);
        EXPECT_EQ(e->CBoxDHS.Visible(), r.dhs);
        EXPECT_EQ(e->cmboArmorType.Visible(), r.armorType);
        EXPECT_EQ(Items(e->cmboArmorType), r.armorType ? "Normal;Ferro-Aluminum;" : "Normal;");
        EXPECT_EQ(e->CBoxTC.Visible(), r.tc);
        EXPECT_EQ(e->CBoxBaseOmniLock.Visible(), r.lock);
        EXPECT_EQ(e->cmboOmniConfig.Visible(), r.lock);
        EXPECT_FALSE(e->cmboOmniConfig.Enabled());
        EXPECT_EQ(e->LCockpitDesc.Caption(), r.cockpit);
        EXPECT_EQ(e->LWeaponHeatDesc.Caption(), r.heat);
        EXPECT_EQ(e->scrlTonnage.Max(), r.maxTons);
        EXPECT_EQ(e->LFighterType.Caption(), r.kind);
        EXPECT_EQ(e->LTechBase.Caption(), r.base == 0 ? "Inner Sphere" : "Clan");
        EXPECT_EQ(e->LTechLevel.Caption(), std::to_string(r.level));
        EXPECT_EQ(Items(e->cmboTCLocation), "Nose;Left Wing;Right Wing;Rear;");
        EXPECT_EQ(e->cmboTCLocation.ListIndex(), 3);
        EXPECT_EQ(Items(e->cmboOmniConfig), "Base;Primary;Alpha;Beta;Charlie;Delta;");
        // The cockpit's ten free points on the kinds that have them.
        const bool aero = r.type != kFtrConventional;
        EXPECT_EQ(e->scrlArmorLoc[4].Min(), aero ? 10 : 0);
        EXPECT_EQ(e->FTR->CPArmor, aero ? 10 : 0);
        EXPECT_EQ(e->FTR->HeatSinks, aero ? 10 : 0);
        EXPECT_EQ(e->LArmorAllocated.Caption(), aero ? "10 + 0" : "0");
        // Thrust 1 shows without a change: the rating stays that of thrust 0.
        EXPECT_EQ(e->TThrust.Text(), "1");
        EXPECT_EQ(e->FTR->EngineRating, aero ? -10 : 0);
        EXPECT_EQ(e->Window.Caption(), " *");
    }
}

TEST_F(FtrTest, TheThrustIsSteppedUntilTheRatingFits) {
    struct Row {
        int16_t type, tons, thrust;  // set in this order through the controls
        int16_t wantThrust, wantRating;
    };
    const Row rows[] = {
        {kFtrAerospace, 10, 0, 3, 10},    // -10, 0: the control climbs to 3
        {kFtrAerospace, 80, 8, 7, 400},   // 480 is pushed back to 400
        {kFtrConventional, 50, 9, 8, 400},
        {kFtrOmni, 100, 6, 6, 400},
        {kFtrAerospace, 100, 45, 6, 400},  // from the top of the range down
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(std::to_string(r.type) + "/" + std::to_string(r.tons) + "/" + std::to_string(r.thrust));
        auto e = New(r.type);
        e->scrlTonnage.SetValue(r.tons);
        if (r.thrust) e->scrlThrust.SetValue(r.thrust);
        EXPECT_EQ(e->scrlThrust.Value(), r.wantThrust);
        EXPECT_EQ(e->FTR->CruiseSpeed, r.wantThrust);
        EXPECT_EQ(e->FTR->EngineRating, r.wantRating);
        EXPECT_EQ(e->TThrust.Text(), std::to_string(r.wantThrust));
        EXPECT_EQ(e->LOThrust.Caption(), std::to_string(e->FTR->FlankSpeed));
    }
}

TEST_F(FtrTest, TypedFiguresAreCheckedWithABeep) {
    struct Row {
        int16_t type;
        bool thrust;  // the thrust box, else the tonnage box
        const char* typed;
        const char* shown;
        int beeps;
    };
    const Row rows[] = {
        {kFtrAerospace, false, "53", "5", 1},   // not a multiple of 5: back to 5
        {kFtrAerospace, false, "120", "100", 1},
        {kFtrConventional, false, "75", "50", 1},
        {kFtrAerospace, false, "abc", "5", 1},
        {kFtrAerospace, false, "045", "45", 0},
        {kFtrAerospace, true, "x", "3", 1},    // 1, then corrected at 5 tons
        {kFtrAerospace, true, "31", "30", 1},  // the text stops at 30
        {kFtrAerospace, true, "0", "3", 1},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.typed);
        auto e = New(r.type);
        if (r.thrust) e->scrlThrust.SetValue(4);
        if (r.thrust) e->scrlTonnage.SetValue(5);
        fake.ui.beeps = 0;
        TextBox& box = r.thrust ? e->TThrust : e->TTonnage;
        box.SetText(r.typed);
        box.LostFocus();
        EXPECT_EQ(box.Text(), r.shown);
        EXPECT_EQ(fake.ui.beeps, r.beeps);
    }
}

TEST_F(FtrTest, WingsMirrorAndTheRemainingPointsBoundEachLocation) {
    auto e = Sized(kFtrAerospace, 50, 6);
    e->scrlArmorTonnage.SetValue(4);  // 2 tons: 32 points
    EXPECT_EQ(e->LArmorPoints.Caption(), "32");
    e->scrlArmorLoc[1].SetValue(12);
    EXPECT_EQ(e->FTR->LeftArmor, 12);
    EXPECT_EQ(e->FTR->RightArmor, 12);
    EXPECT_EQ(e->TArmorLoc[2].Text(), "12");
    EXPECT_EQ(e->FTR->ArmorAllocated, 24);
    EXPECT_EQ(e->LArmorAllocated.Caption(), "10 + 24");
    EXPECT_EQ(e->LArmorRemaining.Caption(), "8");
    const int16_t wantMax[6] = {8, 16, 16, 8, 18, 8};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(e->scrlArmorLoc[i].Max(), wantMax[i]) << i;
    // A typed figure above the bound stops there, with a beep; the right wing
    // follows the left.
    e->TArmorLoc[2].SetText("40");
    e->TArmorLoc[2].LostFocus();
    EXPECT_EQ(fake.ui.beeps, 1);
    EXPECT_EQ(e->FTR->LeftArmor, 16);
    EXPECT_EQ(e->FTR->ArmorAllocated, 32);
    e->TArmorLoc[3].GotFocus();
    EXPECT_EQ(e->LActiveArmorLoc.Caption(), "Fuselage");
    e->SSTab1_Click(1);
    EXPECT_EQ(e->LActiveArmorLoc.Caption(), "<none>");
}

TEST_F(FtrTest, FreeTonnageIsBlackRedOrFlashing) {
    struct Row {
        double free;
        int32_t colour;
        bool flashing;
    };
    const Row rows[] = {{0.0, 0x000000, false}, {-0.5, 0x0000FF, false}, {-1.0, 0x0000FF, true}};
    auto e = New(kFtrAerospace);
    for (const Row& r : rows) {
        e->wLoading = kTrue;  // shows the figures as they stand
        e->FTR->FreeTonnage = r.free;
        e->zUpdateTonnageLists();
        EXPECT_EQ(e->LTonnageFree.ForeColor(), r.colour) << r.free;
        EXPECT_EQ(e->Timer1.Enabled(), r.flashing) << r.free;
    }
    e->Timer1.Tick();
    EXPECT_EQ(e->LTonnageFree.ForeColor(), 0x00FF00);
}

TEST_F(FtrTest, TheCaptionNamesTheConfigurationAndTheUnsavedState) {
    const char* want[6] = {"Hawk", "Hawk - P", "Hawk - A", "Hawk - B", "Hawk - C", "Hawk - D"};
    auto e = New(kFtrOmni);
    e->FTR->Name = "Hawk";
    for (int16_t c = 0; c < 6; ++c) {
        e->FTR->OmniCurrentConfig = c;
        e->zSetSaved(kTrue);
        EXPECT_EQ(e->Window.Caption(), want[c]);
        EXPECT_EQ(e->wSaved, kTrue);
        e->zSetSaved(kFalse);
        EXPECT_EQ(e->Window.Caption(), std::string(want[c]) + " *");
        EXPECT_EQ(e->wSaved, kFalse);
    }
    auto a = New(kFtrAerospace);
    a->FTR->Name = "Hawk";
    a->FTR->OmniCurrentConfig = 2;
    a->zSetSaved(kTrue);
    EXPECT_EQ(a->Window.Caption(), "Hawk");
}

TEST_F(FtrTest, SavingRunsTheSixTestsInOrder) {
    struct Row {
        const char* text;
        const char* title;
        MsgIcon icon;
    };
    const Row rows[] = {
        {"You must supply a name for this fighter!", "No name", MsgIcon::Critical},
        {"This fighter is overweight by 1.5 tons.", "Overweight", MsgIcon::Information},
        {"One of the omni configurations is overweight. You cannot save this fighter until all configurations are "
         "legal designs.",
         "Overweight", MsgIcon::Critical},
        {"You have not allocated all of your armor. Please do so before saving.", "Armor remaining",
         MsgIcon::Information},
        {"There are weapons and equipment that are not yet allocated. Please allocate these before saving.",
         "Unallocated equipment", MsgIcon::Information},
        {"There are weapons and equipment in one of the omni configurations that are not yet allocated. Please "
         "allocate these before saving.",
         "Unallocated equipment", MsgIcon::Information},
    };
    // Every fault at once; each row mends the one before it.
    auto e = New(kFtrOmni);
    Fighter& f = *e->FTR;
    e->TName.SetText("   ");
    f.TotalTonnage = f.Tonnage + 1.5;
    f.OmniConfigUsed[2] = kTrue;
    f.OmniFreeTonnage[2] = -0.25;
    f.ArmorPoints = f.ArmorAllocated + 1;
    f.Weapons = {Entry(kMedLaser, 1)};
    f.OmniWeapons[4] = {FighterWeapon{kAC5, 1, 0, kFalse, -1, -1}};
    std::function<void()> mend[] = {
        [&] { e->TName.SetText("  Kestrel "); },
        [&] { f.TotalTonnage = f.Tonnage; },
        [&] { f.OmniFreeTonnage[2] = 0; },
        [&] { f.ArmorPoints = f.ArmorAllocated; },
        [&] { f.Weapons = {Entry(kMedLaser, 1, 0, 0)}; },
        [&] { f.OmniWeapons[4] = {FighterWeapon{}}; },
    };
    for (size_t i = 0; i < 6; ++i) {
        fake.ui.boxes.clear();
        EXPECT_EQ(e->zValidateSave(), kFalse) << i;
        ASSERT_EQ(fake.ui.boxes.size(), 1u) << i;
        EXPECT_EQ(fake.ui.LastBox().text, rows[i].text);
        EXPECT_EQ(fake.ui.LastBox().title, rows[i].title);
        EXPECT_EQ(fake.ui.LastBox().icon, rows[i].icon);
        mend[i]();
    }
    fake.ui.boxes.clear();
    EXPECT_EQ(e->zValidateSave(), kTrue);
    EXPECT_TRUE(fake.ui.boxes.empty());
    // The name was trimmed in the field too.
    EXPECT_EQ(e->TName.Text(), "Kestrel");
    EXPECT_EQ(f.Name, "Kestrel");
}

TEST_F(FtrTest, ClosingUnsavedAsksAndAFailedSaveKeepsTheWindow) {
    struct Row {
        MsgResult answer;
        bool cancelled;
        std::vector<std::string> titles;
    };
    const Row rows[] = {
        {MsgResult::Cancel, true, {"Save?"}},
        {MsgResult::No, false, {"Save?"}},
        {MsgResult::Yes, true, {"Save?", "No name"}},
    };
    for (const Row& r : rows) {
        auto e = New(kFtrAerospace);
        fake.ui.boxes.clear();
        fake.ui.answers = {r.answer};
        bool cancel = false;
        e->Form_QueryUnload(cancel);
        EXPECT_EQ(cancel, r.cancelled);
        EXPECT_EQ(Titles(), r.titles);
        EXPECT_EQ(fake.ui.boxes[0].text, "This fighter is not yet saved, would you like to save it?");
        EXPECT_EQ(fake.ui.boxes[0].buttons, MsgButtons::YesNoCancel);
    }
}

TEST_F(FtrTest, PrintingRefusesAnUnsavedOrUnallocatedDesign) {
    auto e = New(kFtrAerospace);
    e->PButPrint.DoClick();
    EXPECT_EQ(fake.ui.LastBox().text, "Please save this fighter before printing.");
    EXPECT_EQ(fake.ui.LastBox().title, "Save fighter");
    e->FTR->AddWeapon(kMedLaser);
    e->zSetSaved(kTrue);
    e->PButPrint.DoClick();
    EXPECT_EQ(fake.ui.LastBox().text,
              "There are weapons and equipment that are not yet allocated. Please allocate these before printing.");
    EXPECT_EQ(fake.ui.LastBox().title, "Unallocated equipment");
}

TEST_F(FtrTest, ConventionalIceSinksFollowTheEnergyWeapons) {
    auto e = New(kFtrConventional, kBaseInnerSphere, 1);
    e->scrlTonnage.SetValue(30);
    // Rows of the test table are Inner Sphere level 0: all offered.
    ASSERT_NE(e->tvAvailEQ.Find("w0"), nullptr);
    EXPECT_EQ(e->tvAvailEQ.Find("w0")->ParentKey, "node0");
    EXPECT_EQ(e->tvAvailEQ.Find("w2")->ParentKey, "node1");
    for (int i = 0; i < 2; ++i) {
        e->tvAvailEQ.Select("w0");
        e->PButEquipment[0].DoClick();
    }
    EXPECT_EQ(e->FTR->HeatSinks, 6);
    EXPECT_EQ(e->LHS.Caption(), "6");
    EXPECT_EQ(e->LHSTonnage.Caption(), "6");
    EXPECT_EQ(e->LWeaponHeat.Caption(), "6");
    EXPECT_EQ(e->LPowerAmpTonnage.Caption(), "0.2");
    EXPECT_NE(e->tvSelEQ.Find("w0-2"), nullptr);
    // A heading beeps; Fusion frees the sinks and the amplifiers.
    e->tvAvailEQ.Select("node0");
    e->PButEquipment[0].DoClick();
    EXPECT_EQ(fake.ui.beeps, 1);
    e->cmboEngType.SetListIndex(1);
    EXPECT_EQ(e->LHSTonnage.Caption(), "0");
    EXPECT_EQ(e->LPowerAmpTonnage.Caption(), "0");
    // Hiding a kind refreshes the tree under the progress text.
    std::vector<std::string> texts;
    SetMainProgressHook({[](int32_t) {}, [&](const std::string& t) { texts.push_back(t); }, [](int32_t) {}, [] {}});
    e->CBoxShowEQ[0].SetValue(0);
    SetMainProgressHook({});
    EXPECT_EQ(texts, std::vector<std::string>{"Refreshing weapon list..."});
    EXPECT_EQ(e->tvAvailEQ.Find("w0"), nullptr);
    EXPECT_TRUE(e->CBoxShowEQ[1].Enabled());
}

TEST_F(FtrTest, LockingTheBaseRefusesUntilTheDesignIsLegal) {
    struct Row {
        std::function<void(frmFtr&)> spoil;
        const char* title;
        const char* text;
    };
    const Row rows[] = {
        {[](frmFtr& e) {
             for (int i = 0; i < 6; ++i) e.FTR->AddWeapon(kPPC);
             e.zUpdateWeapons();
         },
         "Overweight", ""},
        {[](frmFtr& e) { e.scrlArmorTonnage.SetValue(2); }, "Unallocated armor",
         "You have unallocated armor. You must allocated this before locking the base configuration."},
        {[](frmFtr& e) { e.FTR->AddWeapon(kAC5); }, "Unallocated weapons",
         "You have unallocated weapons. You must allocate these before locking the base configuration."},
        {[](frmFtr& e) { e.TName.SetText(" "); }, "No Name",
         "You have not given this fighter a name, you must do this before locking the base configuration."},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.title);
        auto e = LegalBase();
        r.spoil(*e);
        fake.ui.boxes.clear();
        e->CBoxBaseOmniLock.SetValue(1);
        ASSERT_EQ(Titles(), std::vector<std::string>{r.title});
        EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Critical);
        if (*r.text) EXPECT_EQ(fake.ui.LastBox().text, r.text);
        else
            EXPECT_EQ(fake.ui.LastBox().text,
                      "This fighter is overweight by " + zSingleText(-e->FTR->FreeTonnage) +
                          " tons. You cannot lock the base configuration since this is an illegal design.");
        EXPECT_EQ(e->CBoxBaseOmniLock.Value(), 0);
        EXPECT_EQ(e->FTR->OmniBaseLocked, kFalse);
    }
    // Declined: the box clears and nothing is frozen.
    auto e = LegalBase();
    fake.ui.boxes.clear();
    fake.ui.answers = {MsgResult::No};
    e->CBoxBaseOmniLock.SetValue(1);
    EXPECT_EQ(fake.ui.LastBox().text,
              "Are you sure you want to lock the base configuration?\nOnce locked, the base configuration cannot be "
              "unlocked.");
    EXPECT_EQ(fake.ui.LastBox().title, "Lock Base Configuration?");
    EXPECT_EQ(e->CBoxBaseOmniLock.Value(), 0);
    EXPECT_TRUE(e->scrlTonnage.Enabled());
}

TEST_F(FtrTest, TheLockFreezesTheChassisAndEntersPrimary) {
    auto e = LegalBase();
    e->scrlFuel.SetValue(4);
    e->CBoxBaseOmniLock.SetValue(1);
    Fighter& f = *e->FTR;
    EXPECT_EQ(f.OmniBaseLocked, kTrue);
    EXPECT_EQ(f.OmniCurrentConfig, 1);
    EXPECT_EQ(e->cmboOmniConfig.ListIndex(), 1);
    EXPECT_EQ(e->Window.Caption(), "Sabre - P *");
    EXPECT_TRUE(e->TName.Locked);
    EXPECT_TRUE(e->TTonnage.Locked);
    for (const Control* c : std::initializer_list<const Control*>{&e->scrlTonnage, &e->scrlThrust, &e->cmboEngType,
                                                                   &e->CBoxDHS, &e->scrlArmorTonnage, &e->cmboArmorType,
                                                                   &e->CBoxBaseOmniLock, &e->scrlArmorLoc[4],
                                                                   &e->TArmorLoc[0]})
        EXPECT_FALSE(c->Enabled()) << c->Name;
    EXPECT_TRUE(e->cmboOmniConfig.Enabled());
    EXPECT_TRUE(e->CBoxTC.Enabled());  // the base has no computer
    EXPECT_EQ(e->scrlFuel.Min(), 4);
    EXPECT_EQ(e->scrlHS.Min(), 10);
    // The configuration seeded from the base keeps the base's laser.
    EXPECT_NE(e->tvSelEQ.Find("w0-1"), nullptr);
    e->tvSelEQ.Select("w0-1");
    e->PButEquipment[1].DoClick();
    EXPECT_EQ(fake.ui.LastBox().text, "You may not remove this weapon since it is part of the base omni configuration.");
    EXPECT_EQ(fake.ui.LastBox().title, "Unable to remove weapon");
    EXPECT_EQ(f.WeaponCount(), 1);
    // "Alpha", then "Base": a beep and back to "Primary".
    e->cmboOmniConfig.SetListIndex(2);
    EXPECT_EQ(f.OmniCurrentConfig, 2);
    e->scrlFuel.SetValue(6);
    EXPECT_EQ(f.OmniFuelTonnage[2], 6);
    fake.ui.beeps = 0;
    e->cmboOmniConfig.SetListIndex(0);
    EXPECT_EQ(fake.ui.beeps, 1);
    EXPECT_EQ(e->cmboOmniConfig.ListIndex(), 1);
    EXPECT_EQ(f.OmniCurrentConfig, 1);
    EXPECT_EQ(e->scrlFuel.Value(), 4);
    e->cmboOmniConfig.SetListIndex(2);
    EXPECT_EQ(e->scrlFuel.Value(), 6);
}

TEST_F(FtrTest, OpeningShowsTheStoredDesignUnchangedAndSaved) {
    auto made = LegalBase();
    made->scrlFuel.SetValue(3);
    made->scrlArmorTonnage.SetValue(4);
    made->scrlArmorLoc[0].SetValue(10);
    made->scrlArmorLoc[1].SetValue(11);
    made->cmboTCLocation.SetListIndex(1);
    made->CBoxTC.SetValue(1);
    made->CBoxBaseOmniLock.SetValue(1);
    made->cmboOmniConfig.SetListIndex(3);
    made->FTR->AddWeapon(kSmallLaser);
    made->FTR->UpdateWeaponLocation(1, kFtrLocRear, 0);
    made->zUpdateWeapons();
    // As a file gives it back: live fields from the base, the list of Primary.
    BinaryWriter w;
    zWriteFighterRecord(w, *made->FTR);
    BinaryReader r(w.Data());
    Fighter stored;
    zReadFighterRecord(r, stored);
    ASSERT_EQ(stored.Weapons, stored.OmniWeapons[1]);

    auto e = frmFtr::zOpenDesign(stored);
    EXPECT_EQ(e->Window.Caption(), "Sabre - P");
    EXPECT_EQ(e->wSaved, kTrue);
    EXPECT_EQ(e->FTR->OmniCurrentConfig, 1);
    EXPECT_EQ(e->cmboOmniConfig.ListIndex(), 1);
    EXPECT_EQ(e->TTonnage.Text(), "50");
    EXPECT_EQ(e->TThrust.Text(), "6");
    EXPECT_EQ(e->scrlArmorLoc[0].Value(), 10);
    EXPECT_EQ(e->scrlArmorLoc[2].Value(), 11);
    EXPECT_EQ(e->CBoxBaseOmniLock.Value(), 1);
    EXPECT_FALSE(e->scrlTonnage.Enabled());
    EXPECT_EQ(e->CBoxTC.Value(), 1);
    EXPECT_EQ(e->cmboTCLocation.ListIndex(), 1);
    EXPECT_FALSE(e->CBoxTC.Enabled());  // the base carries the computer
    EXPECT_EQ(e->scrlFuel.Min(), 3);
    EXPECT_EQ(e->FTR->Tonnage, stored.Tonnage);
    EXPECT_EQ(e->FTR->ArmorAllocated, stored.ArmorAllocated);
    EXPECT_EQ(e->FTR->OmniWeapons, stored.OmniWeapons);
    EXPECT_EQ(e->FTR->Weapons, stored.OmniWeapons[1]);
    // "Beta" kept its own small laser.
    e->cmboOmniConfig.SetListIndex(3);
    EXPECT_NE(e->tvSelEQ.Find("w8-1"), nullptr);
}
