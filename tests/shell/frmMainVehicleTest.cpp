// The main window's vehicle commands: New Vehicle through its dialog, Open
// Vehicle on a copy of a stored design (every input back at the stored
// value, nothing changed, nothing asked), Delete Vehicle, the pickers behind
// them, and the shutdown walk over editors these commands made.
#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/BinaryIO.h"
#include "core/Forms.h"
#include "core/Settings.h"
#include "database/DatabaseOps.h"
#include "database/RecordFields.h"
#include "fighter/Fighter.h"
#include "shell/frmFOpen.h"
#include "shell/frmMain.h"
#include "shell/frmVOpen.h"
#include "support/FakeFormHost.h"
#include "vehicle/EditorTestSupport.h"
#include "vehicle/VehicleTestSupport.h"
#include "vehicle/frmNVhl.h"
#include "vehicle/frmVhl.h"

using namespace bw;
using namespace bw::test;

namespace {

struct Choice {
    int16_t base = 0;
    int16_t level = 1;
    int16_t type = 0;
    bool cancel = false;
};

class VehicleCommands : public ::testing::Test {
protected:
    AppFolder app;
    ScopedFakeUi fake;
    ScopedWeapons weapons;
    int16_t savedExpand = gExpandSel;
    int16_t savedOpenLast = gOpenLast;
    // The window system; the editors the commands hand over live in it.
    ScopedFakeFormHost host;
    frmMain m;
    std::deque<Choice> choices;
    int newShown = 0;
    // What the vehicle picker does when shown: the name of the row to click
    // and open, or empty to cancel.
    std::string pickName;
    std::vector<std::string> pickerCaptions;

    void SetUp() override {
        m.Load();
        gDatabasePath = app.dir.File("works.bwd");
        host->onShow["frmNVhl"] = [this](FormModel& f) {
            auto& d = static_cast<frmNVhl&>(f);
            ++newShown;
            EXPECT_TRUE(d.Window.Visible());
            EXPECT_EQ(d.cmboType.ListCount(), 8) << "the dialog is loaded before it is shown";
            ASSERT_FALSE(choices.empty());
            const Choice c = choices.front();
            choices.pop_front();
            if (c.cancel) {
                d.PButCancel.DoClick();
                return;
            }
            d.cmboBase.SetListIndex(c.base);
            for (int32_t i = 0; i < d.cmboLevel.ListCount(); ++i)
                if (d.cmboLevel.List(i) == std::to_string(c.level)) d.cmboLevel.SetListIndex(i);
            d.cmboType.SetListIndex(c.type);
            d.PButCreate.DoClick();
        };
        host->onShow["frmVOpen"] = [this](FormModel& f) {
            auto& d = static_cast<frmVOpen&>(f);
            pickerCaptions.push_back(d.Window.Caption() + "|" + d.PButOpen.Caption());
            if (pickName.empty()) {
                d.PButCancel.DoClick();
                return;
            }
            for (int32_t i = 0; i < d.lvVHLs.Count(); ++i) {
                if (d.lvVHLs.Item(i).Text != pickName) continue;
                d.lvVHLs.Select(i);
                d.PButOpen.DoClick();
                return;
            }
            ADD_FAILURE() << "no row named " << pickName;
        };
    }
    // The editors the commands handed over, in order.
    std::vector<frmVhl*> Editors() const {
        std::vector<frmVhl*> out;
        for (const auto& f : host.host.adopted)
            if (auto* e = dynamic_cast<frmVhl*>(f.get())) out.push_back(e);
        return out;
    }
    void TearDown() override {
        host->adopted.clear();
        gExpandSel = savedExpand;
        gOpenLast = savedOpenLast;
        zResetDatabase();
    }

    frmVhl& New(int16_t type, int16_t base = 0, int16_t level = 3) {
        choices.push_back({base, level, type});
        const size_t before = Editors().size();
        m.mnuVhlNew.DoClick();
        EXPECT_EQ(Editors().size(), before + 1);
        return *Editors().back();
    }
    frmVhl& Open(const std::string& name) {
        pickName = name;
        const size_t before = Editors().size();
        m.mnuVhlOpen.DoClick();
        EXPECT_EQ(Editors().size(), before + 1);
        return *Editors().back();
    }

    // Puts the given points on each location, then all that is left on the
    // front.
    static void Armor(frmVhl& e, std::vector<std::pair<int16_t, int16_t>> places) {
        for (auto [loc, pts] : places) e.scrlArmorLoc[loc].SetValue(pts);
        e.scrlArmorLoc[kLocFront].SetValue(e.scrlArmorLoc[kLocFront].Max());
        EXPECT_EQ(e.vhl->ArmorAllocated, e.vhl->ArmorPoints);
    }
    void Save(frmVhl& e) {
        const size_t boxes = fake.ui.boxes.size();
        e.PButSave.DoClick();
        ASSERT_EQ(fake.ui.boxes.size(), boxes) << fake.ui.LastBox().text;
        ASSERT_EQ(e.wSaved, kTrue);
    }

    // Every field of a design as text, the stored ones by their file names.
    static std::vector<std::string> Fields(const Vehicle& v) {
        std::vector<std::string> out{"Name=" + v.Name, "TCLocation=" + std::to_string(v.TCLocation),
                                     "RotorConfig=" + std::to_string(v.RotorConfig),
                                     "MovementType=" + std::to_string(v.MovementType),
                                     "EnergyHeat=" + std::to_string(v.EnergyHeat),
                                     "Interactive=" + std::to_string(v.Interactive())};
        Vehicle& w = const_cast<Vehicle&>(v);  // the visitor takes it by reference and only reads here
        zVisitVehicleFields(w, [&](const char* name, auto& field) {
            std::ostringstream s;
            s.precision(17);
            s << name << "=" << field;
            out.push_back(s.str());
        });
        for (const VehicleItem& it : v.Items)
            out.push_back("item " + std::to_string(it.wType) + "-" + std::to_string(it.wNum) + " @" +
                          std::to_string(it.wLoc) + " " + std::to_string(it.wStatus));
        return out;
    }

    // Every control's value, visibility and limits as the user sees them.
    static std::vector<std::string> Controls(const frmVhl& e) {
        std::vector<std::string> out;
        auto c = [&](const Control& x, const std::string& value) {
            out.push_back(x.Name + (x.Visible() ? " shown " : " hidden ") + (x.Enabled() ? "" : "off ") + value +
                          " cap=" + x.Caption() + " fg=" + std::to_string(x.ForeColor()));
        };
        auto scrl = [&](const ScrollBar& s) {
            c(s, std::to_string(s.Value()) + " [" + std::to_string(s.Min()) + "," + std::to_string(s.Max()) + "]");
        };
        auto list = [&](const ListControl& l) {
            std::string all;
            for (int32_t i = 0; i < l.ListCount(); ++i) all += l.List(i) + ";";
            c(l, std::to_string(l.ListIndex()) + " {" + all + "}");
        };
        auto tree = [&](const TreeView& t, bool rootsOnly) {
            std::string all;
            for (const auto& n : t.Nodes())
                if (!rootsOnly || n.ParentKey.empty())
                    all += n.ParentKey + "/" + n.Key + ":" + n.Text + (n.Expanded && !rootsOnly ? "+" : "") + ";";
            c(t, all);
        };
        c(e.Window, "");
        c(e.TName, e.TName.Text());
        c(e.TTonnage, e.TTonnage.Text());
        c(e.TCruise, e.TCruise.Text());
        c(e.TAdditionalCrew, e.TAdditionalCrew.Text());
        for (const ScrollBar* s : {&e.scrlTonnage, &e.scrlSpeed, &e.scrlJJs, &e.scrlMASHUnits, &e.scrlMobileHQ,
                                   &e.scrlAdditionalCrew, &e.scrlArmorTonnage})
            scrl(*s);
        for (const ListControl* l :
             {&e.cmboEngType, &e.cmboBridgelayer, &e.cmboRotorArrangement, &e.cmboTCLoc, &e.cmboArmorType})
            list(*l);
        for (const CheckBox* b :
             {&e.CBoxAmphibEquip, &e.CBoxBridgelayer, &e.CBoxBulldozer, &e.CBoxCoolantSystem, &e.CBoxDuneBuggy,
              &e.CBoxJJs, &e.CBoxMASHUnit, &e.CBoxMinesweeper, &e.CBoxMobileHQ, &e.CBoxSnowmobileEquip,
              &e.CBoxSupercharger, &e.CBoxHasTurret, &e.CBoxHasSecondTurret, &e.CBoxHasSponsonTurret,
              &e.CBoxMastMount, &e.CBoxTC})
            c(*b, std::to_string(b->Value()));
        for (const CheckBox& b : e.CBoxShowType) c(b, std::to_string(b.Value()));
        for (const Label* l :
             {&e.LTechBase, &e.LTechLevel, &e.LVehicleType, &e.LFlank, &e.LEngineTonnage, &e.LEngineRating,
              &e.LISTonnage, &e.LHeatSinks, &e.LHeatSinkTonnage, &e.LTurretTonnage, &e.LSecTurretTonnage,
              &e.LSponsonTonnage, &e.LTCTonnage, &e.LTonnageTotal, &e.LTonnageFree, &e.LMASHCount,
              &e.LTCLocationDesc, &e.LSuperchargerTonnage, &e.LMastMountTonnage, &e.LCrewTonnage,
              &e.LBridgeLayerTonnage, &e.LBulldozerTonnage, &e.LMinesweeperTonnage, &e.LMASHTonnage,
              &e.LAmphibTonnage, &e.LDuneBuggyTonnage, &e.LSnowmobileTonnage, &e.LCoolantSystemTonnage,
              &e.LJumpJetTonnage, &e.LMobileHQTonnage, &e.LArmorTonnage, &e.LTotalPoints, &e.LAllocatedPoints,
              &e.LRemainingPoints, &e.LActiveArmorLoc})
            c(*l, "");
        // The jump jet figure is only read while the jets are mounted.
        c(e.LJJs, e.LJJs.Visible() ? e.LJJs.Caption() : "");
        for (int i = 0; i < 3; ++i) {
            c(e.LControlTonnage[i], "");
            c(e.LControlDesc[i], "");
        }
        for (int16_t loc = 0; loc < 12; ++loc) {
            scrl(e.scrlArmorLoc[loc]);
            c(e.TArmorLoc[loc], e.TArmorLoc[loc].Text());
            out.push_back("spot " + std::to_string(loc) + " " + std::to_string(e.ArmorLocLeft[loc]) + "," +
                          std::to_string(e.ArmorLocTop[loc]));
        }
        c(e.picVHLArm, e.picVHLArm.Picture() + " #" + std::to_string(e.wArmorPicture));
        c(e.tabSpecials, "");
        c(e.Timer1, "");
        out.push_back("tab " + std::to_string(e.SSTab1Tab));
        tree(e.tvSelectedEq, false);
        // The groups of the available tree; the first editor opened some of
        // them to add items.
        tree(e.tvAvailEq, true);
        return out;
    }

    // Line by line, so that a failure names what differs.
    static void ExpectSameLines(const std::vector<std::string>& got, const std::vector<std::string>& want) {
        ASSERT_EQ(got.size(), want.size());
        for (size_t i = 0; i < got.size(); ++i) EXPECT_EQ(got[i], want[i]);
    }

    // Saves the editor's design, opens it again and checks that the copy
    // is the design and the window is the window.
    frmVhl& RoundTrip(frmVhl& made) {
        Save(made);
        const auto boxes = fake.ui.boxes.size();
        frmVhl& opened = Open(made.vhl->Name);
        EXPECT_EQ(fake.ui.boxes.size(), boxes) << "opening asks nothing and reports nothing";
        EXPECT_NE(opened.vhl.get(), made.vhl.get()) << "the editor works on a copy";
        EXPECT_EQ(opened.vhl->frm, static_cast<VehicleWindow*>(&opened));
        EXPECT_EQ(opened.wSaved, kTrue);
        EXPECT_EQ(opened.wLoading, kFalse);
        EXPECT_EQ(opened.Window.Caption(), made.vhl->Name);
        ExpectSameLines(Fields(*opened.vhl), Fields(*made.vhl));
        ExpectSameLines(Controls(opened), Controls(made));
        return opened;
    }
};

}  // namespace

// ---- Menus, toolbar and New Vehicle ------------------------------------------

TEST_F(VehicleCommands, MenusAndToolbarReachTheVehicleCommands) {
    for (const MenuItem* item : {&m.mnuVhlNew, &m.mnuVhlOpen, &m.mnuVHlDel}) EXPECT_TRUE(item->Enabled());
    EXPECT_EQ(m.mnuVhlNew.Caption(), "&New Vehicle");
    EXPECT_EQ(m.mnuVHlDel.Caption(), "&Delete Vehicle");
    for (const auto& b : m.TBarMain)
        if (b.Key.rfind("butVHL", 0) == 0) EXPECT_TRUE(b.Enabled) << b.Key;

    choices.push_back({0, 2, kVhlWheeled});
    m.TBarMain_ButtonClick("butVHLNew");
    ASSERT_EQ(Editors().size(), 1u);
    EXPECT_EQ(Editors()[0]->LVehicleType.Caption(), "Wheeled");

    // Open on an empty database refuses before any picker shows.
    m.TBarMain_ButtonClick("butVHLOpen");
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(LastShown(fake.ui), (Shown{"No Vehicles", "There are no vehicles within this database.",
                                         MsgIcon::Information}));
    EXPECT_TRUE(pickerCaptions.empty());
    // Delete has no such check: its picker shows an empty list, and with
    // nothing picked nothing is asked.
    m.TBarMain_ButtonClick("butVHLDel");
    EXPECT_EQ(pickerCaptions, (std::vector<std::string>{"Delete Vehicle|&Delete"}));
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(Editors().size(), 1u);
}

TEST_F(VehicleCommands, NewVehicleAppliesTheChoicesAndStartsAtFiveTonsOneMovementPoint) {
    frmVhl& e = New(kVhlTracked, 1, 2);
    EXPECT_EQ(newShown, 1);
    const Vehicle& v = *e.vhl;
    EXPECT_EQ(v.frm, static_cast<VehicleWindow*>(&e));
    EXPECT_EQ((std::vector<int>{v.TechBase, v.TechLevel, v.VhlType, v.Tonnage, v.CruiseSpeed, v.EngineType}),
              (std::vector<int>{1, 2, kVhlTracked, 5, 1, 0}));
    EXPECT_TRUE(e.Loaded);
    EXPECT_EQ(e.wSaved, kFalse);
    EXPECT_EQ(e.Window.Caption(), " *");
    // Its lists were built once for its base, level and type.
    EXPECT_EQ(e.wValid[0], (std::vector<int16_t>{kClanLaser}));
    EXPECT_EQ(fake.ui.pointerWaits, 1);
    EXPECT_EQ(fake.ui.pointerNormals, 1);

    // A super heavy tank starts at the bottom of its range.
    frmVhl& s = New(kVhlSuperHeavy, 0, 3);
    EXPECT_EQ(s.vhl->Tonnage, 100);
    EXPECT_EQ(s.TTonnage.Text(), "100");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(VehicleCommands, TwoNewVehiclesAreIndependentAndCascade) {
    // A full-HD screen holds two editors without the cascade restarting.
    m.ScreenWidth = 1920 * 15;
    m.ScreenHeight = 1080 * 15;
    frmVhl& a = New(kVhlTracked, 0, 3);
    frmVhl& b = New(kVhlTracked, 0, 3);
    EXPECT_EQ(a.Left, m.Left + 500);
    EXPECT_EQ(a.Top, m.Top + m.Height + 120);
    EXPECT_EQ(b.Left - a.Left, 120);
    EXPECT_EQ(b.Top - a.Top, 120);

    // Each editor changes only its own design.
    a.scrlTonnage.SetValue(40);
    a.TName.SetText("First");
    EXPECT_EQ(b.vhl->Tonnage, 5);
    EXPECT_EQ(b.vhl->Name, "");
    AddItem(b, kMedLaser);
    EXPECT_EQ(b.vhl->WeaponCount(), 1);
    EXPECT_EQ(a.vhl->WeaponCount(), 0);
    EXPECT_EQ(a.tvSelectedEq.Count(), 0);
    // Both are loaded windows the shutdown walk will ask.
    EXPECT_EQ(gForms(), (std::vector<FormModel*>{&m, &a, &b}));
}

TEST_F(VehicleCommands, CancelARefusedCreateOrNoWindowSystemMakesNothing) {
    choices.push_back({0, 3, kVhlTracked, true});
    m.mnuVhlNew.DoClick();
    EXPECT_EQ(newShown, 1);
    EXPECT_TRUE(Editors().empty());
    EXPECT_EQ(fake.ui.pointerWaits, 0);

    // A super heavy tank below level 3 is refused and the dialog stays; a
    // dialog closed from there (as by its window's close box) creates nothing.
    choices.push_back({0, 2, kVhlSuperHeavy});
    m.mnuVhlNew.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Unable to create vehicle");
    EXPECT_TRUE(Editors().empty());
    EXPECT_EQ(gForms(), (std::vector<FormModel*>{&m}));
    EXPECT_EQ(m.wStartCount, 0) << "the cascade did not move";

    // With nobody to answer the dialog nothing is made; with no window
    // system at all, the editor goes away cleanly.
    const auto dialog = host->onShow["frmNVhl"];
    host->onShow.erase("frmNVhl");
    m.mnuVhlNew.DoClick();
    EXPECT_TRUE(Editors().empty());
    host->onShow["frmNVhl"] = dialog;
    SetFormHost(nullptr);
    choices.push_back({0, 1, kVhlTracked});
    m.mnuVhlNew.DoClick();
    SetFormHost(&host.host);
    EXPECT_EQ(gForms(), (std::vector<FormModel*>{&m}));
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
}

// ---- Open: the editor on a stored design -------------------------------------
// Each design is saved, opened again and compared field by field and
// control by control with the editor it was made in.

TEST_F(VehicleCommands, OpenTrackedWithTurretArmorOptionsAndItems) {
    frmVhl& e = New(kVhlTracked, 0, 3);
    e.TName.SetText("Brasswick Hauler");
    e.scrlTonnage.SetValue(70);
    e.scrlSpeed.SetValue(3);
    e.cmboEngType.SetListIndex(1);  // Fusion
    for (CheckBox* b : {&e.CBoxBulldozer, &e.CBoxAmphibEquip, &e.CBoxSupercharger}) b->SetValue(1);
    e.scrlAdditionalCrew.SetValue(static_cast<int16_t>(e.vhl->BaseCrew + 2));
    e.cmboArmorType.SetListIndex(1);  // Ferro-Fibrous
    e.scrlArmorTonnage.SetValue(9);   // 4.5 tons
    // The computer before the turrets: its list takes in the turrets
    // mounted afterwards.
    for (CheckBox* b : {&e.CBoxTC, &e.CBoxHasTurret, &e.CBoxHasSecondTurret}) b->SetValue(1);
    for (int16_t row : {kMedLaser, kMedLaser, kLargeLaser, kAC5Ammo, kAC5, kCargo}) AddItem(e, row);
    PlaceItem(e, kMedLaser, 1, kLocTurret);
    PlaceItem(e, kMedLaser, 2, kLocSecondTurret);
    PlaceItem(e, kLargeLaser, 1, kLocFront);
    PlaceItem(e, kAC5, 1, kLocTurret);
    PlaceItem(e, kCargo, 1, kLocBody);
    e.cmboTCLoc.SetListIndex(4);  // the main turret
    Armor(e, {{kLocLeft, 10}, {kLocRear, 8}, {kLocTurret, 12}, {kLocSecondTurret, 6}});
    ASSERT_EQ(e.vhl->TCLocation, kLocTurret);
    ASSERT_GT(e.vhl->FreeTonnage, 0);
    ASSERT_TRUE(fake.ui.boxes.empty()) << fake.ui.LastBox().text;

    frmVhl& o = RoundTrip(e);
    // The opened window is placed on the cascade like a new one.
    EXPECT_EQ(o.Left - e.Left, 120);

    // The table keeps its own object: an edit of the copy leaves it alone,
    // and the first change marks the copy unsaved.
    o.scrlSpeed.SetValue(5);
    EXPECT_EQ(o.wSaved, kFalse);
    EXPECT_EQ(o.Window.Caption(), "Brasswick Hauler *");
    EXPECT_EQ(gVehicles[0]->CruiseSpeed, 3);
    EXPECT_NE(gVehicles[0].get(), e.vhl.get());
}

TEST_F(VehicleCommands, OpenVTOLWithRotorArrangementAndMastMount) {
    frmVhl& e = New(kVhlVTOL, 0, 3);
    e.TName.SetText("Kestrel");
    e.scrlTonnage.SetValue(20);
    e.scrlSpeed.SetValue(8);
    e.cmboRotorArrangement.SetListIndex(2);  // Coaxial
    // The computer first: its list takes in the chin turret mounted afterwards.
    for (CheckBox* b : {&e.CBoxMastMount, &e.CBoxTC, &e.CBoxHasTurret}) b->SetValue(1);
    e.scrlArmorTonnage.SetValue(4);
    for (int16_t row : {kMedLaser, kSearchlight, kSRMAmmo}) AddItem(e, row);
    PlaceItem(e, kMedLaser, 1, kLocSecondTurret);  // on the mast mount
    PlaceItem(e, kSearchlight, 1, kLocTurret);
    e.cmboTCLoc.SetListIndex(e.cmboTCLoc.ListCount() - 1);  // Body
    Armor(e, {{kLocLeft, 6}, {kLocRear, 4}, {kLocTurret, 4}, {kLocSecondTurret, 2}});
    ASSERT_TRUE(fake.ui.boxes.empty()) << fake.ui.LastBox().text;
    ASSERT_EQ(e.vhl->RotorConfig, 2);
    ASSERT_EQ(e.vhl->TCLocation, kLocBody);

    frmVhl& o = RoundTrip(e);
    EXPECT_EQ(o.tvSelectedEq.Find("loc5")->Text, "Mast Mount");
    // A rotor change is a change.
    o.cmboRotorArrangement.SetListIndex(0);
    EXPECT_EQ(o.wSaved, kFalse);
}

TEST_F(VehicleCommands, OpenSuperHeavyTankWithCornersAndASecondaryTurret) {
    frmVhl& e = New(kVhlSuperHeavy, 0, 3);
    e.TName.SetText("Behemoth");
    e.scrlTonnage.SetValue(150);
    e.scrlSpeed.SetValue(2);
    for (CheckBox* b : {&e.CBoxHasTurret, &e.CBoxHasSecondTurret, &e.CBoxHasSponsonTurret}) b->SetValue(1);
    e.cmboArmorType.SetListIndex(5);  // Reactive
    e.scrlArmorTonnage.SetValue(30);
    for (int16_t row : {kNavalGun, kLargeLaser, kLargeLaser, kMedLaser}) AddItem(e, row);
    PlaceItem(e, kNavalGun, 1, kLocSecondTurret);
    PlaceItem(e, kLargeLaser, 1, kLocTurret);
    PlaceItem(e, kLargeLaser, 2, kLocLeftSponson);
    PlaceItem(e, kMedLaser, 1, kLocRightSponson);
    Armor(e, {{kLocFrontRight, 30}, {kLocRearRight, 20}, {kLocRear, 20}, {kLocTurret, 40},
              {kLocSecondTurret, 30}});
    ASSERT_EQ(e.vhl->FrontLeftArmor, 30) << "the corners mirror";
    ASSERT_TRUE(fake.ui.boxes.empty()) << fake.ui.LastBox().text;

    frmVhl& o = RoundTrip(e);
    EXPECT_EQ(o.wArmorPicture, 13);
    // Corners still mirror in the opened window.
    o.scrlArmorLoc[kLocRearLeft].SetValue(19);
    EXPECT_EQ(o.vhl->RearRightArmor, 19);
    EXPECT_EQ(o.wSaved, kFalse);
}

TEST_F(VehicleCommands, OpenNavalShipWithLevelTwoOptions) {
    frmVhl& e = New(kVhlNaval, 0, 2);
    e.TName.SetText("Tide");
    e.scrlTonnage.SetValue(200);
    e.scrlSpeed.SetValue(3);
    e.CBoxBridgelayer.SetValue(1);
    e.cmboBridgelayer.SetListIndex(2);  // Heavy
    e.CBoxMASHUnit.SetValue(1);
    e.scrlMASHUnits.SetValue(3);
    e.scrlArmorTonnage.SetValue(20);
    for (int16_t row : {kNavalGun, kAC5Ammo, kAC5Ammo, kPassengers}) AddItem(e, row);
    PlaceItem(e, kNavalGun, 1, kLocFront);
    PlaceItem(e, kPassengers, 1, kLocBody);
    Armor(e, {{kLocLeft, 40}, {kLocRear, 30}});
    ASSERT_TRUE(fake.ui.boxes.empty()) << fake.ui.LastBox().text;

    frmVhl& o = RoundTrip(e);
    EXPECT_EQ(o.cmboBridgelayer.Text(), "Heavy");
    EXPECT_EQ(o.LMASHCount.Caption(), "3");
    // The number input works as in a new window.
    o.scrlMASHUnits.SetValue(2);
    EXPECT_EQ(o.vhl->MASHTheatres, 2);
    EXPECT_EQ(o.wSaved, kFalse);
    EXPECT_EQ(gVehicles[0]->MASHTheatres, 3);
}

TEST_F(VehicleCommands, JumpJetsAndMobileHQComeBackWithTheirInputs) {
    frmVhl& e = New(kVhlHover, 0, 3);
    e.TName.SetText("Skipper");
    e.scrlTonnage.SetValue(30);
    e.scrlSpeed.SetValue(6);
    e.CBoxJJs.SetValue(1);
    e.scrlJJs.SetValue(4);
    e.CBoxMobileHQ.SetValue(1);
    e.scrlMobileHQ.SetValue(3);
    ASSERT_TRUE(fake.ui.boxes.empty()) << fake.ui.LastBox().text;
    ASSERT_EQ(e.vhl->NumJumpJets, 4);
    frmVhl& o = RoundTrip(e);
    EXPECT_EQ(o.LJJs.Caption(), "4");
    EXPECT_EQ(o.scrlJJs.Max(), 6) << "jump movement up to the cruising speed";
}

TEST_F(VehicleCommands, ADesignFromTheFileOpensWithItsFiguresAsStored) {
    frmVhl& e = New(kVhlTracked, 0, 3);
    e.TName.SetText("Mule");
    e.scrlTonnage.SetValue(30);
    e.CBoxTC.SetValue(1);
    e.cmboTCLoc.SetListIndex(2);
    AddItem(e, kLargeLaser);
    PlaceItem(e, kLargeLaser, 1, kLocFront);
    Save(e);
    // Read back from the disk: the targeting computer's place is not in the
    // file, and the figures are the file's own, not recomputed.
    zOpenDatabase(gDatabasePath);
    ASSERT_EQ(gVehicles[0]->TCLocation, 0);
    gVehicles[0]->TotalTonnage = 12.5;  // a stale figure stays as it is
    const std::vector<std::string> stored = Fields(*gVehicles[0]);
    frmVhl& o = Open("Mule");
    EXPECT_EQ(Fields(*o.vhl), stored);
    EXPECT_EQ(o.cmboTCLoc.ListIndex(), 0);
    EXPECT_EQ(o.LTonnageTotal.Caption(), "12.5");
    EXPECT_EQ(o.wSaved, kTrue);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(VehicleCommands, AHostileRecordOpensWithoutAnErrorAndKeepsItsFigures) {
    auto v = std::make_shared<Vehicle>();
    v->Name = "Odd";
    v->VhlType = kVhlTracked;
    v->TechLevel = 3;
    v->Tonnage = 9999;
    v->CruiseSpeed = -3;
    v->ArmorTonnage = 1e300;
    v->FrontArmor = 32000;
    v->EngineType = 42;
    v->ArmorType = 77;
    v->RotorConfig = -5;
    v->HasMobileHQ = kTrue;
    v->MobileHQTonnage = -1e9;
    v->NumCrew = 30000;
    gVehicles[0] = v;
    const std::vector<std::string> stored = Fields(*v);
    frmVhl& o = Open("Odd");
    EXPECT_EQ(Fields(*o.vhl), stored);
    EXPECT_EQ(o.scrlTonnage.Value(), 100);
    EXPECT_EQ(o.TTonnage.Text(), "9999");
    EXPECT_EQ(o.scrlArmorTonnage.Value(), 600);
    EXPECT_EQ(o.wSaved, kTrue);
    EXPECT_TRUE(fake.ui.boxes.empty()) << fake.ui.LastBox().text;
}

// ---- The pickers: open, delete, cancel ---------------------------------------

TEST_F(VehicleCommands, OpenAndDeleteGoThroughThePickerWithTheirOwnWords) {
    for (const char* name : {"Alpha", "Bravo"}) {
        frmVhl& e = New(kVhlWheeled, 0, 1);
        e.TName.SetText(name);
        Save(e);
    }
    pickName.clear();  // cancel
    m.mnuVhlOpen.DoClick();
    EXPECT_EQ(Editors().size(), 2u);
    EXPECT_EQ(pickerCaptions.back(), "Open Vehicle|&Open");
    EXPECT_EQ(Open("Bravo").vhl->Name, "Bravo");

    // Delete: the question names the design; No keeps it.
    fake.ui.answers = {MsgResult::No};
    pickName = "Alpha";
    m.mnuVHlDel.DoClick();
    EXPECT_EQ(pickerCaptions.back(), "Delete Vehicle|&Delete");
    EXPECT_EQ(LastShown(fake.ui), (Shown{"Delete Vehicle?", "Are you sure you want to delete the vehicle named Alpha?",
                                         MsgIcon::Question}));
    EXPECT_EQ(fake.ui.LastBox().buttons, MsgButtons::YesNo);
    EXPECT_EQ(gVehicles.size(), 2u);

    m.mnuVHlDel.DoClick();  // Yes
    // The file holds only Bravo now.
    zOpenDatabase(gDatabasePath);
    ASSERT_EQ(gVehicles.size(), 1u);
    EXPECT_EQ(gVehicles[0]->Name, "Bravo");

    // Cancelling the delete picker asks nothing.
    const auto boxes = fake.ui.boxes.size();
    pickName.clear();
    m.mnuVHlDel.DoClick();
    EXPECT_EQ(fake.ui.boxes.size(), boxes);
    EXPECT_EQ(gVehicles.size(), 1u);

    // Deleting the last design leaves a blank table: open refuses.
    pickName = "Bravo";
    m.mnuVHlDel.DoClick();
    EXPECT_EQ(gVehicles[0]->Name, "");
    m.mnuVhlOpen.DoClick();
    EXPECT_EQ(fake.ui.LastBox().title, "No Vehicles");
    EXPECT_EQ(Editors().size(), 3u);
}

TEST_F(VehicleCommands, ADoubleClickPicksOnlyOnceARowWasClicked) {
    frmVhl& e = New(kVhlTracked, 0, 1);
    e.TName.SetText("Only");
    Save(e);
    int shown = 0;
    host->onShow["frmVOpen"] = [&](FormModel& f) {
        auto& d = static_cast<frmVOpen&>(f);
        ++shown;
        EXPECT_FALSE(d.PButOpen.Enabled());
        d.lvVHLs.DblClick();  // nothing clicked yet: nothing picked
        EXPECT_TRUE(d.Window.Visible());
        d.lvVHLs.Select(0);
        d.lvVHLs.DblClick();
        EXPECT_FALSE(d.Window.Visible());
    };
    m.mnuVhlOpen.DoClick();
    EXPECT_EQ(shown, 1);
    ASSERT_EQ(Editors().size(), 2u);
    EXPECT_EQ(Editors()[1]->vhl->Name, "Only");

    // A picker nobody answers picks nothing.
    host->onShow.erase("frmVOpen");
    m.mnuVhlOpen.DoClick();
    EXPECT_EQ(Editors().size(), 2u);
}

TEST_F(VehicleCommands, TheFighterPickerServesOpenAndDelete) {
    auto f = std::make_shared<Fighter>();
    f->Name = "Sparrow";
    gFighters[0] = f;
    std::string seen;
    host->onShow["frmFOpen"] = [&](FormModel& f) {
        auto& d = static_cast<frmFOpen&>(f);
        seen = d.Window.Caption() + "|" + d.PButOpen.Caption();
        ASSERT_EQ(d.lvFTRs.Count(), 1);
        d.lvFTRs.Select(0);
        d.PButOpen.DoClick();
    };
    EXPECT_EQ(m.zPickFighterToOpen(), 0);
    EXPECT_EQ(seen, "Open Fighter|&Open");
    EXPECT_EQ(m.zPickFighter("Delete Fighter", "&Delete"), 0);
    EXPECT_EQ(seen, "Delete Fighter|&Delete");
    host->onShow.erase("frmFOpen");
    EXPECT_EQ(m.zPickFighterToOpen(), -1);
}

// ---- Shutdown over real editors ----------------------------------------------

TEST_F(VehicleCommands, ShutdownAsksEachUnsavedEditorTheseCommandsMade) {
    gOpenLast = 0;
    frmVhl& stored = New(kVhlTracked, 0, 1);
    stored.TName.SetText("Kept");
    Save(stored);
    frmVhl& a = New(kVhlTracked, 0, 1);
    frmVhl& opened = Open("Kept");
    New(kVhlWheeled, 0, 1);
    ASSERT_EQ(gForms().size(), 5u);

    // Newest first: the last is let go, the opened one is saved and not
    // asked, a answers cancel and stays.
    fake.ui.boxes.clear();
    fake.ui.answers = {MsgResult::No, MsgResult::Cancel};
    bool cancel = false;
    m.Form_QueryUnload(cancel);
    EXPECT_TRUE(cancel);
    ASSERT_EQ(fake.ui.boxes.size(), 2u);
    for (const auto& box : fake.ui.boxes) {
        EXPECT_EQ(box.title, "Save?");
        EXPECT_EQ(box.text, "This vehicle is not yet saved, would you like to save it?");
    }
    EXPECT_EQ(gForms(), (std::vector<FormModel*>{&m, &a}));
    EXPECT_FALSE(opened.Loaded);

    // Asked again, a lets go and the walk ends the program.
    fake.ui.answers = {MsgResult::No};
    m.Form_QueryUnload(cancel);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(gForms(), (std::vector<FormModel*>{&m}));
}
