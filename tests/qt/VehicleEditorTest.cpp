// The vehicle editor's widgets drive its model as a user would: typing and
// leaving a box, the arrows of an up-down, check boxes, the tabs, the trees,
// the armor inputs on the diagram, and the close button's question.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Vocabulary.h"
#include "core/Settings.h"
#include "database/DatabaseOps.h"
#include "refdata/Weapons.h"
#include "shell/qt/VehicleEditor.h"
#include "support/FakeUi.h"
#include "support/NewEditor.h"

using namespace bw;

namespace {

class QtVehicleEditor : public ::testing::Test {
protected:
    test::ScopedFakeUi fake;
    std::string savedPath = gAppPath;
    std::vector<WeaponRec> savedWeapons = gWeapons;
    QPointer<qt::VehicleEditor> editor;

    void SetUp() override {
        SetAppPath(BW_BIN_DIR);
        ASSERT_TRUE(zLoadWeapons());
    }
    void TearDown() override {
        if (editor) {
            editor->Model().wSaved = kTrue;  // no question on the way out
            editor->close();
        }
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        gWeapons = savedWeapons;
        SetAppPath(savedPath);
        zResetDatabase();
    }

    // As the New Vehicle command makes an editor.
    qt::VehicleEditor& Open(int16_t type, int16_t base = 0, int16_t level = 3) {
        editor = qt::zShowVehicleEditor(test::NewEditor(type, base, level));
        editor->resize(editor->sizeHint());
        EXPECT_TRUE(QTest::qWaitForWindowExposed(editor));
        return *editor;
    }
    template <class W>
    W* Find(const char* name, QWidget* under = nullptr) {
        auto* w = (under ? under : static_cast<QWidget*>(editor))->findChild<W*>(name);
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    static void TypeAndLeave(QLineEdit* e, const QString& text) {
        e->setFocus();
        e->selectAll();
        QTest::keyClicks(e, text);
        e->clearFocus();
    }
    static void Shot(QWidget& w, const QString& file) {
        if (qEnvironmentVariableIsSet("BW_TEST_SHOTS"))
            w.grab().save(qEnvironmentVariable("BW_TEST_SHOTS") + "/" + file);
    }
};

}  // namespace

TEST_F(QtVehicleEditor, ChassisInputsRunTheRules) {
    auto& ed = Open(kVhlTracked);
    frmVhl& m = ed.Model();
    TypeAndLeave(Find<QLineEdit>("TTonnage"), "50");
    EXPECT_EQ(m.vhl->Tonnage, 50);
    EXPECT_EQ(m.scrlTonnage.Value(), 50);
    // A figure off the five-ton steps starts again at the bottom.
    TypeAndLeave(Find<QLineEdit>("TTonnage"), "52");
    EXPECT_EQ(m.vhl->Tonnage, 5);
    TypeAndLeave(Find<QLineEdit>("TTonnage"), "50");

    auto* speed = Find<QWidget>("scrlSpeed");
    auto* up = speed->findChild<QToolButton*>("up");
    ASSERT_NE(up, nullptr);
    for (int i = 0; i < 3; ++i) QTest::mouseClick(up, Qt::LeftButton);
    EXPECT_EQ(m.vhl->CruiseSpeed, 4);
    EXPECT_EQ(Find<QLineEdit>("TCruise")->text(), "4");
    EXPECT_EQ(m.vhl->FlankSpeed, 6);
    EXPECT_EQ(Find<QLabel>("LFlank")->text(), "6");

    QTest::mouseClick(Find<QCheckBox>("CBoxHasTurret"), Qt::LeftButton);
    EXPECT_EQ(m.vhl->HasTurret, kTrue);
    // Unsaved: the title carries the mark.
    EXPECT_TRUE(ed.windowTitle().endsWith(" *"));
    TypeAndLeave(Find<QLineEdit>("TName"), "Rampart");
    EXPECT_EQ(m.vhl->Name, "Rampart");
    EXPECT_EQ(ed.windowTitle(), "Rampart *");
    Shot(ed, "editor-tracked-general.png");
}

TEST_F(QtVehicleEditor, TreesAddAndRemoveThroughTheButtons) {
    auto& ed = Open(kVhlTracked);
    frmVhl& m = ed.Model();
    auto* avail = Find<QTreeWidget>("tvAvailEq");
    ASSERT_EQ(avail->topLevelItemCount(), 6);
    QTreeWidgetItem* energy = avail->topLevelItem(0);
    EXPECT_EQ(energy->text(0), "Energy Weapons");
    energy->setExpanded(true);
    // Filling the group rebuilds the widget's items.
    energy = avail->topLevelItem(0);
    EXPECT_TRUE(energy->isExpanded());
    ASSERT_GT(energy->childCount(), 5);
    EXPECT_FALSE(energy->child(0)->data(0, Qt::UserRole).toString().startsWith("BLANK"));
    // Pick the first row and add it twice.
    avail->setCurrentItem(energy->child(0));
    QTest::mouseClick(avail->viewport(), Qt::LeftButton, {}, avail->visualItemRect(energy->child(0)).center());
    auto* add = Find<QPushButton>("PButEquipment(0)");
    QTest::mouseClick(add, Qt::LeftButton);
    QTest::mouseClick(add, Qt::LeftButton);
    EXPECT_EQ(m.vhl->WeaponCount(), 2);
    auto* sel = Find<QTreeWidget>("tvSelectedEq");
    ASSERT_EQ(sel->topLevelItemCount(), 1);
    EXPECT_EQ(sel->topLevelItem(0)->text(0), "Not Allocated");
    EXPECT_EQ(sel->topLevelItem(0)->childCount(), 2);
    // Remove the second.
    QTreeWidgetItem* second = sel->topLevelItem(0)->child(1);
    sel->expandAll();
    QTest::mouseClick(sel->viewport(), Qt::LeftButton, {}, sel->visualItemRect(second).center());
    QTest::mouseClick(Find<QPushButton>("PButEquipment(1)"), Qt::LeftButton);
    EXPECT_EQ(m.vhl->WeaponCount(), 1);
}

TEST_F(QtVehicleEditor, ArmorOnTheDiagram) {
    auto& ed = Open(kVhlTracked);
    frmVhl& m = ed.Model();
    ed.Tabs()->setCurrentIndex(1);
    auto* tons = Find<QWidget>("scrlArmorTonnage", ed.Tabs()->widget(1));
    auto* up = tons->findChild<QToolButton*>("up");
    for (int i = 0; i < 4; ++i) QTest::mouseClick(up, Qt::LeftButton);
    EXPECT_EQ(m.vhl->ArmorTonnage, 2.0);
    EXPECT_EQ(m.vhl->ArmorPoints, 32);
    Shot(ed, "editor-tracked-armor.png");

    ed.Tabs()->setCurrentIndex(2);
    auto* diagram = Find<qt::ArmorDiagram>("picVHLArm");
    EXPECT_TRUE(diagram->isVisible());
    // Left side, mirrored onto the right.
    auto* left = diagram->Input(kLocLeft)->template findChild<QLineEdit*>("TArmorLoc(1)");
    ASSERT_NE(left, nullptr);
    TypeAndLeave(left, "6");
    EXPECT_EQ(m.vhl->LeftArmor, 6);
    EXPECT_EQ(m.vhl->RightArmor, 6);
    EXPECT_EQ(diagram->Input(kLocRight)->template findChild<QLineEdit*>()->text(), "6");
    // Each input sits over its own location: left of the centre line for the
    // left side, right of it for the right.
    EXPECT_LT(diagram->Input(kLocLeft)->geometry().center().x(), diagram->width() / 2);
    EXPECT_GT(diagram->Input(kLocRight)->geometry().center().x(), diagram->width() / 2);
    EXPECT_FALSE(diagram->Input(kLocTurret)->isVisible());
    Shot(ed, "editor-tracked-diagram.png");
    // Changing tabs hides the diagram until its tab shows again.
    ed.Tabs()->setCurrentIndex(0);
    EXPECT_FALSE(m.picVHLArm.Visible());
}

TEST_F(QtVehicleEditor, CloseAsksAndCancelKeepsTheWindow) {
    auto& ed = Open(kVhlWheeled);
    fake.ui.answers.push_back(MsgResult::Cancel);
    ed.close();
    QApplication::processEvents();
    ASSERT_TRUE(editor);
    EXPECT_TRUE(editor->isVisible());
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text, "This vehicle is not yet saved, would you like to save it?");
    EXPECT_EQ(fake.ui.boxes[0].title, "Save?");
    fake.ui.answers.push_back(MsgResult::No);
    editor->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(editor);
}

TEST_F(QtVehicleEditor, ScreenshotsOfEveryTabForThreeTypes) {
    for (int16_t type : {kVhlTracked, kVhlVTOL, kVhlSuperHeavy}) {
        auto& ed = Open(type);
        if (type != kVhlVTOL) QTest::mouseClick(Find<QCheckBox>("CBoxHasTurret"), Qt::LeftButton);
        for (int tab = 0; tab < 3; ++tab) {
            ed.Tabs()->setCurrentIndex(tab);
            QApplication::processEvents();
            Shot(ed, QString("editor-type%1-tab%2.png").arg(type).arg(tab));
        }
        EXPECT_EQ(ed.Tabs()->count(), 3);
        ed.Model().wSaved = kTrue;
        ed.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(QtVehicleEditor, FreeTonnageFlashesWhenMoreThanATonOver) {
    auto& ed = Open(kVhlTracked);
    frmVhl& m = ed.Model();
    auto* free = Find<QLabel>("LTonnageFree");
    // Five tons of armor on a five-ton vehicle.
    m.scrlArmorTonnage.SetValue(10);
    ASSERT_LE(m.vhl->FreeTonnage, -1);
    const QColor first = free->palette().color(QPalette::WindowText);
    EXPECT_EQ(first, QColor(255, 0, 0));
    // The window's timer swaps red and green every half second.
    QTest::qWait(600);
    const QColor second = free->palette().color(QPalette::WindowText);
    EXPECT_EQ(second, QColor(0, 255, 0));
    // Back within the tons: black and steady.
    m.scrlArmorTonnage.SetValue(0);
    EXPECT_EQ(free->palette().color(QPalette::WindowText), QColor(0, 0, 0));
    QTest::qWait(600);
    EXPECT_EQ(free->palette().color(QPalette::WindowText), QColor(0, 0, 0));
}
