// bwtool's answers to the program's services: a message box becomes one line
// on standard error, questions are answered No (nothing is agreed to that
// nobody asked for), dialogs are cancelled.
#pragma once

#include <cstdio>
#include <string>

#include "core/Ui.h"

namespace bwtool {

class ConsoleUi final : public bw::IUi {
public:
    int boxes = 0;
    bw::MsgResult MsgBox(const std::string& text, bw::MsgButtons buttons, bw::MsgIcon,
                         const std::string& title) override {
        ++boxes;
        std::string t = text;
        for (char& ch : t)
            if (ch == '\n' || ch == '\t') ch = ' ';
        std::fprintf(stderr, "%s: %s\n", title.c_str(), t.c_str());
        return buttons == bw::MsgButtons::OK ? bw::MsgResult::OK : bw::MsgResult::No;
    }
    void Beep() override {}
    std::string OpenFileDialog(const bw::FileDialogRequest&) override { return {}; }
    std::string SaveFileDialog(const bw::FileDialogRequest&) override { return {}; }
    void PointerWait() override {}
    void PointerNormal() override {}
    void DoEvents() override {}
};

}  // namespace bwtool
