#include "shell/qt/PickerDialog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QResizeEvent>
#include <QShowEvent>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "shell/qt/Binders.h"

namespace bw::qt {

namespace {
// The model measures in twips; the screen at 96 dots per inch has 15 to a
// pixel.
constexpr int kTwipsPerPixel = 15;
constexpr int kMinWidthTwips = 6000;
constexpr int kMinHeightTwips = 2895;
}  // namespace

PickerDialog::PickerDialog(DesignPicker& model, QWidget* parent) : BoundDialog(model, parent), model_(model) {
    ListView& list = model.List();
    setMinimumSize(kMinWidthTwips / kTwipsPerPixel, kMinHeightTwips / kTwipsPerPixel);
    resize(model_.Width / kTwipsPerPixel, model_.Height / kTwipsPerPixel);

    auto* outer = new QVBoxLayout(this);
    list_ = new QTreeWidget(this);
    list_->setObjectName(QString::fromStdString(list.Name));
    list_->setAllColumnsShowFocus(true);
    BindListView(list_, list);
    outer->addWidget(list_, 1);

    auto* open = new QPushButton(this);
    open->setObjectName("PButOpen");
    BindButton(open, model_.PButOpen);
    open->setDefault(model_.PButOpen.Default);
    auto* cancel = new QPushButton(this);
    cancel->setObjectName("PButCancel");
    BindButton(cancel, model_.PButCancel);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(open);
    buttons->addWidget(cancel);
    outer->addLayout(buttons);
}

void PickerDialog::showEvent(QShowEvent* e) {
    // Columns as wide as their texts; the window grows to show them all
    // when it first opens.
    for (int c = 0; c < list_->columnCount(); ++c) list_->resizeColumnToContents(c);
    if (!e->spontaneous()) {
        const int want = list_->header()->length() + (width() - list_->viewport()->width()) + 4;
        if (want > width()) resize(want, height());
    }
    BoundDialog::showEvent(e);
}

void PickerDialog::resizeEvent(QResizeEvent* e) {
    model_.Width = e->size().width() * kTwipsPerPixel;
    model_.Height = e->size().height() * kTwipsPerPixel;
    model_.Form_Resize();
    QDialog::resizeEvent(e);
}

}  // namespace bw::qt
