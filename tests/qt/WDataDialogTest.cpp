#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "refdata/Weapons.h"
#include "shell/qt/WDataDialog.h"
#include "support/FakeUi.h"

using namespace bw;

TEST(QtWeaponData, ShowsTheRowAndDoneCloses) {
    test::ScopedFakeUi fake;
    auto saved = gWeapons;
    WeaponRec r{};
    r.Name = "Medium Laser";
    r.Type = 0;
    r.Level = 1;
    r.Base = 0;
    r.Tonnage = 1;
    r.Heat = 3;
    r.Damage = 5;
    r.MinRange = -1;
    r.ShortRange = 3;
    r.MedRange = 6;
    r.LongRange = 9;
    r.RangeUnit = "Hex";
    r.Cost = 40000;
    r.CombatValue = 46;
    r.Shots = -1;
    r.HasDamageUnit = -1;
    gWeapons = {r};

    frmWData model;
    ASSERT_TRUE(model.zGetWpnData(0));
    qt::WDataDialog dlg(model);
    model.Show();
    dlg.show();
    auto text = [&](const char* name) { return dlg.findChild<QLabel*>(name)->text(); };
    EXPECT_EQ(text("LShort"), "1-3");
    EXPECT_EQ(text("LMedium"), "4-6");
    EXPECT_EQ(text("LLong"), "7-9");
    EXPECT_EQ(text("LMin"), "-");
    EXPECT_EQ(text("LCost"), "40000");
    if (qEnvironmentVariableIsSet("BW_WDATA_SCREENSHOT")) dlg.grab().save(qEnvironmentVariable("BW_WDATA_SCREENSHOT"));
    QTest::mouseClick(dlg.findChild<QPushButton*>("PButDone"), Qt::LeftButton);
    EXPECT_FALSE(dlg.isVisible());
    EXPECT_EQ(dlg.result(), QDialog::Accepted);
    gWeapons = saved;
}
