#include "shell/qt/NewVehicleDialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/qt/Binders.h"

namespace bw::qt {

NewVehicleDialog::NewVehicleDialog(frmNVhl& model, QWidget* parent) : QDialog(parent), model_(model) {
    setObjectName("frmNVhl");
    setWindowTitle(tr("New Vehicle"));
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

    auto button = [this](CommandButton& c, const char* fallback) {
        auto* b = new QPushButton(this);
        b->setObjectName(QString::fromStdString(c.Name));
        // The model leaves the captions to the window.
        if (c.Caption().empty()) c.SetCaption(fallback);
        BindButton(b, c);
        b->setDefault(c.Default);
        b->setAutoDefault(c.Default);
        // After the binding's handler: the model has decided by then.
        connect(b, &QPushButton::clicked, this, [this] { FinishIfHidden(); });
        return b;
    };
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(button(model_.PButCreate, "&Create"));
    buttons->addWidget(button(model_.PButCancel, "&Cancel"));
    outer->addLayout(buttons);
    setFixedSize(sizeHint());
}

void NewVehicleDialog::FinishIfHidden() {
    if (model_.Visible) return;  // a refused Create keeps the dialog open
    if (model_.wCancel != 0) QDialog::reject();
    else accept();
}

void NewVehicleDialog::reject() {
    if (model_.Visible) model_.PButCancel_Click();
    QDialog::reject();
}

void zShowNewVehicle(frmNVhl& model, QWidget* parent) {
    NewVehicleDialog dlg(model, parent);
    model.Visible = true;
    dlg.exec();
    model.Visible = false;
}

}  // namespace bw::qt
