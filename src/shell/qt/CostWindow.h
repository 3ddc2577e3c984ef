// The cost and combat window in Qt: the three price lists with their
// figures, and the chart of maximum damage by range.
#pragma once

#include <memory>

#include "shell/qt/FormHost.h"
#include <QWidget>

#include "evaluation/frmCost.h"

namespace bw {
class Vehicle;
}

namespace bw::qt {

// The step chart: the model's bars at their twip scale (15 twips to a pixel),
// with a damage axis in the margin left of the origin and a range axis in
// hexes under the base line.
class DamageChart : public QWidget {
    Q_OBJECT
public:
    explicit DamageChart(frmCost& model, QWidget* parent = nullptr);
    ~DamageChart() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    // Pixel geometry of the chart, for checks.
    static int Px(int32_t twips) { return twips / 15; }
    int BaseLineY() const;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    frmCost& model_;
    // The window may go after its model (a modal window deleted later).
    std::weak_ptr<const void> alive_;
};

class CostDialog : public BoundDialog {
    Q_OBJECT
public:
    explicit CostDialog(frmCost& model, QWidget* parent = nullptr);

private:
    frmCost& model_;
};


}  // namespace bw::qt
