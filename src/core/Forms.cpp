#include "core/Forms.h"

#include <algorithm>
#include <map>

namespace bw {

namespace {

// Shows nothing: programs without windows (bwtool, most tests).
class NoFormHost final : public IFormHost {
public:
    void ShowForm(FormModel&, bool) override {}
    void HideForm(FormModel&) override {}
    void CloseForm(FormModel&) override {}
    void AdoptForm(std::unique_ptr<FormModel>) override {}
};

IFormHost* gHost = nullptr;

std::map<std::string, FormFactory>& Factories() {
    static std::map<std::string, FormFactory> f;
    return f;
}

}  // namespace

IFormHost& gFormHost() {
    static NoFormHost none;
    return gHost ? *gHost : none;
}

void SetFormHost(IFormHost* host) { gHost = host; }

void RegisterFormFactory(const std::string& name, FormFactory make) { Factories()[name] = std::move(make); }

bool zOpenForm(const std::string& name, FormModel& owner) {
    const auto it = Factories().find(name);
    if (it == Factories().end()) return false;
    std::unique_ptr<FormModel> form = it->second(owner);
    if (!form) return false;
    zShowModal(*form, &owner);
    return true;
}

void zShowModal(FormModel& form, FormModel* owner) {
    if (owner) form.Owner = owner;
    form.Show(true);
    // A window that unloaded itself (Done) has gone already.
    if (form.Loaded) form.Unload();
}

FormModel* zShowModeless(std::unique_ptr<FormModel> form, FormModel* owner) {
    FormModel* shown = form.get();
    if (owner) shown->Owner = owner;
    shown->Load();
    gFormHost().AdoptForm(std::move(form));
    shown->Show();
    return shown;
}

FormModel::FormModel(std::string name) : Window(std::move(name)) { Window.SetVisible(false); }

FormModel::~FormModel() { std::erase(gForms(), this); }

std::vector<FormModel*>& gForms() {
    static std::vector<FormModel*> forms;
    return forms;
}

void FormModel::Load() {
    if (Loaded) return;
    Loaded = true;
    auto& f = gForms();
    if (std::find(f.begin(), f.end(), this) == f.end()) f.push_back(this);
    Form_Load();
}

void FormModel::Show(bool modal) {
    Load();
    Window.SetVisible(true);
    Form_Activate();
    gFormHost().ShowForm(*this, modal);
}

void FormModel::Hide() {
    if (!Window.Visible()) return;
    Window.SetVisible(false);
    gFormHost().HideForm(*this);
}

bool FormModel::Unload() {
    bool cancel = false;
    Form_QueryUnload(cancel);
    if (cancel) return false;
    Form_Unload();
    Loaded = false;
    Window.SetVisible(false);
    std::erase(gForms(), this);
    // Last: the host may free an adopted model here.
    gFormHost().CloseForm(*this);
    return true;
}

}  // namespace bw
