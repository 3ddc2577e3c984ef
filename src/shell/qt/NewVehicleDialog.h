// The New Vehicle dialog in Qt, bound to frmNVhl: tech base, tech level and
// vehicle type, Create and Cancel. Modal; it ends when the model hides itself.
#pragma once

#include <QDialog>

#include "vehicle/frmNVhl.h"

namespace bw::qt {

class NewVehicleDialog : public QDialog {
    Q_OBJECT
public:
    explicit NewVehicleDialog(frmNVhl& model, QWidget* parent = nullptr);

    // Escape and the close box cancel through the model.
    void reject() override;

private:
    void FinishIfHidden();

    frmNVhl& model_;
};

// The modal show frmMain's ShowNewVehicle needs: the model is loaded; returns
// once the dialog is hidden.
void zShowNewVehicle(frmNVhl& model, QWidget* parent);

}  // namespace bw::qt
