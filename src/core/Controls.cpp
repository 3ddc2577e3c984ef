#include "core/Controls.h"

#include <algorithm>

#include "core/Errors.h"

namespace bw {

// ---- Control ----
void Control::Notify() {
    if (batch_ > 0) {
        pending_ = true;
        return;
    }
    // Copy: an observer may unsubscribe while being called.
    auto obs = observers_;
    for (auto& [id, fn] : obs)
        if (fn) fn();
}
int Control::Subscribe(Observer fn) {
    observers_.emplace_back(nextId_, std::move(fn));
    return nextId_++;
}
void Control::Unsubscribe(int id) {
    std::erase_if(observers_, [id](const auto& p) { return p.first == id; });
}
void Control::SetVisible(bool v) {
    if (visible_ == v) return;
    visible_ = v;
    Notify();
}
void Control::SetEnabled(bool v) {
    if (enabled_ == v) return;
    enabled_ = v;
    Notify();
}
void Control::SetCaption(const std::string& c) {
    if (caption_ == c) return;
    caption_ = c;
    Notify();
}
void Control::SetForeColor(int32_t c) {
    if (foreColor_ == c) return;
    foreColor_ = c;
    Notify();
}
void Control::SetBackColor(int32_t c) {
    if (backColor_ == c) return;
    backColor_ = c;
    Notify();
}

// ---- ScrollBar ----
void ScrollBar::SetValue(int16_t v) {
    if (v < min_ || v > max_) zRaise(kErrInvalidPropertyValue, "Invalid property value");
    if (v == value_) return;
    value_ = v;
    Notify();
    if (Change) Change();
}
void ScrollBar::SetMin(int16_t v) {
    min_ = v;
    if (max_ < min_) max_ = min_;
    Notify();
    if (value_ < min_) SetValue(min_);
}
void ScrollBar::SetMax(int16_t v) {
    max_ = v;
    if (min_ > max_) min_ = max_;
    Notify();
    if (value_ > max_) SetValue(max_);
}
void ScrollBar::Step(int32_t delta) {
    int32_t target = std::clamp<int32_t>(value_ + delta, min_, max_);
    if (target != value_) SetValue(static_cast<int16_t>(target));
}

// ---- TextBox ----
void TextBox::SetText(const std::string& t) {
    std::string v = (MaxLength > 0 && static_cast<int32_t>(t.size()) > MaxLength) ? t.substr(0, MaxLength) : t;
    if (v == text_) return;
    text_ = v;
    Notify();
    if (Change) Change();
}

void TextBox::Select(int32_t start, int32_t length) {
    selStart_ = start;
    selLength_ = length;
    ++selRequests_;
    Notify();
}

// ---- CheckBox ----
void CheckBox::SetValue(int16_t v) {
    if (v < 0 || v > 2) zRaise(kErrInvalidPropertyValue, "Invalid property value");
    if (v == value_) return;
    value_ = v;
    Notify();
    if (Click) Click();
}

// ---- OptionButton ----
void OptionButton::SetValue(bool v) {
    if (v == value_) return;
    value_ = v;
    if (v && group_)
        for (OptionButton* other : *group_)
            if (other != this && other->value_) {
                other->value_ = false;
                other->Notify();
            }
    Notify();
    if (v && Click) Click();
}

// ---- ListControl ----
const std::string& ListControl::List(int32_t i) const {
    if (i < 0 || i >= ListCount()) zRaise(kErrInvalidPropertyValue, "Invalid property array index");
    return items_[static_cast<size_t>(i)].text;
}
int32_t ListControl::ItemData(int32_t i) const {
    if (i < 0 || i >= ListCount()) zRaise(kErrInvalidPropertyValue, "Invalid property array index");
    return items_[static_cast<size_t>(i)].data;
}
void ListControl::SetItemData(int32_t i, int32_t data) {
    if (i < 0 || i >= ListCount()) zRaise(kErrInvalidPropertyValue, "Invalid property array index");
    items_[static_cast<size_t>(i)].data = data;
}
void ListControl::AddItem(const std::string& text, int32_t index) {
    size_t at = items_.size();
    if (Sorted) {
        at = static_cast<size_t>(std::upper_bound(items_.begin(), items_.end(), text,
                                                  [](const std::string& t, const Item& it) { return t < it.text; }) -
                                 items_.begin());
    } else if (index >= 0) {
        if (index > ListCount()) zRaise(kErrInvalidPropertyValue, "Invalid property value");
        at = static_cast<size_t>(index);
    }
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), Item{text, 0, false});
    if (listIndex_ >= static_cast<int32_t>(at)) ++listIndex_;
    Notify();
}
void ListControl::RemoveItem(int32_t index) {
    if (index < 0 || index >= ListCount()) zRaise(kErrInvalidPropertyValue, "Invalid property array index");
    items_.erase(items_.begin() + index);
    if (listIndex_ == index) listIndex_ = -1;
    else if (listIndex_ > index) --listIndex_;
    Notify();
}
void ListControl::Clear() {
    items_.clear();
    listIndex_ = -1;
    editText_.clear();
    Notify();
}
bool ListControl::Selected(int32_t i) const {
    if (i < 0 || i >= ListCount()) zRaise(kErrInvalidPropertyValue, "Invalid property array index");
    return MultiSelect ? items_[static_cast<size_t>(i)].selected : i == listIndex_;
}
void ListControl::SetSelected(int32_t i, bool selected) {
    if (i < 0 || i >= ListCount()) zRaise(kErrInvalidPropertyValue, "Invalid property array index");
    if (!MultiSelect) {
        if (selected) SetListIndex(i);
        else if (i == listIndex_) SetListIndex(-1);
        return;
    }
    Item& it = items_[static_cast<size_t>(i)];
    if (it.selected == selected) return;
    it.selected = selected;
    if (selected && listIndex_ != i) {
        listIndex_ = i;
        editText_ = it.text;
    }
    Notify();
    if (Click) Click();
}
int32_t ListControl::SelCount() const {
    if (!MultiSelect) return listIndex_ >= 0 ? 1 : 0;
    return static_cast<int32_t>(std::count_if(items_.begin(), items_.end(), [](const Item& it) { return it.selected; }));
}
void ListControl::SetListIndex(int32_t i) {
    if (i < -1 || i >= ListCount()) zRaise(kErrInvalidPropertyValue, "Invalid property value");
    if (i == listIndex_) return;
    listIndex_ = i;
    if (i >= 0) editText_ = items_[static_cast<size_t>(i)].text;
    Notify();
    if (Click) Click();
}
std::string ListControl::Text() const {
    if (listIndex_ >= 0) return items_[static_cast<size_t>(listIndex_)].text;
    return editText_;
}
void ListControl::SetText(const std::string& t) {
    // A text that matches a line selects it, as a combo does.
    for (int32_t i = 0; i < ListCount(); ++i)
        if (items_[static_cast<size_t>(i)].text == t) {
            SetListIndex(i);
            return;
        }
    if (editText_ == t && listIndex_ == -1) return;
    editText_ = t;
    listIndex_ = -1;
    Notify();
    if (Change) Change();
}

// ---- ListView ----
void ListView::ListItem::SetSubItem(size_t i, const std::string& t) {
    if (i == 0) return;
    if (SubItems.size() < i) SubItems.resize(i);
    SubItems[i - 1] = t;
}
ListView::ListItem& ListView::Add(const std::string& key, const std::string& text) {
    if (!key.empty() && Find(key)) zRaise(kErrKeyNotUnique, "Key is not unique in collection");
    items_.push_back(ListItem{key, text, {}, {}, false});
    Notify();
    return items_.back();
}
ListView::ListItem& ListView::Item(int32_t index) {
    if (index < 0 || index >= Count()) zRaise(kErrInvalidPropertyValue, "Index out of bounds");
    return items_[static_cast<size_t>(index)];
}
const ListView::ListItem& ListView::Item(int32_t index) const {
    if (index < 0 || index >= Count()) zRaise(kErrInvalidPropertyValue, "Index out of bounds");
    return items_[static_cast<size_t>(index)];
}
ListView::ListItem* ListView::Find(const std::string& key) {
    for (auto& it : items_)
        if (it.Key == key) return &it;
    return nullptr;
}
void ListView::Remove(int32_t index) {
    Item(index);
    items_.erase(items_.begin() + index);
    Notify();
}
void ListView::Clear() {
    items_.clear();
    Notify();
}
int32_t ListView::SelectedIndex() const {
    for (size_t i = 0; i < items_.size(); ++i)
        if (items_[i].Selected) return static_cast<int32_t>(i);
    return -1;
}
const ListView::ListItem* ListView::SelectedItem() const {
    int32_t i = SelectedIndex();
    return i < 0 ? nullptr : &items_[static_cast<size_t>(i)];
}
void ListView::Select(int32_t index) {
    Item(index);
    for (auto& it : items_) it.Selected = false;
    items_[static_cast<size_t>(index)].Selected = true;
    Notify();
    if (ItemClick) ItemClick(index);
}
void ListView::SortByColumn(int32_t column, bool ascending) {
    auto text = [column](const ListItem& it) { return column == 0 ? it.Text : it.SubItem(static_cast<size_t>(column)); };
    std::stable_sort(items_.begin(), items_.end(), [&](const ListItem& a, const ListItem& b) {
        return ascending ? text(a) < text(b) : text(b) < text(a);
    });
    Notify();
}

// ---- TreeView ----
TreeView::Node& TreeView::Add(const std::string& parentKey, const std::string& key, const std::string& text) {
    if (!key.empty() && Find(key)) zRaise(kErrKeyNotUnique, "Key is not unique in collection");
    if (!parentKey.empty() && !Find(parentKey)) zRaise(kErrElementNotFound, "Element not found");
    nodes_.push_back(Node{key, text, {}, parentKey, false, -1});
    Notify();
    return nodes_.back();
}
TreeView::Node* TreeView::Find(const std::string& key) {
    for (auto& n : nodes_)
        if (n.Key == key) return &n;
    return nullptr;
}
const TreeView::Node* TreeView::Find(const std::string& key) const {
    for (const auto& n : nodes_)
        if (n.Key == key) return &n;
    return nullptr;
}
void TreeView::Remove(const std::string& key) {
    if (!Find(key)) zRaise(kErrElementNotFound, "Element not found");
    std::vector<std::string> doomed{key};
    for (size_t i = 0; i < doomed.size(); ++i)
        for (const auto& n : nodes_)
            if (n.ParentKey == doomed[i]) doomed.push_back(n.Key);
    std::erase_if(nodes_, [&](const Node& n) { return std::find(doomed.begin(), doomed.end(), n.Key) != doomed.end(); });
    if (std::find(doomed.begin(), doomed.end(), selectedKey_) != doomed.end()) selectedKey_.clear();
    Notify();
}
void TreeView::Clear() {
    nodes_.clear();
    selectedKey_.clear();
    Notify();
}
std::vector<const TreeView::Node*> TreeView::Children(const std::string& parentKey) const {
    std::vector<const Node*> out;
    for (const auto& n : nodes_)
        if (n.ParentKey == parentKey) out.push_back(&n);
    return out;
}
void TreeView::SetExpanded(const std::string& key, bool expanded) {
    Node* n = Find(key);
    if (!n) zRaise(kErrElementNotFound, "Element not found");
    if (n->Expanded == expanded) return;
    n->Expanded = expanded;
    Notify();
    if (expanded && Expand) Expand(key);
    if (!expanded && Collapse) Collapse(key);
}
void TreeView::Select(const std::string& key) {
    if (!Find(key)) zRaise(kErrElementNotFound, "Element not found");
    selectedKey_ = key;
    Notify();
    if (NodeClick) NodeClick(key);
}

// ---- ProgressBar ----
void ProgressBar::SetMax(int32_t v) {
    max_ = v;
    if (value_ > max_) value_ = max_;
    Notify();
}
void ProgressBar::SetMin(int32_t v) {
    min_ = v;
    if (value_ < min_) value_ = min_;
    Notify();
}
void ProgressBar::SetValue(int32_t v) {
    if (v < min_ || v > max_) zRaise(kErrInvalidPropertyValue, "Invalid property value");
    if (v == value_) return;
    value_ = v;
    Notify();
}

// ---- PictureBox, MenuItem ----
void PictureBox::SetPicture(const std::string& p) {
    if (p == picture_) return;
    picture_ = p;
    Notify();
}
void MenuItem::SetChecked(bool c) {
    if (c == checked_) return;
    checked_ = c;
    Notify();
}

void MenuItem::SetToolTip(const std::string& t) {
    if (t == toolTip_) return;
    toolTip_ = t;
    Notify();
}

}  // namespace bw
