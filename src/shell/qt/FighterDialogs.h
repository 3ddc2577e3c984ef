// The fighter's dialogs in Qt: New Fighter (frmNFtr) and the equipment
// allocation (frmFEQ), where entries are dragged from the available list onto
// a location's slots and double-clicked out again. The models keep every rule.
#pragma once

#include <QListWidget>

#include <array>

#include "fighter/frmFEQ.h"
#include "fighter/frmNFtr.h"
#include "shell/qt/FormHost.h"

class QMimeData;

namespace bw::qt {

class NewFighterDialog : public BoundDialog {
    Q_OBJECT
public:
    explicit NewFighterDialog(frmNFtr& model, QWidget* parent = nullptr);

protected:
    // Escape and the close box cancel through the model.
    void Dismiss() override { model_.PButCancel_Click(); }
    bool Accepted() const override { return model_.wCancel == 0; }

private:
    frmNFtr& model_;
};

// One list of the allocation window: the available list (loc -1) starts
// drags, a location list (0 Nose to 3 Rear) takes them.
class FighterSlotList : public QListWidget {
    Q_OBJECT
public:
    FighterSlotList(frmFEQ& model, int16_t loc, QWidget* parent);
    QMimeData* DragPayload() const;

protected:
    void startDrag(Qt::DropActions supported) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dragMoveEvent(QDragMoveEvent* e) override;
    void dragLeaveEvent(QDragLeaveEvent* e) override;
    void dropEvent(QDropEvent* e) override;

private:
    frmFEQ& model_;
    int16_t loc_;
};

class FighterAllocationDialog : public BoundDialog {
    Q_OBJECT
public:
    explicit FighterAllocationDialog(frmFEQ& model, QWidget* parent = nullptr);
    FighterSlotList* Avail() const { return avail_; }
    // 0 Nose to 3 Rear.
    FighterSlotList* Loc(int16_t i) const { return i >= 0 && i < 4 ? locs_[static_cast<size_t>(i)] : nullptr; }

protected:
    // Escape and the close box are Cancel: the design keeps its places.
    void Dismiss() override { model_.PButCancel_Click(); }
    bool Accepted() const override { return model_.wDone; }

private:
    frmFEQ& model_;
    FighterSlotList* avail_ = nullptr;
    std::array<FighterSlotList*, 4> locs_{};
};

}  // namespace bw::qt
