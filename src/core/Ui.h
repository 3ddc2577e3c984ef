// The services a window system gives the rules: message boxes and questions,
// beeps, file dialogs, the pointer, letting the window system run, and the
// per-user settings store. The Qt program answers them with real dialogs;
// tests answer them with the scripted fake in tests/support.
#pragma once

#include <cstdint>
#include <string>

namespace bw {

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgButtons { OK, OKCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
// Values as the classic run-time numbers them.
enum class MsgResult { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

struct FileDialogRequest {
    std::string title;
    int32_t flags = 0;
    std::string filter = "All Files (*.*)|*.*";  // "Caption|pattern|Caption|pattern"
    int filterIndex = 1;                         // 1-based
    std::string fileName;
    std::string folder;
};

class IUi {
public:
    virtual ~IUi() = default;
    virtual MsgResult MsgBox(const std::string& text, MsgButtons buttons, MsgIcon icon,
                             const std::string& title) = 0;
    virtual void Beep() = 0;
    // The chosen path, or the empty text when the user cancels.
    virtual std::string OpenFileDialog(const FileDialogRequest& req) = 0;
    virtual std::string SaveFileDialog(const FileDialogRequest& req) = 0;
    virtual void PointerWait() = 0;
    virtual void PointerNormal() = 0;
    // Let the window system process pending events (repaints, a cancel click).
    virtual void DoEvents() = 0;
};

// The per-user store: text values by section and key.
class ISettingsStore {
public:
    virtual ~ISettingsStore() = default;
    // The stored text, or def when the key is absent.
    virtual std::string Get(const std::string& section, const std::string& key, const std::string& def) = 0;
    virtual void Set(const std::string& section, const std::string& key, const std::string& value) = 0;
};

// Process-wide services, installed by main() or by a test fixture. Until one
// is installed a silent default answers (boxes return OK, dialogs cancel).
IUi& gUi();
void SetUi(IUi* ui);
ISettingsStore& gSettingsStore();
void SetSettingsStore(ISettingsStore* store);

// Short forms used throughout the rules.
inline MsgResult zMsgBox(const std::string& text, MsgButtons buttons = MsgButtons::OK,
                         MsgIcon icon = MsgIcon::None, const std::string& title = {}) {
    return gUi().MsgBox(text, buttons, icon, title);
}
inline void zPointerWait() { gUi().PointerWait(); }
inline void zPointerNormal() { gUi().PointerNormal(); }
inline void zDoEvents() { gUi().DoEvents(); }

}  // namespace bw
