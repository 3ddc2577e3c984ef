// Two-way bindings between the toolkit-free control models and Qt widgets.
// A model change refreshes the widget; a user's change sets the model, which
// fires the model's own events. Updates coming from the model are applied
// with the widget's signals blocked so they are never echoed back.
#pragma once

#include <QPointer>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTimer>
#include <QTreeWidget>
#include <QWidget>

#include "core/Controls.h"

namespace bw::qt {

// Visible and enabled follow the model.
void BindCommon(QWidget* w, Control& c);
void BindLabel(QLabel* w, Label& c);
// Text, colours and the focus events (GotFocus, LostFocus) of a text box.
void BindTextBox(QLineEdit* w, TextBox& c);

// An up-down: two arrow buttons that step the model by its small change and
// stop at its limits, as the old spin control beside a text box did.
class UpDown : public QWidget {
public:
    UpDown(ScrollBar& model, QWidget* parent);

private:
    ScrollBar& model_;
};

// A text box with its up-down, the pair the editors use for every number:
// the up-down writes the text through its rule, the text applies itself when
// the user leaves it.
QWidget* NumberInput(QLineEdit* text, TextBox& textModel, ScrollBar& scrlModel, QWidget* parent);
void BindScrollBar(QSpinBox* w, ScrollBar& c);
void BindScrollBar(QScrollBar* w, ScrollBar& c);
void BindCheckBox(QCheckBox* w, CheckBox& c);
void BindOption(QRadioButton* w, OptionButton& c);
void BindListBox(QListWidget* w, ListBox& c);
// Report-mode list view: the headers, one top-level row per item with its
// sub-items in the following columns. A header click runs ColumnClick; the
// model decides whether to sort.
void BindListView(QTreeWidget* w, ListView& c);
// Tree view: nodes by key, expanded state and selection both ways.
void BindTreeView(QTreeWidget* w, TreeView& c);
// The timer runs while the model is enabled with an interval, and calls Tick.
void BindTimer(QTimer* t, Timer& c);
void BindCombo(QComboBox* w, ComboBox& c);
void BindButton(QPushButton* w, CommandButton& c);
void BindProgress(QProgressBar* w, ProgressBar& c);
void BindMenuItem(QAction* a, MenuItem& c);
// The window title follows the control's caption.
void BindWindowTitle(QWidget* w, Control& c);

// A new widget named after its model (so checks can find it) and bound to it.
// The one way a widget watches a model: the observer lives as long as the
// object, so a model that outlives its window never calls into freed
// memory. refresh runs once at once, then on every change.
template <class W, class F>
void Watch(W* w, Control& c, F refresh) {
    QPointer<W> guard(w);
    const int id = c.Subscribe([guard, refresh] {
        if (guard) refresh(guard.data());
    });
    Control* model = &c;
    std::weak_ptr<const void> alive = c.Lifetime();
    QObject::connect(w, &QObject::destroyed, [model, id, alive] {
        if (!alive.expired()) model->Unsubscribe(id);
    });
    refresh(w);
}

template <class W, class M, class Bind>
W* MakeBound(M& model, QWidget* parent, Bind bind) {
    auto* w = new W(parent);
    w->setObjectName(QString::fromStdString(model.Name));
    bind(w, model);
    return w;
}

// Qt text from the model's Windows-1252 text and back; "&" marks stay, as
// Qt reads them the same way in menus and buttons.
QString FromModel(const std::string& s);
std::string ToModel(const QString& s);

}  // namespace bw::qt
