#include "shell/frmFOpen.h"

#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "database/DatabaseOps.h"
#include "fighter/Fighter.h"

namespace bw {

frmFOpen::frmFOpen() {
    lvFTRs.ColumnHeaders = {"Name", "Base", "Type", "Tonnage", "Speed"};
    PButOpen.SetCaption("&Open");
    PButOpen.Default = true;
    PButCancel.SetCaption("&Cancel");
    PButCancel.Cancel = true;
    // A click on a row is what makes the action button, and with it the
    // double click, available.
    lvFTRs.ItemClick = [this](int32_t) { PButOpen.SetEnabled(true); };
    lvFTRs.DblClick = [this] { lvFTRs_DblClick(); };
    lvFTRs.ColumnClick = [this](int32_t column) { lvFTRs.SortByColumn(column, true); };
    PButOpen.Click = [this] { zOpenFTR(); };
    PButCancel.Click = [this] {
        wCancel = kTrue;
        Visible = false;
    };
    Form_Resize();
}

void frmFOpen::Form_Activate() {
    zLoadData();
    PButOpen.SetEnabled(false);
    lvFTRs.FullRowSelect = true;
}

void frmFOpen::Form_Resize() {
    if (Height < 2895) Height = 2895;
    if (Width < 6000) Width = 6000;
    lvWidth = Width - 360;
    ButtonTop = Height - 900;
    lvHeight = ButtonTop - 240;
}

void frmFOpen::zLoadData() {
    lvFTRs.Clear();
    for (size_t i = 0; i < gFighters.size(); ++i) {
        const Fighter* v = gFighters[i].get();
        if (!v || v->Name.empty()) continue;
        // The key ties the row to its design, whatever order the rows take.
        ListView::ListItem& row = lvFTRs.Add("v" + std::to_string(i), v->Name);
        row.SetSubItem(1, v->TechBase == 1 ? "Clan" : "IS");
        row.SetSubItem(3, std::to_string(v->Tonnage));
        row.SetSubItem(4, std::to_string(v->CruiseSpeed) + "/" + std::to_string(v->FlankSpeed));
        row.SetSubItem(2, zFighterTypeName(v->FighterType));
    }
    lvFTRs.Refresh();
}

void frmFOpen::zOpenFTR() {
    const ListView::ListItem* row = lvFTRs.SelectedItem();
    if (!row || row->Key.size() < 2) return;
    wSel = zI16(std::stoll(row->Key.substr(1)));
    wCancel = kFalse;
    Visible = false;
}

void frmFOpen::lvFTRs_DblClick() {
    if (PButOpen.Enabled()) zOpenFTR();
}

int16_t zShowFOpen(const std::string& caption, const std::string& action,
                   const std::function<void(frmFOpen&)>& showModal) {
    frmFOpen dlg;
    dlg.Caption = caption;
    dlg.PButOpen.SetCaption(action);
    dlg.Visible = true;
    if (showModal) showModal(dlg);
    dlg.Visible = false;
    dlg.Caption = "Open Fighter";
    dlg.PButOpen.SetCaption("&Open");
    return dlg.wCancel ? int16_t{-1} : dlg.wSel;
}

}  // namespace bw
