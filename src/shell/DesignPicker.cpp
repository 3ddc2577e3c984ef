#include "shell/DesignPicker.h"

namespace bw {

void DesignPicker::Wire(ListView& list, std::function<void()> open) {
    open_ = std::move(open);
    list.ColumnHeaders = {"Name", "Base", "Type", "Tonnage", "Speed"};
    PButOpen.SetCaption("&Open");
    PButOpen.Default = true;
    PButCancel.SetCaption("&Cancel");
    PButCancel.Cancel = true;
    // A click on a row is what makes the action button, and with it the
    // double click, available.
    list.ItemClick = [this](int32_t) { PButOpen.SetEnabled(true); };
    list.DblClick = [this] {
        if (PButOpen.Enabled()) open_();
    };
    list.ColumnClick = [&list](int32_t column) { list.SortByColumn(column, true); };
    PButOpen.Click = [this] { open_(); };
    PButCancel.Click = [this] {
        wCancel = kTrue;
        Hide();
    };
    Form_Resize();
}

void DesignPicker::Activate(ListView& list) {
    PButOpen.SetEnabled(false);
    list.FullRowSelect = true;
    list.Refresh();
}

void DesignPicker::Form_Resize() {
    if (Height < 2895) Height = 2895;
    if (Width < 6000) Width = 6000;
    lvWidth = Width - 360;
    ButtonTop = Height - 900;
    lvHeight = ButtonTop - 240;
}

void DesignPicker::OpenSelected(const ListView& list) {
    const ListView::ListItem* row = list.SelectedItem();
    if (!row || row->Key.size() < 2) return;
    wSel = zI16(std::stoll(row->Key.substr(1)));
    wCancel = kFalse;
    Hide();
}

}  // namespace bw
