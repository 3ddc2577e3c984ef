// The window system's answers to the rules' services, with Qt.
#pragma once

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
};

}  // namespace bw::qt
