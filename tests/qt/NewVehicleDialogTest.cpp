// The New Vehicle dialog on real widgets: the combos follow the model (a
// new tech base refills the levels), Create closes unless refused, Cancel
// and Escape cancel.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "core/Settings.h"
#include "shell/qt/NewVehicleDialog.h"
#include "support/FakeUi.h"

using namespace bw;

namespace {

QStringList Items(QComboBox* c) {
    QStringList out;
    for (int i = 0; i < c->count(); ++i) out << c->itemText(i);
    return out;
}

struct QtNewVehicle : ::testing::Test {
    test::ScopedFakeUi fake;
    int16_t base = gDefVhlBase, type = gDefVhlType, level = gDefVhlLevel;
    ~QtNewVehicle() override {
        gDefVhlBase = base;
        gDefVhlType = type;
        gDefVhlLevel = level;
    }
};

}  // namespace

TEST_F(QtNewVehicle, CombosFollowTheModelAndABaseChangeRefillsTheLevels) {
    gDefVhlBase = 0;
    gDefVhlType = 2;
    gDefVhlLevel = 2;
    frmNVhl model;
    model.Form_Load();
    model.Window.SetVisible(true);
    qt::NewVehicleDialog dlg(model);
    dlg.show();
    EXPECT_EQ(dlg.windowTitle(), "New Vehicle");
    if (qEnvironmentVariableIsSet("BW_NEWVEHICLE_SCREENSHOT"))
        dlg.grab().save(qEnvironmentVariable("BW_NEWVEHICLE_SCREENSHOT"));
    auto* cbase = dlg.findChild<QComboBox*>("cmboBase");
    auto* clevel = dlg.findChild<QComboBox*>("cmboLevel");
    auto* ctype = dlg.findChild<QComboBox*>("cmboType");
    ASSERT_TRUE(cbase && clevel && ctype);
    EXPECT_EQ(Items(cbase), (QStringList{"Inner Sphere", "Clan"}));
    EXPECT_EQ(Items(clevel), (QStringList{"1", "2", "3"}));
    EXPECT_EQ(clevel->currentText(), "2");
    EXPECT_EQ(ctype->count(), 8);
    EXPECT_EQ(ctype->currentText(), "Hover");
    EXPECT_EQ(dlg.findChild<QPushButton*>("PButCreate")->text(), "&Create");

    // The user picks Clan: the levels are refilled without "1".
    QTest::keyClick(cbase, Qt::Key_Down);
    EXPECT_EQ(model.cmboBase.ListIndex(), 1);
    EXPECT_EQ(Items(clevel), (QStringList{"2", "3"}));
    EXPECT_EQ(clevel->currentText(), "2");
    QTest::keyClick(clevel, Qt::Key_Down);
    EXPECT_EQ(model.TechLevel(), 3);
    QTest::keyClick(ctype, Qt::Key_Up);
    EXPECT_EQ(model.VhlType(), 1);

    QTest::mouseClick(dlg.findChild<QPushButton*>("PButCreate"), Qt::LeftButton);
    EXPECT_FALSE(dlg.isVisible());
    EXPECT_EQ(dlg.result(), QDialog::Accepted);
    EXPECT_EQ(model.wCancel, 0);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(QtNewVehicle, ARefusedCreateKeepsTheDialogAndCancelEndsIt) {
    gDefVhlBase = 1;
    gDefVhlType = 7;  // super heavy tank
    gDefVhlLevel = 3;
    frmNVhl model;
    model.Form_Load();
    bool stillOpen = false;
    QTimer::singleShot(0, [&] {
        auto* dlg = qobject_cast<qt::NewVehicleDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dlg, nullptr);
        QTest::mouseClick(dlg->findChild<QPushButton*>("PButCreate"), Qt::LeftButton);
        stillOpen = dlg->isVisible();
        QTest::mouseClick(dlg->findChild<QPushButton*>("PButCancel"), Qt::LeftButton);
    });
    zShowModal(model);
    EXPECT_TRUE(stillOpen);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().text,
              "Clan Super Heavy Tanks are not allowed. This tank must be an Inner Sphere vehicle.");
    EXPECT_EQ(model.wCancel, -1);
    EXPECT_FALSE(model.Window.Visible());

    // Escape is a cancel.
    frmNVhl again;
    again.Form_Load();
    again.wCancel = 0;  // only the cancel may set it
    QTimer::singleShot(0, [&] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    zShowModal(again);
    EXPECT_EQ(again.wCancel, -1);
}
