// The widgets the design editors build their pages from: bound labels,
// boxes, lists and buttons, captions, number inputs. One set for every
// editor, so the vehicle and fighter windows look and behave alike.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <array>
#include <span>

#include "shell/qt/Binders.h"

namespace bw::qt {

// A bound label; a figure stands right-aligned in a column of figures.
inline QLabel* Bound(Label& model, QWidget* parent, bool figure = false) {
    auto* l = MakeBound<QLabel>(model, parent, BindLabel);
    if (figure) {
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        l->setMinimumWidth(44);
    }
    return l;
}

inline QCheckBox* Bound(CheckBox& model, QWidget* parent) { return MakeBound<QCheckBox>(model, parent, BindCheckBox); }

inline QComboBox* Bound(ComboBox& model, QWidget* parent) {
    auto* c = MakeBound<QComboBox>(model, parent, BindCombo);
    c->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return c;
}

inline QPushButton* Bound(CommandButton& model, QWidget* parent) {
    return MakeBound<QPushButton>(model, parent, BindButton);
}

// A caption of the window's own, in the muted colour of captions.
inline QLabel* Caption(const QString& text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    l->setStyleSheet("color: #404040;");
    return l;
}

// A number typed in a box, with its up-down beside it.
inline QWidget* Number(TextBox& text, ScrollBar& scrl, QWidget* parent, int width = 48) {
    auto* edit = new QLineEdit(parent);
    edit->setFixedWidth(width);
    return NumberInput(edit, text, scrl, parent);
}

// A figure with its up-down beside it; the pair shows and hides with the
// up-down's model.
inline QWidget* LabelledUpDown(Label& label, ScrollBar& scrl, QWidget* parent) {
    auto* w = new QWidget(parent);
    auto* row = new QHBoxLayout(w);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    auto* l = Bound(label, w, true);
    l->setMinimumWidth(28);
    row->addWidget(l);
    auto* up = new UpDown(scrl, w);
    up->setObjectName(QString::fromStdString(scrl.Name));
    row->addWidget(up);
    row->addStretch(1);
    BindCommon(w, scrl);
    return w;
}

// The parts of an editor's "Weapons and Equipment" panel, all models.
struct EquipmentParts {
    std::span<CheckBox> show;  // the class boxes
    TreeView& avail;
    TreeView& selected;
    const char* selectedCaption;  // "Mounted", "Selected"
    std::span<CommandButton> move;  // add, remove, clear
    CommandButton& allocate;
    CommandButton &expandAvail, &collapseAvail, &expandSel, &collapseSel;
};

// The panel both editors show: the class boxes above, the available and the
// selected trees side by side with the commands between them, expand and
// collapse under each tree.
inline QGroupBox* EquipmentPanel(const EquipmentParts& p, QWidget* parent) {
    auto* equipment = new QGroupBox(QObject::tr("Weapons and Equipment"), parent);
    auto* eq = new QGridLayout(equipment);
    auto* shows = new QHBoxLayout;
    shows->addWidget(Caption(QObject::tr("Show"), equipment));
    for (CheckBox& box : p.show) shows->addWidget(Bound(box, equipment));
    shows->addStretch(1);
    eq->addLayout(shows, 0, 0, 1, 3);
    auto tree = [&](TreeView& model) {
        auto* t = new QTreeWidget(equipment);
        t->setObjectName(QString::fromStdString(model.Name));
        t->setMinimumHeight(200);
        BindTreeView(t, model);
        return t;
    };
    eq->addWidget(Caption(QObject::tr("Available"), equipment), 1, 0);
    eq->addWidget(Caption(QString::fromUtf8(p.selectedCaption), equipment), 1, 2);
    eq->addWidget(tree(p.avail), 2, 0);
    eq->addWidget(tree(p.selected), 2, 2);
    auto* mid = new QVBoxLayout;
    mid->addStretch(1);
    for (CommandButton& b : p.move) mid->addWidget(Bound(b, equipment));
    mid->addSpacing(12);
    mid->addWidget(Bound(p.allocate, equipment));
    mid->addStretch(1);
    eq->addLayout(mid, 2, 1);
    auto treeButtons = [&](CommandButton& open, CommandButton& shut) {
        auto* row = new QHBoxLayout;
        row->addWidget(Bound(open, equipment));
        row->addWidget(Bound(shut, equipment));
        row->addStretch(1);
        return row;
    };
    eq->addLayout(treeButtons(p.expandAvail, p.collapseAvail), 3, 0);
    eq->addLayout(treeButtons(p.expandSel, p.collapseSel), 3, 2);
    eq->setColumnStretch(0, 1);
    eq->setColumnStretch(2, 1);
    return equipment;
}

}  // namespace bw::qt
