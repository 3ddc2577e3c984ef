#include "shell/qt/NewVehicleDialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/qt/Binders.h"

namespace bw::qt {

NewVehicleDialog::NewVehicleDialog(frmNVhl& model, QWidget* parent) : BoundDialog(model, parent), model_(model) {
    auto* outer = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    auto combo = [this](ComboBox& c) {
        auto* w = new QComboBox(this);
        w->setObjectName(QString::fromStdString(c.Name));
        w->setMinimumContentsLength(16);
        BindCombo(w, c);
        return w;
    };
    form->addRow(tr("Tech &Base:"), combo(model_.cmboBase));
    form->addRow(tr("Tech &Level:"), combo(model_.cmboLevel));
    form->addRow(tr("Vehicle &Type:"), combo(model_.cmboType));
    outer->addLayout(form);

    auto button = [this](CommandButton& c) {
        auto* b = new QPushButton(this);
        b->setObjectName(QString::fromStdString(c.Name));
        BindButton(b, c);
        b->setDefault(c.Default);
        b->setAutoDefault(c.Default);
        return b;
    };
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(button(model_.PButCreate));
    buttons->addWidget(button(model_.PButCancel));
    outer->addLayout(buttons);
    setFixedSize(sizeHint());
}

}  // namespace bw::qt
