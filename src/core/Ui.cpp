#include "core/Ui.h"

#include <map>
#include <utility>

namespace bw {
namespace {

class SilentUi final : public IUi {
public:
    MsgResult MsgBox(const std::string&, MsgButtons buttons, MsgIcon, const std::string&) override {
        switch (buttons) {
            case MsgButtons::YesNo:
            case MsgButtons::YesNoCancel: return MsgResult::Yes;
            case MsgButtons::RetryCancel: return MsgResult::Cancel;
            case MsgButtons::AbortRetryIgnore: return MsgResult::Abort;
            default: return MsgResult::OK;
        }
    }
    void Beep() override {}
    std::string OpenFileDialog(const FileDialogRequest&) override { return {}; }
    std::string SaveFileDialog(const FileDialogRequest&) override { return {}; }
    void PointerWait() override {}
    void PointerNormal() override {}
    void DoEvents() override {}
};

class MemoryStore final : public ISettingsStore {
public:
    std::string Get(const std::string& s, const std::string& k, const std::string& def) override {
        auto it = values_.find({s, k});
        return it == values_.end() ? def : it->second;
    }
    void Set(const std::string& s, const std::string& k, const std::string& v) override { values_[{s, k}] = v; }

private:
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

SilentUi gSilentUi;
MemoryStore gDefaultStore;
IUi* gCurrentUi = &gSilentUi;
ISettingsStore* gCurrentStore = &gDefaultStore;

}  // namespace

IUi& gUi() { return *gCurrentUi; }
void SetUi(IUi* ui) { gCurrentUi = ui ? ui : &gSilentUi; }
ISettingsStore& gSettingsStore() { return *gCurrentStore; }
void SetSettingsStore(ISettingsStore* store) { gCurrentStore = store ? store : &gDefaultStore; }

}  // namespace bw
