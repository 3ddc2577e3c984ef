// The weapon data window in Qt: one row of the weapon table.
#pragma once

#include <QDialog>

#include "refdata/frmWData.h"

namespace bw::qt {

class WDataDialog : public QDialog {
    Q_OBJECT
public:
    explicit WDataDialog(frmWData& model, QWidget* parent = nullptr);

private:
    frmWData& model_;
};

// Shows row i of the weapon table modally.
void ShowWeaponData(int32_t row, QWidget* parent);

}  // namespace bw::qt
