// The Preferences window: shows an frmSet model and writes the choices back
// into it when the user presses OK.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QPushButton>

#include "core/frmSet.h"

namespace bw::qt {

class SettingsDialog : public QDialog {
    Q_OBJECT
public:
    SettingsDialog(frmSet& form, QWidget* parent = nullptr);
    // Copies the widgets into the model (before its OK command runs).
    void StoreIntoModel();
    // Runs the dialog: OK stores and runs the model's OK, anything else its Cancel.
    void Run();

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
