// The equipment allocation window: one list of unallocated items and one
// list per location of the vehicle. The user moves entries between them; the
// design's places change only when the window is closed with PButDone, so
// closing it any other way leaves the design as it was.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"
#include "vehicle/Vehicle.h"

namespace bw {

class frmVhl;

class frmVEQ : public FormModel {
public:
    frmVEQ();

    std::shared_ptr<Vehicle> vhl;  // the editor's own design, not a copy

    ListBox LBoxAvail{"LBoxAvail"};
    // i is 0 to 7 or 99 (body); any other index raises 9.
    ListBox& LBoxLoc(int16_t i);
    Label& LLocDesc(int16_t i);
    Label LSponsonLeftTonnage{"LSponsonLeftTonnage"}, LSponsonRightTonnage{"LSponsonRightTonnage"};
    CommandButton PButDone{"PButDone"};
    // The keyboard's way to do what the drag and the double click do: the
    // location chooser and Move put the selected unallocated entry there,
    // under the drop's rules; Take Back returns the selected entry of the
    // location list last chosen. Enter in a list does the same.
    Label LMoveTo{"LMoveTo"}, LHint{"LHint"};
    ComboBox cmboMoveTo{"cmboMoveTo"};
    CommandButton PButMove{"PButMove"}, PButTakeBack{"PButTakeBack"};
    int16_t wActiveLoc = -1;

    // Set only when PButDone closed the window: the editor then refreshes.
    bool wDone = false;
    // The names that may go in a V.T.O.L.'s mast mount, by tech base.
    std::vector<std::string> wMastMount;
    void Form_Load() override;
    void zReloadData();
    void zCheckSponsonTonnage();
    void zUpdateWeaponLocs();

    // A drag may start only with an entry selected.
    bool LBoxAvail_MouseDown();
    // entering: the drag came over the list (green) or left it (white).
    // Returns whether the list takes drops.
    bool LBoxLoc_DragOver(int16_t i, bool entering);
    // Only a drag from LBoxAvail with a selected entry is taken.
    void LBoxLoc_DragDrop(int16_t i, const Control* source);
    // Moves the selected entry of a location back to LBoxAvail.
    void LBoxLoc_DblClick(int16_t i);
    void PButDone_Click();
    void PButMove_Click();
    void PButTakeBack_Click();

private:
    std::array<ListBox, 8> wLocLists;
    ListBox wBodyList{"LBoxLoc(99)"};
    std::array<Label, 8> wLocDescs;
    Label wBodyDesc{"LLocDesc(99)"};

    // The entry's text for the item at element idx of the design.
    std::string zEntryText(int16_t idx) const;
    const VehicleItem& zItem(int32_t idx) const;
    // Moves the selected entry of from to the end of to, text and element
    // index together.
    static void zMoveSelected(ListBox& from, ListBox& to);
    std::string zListTonnage(const ListBox& box) const;
};

// What the editor's PButAllocate runs: a window on the editor's design,
// shown modal, and the editor refreshed when PButDone closed it.
void zRunAllocation(frmVhl& editor);

}  // namespace bw
