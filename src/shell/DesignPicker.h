// What the vehicle and fighter pickers share: the buttons, the result, the
// size rule, the rows built from a design table and the modal show. Each
// picker keeps its own list view (lvVHLs, lvFTRs) and open command.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Errors.h"
#include "core/Forms.h"

namespace bw {

class DesignPicker : public FormModel {
public:
    // Size in twips; Form_Resize keeps the minimum and lays out the list.
    int32_t Width = 6000, Height = 2895;
    int32_t lvWidth = 0, lvHeight = 0, ButtonTop = 0;

    CommandButton PButOpen{"PButOpen"};
    CommandButton PButCancel{"PButCancel"};

    // The result: wCancel true when nothing was picked; wSel the index of
    // the picked design in its table.
    int16_t wCancel = -1;
    int16_t wSel = -1;

    void Form_Resize();
    // The picker's own list view (lvVHLs, lvFTRs).
    virtual ListView& List() = 0;

protected:
    DesignPicker(std::string name, const std::string& caption) : FormModel(std::move(name)) {
        Window.SetCaption(caption);
    }
    // Called from the picker's constructor body, once its list view exists.
    void Wire(ListView& list, std::function<void()> open);
    void Activate(ListView& list);
    // Takes the selected row's key ("v" and the table index) as the result.
    void OpenSelected(const ListView& list);

    // One row per design with a name: key "v" and its index, then base,
    // type, tonnage and speeds.
    template <class Design, class TypeName>
    static void FillRows(ListView& list, const std::vector<std::shared_ptr<Design>>& table, TypeName typeName) {
        list.Clear();
        for (size_t i = 0; i < table.size(); ++i) {
            const Design* d = table[i].get();
            if (!d || d->Name.empty()) continue;
            // The key ties the row to its design, whatever order the rows take.
            ListView::ListItem& row = list.Add("v" + std::to_string(i), d->Name);
            row.SetSubItem(1, d->TechBase == 1 ? "Clan" : "IS");
            row.SetSubItem(3, std::to_string(d->Tonnage));
            row.SetSubItem(4, std::to_string(d->CruiseSpeed) + "/" + std::to_string(d->FlankSpeed));
            row.SetSubItem(2, typeName(*d));
        }
        list.Refresh();
    }

private:
    std::function<void()> open_;
};

// Shows a picker modally with the given caption and action button, puts
// them back to the picker's own caption and "&Open" afterwards, and returns
// the index of the picked design or -1.
template <class Picker>
int16_t zShowPicker(const std::string& caption, const std::string& action) {
    Picker dlg;
    const std::string ownCaption = dlg.Window.Caption();
    dlg.Window.SetCaption(caption);
    dlg.PButOpen.SetCaption(action);
    zShowModal(dlg);
    dlg.Window.SetCaption(ownCaption);
    dlg.PButOpen.SetCaption("&Open");
    return dlg.wCancel ? int16_t{-1} : dlg.wSel;
}

}  // namespace bw
