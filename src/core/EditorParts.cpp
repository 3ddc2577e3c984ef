#include "core/EditorParts.h"

#include <algorithm>
#include <map>

#include <cstdlib>

#include "core/Config.h"
#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Settings.h"
#include "core/Ui.h"

namespace bw {

void zCheckTextBox(TextBox& box, int16_t lower, int16_t upper, bool strip) {
    std::string t = box.Text();
    // Each correction tells the user with a beep.
    if (!zIsNumeric(t)) {
        gUi().Beep();
        t = std::to_string(lower);
    } else {
        const double v = std::strtod(t.c_str(), nullptr);
        if (v > upper || v < lower) gUi().Beep();
        if (v > upper) t = std::to_string(upper);
        else if (v < lower) t = std::to_string(lower);
    }
    if (strip) {
        while (!t.empty() && t[0] == '0') t.erase(0, 1);
        if (t.empty() || (t[0] == '.' && t.find_first_not_of("0", 1) == std::string::npos))
            t = std::to_string(lower);
    }
    box.SetText(t);
}

void zWireFocusColours(const std::vector<TextBox*>& boxes) {
    for (TextBox* t : boxes) {
        t->SetBackColor(gDeActiveEdit);
        t->SetForeColor(gDeActiveText);
        auto lost = t->LostFocus;
        t->GotFocus = [t] {
            t->SetBackColor(gActiveEdit);
            t->SetForeColor(gActiveText);
        };
        t->LostFocus = [t, lost] {
            t->SetBackColor(gDeActiveEdit);
            t->SetForeColor(gDeActiveText);
            if (lost) lost();
        };
    }
}

void zExpandAll(TreeView& tv, bool open) {
    std::vector<std::string> keys;
    for (const TreeView::Node* n : tv.Children("")) keys.push_back(n->Key);
    zTrapVoid(open ? "PButExpand_Click" : "PButCollapse_Click", [&] {
        for (const std::string& k : keys)
            if (tv.Find(k)) tv.SetExpanded(k, open);
    });
}

void zWireEquipmentKeys(TreeView& avail, TreeView& mounted, std::function<void()> add,
                        std::function<void()> remove) {
    auto keys = [](TreeView& tv, std::function<void()> act, bool withDelete) {
        return [&tv, act = std::move(act), withDelete](int16_t& code) {
            if (code != kKeyReturn && !(withDelete && code == kKeyDelete)) return;
            const TreeView::Node* n = tv.Find(tv.SelectedKey());
            if (n && !tv.Children(n->Key).empty()) {
                // A copy: opening a group refills the tree under the node.
                const std::string key = n->Key;
                if (code == kKeyReturn) tv.SetExpanded(key, !n->Expanded);
            } else if (n) {
                act();
            }
            code = 0;
        };
    };
    avail.KeyDown = keys(avail, std::move(add), false);
    mounted.KeyDown = keys(mounted, std::move(remove), true);
}

void zRebuildKeepingState(TreeView& tv, const std::function<void()>& rebuild) {
    std::map<std::string, std::string> parentOf;
    std::vector<std::string> open;
    for (const TreeView::Node& n : tv.Nodes()) {
        parentOf[n.Key] = n.ParentKey;
        if (n.Expanded) open.push_back(n.Key);
    }
    const std::string selected = tv.SelectedKey();
    const std::string selParent = parentOf.count(selected) ? parentOf[selected] : std::string();
    size_t selAt = 0;
    const auto before = tv.Children(selParent);
    for (size_t i = 0; i < before.size(); ++i)
        if (before[i]->Key == selected) selAt = i;

    BatchUpdate batch(tv);
    rebuild();
    for (const std::string& k : open)
        if (tv.Find(k)) tv.SetExpanded(k, true);
    std::vector<std::string> receiving;
    for (const TreeView::Node& n : tv.Nodes()) {
        const auto was = parentOf.find(n.Key);
        if (!n.ParentKey.empty() && (was == parentOf.end() || was->second != n.ParentKey))
            receiving.push_back(n.ParentKey);
    }
    for (const std::string& k : receiving) tv.SetExpanded(k, true);
    if (selected.empty()) return;
    if (tv.Find(selected)) return tv.Select(selected);
    if (selParent.empty() || !tv.Find(selParent)) return;
    const auto now = tv.Children(selParent);
    if (now.empty()) return tv.Select(selParent);
    tv.Select(now[std::min(selAt, now.size() - 1)]->Key);
}

std::string zRowKey(int16_t row) { return "w" + std::to_string(row); }

std::string zItemKey(int16_t row, int16_t num) { return zRowKey(row) + "-" + std::to_string(num); }

namespace {

bool ReadNumber(const std::string& digits, int16_t& out) {
    if (digits.empty() || digits.size() > 5 || digits.find_first_not_of("0123456789") != std::string::npos)
        return false;
    const long v = std::strtol(digits.c_str(), nullptr, 10);
    if (v > 32767) return false;
    out = static_cast<int16_t>(v);
    return true;
}

}  // namespace

bool zParseItemKey(const std::string& key, int16_t& row, int16_t& num) {
    if (key.size() < 2 || key[0] != 'w') return false;
    const size_t dash = key.find('-', 1);
    int16_t r = 0, n = 0;
    if (!ReadNumber(key.substr(1, dash == std::string::npos ? std::string::npos : dash - 1), r)) return false;
    if (dash != std::string::npos && !ReadNumber(key.substr(dash + 1), n)) return false;
    row = r;
    num = n;
    return true;
}

bool zOptionBox(CheckBox& box, const char* title, const std::vector<OptionExclusion>& tests, int16_t& refusing,
                const std::function<void(int16_t)>& apply) {
    if (box.Value() == 1) {
        for (const OptionExclusion& t : tests) {
            if (t.holds()) {
                zMsgBox(t.message, MsgButtons::OK, MsgIcon::Critical, title);
                refusing = kTrue;
                box.SetValue(0);
                refusing = kFalse;
                return false;
            }
        }
    }
    apply(box.Value());
    return true;
}

bool zSaveEditor(FormModel& editor, const std::function<bool()>& validate) {
    return validate() && editor.Owner && editor.Owner->zSaveDesign(editor);
}

void zAskSaveOnClose(FormModel& editor, const std::string& what, const std::function<bool()>& validate,
                     const std::function<void()>& saved, bool& cancel) {
    cancel = false;
    zTrapVoid("Form_QueryUnload", [&] {
        const MsgResult r = zMsgBox("This " + what + " is not yet saved, would you like to save it?",
                                    MsgButtons::YesNoCancel, MsgIcon::Question, "Save?");
        if (r == MsgResult::Cancel) {
            cancel = true;
        } else if (r == MsgResult::Yes) {
            if (!zSaveEditor(editor, validate)) cancel = true;
            else saved();
        }
    });
}

}  // namespace bw
