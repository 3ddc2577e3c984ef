// Shared helpers of the editor tests: a message box as one comparable
// value, the lines of a list, and the user's way of mounting an item.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Errors.h"
#include "refdata/Weapons.h"
#include "support/FakeUi.h"
#include "vehicle/frmVhl.h"

namespace bw::test {

// Title, text and icon of a message box.
struct Shown {
    std::string title, text;
    MsgIcon icon = MsgIcon::None;
    bool operator==(const Shown&) const = default;
};
inline std::ostream& operator<<(std::ostream& os, const Shown& s) {
    return os << "[" << s.title << "] " << s.text << " (icon " << static_cast<int>(s.icon) << ")";
}
inline Shown LastShown(const FakeUi& ui) {
    if (ui.boxes.empty()) return {"<no box>", "", MsgIcon::None};
    const RecordedBox& b = ui.boxes.back();
    return {b.title, b.text, b.icon};
}

inline std::vector<std::string> Lines(const ListControl& c) {
    std::vector<std::string> v;
    for (int32_t i = 0; i < c.ListCount(); ++i) v.push_back(c.List(i));
    return v;
}

// Opens the item's group, selects it and presses Add.
inline void AddItem(frmVhl& e, int16_t row) {
    const std::string group = "node" + std::to_string(gWeapons[static_cast<size_t>(row)].Type);
    e.tvAvailEq.SetExpanded(group, true);
    e.tvAvailEq.Select("w" + std::to_string(row));
    e.PButEquipment[0].DoClick();
}

// What the allocation window leaves behind: the item in its place and the
// editor refreshed.
inline void PlaceItem(frmVhl& e, int16_t row, int16_t num, int16_t loc) {
    Vehicle& v = *e.vhl;
    for (size_t i = 0; i < v.Items.size(); ++i)
        if (v.Items[i].wStatus == bw::kTrue && v.Items[i].wType == row && v.Items[i].wNum == num)
            v.UpdateWeaponLocation(static_cast<int16_t>(i), loc);
    v.CalcWeaponTonnages();
    e.zUpdateWeapons();
}

}  // namespace bw::test
