// The vehicle statistics window in Qt: the report text, which takes the
// whole window and follows its size.
#pragma once

#include <QDialog>

#include "evaluation/frmVStat.h"

namespace bw {
class Vehicle;
}

namespace bw::qt {

class StatsDialog : public QDialog {
    Q_OBJECT
public:
    // The model's report must already be loaded.
    explicit StatsDialog(frmVStat& model, QWidget* parent = nullptr);
    ~StatsDialog() override;

private:
    frmVStat& model_;
    int textObserver_ = 0;
};

// Loads the report of the design and shows it modally.
void ShowVehicleStats(Vehicle& vhl, QWidget* parent);

}  // namespace bw::qt
