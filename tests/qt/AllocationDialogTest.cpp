// The allocation window bound to its model: drops onto location lists with
// the green highlight, the double click back, Done refusing unbalanced
// sponsons, and the close box leaving the design alone.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QDrag>

#include <memory>

#include "shell/qt/AllocationDialog.h"
#include "vehicle/VehicleTestSupport.h"

using namespace bw;
using namespace bw::test;

namespace {

VehicleItem Used(int16_t type, int16_t num, int16_t loc) { return {type, num, loc, kTrue}; }

class QtAllocation : public ::testing::Test {
protected:
    ScopedFakeUi fake;
    ScopedWeapons weapons;
    std::shared_ptr<Vehicle> v = std::make_shared<Vehicle>();
    frmVEQ model;
    std::unique_ptr<qt::AllocationDialog> dlg;

    void Open(std::vector<VehicleItem> items, bool sponsons = false) {
        v->VhlType = 0;
        v->HasSponsonTurrets = zBool(sponsons);
        v->Items = std::move(items);
        model.vhl = v;
        model.Form_Load();
        model.Window.SetVisible(true);
        dlg = std::make_unique<qt::AllocationDialog>(model);
        dlg->show();
    }
    QStringList Rows(QListWidget* w) {
        QStringList r;
        for (int i = 0; i < w->count(); ++i) r << w->item(i)->text();
        return r;
    }
    // Presses on an entry of the unallocated list, as the start of a drag.
    void Press(const QString& text) {
        auto found = dlg->Avail()->findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        QRect r = dlg->Avail()->visualItemRect(found[0]);
        QTest::mouseClick(dlg->Avail()->viewport(), Qt::LeftButton, {}, r.center());
    }
    // A real double click: the first click selects, the second opens.
    static void DoubleClick(QListWidget* w, int row) {
        const QPoint at = w->visualItemRect(w->item(row)).center();
        QTest::mouseClick(w->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(w->viewport(), Qt::LeftButton, {}, at);
    }
    static QColor Base(QListWidget* w) { return w->palette().color(QPalette::Base); }

    // The events a drag over a list delivers, with the payload the source
    // list gives its drags.
    void Enter(QListWidget* target, QMimeData* data) {
        QPoint at = target->viewport()->rect().center();
        QDragEnterEvent enter(at, Qt::MoveAction, data, Qt::LeftButton, {});
        QApplication::sendEvent(target->viewport(), &enter);
        QDragMoveEvent move(at, Qt::MoveAction, data, Qt::LeftButton, {});
        QApplication::sendEvent(target->viewport(), &move);
        lastAccepted = enter.isAccepted() && move.isAccepted();
    }
    void DropOn(QListWidget* target, QMimeData* data) {
        QDropEvent drop(target->viewport()->rect().center(), Qt::MoveAction, data, Qt::LeftButton, {});
        QApplication::sendEvent(target->viewport(), &drop);
        QCoreApplication::processEvents();
    }
    void Drag(const QString& text, int16_t loc) {
        Press(text);
        std::unique_ptr<QMimeData> data(dlg->Avail()->DragPayload());
        Enter(dlg->Loc(loc), data.get());
        DropOn(dlg->Loc(loc), data.get());
    }
    bool lastAccepted = false;
};

const QColor kGreen(0, 255, 0), kWhite(255, 255, 255);

}  // namespace

TEST_F(QtAllocation, DragHighlightsGreenAndDropMovesTheEntry) {
    Open({Used(kMedLaser, 1, -1), Used(kAC5, 1, -1), Used(kAC5Ammo, 1, 99)});
    EXPECT_EQ(Rows(dlg->Avail()), (QStringList{"Medium Laser (#1)", "AC/5 (#1)"}));
    EXPECT_EQ(Rows(dlg->Loc(99)), QStringList{"AC/5 Ammo (#1)"});
    EXPECT_FALSE(dlg->Loc(4)->isVisible());  // no turret
    EXPECT_TRUE(dlg->Loc(0)->isVisible());
    const QColor normal = Base(dlg->Loc(0));

    Press("AC/5 (#1)");
    EXPECT_EQ(model.LBoxAvail.ListIndex(), 1);
    std::unique_ptr<QMimeData> data(dlg->Avail()->DragPayload());
    QListWidget* front = dlg->Loc(0);
    Enter(front, data.get());
    EXPECT_TRUE(lastAccepted);
    EXPECT_EQ(Base(front), kGreen);
    EXPECT_EQ(Base(dlg->Loc(1)), normal);

    // Leaving puts the white back and moves nothing.
    QDragLeaveEvent leave;
    QApplication::sendEvent(front->viewport(), &leave);
    EXPECT_EQ(Base(front), kWhite);
    EXPECT_EQ(front->count(), 0);

    Enter(front, data.get());
    EXPECT_EQ(Base(front), kGreen);
    DropOn(front, data.get());
    EXPECT_EQ(Base(front), kWhite);
    EXPECT_EQ(Rows(front), QStringList{"AC/5 (#1)"});
    EXPECT_EQ(Rows(dlg->Avail()), QStringList{"Medium Laser (#1)"});
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(QtAllocation, ForeignDragsAreNotTaken) {
    Open({Used(kMedLaser, 1, -1)});
    QListWidget* left = dlg->Loc(1);
    // Plain text: not this window's kind of drag.
    QMimeData text;
    text.setText("Medium Laser (#1)");
    Enter(left, &text);
    EXPECT_FALSE(lastAccepted);
    EXPECT_NE(Base(left), kGreen);

    // The payload of another allocation window names a different model.
    frmVEQ other;
    other.vhl = v;
    other.Form_Load();
    qt::AllocationDialog second(other);
    Press("Medium Laser (#1)");
    std::unique_ptr<QMimeData> foreign(second.Avail()->DragPayload());
    Enter(left, foreign.get());
    DropOn(left, foreign.get());
    EXPECT_EQ(left->count(), 0);
    EXPECT_EQ(dlg->Avail()->count(), 1);
}

TEST_F(QtAllocation, RefusedDropShowsTheMessageAfterTheDrag) {
    Open({Used(kAC5Ammo, 1, -1)});
    Drag("AC/5 Ammo (#1)", 2);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Unable to add item");
    EXPECT_EQ(fake.ui.LastBox().text, "Ammunition may only be added to the Body location on a vehicle.");
    EXPECT_EQ(dlg->Loc(2)->count(), 0);
    EXPECT_EQ(Base(dlg->Loc(2)), kWhite);
    Drag("AC/5 Ammo (#1)", 99);
    EXPECT_EQ(Rows(dlg->Loc(99)), QStringList{"AC/5 Ammo (#1)"});
}

TEST_F(QtAllocation, DoubleClickTakesAnEntryBack) {
    Open({Used(kMedLaser, 1, 3), Used(kAC5, 1, 3)});
    QListWidget* rear = dlg->Loc(3);
    DoubleClick(rear, 1);
    EXPECT_EQ(Rows(rear), QStringList{"Medium Laser (#1)"});
    EXPECT_EQ(Rows(dlg->Avail()), QStringList{"AC/5 (#1)"});
    EXPECT_EQ(v->Items[1].wLoc, 3);  // not yet written
}

TEST_F(QtAllocation, DoneRefusesUnbalancedSponsonsThenCloses) {
    Open({Used(kMedLaser, 1, -1), Used(kLargeLaser, 1, -1), Used(kCargo, 1, -1)}, true);
    auto* left = dlg->findChild<QLabel*>("LSponsonLeftTonnage");
    ASSERT_NE(left, nullptr);
    EXPECT_TRUE(left->isVisible());
    EXPECT_EQ(left->text(), "0 tons mounted");
    Drag("Medium Laser (#1)", 6);
    Drag("Large Laser (#1)", 7);
    EXPECT_EQ(left->text(), "1 tons mounted");
    EXPECT_EQ(left->palette().color(QPalette::WindowText), QColor(255, 0, 0));

    auto* done = dlg->findChild<QPushButton*>("PButDone");
    ASSERT_NE(done, nullptr);
    QTest::mouseClick(done, Qt::LeftButton);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Unbalanced Sponson Turrets");
    EXPECT_TRUE(dlg->isVisible());
    EXPECT_EQ(v->Items[0].wLoc, -1);

    // Balanced by taking the large laser back and mounting the cargo.
    QListWidget* right = dlg->Loc(7);
    DoubleClick(right, 0);
    Drag("Cargo Space (#1)", 7);
    EXPECT_EQ(left->palette().color(QPalette::WindowText), QColor(0, 0, 0));
    QTest::mouseClick(done, Qt::LeftButton);
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_FALSE(dlg->isVisible());
    EXPECT_EQ(dlg->result(), QDialog::Accepted);
    EXPECT_TRUE(model.wDone);
    EXPECT_EQ(v->Items[0].wLoc, 6);
    EXPECT_EQ(v->Items[1].wLoc, -1);
    EXPECT_EQ(v->Items[2].wLoc, 7);
}

TEST_F(QtAllocation, CloseBoxWritesNothing) {
    Open({Used(kMedLaser, 1, -1), Used(kAC5Ammo, 1, 99)});
    Drag("Medium Laser (#1)", 0);
    ASSERT_EQ(dlg->Loc(0)->count(), 1);
    if (qEnvironmentVariableIsSet("BW_VEQ_SCREENSHOT")) dlg->grab().save(qEnvironmentVariable("BW_VEQ_SCREENSHOT"));
    dlg->close();
    EXPECT_FALSE(dlg->isVisible());
    EXPECT_EQ(dlg->result(), QDialog::Rejected);
    EXPECT_FALSE(model.Window.Visible());
    EXPECT_FALSE(model.wDone);
    EXPECT_EQ(v->Items[0].wLoc, -1);
    EXPECT_EQ(v->Items[1].wLoc, 99);
}

TEST_F(QtAllocation, PressAndMoveStartsADragWithThePayloadTheListsTake) {
    // The offscreen platform does not carry a real drag to another widget, so
    // the drag is looked at inside its own loop and cancelled; the drops
    // above use the same payload.
    Open({Used(kMedLaser, 1, -1), Used(kAC5, 1, -1)});
    qt::AllocationList* avail = dlg->Avail();
    const QPoint from = avail->visualItemRect(avail->item(1)).center();
    QByteArray carried;
    bool dragging = false;
    QTimer::singleShot(0, [&] {
        if (auto* drag = avail->findChild<QDrag*>()) {
            dragging = true;
            carried = drag->mimeData()->data(qt::kAllocationMime);
        }
        QDrag::cancel();
    });
    QTest::mousePress(avail->viewport(), Qt::LeftButton, {}, from);
    QTest::mouseMove(avail->viewport(), from + QPoint(QApplication::startDragDistance() + 5, 0));
    QTest::mouseMove(avail->viewport(), from + QPoint(QApplication::startDragDistance() + 10, 4));
    QTest::mouseRelease(avail->viewport(), Qt::LeftButton, {}, from);
    QCoreApplication::processEvents();
    EXPECT_TRUE(dragging);
    std::unique_ptr<QMimeData> expected(avail->DragPayload());
    EXPECT_EQ(carried, expected->data(qt::kAllocationMime));
    EXPECT_FALSE(carried.isEmpty());
    // A cancelled drag moves nothing.
    EXPECT_EQ(avail->count(), 2);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(QtAllocation, KeyboardMovesToTheChosenPlaceTakesBackAndEnterNeverCloses) {
    Open({Used(kMedLaser, 1, -1), Used(kAC5, 1, -1)});
    QApplication::setActiveWindow(dlg.get());
    QListWidget* avail = dlg->Avail();
    avail->setFocus();
    QTest::keyClick(avail, Qt::Key_End);
    QTest::keyClick(avail, Qt::Key_Home);  // the keyboard's row is the selection
    EXPECT_EQ(model.LBoxAvail.ListIndex(), 0);
    auto* chooser = dlg->findChild<QComboBox*>("cmboMoveTo");
    ASSERT_NE(chooser, nullptr);
    chooser->setFocus();
    QTest::keyClick(chooser, Qt::Key_Down);  // Front to Left
    EXPECT_EQ(model.cmboMoveTo.Text(), "Left");
    QTest::keyClick(avail, Qt::Key_Return);
    EXPECT_EQ(Rows(dlg->Loc(1)), QStringList{"Medium Laser (#1)"});
    EXPECT_EQ(Rows(avail), QStringList{"AC/5 (#1)"});
    // Enter in the chooser moves too: Move is the window's default.
    QTest::keyClick(chooser, Qt::Key_Return);
    EXPECT_EQ(Rows(dlg->Loc(1)), (QStringList{"Medium Laser (#1)", "AC/5 (#1)"}));
    QTest::keyClick(avail, Qt::Key_Return);  // empty: nothing, and the window stays
    EXPECT_TRUE(dlg->isVisible());

    QListWidget* left = dlg->Loc(1);
    left->setFocus();
    QTest::keyClick(left, Qt::Key_End);
    QTest::keyClick(left, Qt::Key_Home);
    QTest::keyClick(left, Qt::Key_Delete);
    EXPECT_EQ(Rows(avail), QStringList{"Medium Laser (#1)"});
    QTest::keyClick(left, Qt::Key_Return);
    EXPECT_EQ(Rows(avail), (QStringList{"Medium Laser (#1)", "AC/5 (#1)"}));
    EXPECT_TRUE(dlg->isVisible());
    EXPECT_FALSE(model.wDone);
    EXPECT_TRUE(fake.ui.boxes.empty());
}
