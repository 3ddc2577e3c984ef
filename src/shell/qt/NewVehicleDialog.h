// The New Vehicle dialog in Qt, bound to frmNVhl: tech base, tech level and
// vehicle type, Create and Cancel. Modal; it ends when the model hides itself.
#pragma once

#include "shell/qt/FormHost.h"

#include "vehicle/frmNVhl.h"

namespace bw::qt {

class NewVehicleDialog : public BoundDialog {
    Q_OBJECT
public:
    explicit NewVehicleDialog(frmNVhl& model, QWidget* parent = nullptr);

protected:
    // Escape and the close box cancel through the model.
    void Dismiss() override { model_.PButCancel_Click(); }
    bool Accepted() const override { return model_.wCancel == 0; }

private:
    frmNVhl& model_;
};

}  // namespace bw::qt
