#include "core/Forms.h"

#include <algorithm>

namespace bw {

std::vector<IForm*>& gForms() {
    static std::vector<IForm*> forms;
    return forms;
}

void RegisterForm(IForm* form) {
    auto& f = gForms();
    if (std::find(f.begin(), f.end(), form) == f.end()) f.push_back(form);
}

void UnregisterForm(IForm* form) { std::erase(gForms(), form); }

}  // namespace bw
