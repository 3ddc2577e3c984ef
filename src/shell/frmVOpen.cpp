#include "shell/frmVOpen.h"

#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "database/DatabaseOps.h"
#include "vehicle/Vehicle.h"

namespace bw {

frmVOpen::frmVOpen() {
    lvVHLs.ColumnHeaders = {"Name", "Base", "Type", "Tonnage", "Speed"};
    PButOpen.SetCaption("&Open");
    PButOpen.Default = true;
    PButCancel.SetCaption("&Cancel");
    PButCancel.Cancel = true;
    // A click on a row is what makes the action button, and with it the
    // double click, available.
    lvVHLs.ItemClick = [this](int32_t) { PButOpen.SetEnabled(true); };
    lvVHLs.DblClick = [this] { lvVHLs_DblClick(); };
    lvVHLs.ColumnClick = [this](int32_t column) { lvVHLs.SortByColumn(column, true); };
    PButOpen.Click = [this] { zOpenVHL(); };
    PButCancel.Click = [this] {
        wCancel = kTrue;
        Visible = false;
    };
    Form_Resize();
}

void frmVOpen::Form_Activate() {
    zLoadData();
    PButOpen.SetEnabled(false);
    lvVHLs.FullRowSelect = true;
}

void frmVOpen::Form_Resize() {
    if (Height < 2895) Height = 2895;
    if (Width < 6000) Width = 6000;
    lvWidth = Width - 360;
    ButtonTop = Height - 900;
    lvHeight = ButtonTop - 240;
}

void frmVOpen::zLoadData() {
    lvVHLs.Clear();
    for (size_t i = 0; i < gVehicles.size(); ++i) {
        const Vehicle* v = gVehicles[i].get();
        if (!v || v->Name.empty()) continue;
        // The key ties the row to its design, whatever order the rows take.
        ListView::ListItem& row = lvVHLs.Add("v" + std::to_string(i), v->Name);
        row.SetSubItem(1, v->TechBase == 1 ? "Clan" : "IS");
        row.SetSubItem(3, std::to_string(v->Tonnage));
        row.SetSubItem(4, std::to_string(v->CruiseSpeed) + "/" + std::to_string(v->FlankSpeed));
        row.SetSubItem(2, zVehicleTypeName(v->VhlType));
    }
    lvVHLs.Refresh();
}

void frmVOpen::zOpenVHL() {
    const ListView::ListItem* row = lvVHLs.SelectedItem();
    if (!row || row->Key.size() < 2) return;
    wSel = zI16(std::stoll(row->Key.substr(1)));
    wCancel = kFalse;
    Visible = false;
}

void frmVOpen::lvVHLs_DblClick() {
    if (PButOpen.Enabled()) zOpenVHL();
}

int16_t zShowVOpen(const std::string& caption, const std::string& action,
                   const std::function<void(frmVOpen&)>& showModal) {
    frmVOpen dlg;
    dlg.Caption = caption;
    dlg.PButOpen.SetCaption(action);
    dlg.Visible = true;
    if (showModal) showModal(dlg);
    dlg.Visible = false;
    dlg.Caption = "Open Vehicle";
    dlg.PButOpen.SetCaption("&Open");
    return dlg.wCancel ? int16_t{-1} : dlg.wSel;
}

}  // namespace bw
