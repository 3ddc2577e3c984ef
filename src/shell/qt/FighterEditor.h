// The fighter editor in Qt: one window per design around the model frmFtr,
// which keeps every rule. Two tabs: the chassis, drive, heat sinks, fuel,
// Omni configurations and equipment; the armor with the six locations on a
// plan view of the fighter. The window owns its model; several can be open.
#pragma once

#include <array>

#include <QWidget>

#include "fighter/frmFtr.h"

class QCloseEvent;
class QSvgRenderer;
class QTabWidget;

namespace bw::qt {

// The fighter seen from above with each location's input on its part.
class FighterPlan : public QWidget {
    Q_OBJECT
public:
    FighterPlan(frmFtr& model, QWidget* parent);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    QWidget* Input(int i) const { return inputs_[static_cast<size_t>(i)]; }

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;

private:
    void Place();
    frmFtr& model_;
    QSvgRenderer* svg_;
    std::array<QWidget*, 6> inputs_{};
};

class FighterEditor : public QWidget {
    Q_OBJECT
public:
    explicit FighterEditor(frmFtr& model, QWidget* parent = nullptr);
    ~FighterEditor() override;
    frmFtr& Model() { return *model_; }
    QTabWidget* Tabs() const { return tabs_; }

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    QWidget* GeneralTab();
    QWidget* ArmorTab();

    frmFtr* model_;
    QTabWidget* tabs_ = nullptr;
};

}  // namespace bw::qt
