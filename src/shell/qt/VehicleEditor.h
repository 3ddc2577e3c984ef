// The vehicle editor in Qt: one window per design, laid out on three tabs
// (general data and equipment, armor, the armor diagram) around the model
// frmVhl, which keeps every rule. The window owns its model; several can be
// open at once.
#pragma once

#include <array>
#include <memory>

#include <QWidget>

#include "vehicle/frmVhl.h"

class QCloseEvent;
class QSvgRenderer;
class QTabWidget;

namespace bw::qt {

// The armor diagram with each location's input standing on its part of the
// drawing, at the spots the model chose.
class ArmorDiagram : public QWidget {
    Q_OBJECT
public:
    ArmorDiagram(frmVhl& model, QWidget* parent);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    // Picture pixels to widget pixels: larger than the printed size, so the
    // inputs fit inside their locations.
    static constexpr double kScale = 1.5;
    static double Scale(QSize picture);
    // The input of location i, and the scale the picture is drawn at.
    QWidget* Input(int i) const { return inputs_[static_cast<size_t>(i)]; }
    double ShownScale() const;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    void Reload();
    void Place();
    frmVhl& model_;
    QSvgRenderer* svg_;
    std::array<QWidget*, 12> inputs_{};
    QString shown_;
};

class VehicleEditor : public QWidget {
    Q_OBJECT
public:
    // Takes the editor model whose design is already set up.
    explicit VehicleEditor(frmVhl& model, QWidget* parent = nullptr);
    ~VehicleEditor() override;
    frmVhl& Model() { return *model_; }
    QTabWidget* Tabs() const { return tabs_; }

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    QWidget* GeneralTab();
    QWidget* ArmorTab();
    QWidget* DiagramTab();

    frmVhl* model_;
    QTabWidget* tabs_ = nullptr;
};


}  // namespace bw::qt
