// The print windows: "Print Vehicle" with its printer, quality, copies,
// style and crew fields, and "Print Format"; and the printers of the system
// as the print command's platform.
#pragma once

#include "shell/qt/FormHost.h"
#include "sheets/frmPVhl.h"

namespace bw::qt {

class PrintVehicleDialog : public BoundDialog {
    Q_OBJECT
public:
    PrintVehicleDialog(frmPVhl& form, QWidget* parent = nullptr);

protected:
    void Dismiss() override { form_.PButCancel.DoClick(); }

private:
    frmPVhl& form_;
};

class PrintFormatDialog : public BoundDialog {
    Q_OBJECT
public:
    PrintFormatDialog(frmPrintSel& form, QWidget* parent = nullptr);
};

// Installs the system's printers (and "PDF file") as the print platform.
void zInstallQtPrinting();

}  // namespace bw::qt
