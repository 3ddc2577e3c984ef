// The equipment allocation window in Qt: the unallocated list in the middle,
// the location lists around it. Entries are dragged from the unallocated
// list onto a location and double-clicked back; the model decides every
// move.
#pragma once

#include "shell/qt/FormHost.h"
#include <QListWidget>

#include <array>

#include "vehicle/frmVEQ.h"

class QMimeData;

namespace bw {
class frmVhl;
}

namespace bw::qt {

// The drag payload's type; the text names the source list and its window.
constexpr const char* kAllocationMime = "application/x-brasswick-allocation-entry";

// One list of the window. The unallocated list (loc -1) starts drags; a
// location list takes them and hands the drop to the model.
class AllocationList : public QListWidget {
    Q_OBJECT
public:
    AllocationList(frmVEQ& model, int16_t loc, QWidget* parent);
    // The payload a drag from this list carries.
    QMimeData* DragPayload() const;

protected:
    void startDrag(Qt::DropActions supported) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dragMoveEvent(QDragMoveEvent* e) override;
    void dragLeaveEvent(QDragLeaveEvent* e) override;
    void dropEvent(QDropEvent* e) override;

private:
    frmVEQ& model_;
    int16_t loc_;
    // The model's control the payload names, or null when it is not from
    // this window.
    const Control* SourceOf(const QMimeData* m) const;
};

class AllocationDialog : public BoundDialog {
    Q_OBJECT
public:
    explicit AllocationDialog(frmVEQ& model, QWidget* parent = nullptr);

    AllocationList* Avail() const { return avail_; }
    // 0 to 7 and 99.
    AllocationList* Loc(int16_t i) const;

    // The title bar's close and Escape hide the window without Done, so the
    // design keeps its places.
protected:
    bool Accepted() const override { return model_.wDone; }

private:
    frmVEQ& model_;
    AllocationList* avail_ = nullptr;
    std::array<AllocationList*, 8> locs_{};
    AllocationList* body_ = nullptr;
};

}  // namespace bw::qt
