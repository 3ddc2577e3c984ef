// Two-way bindings between the toolkit-free control models and Qt widgets.
// A model change refreshes the widget; a user's change sets the model, which
// fires the model's own events. Updates coming from the model are applied
// with the widget's signals blocked so they are never echoed back.
#pragma once

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QWidget>

#include "core/Controls.h"

namespace bw::qt {

// Visible and enabled follow the model.
void BindCommon(QWidget* w, Control& c);
void BindLabel(QLabel* w, Label& c);
void BindTextBox(QLineEdit* w, TextBox& c);
void BindScrollBar(QSpinBox* w, ScrollBar& c);
void BindCheckBox(QCheckBox* w, CheckBox& c);
void BindCombo(QComboBox* w, ComboBox& c);
void BindButton(QPushButton* w, CommandButton& c);
void BindProgress(QProgressBar* w, ProgressBar& c);
void BindMenuItem(QAction* a, MenuItem& c);
// The window title follows the control's caption.
void BindWindowTitle(QWidget* w, Control& c);

// Qt text from the model's Windows-1252 text and back; "&" marks stay, as
// Qt reads them the same way in menus and buttons.
QString FromModel(const std::string& s);
std::string ToModel(const QString& s);

}  // namespace bw::qt
