// The main window: menus, toolbar, the progress area, the caption with the
// open database, the cascade of new windows and the shutdown walk.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"
#include "database/DatabaseOps.h"

namespace bw {

class frmVhl;
class Vehicle;
class Fighter;

class frmMain : public FormModel {
public:
    frmMain();
    ~frmMain() override;

    // Left/Top/Height in twips place the window.
    int32_t Left = 0, Top = 0, Width = 9600, Height = 1185;

    // File
    MenuItem mnuFile{"mnuFile"}, mnuFileNew{"mnuFileNew"}, mnuFileOpne{"mnuFileOpne"},
        mnuFileOpenV2{"mnuFileOpenV2"}, mnuFileUpgDB{"mnuFileUpgDB"}, mnuFileExit{"mnuFileExit"};
    // Vehicle
    MenuItem mnuVhl{"mnuVhl"}, mnuVhlNew{"mnuVhlNew"}, mnuVhlOpen{"mnuVhlOpen"}, mnuVHlDel{"mnuVHlDel"},
        mnuVhlMultiPrint{"mnuVhlMultiPrint"};
    // Fighter
    MenuItem mnuFighter{"mnuFighter"}, mnuFIghterNew{"mnuFIghterNew"}, mnuFighterOpen{"mnuFighterOpen"},
        mnuFighterDel{"mnuFighterDel"}, mnuFighterMultiPrint{"mnuFighterMultiPrint"},
        mnuFighterPrintBSpace{"mnuFighterPrintBSpace"};
    MenuItem mnuDropship{"mnuDropship"}, mnuWarship{"mnuWarship"};
    MenuItem mnuSettings{"mnuSettings"}, mnuSearch{"mnuSearch"};
    MenuItem mnuAbout{"mnuAbout"}, mnuAboutBW{"mnuAboutBW"};
    // Special (maintenance), hidden unless "parm.txt" reveals it.
    MenuItem mnuSpecial{"mnuSpecial"}, mnuSpecialImport{"mnuSpecialImport"},
        mnuSpecialWriteData{"mnuSpecialWriteData"}, mnuSpecialNavalWeapons{"mnuSpecialNavalWeapons"},
        mnuSpecialNavalItems{"mnuSpecialNavalItems"}, mnuSpecialImportOld{"mnuSpecialImportOld"},
        mnuSpecialCreateConvTable{"mnuSpecialCreateConvTable"}, mnuSpecialCreateArmor{"mnuSpecialCreateArmor"},
        mnuSpecialCreateInternal{"mnuSpecialCreateInternal"},
        mnuSpecialArmorArrayCreator{"mnuSpecialArmorArrayCreator"};

    // A toolbar button of TBarMain: its key, tool tip, and the cluster of
    // the bar it belongs to (vehicles, fighters, DropShips, WarShips).
    struct ToolButton {
        std::string Key;
        std::string ToolTip;
        bool Enabled;
        std::string Kind;    // "vehicle", "fighter", "dropship", "warship"
        std::string Action;  // "new", "open", "delete"
    };
    std::vector<ToolButton> TBarMain;

    ProgressBar PBarMainProg{"PBarMainProg"};
    Label LProgInfo{"LProgInfo"};
    // The open database in words, beside the caption.
    Label LDatabase{"LDatabase"};

    // The cascade origin for new windows (twips).
    int32_t wStartLeft = 0, wStartTop = 0, wStartCount = 0;
    // The screen in twips; the window system sets it (1024x768 at 96 dpi
    // until then).
    int32_t ScreenWidth = 15360, ScreenHeight = 11520;
    // Places a new window (left, top, width, height in twips) on the
    // cascade, restarting across or down where it would leave the screen.
    void zSetStartPos(int32_t& left, int32_t& top, int32_t width, int32_t height);

    // The menus in display order, each with its items (for the binding).
    // A menu without items is a command of the bar itself, unless it is a
    // submenu that has none yet (Dropship, Warship).
    struct Menu {
        MenuItem* menu;
        std::vector<MenuItem*> items;  // nullptr is a separator
        bool submenu = true;
    };
    std::vector<Menu> Menus();

    // The load step: title, place, blank tables, caption, cascade origin,
    // the Special menu.
    void Form_Load() override;
    // Toolbar dispatch by key, compared exactly.
    void TBarMain_ButtonClick(const std::string& key);
    // The shutdown walk: every editor is asked, from the last loaded. Sets
    // cancel when an editor stays unsaved.
    void Form_QueryUnload(bool& cancel) override;

    // The open database, with the caption kept in step.
    void zOpenDatabase(const std::string& path);
    void mnuFileOpne_Click();
    void mnuFileNew_Click();
    // The upgrade of a version 1 database; the result is opened.
    void mnuFileUpgDB_Click();

    // Vehicle commands. New: the New Vehicle dialog, then an editor on a
    // fresh design. Open: an editor on a copy of a stored design, so that an
    // abandoned edit leaves the table's entry alone. Delete: the picker,
    // then the question.
    void zNewVehicle();
    void zOpenVehicle();
    void zDeleteVehicle();
    // Fighter commands, as the vehicle ones: New through the New Fighter
    // dialog, Open on a copy, Delete through the picker.
    void zNewFighter();
    void zOpenFighter();
    // An editor on a copy of a stored design (of the open database or of
    // any other), placed on the cascade.
    void zOpenStoredVehicle(const Vehicle& stored);
    // The Search window, one at a time.
    void zShowSearch();
    void zDeleteFighter();
    // The save command of the editors: asks before overwriting a design of
    // the same name, type and base, then stores and saves; ok is false when
    // the user declined.
    void zSaveVehicle(const std::shared_ptr<Vehicle>& v, bool& ok);
    void zSaveFighter(const std::shared_ptr<Fighter>& f, bool& ok);
    bool zSaveDesign(FormModel& editor) override;
    // The pick of the open commands: refuses with "No Vehicles"/"No
    // Fighters" when the table is blank, otherwise shows the picker; the
    // index of the picked design or -1.
    int16_t zPickVehicleToOpen();
    int16_t zPickFighterToOpen();
    // Shows frmVOpen or frmFOpen modal with the caption and action button;
    // the picked index or -1.
    int16_t zPickVehicle(const std::string& caption, const std::string& action);
    int16_t zPickFighter(const std::string& caption, const std::string& action);

    // The last shutdown walk's answer, for the binding.
    bool wUnloadCancelled = false;

private:
    void Unimplemented();
    void RefreshCaption();
    // Opens a ready editor: the cascade places it, the host owns and shows it.
    void zShowEditor(std::unique_ptr<frmVhl> editor);
};

}  // namespace bw
