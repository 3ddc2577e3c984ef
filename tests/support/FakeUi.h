// A scripted stand-in for the window system: records every message box,
// beep and dialog, and answers questions and file dialogs from a script.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/Ui.h"

namespace bw::test {

struct RecordedBox {
    std::string text;
    MsgButtons buttons;
    MsgIcon icon;
    std::string title;
};

class FakeUi : public IUi {
public:
    std::vector<RecordedBox> boxes;
    std::vector<FileDialogRequest> dialogs;
    int beeps = 0;
    int doEvents = 0;
    int pointerWaits = 0;
    int pointerNormals = 0;
    // Answers for message boxes, taken in order; when empty the first button's
    // answer is given (OK, Yes, Abort, Retry).
    std::deque<MsgResult> answers;
    // Answers for file dialogs, taken in order; when empty the dialog is cancelled.
    std::deque<std::string> fileAnswers;

    MsgResult MsgBox(const std::string& text, MsgButtons buttons, MsgIcon icon, const std::string& title) override {
        boxes.push_back({text, buttons, icon, title});
        if (!answers.empty()) {
            MsgResult r = answers.front();
            answers.pop_front();
            return r;
        }
        switch (buttons) {
            case MsgButtons::YesNo:
            case MsgButtons::YesNoCancel: return MsgResult::Yes;
            case MsgButtons::RetryCancel: return MsgResult::Retry;
            case MsgButtons::AbortRetryIgnore: return MsgResult::Abort;
            default: return MsgResult::OK;
        }
    }
    void Beep() override { ++beeps; }
    std::string OpenFileDialog(const FileDialogRequest& r) override { return NextFile(r); }
    std::string SaveFileDialog(const FileDialogRequest& r) override { return NextFile(r); }
    void PointerWait() override { ++pointerWaits; }
    void PointerNormal() override { ++pointerNormals; }
    void DoEvents() override { ++doEvents; }

    const RecordedBox& LastBox() const { return boxes.back(); }

private:
    std::string NextFile(const FileDialogRequest& r) {
        dialogs.push_back(r);
        if (fileAnswers.empty()) return {};
        std::string f = fileAnswers.front();
        fileAnswers.pop_front();
        return f;
    }
};

class MemorySettings : public ISettingsStore {
public:
    std::map<std::pair<std::string, std::string>, std::string> values;
    std::string Get(const std::string& s, const std::string& k, const std::string& def) override {
        auto it = values.find({s, k});
        return it == values.end() ? def : it->second;
    }
    void Set(const std::string& s, const std::string& k, const std::string& v) override { values[{s, k}] = v; }
};

// Installs a FakeUi and an in-memory store for the life of a test.
class ScopedFakeUi {
public:
    FakeUi ui;
    MemorySettings settings;
    ScopedFakeUi() {
        SetUi(&ui);
        SetSettingsStore(&settings);
    }
    ~ScopedFakeUi() {
        SetUi(nullptr);
        SetSettingsStore(nullptr);
    }
    ScopedFakeUi(const ScopedFakeUi&) = delete;
    ScopedFakeUi& operator=(const ScopedFakeUi&) = delete;
};

}  // namespace bw::test
