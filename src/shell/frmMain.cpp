#include "shell/frmMain.h"

#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "core/Settings.h"
#include "core/Ui.h"
#include "database/DatabaseOps.h"
#include "shell/frmFOpen.h"
#include "shell/frmVOpen.h"
#include "vehicle/Vehicle.h"
#include "vehicle/frmNVhl.h"
#include "vehicle/frmVhl.h"

namespace bw {

namespace {
void SetMenu(MenuItem& m, const char* caption, bool enabled = true, bool visible = true) {
    m.SetCaption(caption);
    m.SetEnabled(enabled);
    m.SetVisible(visible);
}
}  // namespace

frmMain::frmMain() {
    SetMenu(mnuFile, "&File");
    SetMenu(mnuFileNew, "&New Database");
    SetMenu(mnuFileOpne, "&Open Database");
    // Import of version 2 databases and the upgrade arrive with later work.
    SetMenu(mnuFileOpenV2, "&Open V2 Database", false);
    SetMenu(mnuFileUpgDB, "&Upgrade Existing v3 Database", false);
    SetMenu(mnuFileExit, "E&xit");
    SetMenu(mnuVhl, "&Vehicle");
    SetMenu(mnuVhlNew, "&New Vehicle");
    SetMenu(mnuVhlOpen, "&Open Vehicle");
    SetMenu(mnuVHlDel, "&Delete Vehicle");
    SetMenu(mnuVhlMultiPrint, "Multi-Print", false);
    SetMenu(mnuFighter, "&Fighter");
    SetMenu(mnuFIghterNew, "&New Fighter", false);
    SetMenu(mnuFighterOpen, "&Open Fighter", false);
    SetMenu(mnuFighterDel, "&Delete Fighter", false);
    SetMenu(mnuFighterMultiPrint, "Multi-Print", false);
    SetMenu(mnuFighterPrintBSpace, "Print Battlespace Sheet", false);
    SetMenu(mnuDropship, "&Dropship");
    SetMenu(mnuWarship, "&Warship");
    SetMenu(mnuSettings, "&Preferences");
    SetMenu(mnuSearch, "&Search", false);
    SetMenu(mnuAbout, "&About");
    SetMenu(mnuAboutBW, "The Brasswick Works 3.0");
    // The maintenance commands rebuild reference files; bwtool does that job
    // here, so they stay disabled even when the menu is revealed.
    SetMenu(mnuSpecial, "&Special", false, false);
    SetMenu(mnuSpecialImport, "&Import tabbed data", false);
    SetMenu(mnuSpecialWriteData, "Write new datafile", false);
    SetMenu(mnuSpecialNavalWeapons, "Import and Create Naval Weapons", false);
    SetMenu(mnuSpecialNavalItems, "Import and Create Naval Items", false);
    SetMenu(mnuSpecialImportOld, "Import Old Weapons.Dat", false);
    SetMenu(mnuSpecialCreateConvTable, "Create item conversion table", false);
    SetMenu(mnuSpecialCreateArmor, "Create Armor File", false);
    SetMenu(mnuSpecialCreateInternal, "Create Internal File", false);
    SetMenu(mnuSpecialArmorArrayCreator, "Display Armor Array Creator", false);

    TBarMain = {
        {"butVHLNew", "New Vehicle", true},   {"butVHLOpen", "Open Vehicle", true},
        {"butVHLDel", "Delete Vehicle", true},  {"butNewFtr", "New Fighter", false},
        {"butOpenFtr", "Open Fighter", false}, {"butDelFtr", "Delete Fighter", false},
        {"butNewDS", "New DropShip", true},   {"butOpenDS", "Open DropShip", true},
        {"butDelDS", "Delete DropShip", true}, {"butNewWar", "New WarShip", true},
        {"butOpenWar", "Open WarShip", true},  {"butDelWar", "Delete WarShip", true},
    };

    mnuFileNew.Click = [this] { zTrapVoid("mnuFileNew_Click", [] { zNewDB(); }); };
    mnuFileOpne.Click = [this] { mnuFileOpne_Click(); };
    mnuVhlNew.Click = [this] { zNewVehicle(); };
    mnuVhlOpen.Click = [this] { zOpenVehicle(); };
    mnuVHlDel.Click = [this] { zDeleteVehicle(); };
    // Exit only asks the main window to unload; the walk decides.
    mnuFileExit.Click = [this] { RequestUnload(); };
    mnuSettings.Click = [this] {
        if (ShowSettings) ShowSettings();
    };
    mnuAboutBW.Click = [this] {
        if (ShowAbout) ShowAbout();
    };

    PBarMainProg.SetVisible(false);
    LProgInfo.SetVisible(false);
    RegisterForm(this);
}

frmMain::~frmMain() {
    UnregisterForm(this);
    SetMainProgressHook({});
    gSetMainCaption = nullptr;
    gPickDesign = nullptr;
}

std::vector<frmMain::Menu> frmMain::Menus() {
    return {
        {&mnuFile, {&mnuFileNew, &mnuFileOpne, &mnuFileOpenV2, &mnuFileUpgDB, nullptr, &mnuFileExit}},
        {&mnuVhl, {&mnuVhlNew, &mnuVhlOpen, &mnuVHlDel, nullptr, &mnuVhlMultiPrint}},
        {&mnuFighter,
         {&mnuFIghterNew, &mnuFighterOpen, &mnuFighterDel, nullptr, &mnuFighterMultiPrint, &mnuFighterPrintBSpace}},
        {&mnuDropship, {}},
        {&mnuWarship, {}},
        {&mnuSettings, {}},
        {&mnuSearch, {}},
        {&mnuAbout, {&mnuAboutBW}},
        {&mnuSpecial,
         {&mnuSpecialImport, &mnuSpecialWriteData, &mnuSpecialNavalWeapons, &mnuSpecialNavalItems,
          &mnuSpecialImportOld, &mnuSpecialCreateConvTable, &mnuSpecialCreateArmor, &mnuSpecialCreateInternal,
          &mnuSpecialArmorArrayCreator}},
    };
}

void frmMain::RefreshCaption() { Window.SetCaption(zAppTitle() + " - " + gDatabasePath); }

void frmMain::Form_Load() {
    Top = 500;
    Left = 500;
    Height = 1185;
    gSetMainCaption = [this](const std::string& caption) { Window.SetCaption(caption); };
    gPickDesign = [this](DesignKind kind, const std::string& caption, const std::string& action) {
        return zPickDesign(kind, caption, action);
    };
    zResetDatabase();
    RefreshCaption();
    wStartLeft = Left + 500;
    wStartTop = Top + Height + 120;
    wStartCount = 0;
    if (zHasParm("Special Menu")) {
        mnuSpecial.SetEnabled(true);
        mnuSpecial.SetVisible(true);
    }
    SetMainProgressHook({
        [this](int32_t max) {
            PBarMainProg.SetMax(max);
            PBarMainProg.SetVisible(true);
        },
        [this](const std::string& text) {
            LProgInfo.SetCaption(text);
            LProgInfo.SetVisible(true);
        },
        [this](int32_t value) {
            if (value >= PBarMainProg.Min() && value <= PBarMainProg.Max()) PBarMainProg.SetValue(value);
        },
        [this] {
            PBarMainProg.SetVisible(false);
            LProgInfo.SetVisible(false);
        },
    });
}

void frmMain::zSetStartPos(int32_t& left, int32_t& top, int32_t width, int32_t height) {
    zTrapVoid("zSetStartPos", [&] {
        int32_t x = zI32(int64_t{wStartLeft} + int64_t{wStartCount} * 120);
        int32_t y = zI32(int64_t{wStartTop} + int64_t{wStartCount} * 120);
        if (int64_t{x} + width > ScreenWidth) {
            x = Left + 500;
            wStartLeft = x;
        }
        if (int64_t{y} + height > ScreenHeight) {
            y = Top + Height + 120;
            wStartTop = y;
        }
        top = y;
        left = x;
        wStartCount = zI32(int64_t{wStartCount} + 1);
    });
}

void frmMain::Unimplemented() {
    zMsgBox("This feature is not yet implemented.", MsgButtons::OK, MsgIcon::None, "Not Implemented");
}

void frmMain::TBarMain_ButtonClick(const std::string& key) {
    zTrapVoid("TBarMain_ButtonClick", [&] {
        for (const auto& b : TBarMain)
            if (b.Key == key && !b.Enabled) return;
        if (key == "butVHLNew") zNewVehicle();
        else if (key == "butVHLOpen") zOpenVehicle();
        else if (key == "butVHLDel") zDeleteVehicle();
        else if (key == "butNewDS" || key == "butOpenDS" || key == "butDelDS" || key == "butNewWar" ||
            key == "butOpenWar" || key == "butDelWar")
            Unimplemented();
    });
}

void frmMain::zOpenDatabase(const std::string& path) { bw::zOpenDatabase(path); }

void frmMain::mnuFileOpne_Click() {
    zTrapVoid("mnuFileOpne_Click", [&] {
        std::string path = zDlgOpenFile("Open Database", 0, "Brasswick Works Databases (*.bwd)|*.bwd");
        if (!path.empty()) zOpenDatabase(path);
    });
}

// ---- Vehicle commands -------------------------------------------------------

void frmMain::zNewVehicle() {
    bool waiting = false;
    zTrapVoid("zNewVehicle", [&] {
        frmNVhl dlg;
        dlg.Form_Load();
        dlg.Visible = true;
        if (ShowNewVehicle) ShowNewVehicle(dlg);
        dlg.Visible = false;
        if (dlg.wCancel != 0) return;

        zPointerWait();
        waiting = true;
        auto v = std::make_shared<Vehicle>();
        auto editor = std::make_unique<frmVhl>();
        editor->vhl = v;
        v->frm = editor.get();
        editor->Form_Load();
        v->SetTechBase(dlg.TechBase());
        v->SetTechLevel(dlg.TechLevel());
        v->SetType(dlg.VhlType());
        // Every new design starts as five tons at one movement point.
        v->SetTonnage(5);
        v->SetCruiseSpeed(1);
        zSetStartPos(editor->Left, editor->Top, editor->Width, editor->Height);
        editor->zSetUpBaseData();
        editor->SSTab1_Click(0);
        if (ShowVehicleEditor) ShowVehicleEditor(std::move(editor));
        zPointerNormal();
        waiting = false;
    });
    if (waiting) zPointerNormal();
}

void frmMain::zOpenVehicle() {
    bool waiting = false;
    zTrapVoid("zOpenVehicle", [&] {
        const int16_t sel = zPickVehicleToOpen();
        if (sel < 0 || static_cast<size_t>(sel) >= gVehicles.size() || !gVehicles[static_cast<size_t>(sel)]) return;

        zPointerWait();
        waiting = true;
        // The editor works on its own copy: the table keeps its object until
        // a save hands the copy over.
        auto v = std::make_shared<Vehicle>(*gVehicles[static_cast<size_t>(sel)]);
        auto editor = std::make_unique<frmVhl>();
        editor->vhl = v;
        v->frm = editor.get();
        editor->Form_Load();
        editor->wLoading = kTrue;
        zSetStartPos(editor->Left, editor->Top, editor->Width, editor->Height);
        editor->zSetUpBaseData();
        editor->zShowStoredDesign();
        editor->wLoading = kFalse;
        editor->zSetSaved(kTrue);
        editor->SSTab1_Click(0);
        if (ShowVehicleEditor) ShowVehicleEditor(std::move(editor));
        zPointerNormal();
        waiting = false;
    });
    if (waiting) zPointerNormal();
}

void frmMain::zDeleteVehicle() { zTrapVoid("zDeleteVehicle", [] { bw::zDeleteVehicle(); }); }

int16_t frmMain::zPickDesign(DesignKind kind, const std::string& caption, const std::string& action) {
    return zTrap<int16_t>("zPickDesign", -1, [&]() -> int16_t {
        if (kind == DesignKind::Vehicle) return zShowPicker<frmVOpen>(caption, action, ShowVehiclePicker);
        return zShowPicker<frmFOpen>(caption, action, ShowFighterPicker);
    });
}

void frmMain::RequestUnload() {
    bool cancel = false;
    Form_Unload(cancel);
    if (!cancel && CloseWindow) CloseWindow();
}

void frmMain::Form_Unload(bool& cancel) {
    cancel = false;
    auto& forms = gForms();
    // Walk from the last loaded window to the first. An editor that unloads
    // takes itself out of the list, so the position is read again after
    // asking: a window still there and unsaved refuses the shutdown, but the
    // walk goes on so every editor is asked.
    for (size_t n = forms.size(); n-- > 0;) {
        if (n >= forms.size()) continue;  // the window at this position has gone
        IForm* f = forms[n];
        if (f == this) continue;
        const std::string name = f->FormName();
        if (name == "frmVhl" || name == "frmFtr") {
            f->RequestUnload();
            if (n < forms.size() && forms[n] == f && !f->IsSaved()) cancel = true;
        } else {
            f->RequestUnload();
            if (n < forms.size() && forms[n] == f) UnregisterForm(f);
        }
    }
    zTrapVoid("Main.Unload", [] {
        if (gOpenLast == 1) gSettingsStore().Set("General", "LastDB", gDatabasePath);
    });
    wUnloadCancelled = cancel;
}

}  // namespace bw
