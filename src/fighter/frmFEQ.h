// The fighter's equipment allocation window ("Equipment Allocation"): the
// unallocated entries and one list per location, a line per critical slot.
// The user drops entries on a location and double-clicks them out again;
// the design changes only when PButDone closes the window.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "core/Controls.h"
#include "core/Forms.h"
#include "fighter/Fighter.h"
#include "fighter/FighterCrit.h"

namespace bw {

// The text of a slot that holds nothing.
constexpr const char* kEmptySlotText = "----------";

class frmFEQ : public FormModel {
public:
    frmFEQ();
    frmFEQ(const frmFEQ&) = delete;
    frmFEQ& operator=(const frmFEQ&) = delete;

    std::shared_ptr<Fighter> FTR;  // the editor's own design, not a copy

    ListBox LBoxAvail{"LBoxAvail"};
    // i is 0 to 3 (Nose, Left Wing, Right Wing, Rear); any other raises 9.
    ListBox& LBoxLoc(int16_t i);
    Label LHelp{"LHelp"};
    CommandButton PButDone{"PButDone"};
    CommandButton PButCancel{"PButCancel"};

    // Set only when PButDone closed the window.
    bool wDone = false;

    // The slots of this run.
    FighterCrit wCrit;

    // A fresh slot model, a "----------" line per slot, the help text.
    void Form_Load() override;
    void zReloadData();

    // A drag may start only with an entry selected.
    bool LBoxAvail_MouseDown();
    // entering: the drag came over the list (green) or left it.
    void LBoxLoc_DragOver(int16_t i, bool entering);
    // Only a drag from LBoxAvail with a selected entry is taken.
    void LBoxLoc_DragDrop(int16_t i, const Control* source);
    // Takes the selected line's item out of its slot.
    void LBoxLoc_DblClick(int16_t i);
    void PButDone_Click();
    void PButCancel_Click();

private:
    std::array<ListBox, 4> wLocLists;

    const FighterWeapon& zEntry(int32_t listIdx) const;
    // "Name (#n)" of an entry of the design's list.
    std::string zEntryText(int32_t listIdx) const;
    // The line a filled slot shows: one item by name and number, a stack of
    // ammunition by its tons.
    std::string zSlotText(const CritSlot& s) const;
    void zToAvailable(int32_t listIdx);
    // The slot a dropped entry of row wIdx goes to in location i, or -1.
    int16_t zTargetSlot(int16_t i, int16_t wIdx);
};

// Moves the line at i of a list to new text, keeping its data and selection.
void zSetLine(ListBox& box, int32_t i, const std::string& text);

}  // namespace bw
