// What the end-to-end road does not reach of the editor's widgets: removing
// through the mounted tree, where each armor input stands on the diagram of
// every type, the diagram hidden off its tab, and the flashing free tonnage.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QSet>
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
#include "shell/qt/FormHost.h"
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
        FormModel* model = zShowModeless(test::NewEditor(type, base, level));
        editor = qobject_cast<qt::VehicleEditor*>(qt::QtFormHost::Instance().WidgetOf(*model));
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
    static void Shot(QWidget& w, const QString& file) {
        if (qEnvironmentVariableIsSet("BW_TEST_SHOTS"))
            w.grab().save(qEnvironmentVariable("BW_TEST_SHOTS") + "/" + file);
    }
};

}  // namespace

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

TEST_F(QtVehicleEditor, ArmorInputsStandOnTheDiagramOfEachType) {
    for (int16_t type : {kVhlTracked, kVhlVTOL, kVhlNaval, kVhlSuperHeavy}) {
        SCOPED_TRACE(type);
        auto& ed = Open(type);
        frmVhl& m = ed.Model();
        if (type != kVhlVTOL) QTest::mouseClick(Find<QCheckBox>("CBoxHasTurret"), Qt::LeftButton);
        ed.Tabs()->setCurrentIndex(2);
        auto* diagram = Find<qt::ArmorDiagram>("picVHLArm");
        ASSERT_TRUE(diagram->isVisible());
        int shown = 0;
        for (int i = 0; i < 12; ++i) {
            QWidget* input = diagram->Input(i);
            if (!input || !input->isVisible()) continue;
            ++shown;
            EXPECT_EQ(m.TArmorLoc[static_cast<size_t>(i)].Visible(), true) << i;
            // Inside the drawing, centred on the spot scaled to the picture.
            EXPECT_TRUE(diagram->rect().contains(input->geometry())) << i;
            const QPoint centre = input->geometry().center();
            EXPECT_NEAR(centre.x(), m.ArmorLocLeft[static_cast<size_t>(i)] * diagram->ShownScale(), 2) << i;
            EXPECT_NEAR(centre.y(), m.ArmorLocTop[static_cast<size_t>(i)] * diagram->ShownScale(), 2) << i;
        }
        int expected = 0;
        for (const TextBox& t : m.TArmorLoc) expected += t.Visible() ? 1 : 0;
        EXPECT_EQ(shown, expected);
        for (int tab : {2, 1, 0}) {
            ed.Tabs()->setCurrentIndex(tab);
            Shot(ed, QString("editor-type%1-tab%2.png").arg(type).arg(tab));
        }
        // Off its tab the diagram is hidden, as the model says.
        EXPECT_FALSE(m.picVHLArm.Visible());
        EXPECT_FALSE(diagram->isVisibleTo(&ed));
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

TEST_F(QtVehicleEditor, KeyboardAddsAndRemovesWithTheGroupsKeptOpen) {
    auto& ed = Open(kVhlTracked);
    frmVhl& m = ed.Model();
    m.scrlTonnage.SetValue(40);
    // Every button has its own accelerator.
    QSet<QChar> keys;
    for (QPushButton* b : ed.findChildren<QPushButton*>()) {
        const int at = b->text().indexOf('&');
        ASSERT_GE(at, 0) << b->text().toStdString();
        EXPECT_FALSE(keys.contains(b->text()[at + 1].toLower())) << b->text().toStdString();
        keys.insert(b->text()[at + 1].toLower());
    }
    EXPECT_EQ(Find<QPushButton>("PButEquipment(0)")->text(), "A&dd >>");
    EXPECT_EQ(Find<QPushButton>("PButCost")->text(), "Cos&t/Stats");
    EXPECT_EQ(Find<QPushButton>("PButShowStats")->text(), "Show Stat&istics");
    EXPECT_NE(Find<QLineEdit>("TArmorTonnage"), nullptr);

    auto* avail = Find<QTreeWidget>("tvAvailEq");
    QTest::keyClick(avail, Qt::Key_Home);
    QTest::keyClick(avail, Qt::Key_Return);  // opens Energy Weapons
    QTest::keyClick(avail, Qt::Key_Down);
    QTest::keyClick(avail, Qt::Key_Return);  // adds its first row
    QTest::keyClick(avail, Qt::Key_Down);
    QTest::keyClick(avail, Qt::Key_Return);  // and the second, where the keyboard went
    ASSERT_EQ(m.vhl->WeaponCount(), 2);
    EXPECT_NE(m.vhl->Items[0].wType, m.vhl->Items[1].wType);

    auto* sel = Find<QTreeWidget>("tvSelectedEq");
    ASSERT_EQ(sel->topLevelItemCount(), 1);
    EXPECT_TRUE(sel->topLevelItem(0)->isExpanded());
    QTest::keyClick(sel, Qt::Key_Home);
    QTest::keyClick(sel, Qt::Key_Down);
    QTest::keyClick(sel, Qt::Key_Delete);
    EXPECT_EQ(m.vhl->WeaponCount(), 1);
    ASSERT_EQ(sel->topLevelItemCount(), 1);
    EXPECT_TRUE(sel->topLevelItem(0)->isExpanded());
    QTest::keyClick(sel, Qt::Key_Return);  // the one left took the selection
    EXPECT_EQ(m.vhl->WeaponCount(), 0);
    for (const auto& b : fake.ui.boxes) ADD_FAILURE() << b.title << ": " << b.text;
}
