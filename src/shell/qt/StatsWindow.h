// The vehicle statistics window in Qt: the report text, which takes the
// whole window and follows its size.
#pragma once

#include "shell/qt/FormHost.h"

#include "evaluation/frmVStat.h"

namespace bw {
class Vehicle;
}

namespace bw::qt {

class StatsDialog : public BoundDialog {
    Q_OBJECT
public:
    // The model's report must already be loaded.
    explicit StatsDialog(frmVStat& model, QWidget* parent = nullptr);

private:
    frmVStat& model_;
};


}  // namespace bw::qt
