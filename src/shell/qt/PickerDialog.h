// The design pickers in Qt: frmVOpen's lvVHLs or frmFOpen's lvFTRs with the
// action and cancel buttons. The dialog is modal and ends when the model
// hides itself (a pick or a cancel).
#pragma once

#include <functional>

#include <QDialog>

#include "shell/DesignPicker.h"
#include "shell/frmFOpen.h"
#include "shell/frmVOpen.h"

class QTreeWidget;

namespace bw::qt {

class PickerDialog : public QDialog {
    Q_OBJECT
public:
    // activate loads the rows; it runs each time the dialog is shown.
    PickerDialog(DesignPicker& model, ListView& list, std::function<void()> activate, QWidget* parent = nullptr);

    QTreeWidget* List() const { return list_; }

    // Escape and the close box cancel through the model.
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    // Ends the modal loop once the model has hidden itself.
    void FinishIfHidden();

    DesignPicker& model_;
    std::function<void()> activate_;
    QTreeWidget* list_ = nullptr;
};

// The modal shows frmMain's ShowVehiclePicker and ShowFighterPicker need.
void zShowVehiclePicker(frmVOpen& model, QWidget* parent);
void zShowFighterPicker(frmFOpen& model, QWidget* parent);

}  // namespace bw::qt
