#include "vehicle/frmVhl.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "core/Settings.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"
#include "refdata/frmWData.h"
#include "vehicle/frmVEQ.h"

namespace bw {

namespace {

constexpr int32_t kBlack = 0x000000;
constexpr int32_t kRed = 0x0000FF;
constexpr int32_t kGreen = 0x00FF00;

// Figures as the run-time shows a number: no trailing zeros, single
// precision quotients without their noise digits.
std::string Num(double v) { return zSingleText(v); }
std::string Num(int32_t v) { return std::to_string(v); }

double TextValue(const std::string& t) { return zIsNumeric(t) ? std::strtod(t.c_str(), nullptr) : 0.0; }

bool IsArmorLoc(int16_t loc) { return (loc >= 0 && loc <= 5) || (loc >= 8 && loc <= 11); }

const char* kClassNames[6] = {"Energy Weapons", "Ballistic Weapons", "Missile Weapons",
                              "Equipment",      "Ammunition",        "Artillery"};

bool StartsWith(const std::string& s, const char* p) { return s.rfind(p, 0) == 0; }

}  // namespace

frmVhl::frmVhl() : FormModel("frmVhl") {
    for (int16_t i = 0; i < 12; ++i) {
        scrlArmorLoc[i].Name = "scrlArmorLoc(" + std::to_string(i) + ")";
        TArmorLoc[i].Name = "TArmorLoc(" + std::to_string(i) + ")";
        TArmorLoc[i].SetText("0");
    }
    for (int16_t i = 0; i < 6; ++i) {
        CBoxShowType[i].Name = "CBoxShowType(" + std::to_string(i) + ")";
        CBoxShowType[i].SetValue(1);  // every class shown until the user hides one
    }
    const char* eq[3] = {"A&dd >>", "&Remove", "Cl&ear"};
    for (int16_t i = 0; i < 3; ++i) {
        PButEquipment[i].Name = "PButEquipment(" + std::to_string(i) + ")";
        PButEquipment[i].SetCaption(eq[i]);
    }
    const char* shows[6] = {"Energy", "Ballistic", "Missile", "Equipment", "Ammunition", "Artillery"};
    for (int16_t i = 0; i < 6; ++i) CBoxShowType[i].SetCaption(shows[i]);
    const std::pair<Control*, const char*> captions[] = {
        {&PButCost, "Cos&t/Stats"},
        {&PButShowStats, "Show Stat&istics"},
        {&PButPrint, "&Print"},
        {&PButSave, "&Save"},
        {&PButClose, "&Close"},
        {&PButAllocate, "&Allocate..."},
        {&PButExpandAvail, "E&xpand All"},
        {&PButExpandSel, "Expa&nd All"},
        {&PButCollapseAvail, "C&ollapse All"},
        {&PButCollapseSel, "Co&llapse All"},
        {&CBoxHasSecondTurret, "Secondary Turret"},
        {&CBoxHasSponsonTurret, "Sponson Turrets"},
        {&CBoxMastMount, "Mast Mount"},
        {&CBoxTC, "Targeting Computer"},
        {&CBoxBridgelayer, "Bridge Layer"},
        {&CBoxBulldozer, "Bulldozer Blade"},
        {&CBoxMinesweeper, "Minesweeper"},
        {&CBoxAmphibEquip, "Amphibious Equipment"},
        {&CBoxDuneBuggy, "Dune Buggy"},
        {&CBoxSnowmobileEquip, "Snowmobile Equipment"},
        {&CBoxCoolantSystem, "Coolant System"},
        {&CBoxMASHUnit, "MASH Unit"},
        {&CBoxMobileHQ, "Mobile HQ"},
        {&CBoxJJs, "Jump Jets"},
        {&CBoxSupercharger, "Supercharger"},
    };
    for (const auto& [control, caption] : captions) control->SetCaption(caption);
    LControlDesc[0].SetCaption("Control Equipment");
    LControlDesc[1].SetCaption("Power Amplifiers");
    LControlDesc[2].SetCaption("Lift Equipment");
    // Limits before the handlers exist, so that setting them runs nothing.
    scrlSpeed.SetMax(30);
    scrlSpeed.SetMin(1);
    scrlAdditionalCrew.SetMax(200);
    scrlJJs.SetMax(1);
    scrlMASHUnits.SetMax(10);
    scrlMobileHQ.SetMax(20);
    scrlArmorTonnage.SetMax(600);  // half tons: 300 tons of armor
    Timer1.Interval = 500;
    Timer1.SetEnabled(false);
    LActiveArmorLoc.SetCaption("<none>");
    zWireControls();
}

frmVhl::~frmVhl() {
    if (vhl && vhl->frm == this) vhl->frm = nullptr;
}

void frmVhl::zWireControls() {
    scrlTonnage.Change = [this] { scrlTonnage_Change(); };
    TTonnage.LostFocus = [this] { TTonnage_LostFocus(); };
    scrlSpeed.Change = [this] { scrlSpeed_Change(); };
    TCruise.LostFocus = [this] { TCruise_LostFocus(); };
    cmboEngType.Click = [this] { cmboEngType_Click(); };
    cmboArmorType.Click = [this] { cmboArmorType_Click(); };
    scrlArmorTonnage.Change = [this] { scrlArmorTonnage_Change(); };
    TArmorTonnage.LostFocus = [this] { TArmorTonnage_LostFocus(); };
    for (int16_t i = 0; i < 12; ++i) {
        scrlArmorLoc[i].Change = [this, i] { scrlArmorLoc_Change(i); };
        TArmorLoc[i].LostFocus = [this, i] { TArmorLoc_LostFocus(i); };
    }
    scrlJJs.Change = [this] { scrlJJs_Change(); };
    scrlMASHUnits.Change = [this] { scrlMASHUnits_Change(); };
    scrlMobileHQ.Change = [this] { scrlMobileHQ_Change(); };
    scrlAdditionalCrew.Change = [this] { scrlAdditionalCrew_Change(); };
    TAdditionalCrew.LostFocus = [this] { TAdditionalCrew_LostFocus(); };
    TName.Change = [this] { TName_Change(); };
    cmboRotorArrangement.Click = [this] { cmboRotorArrangement_Click(); };
    cmboBridgelayer.Click = [this] { cmboBridgelayer_Click(); };
    cmboTCLoc.Click = [this] { cmboTCLoc_Click(); };
    CBoxTC.Click = [this] { CBoxTC_Click(); };
    CBoxHasTurret.Click = [this] { CBoxHasTurret_Click(); };
    CBoxHasSecondTurret.Click = [this] { CBoxHasSecondTurret_Click(); };
    CBoxHasSponsonTurret.Click = [this] { CBoxHasSponsonTurret_Click(); };
    CBoxMastMount.Click = [this] { CBoxMastMount_Click(); };
    CBoxSupercharger.Click = [this] { CBoxSupercharger_Click(); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
    tvAvailEq.Expand = [this](const std::string& key) { tvAvailEq_Expand(key); };
    for (int16_t i = 0; i < 6; ++i) CBoxShowType[i].Click = [this, i] { CBoxShowType_Click(i); };
    PButEquipment[0].Click = [this] { zAddWeapon(); };
    PButEquipment[1].Click = [this] { zRemoveWeapon(); };
    PButEquipment[2].Click = [this] { zClearWeapons(); };
    PButSave.Click = [this] { PButSave_Click(); };
    PButClose.Click = [this] { Unload(); };
    PButAllocate.Click = [this] { PButAllocate_Click(); };
    PButCost.Click = [this] { zOpenForm("frmCost", *this); };
    PButShowStats.Click = [this] { zOpenForm("frmVStat", *this); };
    PButPrint.Click = [this] { PButPrint_Click(); };
    tvAvailEq.DblClick = [this] { zShowWeaponData(tvAvailEq); };
    tvSelectedEq.DblClick = [this] { zShowWeaponData(tvSelectedEq); };
    zWireEquipmentKeys(tvAvailEq, tvSelectedEq, [this] { zAddWeapon(); }, [this] { zRemoveWeapon(); });
    PButExpandAvail.Click = [this] { zExpandAll(tvAvailEq, true); };
    PButCollapseAvail.Click = [this] { zExpandAll(tvAvailEq, false); };
    PButExpandSel.Click = [this] { zExpandAll(tvSelectedEq, true); };
    PButCollapseSel.Click = [this] { zExpandAll(tvSelectedEq, false); };

    // The exclusions between options. The table is deliberately one-sided:
    // a bridge layer refuses a turret, a turret never refuses a bridge layer.
    auto special = [this](int16_t type) { return [this, type](int16_t v) { zSpecialEQ(type, v); }; };
    CBoxAmphibEquip.Click = [this, special] {
        zOptionBox(CBoxAmphibEquip, "Unable to mount amphibious equipment",
                   {{&Vehicle::HasDuneBuggyEquip, nullptr,
                     "You can not mount amphibious equipment if there is dune buggy gear already mounted."},
                    {&Vehicle::HasSnowmobileEquip, nullptr,
                     "You can not mount amphibious equipment if there is snowmobile equipment already mounted."},
                    {&Vehicle::HasJumpJet, nullptr,
                     "You can not mount amphibious equipment if there are jump jets already mounted."}},
                   special(9));
    };
    CBoxBridgelayer.Click = [this] {
        zOptionBox(CBoxBridgelayer, "Unable to mount Bridge Layer",
                   {{&Vehicle::HasTurret, &Vehicle::HasSecTurret,
                     "You can not mount Bridge Layer equipment if there is a turret or secondary turret already "
                     "mounted."},
                    {&Vehicle::HasBulldozer, nullptr,
                     "You can not mount Bridge Layer equipment if there is a bulldozer blade already mounted."},
                    {&Vehicle::HasMinesweeper, nullptr,
                     "You can not mount Bridge Layer equipment if there is a minesweeper already mounted."}},
                   [this](int16_t v) {
                       zSpecialEQ(3, v);
                       cmboBridgelayer.SetVisible(v == 1);
                   });
    };
    CBoxBulldozer.Click = [this, special] {
        zOptionBox(CBoxBulldozer, "Unable to mount bulldozer blade",
                   {{&Vehicle::HasBridgeLayer, nullptr,
                     "You can not mount a bulldozer blade if there is a bridge layer already mounted."},
                    {&Vehicle::HasMinesweeper, nullptr,
                     "You can not mount a bulldozer blade if there is a minesweeper already mounted."}},
                   special(4));
    };
    CBoxCoolantSystem.Click = [this, special] {
        zOptionBox(CBoxCoolantSystem, "Unable to mount coolant system",
                   {{&Vehicle::HasMASHUnit, nullptr,
                     "You can not mount a coolant system if there is a MASH Unit already mounted."},
                    {&Vehicle::HasMobileHQ, nullptr,
                     "You can not mount a coolant system if there is a Mobile HQ already mounted."}},
                   special(6));
    };
    CBoxDuneBuggy.Click = [this, special] {
        zOptionBox(CBoxDuneBuggy, "Unable to mount dune buggy gear",
                   {{&Vehicle::HasAmphibEquip, nullptr,
                     "You can not mount dune buggy gear if there is amphibious gear already mounted."},
                    {&Vehicle::HasSnowmobileEquip, nullptr,
                     "You can not mount dune buggy gear if there is snowmobile equipment already mounted."},
                    {&Vehicle::HasJumpJet, nullptr,
                     "You can not mount dune buggy gear if there are jump jets already mounted."}},
                   special(10));
    };
    CBoxJJs.Click = [this] {
        zOptionBox(CBoxJJs, "Unable to mount jump jets",
                   {{&Vehicle::HasAmphibEquip, nullptr,
                     "You can not mount jump jets if there is amphibious gear already mounted."},
                    {&Vehicle::HasDuneBuggyEquip, nullptr,
                     "You can not mount jump jets if there is dune buggy gear already mounted."},
                    {&Vehicle::HasSnowmobileEquip, nullptr,
                     "You can not mount jump jets if there is snowmobile equipment already mounted."},
                    {&Vehicle::HasSponsonTurrets, nullptr,
                     "You can not mount jump jets if there are sponson turrets already mounted."}},
                   [this](int16_t v) {
                       zSpecialEQ(12, v);
                       zNumberInput(scrlJJs, &LJJs, v);
                   });
    };
    CBoxMASHUnit.Click = [this] {
        zOptionBox(CBoxMASHUnit, "Unable to mount MASH Unit",
                   {{&Vehicle::HasCoolantSystem, nullptr,
                     "You can not mount a MASH Unit if there is a coolant system already mounted."},
                    {&Vehicle::HasMobileHQ, nullptr,
                     "You can not mount a MASH Unit if there is a Mobile HQ already mounted."}},
                   [this](int16_t v) {
                       zSpecialEQ(7, v);
                       zNumberInput(scrlMASHUnits, &LMASHCount, v);
                   });
    };
    CBoxMinesweeper.Click = [this, special] {
        zOptionBox(CBoxMinesweeper, "Unable to mount minesweeper",
                   {{&Vehicle::HasBridgeLayer, nullptr,
                     "You can not mount a minesweeper if there is a bridge layer already mounted."},
                    {&Vehicle::HasBulldozer, nullptr,
                     "You can not mount a minesweeper if there is a bulldozer blade already mounted."}},
                   special(5));
    };
    CBoxMobileHQ.Click = [this] {
        zOptionBox(CBoxMobileHQ, "Unable to mount Mobile HQ",
                   {{&Vehicle::HasCoolantSystem, nullptr,
                     "You can not mount a Mobile HQ if there is a coolant system already mounted."},
                    {&Vehicle::HasMASHUnit, nullptr,
                     "You can not mount a Mobile HQ if there is a MASH Unit already mounted."}},
                   [this](int16_t v) {
                       zSpecialEQ(8, v);
                       zNumberInput(scrlMobileHQ, nullptr, v);
                   });
    };
    CBoxSnowmobileEquip.Click = [this, special] {
        zOptionBox(CBoxSnowmobileEquip, "Unable to mount snowmobile equipment",
                   {{&Vehicle::HasAmphibEquip, nullptr,
                     "You can not mount snowmobile equipment if there is amphibious gear already mounted."},
                    {&Vehicle::HasDuneBuggyEquip, nullptr,
                     "You can not mount snowmobile equipment if there is dune buggy gear already mounted."},
                    {&Vehicle::HasJumpJet, nullptr,
                     "You can not mount snowmobile equipment if there are jump jets already mounted."}},
                   special(11));
    };
}

// ---- Window life ----------------------------------------------------------

std::unique_ptr<frmVhl> frmVhl::zNewDesign(int16_t techBase, int16_t techLevel, int16_t vhlType) {
    auto editor = std::make_unique<frmVhl>();
    auto v = std::make_shared<Vehicle>();
    editor->vhl = v;
    v->frm = editor.get();
    editor->Load();
    v->SetTechBase(techBase);
    v->SetTechLevel(techLevel);
    v->SetType(vhlType);
    // Every new design starts as five tons at one movement point.
    v->SetTonnage(5);
    v->SetCruiseSpeed(1);
    editor->zSetUpBaseData();
    return editor;
}

std::unique_ptr<frmVhl> frmVhl::zOpenDesign(const Vehicle& stored) {
    // The editor works on its own copy: the table keeps its object until a
    // save hands the copy over.
    auto editor = std::make_unique<frmVhl>();
    auto v = std::make_shared<Vehicle>(stored);
    editor->vhl = v;
    v->frm = editor.get();
    editor->Load();
    editor->wLoading = kTrue;
    editor->zSetUpBaseData();
    editor->zShowStoredDesign();
    editor->wLoading = kFalse;
    editor->zSetSaved(kTrue);
    return editor;
}

void frmVhl::Form_Load() {
    std::vector<TextBox*> boxes{&TName, &TTonnage, &TCruise, &TAdditionalCrew, &TArmorTonnage};
    for (TextBox& t : TArmorLoc) boxes.push_back(&t);
    zWireFocusColours(boxes);
}

void frmVhl::Form_Unload() {
    Timer1.SetEnabled(false);
    if (vhl && vhl->frm == this) vhl->frm = nullptr;
}

void frmVhl::Form_QueryUnload(bool& cancel) {
    cancel = false;
    if (wSaved != 0) return;
    zAskSaveOnClose(*this, "vehicle", [this] { return zValidateSave() != 0; }, [this] { zSetSaved(kTrue); }, cancel);
}

void frmVhl::zSetSaved(int16_t wStatus) {
    wSaved = wStatus;
    const std::string name = vhl ? vhl->Name : std::string();
    Window.SetCaption(wStatus != 0 ? name : name + " *");
}

void frmVhl::SSTab1_Click(int16_t tab) {
    SSTab1Tab = tab;
    picVHLArm.SetVisible(false);
    if (tab == 1) LActiveArmorLoc.SetCaption("<none>");
    if (tab == 2) picVHLArm.SetVisible(true);
}

void frmVhl::Timer1_Timer() { LTonnageFree.SetForeColor(LTonnageFree.ForeColor() == kRed ? kGreen : kRed); }

// ---- Set-up and refresh ---------------------------------------------------

void frmVhl::zSetUpBaseData() {
    zTrapVoid("zSetUpBaseData", [&] {
        Vehicle& v = *vhl;
        const int16_t base = v.TechBase, level = v.TechLevel, type = v.VhlType;

        cmboEngType.Clear();
        cmboEngType.AddItem("I.C.E.");
        cmboEngType.AddItem("Fusion");
        cmboArmorType.Clear();
        cmboArmorType.AddItem("Normal");
        cmboArmorType.AddItem("Ferro-Fibrous");
        cmboRotorArrangement.Clear();
        for (const char* s : {"Standard", "Dual", "Coaxial"}) cmboRotorArrangement.AddItem(s);
        cmboBridgelayer.Clear();
        for (const char* s : {"Light", "Medium", "Heavy"}) cmboBridgelayer.AddItem(s);
        cmboTCLoc.Clear();
        for (int16_t loc = 0; loc <= 3; ++loc) cmboTCLoc.AddItem(zItemLocationName(loc, type));
        cmboTCLoc.AddItem("Body");
        for (ComboBox* c : {&cmboEngType, &cmboArmorType, &cmboRotorArrangement, &cmboBridgelayer, &cmboTCLoc})
            c->SetListIndex(0);

        const bool crew = level == 3;
        scrlAdditionalCrew.SetVisible(crew);
        TAdditionalCrew.SetVisible(crew);

        LTechBase.SetCaption(zTechBaseName(base));
        bool armorShown = true, tc = false;
        if (base == kBaseInnerSphere) {
            if (level >= 2) cmboEngType.AddItem("Fusion XL");
            if (level == 1) armorShown = false;
            if (level == 3) {
                // The extra armors are an Inner Sphere offer only.
                for (const char* s : {"Light Ferro-Fibrous", "Heavy Ferro-Fibrous", "Laser Reflective", "Reactive"})
                    cmboArmorType.AddItem(s);
                tc = true;
            }
        } else {
            cmboEngType.AddItem("Fusion XL");
            tc = true;
        }
        if (level == 3) {
            cmboEngType.Clear();
            for (int16_t e : {kEngICE, kEngFusion, kEngFusionXL, kEngFusionXXL, kEngLargeICE, kEngLargeFusion,
                              kEngLargeFusionXL, kEngLargeFusionXXL})
                cmboEngType.AddItem(zEngineName(e));
            cmboEngType.SetListIndex(0);
        }
        cmboArmorType.SetVisible(armorShown);
        CBoxTC.SetVisible(tc);
        cmboTCLoc.SetVisible(false);
        LTCLocationDesc.SetVisible(false);

        LTechLevel.SetCaption(std::to_string(level));
        LVehicleType.SetCaption(zVehicleTypeName(type));
        // What every type shows unless its row below says otherwise.
        for (Control* c : std::initializer_list<Control*>{
                 &CBoxBulldozer, &CBoxMinesweeper, &CBoxAmphibEquip, &CBoxSnowmobileEquip, &CBoxDuneBuggy,
                 &CBoxHasSponsonTurret, &CBoxSupercharger, &CBoxJJs, &LControlTonnage[2], &LControlDesc[2],
                 &CBoxMastMount, &cmboRotorArrangement, &scrlJJs, &LJJs, &scrlMASHUnits, &LMASHCount, &scrlMobileHQ,
                 &cmboBridgelayer})
            c->SetVisible(false);
        for (Control* c : std::initializer_list<Control*>{&CBoxHasTurret, &CBoxBridgelayer, &CBoxCoolantSystem,
                                                          &CBoxMASHUnit, &CBoxMobileHQ, &tabSpecials})
            c->SetVisible(true);
        CBoxHasTurret.SetCaption("Main Turret");
        LControlDesc[2].SetCaption("Lift Equipment");
        int16_t maxTons = 100, minTons = 5;
        const bool l3 = level == 3;
        switch (type) {
            case kVhlTracked:
            case kVhlWheeled:
                maxTons = type == kVhlTracked ? 100 : 80;
                for (Control* c : std::initializer_list<Control*>{&CBoxBulldozer, &CBoxMinesweeper, &CBoxAmphibEquip,
                                                                  &CBoxSnowmobileEquip})
                    c->SetVisible(true);
                CBoxDuneBuggy.SetVisible(type == kVhlWheeled);
                CBoxHasSponsonTurret.SetVisible(l3);
                CBoxSupercharger.SetVisible(l3);
                CBoxJJs.SetVisible(l3);
                break;
            case kVhlHover:
                maxTons = 50;
                LControlTonnage[2].SetVisible(true);
                LControlDesc[2].SetVisible(true);
                CBoxSupercharger.SetVisible(l3);
                CBoxJJs.SetVisible(l3);
                break;
            case kVhlVTOL:
                maxTons = 30;
                LControlTonnage[2].SetVisible(true);
                LControlDesc[2].SetVisible(true);
                LControlDesc[2].SetCaption("Rotor");
                CBoxMastMount.SetVisible(true);
                cmboRotorArrangement.SetVisible(l3);
                CBoxHasTurret.SetVisible(l3);
                CBoxHasTurret.SetCaption("Chin Turret");
                CBoxHasSponsonTurret.SetVisible(l3);
                tabSpecials.SetVisible(false);
                break;
            case kVhlHydrofoil:
                LControlTonnage[2].SetVisible(true);
                LControlDesc[2].SetVisible(true);
                break;
            case kVhlNaval: maxTons = 300; break;
            case kVhlSubmarine:
                maxTons = 300;
                LControlTonnage[2].SetVisible(true);
                LControlDesc[2].SetVisible(true);
                LControlDesc[2].SetCaption("Dive Equipment");
                break;
            case kVhlSuperHeavy:
                maxTons = 200;
                minTons = 100;
                CBoxHasSponsonTurret.SetVisible(true);
                CBoxSupercharger.SetVisible(true);
                break;
            default: break;
        }
        // The tonnage input moves into its range here, which steps the speed.
        scrlTonnage.SmallChange = 5;
        scrlTonnage.LargeChange = 5;
        scrlTonnage.SetMax(maxTons);
        scrlTonnage.SetMin(minTons);

        for (int16_t loc = 0; loc <= 5; ++loc) scrlArmorLoc[loc].SetValue(0);
        scrlSpeed.SetValue(1);
        if (wLoading == 0) {
            // The input may already stand at 1, which fires nothing: show the
            // speeds the new design starts with all the same.
            TCruise.SetText(std::to_string(scrlSpeed.Value()));
            LFlank.SetCaption(std::to_string(v.FlankSpeed));
            v.SetEngineType(0);
            zUpdateArmor();
        }

        zChangePicture();
        zLoadValidWeapons();
        zRefreshWeaponsAvail();
        zUpdateTonnageLists();
    });
}

void frmVhl::zShowStoredDesign() {
    const int16_t wasLoading = wLoading;
    // Every input's own command returns at once while loading: the inputs
    // follow the design, the design does not follow the inputs.
    wLoading = kTrue;
    zTrapVoid("zShowStoredDesign", [&] {
        const Vehicle& v = *vhl;
        // A figure outside an input's range (a file not made here) stops at
        // the limit of the input; the design keeps its own figure.
        auto put = [](ScrollBar& s, int32_t value) {
            s.SetValue(static_cast<int16_t>(std::clamp<int32_t>(value, s.Min(), s.Max())));
        };
        // A tonnage as a whole input step; nothing from a file can overflow it.
        auto whole = [](double t) { return t >= 0 && t <= 32767 ? zCLng(t) : int32_t{t > 32767 ? 32767 : 0}; };
        auto box = [](CheckBox& b, int16_t flag) { b.SetValue(flag != 0 ? 1 : 0); };
        auto pick = [](ComboBox& c, int32_t index) {
            if (index >= 0 && index < c.ListCount()) c.SetListIndex(index);
        };

        TName.SetText(v.Name);
        put(scrlTonnage, v.Tonnage);
        TTonnage.SetText(std::to_string(v.Tonnage));
        put(scrlSpeed, v.CruiseSpeed);
        TCruise.SetText(std::to_string(v.CruiseSpeed));
        LFlank.SetCaption(std::to_string(v.FlankSpeed));
        pick(cmboEngType, zGetEngineIdx(v.EngineType));

        // Options and their number inputs.
        box(CBoxAmphibEquip, v.HasAmphibEquip);
        box(CBoxBulldozer, v.HasBulldozer);
        box(CBoxCoolantSystem, v.HasCoolantSystem);
        box(CBoxDuneBuggy, v.HasDuneBuggyEquip);
        box(CBoxMinesweeper, v.HasMinesweeper);
        box(CBoxSnowmobileEquip, v.HasSnowmobileEquip);
        box(CBoxSupercharger, v.HasSupercharger);
        box(CBoxMastMount, v.HasMastMount);
        box(CBoxBridgelayer, v.HasBridgeLayer);
        cmboBridgelayer.SetVisible(v.HasBridgeLayer != 0);
        pick(cmboBridgelayer, v.BridgeLayerType);
        box(CBoxJJs, v.HasJumpJet);
        zNumberInput(scrlJJs, &LJJs, v.HasJumpJet != 0 ? 1 : 0);
        scrlJJs.SetMax(std::max<int16_t>(v.CruiseSpeed, scrlJJs.Min()));
        if (v.HasJumpJet != 0) {
            put(scrlJJs, v.NumJumpJets);
            LJJs.SetCaption(std::to_string(v.NumJumpJets));
        }
        box(CBoxMASHUnit, v.HasMASHUnit);
        zNumberInput(scrlMASHUnits, &LMASHCount, v.HasMASHUnit != 0 ? 1 : 0);
        if (v.HasMASHUnit != 0) {
            put(scrlMASHUnits, v.MASHTheatres);
            LMASHCount.SetCaption(std::to_string(v.MASHTheatres));
        }
        box(CBoxMobileHQ, v.HasMobileHQ);
        zNumberInput(scrlMobileHQ, nullptr, v.HasMobileHQ != 0 ? 1 : 0);
        if (v.HasMobileHQ != 0) put(scrlMobileHQ, whole(v.MobileHQTonnage));
        pick(cmboRotorArrangement, v.RotorConfig);

        // Turrets decide which armor inputs and which diagram are shown.
        box(CBoxHasTurret, v.HasTurret);
        box(CBoxHasSecondTurret, v.HasSecTurret);
        box(CBoxHasSponsonTurret, v.HasSponsonTurrets);
        zChangePicture();

        // Targeting computer: its list names the turrets mounted, then
        // "Body" last.
        box(CBoxTC, v.HasTC);
        cmboTCLoc.SetVisible(v.HasTC != 0);
        LTCLocationDesc.SetVisible(v.HasTC != 0);
        zUpdateTCLocations();
        if (v.HasTC != 0) {
            int32_t at = -1;
            if (v.TCLocation >= kLocFront && v.TCLocation <= kLocRear) at = v.TCLocation;
            else if (v.TCLocation == kLocTurret && v.HasTurret != 0) at = 4;
            else if (v.TCLocation == kLocSecondTurret && v.HasSecTurret != 0) at = v.HasTurret != 0 ? 5 : 4;
            else if (v.TCLocation == kLocBody) at = cmboTCLoc.ListCount() - 1;
            pick(cmboTCLoc, at);
        }

        // Crew aboard, never below what the tonnage requires.
        scrlAdditionalCrew.SetMin(std::min<int16_t>(v.BaseCrew, scrlAdditionalCrew.Max()));
        put(scrlAdditionalCrew, v.NumCrew);
        TAdditionalCrew.SetText(std::to_string(v.NumCrew));

        // Armor: type, tonnage in half tons, and each location.
        pick(cmboArmorType, v.ArmorType);
        put(scrlArmorTonnage, whole(v.ArmorTonnage * 2));
        const int16_t stored[12] = {v.FrontArmor,      v.LeftArmor,      v.RightArmor,     v.RearArmor,
                                    v.TurretArmor,     v.SecTurretArmor, 0,                0,
                                    v.FrontRightArmor, v.FrontLeftArmor, v.RearRightArmor, v.RearLeftArmor};
        for (int16_t loc = 0; loc < 12; ++loc) {
            if (!IsArmorLoc(loc)) continue;
            ScrollBar& s = scrlArmorLoc[loc];
            const int16_t value = std::max<int16_t>(stored[loc], 0);
            if (s.Max() < value) s.SetMax(value);
            s.SetValue(value);
            TArmorLoc[loc].SetText(std::to_string(value));
        }
        zUpdateArmor();

        // The mounted items, and with them the figures as stored.
        zUpdateWeapons();
    });
    wLoading = wasLoading;
}

void frmVhl::zUpdateTonnageLists() {
    zTrapVoid("zUpdateTonnageLists", [&] {
        Vehicle& v = *vhl;
        LEngineTonnage.SetCaption(Num(v.EngineTonnage));
        LEngineRating.SetCaption(Num(int32_t{v.EngineRating}));
        LISTonnage.SetCaption(Num(v.ISTonnage));
        LControlTonnage[0].SetCaption(Num(v.ControlTonnage));
        LControlTonnage[1].SetCaption(Num(v.PowerAmpTonnage));
        LControlTonnage[2].SetCaption(Num(v.LiftEqTonnage));
        LHeatSinks.SetCaption(Num(int32_t{v.HeatSinks}));
        LHeatSinkTonnage.SetCaption(Num(int32_t{v.HeatSinkTonnage}));
        LTurretTonnage.SetCaption(Num(v.TurretTonnage));
        LSecTurretTonnage.SetCaption(Num(v.SecTurretTonnage));
        LSponsonTonnage.SetCaption(Num(v.SponsonTurretTonnage));
        LTCTonnage.SetCaption(Num(v.TCTonnage));
        if (wLoading == 0) v.CalcTotalTonnage();
        scrlAdditionalCrew.SetMin(v.BaseCrew);
        LSuperchargerTonnage.SetCaption(Num(v.SuperchargerTonnage));
        LMastMountTonnage.SetCaption(Num(v.MastMountTonnage));
        LCrewTonnage.SetCaption(Num(v.CrewTonnage));
        LBridgeLayerTonnage.SetCaption(Num(v.BridgeLayerTonnage));
        LBulldozerTonnage.SetCaption(Num(v.BulldozerTonnage));
        LMinesweeperTonnage.SetCaption(Num(v.MinesweeperTonnage));
        LMASHTonnage.SetCaption(Num(v.MASHTonnage));
        LAmphibTonnage.SetCaption(Num(v.AmphibTonnage));
        LDuneBuggyTonnage.SetCaption(Num(v.DuneBuggyTonnage));
        LSnowmobileTonnage.SetCaption(Num(v.SnowmobileTonnage));
        LCoolantSystemTonnage.SetCaption(Num(v.CoolantSystemTonnage));
        LJumpJetTonnage.SetCaption(Num(v.JumpJetTonnage));
        LMobileHQTonnage.SetCaption(Num(v.MobileHQTonnage));
        LTonnageTotal.SetCaption(Num(v.TotalTonnage));
        LTonnageFree.SetCaption(Num(v.FreeTonnage));
        // Red and steady inside the one-ton gift; flashing beyond it.
        Timer1.SetEnabled(false);
        if (v.FreeTonnage >= 0) {
            LTonnageFree.SetForeColor(kBlack);
        } else {
            LTonnageFree.SetForeColor(kRed);
            if (v.FreeTonnage <= -1) Timer1.SetEnabled(true);
        }
        if (wLoading == 0) zSetSaved(kFalse);
    });
}

int16_t frmVhl::zRatingLimit() const {
    const int16_t e = vhl->EngineType;
    return (e == kEngLargeICE || e == kEngLargeFusionXL || e == kEngLargeFusionXXL || e == kEngLargeFusion) ? 500
                                                                                                         : 400;
}

void frmVhl::zStepSpeedToRating() {
    // Each step runs the speed command again, which goes on stepping until
    // the rating fits or the input's own limit stops it.
    if (vhl->EngineRating < 5) scrlSpeed.StepUp();
    else if (vhl->EngineRating > zRatingLimit()) scrlSpeed.StepDown();
}

// ---- Tonnage, speed, engine -----------------------------------------------

void frmVhl::scrlTonnage_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlTonnage_Change", [&] {
        TTonnage.SetText(std::to_string(scrlTonnage.Value()));
        vhl->SetTonnage(zCInt(TextValue(TTonnage.Text())));
        zStepSpeedToRating();
        zUpdateTonnageLists();
    });
}

void frmVhl::TTonnage_LostFocus() {
    if (wLoading != 0) return;
    zTrapVoid("TTonnage_LostFocus", [&] {
        zCheckTextBox(TTonnage, scrlTonnage.Min(), scrlTonnage.Max(), true);
        const int16_t tons = zCInt(TextValue(TTonnage.Text()));
        // Not rounded to the nearest step: a stray figure starts again at the
        // bottom of the range.
        if (tons % 5 != 0) TTonnage.SetText(vhl->VhlType == kVhlSuperHeavy ? "100" : "5");
        scrlTonnage.SetValue(zCInt(TextValue(TTonnage.Text())));
        TTonnage.SetText(std::to_string(scrlTonnage.Value()));
    });
}

void frmVhl::scrlSpeed_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlSpeed_Change", [&] {
        TCruise.SetText(std::to_string(scrlSpeed.Value()));
        vhl->SetCruiseSpeed(zCInt(TextValue(TCruise.Text())));
        vhl->CalcEngineRating();
        zStepSpeedToRating();
        LFlank.SetCaption(std::to_string(vhl->FlankSpeed));
        scrlJJs.SetMax(std::max<int16_t>(vhl->CruiseSpeed, scrlJJs.Min()));
        zUpdateTonnageLists();
    });
}

void frmVhl::TCruise_LostFocus() {
    if (wLoading != 0) return;
    zTrapVoid("TCruise_LostFocus", [&] {
        zCheckTextBox(TCruise, 1, 30, true);
        scrlSpeed.SetValue(zCInt(TextValue(TCruise.Text())));
        TCruise.SetText(std::to_string(scrlSpeed.Value()));
    });
}

int16_t frmVhl::zGetEngineIdx(int16_t engineType) const {
    const std::string name = zEngineName(engineType);
    for (int32_t i = 0; i < cmboEngType.ListCount(); ++i)
        if (cmboEngType.List(i) == name) return static_cast<int16_t>(i);
    return 0;
}

void frmVhl::cmboEngType_Click() {
    if (wLoading != 0 || wReverting != 0) return;
    zTrapVoid("cmboEngType_Click", [&] {
        Vehicle& v = *vhl;
        const int16_t newType = zEngineCodeFromName(cmboEngType.Text());
        const int16_t o = zEngineItemSlots(v.EngineType, v.TechBase);
        const int16_t n = zEngineItemSlots(newType, v.TechBase);
        if (n > o && int32_t{v.MaxItems} - v.NumItems < n - o) {
            zMsgBox("You do not have enough free item slots to add this engine.", MsgButtons::OK,
                    MsgIcon::Information, "Cannot change engine");
            wReverting = kTrue;
            cmboEngType.SetListIndex(zGetEngineIdx(v.EngineType));
            wReverting = kFalse;
            return;
        }
        v.SetEngineType(newType);
        if (v.EngineRating > zRatingLimit()) scrlSpeed.StepDown();
        v.CalcEngineTonnage();
        zUpdateTonnageLists();
    });
    wReverting = kFalse;
}

// ---- Armor ------------------------------------------------------------------

void frmVhl::cmboArmorType_Click() {
    if (wLoading != 0) return;
    zTrapVoid("cmboArmorType_Click", [&] {
        Vehicle& v = *vhl;
        const int16_t t = static_cast<int16_t>(cmboArmorType.ListIndex());
        if (t < 0) return;
        // The slots of the armor mounted now are not credited.
        if (int32_t{v.MaxItems} - v.NumItems < zVehicleArmorItemSlots(t)) {
            zMsgBox("You do not have enough free item slots to add " + zVehicleArmorName(t) + " armor.",
                    MsgButtons::OK, MsgIcon::Information, "Cannot change armor");
            cmboArmorType.SetListIndex(0);  // its own click mounts "Normal"
            return;
        }
        v.SetArmorType(t);
        zUpdateArmor();
        zUpdateTonnageLists();
    });
}

void frmVhl::scrlArmorTonnage_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlArmorTonnage_Change", [&] {
        const double tons = scrlArmorTonnage.Value() / 2.0;
        LArmorTonnage.SetCaption(Num(tons));
        TArmorTonnage.SetText(Num(tons));
        vhl->SetArmorTonnage(tons);
        zUpdateArmor();
        zUpdateTonnageLists();
    });
}

void frmVhl::TArmorTonnage_LostFocus() {
    if (wLoading != 0) return;
    zTrapVoid("TArmorTonnage_LostFocus", [&] {
        // Typed tons go to the nearest half ton within the up-down's limits;
        // anything else puts the figure back.
        const std::string t = TArmorTonnage.Text();
        int16_t halves = scrlArmorTonnage.Value();
        if (zIsNumeric(t)) {
            const double v = std::clamp(std::strtod(t.c_str(), nullptr) * 2, static_cast<double>(scrlArmorTonnage.Min()),
                                        static_cast<double>(scrlArmorTonnage.Max()));
            halves = zCInt(v);
        }
        scrlArmorTonnage.SetValue(halves);
        TArmorTonnage.SetText(Num(halves / 2.0));
    });
}

int16_t frmVhl::zMirrorOf(int16_t loc) const {
    if (vhl->VhlType == kVhlSuperHeavy) {
        switch (loc) {
            case kLocFrontRight: return kLocFrontLeft;
            case kLocFrontLeft: return kLocFrontRight;
            case kLocRearRight: return kLocRearLeft;
            case kLocRearLeft: return kLocRearRight;
            default: return -1;
        }
    }
    if (loc == kLocLeft) return kLocRight;
    if (loc == kLocRight) return kLocLeft;
    return -1;
}

void frmVhl::zUpdateArmor() {
    zTrapVoid("zUpdateArmor", [&] {
        Vehicle& v = *vhl;
        LArmorTonnage.SetCaption(Num(v.ArmorTonnage));
        TArmorTonnage.SetText(Num(v.ArmorTonnage));
        LTotalPoints.SetCaption(std::to_string(v.ArmorPoints));
        LAllocatedPoints.SetCaption(std::to_string(v.ArmorAllocated));
        LRemainingPoints.SetCaption(std::to_string(int32_t{v.ArmorPoints} - v.ArmorAllocated));
        for (int16_t loc = 0; loc < 12; ++loc) {
            if (!IsArmorLoc(loc)) continue;
            // Read afresh: lowering one limit can pull a value down, which
            // changes what is left for the others.
            const int32_t rest = int32_t{v.ArmorPoints} - v.ArmorAllocated;
            const int32_t cur = scrlArmorLoc[loc].Value();
            int32_t upper = zMirrorOf(loc) >= 0 ? cur + zCInt(rest / 2.0) : cur + rest;
            upper = std::clamp<int32_t>(upper, 0, 32767);
            scrlArmorLoc[loc].SetMax(static_cast<int16_t>(upper));
        }
        LRemainingPoints.SetCaption(std::to_string(int32_t{v.ArmorPoints} - v.ArmorAllocated));
        LAllocatedPoints.SetCaption(std::to_string(v.ArmorAllocated));
    });
}

void frmVhl::scrlArmorLoc_Change(int16_t index) {
    if (wLoading != 0) return;
    zTrapVoid("scrlArmorLoc_Change", [&] {
        const int16_t value = scrlArmorLoc[index].Value();
        TArmorLoc[index].SetText(std::to_string(value));
        vhl->SetArmorLoc(index, value);
        const int16_t other = zMirrorOf(index);
        if (other >= 0 && wMirroring == 0) {
            wMirroring = kTrue;
            if (scrlArmorLoc[other].Max() < value) scrlArmorLoc[other].SetMax(value);
            scrlArmorLoc[other].SetValue(value);
            wMirroring = kFalse;
        }
        zUpdateArmor();
        zSetSaved(kFalse);
    });
    wMirroring = kFalse;
}

void frmVhl::TArmorLoc_LostFocus(int16_t index) {
    if (wLoading != 0) return;
    zTrapVoid("TArmorLoc_LostFocus", [&] {
        ScrollBar& s = scrlArmorLoc[index];
        int16_t upper = s.Max();
        // The rotor takes two points at most.
        if (vhl->VhlType == kVhlVTOL && index == kLocSecondTurret &&
            int32_t{vhl->ArmorPoints} - vhl->ArmorAllocated != 1)
            upper = 2;
        zCheckTextBox(TArmorLoc[index], 0, upper, true);
        const int16_t value = std::min(zCInt(TextValue(TArmorLoc[index].Text())), s.Max());
        s.SetValue(value);
        TArmorLoc[index].SetText(std::to_string(s.Value()));
    });
}

// ---- Options ----------------------------------------------------------------

void frmVhl::zOptionBox(CheckBox& box, const char* title, const std::vector<Exclusion>& tests,
                        const std::function<void(int16_t)>& apply) {
    if (wLoading != 0 || wRefusing != 0) return;
    zTrapVoid((box.Name + "_Click").c_str(), [&] {
        std::vector<OptionExclusion> holds;
        for (const Exclusion& t : tests)
            holds.push_back({[this, t] { return (*vhl).*(t.flag) != 0 || (t.flag2 && (*vhl).*(t.flag2) != 0); },
                             t.message});
        if (bw::zOptionBox(box, title, holds, wRefusing, apply)) zUpdateTonnageLists();
    });
    wRefusing = kFalse;
}

void frmVhl::zSpecialEQ(int16_t wType, int16_t value) {
    int16_t status = value;
    vhl->SetSpecialEQ(wType, status);
}

void frmVhl::zNumberInput(ScrollBar& scrl, Label* label, int16_t value) {
    const bool on = value == 1;
    scrl.SetMin(on ? 1 : 0);
    scrl.SetValue(on ? 1 : 0);
    scrl.SetVisible(on);
    if (label) label->SetVisible(on);
}

void frmVhl::scrlJJs_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlJJs_Change", [&] {
        // Jump movement never exceeds cruising movement.
        if (scrlJJs.Value() > vhl->CruiseSpeed) {
            scrlJJs.StepDown();
            return;
        }
        vhl->SetJumpJets(scrlJJs.Value());
        LJJs.SetCaption(std::to_string(scrlJJs.Value()));
        zUpdateTonnageLists();
    });
}

void frmVhl::scrlMASHUnits_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlMASHUnits_Change", [&] {
        vhl->SetMASHTheatres(scrlMASHUnits.Value());
        LMASHCount.SetCaption(std::to_string(scrlMASHUnits.Value()));
        zUpdateTonnageLists();
    });
}

void frmVhl::scrlMobileHQ_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlMobileHQ_Change", [&] {
        vhl->SetMobileHQ(scrlMobileHQ.Value());
        zUpdateTonnageLists();
    });
}

void frmVhl::scrlAdditionalCrew_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlAdditionalCrew_Change", [&] {
        TAdditionalCrew.SetText(std::to_string(scrlAdditionalCrew.Value()));
        vhl->SetCrew(scrlAdditionalCrew.Value());
        zUpdateTonnageLists();
    });
}

void frmVhl::TAdditionalCrew_LostFocus() {
    if (wLoading != 0) return;
    zTrapVoid("TAdditionalCrew_LostFocus", [&] {
        zCheckTextBox(TAdditionalCrew, scrlAdditionalCrew.Min(), 200, true);
        scrlAdditionalCrew.SetValue(zCInt(TextValue(TAdditionalCrew.Text())));
        TAdditionalCrew.SetText(std::to_string(scrlAdditionalCrew.Value()));
    });
}

void frmVhl::zShowCrew(int16_t wCrew) { TAdditionalCrew.SetText(std::to_string(wCrew)); }

void frmVhl::TName_Change() {
    if (wLoading != 0) return;
    vhl->SetName(TName.Text());
    zSetSaved(kFalse);
}

void frmVhl::cmboRotorArrangement_Click() {
    if (wLoading != 0) return;
    vhl->SetRotorType(static_cast<int16_t>(cmboRotorArrangement.ListIndex()));
    zSetSaved(kFalse);
}

void frmVhl::cmboBridgelayer_Click() {
    if (wLoading != 0) return;
    zTrapVoid("cmboBridgelayer_Click", [&] {
        vhl->SetBridgeType(static_cast<int16_t>(cmboBridgelayer.ListIndex()));
        zUpdateTonnageLists();
    });
}

void frmVhl::CBoxSupercharger_Click() {
    if (wLoading != 0) return;
    zTrapVoid("CBoxSupercharger_Click", [&] {
        vhl->SetSupercharger(CBoxSupercharger.Value());
        zUpdateTonnageLists();
    });
}

void frmVhl::CBoxHasTurret_Click() {
    if (wLoading != 0) return;
    zTrapVoid("CBoxHasTurret_Click", [&] {
        vhl->SetTurret(CBoxHasTurret.Value());
        scrlArmorLoc[kLocTurret].SetValue(0);
        zChangePicture();
        zUpdateTonnageLists();
        zUpdateTCLocations();
        // Whichever way the box went: a main turret click takes a secondary
        // turret off.
        if (vhl->HasSecTurret != 0) CBoxHasSecondTurret.SetValue(0);
    });
}

void frmVhl::CBoxHasSecondTurret_Click() {
    if (wLoading != 0) return;
    zTrapVoid("CBoxHasSecondTurret_Click", [&] {
        vhl->SetSecTurret(CBoxHasSecondTurret.Value());
        scrlArmorLoc[kLocSecondTurret].SetValue(0);
        zChangePicture();
        zUpdateTonnageLists();
        zUpdateTCLocations();
    });
}

void frmVhl::CBoxHasSponsonTurret_Click() {
    if (wLoading != 0) return;
    zTrapVoid("CBoxHasSponsonTurret_Click", [&] {
        vhl->SetSponsonTurrets(CBoxHasSponsonTurret.Value());
        zUpdateTonnageLists();
    });
}

void frmVhl::CBoxMastMount_Click() {
    if (wLoading != 0) return;
    zTrapVoid("CBoxMastMount_Click", [&] { vhl->SetMastMount(CBoxMastMount.Value()); });
}

// ---- Targeting computer -----------------------------------------------------

void frmVhl::CBoxTC_Click() {
    if (wLoading != 0) return;
    zTrapVoid("CBoxTC_Click", [&] {
        vhl->SetTargComp(CBoxTC.Value());
        const bool on = CBoxTC.Value() == 1;
        cmboTCLoc.SetVisible(on);
        LTCLocationDesc.SetVisible(on);
        zUpdateTonnageLists();
    });
}

void frmVhl::cmboTCLoc_Click() {
    if (wLoading != 0) return;
    zTrapVoid("cmboTCLoc_Click", [&] {
        const int32_t i = cmboTCLoc.ListIndex();
        if (i < 0) return;
        vhl->SetTCLocation(i == cmboTCLoc.ListCount() - 1 ? static_cast<int16_t>(kLocBody) : static_cast<int16_t>(i));
        zUpdateTonnageLists();
    });
}

void frmVhl::zUpdateTCLocations() {
    zTrapVoid("zUpdateTCLocations", [&] {
        Vehicle& v = *vhl;
        if (v.HasTC == 0) return;
        const int32_t oldIdx = cmboTCLoc.ListIndex();
        const std::string oldText = cmboTCLoc.Text();
        const bool gone = (oldText == "Main Turret" && v.HasTurret == 0) ||
                          (oldText == "Secondary Turret" && v.HasSecTurret == 0);
        cmboTCLoc.Clear();
        for (int16_t loc = 0; loc <= 3; ++loc) cmboTCLoc.AddItem(zItemLocationName(loc, v.VhlType));
        if (v.HasTurret != 0) cmboTCLoc.AddItem(zItemLocationName(kLocTurret, v.VhlType));
        if (v.HasSecTurret != 0) cmboTCLoc.AddItem(zItemLocationName(kLocSecondTurret, v.VhlType));
        cmboTCLoc.AddItem("Body");
        int32_t pick = 0;
        if (oldIdx >= 0 && oldIdx < 4) {
            pick = oldIdx;
        } else if (!gone) {
            for (int32_t i = 0; i < cmboTCLoc.ListCount(); ++i)
                if (cmboTCLoc.List(i) == oldText) pick = i;
        }
        cmboTCLoc.SetListIndex(pick);
    });
}

// ---- Diagram ----------------------------------------------------------------

void frmVhl::zChangePicture() {
    zTrapVoid("zChangePicture", [&] {
        Vehicle& v = *vhl;
        const int16_t type = v.VhlType;
        const bool main = v.HasTurret != 0, sec = v.HasSecTurret != 0;
        scrlArmorLoc[kLocTurret].SetVisible(main);
        TArmorLoc[kLocTurret].SetVisible(main);
        CBoxHasSecondTurret.SetVisible(main && (type == kVhlSuperHeavy || (type < kVhlVTOL && v.TechLevel == 3)));
        // On a V.T.O.L. location 5 is the rotor.
        const bool five = sec || type == kVhlVTOL;
        scrlArmorLoc[kLocSecondTurret].SetVisible(five);
        TArmorLoc[kLocSecondTurret].SetVisible(five);
        const bool corners = type == kVhlSuperHeavy;
        for (int16_t loc : {kLocLeft, kLocRight}) {
            scrlArmorLoc[loc].SetVisible(!corners);
            TArmorLoc[loc].SetVisible(!corners);
        }
        for (int16_t loc : {kLocFrontRight, kLocFrontLeft, kLocRearRight, kLocRearLeft}) {
            scrlArmorLoc[loc].SetVisible(corners);
            TArmorLoc[loc].SetVisible(corners);
        }
        for (int16_t loc : {6, 7}) {
            scrlArmorLoc[loc].SetVisible(false);
            TArmorLoc[loc].SetVisible(false);
        }
        int16_t pic;
        switch (type) {
            case kVhlTracked: pic = sec ? 9 : main ? 0 : 1; break;
            case kVhlWheeled: pic = sec ? 10 : main ? 2 : 3; break;
            case kVhlHover: pic = sec ? 11 : main ? 4 : 5; break;
            case kVhlVTOL: pic = main ? 12 : 6; break;
            case kVhlSuperHeavy: pic = 13; break;
            default: pic = main ? 7 : 8; break;
        }
        wArmorPicture = pic;
        zMoveArmorControls(type);
        // The binding sizes the box to the picture and places each
        // location's inputs at the spots zMoveArmorControls chose.
        picVHLArm.SetPicture(std::to_string(pic));
    });
}

// ---- Equipment --------------------------------------------------------------

void frmVhl::zLoadValidWeapons() {
    const int32_t rows = static_cast<int32_t>(gWeapons.size());
    zMainProgress(rows, "Loading valid weapons...");
    zTrapVoid("zLoadValidWeapons", [&] {
        wValid = zValidVehicleWeapons(vhl->TechBase, vhl->TechLevel, vhl->VhlType);
        zMainProgressSet(rows);
    });
    zMainProgressEnd();
}

void frmVhl::zRefreshWeaponsAvail() {
    zTrapVoid("zRefreshWeaponsAvail", [&] {
        BatchUpdate batch(tvAvailEq);
        tvAvailEq.Clear();
        PButExpandAvail.SetEnabled(false);
        PButCollapseAvail.SetEnabled(false);
        for (int16_t c = 0; c < 6; ++c) {
            if (CBoxShowType[c].Value() != 1) continue;
            tvAvailEq.Add("", "node" + std::to_string(c), kClassNames[c]);
            // A placeholder: the group is filled when it is opened.
            if (!wValid[c].empty()) tvAvailEq.Add("node" + std::to_string(c), "BLANK" + std::to_string(c), "");
        }
        PButExpandAvail.SetEnabled(true);
        PButCollapseAvail.SetEnabled(true);
    });
}

void frmVhl::tvAvailEq_Expand(const std::string& key) {
    zTrapVoid("tvAvailEq_Expand", [&] {
        if (!StartsWith(key, "node")) return;
        const auto kids = tvAvailEq.Children(key);
        // A group without rows has nothing to show and stays closed.
        if (kids.empty()) {
            tvAvailEq.SetExpanded(key, false);
            return;
        }
        if (kids.size() != 1 || !StartsWith(kids[0]->Key, "BLANK")) return;
        const int c = std::stoi(key.substr(4));
        if (c < 0 || c > 5) return;
        zPointerWait();
        PButExpandAvail.SetEnabled(false);
        PButCollapseAvail.SetEnabled(false);
        {
            BatchUpdate batch(tvAvailEq);
            tvAvailEq.Remove(kids[0]->Key);
            for (int16_t row : wValid[c])
                tvAvailEq.Add(key, zRowKey(row), zWeaponRow(row).Name);
        }
        PButExpandAvail.SetEnabled(true);
        PButCollapseAvail.SetEnabled(true);
        zPointerNormal();
    });
}

void frmVhl::CBoxShowType_Click(int16_t index) {
    zTrapVoid("CBoxShowType_Click", [&] {
        if (CBoxShowType[index].Value() != 1) {
            if (tvAvailEq.Find("node" + std::to_string(index))) tvAvailEq.Remove("node" + std::to_string(index));
            return;
        }
        for (CheckBox& b : CBoxShowType) b.SetEnabled(false);
        zRefreshWeaponsAvail();
        for (CheckBox& b : CBoxShowType) b.SetEnabled(true);
    });
}

void frmVhl::zAddWeapon() {
    if (wLoading != 0) return;
    zTrapVoid("zAddWeapon", [&] {
        int16_t row = 0, num = 0;
        if (!zParseItemKey(tvAvailEq.SelectedKey(), row, num)) return;
        if (vhl->AddWeapon(row) != 0) zUpdateWeapons();
    });
}

void frmVhl::zRemoveWeapon() {
    if (wLoading != 0) return;
    zTrapVoid("zRemoveWeapon", [&] {
        int16_t row = 0, num = 0;
        if (!zParseItemKey(tvSelectedEq.SelectedKey(), row, num) || num == 0) return;
        vhl->RemoveWeapon(row, num);
        zUpdateWeapons();
    });
}

void frmVhl::zClearWeapons() {
    if (wLoading != 0) return;
    zTrapVoid("zClearWeapons", [&] {
        vhl->ClearWeapons();
        zUpdateWeapons();
    });
}

void frmVhl::zUpdateWeapons() {
    zTrapVoid("zUpdateWeapons", [&] {
        zRebuildKeepingState(tvSelectedEq, [&] { vhl->UpdateSelectedWeapons(tvSelectedEq); });
        zUpdateTonnageLists();
        if (gExpandSel == 1) zExpandSelected();
    });
}

void frmVhl::zExpandSelected() {
    std::vector<std::string> keys;
    for (const TreeView::Node* n : tvSelectedEq.Children("")) keys.push_back(n->Key);
    for (const std::string& k : keys) tvSelectedEq.SetExpanded(k, true);
}

void frmVhl::PButAllocate_Click() {
    if (tvSelectedEq.Count() == 0) {
        zMsgBox("You have no equipment to allocated.", MsgButtons::OK, MsgIcon::Information, "No equipment");
        return;
    }
    zRunAllocation(*this);
}

void frmVhl::zShowWeaponData(const TreeView& tree) {
    int16_t row = 0, num = 0;
    if (!zParseItemKey(tree.SelectedKey(), row, num)) return;
    frmWData w;
    if (w.zGetWpnData(row)) zShowModal(w, this);
}

// ---- Saving -------------------------------------------------------------------

int16_t frmVhl::zValidateSave() {
    return zTrap<int16_t>("zValidateSave", kFalse, [&]() -> int16_t {
        Vehicle& v = *vhl;
        std::string name = TName.Text();
        const size_t a = name.find_first_not_of(' '), b = name.find_last_not_of(' ');
        name = a == std::string::npos ? std::string() : name.substr(a, b - a + 1);
        if (name.empty()) {
            zMsgBox("You must supply a name for this vehicle!", MsgButtons::OK, MsgIcon::Critical, "No name");
            return kFalse;
        }
        v.SetName(name);
        if (v.TotalTonnage > v.Tonnage) {
            const double excess = v.TotalTonnage - v.Tonnage;
            // Strictly less than a ton over: the gift, the one exemption.
            if (v.TotalTonnage - 1 < v.Tonnage) {
                if (gGiftMessage != 1)
                    zMsgBox("This vehicle is overweight by " + Num(excess) +
                                " but falls under the one ton 'Brasswick Works Gift Tonnage'. The vehicle is a valid "
                                "design. The gift tonnage exists for poorly templated stock vehicles made by people "
                                "who can't add.",
                            MsgButtons::OK, MsgIcon::Information, "Within 'Gift' Range");
            } else {
                zMsgBox("This vehicle is overweight by " + Num(excess) + " tons.", MsgButtons::OK,
                        MsgIcon::Information, "Overweight");
                return kFalse;
            }
        }
        if (v.ArmorAllocated < v.ArmorPoints) {
            zMsgBox("You have not allocated all of your armor. Please do so before saving.", MsgButtons::OK,
                    MsgIcon::Information, "Armor remaining");
            return kFalse;
        }
        if (v.WcUnallocatedWeapons() > 0) {
            zMsgBox("There are weapons and equipment that are not yet allocated. Please allocate these before saving.",
                    MsgButtons::OK, MsgIcon::Information, "Unallocated equipment");
            return kFalse;
        }
        return kTrue;
    });
}

void frmVhl::PButSave_Click() {
    zTrapVoid("PButSave_Click", [&] {
        if (zSaveEditor(*this, [this] { return zValidateSave() != 0; })) zSetSaved(kTrue);
    });
}

void frmVhl::PButPrint_Click() {
    if (wLoading) return;
    if (!wSaved) {
        zMsgBox("This vehicle is not yet saved. You must save it before printing.", MsgButtons::OK,
                MsgIcon::Information, "Save vehicle first");
        return;
    }
    if (vhl && vhl->VhlType == kVhlSuperHeavy) {
        zMsgBox("Printing is not implemented for Super Heavy Tanks yet.", MsgButtons::OK, MsgIcon::Information,
                "Printing not available");
        return;
    }
    // The print options and the sheets sit above the designs; the main
    // window makes them.
    zOpenForm("frmPVhl", *this);
}

}  // namespace bw
