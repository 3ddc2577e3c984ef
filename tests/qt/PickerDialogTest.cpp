// The design pickers on real widgets: rows from the table, a click enables
// the action, a double click picks only then, header clicks sort as text,
// cancel, the caption and action of the command, and the minimum size.
#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "core/Vocabulary.h"
#include "database/DatabaseOps.h"
#include "fighter/Fighter.h"
#include "shell/frmFOpen.h"
#include "shell/frmVOpen.h"
#include "shell/qt/PickerDialog.h"
#include "support/FakeUi.h"
#include "vehicle/Vehicle.h"

using namespace bw;

namespace {

class QtPicker : public ::testing::Test {
protected:
    test::ScopedFakeUi fake;
    void SetUp() override {
        zResetDatabase();
        gVehicles.clear();
        Add("Zebra", 0, kVhlTracked, 100);
        Add("", 0, 0, 0);  // a blank a delete left
        Add("Alpha", 1, kVhlVTOL, 20);
        Add("Mule", 0, kVhlSuperHeavy, 5);
    }
    void TearDown() override { zResetDatabase(); }
    static void Add(const std::string& name, int16_t base, int16_t type, int16_t tons) {
        auto v = std::make_shared<Vehicle>();
        v->Name = name;
        v->TechBase = base;
        v->VhlType = type;
        v->Tonnage = tons;
        v->CruiseSpeed = 3;
        v->FlankSpeed = 5;
        gVehicles.push_back(v);
    }
    static QStringList Column(QTreeWidget* w, int col) {
        QStringList out;
        for (int i = 0; i < w->topLevelItemCount(); ++i) out << w->topLevelItem(i)->text(col);
        return out;
    }
    static void ClickRow(QTreeWidget* w, int row) {
        QTest::mouseClick(w->viewport(), Qt::LeftButton, {}, w->visualItemRect(w->topLevelItem(row)).center());
    }
    static void ClickHeader(QTreeWidget* w, int column) {
        QHeaderView* h = w->header();
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {},
                          QPoint(h->sectionViewportPosition(column) + h->sectionSize(column) / 2, h->height() / 2));
    }
    static QPushButton* Button(QWidget* dlg, const char* name) { return dlg->findChild<QPushButton*>(name); }
};

}  // namespace

TEST_F(QtPicker, RowsClickDoubleClickAndSort) {
    frmVOpen model;
    model.Window.SetVisible(true);
    model.Form_Activate();
    qt::PickerDialog dlg(model);
    dlg.show();
    QTreeWidget* list = dlg.List();
    EXPECT_EQ(dlg.windowTitle(), "Open Vehicle");
    ASSERT_EQ(list->topLevelItemCount(), 3);
    EXPECT_EQ(list->headerItem()->text(3), "Tonnage");
    EXPECT_EQ(Column(list, 0), (QStringList{"Zebra", "Alpha", "Mule"}));
    EXPECT_EQ(Column(list, 2), (QStringList{"Tracked", "V.T.O.L.", "Super Heavy Tank"}));
    QPushButton* open = Button(&dlg, "PButOpen");
    EXPECT_FALSE(open->isEnabled());
    EXPECT_EQ(open->text(), "&Open");

    if (qEnvironmentVariableIsSet("BW_PICKER_SCREENSHOT"))
        dlg.grab().save(qEnvironmentVariable("BW_PICKER_SCREENSHOT"));

    // No row clicked yet: a double click picks nothing.
    emit list->itemDoubleClicked(list->topLevelItem(1), 0);
    EXPECT_TRUE(dlg.isVisible());
    EXPECT_TRUE(model.Window.Visible());

    // A header click sorts by that column as text: "100" before "20" before "5".
    ClickHeader(list, 3);
    EXPECT_EQ(Column(list, 3), (QStringList{"100", "20", "5"}));
    ClickHeader(list, 0);
    EXPECT_EQ(Column(list, 0), (QStringList{"Alpha", "Mule", "Zebra"}));

    ClickRow(list, 1);  // Mule, table index 3
    EXPECT_TRUE(open->isEnabled());
    EXPECT_TRUE(dlg.isVisible());
    emit list->itemDoubleClicked(list->topLevelItem(1), 0);
    EXPECT_FALSE(dlg.isVisible());
    EXPECT_EQ(dlg.result(), QDialog::Accepted);
    EXPECT_EQ(model.wCancel, 0);
    EXPECT_EQ(model.wSel, 3);
}

TEST_F(QtPicker, OpenButtonAndCancel) {
    frmVOpen model;
    model.Window.SetVisible(true);
    model.Form_Activate();
    qt::PickerDialog dlg(model);
    dlg.show();
    ClickRow(dlg.List(), 0);
    QTest::mouseClick(Button(&dlg, "PButOpen"), Qt::LeftButton);
    EXPECT_FALSE(dlg.isVisible());
    EXPECT_EQ(model.wSel, 0);

    frmVOpen again;
    again.Window.SetVisible(true);
    again.Form_Activate();
    qt::PickerDialog dlg2(again);
    dlg2.show();
    ClickRow(dlg2.List(), 2);
    QTest::mouseClick(Button(&dlg2, "PButCancel"), Qt::LeftButton);
    EXPECT_FALSE(dlg2.isVisible());
    EXPECT_EQ(dlg2.result(), QDialog::Rejected);
    EXPECT_EQ(again.wCancel, -1);

    // Escape cancels too.
    frmVOpen third;
    third.Window.SetVisible(true);
    third.Form_Activate();
    qt::PickerDialog dlg3(third);
    dlg3.show();
    third.wCancel = 0;  // as if a pick had started
    QTest::keyClick(&dlg3, Qt::Key_Escape);
    EXPECT_FALSE(dlg3.isVisible());
    EXPECT_EQ(third.wCancel, -1);
    EXPECT_FALSE(third.Window.Visible());
}

TEST_F(QtPicker, MinimumSizeIsTheTwipsMinimum) {
    frmVOpen model;
    model.Form_Activate();
    qt::PickerDialog dlg(model);
    EXPECT_EQ(dlg.minimumSize(), QSize(6000 / 15, 2895 / 15));
    dlg.show();
    dlg.resize(900, 500);
    QApplication::processEvents();
    EXPECT_EQ(model.Width, 900 * 15);
    EXPECT_EQ(model.lvWidth, 900 * 15 - 360);
    dlg.resize(50, 50);
    QApplication::processEvents();
    EXPECT_GE(model.Width, 6000);
    EXPECT_GE(model.Height, 2895);
}

TEST_F(QtPicker, ModalShowsForTheCommands) {
    // The delete command's words, through the main window's road.
    std::string title, action;
    QTimer::singleShot(0, [&] {
        auto* dlg = qobject_cast<qt::PickerDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dlg, nullptr);
        title = dlg->windowTitle().toStdString();
        action = Button(dlg, "PButOpen")->text().toStdString();
        ClickRow(dlg->List(), 1);
        QTest::mouseClick(Button(dlg, "PButOpen"), Qt::LeftButton);
    });
    const int16_t sel = zShowPicker<frmVOpen>("Delete Vehicle", "&Delete");
    EXPECT_EQ(title, "Delete Vehicle");
    EXPECT_EQ(action, "&Delete");
    EXPECT_EQ(sel, 2);

    // The fighter twin.
    auto f = std::make_shared<Fighter>();
    f->Name = "Sparrow";
    f->FighterType = 1;
    gFighters[0] = f;
    QString type;
    QTimer::singleShot(0, [&] {
        auto* dlg = qobject_cast<qt::PickerDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dlg, nullptr);
        ASSERT_EQ(dlg->List()->topLevelItemCount(), 1);
        type = dlg->List()->topLevelItem(0)->text(2);
        QTest::keyClick(dlg, Qt::Key_Escape);
    });
    frmFOpen fm;
    zShowModal(fm);
    EXPECT_EQ(type, "Aerospace Fighter");
    EXPECT_EQ(fm.wCancel, -1);
}

TEST_F(QtPicker, KeyboardChoosesWholeRowsAndEnterOpensOnceChosen) {
    frmVOpen model;
    model.Window.SetVisible(true);
    model.Form_Activate();
    qt::PickerDialog dlg(model);
    dlg.show();
    QTreeWidget* list = dlg.List();
    EXPECT_EQ(list->selectionBehavior(), QAbstractItemView::SelectRows);
    QTest::keyClick(list, Qt::Key_Return);  // nothing chosen yet
    EXPECT_TRUE(dlg.isVisible());
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Down);  // Alpha, table index 2
    EXPECT_TRUE(Button(&dlg, "PButOpen")->isEnabled());
    EXPECT_EQ(model.lvVHLs.SelectedIndex(), 1);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(dlg.isVisible());
    EXPECT_EQ(model.wCancel, 0);
    EXPECT_EQ(model.wSel, 2);
}
