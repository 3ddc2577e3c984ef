// The design pickers in Qt: frmVOpen's lvVHLs or frmFOpen's lvFTRs with the
// action and cancel buttons. The dialog is modal and ends when the model
// hides itself (a pick or a cancel).
#pragma once

#include "shell/DesignPicker.h"
#include "shell/qt/FormHost.h"

class QTreeWidget;

namespace bw::qt {

class PickerDialog : public BoundDialog {
    Q_OBJECT
public:
    explicit PickerDialog(DesignPicker& model, QWidget* parent = nullptr);

    QTreeWidget* List() const { return list_; }

protected:
    // Escape and the close box cancel through the model; a cancel button
    // the model has disabled still lets the window close.
    void Dismiss() override {
        model_.PButCancel.DoClick();
        model_.Hide();
    }
    bool Accepted() const override { return model_.wCancel == 0; }
    void showEvent(QShowEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    DesignPicker& model_;
    QTreeWidget* list_ = nullptr;
};

}  // namespace bw::qt
