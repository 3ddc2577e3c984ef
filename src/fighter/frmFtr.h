// The fighter editor: one window on one design. The model holds the
// window's controls by their names; each control's event runs a command
// that calls the design's Set*/Calc* operations in a fixed order and
// refreshes the figures. Setting a control from a command runs that
// control's command at once: the thrust correction and the mirrored wings
// rely on it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "core/Controls.h"
#include "core/EditorParts.h"
#include "core/Forms.h"
#include "fighter/Fighter.h"

namespace bw {

class frmFtr : public FormModel, public FighterWindow {
public:
    frmFtr();
    ~frmFtr() override;
    frmFtr(const frmFtr&) = delete;
    frmFtr& operator=(const frmFtr&) = delete;

    bool IsSaved() const override { return wSaved != 0; }

    // --- State -----------------------------------------------------------
    std::shared_ptr<Fighter> FTR;
    int16_t wSaved = 0;
    // While set, every change command returns at once (CBoxTC excepted).
    int16_t wLoading = 0;
    // Where the window stands, in twips; the main window's cascade places it.
    int32_t Left = 0, Top = 0, Width = 11520, Height = 10500;

    // --- Controls --------------------------------------------------------
    Control SSTab1{"SSTab1"};
    int16_t SSTab1Tab = 0;
    TextBox TName{"TName"};
    Label LTechBase{"LTechBase"}, LTechLevel{"LTechLevel"}, LFighterType{"LFighterType"};
    ScrollBar scrlTonnage{"scrlTonnage"};
    TextBox TTonnage{"TTonnage"};
    ScrollBar scrlThrust{"scrlThrust"};
    TextBox TThrust{"TThrust"};
    Label LOThrust{"LOThrust"}, LSIRating{"LSIRating"};
    ComboBox cmboEngType{"cmboEngType"};
    Label LEngineTonnage{"LEngineTonnage"};
    Label LCockpitDesc{"LCockpitDesc"}, LCockpitTonnage{"LCockpitTonnage"};
    Label LPowerAmpDesc{"LPowerAmpDesc"}, LPowerAmpTonnage{"LPowerAmpTonnage"};
    CheckBox CBoxVTOLJets{"CBoxVTOLJets"};
    Label LVTOLJetTonnage{"LVTOLJetTonnage"};
    CheckBox CBoxTC{"CBoxTC"};
    ComboBox cmboTCLocation{"cmboTCLocation"};
    Label LTCTonnage{"LTCTonnage"};
    ScrollBar scrlFuel{"scrlFuel"};
    Label LFuelTonnage{"LFuelTonnage"};
    ScrollBar scrlHS{"scrlHS"};
    Label LHS{"LHS"}, LHSTonnage{"LHSTonnage"};
    CheckBox CBoxDHS{"CBoxDHS"};
    Label LWeaponHeatDesc{"LWeaponHeatDesc"}, LWeaponHeat{"LWeaponHeat"}, LWeaponTonnage{"LWeaponTonnage"};
    Label LTonnageTotal{"LTonnageTotal"}, LTonnageFree{"LTonnageFree"};
    Timer Timer1{"Timer1"};

    // Omni-Fighter configurations and the lock of the base.
    CheckBox CBoxBaseOmniLock{"CBoxBaseOmniLock"};
    Label LOmniConfigDesc{"LOmniConfigDesc"};
    ComboBox cmboOmniConfig{"cmboOmniConfig"};

    // Armor: locations 0 Nose, 1 Left Wing, 2 Right Wing, 3 Fuselage,
    // 4 Cockpit, 5 Engine.
    Label LArmorTypeDesc{"LArmorTypeDesc"};
    ComboBox cmboArmorType{"cmboArmorType"};
    ScrollBar scrlArmorTonnage{"scrlArmorTonnage"};
    Label LArmorTonnage{"LArmorTonnage"}, LArmorPoints{"LArmorPoints"}, LArmorAllocated{"LArmorAllocated"},
        LArmorRemaining{"LArmorRemaining"}, LActiveArmorLoc{"LActiveArmorLoc"};
    std::array<ScrollBar, 6> scrlArmorLoc;
    std::array<TextBox, 6> TArmorLoc;

    // Equipment: 0 "&Add >>", 1 "<< &Remove", 2 "Cl&ear Selected".
    TreeView tvAvailEQ{"tvAvailEQ"}, tvSelEQ{"tvSelEQ"};
    std::array<CheckBox, 5> CBoxShowEQ;
    std::array<CommandButton, 3> PButEquipment;
    CommandButton PButAllocate{"PButAllocate"}, PButExpandAvail{"PButExpandAvail"},
        PButCollapseAvail{"PButCollapseAvail"}, PButExpandSel{"PButExpandSel"}, PButCollapseSel{"PButCollapseSel"};
    CommandButton PButCost{"PButCost"}, PButPrint{"PButPrint"}, PButSave{"PButSave"}, PButClose{"PButClose"};

    // The editor of a new design made by the New Fighter dialog: the window
    // loaded, the first tab chosen, zSetupBasics run.
    static std::unique_ptr<frmFtr> zNewDesign(const Fighter& made);
    // The editor of a copy of a stored design, showing it as stored and
    // saved; an Omni-Fighter ends on "Primary".
    static std::unique_ptr<frmFtr> zOpenDesign(const Fighter& stored);

    // --- Commands --------------------------------------------------------
    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override;
    void Form_Unload() override;
    void zSetupBasics();
    // Opening a stored design: every control takes the design's value under
    // wLoading, so the design itself does not change.
    void zShowStoredDesign();
    void zRefreshWeaponsAvail();
    void zUpdateArmor();
    void zUpdateWeapons();
    void zUpdateTonnageLists();
    void zSetSaved(int16_t v);
    int16_t zValidateSave();
    void zAddWeapon();
    void zRemoveWeapon();
    void zClearWeapons();
    void zExpandSelected();

    // Handlers, public so a binding or a test can raise them as the user
    // would.
    void SSTab1_Click(int16_t tab);
    void Timer1_Timer();
    void scrlTonnage_Change();
    void TTonnage_LostFocus();
    void scrlThrust_Change();
    void TThrust_LostFocus();
    void cmboEngType_Click();
    void scrlFuel_Change();
    void scrlHS_Change();
    void CBoxDHS_Click();
    void CBoxVTOLJets_Click();
    void CBoxTC_Click();
    void cmboTCLocation_Click();
    void TName_Change();
    void scrlArmorTonnage_Change();
    void cmboArmorType_Click();
    void scrlArmorLoc_Change(int16_t i);
    void TArmorLoc_GotFocus(int16_t i);
    void TArmorLoc_LostFocus(int16_t i);
    void CBoxShowEQ_Click(int16_t i);
    void CBoxBaseOmniLock_Click();
    void cmboOmniConfig_Click();
    void PButAllocate_Click();
    void PButSave_Click();
    void PButPrint_Click();
    void PButCost_Click();
    // A double click on a row of either tree: the weapon data window.
    void zShowWeaponData(const TreeView& tree);

    // --- FighterWindow ----------------------------------------------------
    void zSetLoading(int16_t v) override { wLoading = v; }
    void zShowFuelTonnage(int16_t wTons) override;
    void zShowHeatSinks(int16_t wSinks) override;
    void zShowTCStatus(bool checked) override;
    TreeView& zSelectedTree() override { return tvSelEQ; }
    void zFreezeChassis() override;
    void zEnableConfigList() override;
    void zHoldLoadoutMinimums() override;
    void zFreezeTC() override;
    void zFreezeArmor() override;

private:
    void zWireControls();
    // The rating is held to 5..400 by stepping the thrust, whose own command
    // repeats the test.
    void zCorrectRating();
    // zCheckTextBox with the beep of a refused text.
    void zCheckBeep(TextBox& box, int16_t lower, int16_t upper);
    // A list set by the program without running its command.
    void zQuietIndex(ComboBox& c, int32_t i);

    int16_t wMirroring = 0;  // the other wing is being set
    int16_t wRefusing = 0;   // a refused box or list is being put back by the program
};

}  // namespace bw
