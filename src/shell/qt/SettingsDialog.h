// The Preferences window: shows an frmSet model and writes the choices back
// into it when the user presses OK.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include "shell/qt/FormHost.h"
#include <QPushButton>

#include "core/frmSet.h"

namespace bw::qt {

class SettingsDialog : public BoundDialog {
    Q_OBJECT
public:
    SettingsDialog(frmSet& form, QWidget* parent = nullptr);
    // Copies the widgets into the model (before its OK command runs).
    void StoreIntoModel();

protected:
    void Dismiss() override { form_.PButCancel_Click(); }

private:
    void PickColor(int which);
    void ShowColor(int which);

    frmSet& form_;
    QCheckBox *openLast_, *gift_, *aero_, *expand_;
    QComboBox *vType_, *vBase_, *vLevel_, *fType_, *fBase_, *fLevel_;
    QPushButton* colors_[4];
    int32_t color_[4];
};

}  // namespace bw::qt
