#include "shell/qt/FighterDialogs.h"

#include <QComboBox>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/Vocabulary.h"
#include "shell/qt/Binders.h"

namespace bw::qt {

namespace {

constexpr const char* kFighterMime = "application/x-brasswick-fighter-entry";

QPushButton* Button(CommandButton& c, QWidget* parent) {
    auto* b = new QPushButton(parent);
    b->setObjectName(QString::fromStdString(c.Name));
    BindButton(b, c);
    b->setDefault(c.Default);
    b->setAutoDefault(c.Default);
    return b;
}

QByteArray Payload(const frmFEQ& model) {
    return QByteArray::number(static_cast<qulonglong>(reinterpret_cast<quintptr>(&model)));
}

}  // namespace

// ---- New Fighter -------------------------------------------------------------

NewFighterDialog::NewFighterDialog(frmNFtr& model, QWidget* parent) : BoundDialog(model, parent), model_(model) {
    auto* outer = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    auto combo = [this](ComboBox& c, const QString& caption, QFormLayout* f) {
        auto* w = new QComboBox(this);
        w->setObjectName(QString::fromStdString(c.Name));
        w->setMinimumContentsLength(16);
        BindCombo(w, c);
        auto* l = new QLabel(caption, this);
        l->setBuddy(w);
        f->addRow(l, w);
    };
    combo(model_.cmboBase, tr("Technology &Base:"), form);
    combo(model_.cmboLevel, tr("Technology &Level:"), form);
    combo(model_.cmboType, tr("Fighter &Type:"), form);
    outer->addLayout(form);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Button(model_.PButCreate, this));
    buttons->addWidget(Button(model_.PButCancel, this));
    outer->addLayout(buttons);
    setFixedSize(sizeHint());
}

// ---- Allocation --------------------------------------------------------------

FighterSlotList::FighterSlotList(frmFEQ& model, int16_t loc, QWidget* parent)
    : QListWidget(parent), model_(model), loc_(loc) {
    ListBox& box = loc < 0 ? model.LBoxAvail : model.LBoxLoc(loc);
    setObjectName(QString::fromStdString(box.Name));
    BindListBox(this, box);
    if (loc < 0) {
        setDragEnabled(true);
        setDragDropMode(QAbstractItemView::DragOnly);
        return;
    }
    setDragDropMode(QAbstractItemView::DropOnly);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    // The back colour follows the model: green under a drag.
    const QPalette normal = palette();
    Watch(this, box, [&box, normal](QListWidget* x) {
        QPalette p = normal;
        if (const int32_t col = box.BackColor(); col >= 0 && col != 0x8080FF)
            p.setColor(QPalette::Base, QColor(col & 0xFF, (col >> 8) & 0xFF, (col >> 16) & 0xFF));
        x->setPalette(p);
    });
}

QMimeData* FighterSlotList::DragPayload() const {
    auto* m = new QMimeData;
    m->setData(kFighterMime, Payload(model_));
    return m;
}

void FighterSlotList::startDrag(Qt::DropActions) {
    if (loc_ >= 0 || !model_.LBoxAvail_MouseDown()) return;
    auto* drag = new QDrag(this);
    drag->setMimeData(DragPayload());
    drag->exec(Qt::MoveAction);
}

void FighterSlotList::dragEnterEvent(QDragEnterEvent* e) {
    if (loc_ < 0 || !e->mimeData()->hasFormat(kFighterMime)) return e->ignore();
    model_.LBoxLoc_DragOver(loc_, true);
    e->acceptProposedAction();
}

void FighterSlotList::dragMoveEvent(QDragMoveEvent* e) {
    if (loc_ < 0 || !e->mimeData()->hasFormat(kFighterMime)) return e->ignore();
    e->acceptProposedAction();
}

void FighterSlotList::dragLeaveEvent(QDragLeaveEvent* e) {
    if (loc_ >= 0) model_.LBoxLoc_DragOver(loc_, false);
    e->accept();
}

void FighterSlotList::dropEvent(QDropEvent* e) {
    if (loc_ < 0 || !e->mimeData()->hasFormat(kFighterMime)) return e->ignore();
    // Only a drag from this window's available list counts.
    const Control* source = e->mimeData()->data(kFighterMime) == Payload(model_) ? &model_.LBoxAvail : nullptr;
    e->setDropAction(Qt::MoveAction);
    e->accept();
    // The rules run after the drag has ended, so a refusal's message box is
    // not opened inside it.
    QTimer::singleShot(0, this, [this, source] { model_.LBoxLoc_DragDrop(loc_, source); });
}

FighterAllocationDialog::FighterAllocationDialog(frmFEQ& model, QWidget* parent)
    : BoundDialog(model, parent), model_(model) {
    setModal(true);
    auto group = [&](int16_t loc) {
        auto* box = new QWidget(this);
        auto* v = new QVBoxLayout(box);
        v->setContentsMargins(0, 0, 0, 0);
        v->setSpacing(2);
        static const char* const names[4] = {"Nose", "Left Wing", "Right Wing", "Rear"};
        auto* caption = new QLabel(loc < 0 ? tr("Available Equipment") : tr(names[loc]), box);
        QFont f = caption->font();
        f.setBold(true);
        caption->setFont(f);
        auto* list = new FighterSlotList(model_, loc, box);
        list->setMinimumSize(200, loc == 3 ? 60 : 130);
        v->addWidget(caption);
        v->addWidget(list, 1);
        if (loc < 0) avail_ = list;
        else locs_[static_cast<size_t>(loc)] = list;
        return box;
    };
    // As the fighter is seen from above: the nose at the top, the wings on
    // either side of the available list, the rear below.
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->addWidget(group(kFtrLocNose), 0, 1);
    grid->addWidget(group(kFtrLocLeftWing), 1, 0);
    grid->addWidget(group(-1), 1, 1);
    grid->addWidget(group(kFtrLocRightWing), 1, 2);
    grid->addWidget(group(kFtrLocRear), 2, 1);

    auto* help = new QLabel(this);
    help->setObjectName("LHelp");
    help->setWordWrap(true);
    help->setStyleSheet("color: #4a5563;");
    BindLabel(help, model_.LHelp);
    model_.PButDone.Default = true;
    model_.PButCancel.Cancel = true;
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(help, 1);
    bottom->addWidget(Button(model_.PButDone, this));
    bottom->addWidget(Button(model_.PButCancel, this));

    auto* outer = new QVBoxLayout(this);
    outer->addLayout(grid, 1);
    outer->addLayout(bottom);
}

}  // namespace bw::qt
