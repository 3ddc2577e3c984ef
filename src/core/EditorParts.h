// The parts every design editor shares: the text-box checks, the focus
// colours, expand and collapse of the equipment trees, the option box and
// the equipment keys. The vehicle and fighter editors use them unchanged.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"

namespace bw {

// Holds a text box's value to lower..upper: a non-numeric text becomes the
// lower limit; with strip, leading zeros go and an empty or all-zero text
// shows the lower limit. Never refuses: it corrects the text.
void zCheckTextBox(TextBox& box, int16_t lower, int16_t upper, bool strip);

// The editors' text boxes show the inactive colours, and the active ones
// while they hold the focus. A LostFocus already set still runs after.
void zWireFocusColours(const std::vector<TextBox*>& boxes);

// Expand All and Collapse All of a tree's groups. The keys are taken first:
// opening a group of the available tree fills it, which moves the nodes
// under the walk.
void zExpandAll(TreeView& tv, bool open);

// The keys of the equipment trees: Enter on a group opens or closes it,
// Enter on an item of the available tree adds it and on a mounted item
// removes it, as does Delete. Keys the trees take go no further.
void zWireEquipmentKeys(TreeView& avail, TreeView& mounted, std::function<void()> add,
                        std::function<void()> remove);

// Rebuilds a tree that is cleared and refilled (the mounted equipment)
// without losing the user's place: the groups open before stay open, a
// group that receives an item (new, or moved from another group) opens, and
// the selection stays, or, when its node went, passes to the node that took
// its place in its group (then the one before it, then the group).
void zRebuildKeepingState(TreeView& tv, const std::function<void()>& rebuild);

// Equipment keys: "w" and the weapon row for a row of the available tree,
// "w", row, "-", instance number for a mounted item.
std::string zRowKey(int16_t row);
std::string zItemKey(int16_t row, int16_t num);
// Reads either key; num is 0 for a row key. False for any other key (a
// group or a placeholder) and for numbers out of 16-bit range.
bool zParseItemKey(const std::string& key, int16_t& row, int16_t& num);

// An option that refuses another: when holds() is true, setting the box is
// refused with message.
struct OptionExclusion {
    std::function<bool()> holds;
    const char* message;
};

// The pattern of the option boxes: on being set, the first exclusion that
// holds refuses with its message (critical, under title) and clears the box;
// otherwise, and on being cleared, apply runs with the box's value and true
// is returned. refusing is raised while the program clears the box, so the
// box's own handler can ignore that click.
bool zOptionBox(CheckBox& box, const char* title, const std::vector<OptionExclusion>& tests, int16_t& refusing,
                const std::function<void(int16_t)>& apply);

// An editor's save: its own checks (validate is false to refuse, having
// said why), then the save command of the window that opened it. True when
// the design reached the database.
bool zSaveEditor(FormModel& editor, const std::function<bool()>& validate);

// The close question of an editor with unsaved work ("This vehicle is not
// yet saved, would you like to save it?"): Yes saves as zSaveEditor does,
// No lets the work go, Cancel keeps the window. cancel is set when the
// window must stay; saved runs after a save that worked.
void zAskSaveOnClose(FormModel& editor, const std::string& what, const std::function<bool()>& validate,
                     const std::function<void()>& saved, bool& cancel);

}  // namespace bw
