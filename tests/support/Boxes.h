// The message boxes a FakeUi recorded, as plain values: one comparison
// pins title, text, icon and buttons of every box shown, in order.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "core/Errors.h"
#include "support/FakeUi.h"

namespace bw::test {

struct Box {
    std::string title, text;
    MsgIcon icon = MsgIcon::None;
    MsgButtons buttons = MsgButtons::OK;
    bool operator==(const Box&) const = default;
};

inline std::ostream& operator<<(std::ostream& os, const Box& b) {
    return os << "[" << b.title << "] " << b.text << " (icon " << static_cast<int>(b.icon) << ", buttons "
              << static_cast<int>(b.buttons) << ")";
}

// The boxes shown so far; the record is emptied for the next step.
inline std::vector<Box> TakeBoxes(FakeUi& ui) {
    std::vector<Box> out;
    for (const RecordedBox& b : ui.boxes) out.push_back({b.title, b.text, b.icon, b.buttons});
    ui.boxes.clear();
    return out;
}

// The error reporter's box for a trapped run-time error.
inline Box ReportBox(const std::string& procName, int32_t number, const std::string& description) {
    return {"Error", zErrorReportText(procName, number, description), MsgIcon::Critical};
}

}  // namespace bw::test
