// The window-model protocol. Every window of the program is a model derived
// from FormModel: one life cycle (load, show, hide, unload, a visible flag
// and a caption on its Window control) and one way of asking the window
// system for things (the form host). The Qt layer binds any model by its
// name through the same host; tests answer the host with a script.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Controls.h"

namespace bw {

class FormModel;

// What a window model asks of the window system.
class IFormHost {
public:
    virtual ~IFormHost() = default;
    // Shows the model's window. Modal: returns once the model has hidden or
    // unloaded itself.
    virtual void ShowForm(FormModel& form, bool modal) = 0;
    // The model hid: a modal show returns, a modeless window disappears.
    virtual void HideForm(FormModel& form) = 0;
    // The model unloaded: its window goes (and an adopted model with it,
    // once the window has let go of it).
    virtual void CloseForm(FormModel& form) = 0;
    // A modeless window the host owns from now on (editors, reports).
    virtual void AdoptForm(std::unique_ptr<FormModel> form) = 0;
};

// The host in use. Without one nothing is shown: a modal show returns at
// once and an adopted model is dropped at once.
IFormHost& gFormHost();
void SetFormHost(IFormHost* host);

// A window that one model opens for another across the layers (the editors'
// cost and statistics windows sit above the designs): the layer that knows
// both registers how to make it by name.
using FormFactory = std::function<std::unique_ptr<FormModel>(FormModel& owner)>;
void RegisterFormFactory(const std::string& name, FormFactory make);
// Makes the named window for owner and shows it modal, then unloads it;
// false when no factory is registered or it made nothing.
bool zOpenForm(const std::string& name, FormModel& owner);
// Shows a window modal for owner and unloads it when the show returns.
void zShowModal(FormModel& form, FormModel* owner = nullptr);
// Hands a modeless window to the host and shows it.
FormModel* zShowModeless(std::unique_ptr<FormModel> form, FormModel* owner = nullptr);

class FormModel {
public:
    explicit FormModel(std::string name);
    virtual ~FormModel();
    FormModel(const FormModel&) = delete;
    FormModel& operator=(const FormModel&) = delete;

    // "frmVhl", "frmFtr", "frmSrch"...
    const std::string& FormName() const { return Window.Name; }
    // The window itself: its caption is the title bar; Visible says whether
    // it shows.
    Control Window;
    bool Loaded = false;
    // The window that opened this one, if any: editors save through it.
    FormModel* Owner = nullptr;

    // Once per life: registers the window among the loaded ones and runs
    // Form_Load.
    void Load();
    // Loads if needed, becomes visible and asks the host to show it.
    void Show(bool modal = false);
    void Hide();
    // Form_QueryUnload may refuse (false). Otherwise Form_Unload runs, the
    // window leaves the loaded list and the host closes it.
    bool Unload();

    // An editor's wSaved; windows with nothing to lose are always saved.
    virtual bool IsSaved() const { return true; }
    // The owner's save command for the design of an editor it opened; true
    // when the design reached the database.
    virtual bool zSaveDesign(FormModel& editor) { return false; }

    virtual void Form_Load() {}
    // Each time the window is shown, before the host shows it.
    virtual void Form_Activate() {}
    virtual void Form_QueryUnload(bool& cancel) {}
    virtual void Form_Unload() {}
};

// The loaded windows, in load order. The main window's shutdown walks it
// from the last to the first and asks the editors to unload.
std::vector<FormModel*>& gForms();

}  // namespace bw
