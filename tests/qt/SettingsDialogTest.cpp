#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

#include "core/Settings.h"
#include "core/frmSet.h"
#include "shell/qt/SettingsDialog.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"

using namespace bw;

TEST(QtSettings, ShowsTheStoredChoicesAndOkWritesTheChanged) {
    test::AppFolder app;
    test::ScopedFakeUi fake;
    fake.settings.Set("General", "OpenLast", "1");
    fake.settings.Set("Vehicle", "Level", "2");
    fake.settings.Set("General", "ActiveEdit", "255");  // red, as 0x00BBGGRR
    frmSet form;
    form.Form_Load();
    qt::SettingsDialog dlg(form);
    if (qEnvironmentVariableIsSet("BW_TEST_SHOTS")) dlg.grab().save(qEnvironmentVariable("BW_TEST_SHOTS") + "/frmSet.png");

    auto* openLast = dlg.findChild<QCheckBox*>("CBoxOpenLast");
    auto* level = dlg.findChild<QComboBox*>("cmboDefVHLLevel");
    auto* colour = dlg.findChild<QPushButton*>("pnlColor0");
    ASSERT_TRUE(openLast && level && colour);
    EXPECT_TRUE(openLast->isChecked());
    EXPECT_EQ(level->currentText(), "2");
    EXPECT_TRUE(colour->styleSheet().contains("#ff0000"));

    openLast->setChecked(false);
    level->setCurrentIndex(0);
    dlg.StoreIntoModel();
    form.PButOK_Click();
    EXPECT_EQ(fake.settings.Get("General", "OpenLast", ""), "0");
    EXPECT_EQ(fake.settings.Get("Vehicle", "Level", ""), "1");
    EXPECT_EQ(fake.settings.Get("General", "ActiveEdit", ""), "255");
    EXPECT_EQ(gOpenLast, 0);
}
