// The list of loaded windows, in load order. The main window's shutdown
// walks it from the last to the first and asks the editors to unload.
#pragma once

#include <string>
#include <vector>

namespace bw {

class IForm {
public:
    virtual ~IForm() = default;
    // "frmVhl", "frmFtr", "frmSrch"...
    virtual std::string FormName() const = 0;
    // An editor's wSaved; windows with nothing to lose are always saved.
    virtual bool IsSaved() const { return true; }
    // Asks the window to unload. An editor may ask about unsaved work and
    // stay; a window that unloads removes itself with UnregisterForm.
    virtual void RequestUnload() = 0;
};

std::vector<IForm*>& gForms();
void RegisterForm(IForm* form);
void UnregisterForm(IForm* form);

}  // namespace bw
