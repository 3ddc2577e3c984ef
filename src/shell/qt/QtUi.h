// The window system's answers to the rules' services, with Qt.
#pragma once

#include <functional>

#include "core/Ui.h"

namespace bw::qt {

class QtUi final : public IUi {
public:
    MsgResult MsgBox(const std::string& text, MsgButtons buttons, MsgIcon icon, const std::string& title) override;
    void Beep() override;
    std::string OpenFileDialog(const FileDialogRequest& req) override;
    std::string SaveFileDialog(const FileDialogRequest& req) override;
    void PointerWait() override;
    void PointerNormal() override;
    void DoEvents() override;

    // Runs after pending events are processed (the splash refreshes here).
    std::function<void()> OnDoEvents;
};

}  // namespace bw::qt
