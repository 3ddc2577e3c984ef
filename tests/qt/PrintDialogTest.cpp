// The print options window: built from its model, OK and Cancel as the
// model has them.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "shell/qt/PrintDialogs.h"
#include "support/FakeUi.h"

using namespace bw;

TEST(QtPrintVehicle, ShowsTheModelsFieldsAndEndsOnOkOrCancel) {
    test::ScopedFakeUi fake;
    for (bool ok : {true, false}) {
        frmPVhl model;
        model.Load();
        model.Window.SetVisible(true);
        qt::PrintVehicleDialog dlg(model);
        dlg.show();
        EXPECT_EQ(dlg.windowTitle().toStdString(), model.Window.Caption());
        auto* printers = dlg.findChild<QComboBox*>("cmboPrinters");
        ASSERT_NE(printers, nullptr);
        EXPECT_EQ(printers->count(), model.cmboPrinters.ListCount());
        EXPECT_TRUE(printers->findText("PDF file") >= 0) << "the printer list offers a PDF file";
        auto* name = dlg.findChild<QLineEdit*>("TPilotName");
        ASSERT_NE(name, nullptr);
        QTest::keyClicks(name, "Kell");
        EXPECT_EQ(model.TPilotName.Text(), "Kell");
        if (qEnvironmentVariableIsSet("BW_TEST_SHOTS"))
            dlg.grab().save(qEnvironmentVariable("BW_TEST_SHOTS") + "/print-vehicle.png");
        QTest::mouseClick(dlg.findChild<QPushButton*>(ok ? "PButOK" : "PButCancel"), Qt::LeftButton);
        EXPECT_FALSE(dlg.isVisible());
        EXPECT_EQ(model.Cancelled, !ok);
    }
}
