// The main window: menus, toolbar, the progress area, the caption with the
// open database, the cascade of new windows and the shutdown walk.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"
#include "database/DatabaseOps.h"

namespace bw {

class frmNVhl;
class frmVhl;
class frmVOpen;
class frmFOpen;

class frmMain : public IForm {
public:
    frmMain();
    ~frmMain() override;

    std::string FormName() const override { return "frmMain"; }
    void RequestUnload() override;

    // The window itself: its caption is the title bar, Left/Top/Height in
    // twips place it.
    Control Window{"frmMain"};
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

    // A toolbar button of TBarMain: its key, tool tip, and group (a blank
    // group starts a new cluster on the bar).
    struct ToolButton {
        std::string Key;
        std::string ToolTip;
        bool Enabled;
    };
    std::vector<ToolButton> TBarMain;

    ProgressBar PBarMainProg{"PBarMainProg"};
    Label LProgInfo{"LProgInfo"};

    // The cascade origin for new windows (twips).
    int32_t wStartLeft = 0, wStartTop = 0, wStartCount = 0;
    // The screen in twips; the window system sets it (1024x768 at 96 dpi
    // until then).
    int32_t ScreenWidth = 15360, ScreenHeight = 11520;
    // Places a new window (left, top, width, height in twips) on the
    // cascade, restarting across or down where it would leave the screen.
    void zSetStartPos(int32_t& left, int32_t& top, int32_t width, int32_t height);

    // The menus in display order, each with its items (for the binding).
    struct Menu {
        MenuItem* menu;
        std::vector<MenuItem*> items;  // nullptr is a separator
    };
    std::vector<Menu> Menus();

    // The load step: title, place, blank tables, caption, cascade origin,
    // the Special menu.
    void Form_Load();
    // Toolbar dispatch by key, compared exactly.
    void TBarMain_ButtonClick(const std::string& key);
    // The shutdown walk. Sets cancel when an editor stays unsaved.
    void Form_Unload(bool& cancel);

    // Forwarded to the open database.
    void zOpenDatabase(const std::string& path);
    void mnuFileOpne_Click();

    // Vehicle commands. New: the New Vehicle dialog, then an editor on a
    // fresh design. Open: an editor on a copy of a stored design, so that an
    // abandoned edit leaves the table's entry alone. Delete: forwarded.
    void zNewVehicle();
    void zOpenVehicle();
    void zDeleteVehicle();
    // The picker behind gPickDesign (Form_Load installs it): shows frmVOpen
    // or frmFOpen through the modal shows below; the picked index or -1.
    int16_t zPickDesign(DesignKind kind, const std::string& caption, const std::string& action);

    // What the window system does for the commands that show windows.
    std::function<void()> ShowSettings;  // frmSet, modal
    std::function<void()> ShowAbout;     // frmAbout, modal
    // The New Vehicle dialog, modal: its Form_Load has run; returns once the
    // dialog is hidden. Unset: nothing is shown and nothing is created.
    std::function<void(frmNVhl&)> ShowNewVehicle;
    // Takes a ready editor and shows it; the window owns it from then on.
    // Unset: the editor goes away at once.
    std::function<void(std::unique_ptr<frmVhl>)> ShowVehicleEditor;
    // The pickers, modal: the show activates the dialog (Form_Activate) and
    // returns once it is hidden. Unset: nothing is picked.
    std::function<void(frmVOpen&)> ShowVehiclePicker;
    std::function<void(frmFOpen&)> ShowFighterPicker;
    // The main window goes away after a walk that nobody refused; the
    // window system must not run Form_Unload again for it.
    std::function<void()> CloseWindow;
    // The last Form_Unload's answer, for the binding.
    bool wUnloadCancelled = false;

private:
    void Unimplemented();
    void RefreshCaption();
};

}  // namespace bw
