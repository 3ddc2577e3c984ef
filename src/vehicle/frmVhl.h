// The vehicle editor: one window on one design. The model holds the
// window's controls by their names; each control's event runs a command
// that calls the design's Set*/Calc* operations and refreshes the figures.
// Setting a control from a command runs that control's command at once, and
// the speed and tonnage stepping rely on it.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/EditorParts.h"
#include "core/Forms.h"
#include "vehicle/Vehicle.h"

namespace bw {

class frmVhl : public FormModel, public VehicleWindow {
public:
    frmVhl();
    ~frmVhl() override;
    frmVhl(const frmVhl&) = delete;
    frmVhl& operator=(const frmVhl&) = delete;

    // --- The window ------------------------------------------------------
    bool IsSaved() const override { return wSaved != 0; }

    // --- State -----------------------------------------------------------
    std::shared_ptr<Vehicle> vhl;
    int16_t wLoading = 0;
    int16_t wSaved = 0;
    int16_t wMirroring = 0;
    // The valid weapon rows of this design, one list per class.
    std::array<std::vector<int16_t>, 6> wValid;
    // The armor diagram shown, numbered as the sheet's picture holder.
    int16_t wArmorPicture = -1;
    // Where the window stands, in twips; the main window's cascade places it.
    int32_t Left = 0, Top = 0, Width = 11520, Height = 11775;
    // Each location's armor input on the diagram (zMoveArmorControls): the
    // centre of its spot in the picture's pixels, -1 where it has none.
    std::array<int16_t, 12> ArmorLocLeft{}, ArmorLocTop{};

    // --- Controls --------------------------------------------------------
    Control SSTab1{"SSTab1"};
    int16_t SSTab1Tab = 0;
    Control tabSpecials{"tabSpecials"};
    PictureBox picVHLArm{"picVHLArm"};
    TextBox TName{"TName"};
    Label LTechBase{"LTechBase"}, LTechLevel{"LTechLevel"}, LVehicleType{"LVehicleType"};
    ScrollBar scrlTonnage{"scrlTonnage"};
    TextBox TTonnage{"TTonnage"};
    ScrollBar scrlSpeed{"scrlSpeed"};
    TextBox TCruise{"TCruise"};
    Label LFlank{"LFlank"};
    ComboBox cmboEngType{"cmboEngType"};
    Label LEngineTonnage{"LEngineTonnage"}, LEngineRating{"LEngineRating"}, LISTonnage{"LISTonnage"};
    // Control equipment, power amplifiers, lift equipment; the third line's
    // caption names what the type carries.
    std::array<Label, 3> LControlTonnage{Label{"LControlTonnage(0)"}, Label{"LControlTonnage(1)"},
                                         Label{"LControlTonnage(2)"}};
    std::array<Label, 3> LControlDesc{Label{"LControlDesc(0)"}, Label{"LControlDesc(1)"}, Label{"LControlDesc(2)"}};
    Label LHeatSinks{"LHeatSinks"}, LHeatSinkTonnage{"LHeatSinkTonnage"};
    Label LTurretTonnage{"LTurretTonnage"}, LSecTurretTonnage{"LSecTurretTonnage"},
        LSponsonTonnage{"LSponsonTonnage"}, LTCTonnage{"LTCTonnage"};
    Label LTonnageTotal{"LTonnageTotal"}, LTonnageFree{"LTonnageFree"};
    Timer Timer1{"Timer1"};

    // Options and their tonnage figures.
    CheckBox CBoxAmphibEquip{"CBoxAmphibEquip"}, CBoxBridgelayer{"CBoxBridgelayer"}, CBoxBulldozer{"CBoxBulldozer"},
        CBoxCoolantSystem{"CBoxCoolantSystem"}, CBoxDuneBuggy{"CBoxDuneBuggy"}, CBoxJJs{"CBoxJJs"},
        CBoxMASHUnit{"CBoxMASHUnit"}, CBoxMinesweeper{"CBoxMinesweeper"}, CBoxMobileHQ{"CBoxMobileHQ"},
        CBoxSnowmobileEquip{"CBoxSnowmobileEquip"}, CBoxSupercharger{"CBoxSupercharger"},
        CBoxHasTurret{"CBoxHasTurret"}, CBoxHasSecondTurret{"CBoxHasSecondTurret"},
        CBoxHasSponsonTurret{"CBoxHasSponsonTurret"}, CBoxMastMount{"CBoxMastMount"}, CBoxTC{"CBoxTC"};
    ComboBox cmboBridgelayer{"cmboBridgelayer"};
    ScrollBar scrlJJs{"scrlJJs"};
    Label LJJs{"LJJs"};
    ScrollBar scrlMASHUnits{"scrlMASHUnits"};
    Label LMASHCount{"LMASHCount"};
    ScrollBar scrlMobileHQ{"scrlMobileHQ"};
    ComboBox cmboRotorArrangement{"cmboRotorArrangement"};
    ComboBox cmboTCLoc{"cmboTCLoc"};
    Label LTCLocationDesc{"LTCLocationDesc"};
    ScrollBar scrlAdditionalCrew{"scrlAdditionalCrew"};
    TextBox TAdditionalCrew{"TAdditionalCrew"};
    // Tonnage of each option, shown on refresh.
    Label LSuperchargerTonnage{"LSuperchargerTonnage"}, LMastMountTonnage{"LMastMountTonnage"},
        LCrewTonnage{"LCrewTonnage"}, LBridgeLayerTonnage{"LBridgeLayerTonnage"},
        LBulldozerTonnage{"LBulldozerTonnage"}, LMinesweeperTonnage{"LMinesweeperTonnage"},
        LMASHTonnage{"LMASHTonnage"}, LAmphibTonnage{"LAmphibTonnage"}, LDuneBuggyTonnage{"LDuneBuggyTonnage"},
        LSnowmobileTonnage{"LSnowmobileTonnage"}, LCoolantSystemTonnage{"LCoolantSystemTonnage"},
        LJumpJetTonnage{"LJumpJetTonnage"}, LMobileHQTonnage{"LMobileHQTonnage"};

    // Armor.
    ComboBox cmboArmorType{"cmboArmorType"};
    ScrollBar scrlArmorTonnage{"scrlArmorTonnage"};
    // The armor tonnage as typed; the up-down steps it by half tons.
    TextBox TArmorTonnage{"TArmorTonnage"};
    Label LArmorTonnage{"LArmorTonnage"}, LTotalPoints{"LTotalPoints"}, LAllocatedPoints{"LAllocatedPoints"},
        LRemainingPoints{"LRemainingPoints"}, LActiveArmorLoc{"LActiveArmorLoc"};
    // By location number 0 to 11; 6 and 7 (sponsons) take no armor.
    std::array<ScrollBar, 12> scrlArmorLoc;
    std::array<TextBox, 12> TArmorLoc;

    // Equipment.
    TreeView tvAvailEq{"tvAvailEq"}, tvSelectedEq{"tvSelectedEq"};
    std::array<CheckBox, 6> CBoxShowType;
    std::array<CommandButton, 3> PButEquipment;
    // Cost/Stats, Show Statistics and Print open their windows through the
    // form factories.
    CommandButton PButCost{"PButCost"}, PButShowStats{"PButShowStats"}, PButPrint{"PButPrint"};
    CommandButton PButSave{"PButSave"}, PButClose{"PButClose"}, PButAllocate{"PButAllocate"},
        PButExpandAvail{"PButExpandAvail"}, PButCollapseAvail{"PButCollapseAvail"},
        PButExpandSel{"PButExpandSel"}, PButCollapseSel{"PButCollapseSel"};

    // The editor of a new design: five tons at one movement point with the
    // given tech base, level and type, the window loaded and set up.
    static std::unique_ptr<frmVhl> zNewDesign(int16_t techBase, int16_t techLevel, int16_t vhlType);
    // The editor of a copy of a stored design, showing it as stored and saved.
    static std::unique_ptr<frmVhl> zOpenDesign(const Vehicle& stored);

    // --- Commands --------------------------------------------------------
    // Normal text box colours.
    void Form_Load() override;
    void zSetUpBaseData();
    // Opening a stored design: after zSetUpBaseData, moves every input to
    // the design's values under wLoading, so the design itself is not
    // changed, and shows its figures as stored.
    void zShowStoredDesign();
    void zUpdateTonnageLists();
    void zSetSaved(int16_t wStatus);
    int16_t zValidateSave();
    void PButSave_Click();
    void PButPrint_Click();
    // cancel is set when the window must stay.
    void Form_QueryUnload(bool& cancel) override;
    void Form_Unload() override;
    void SSTab1_Click(int16_t tab);
    void Timer1_Timer();
    void zChangePicture();
    void zMoveArmorControls(int16_t vhlType);
    void zUpdateArmor();
    void zUpdateTCLocations();
    int16_t zGetEngineIdx(int16_t engineType) const;
    // Rating limit of the present engine: 500 for the large engines.
    int16_t zRatingLimit() const;

    void zLoadValidWeapons();
    void zRefreshWeaponsAvail();
    void zAddWeapon();
    void zRemoveWeapon();
    void zClearWeapons();
    void zExpandSelected();
    void PButAllocate_Click();
    // A double click on a row of either tree: the weapon data window.
    void zShowWeaponData(const TreeView& tree);

    // VehicleWindow
    void zUpdateWeapons() override;
    void zShowCrew(int16_t wCrew) override;

    // Handlers, public so a binding or a test can raise them as the user
    // would.
    void scrlTonnage_Change();
    void TTonnage_LostFocus();
    void scrlSpeed_Change();
    void TCruise_LostFocus();
    void cmboEngType_Click();
    void cmboArmorType_Click();
    void scrlArmorTonnage_Change();
    void TArmorTonnage_LostFocus();
    void scrlArmorLoc_Change(int16_t index);
    void TArmorLoc_LostFocus(int16_t index);
    void scrlJJs_Change();
    void scrlMASHUnits_Change();
    void scrlMobileHQ_Change();
    void scrlAdditionalCrew_Change();
    void TAdditionalCrew_LostFocus();
    void TName_Change();
    void cmboRotorArrangement_Click();
    void cmboBridgelayer_Click();
    void cmboTCLoc_Click();
    void CBoxTC_Click();
    void CBoxHasTurret_Click();
    void CBoxHasSecondTurret_Click();
    void CBoxHasSponsonTurret_Click();
    void CBoxMastMount_Click();
    void CBoxSupercharger_Click();
    void tvAvailEq_Expand(const std::string& key);
    void CBoxShowType_Click(int16_t index);

private:
    struct Exclusion {
        const int16_t Vehicle::*flag;
        const int16_t Vehicle::*flag2;  // a second flag that refuses alike, or nullptr
        const char* message;
    };
    // The pattern of the option boxes: on being set, the first exclusion
    // already mounted refuses with its message and clears the box; otherwise
    // (and on being cleared) apply runs with the box's value.
    void zOptionBox(CheckBox& box, const char* title, const std::vector<Exclusion>& tests,
                    const std::function<void(int16_t)>& apply);
    void zSpecialEQ(int16_t wType, int16_t value);
    // Shows or hides a box's number input with its label.
    void zNumberInput(ScrollBar& scrl, Label* label, int16_t value);
    // The other location of a mirrored pair, or -1.
    int16_t zMirrorOf(int16_t loc) const;
    void zWireControls();
    void zStepSpeedToRating();

    int16_t wRefusing = 0;  // a refused box is being cleared by the program
    int16_t wReverting = 0; // a refused list is being put back
    int16_t wFlash = 0;
};

}  // namespace bw
