#include "shell/qt/AllocationDialog.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "shell/qt/Binders.h"
#include "vehicle/frmVhl.h"

namespace bw::qt {

namespace {

constexpr int16_t kAvail = -1;
const int16_t kLocs[] = {0, 1, 2, 3, 4, 5, 6, 7, kLocBody};

// The list's background follows the model's BackColor (the green of a list
// under a drag); -1 is the style's own.
void BindBackColor(QListWidget* w, ListBox& c) {
    const QPalette normal = w->palette();
    Watch(w, c, [&c, normal](QListWidget* x) {
        QPalette p = normal;
        if (const int32_t col = c.BackColor(); col >= 0)
            p.setColor(QPalette::Base, QColor(col & 0xFF, (col >> 8) & 0xFF, (col >> 16) & 0xFF));
        x->setPalette(p);
    });
}

QByteArray Payload(const Control& c, const frmVEQ& model) {
    return QByteArray::fromStdString(c.Name) + '@' +
           QByteArray::number(static_cast<qulonglong>(reinterpret_cast<quintptr>(&model)));
}

}  // namespace

AllocationList::AllocationList(frmVEQ& model, int16_t loc, QWidget* parent)
    : QListWidget(parent), model_(model), loc_(loc) {
    ListBox& box = loc == kAvail ? model.LBoxAvail : model.LBoxLoc(loc);
    setObjectName(QString::fromStdString(box.Name));
    BindListBox(this, box);
    if (loc == kAvail) {
        setDragEnabled(true);
        setDragDropMode(QAbstractItemView::DragOnly);
    } else {
        setDragDropMode(QAbstractItemView::DropOnly);
        setAcceptDrops(true);
        viewport()->setAcceptDrops(true);
        BindBackColor(this, box);
    }
}

QMimeData* AllocationList::DragPayload() const {
    auto* m = new QMimeData;
    const ListBox& box = loc_ == kAvail ? model_.LBoxAvail : model_.LBoxLoc(loc_);
    m->setData(kAllocationMime, Payload(box, model_));
    return m;
}

const Control* AllocationList::SourceOf(const QMimeData* m) const {
    const QByteArray p = m->data(kAllocationMime);
    if (p == Payload(model_.LBoxAvail, model_)) return &model_.LBoxAvail;
    for (int16_t i : kLocs)
        if (p == Payload(model_.LBoxLoc(i), model_)) return &model_.LBoxLoc(i);
    return nullptr;
}

void AllocationList::startDrag(Qt::DropActions) {
    if (loc_ != kAvail || !model_.LBoxAvail_MouseDown()) return;
    auto* drag = new QDrag(this);
    drag->setMimeData(DragPayload());
    // The model moves the entry on the drop; nothing is removed here.
    drag->exec(Qt::MoveAction);
}

void AllocationList::dragEnterEvent(QDragEnterEvent* e) {
    if (loc_ == kAvail || !e->mimeData()->hasFormat(kAllocationMime)) return e->ignore();
    if (model_.LBoxLoc_DragOver(loc_, true)) e->acceptProposedAction();
    else e->ignore();
}

void AllocationList::dragMoveEvent(QDragMoveEvent* e) {
    if (loc_ == kAvail || !e->mimeData()->hasFormat(kAllocationMime)) return e->ignore();
    e->acceptProposedAction();
}

void AllocationList::dragLeaveEvent(QDragLeaveEvent* e) {
    if (loc_ != kAvail) model_.LBoxLoc_DragOver(loc_, false);
    e->accept();
}

void AllocationList::dropEvent(QDropEvent* e) {
    if (loc_ == kAvail || !e->mimeData()->hasFormat(kAllocationMime)) return e->ignore();
    const Control* source = SourceOf(e->mimeData());
    e->setDropAction(Qt::MoveAction);
    e->accept();
    // The background goes back at once; the rules run after the drag has
    // ended, so a refusal's message box is not opened inside the drag.
    model_.LBoxLoc_DragOver(loc_, false);
    QTimer::singleShot(0, this, [this, source] { model_.LBoxLoc_DragDrop(loc_, source); });
}

AllocationDialog::AllocationDialog(frmVEQ& model, QWidget* parent) : BoundDialog(model, parent), model_(model) {
    setModal(true);

    // One location: its caption over its list, and for a sponson the figure
    // under it; the whole group goes with the list's visibility.
    auto group = [&](int16_t loc) {
        auto* box = new QWidget(this);
        auto* v = new QVBoxLayout(box);
        v->setContentsMargins(0, 0, 0, 0);
        v->setSpacing(2);
        auto* caption = new QLabel(box);
        QFont f = caption->font();
        f.setBold(true);
        caption->setFont(f);
        auto* list = new AllocationList(model_, loc, box);
        list->setMinimumSize(170, 90);
        v->addWidget(caption);
        v->addWidget(list, 1);
        if (loc == kAvail) {
            caption->setText(FromModel(zItemLocationName(kAvail, 0)));
            avail_ = list;
            list->setMinimumHeight(200);
            return box;
        }
        caption->setObjectName(QString::fromStdString(model_.LLocDesc(loc).Name));
        BindLabel(caption, model_.LLocDesc(loc));
        if (loc == kLocLeftSponson || loc == kLocRightSponson) {
            Label& figure = loc == kLocLeftSponson ? model_.LSponsonLeftTonnage : model_.LSponsonRightTonnage;
            auto* l = new QLabel(box);
            l->setObjectName(QString::fromStdString(figure.Name));
            BindLabel(l, figure);
            v->addWidget(l);
        }
        BindCommon(box, model_.LBoxLoc(loc));
        if (loc == kLocBody) body_ = list;
        else locs_[static_cast<size_t>(loc)] = list;
        return box;
    };

    // Laid out as the vehicle is seen from above: turrets and front at the
    // top, sides and sponsons beside the unallocated list, rear and body
    // below.
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->addWidget(group(kLocTurret), 0, 0);
    grid->addWidget(group(kLocFront), 0, 1);
    grid->addWidget(group(kLocSecondTurret), 0, 2);
    grid->addWidget(group(kLocLeft), 1, 0);
    grid->addWidget(group(kAvail), 1, 1, 2, 1);
    grid->addWidget(group(kLocRight), 1, 2);
    grid->addWidget(group(kLocLeftSponson), 2, 0);
    grid->addWidget(group(kLocRightSponson), 2, 2);
    grid->addWidget(group(kLocBody), 3, 0);
    grid->addWidget(group(kLocRear), 3, 1);

    // The keyboard's road: a location, Move, Take Back.
    auto* moveTo = new QLabel(this);
    moveTo->setObjectName("LMoveTo");
    BindLabel(moveTo, model_.LMoveTo);
    auto* chooser = MakeBound<QComboBox>(model_.cmboMoveTo, this, BindCombo);
    moveTo->setBuddy(chooser);
    auto* keys = new QHBoxLayout;
    keys->addWidget(moveTo);
    keys->addWidget(chooser);
    keys->addWidget(MakeBound<QPushButton>(model_.PButMove, this, BindButton));
    keys->addWidget(MakeBound<QPushButton>(model_.PButTakeBack, this, BindButton));
    keys->addStretch(1);
    keys->addWidget(MakeBound<QPushButton>(model_.PButDone, this, BindButton));
    auto* hint = new QLabel(this);
    hint->setObjectName("LHint");
    BindLabel(hint, model_.LHint);
    hint->setStyleSheet("color: #4a5563;");
    hint->setWordWrap(true);

    // The lists scroll as a whole on a small screen; the commands stay.
    auto* lists = new QWidget;
    lists->setLayout(grid);
    auto* outer = new QVBoxLayout(this);
    outer->addWidget(ScrollingPage(lists), 1);
    outer->addWidget(hint);
    outer->addLayout(keys);
    // As large as its lists want; showing it keeps it within the screen.
    resize(sizeHint());
}

AllocationList* AllocationDialog::Loc(int16_t i) const {
    if (i == kLocBody) return body_;
    if (i < 0 || i > 7) return nullptr;
    return locs_[static_cast<size_t>(i)];
}

}  // namespace bw::qt
