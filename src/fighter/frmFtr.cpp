#include "fighter/frmFtr.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/Config.h"
#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "core/Settings.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "fighter/frmFEQ.h"
#include "refdata/Weapons.h"
#include "refdata/frmWData.h"

namespace bw {

namespace {

constexpr int32_t kBlack = 0x000000;
constexpr int32_t kRed = 0x0000FF;
constexpr int32_t kGreen = 0x00FF00;

std::string Num(double v) { return zSingleText(v); }
std::string Num(int32_t v) { return std::to_string(v); }

double TextValue(const std::string& t) { return zIsNumeric(t) ? std::strtod(t.c_str(), nullptr) : 0.0; }

const char* const kGroupNames[5] = {"Energy Weapons", "Ballistic Weapons", "Missile Weapons", "Equipment",
                                    "Ammunition"};
const char* const kConfigSuffix[6] = {"", " - P", " - A", " - B", " - C", " - D"};

bool IsOmni(const Fighter& f) { return f.FighterType == kFtrOmni; }
bool IsConventional(const Fighter& f) { return f.FighterType == kFtrConventional; }

std::string Trimmed(const std::string& s) {
    const size_t a = s.find_first_not_of(' '), b = s.find_last_not_of(' ');
    return a == std::string::npos ? std::string() : s.substr(a, b - a + 1);
}

// A figure from a file put on an input: held inside the input's range.
void Put(ScrollBar& s, int32_t value) {
    s.SetValue(static_cast<int16_t>(std::clamp<int32_t>(value, s.Min(), s.Max())));
}

}  // namespace

frmFtr::frmFtr() : FormModel("frmFtr") {
    for (int16_t i = 0; i < 6; ++i) {
        scrlArmorLoc[i].Name = "scrlArmorLoc(" + std::to_string(i) + ")";
        TArmorLoc[i].Name = "TArmorLoc(" + std::to_string(i) + ")";
        TArmorLoc[i].SetText("0");
    }
    const char* shows[5] = {"Energy", "Ballistic", "Missile", "Equipment", "Ammunition"};
    for (int16_t i = 0; i < 5; ++i) {
        CBoxShowEQ[i].Name = "CBoxShowEQ(" + std::to_string(i) + ")";
        CBoxShowEQ[i].SetCaption(shows[i]);
        CBoxShowEQ[i].SetValue(1);
    }
    const char* eq[3] = {"&Add >>", "<< &Remove", "Cl&ear Selected"};
    for (int16_t i = 0; i < 3; ++i) {
        PButEquipment[i].Name = "PButEquipment(" + std::to_string(i) + ")";
        PButEquipment[i].SetCaption(eq[i]);
    }
    const std::pair<Control*, const char*> captions[] = {
        {&PButAllocate, "Allocate &Items"},
        {&PButExpandAvail, "Expand All"},
        {&PButExpandSel, "Expand All"},
        {&PButCollapseAvail, "Collapse All"},
        {&PButCollapseSel, "Collapse All"},
        {&PButCost, "Cost/Stats"},
        {&PButPrint, "&Print"},
        {&PButSave, "&Save"},
        {&PButClose, "&Close"},
        {&CBoxVTOLJets, "V.T.O.L. Jets"},
        {&CBoxTC, "Targeting Computer"},
        {&CBoxDHS, "Double Heat Sinks"},
        {&CBoxBaseOmniLock, "Base Omni Configuration Locked"},
        {&LOmniConfigDesc, "Configuration:"},
        {&LArmorTypeDesc, "Armor Type:"},
        {&LCockpitDesc, "Cockpit"},
        {&LPowerAmpDesc, "Power Amplifiers"},
        {&LWeaponHeatDesc, "Weapon Heat"},
        {&LActiveArmorLoc, "<none>"},
    };
    for (const auto& [control, caption] : captions) control->SetCaption(caption);
    // Limits before the handlers exist, so that setting them runs nothing.
    // A new design stands at 5 tons and thrust 1, which the inputs show
    // without a change event: the editor corrects the rating at the first
    // change the user makes.
    scrlTonnage.SmallChange = 5;
    scrlTonnage.LargeChange = 5;
    scrlTonnage.SetMax(100);
    scrlTonnage.SetMin(5);
    TTonnage.SetText("5");
    scrlThrust.SetMax(45);
    scrlThrust.SetMin(1);
    TThrust.SetText("1");
    scrlFuel.SetMax(30);
    scrlHS.SetMax(50);
    scrlHS.SetMin(10);
    LHS.SetCaption("10");
    LFuelTonnage.SetCaption("0");
    scrlArmorTonnage.SetMax(100);  // half tons: 50 tons of armor
    for (ScrollBar& s : scrlArmorLoc) s.SetMax(0);
    Timer1.Interval = 500;
    Timer1.SetEnabled(false);
    // What only some kinds, bases and levels show.
    for (Control* c : std::initializer_list<Control*>{
             &CBoxVTOLJets, &LVTOLJetTonnage, &LPowerAmpDesc, &LPowerAmpTonnage, &CBoxDHS, &LArmorTypeDesc,
             &cmboArmorType, &CBoxTC, &LTCTonnage, &cmboTCLocation, &CBoxBaseOmniLock, &LOmniConfigDesc,
             &cmboOmniConfig})
        c->SetVisible(false);
    // The configurations open only with the lock.
    cmboOmniConfig.SetEnabled(false);
    LOmniConfigDesc.SetEnabled(false);
    zWireControls();
}

frmFtr::~frmFtr() {
    if (FTR && FTR->frm == this) FTR->frm = nullptr;
}

void frmFtr::zWireControls() {
    scrlTonnage.Change = [this] { scrlTonnage_Change(); };
    TTonnage.LostFocus = [this] { TTonnage_LostFocus(); };
    scrlThrust.Change = [this] { scrlThrust_Change(); };
    TThrust.LostFocus = [this] { TThrust_LostFocus(); };
    cmboEngType.Click = [this] { cmboEngType_Click(); };
    scrlFuel.Change = [this] { scrlFuel_Change(); };
    scrlHS.Change = [this] { scrlHS_Change(); };
    CBoxDHS.Click = [this] { CBoxDHS_Click(); };
    CBoxVTOLJets.Click = [this] { CBoxVTOLJets_Click(); };
    CBoxTC.Click = [this] { CBoxTC_Click(); };
    cmboTCLocation.Click = [this] { cmboTCLocation_Click(); };
    TName.Change = [this] { TName_Change(); };
    scrlArmorTonnage.Change = [this] { scrlArmorTonnage_Change(); };
    cmboArmorType.Click = [this] { cmboArmorType_Click(); };
    for (int16_t i = 0; i < 6; ++i) {
        scrlArmorLoc[i].Change = [this, i] { scrlArmorLoc_Change(i); };
        TArmorLoc[i].LostFocus = [this, i] { TArmorLoc_LostFocus(i); };
    }
    for (int16_t i = 0; i < 5; ++i) CBoxShowEQ[i].Click = [this, i] { CBoxShowEQ_Click(i); };
    CBoxBaseOmniLock.Click = [this] { CBoxBaseOmniLock_Click(); };
    cmboOmniConfig.Click = [this] { cmboOmniConfig_Click(); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
    PButEquipment[0].Click = [this] { zAddWeapon(); };
    PButEquipment[1].Click = [this] { zRemoveWeapon(); };
    PButEquipment[2].Click = [this] { zClearWeapons(); };
    PButAllocate.Click = [this] { PButAllocate_Click(); };
    PButSave.Click = [this] { PButSave_Click(); };
    PButClose.Click = [this] { Unload(); };
    PButPrint.Click = [this] { PButPrint_Click(); };
    PButCost.Click = [this] { PButCost_Click(); };
    tvAvailEQ.DblClick = [this] { zShowWeaponData(tvAvailEQ); };
    tvSelEQ.DblClick = [this] { zShowWeaponData(tvSelEQ); };
    PButExpandAvail.Click = [this] { zExpandAll(tvAvailEQ, true); };
    PButCollapseAvail.Click = [this] { zExpandAll(tvAvailEQ, false); };
    PButExpandSel.Click = [this] { zExpandAll(tvSelEQ, true); };
    PButCollapseSel.Click = [this] { zExpandAll(tvSelEQ, false); };
}

// ---- Window life ----------------------------------------------------------

std::unique_ptr<frmFtr> frmFtr::zNewDesign(const Fighter& made) {
    auto editor = std::make_unique<frmFtr>();
    editor->FTR = std::make_shared<Fighter>(made);
    editor->FTR->frm = editor.get();
    editor->Load();
    editor->SSTab1_Click(0);
    editor->zSetupBasics();
    return editor;
}

std::unique_ptr<frmFtr> frmFtr::zOpenDesign(const Fighter& stored) {
    // The editor works on its own copy: the table keeps its object until a
    // save hands the copy over.
    auto editor = std::make_unique<frmFtr>();
    frmFtr& e = *editor;
    e.FTR = std::make_shared<Fighter>(stored);
    e.FTR->frm = editor.get();
    e.Load();
    e.SSTab1_Click(0);
    e.wLoading = kTrue;
    e.zSetupBasics();
    e.zShowStoredDesign();
    e.wLoading = kFalse;
    // "Primary" is entered by this click, locked or not.
    if (IsOmni(*e.FTR)) e.cmboOmniConfig.SetListIndex(1);
    e.zSetSaved(kTrue);
    return editor;
}

void frmFtr::Form_Load() {
    std::vector<TextBox*> boxes{&TName, &TTonnage, &TThrust};
    for (TextBox& t : TArmorLoc) boxes.push_back(&t);
    zWireFocusColours(boxes);
    // The active location is named while its box holds the focus.
    for (int16_t i = 0; i < 6; ++i) {
        auto colours = TArmorLoc[i].GotFocus;
        TArmorLoc[i].GotFocus = [this, i, colours] {
            if (colours) colours();
            TArmorLoc_GotFocus(i);
        };
    }
}

void frmFtr::Form_Unload() {
    Timer1.SetEnabled(false);
    if (FTR && FTR->frm == this) FTR->frm = nullptr;
}

void frmFtr::Form_QueryUnload(bool& cancel) {
    cancel = false;
    if (wSaved != 0) return;
    zAskSaveOnClose(*this, "fighter", [this] { return zValidateSave() != 0; }, [this] { zSetSaved(kTrue); }, cancel);
}

void frmFtr::SSTab1_Click(int16_t tab) {
    SSTab1Tab = tab;
    LActiveArmorLoc.SetCaption("<none>");
}

void frmFtr::Timer1_Timer() { LTonnageFree.SetForeColor(LTonnageFree.ForeColor() == kRed ? kGreen : kRed); }

void frmFtr::zQuietIndex(ComboBox& c, int32_t i) {
    const int16_t was = wLoading;
    wLoading = kTrue;
    c.SetListIndex(i);
    wLoading = was;
}

// ---- Set-up and refresh ---------------------------------------------------

void frmFtr::zSetupBasics() {
    zTrapVoid("zSetupBasics", [&] {
        Fighter& f = *FTR;
        cmboTCLocation.Clear();
        for (const char* s : {"Nose", "Left Wing", "Right Wing", "Rear"}) cmboTCLocation.AddItem(s);
        cmboTCLocation.SetListIndex(3);
        cmboOmniConfig.Clear();
        for (const char* s : {"Base", "Primary", "Alpha", "Beta", "Charlie", "Delta"}) cmboOmniConfig.AddItem(s);
        // The list shows "Base" without entering it: the design is there.
        zQuietIndex(cmboOmniConfig, 0);
        cmboArmorType.Clear();
        cmboArmorType.AddItem("Normal");
        cmboEngType.Clear();

        if (IsConventional(f)) {
            cmboEngType.AddItem("I.C.E.");
            CBoxVTOLJets.SetVisible(true);
            LVTOLJetTonnage.SetVisible(true);
            scrlHS.SetVisible(false);
            LCockpitDesc.SetCaption("Controls");
            LPowerAmpDesc.SetVisible(true);
            LPowerAmpTonnage.SetVisible(true);
            LWeaponHeatDesc.SetCaption("Energy Weapon Heat");
            scrlTonnage.SetMax(50);
        } else {
            // The first ten points of the cockpit are free.
            scrlArmorLoc[4].SetMax(std::max<int16_t>(scrlArmorLoc[4].Max(), 10));
            scrlArmorLoc[4].SetMin(10);
            scrlArmorLoc[4].SetValue(10);
            TArmorLoc[4].SetText("10");
            if (wLoading == 0) f.HeatSinks = 10;
        }
        cmboEngType.AddItem("Fusion");
        if (f.TechLevel > 1) {
            cmboEngType.AddItem("Fusion XL");
            CBoxDHS.SetVisible(true);
            LArmorTypeDesc.SetVisible(true);
            cmboArmorType.SetVisible(true);
            cmboArmorType.AddItem("Ferro-Aluminum");
        }
        cmboArmorType.SetListIndex(0);
        if (f.TechBase == kBaseInnerSphere) {
            LTechBase.SetCaption("Inner Sphere");
        } else {
            CBoxTC.SetVisible(true);
            LTCTonnage.SetVisible(true);
            LTechBase.SetCaption("Clan");
            if (IsOmni(f)) {
                CBoxBaseOmniLock.SetVisible(true);
                LOmniConfigDesc.SetVisible(true);
                cmboOmniConfig.SetVisible(true);
            }
        }
        cmboEngType.SetListIndex(0);
        LTechLevel.SetCaption(std::to_string(f.TechLevel));
        LFighterType.SetCaption(zFighterTypeName(f.FighterType));

        scrlThrust.SetValue(1);
        if (wLoading == 0) {
            f.SetEngineType(0);
            if (!IsConventional(f)) f.SetHeatSinks(10);
        }
        LOThrust.SetCaption(std::to_string(f.FlankSpeed));
        zUpdateArmor();
        zRefreshWeaponsAvail();
        zUpdateTonnageLists();
    });
}

void frmFtr::zShowStoredDesign() {
    const int16_t was = wLoading;
    wLoading = kTrue;
    zTrapVoid("zShowStoredDesign", [&] {
        const Fighter& f = *FTR;
        auto pick = [](ComboBox& c, int32_t i) {
            if (i >= 0 && i < c.ListCount()) c.SetListIndex(i);
        };
        TName.SetText(f.Name);
        Put(scrlTonnage, f.Tonnage);
        TTonnage.SetText(std::to_string(f.Tonnage));
        Put(scrlThrust, f.CruiseSpeed);
        TThrust.SetText(std::to_string(f.CruiseSpeed));
        LOThrust.SetCaption(std::to_string(f.FlankSpeed));
        pick(cmboEngType, IsConventional(f) ? f.EngineType : std::max<int16_t>(f.EngineType - 1, 0));
        Put(scrlFuel, f.FuelTonnage);
        LFuelTonnage.SetCaption(std::to_string(f.FuelTonnage));
        if (!IsConventional(f)) Put(scrlHS, f.HeatSinks);
        LHS.SetCaption(std::to_string(f.HeatSinks));
        CBoxDHS.SetValue(f.HeatSinkType != 0 ? 1 : 0);
        CBoxVTOLJets.SetValue(f.HasVTOLJets != 0 ? 1 : 0);
        // The location first: the box's click hands it to the design.
        pick(cmboTCLocation, f.TCLocation);
        cmboTCLocation.SetVisible(f.HasTC != 0);
        CBoxTC.SetValue(f.HasTC != 0 ? 1 : 0);
        pick(cmboArmorType, f.ArmorType);
        Put(scrlArmorTonnage, f.ArmorTonnage >= 0 && f.ArmorTonnage <= 50 ? zCLng(f.ArmorTonnage * 2) : 0);
        const int16_t stored[6] = {f.FrontArmor, f.LeftArmor, f.RightArmor, f.FuselageArmor, f.CPArmor, f.EngineArmor};
        for (int16_t i = 0; i < 6; ++i) {
            ScrollBar& s = scrlArmorLoc[i];
            const int16_t value = std::max(stored[i], s.Min());
            if (s.Max() < value) s.SetMax(value);
            s.SetValue(value);
            TArmorLoc[i].SetText(std::to_string(value));
        }
        zUpdateWeapons();
        zUpdateArmor();
        zUpdateTonnageLists();
        if (f.OmniBaseLocked != 0) {
            CBoxBaseOmniLock.SetValue(1);
            FTR->DisableOmniControls();
        }
    });
    wLoading = was;
}

void frmFtr::zUpdateTonnageLists() {
    zTrapVoid("zUpdateTonnageLists", [&] {
        Fighter& f = *FTR;
        if (wLoading == 0) f.CalcTotalTonnage();
        LOThrust.SetCaption(std::to_string(f.FlankSpeed));
        LSIRating.SetCaption(Num(int32_t{f.SIRating}));
        LEngineTonnage.SetCaption(Num(f.EngineTonnage));
        LCockpitTonnage.SetCaption(Num(f.CockpitTonnage));
        LPowerAmpTonnage.SetCaption(Num(f.PowerAmpTonnage));
        LVTOLJetTonnage.SetCaption(Num(f.VTOLJetTonnage));
        LTCTonnage.SetCaption(Num(f.TCTonnage));
        LFuelTonnage.SetCaption(Num(int32_t{f.FuelTonnage}));
        LHS.SetCaption(Num(int32_t{f.HeatSinks}));
        LHSTonnage.SetCaption(Num(int32_t{f.HeatSinkTonnage}));
        LWeaponHeat.SetCaption(Num(int32_t{IsConventional(f) ? f.EnergyHeat : f.WeaponHeat}));
        LWeaponTonnage.SetCaption(Num(f.WeaponTonnage));
        LTonnageTotal.SetCaption(Num(f.TotalTonnage));
        LTonnageFree.SetCaption(Num(f.FreeTonnage));
        // Red and steady less than a ton over; flashing beyond.
        Timer1.SetEnabled(false);
        if (f.FreeTonnage >= 0) {
            LTonnageFree.SetForeColor(kBlack);
        } else {
            LTonnageFree.SetForeColor(kRed);
            if (f.FreeTonnage <= -1) Timer1.SetEnabled(true);
        }
        zSetSaved(kFalse);
    });
}

void frmFtr::zSetSaved(int16_t v) {
    std::string caption = FTR ? FTR->Name : std::string();
    if (FTR && IsOmni(*FTR) && FTR->OmniCurrentConfig >= 1 && FTR->OmniCurrentConfig <= 5)
        caption += kConfigSuffix[FTR->OmniCurrentConfig];
    wSaved = v != 0 ? kTrue : kFalse;
    Window.SetCaption(v != 0 ? caption : caption + " *");
}

// ---- Drive ----------------------------------------------------------------

void frmFtr::zCorrectRating() {
    if (FTR->EngineRating < 5) scrlThrust.StepUp();
    else if (FTR->EngineRating >= 401) scrlThrust.StepDown();
}

void frmFtr::zCheckBeep(TextBox& box, int16_t lower, int16_t upper) { zCheckTextBox(box, lower, upper, true); }

void frmFtr::scrlTonnage_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlTonnage_Change", [&] {
        TTonnage.SetText(std::to_string(scrlTonnage.Value()));
        FTR->SetTonnage(scrlTonnage.Value());
        zCorrectRating();
        zUpdateTonnageLists();
    });
}

void frmFtr::TTonnage_LostFocus() {
    if (wLoading != 0) return;
    zTrapVoid("TTonnage_LostFocus", [&] {
        zCheckBeep(TTonnage, scrlTonnage.Min(), scrlTonnage.Max());
        // Not rounded to the nearest step: a stray figure starts again at 5.
        if (zCInt(TextValue(TTonnage.Text())) % 5 != 0) {
            gUi().Beep();
            TTonnage.SetText("5");
        }
        scrlTonnage.SetValue(zCInt(TextValue(TTonnage.Text())));
        TTonnage.SetText(std::to_string(scrlTonnage.Value()));
    });
}

void frmFtr::scrlThrust_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlThrust_Change", [&] {
        TThrust.SetText(std::to_string(scrlThrust.Value()));
        FTR->SetCruiseSpeed(scrlThrust.Value());
        FTR->CalcEngineRating();
        zCorrectRating();
        LOThrust.SetCaption(std::to_string(FTR->FlankSpeed));
        zUpdateTonnageLists();
    });
}

void frmFtr::TThrust_LostFocus() {
    if (wLoading != 0) return;
    zTrapVoid("TThrust_LostFocus", [&] {
        // The text stops at 30 where the up-down reaches 45.
        const std::string& t = TThrust.Text();
        if (!zIsNumeric(t) || TextValue(t) < 1) {
            gUi().Beep();
            TThrust.SetText("1");
        } else if (TextValue(t) > 30) {
            gUi().Beep();
            TThrust.SetText("30");
        }
        scrlThrust.SetValue(zCInt(TextValue(TThrust.Text())));
        TThrust.SetText(std::to_string(scrlThrust.Value()));
    });
}

void frmFtr::cmboEngType_Click() {
    if (wLoading != 0) return;
    zTrapVoid("cmboEngType_Click", [&] {
        const int32_t pos = cmboEngType.ListIndex();
        if (pos < 0) return;
        FTR->SetEngineType(static_cast<int16_t>(IsConventional(*FTR) ? pos : pos + 1));
        FTR->CalcEngineTonnage();
        zUpdateTonnageLists();
    });
}

void frmFtr::scrlFuel_Change() {
    LFuelTonnage.SetCaption(std::to_string(scrlFuel.Value()));
    if (wLoading != 0) return;
    zTrapVoid("scrlFuel_Change", [&] {
        FTR->SetFuelTonnage(scrlFuel.Value());
        zUpdateTonnageLists();
    });
}

void frmFtr::scrlHS_Change() {
    LHS.SetCaption(std::to_string(scrlHS.Value()));
    if (wLoading != 0) return;
    zTrapVoid("scrlHS_Change", [&] {
        FTR->SetHeatSinks(scrlHS.Value());
        zUpdateTonnageLists();
    });
}

void frmFtr::CBoxDHS_Click() {
    if (wLoading != 0) return;
    FTR->SetHeatSinkType(CBoxDHS.Value());
}

void frmFtr::CBoxVTOLJets_Click() {
    if (wLoading != 0) return;
    zTrapVoid("CBoxVTOLJets_Click", [&] {
        FTR->SetVTOLJets(CBoxVTOLJets.Value());
        zUpdateTonnageLists();
    });
}

void frmFtr::CBoxTC_Click() {
    // Runs while loading too: a configuration switch sets the box and
    // relies on this command to follow.
    zTrapVoid("CBoxTC_Click", [&] {
        FTR->SetTCStatus(CBoxTC.Value());
        if (CBoxTC.Value() == 1) {
            cmboTCLocation.SetVisible(true);
            FTR->SetTCLocation(static_cast<int16_t>(cmboTCLocation.ListIndex()), 0);
        } else {
            cmboTCLocation.SetVisible(false);
        }
        zUpdateTonnageLists();
    });
}

void frmFtr::cmboTCLocation_Click() {
    if (wLoading != 0) return;
    zTrapVoid("cmboTCLocation_Click", [&] {
        if (cmboTCLocation.ListIndex() < 0) return;
        FTR->SetTCLocation(static_cast<int16_t>(cmboTCLocation.ListIndex()), 0);
    });
}

void frmFtr::TName_Change() {
    if (wLoading != 0) return;
    FTR->SetName(TName.Text());
    zSetSaved(kFalse);
}

// ---- Armor ------------------------------------------------------------------

void frmFtr::zUpdateArmor() {
    zTrapVoid("zUpdateArmor", [&] {
        Fighter& f = *FTR;
        const int32_t rest = int32_t{f.ArmorPoints} - f.ArmorAllocated;
        LArmorTonnage.SetCaption(Num(f.ArmorTonnage));
        LArmorPoints.SetCaption(std::to_string(f.ArmorPoints));
        LArmorAllocated.SetCaption(std::to_string(f.ArmorAllocated));
        LArmorRemaining.SetCaption(std::to_string(rest));
        // The wings are paid for in pairs.
        const int32_t half = static_cast<int32_t>(std::nearbyint(rest / 2.0));
        for (int16_t i : {0, 3, 5, 4, 2, 1}) {
            ScrollBar& s = scrlArmorLoc[i];
            const int32_t upper = s.Value() + (i == 1 || i == 2 ? half : rest);
            s.SetMax(static_cast<int16_t>(std::clamp<int32_t>(upper, s.Min(), 32767)));
        }
        if (!IsConventional(f)) LArmorAllocated.SetCaption("10 + " + std::to_string(FTR->ArmorAllocated));
    });
}

void frmFtr::scrlArmorTonnage_Change() {
    if (wLoading != 0) return;
    zTrapVoid("scrlArmorTonnage_Change", [&] {
        FTR->SetArmorTonnage(scrlArmorTonnage.Value() / 2.0);
        zUpdateArmor();
        zUpdateTonnageLists();
    });
}

void frmFtr::cmboArmorType_Click() {
    if (wLoading != 0) return;
    zTrapVoid("cmboArmorType_Click", [&] {
        if (cmboArmorType.ListIndex() < 0) return;
        FTR->SetArmorType(static_cast<int16_t>(cmboArmorType.ListIndex()));
        zUpdateArmor();
        zUpdateTonnageLists();
    });
}

void frmFtr::scrlArmorLoc_Change(int16_t i) {
    if (wLoading != 0) return;
    zTrapVoid("scrlArmorLoc_Change", [&] {
        const int16_t value = scrlArmorLoc[i].Value();
        TArmorLoc[i].SetText(std::to_string(value));
        FTR->SetArmorLoc(i, value);
        if ((i == 1 || i == 2) && wMirroring == 0) {
            const int16_t other = i == 1 ? 2 : 1;
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

void frmFtr::TArmorLoc_GotFocus(int16_t i) { LActiveArmorLoc.SetCaption(zFighterLocationName(i)); }

void frmFtr::TArmorLoc_LostFocus(int16_t i) {
    if (wLoading != 0) return;
    zTrapVoid("TArmorLoc_LostFocus", [&] {
        ScrollBar& s = scrlArmorLoc[i];
        zCheckBeep(TArmorLoc[i], s.Min(), s.Max());
        s.SetValue(zCInt(TextValue(TArmorLoc[i].Text())));
        TArmorLoc[i].SetText(std::to_string(s.Value()));
    });
}

// ---- Equipment --------------------------------------------------------------

void frmFtr::zRefreshWeaponsAvail() {
    zTrapVoid("zRefreshWeaponsAvail", [&] {
        const Fighter& f = *FTR;
        BatchUpdate batch(tvAvailEQ);
        tvAvailEQ.Clear();
        for (int16_t c = 0; c < 5; ++c)
            if (CBoxShowEQ[c].Value() == 1) tvAvailEQ.Add("", "node" + std::to_string(c), kGroupNames[c]);
        const size_t n = std::min<size_t>(gWeapons.size(), 32768);
        for (size_t i = 0; i < n; ++i) {
            const WeaponRec& w = gWeapons[i];
            if (w.Base != f.TechBase || w.Level > f.TechLevel) continue;
            if (w.UseClass != 0 && w.UseClass != 3) continue;
            if (w.Type < 0 || w.Type > 4 || CBoxShowEQ[w.Type].Value() != 1) continue;
            tvAvailEQ.Add("node" + std::to_string(w.Type), zRowKey(static_cast<int16_t>(i)), w.Name);
        }
    });
}

void frmFtr::CBoxShowEQ_Click(int16_t i) {
    zTrapVoid("CBoxShowEQ_Click", [&] {
        (void)i;
        for (CheckBox& b : CBoxShowEQ) b.SetEnabled(false);
        zMainProgress(1, "Refreshing weapon list...");
        zRefreshWeaponsAvail();
        zMainProgressSet(1);
        zMainProgressEnd();
        for (CheckBox& b : CBoxShowEQ) b.SetEnabled(true);
    });
}

void frmFtr::zAddWeapon() {
    if (wLoading != 0) return;
    zTrapVoid("zAddWeapon", [&] {
        const std::string& key = tvAvailEQ.SelectedKey();
        if (key.empty()) return;
        int16_t row = 0, num = 0;
        if (!zParseItemKey(key, row, num)) {
            gUi().Beep();
            return;
        }
        FTR->AddWeapon(row);
        zUpdateWeapons();
    });
}

void frmFtr::zRemoveWeapon() {
    if (wLoading != 0) return;
    zTrapVoid("zRemoveWeapon", [&] {
        int16_t row = 0, num = 0;
        if (!zParseItemKey(tvSelEQ.SelectedKey(), row, num) || num == 0) return;
        // Outside the base, what the base brought stays.
        if (IsOmni(*FTR) && FTR->OmniCurrentConfig != 0 && FTR->CheckValidRemove(row, num) == 0) {
            zMsgBox("You may not remove this weapon since it is part of the base omni configuration.",
                    MsgButtons::OK, MsgIcon::Information, "Unable to remove weapon");
            return;
        }
        FTR->RemoveWeapon(row, num);
        zUpdateWeapons();
    });
}

void frmFtr::zClearWeapons() {
    if (wLoading != 0) return;
    zTrapVoid("zClearWeapons", [&] {
        FTR->ClearWeapons();
        zUpdateWeapons();
    });
}

void frmFtr::zUpdateWeapons() {
    zTrapVoid("zUpdateWeapons", [&] {
        FTR->UpdateSelectedWeapons();
        zUpdateTonnageLists();
        if (gExpandSel == 1) zExpandSelected();
    });
}

void frmFtr::zExpandSelected() {
    std::vector<std::string> keys;
    for (const TreeView::Node* n : tvSelEQ.Children("")) keys.push_back(n->Key);
    for (const std::string& k : keys) tvSelEQ.SetExpanded(k, true);
}

void frmFtr::zShowWeaponData(const TreeView& tree) {
    int16_t row = 0, num = 0;
    if (!zParseItemKey(tree.SelectedKey(), row, num)) return;
    frmWData w;
    if (w.zGetWpnData(row)) zShowModal(w, this);
}

void frmFtr::PButAllocate_Click() {
    zTrapVoid("PButAllocate_Click", [&] {
        if (tvSelEQ.Count() == 0) {
            zMsgBox("You have no equipment to allocated.", MsgButtons::OK, MsgIcon::Information, "No equipment");
            return;
        }
        frmFEQ w;
        w.FTR = FTR;
        w.Load();
        w.zReloadData();
        zShowModal(w, this);
        zUpdateWeapons();
    });
}

// ---- Omni-Fighter -------------------------------------------------------------

void frmFtr::CBoxBaseOmniLock_Click() {
    if (wLoading != 0 || wRefusing != 0) return;
    zTrapVoid("CBoxBaseOmniLock_Click", [&] {
        Fighter& f = *FTR;
        if (CBoxBaseOmniLock.Value() != 1 || f.OmniBaseLocked != 0) return;
        auto refuse = [&](const std::string& text, const char* title) {
            zMsgBox(text, MsgButtons::OK, MsgIcon::Critical, title);
            wRefusing = kTrue;
            CBoxBaseOmniLock.SetValue(0);
            wRefusing = kFalse;
        };
        if (f.FreeTonnage < 0) {
            refuse("This fighter is overweight by " + Num(std::fabs(f.FreeTonnage)) +
                       " tons. You cannot lock the base configuration since this is an illegal design.",
                   "Overweight");
            return;
        }
        if (TextValue(LArmorRemaining.Caption()) >= 1) {
            refuse("You have unallocated armor. You must allocated this before locking the base configuration.",
                   "Unallocated armor");
            return;
        }
        if (f.WcUnallocatedWeapons() >= 1) {
            refuse("You have unallocated weapons. You must allocate these before locking the base configuration.",
                   "Unallocated weapons");
            return;
        }
        if (Trimmed(TName.Text()).empty()) {
            refuse("You have not given this fighter a name, you must do this before locking the base "
                   "configuration.",
                   "No Name");
            return;
        }
        if (zMsgBox(std::string("Are you sure you want to lock the base configuration?") + kNL +
                        "Once locked, the base configuration cannot be unlocked.",
                    MsgButtons::YesNo, MsgIcon::Question, "Lock Base Configuration?") != MsgResult::Yes) {
            wRefusing = kTrue;
            CBoxBaseOmniLock.SetValue(0);
            wRefusing = kFalse;
            return;
        }
        f.OmniBaseLocked = kTrue;
        f.DisableOmniControls();
        cmboOmniConfig.SetListIndex(1);
    });
    wRefusing = kFalse;
}

void frmFtr::cmboOmniConfig_Click() {
    if (wLoading != 0) return;
    zTrapVoid("cmboOmniConfig_Click", [&] {
        Fighter& f = *FTR;
        const int32_t pos = cmboOmniConfig.ListIndex();
        if (!IsOmni(f) || pos < 0) return;
        if (pos == 0 && f.OmniBaseLocked != 0) {
            // The base is frozen once locked: the list goes back to
            // "Primary", whose own click enters it.
            gUi().Beep();
            cmboOmniConfig.SetListIndex(1);
            return;
        }
        f.ChangeOmniConfig(static_cast<int16_t>(pos));
        zUpdateWeapons();
    });
}

void frmFtr::zShowFuelTonnage(int16_t wTons) {
    if (scrlFuel.Min() > wTons) scrlFuel.SetMin(std::max<int16_t>(wTons, 0));
    Put(scrlFuel, wTons);
    LFuelTonnage.SetCaption(std::to_string(wTons));
}

void frmFtr::zShowHeatSinks(int16_t wSinks) {
    if (scrlHS.Min() > wSinks) scrlHS.SetMin(std::max<int16_t>(wSinks, 0));
    Put(scrlHS, wSinks);
    LHS.SetCaption(std::to_string(wSinks));
}

void frmFtr::zShowTCStatus(bool checked) { CBoxTC.SetValue(checked ? 1 : 0); }

void frmFtr::zFreezeChassis() {
    for (TextBox* t : {&TName, &TTonnage, &TThrust}) {
        t->Locked = true;
        // The binding reads Locked when the control changes.
        t->SetEnabled(false);
        t->SetEnabled(true);
    }
    scrlTonnage.SetEnabled(false);
    scrlThrust.SetEnabled(false);
    cmboEngType.SetEnabled(false);
}

void frmFtr::zEnableConfigList() {
    cmboOmniConfig.SetEnabled(true);
    LOmniConfigDesc.SetEnabled(true);
}

void frmFtr::zHoldLoadoutMinimums() {
    scrlFuel.SetMin(scrlFuel.Value());
    scrlHS.SetMin(scrlHS.Value());
}

void frmFtr::zFreezeTC() {
    CBoxTC.SetEnabled(false);
    cmboTCLocation.SetEnabled(false);
}

void frmFtr::zFreezeArmor() {
    for (Control* c : std::initializer_list<Control*>{&CBoxDHS, &scrlArmorTonnage, &cmboArmorType, &CBoxBaseOmniLock})
        c->SetEnabled(false);
    for (int16_t i = 0; i < 6; ++i) {
        scrlArmorLoc[i].SetEnabled(false);
        TArmorLoc[i].SetEnabled(false);
    }
}

// ---- Saving, printing, reports ------------------------------------------------

int16_t frmFtr::zValidateSave() {
    return zTrap<int16_t>("zValidateSave", kFalse, [&]() -> int16_t {
        Fighter& f = *FTR;
        const std::string name = Trimmed(TName.Text());
        if (name != TName.Text()) TName.SetText(name);
        if (name.empty()) {
            zMsgBox("You must supply a name for this fighter!", MsgButtons::OK, MsgIcon::Critical, "No name");
            return kFalse;
        }
        f.SetName(name);
        if (f.TotalTonnage > f.Tonnage) {
            zMsgBox("This fighter is overweight by " + Num(f.TotalTonnage - f.Tonnage) + " tons.", MsgButtons::OK,
                    MsgIcon::Information, "Overweight");
            return kFalse;
        }
        if (IsOmni(f) && f.OmniCheckTonnages() == 0) {
            zMsgBox("One of the omni configurations is overweight. You cannot save this fighter until all "
                    "configurations are legal designs.",
                    MsgButtons::OK, MsgIcon::Critical, "Overweight");
            return kFalse;
        }
        if (f.ArmorAllocated < f.ArmorPoints) {
            zMsgBox("You have not allocated all of your armor. Please do so before saving.", MsgButtons::OK,
                    MsgIcon::Information, "Armor remaining");
            return kFalse;
        }
        if (f.WcUnallocatedWeapons() >= 1) {
            zMsgBox("There are weapons and equipment that are not yet allocated. Please allocate these before saving.",
                    MsgButtons::OK, MsgIcon::Information, "Unallocated equipment");
            return kFalse;
        }
        if (f.OmniCheckAllocatedWeapons() == 0) {
            zMsgBox("There are weapons and equipment in one of the omni configurations that are not yet allocated. "
                    "Please allocate these before saving.",
                    MsgButtons::OK, MsgIcon::Information, "Unallocated equipment");
            return kFalse;
        }
        return kTrue;
    });
}

void frmFtr::PButSave_Click() {
    zTrapVoid("PButSave_Click", [&] {
        if (zSaveEditor(*this, [this] { return zValidateSave() != 0; })) zSetSaved(kTrue);
    });
}

void frmFtr::PButPrint_Click() {
    zTrapVoid("PButPrint_Click", [&] {
        if (wSaved == 0) {
            zMsgBox("Please save this fighter before printing.", MsgButtons::OK, MsgIcon::Information,
                    "Save fighter");
            return;
        }
        if (FTR->WcUnallocatedWeapons() >= 1) {
            zMsgBox("There are weapons and equipment that are not yet allocated. Please allocate these before "
                    "printing.",
                    MsgButtons::OK, MsgIcon::Information, "Unallocated equipment");
            return;
        }
        // The print options and the sheet belong to the record sheets, which
        // register the window when they are built in.
        zOpenForm("frmPrint", *this);
    });
}

void frmFtr::PButCost_Click() {
    zTrapVoid("PButCost_Click", [&] { zOpenForm("frmCost", *this); });
}

}  // namespace bw
