#include "shell/qt/PrintDialogs.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPrintDialog>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/Progress.h"
#include "shell/qt/Binders.h"
#include "sheets/qt/QtPrintPlatform.h"

namespace bw::qt {

namespace {

QLabel* Caption(Label& model, QWidget* parent) {
    auto* l = new QLabel(parent);
    BindLabel(l, model);
    return l;
}

QLineEdit* Text(TextBox& model, QWidget* parent) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(QString::fromStdString(model.Name));
    BindTextBox(e, model);
    // Tabbing into a line edit selects its whole text, as the window asks.
    return e;
}

}  // namespace

PrintVehicleDialog::PrintVehicleDialog(frmPVhl& form, QWidget* parent) : BoundDialog(form, parent), form_(form) {
    setObjectName("frmPVhl");
    auto* outer = new QVBoxLayout(this);
    auto* printer = new QGroupBox(FromModel(form.fraPrinter.Caption()), this);
    auto* pl = new QFormLayout(printer);
    auto* printers = new QComboBox(printer);
    printers->setObjectName("cmboPrinters");
    BindCombo(printers, form.cmboPrinters);
    pl->addRow(Caption(form.lName, printer), printers);
    auto* where = new QLabel(printer);
    BindLabel(where, form.LPrinterWhere);
    pl->addRow(Caption(form.lWhere, printer), where);
    auto* quality = new QComboBox(printer);
    quality->setObjectName("cmboPrintQuality");
    BindCombo(quality, form.cmboPrintQuality);
    pl->addRow(Caption(form.lQuality, printer), quality);
    auto* copies = new QLineEdit(printer);
    copies->setObjectName("TCopies");
    pl->addRow(Caption(form.lCopies, printer), NumberInput(copies, form.TCopies, form.scrlCopies, printer));
    outer->addWidget(printer);

    auto* style = new QGroupBox(FromModel(form.fraStyle.Caption()), this);
    auto* sl = new QHBoxLayout(style);
    for (OptionButton* b : {&form.RButPrintStd, &form.RButPrintDouble}) {
        auto* r = new QRadioButton(style);
        r->setObjectName(QString::fromStdString(b->Name));
        BindOption(r, *b);
        sl->addWidget(r);
    }
    outer->addWidget(style);

    auto* crew = new QGroupBox(FromModel(form.fraCrew.Caption()), this);
    auto* cl = new QFormLayout(crew);
    cl->addRow(Caption(form.lPilotName, crew), Text(form.TPilotName, crew));
    cl->addRow(Caption(form.lPilotSkill, crew), Text(form.TPilotSkill, crew));
    cl->addRow(Caption(form.lGunSkill, crew), Text(form.TGunSkill, crew));
    outer->addWidget(crew);

    auto* buttons = new QDialogButtonBox(this);
    auto* ok = new QPushButton(this);
    ok->setObjectName("PButOK");
    BindButton(ok, form.PButOK);
    ok->setDefault(true);
    auto* cancel = new QPushButton(this);
    cancel->setObjectName("PButCancel");
    BindButton(cancel, form.PButCancel);
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    outer->addWidget(buttons);
    setMinimumWidth(380);
}

PrintFormatDialog::PrintFormatDialog(frmPrintSel& form, QWidget* parent) : BoundDialog(form, parent) {
    setObjectName("frmPrintSel");
    auto* outer = new QVBoxLayout(this);
    for (OptionButton* b : {&form.RButPrintStd, &form.RButPrintDouble}) {
        auto* r = new QRadioButton(this);
        r->setObjectName(QString::fromStdString(b->Name));
        BindOption(r, *b);
        outer->addWidget(r);
    }
    auto* print = new QPushButton(this);
    print->setObjectName("PButPrint");
    BindButton(print, form.PButPrint);
    print->setDefault(true);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(print, QDialogButtonBox::AcceptRole);
    outer->addWidget(buttons);
}

void zInstallQtPrinting() {
    static QtPrintPlatform platform;
    platform.printDialog = [](QPrinter& printer) {
        QPrintDialog dlg(&printer);
        return dlg.exec() == QDialog::Accepted;
    };
    SetPrintPlatform(&platform);
    // The progress window of a print job, with its cancel button.
    static QPointer<QProgressDialog> progress;
    static frmProg* model = nullptr;
    SetProgFormHook([](frmProg& form, bool unload) {
        if (unload) {
            model = nullptr;
            delete progress.data();
            return;
        }
        model = &form;
        if (!progress) {
            progress = new QProgressDialog;
            progress->setObjectName("frmProg");
            progress->setMinimumDuration(0);
            progress->setAutoReset(false);
            progress->setAutoClose(false);
            QObject::connect(progress.data(), &QProgressDialog::canceled, [] {
                if (model) model->PButCancel_Click();
            });
        }
        progress->setWindowTitle(FromModel(form.Caption));
        progress->setLabelText(FromModel(form.LText));
        progress->setMaximum(form.PBarMax);
        progress->setValue(form.PBarValue);
        progress->show();
    });
}

}  // namespace bw::qt
