#include "shell/frmMain.h"

#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "core/Settings.h"
#include "core/Ui.h"
#include "database/DatabaseOps.h"
#include "database/Upgrade.h"
#include "shell/frmFOpen.h"
#include "shell/frmVOpen.h"
#include "vehicle/Vehicle.h"
#include "vehicle/frmNVhl.h"
#include "vehicle/frmVhl.h"
#include "core/EditorParts.h"
#include "core/frmSet.h"
#include "evaluation/frmCost.h"
#include "sheets/frmPVhl.h"
#include "evaluation/frmVStat.h"
#include "fighter/Fighter.h"
#include "fighter/frmFtr.h"
#include "fighter/frmNFtr.h"
#include "search/frmSrch.h"
#include "sheets/frmAAMaker.h"
#include "shell/DotFiles.h"
#include "shell/frmAbout.h"

namespace bw {

namespace {
// The cost window of a fighter editor's design.
std::unique_ptr<FormModel> zFighterCostForm(frmFtr& editor) {
    if (!editor.FTR) return nullptr;
    auto form = std::make_unique<frmCost>();
    zFillFighterCost(*editor.FTR, *form);
    return form;
}

// The tool tip of the commands this program does not have.
constexpr const char* kNotAvailable = "Not available in this version of The Brasswick Works.";

void SetMenu(MenuItem& m, const char* caption, bool enabled = true, bool visible = true) {
    m.SetCaption(caption);
    m.SetEnabled(enabled);
    m.SetVisible(visible);
}
}  // namespace

frmMain::frmMain() : FormModel("frmMain") {
    SetMenu(mnuFile, "&File");
    SetMenu(mnuFileNew, "&New Database");
    SetMenu(mnuFileOpne, "&Open Database");
    // Import of version 2 databases is not available.
    SetMenu(mnuFileOpenV2, "&Open V2 Database", false);
    SetMenu(mnuFileUpgDB, "&Upgrade Existing v3 Database");
    SetMenu(mnuFileExit, "E&xit");
    SetMenu(mnuVhl, "&Vehicle");
    SetMenu(mnuVhlNew, "&New Vehicle");
    SetMenu(mnuVhlOpen, "&Open Vehicle");
    SetMenu(mnuVHlDel, "&Delete Vehicle");
    SetMenu(mnuVhlMultiPrint, "Multi-Print", false);
    SetMenu(mnuFighter, "&Fighter");
    SetMenu(mnuFIghterNew, "&New Fighter");
    SetMenu(mnuFighterOpen, "&Open Fighter");
    SetMenu(mnuFighterDel, "&Delete Fighter");
    SetMenu(mnuFighterMultiPrint, "Multi-Print", false);
    SetMenu(mnuFighterPrintBSpace, "Print Battlespace Sheet", false);
    SetMenu(mnuDropship, "&Dropship");
    SetMenu(mnuWarship, "&Warship");
    SetMenu(mnuSettings, "&Preferences");
    SetMenu(mnuSearch, "&Search");
    SetMenu(mnuAbout, "&About");
    SetMenu(mnuAboutBW, "The Brasswick Works 3.0");
    // The Special menu: the dot table files and the Armor Array Creator
    // work; the other maintenance commands are not part of this program.
    SetMenu(mnuSpecial, "&Special", false, false);
    SetMenu(mnuSpecialImport, "&Import tabbed data", false);
    SetMenu(mnuSpecialWriteData, "Write new datafile", false);
    SetMenu(mnuSpecialNavalWeapons, "Import and Create Naval Weapons", false);
    SetMenu(mnuSpecialNavalItems, "Import and Create Naval Items", false);
    SetMenu(mnuSpecialImportOld, "Import Old Weapons.Dat", false);
    SetMenu(mnuSpecialCreateConvTable, "Create item conversion table", false);
    SetMenu(mnuSpecialCreateArmor, "Create Armor File");
    SetMenu(mnuSpecialCreateInternal, "Create Internal File");
    SetMenu(mnuSpecialArmorArrayCreator, "Display Armor Array Creator");
    for (MenuItem* m : {&mnuFileOpenV2, &mnuFighterPrintBSpace, &mnuSpecialImport, &mnuSpecialWriteData,
                        &mnuSpecialNavalWeapons, &mnuSpecialNavalItems, &mnuSpecialImportOld,
                        &mnuSpecialCreateConvTable})
        m->SetToolTip(kNotAvailable);

    TBarMain = {
        {"butVHLNew", "New Vehicle", true, "vehicle", "new"},
        {"butVHLOpen", "Open Vehicle", true, "vehicle", "open"},
        {"butVHLDel", "Delete Vehicle", true, "vehicle", "delete"},
        {"butNewFtr", "New Fighter", true, "fighter", "new"},
        {"butOpenFtr", "Open Fighter", true, "fighter", "open"},
        {"butDelFtr", "Delete Fighter", true, "fighter", "delete"},
        {"butNewDS", "New DropShip", true, "dropship", "new"},
        {"butOpenDS", "Open DropShip", true, "dropship", "open"},
        {"butDelDS", "Delete DropShip", true, "dropship", "delete"},
        {"butNewWar", "New WarShip", true, "warship", "new"},
        {"butOpenWar", "Open WarShip", true, "warship", "open"},
        {"butDelWar", "Delete WarShip", true, "warship", "delete"},
    };

    mnuFileNew.Click = [this] { mnuFileNew_Click(); };
    mnuFileOpne.Click = [this] { mnuFileOpne_Click(); };
    mnuFileUpgDB.Click = [this] { mnuFileUpgDB_Click(); };
    mnuVhlNew.Click = [this] { zNewVehicle(); };
    mnuVhlOpen.Click = [this] { zOpenVehicle(); };
    mnuVHlDel.Click = [this] { zDeleteVehicle(); };
    mnuFIghterNew.Click = [this] { zNewFighter(); };
    mnuFighterOpen.Click = [this] { zOpenFighter(); };
    mnuFighterDel.Click = [this] { zDeleteFighter(); };
    // Exit only asks the main window to unload; the walk decides.
    mnuFileExit.Click = [this] { Unload(); };
    mnuSettings.Click = [this] {
        frmSet dlg;
        zShowModal(dlg);
    };
    mnuSearch.Click = [this] { zShowSearch(); };
    mnuAboutBW.Click = [this] {
        frmAbout dlg;
        zShowModal(dlg);
    };
    mnuSpecialCreateArmor.Click = [] { zCreateDotFile(false); };
    mnuSpecialCreateInternal.Click = [] { zCreateDotFile(true); };
    mnuSpecialArmorArrayCreator.Click = [this] { zShowModeless(std::make_unique<frmAAMaker>(), this); };

    PBarMainProg.SetVisible(false);
    LProgInfo.SetVisible(false);
    // The editors' report windows sit above the designs; the main window
    // knows both and makes them.
    RegisterFormFactory("frmCost", [](FormModel& owner) -> std::unique_ptr<FormModel> {
        if (auto* fighter = dynamic_cast<frmFtr*>(&owner)) return zFighterCostForm(*fighter);
        auto* editor = dynamic_cast<frmVhl*>(&owner);
        if (!editor || !editor->vhl) return nullptr;
        auto form = std::make_unique<frmCost>();
        zFillVehicleCost(*editor->vhl, *form);
        return form;
    });
    // The print command runs its own windows and jobs; nothing is left to show.
    RegisterFormFactory("frmPVhl", [](FormModel& owner) -> std::unique_ptr<FormModel> {
        auto* editor = dynamic_cast<frmVhl*>(&owner);
        if (editor && editor->vhl) zCmdPrintVehicle(*editor->vhl, owner);
        return nullptr;
    });
    RegisterFormFactory("frmVStat", [](FormModel& owner) -> std::unique_ptr<FormModel> {
        auto* editor = dynamic_cast<frmVhl*>(&owner);
        if (!editor || !editor->vhl) return nullptr;
        auto form = std::make_unique<frmVStat>();
        form->vhl = editor->vhl.get();
        return form;
    });
}

frmMain::~frmMain() { SetMainProgressHook({}); }

std::vector<frmMain::Menu> frmMain::Menus() {
    return {
        {&mnuFile, {&mnuFileNew, &mnuFileOpne, &mnuFileOpenV2, &mnuFileUpgDB, nullptr, &mnuFileExit}},
        {&mnuVhl, {&mnuVhlNew, &mnuVhlOpen, &mnuVHlDel, nullptr, &mnuVhlMultiPrint}},
        {&mnuFighter,
         {&mnuFIghterNew, &mnuFighterOpen, &mnuFighterDel, nullptr, &mnuFighterMultiPrint, &mnuFighterPrintBSpace}},
        {&mnuDropship, {}},
        {&mnuWarship, {}},
        {&mnuSettings, {}, false},
        {&mnuSearch, {}, false},
        {&mnuAbout, {&mnuAboutBW}},
        {&mnuSpecial,
         {&mnuSpecialImport, &mnuSpecialWriteData, &mnuSpecialNavalWeapons, &mnuSpecialNavalItems,
          &mnuSpecialImportOld, &mnuSpecialCreateConvTable, &mnuSpecialCreateArmor, &mnuSpecialCreateInternal,
          &mnuSpecialArmorArrayCreator}},
    };
}

void frmMain::RefreshCaption() {
    Window.SetCaption(zAppTitle() + " - " + gDatabasePath);
    LDatabase.SetCaption(gDatabasePath.empty()
                             ? "No database open. Use File > New Database or File > Open Database."
                             : "Database: " + gDatabasePath);
}

void frmMain::Form_Load() {
    Top = 500;
    Left = 500;
    Height = 1185;
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
        else if (key == "butNewFtr") zNewFighter();
        else if (key == "butOpenFtr") zOpenFighter();
        else if (key == "butDelFtr") zDeleteFighter();
        else if (key == "butNewDS" || key == "butOpenDS" || key == "butDelDS" || key == "butNewWar" ||
            key == "butOpenWar" || key == "butDelWar")
            Unimplemented();
    });
}

void frmMain::zOpenDatabase(const std::string& path) {
    bw::zOpenDatabase(path);
    RefreshCaption();
}

void frmMain::mnuFileUpgDB_Click() {
    zTrapVoid("mnuFileUpgDB_Click", [&] {
        const std::string path = zDlgOpenFile("Open Database", 0, "Brasswick Works Databases (*.bwd)|*.bwd");
        if (!path.empty()) zCheckUpgrade(path);
    });
    RefreshCaption();
}

void frmMain::mnuFileNew_Click() {
    zTrapVoid("mnuFileNew_Click", [] { zNewDB(); });
    RefreshCaption();
}

void frmMain::mnuFileOpne_Click() {
    zTrapVoid("mnuFileOpne_Click", [&] {
        std::string path = zDlgOpenFile("Open Database", 0, "Brasswick Works Databases (*.bwd)|*.bwd");
        if (!path.empty()) zOpenDatabase(path);
    });
}

// ---- Vehicle commands -------------------------------------------------------

void frmMain::zShowEditor(std::unique_ptr<frmVhl> editor) { zShowModeless(std::move(editor), this); }

void frmMain::zNewVehicle() {
    bool waiting = false;
    zTrapVoid("zNewVehicle", [&] {
        frmNVhl dlg;
        zShowModal(dlg);
        if (dlg.wCancel != 0) return;

        zPointerWait();
        waiting = true;
        auto editor = frmVhl::zNewDesign(dlg.TechBase(), dlg.TechLevel(), dlg.VhlType());
        zSetStartPos(editor->Left, editor->Top, editor->Width, editor->Height);
        editor->SSTab1_Click(0);
        zShowEditor(std::move(editor));
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
        zOpenStoredVehicle(*gVehicles[static_cast<size_t>(sel)]);
        zPointerNormal();
        waiting = false;
    });
    if (waiting) zPointerNormal();
}

void frmMain::zOpenStoredVehicle(const Vehicle& stored) {
    auto editor = frmVhl::zOpenDesign(stored);
    zSetStartPos(editor->Left, editor->Top, editor->Width, editor->Height);
    editor->SSTab1_Click(0);
    zShowEditor(std::move(editor));
}

void frmMain::zShowSearch() {
    zTrapVoid("mnuSearch_Click", [&] {
        // One search window: a second command brings the first back.
        for (FormModel* f : gForms())
            if (f->FormName() == "frmSrch") {
                f->Show();
                return;
            }
        auto srch = std::make_unique<frmSrch>();
        srch->OpenVehicle = [this](const Vehicle& v) { zOpenStoredVehicle(v); };
        zShowModeless(std::move(srch), this);
    });
}

namespace {

const char* VehicleTypeWord(int16_t t) {
    static const char* const words[] = {"tracked vehicle", "wheeled vehicle", "hovercraft", "V.T.O.L.",
                                        "hydrofoil",       "ship",            "submarine",  "super heavy tank"};
    return t >= 0 && t < 8 ? words[t] : "";
}

const char* FighterTypeWord(int16_t t) {
    static const char* const words[] = {"conventional fighter", "aerospace fighter", "omni-fighter"};
    return t >= 0 && t < 3 ? words[t] : "";
}

// The overwrite question; true when the user agrees.
bool AskOverwrite(int16_t techBase, const char* typeWord, const std::string& name) {
    // The two blanks after "already" are the program's own.
    const std::string text = std::string("There is already ") + (techBase == 0 ? " an Inner Sphere " : " a Clan ") +
                             typeWord + " named " + name + " in this database, would you like to overwrite it?";
    return zMsgBox(text, MsgButtons::YesNo, MsgIcon::Question, "Overwrite?") == MsgResult::Yes;
}

bool AskDelete(const std::string& question, const std::string& lead, const std::string& name) {
    return zMsgBox(lead + name + "?", MsgButtons::YesNo, MsgIcon::Question, question) == MsgResult::Yes;
}

}  // namespace

void frmMain::zSaveVehicle(const std::shared_ptr<Vehicle>& v, bool& ok) {
    ok = false;
    if (!v) return;
    zTrapVoid("zSaveVehicle", [&] {
        const int16_t match = zFindVehicle(*v);
        if (match >= 0 && !AskOverwrite(v->TechBase, VehicleTypeWord(v->VhlType), v->Name)) return;
        ok = zStoreVehicle(*v, match);
    });
}

void frmMain::zSaveFighter(const std::shared_ptr<Fighter>& f, bool& ok) {
    ok = false;
    if (!f) return;
    zTrapVoid("zSaveFighter", [&] {
        const int16_t match = zFindFighter(*f);
        if (match >= 0 && !AskOverwrite(f->TechBase, FighterTypeWord(f->FighterType), f->Name)) return;
        ok = zStoreFighter(*f, match);
    });
}

bool frmMain::zSaveDesign(FormModel& editor) {
    bool ok = false;
    if (auto* v = dynamic_cast<frmVhl*>(&editor)) zSaveVehicle(v->vhl, ok);
    else if (auto* f = dynamic_cast<frmFtr*>(&editor)) zSaveFighter(f->FTR, ok);
    return ok;
}

// ---- Fighter commands ---------------------------------------------------------

void frmMain::zNewFighter() {
    bool waiting = false;
    zTrapVoid("zNewFighter", [&] {
        frmNFtr dlg;
        zShowModal(dlg);
        if (dlg.wCancel != 0) return;
        zPointerWait();
        waiting = true;
        auto editor = frmFtr::zNewDesign(zCreateFighter(dlg));
        zSetStartPos(editor->Left, editor->Top, editor->Width, editor->Height);
        zShowModeless(std::move(editor), this);
        zPointerNormal();
        waiting = false;
    });
    if (waiting) zPointerNormal();
}

void frmMain::zOpenFighter() {
    bool waiting = false;
    zTrapVoid("zOpenFighter", [&] {
        const int16_t sel = zPickFighterToOpen();
        if (sel < 0 || static_cast<size_t>(sel) >= gFighters.size() || !gFighters[static_cast<size_t>(sel)]) return;
        zPointerWait();
        waiting = true;
        auto editor = frmFtr::zOpenDesign(*gFighters[static_cast<size_t>(sel)]);
        zSetStartPos(editor->Left, editor->Top, editor->Width, editor->Height);
        zShowModeless(std::move(editor), this);
        zPointerNormal();
        waiting = false;
    });
    if (waiting) zPointerNormal();
}

void frmMain::zDeleteVehicle() {
    zTrapVoid("zDeleteVehicle", [&] {
        const int16_t sel = zPickVehicle("Delete Vehicle", "&Delete");
        if (sel < 0 || !gVehicles[static_cast<size_t>(sel)]) return;
        if (!AskDelete("Delete Vehicle?", "Are you sure you want to delete the vehicle named ",
                       gVehicles[static_cast<size_t>(sel)]->Name))
            return;
        zDropVehicle(sel);
    });
}

void frmMain::zDeleteFighter() {
    zTrapVoid("zDeleteFighter", [&] {
        const int16_t sel = zPickFighter("Delete Fighter", "&Delete");
        if (sel < 0 || !gFighters[static_cast<size_t>(sel)]) return;
        if (!AskDelete("Delete Fighter?", "Are you sure you want to delete the fighter named ",
                       gFighters[static_cast<size_t>(sel)]->Name))
            return;
        zDropFighter(sel);
    });
}

int16_t frmMain::zPickVehicle(const std::string& caption, const std::string& action) {
    return zTrap<int16_t>("zPickDesign", -1, [&]() -> int16_t {
        const int16_t sel = zShowPicker<frmVOpen>(caption, action);
        return sel >= 0 && static_cast<size_t>(sel) < gVehicles.size() ? sel : -1;
    });
}

int16_t frmMain::zPickFighter(const std::string& caption, const std::string& action) {
    return zTrap<int16_t>("zPickDesign", -1, [&]() -> int16_t {
        const int16_t sel = zShowPicker<frmFOpen>(caption, action);
        return sel >= 0 && static_cast<size_t>(sel) < gFighters.size() ? sel : -1;
    });
}

int16_t frmMain::zPickVehicleToOpen() {
    return zTrap<int16_t>("zOpenVehicle", -1, [&]() -> int16_t {
        if (zNoVehicles()) {
            zMsgBox("There are no vehicles within this database.", MsgButtons::OK, MsgIcon::Information,
                    "No Vehicles");
            return -1;
        }
        return zPickVehicle("Open Vehicle", "&Open");
    });
}

int16_t frmMain::zPickFighterToOpen() {
    return zTrap<int16_t>("zOpenFighter", -1, [&]() -> int16_t {
        if (zNoFighters()) {
            zMsgBox("There are no fighters within this database.", MsgButtons::OK, MsgIcon::Information,
                    "No Fighters");
            return -1;
        }
        return zPickFighter("Open Fighter", "&Open");
    });
}

void frmMain::Form_QueryUnload(bool& cancel) {
    cancel = false;
    auto& forms = gForms();
    // Walk from the last loaded window to the first. An editor that unloads
    // takes itself out of the list, so the position is read again after
    // asking: a window still there and unsaved refuses the shutdown, but the
    // walk goes on so every editor is asked.
    for (size_t n = forms.size(); n-- > 0;) {
        if (n >= forms.size()) continue;  // the window at this position has gone
        FormModel* f = forms[n];
        if (f == this) continue;
        const std::string name = f->FormName();
        f->Unload();
        if (n < forms.size() && forms[n] == f) {
            if (name == "frmVhl" || name == "frmFtr") {
                if (!f->IsSaved()) cancel = true;
            } else {
                std::erase(forms, f);
            }
        }
    }
    zTrapVoid("Main.Unload", [] {
        if (gOpenLast == 1) gSettingsStore().Set("General", "LastDB", gDatabasePath);
    });
    wUnloadCancelled = cancel;
}

}  // namespace bw
