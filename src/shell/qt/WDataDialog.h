// The weapon data window in Qt: one row of the weapon table.
#pragma once

#include "shell/qt/FormHost.h"

#include "refdata/frmWData.h"

namespace bw::qt {

class WDataDialog : public BoundDialog {
    Q_OBJECT
public:
    explicit WDataDialog(frmWData& model, QWidget* parent = nullptr);

private:
    frmWData& model_;
};

// Shows row i of the weapon table modally.
}  // namespace bw::qt
