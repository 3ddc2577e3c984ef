// Toolkit-free control models. A window model holds these; the Qt binding
// shows them. Rules the editors rely on:
//  - setting a value fires the control's change event at once, synchronously,
//    so a handler that sets another control runs that control's handler
//    inside it (re-entry);
//  - setting the value a control already has fires nothing;
//  - every property change notifies the observers, which is how a bound
//    widget learns to refresh itself.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bw {

// Error numbers of the control run-time.
constexpr int32_t kErrInvalidPropertyValue = 380;
constexpr int32_t kErrKeyNotUnique = 35602;
constexpr int32_t kErrElementNotFound = 35601;

// Key codes of KeyDown.
constexpr int16_t kKeyReturn = 13;
constexpr int16_t kKeyDelete = 46;

class Control {
public:
    using Observer = std::function<void()>;

    explicit Control(std::string name = {}) : Name(std::move(name)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    std::string Name;
    std::string Tag;

    bool Visible() const { return visible_; }
    void SetVisible(bool v);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool v);
    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& c);
    // The Windows colour value (0x00BBGGRR); -1 leaves the toolkit's default.
    int32_t ForeColor() const { return foreColor_; }
    void SetForeColor(int32_t c);
    int32_t BackColor() const { return backColor_; }
    void SetBackColor(int32_t c);

    // Observers are called after any property change. Returns an id for
    // Unsubscribe.
    int Subscribe(Observer fn);
    void Unsubscribe(int id);
    // Expires when the control goes: a watcher that may outlive it (a
    // window closing after its model) checks it before unsubscribing.
    std::weak_ptr<const void> Lifetime() const { return lifetime_; }

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
    // Key code of a typed character; a handler may set it to 0 to swallow it.
    std::function<void(int16_t& keyAscii)> KeyPress;
    // A key going down in the control (kKeyReturn, kKeyDelete); a handler
    // that acts on it sets it to 0, and the key goes no further (Enter then
    // does not reach the window's default button).
    std::function<void(int16_t& keyCode)> KeyDown;

protected:
    void Notify();

private:
    friend class BatchUpdate;
    int batch_ = 0;         // open BatchUpdate scopes
    bool pending_ = false;  // a notice held back by them
    bool visible_ = true;
    bool enabled_ = true;
    std::string caption_;
    int32_t foreColor_ = -1;
    int32_t backColor_ = -1;
    std::vector<std::pair<int, Observer>> observers_;
    int nextId_ = 1;
    std::shared_ptr<const void> lifetime_ = std::make_shared<int>(0);
};

// Gathers the change notices of many edits (filling a tree or a list) into
// one at the end of the scope, so a bound widget rebuilds once rather than
// once per line. Events (Change, Click, Expand) still fire at once.
class BatchUpdate {
public:
    explicit BatchUpdate(Control& c) : c_(c) { ++c_.batch_; }
    ~BatchUpdate() {
        if (--c_.batch_ == 0 && c_.pending_) {
            c_.pending_ = false;
            c_.Notify();
        }
    }
    BatchUpdate(const BatchUpdate&) = delete;
    BatchUpdate& operator=(const BatchUpdate&) = delete;

private:
    Control& c_;
};

// A scroll bar or up-down: an integer between Min and Max.
class ScrollBar : public Control {
public:
    using Control::Control;
    int16_t Value() const { return value_; }
    // A value outside Min..Max raises 380 and changes nothing.
    void SetValue(int16_t v);
    int16_t Min() const { return min_; }
    int16_t Max() const { return max_; }
    // Changing a limit pulls the value inside it (firing Change).
    void SetMin(int16_t v);
    void SetMax(int16_t v);
    int16_t SmallChange = 1;
    int16_t LargeChange = 1;
    // The arrows and the track: a step past a limit stops at the limit; at
    // the limit nothing changes and nothing fires.
    void StepUp() { Step(SmallChange); }
    void StepDown() { Step(-SmallChange); }
    void Step(int32_t delta);

    std::function<void()> Change;

private:
    int16_t value_ = 0;
    int16_t min_ = 0;
    int16_t max_ = 32767;
};

class TextBox : public Control {
public:
    using Control::Control;
    const std::string& Text() const { return text_; }
    void SetText(const std::string& t);
    int32_t MaxLength = 0;  // 0: no limit
    bool Locked = false;    // the user cannot type; code still can

    std::function<void()> Change;

    // A selection the program asks for (characters from start); the window
    // applies each request once, so the user's own typing is left alone.
    void Select(int32_t start, int32_t length);
    int32_t SelStart() const { return selStart_; }
    int32_t SelLength() const { return selLength_; }
    int32_t SelectRequests() const { return selRequests_; }

private:
    std::string text_;
    int32_t selStart_ = 0, selLength_ = 0, selRequests_ = 0;
};

class Label : public Control {
public:
    using Control::Control;
};

// 0 unchecked, 1 checked, 2 greyed.
class CheckBox : public Control {
public:
    using Control::Control;
    int16_t Value() const { return value_; }
    void SetValue(int16_t v);
    std::function<void()> Click;

private:
    int16_t value_ = 0;
};

// Option buttons of one group: setting one true clears the others of the
// same group (the group is the vector of buttons the window gives).
class OptionButton : public Control {
public:
    using Control::Control;
    bool Value() const { return value_; }
    void SetValue(bool v);
    void SetGroup(std::vector<OptionButton*>* group) { group_ = group; }
    std::function<void()> Click;

private:
    bool value_ = false;
    std::vector<OptionButton*>* group_ = nullptr;
};

class CommandButton : public Control {
public:
    using Control::Control;
    bool Default = false;
    bool Cancel = false;
    void DoClick() {
        if (Enabled() && Click) Click();
    }
    std::function<void()> Click;
};

// A combo box or a list box: lines, item data per line, a selected position.
class ListControl : public Control {
public:
    using Control::Control;
    int32_t ListCount() const { return static_cast<int32_t>(items_.size()); }
    const std::string& List(int32_t i) const;
    int32_t ItemData(int32_t i) const;
    void SetItemData(int32_t i, int32_t data);
    void AddItem(const std::string& text, int32_t index = -1);
    void RemoveItem(int32_t index);
    void Clear();
    // -1 is no selection. Out of range raises 380.
    int32_t ListIndex() const { return listIndex_; }
    void SetListIndex(int32_t i);
    // Text of the selected line, or of the edit part of a combo.
    std::string Text() const;
    void SetText(const std::string& t);
    bool Sorted = false;
    // A list that lets the user pick several lines. Without it a line's
    // selected flag is simply whether it is the ListIndex line.
    bool MultiSelect = false;
    bool Selected(int32_t i) const;
    // Marks a line (multi-select: also makes it the ListIndex line when
    // marking; single-select: the same as choosing or clearing ListIndex).
    void SetSelected(int32_t i, bool selected);
    int32_t SelCount() const;

    std::function<void()> Click;   // a new selection
    std::function<void()> Change;  // typing in a combo's edit part
    std::function<void()> DblClick;

private:
    struct Item {
        std::string text;
        int32_t data = 0;
        bool selected = false;
    };
    std::vector<Item> items_;
    int32_t listIndex_ = -1;
    std::string editText_;
};
using ComboBox = ListControl;
using ListBox = ListControl;

// A list view in report mode.
class ListView : public Control {
public:
    using Control::Control;
    struct ListItem {
        std::string Key;
        std::string Text;
        std::vector<std::string> SubItems;  // SubItems[0] is sub-item 1
        std::string Tag;
        bool Selected = false;
        std::string SubItem(size_t i) const { return i >= 1 && i <= SubItems.size() ? SubItems[i - 1] : std::string(); }
        void SetSubItem(size_t i, const std::string& t);
    };
    std::vector<std::string> ColumnHeaders;
    bool FullRowSelect = false;

    int32_t Count() const { return static_cast<int32_t>(items_.size()); }
    // Adds a row; a key that is not empty must be unique (35602).
    ListItem& Add(const std::string& key, const std::string& text);
    ListItem& Item(int32_t index);  // 0-based; 35600-style 380 out of range
    const ListItem& Item(int32_t index) const;
    ListItem* Find(const std::string& key);
    void Remove(int32_t index);
    void Clear();
    // The selected row or -1.
    int32_t SelectedIndex() const;
    const ListItem* SelectedItem() const;
    void Select(int32_t index);  // fires ItemClick
    // Sorts as text by column (0 = Text), ascending or descending.
    void SortByColumn(int32_t column, bool ascending = true);
    // Notify observers after changing rows through Item().
    void Refresh() { Notify(); }

    std::function<void(int32_t index)> ItemClick;
    std::function<void(int32_t column)> ColumnClick;
    std::function<void()> DblClick;

private:
    std::vector<ListItem> items_;
};

// A tree view whose nodes are found by key.
class TreeView : public Control {
public:
    using Control::Control;
    struct Node {
        std::string Key;
        std::string Text;
        std::string Tag;
        std::string ParentKey;  // empty for a root
        bool Expanded = false;
        int32_t ForeColor = -1;
    };
    // Adds a node under parentKey (empty for a root); a duplicate key raises
    // 35602, an unknown parent 35601.
    Node& Add(const std::string& parentKey, const std::string& key, const std::string& text);
    Node* Find(const std::string& key);
    const Node* Find(const std::string& key) const;
    // Removes the node and all below it.
    void Remove(const std::string& key);
    void Clear();
    int32_t Count() const { return static_cast<int32_t>(nodes_.size()); }
    // Nodes in insertion order (children follow the order they were added).
    const std::vector<Node>& Nodes() const { return nodes_; }
    std::vector<const Node*> Children(const std::string& parentKey) const;
    void SetExpanded(const std::string& key, bool expanded);  // fires Expand when opening
    const std::string& SelectedKey() const { return selectedKey_; }
    void Select(const std::string& key);  // fires NodeClick
    void Refresh() { Notify(); }

    std::function<void(const std::string& key)> Expand;
    std::function<void(const std::string& key)> Collapse;
    std::function<void(const std::string& key)> NodeClick;
    std::function<void()> DblClick;

private:
    std::vector<Node> nodes_;
    std::string selectedKey_;
};

class Timer : public Control {
public:
    using Control::Control;
    int32_t Interval = 0;  // milliseconds; 0 never ticks
    // The window system calls this on each interval while Enabled.
    void Tick() {
        if (Enabled() && Interval > 0 && OnTimer) OnTimer();
    }
    std::function<void()> OnTimer;
};

class ProgressBar : public Control {
public:
    using Control::Control;
    int32_t Min() const { return min_; }
    int32_t Max() const { return max_; }
    int32_t Value() const { return value_; }
    void SetMax(int32_t v);
    void SetMin(int32_t v);
    // Outside Min..Max raises 380.
    void SetValue(int32_t v);

private:
    int32_t min_ = 0, max_ = 100, value_ = 0;
};

// A picture: the name of the art it shows.
class PictureBox : public Control {
public:
    using Control::Control;
    const std::string& Picture() const { return picture_; }
    void SetPicture(const std::string& p);

private:
    std::string picture_;
};

class MenuItem : public Control {
public:
    using Control::Control;
    bool Checked() const { return checked_; }
    void SetChecked(bool c);
    std::string Shortcut;
    void DoClick() {
        if (Enabled() && Visible() && Click) Click();
    }
    std::function<void()> Click;
    // Shown when the pointer rests on the item; empty: none.
    const std::string& ToolTip() const { return toolTip_; }
    void SetToolTip(const std::string& t);

private:
    bool checked_ = false;
    std::string toolTip_;
};

}  // namespace bw
