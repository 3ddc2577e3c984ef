// A scripted stand-in for the window system's form host: records what was
// shown, runs the script's answer for a form by its name (a modal dialog's
// user), and keeps adopted windows alive until the test ends.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/Forms.h"

namespace bw::test {

class FakeFormHost : public IFormHost {
public:
    // What the user does when a window of that name shows (modal or not).
    std::map<std::string, std::function<void(FormModel&)>> onShow;
    std::vector<std::string> shown;
    std::vector<std::string> closed;
    // Modeless windows handed over, in order; closing keeps them (unloaded)
    // so a test may still look at them.
    std::vector<std::unique_ptr<FormModel>> adopted;

    void ShowForm(FormModel& form, bool) override {
        shown.push_back(form.FormName());
        if (auto it = onShow.find(form.FormName()); it != onShow.end() && it->second) it->second(form);
    }
    void HideForm(FormModel&) override {}
    void CloseForm(FormModel& form) override { closed.push_back(form.FormName()); }
    void AdoptForm(std::unique_ptr<FormModel> form) override { adopted.push_back(std::move(form)); }

    // The last adopted window of type T, or nullptr.
    template <class T>
    T* Last() const {
        for (auto it = adopted.rbegin(); it != adopted.rend(); ++it)
            if (auto* t = dynamic_cast<T*>(it->get())) return t;
        return nullptr;
    }
};

// Installs a FakeFormHost for the life of the scope.
struct ScopedFakeFormHost {
    FakeFormHost host;
    ScopedFakeFormHost() { SetFormHost(&host); }
    ~ScopedFakeFormHost() {
        // The windows go before the host does.
        host.adopted.clear();
        SetFormHost(nullptr);
    }
    FakeFormHost* operator->() { return &host; }
};

}  // namespace bw::test
