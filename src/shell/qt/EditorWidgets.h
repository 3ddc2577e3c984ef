// The widgets the design editors build their pages from: bound labels,
// boxes, lists and buttons, captions, number inputs. One set for every
// editor, so the vehicle and fighter windows look and behave alike.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

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

}  // namespace bw::qt
