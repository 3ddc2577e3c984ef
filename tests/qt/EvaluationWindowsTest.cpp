#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>

#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"
#include "shell/qt/CostWindow.h"
#include "shell/qt/StatsWindow.h"
#include "support/FakeUi.h"
#include "vehicle/Vehicle.h"

using namespace bw;

namespace {

WeaponRec Weapon(const char* name, int16_t type, double tons, int16_t damage, int16_t s, int16_t m, int16_t l,
                 const char* unit, int32_t cost) {
    WeaponRec r{};
    r.Name = name;
    r.Type = type;
    r.Tonnage = tons;
    r.Damage = damage;
    r.HasDamageUnit = -1;
    r.ShortRange = s;
    r.MedRange = m;
    r.LongRange = l;
    r.RangeUnit = unit;
    r.Cost = cost;
    return r;
}

class QtEvaluation : public ::testing::Test {
protected:
    test::ScopedFakeUi fake;
    std::vector<WeaponRec> saved = gWeapons;
    Vehicle v;

    void SetUp() override {
        gWeapons = {Weapon("Medium Laser", 0, 1, 5, 3, 6, 9, "Hex", 40000),
                    Weapon("Big Gun", 1, 10, 120, 1, 1, 1, "Hex", 200000),
                    Weapon("AC/5 Ammo", 4, 1, -1, -1, -1, -1, "Hex", 4500),
                    Weapon("Arrow IV", 5, 15, 20, -1, -1, 8, "Map", 450000)};
        v.OverrideInteractiveMode();
        v.Name = "Rampart";
        v.VhlType = kVhlTracked;
        v.Tonnage = 60;
        v.EngineRating = 240;
        v.ISTonnage = 6;
        v.ArmorTonnage = 5;
        v.ArmorPoints = 80;
        v.MaxItems = 9;
        v.Items.clear();
        for (int16_t r : {0, 0, 1, 2, 3}) v.Items.push_back(VehicleItem{r, 1, 0, kTrue});
    }
    void TearDown() override { gWeapons = saved; }

    static void Shot(QWidget& w, const char* file) {
        if (qEnvironmentVariableIsSet("BW_TEST_SHOTS")) w.grab().save(qEnvironmentVariable("BW_TEST_SHOTS") + "/" + file);
    }
};

TEST_F(QtEvaluation, CostWindowShowsListsFiguresAndChart) {
    frmCost model;
    qt::CostDialog dlg(model);
    zFillVehicleCost(v, model);
    model.Show();
    dlg.show();
    EXPECT_EQ(dlg.windowTitle(), "Battle Stats and Cost");

    auto* parts = dlg.findChild<QTreeWidget*>("lvParts");
    ASSERT_NE(parts, nullptr);
    ASSERT_EQ(parts->topLevelItemCount(), 4);
    EXPECT_EQ(parts->topLevelItem(0)->text(0), "240 power rated I.C.E. power plant");
    EXPECT_EQ(parts->topLevelItem(0)->text(1), "240000");
    EXPECT_EQ(parts->topLevelItem(3)->text(0), "5 tons armor (Normal)");
    EXPECT_EQ(parts->topLevelItem(3)->text(1), "50000");  // the last row's cost too
    auto* weapons = dlg.findChild<QTreeWidget*>("lvWeapons");
    ASSERT_EQ(weapons->topLevelItemCount(), 3);
    EXPECT_EQ(weapons->topLevelItem(0)->text(0), "(2) Medium Laser");
    EXPECT_EQ(weapons->topLevelItem(2)->text(1), "450000");
    EXPECT_EQ(dlg.findChild<QTreeWidget*>("lvAmmo")->topLevelItem(0)->text(0), "(1) AC/5 Ammo");
    EXPECT_EQ(dlg.findChild<QTreeWidget*>("lvAmmo")->topLevelItem(0)->text(1), "4500");
    auto label = [&](const char* name) { return dlg.findChild<QLabel*>(name)->text(); };
    EXPECT_EQ(label("lPartsSubtotal"), "350000");  // 240000 + 60000 + 0 + 50000
    EXPECT_EQ(label("lWeapSubtotal"), "730000");
    EXPECT_EQ(label("lAmmoSubtotal"), "4500");
    EXPECT_EQ(label("lVhlMultiplier"), "x 1.6");
    EXPECT_EQ(label("lTotalCost"), "1735200");  // 1084500 x 1.6
    EXPECT_EQ(label("lblTotalCost"), "Vehicle Cost:");
    EXPECT_EQ(label("lblAmmoSubtotal"), "Ammuntion Subtotal:");
    EXPECT_EQ(label("lDamVhl"), "2.5 points / ton");  // 150 / 60
    EXPECT_EQ(label("lDamWeap"), "5.6 points / ton");  // 150 / 27
    Shot(dlg, "frmCost.png");

    auto* tabs = dlg.findChild<QTabWidget*>("tabCost");
    tabs->setCurrentIndex(1);
    EXPECT_EQ(dlg.findChild<QGroupBox*>("fraDamage")->title(), "Maximum Damage by Range");
    auto* chart = dlg.findChild<qt::DamageChart*>("picDamage");
    ASSERT_NE(chart, nullptr);
    // Bars at 15 twips a pixel: the capped first hex (150) is 120 px high in
    // the colour of 100 and above; 30 up to hex 9 is 36 px high; the map
    // weapon's 20 carries on to hex 43, 24 px high.
    const QImage img = chart->grab().toImage();
    const int base = chart->BaseLineY();
    const int x0 = qt::DamageChart::Px(720);
    EXPECT_EQ(img.pixelColor(x0 + 4, base - 100), QColor(0xFF, 0, 0));
    EXPECT_EQ(img.pixelColor(x0 + 12, base - 20), QColor(0, 0, 0xFF));
    EXPECT_EQ(img.pixelColor(x0 + 20 * 8, base - 12), QColor(0, 0xFF, 0xFF));
    EXPECT_EQ(img.pixelColor(x0 + 20 * 8, base - 40), QColor(Qt::white));
    Shot(dlg, "frmCost-damage.png");

    dlg.findChild<QPushButton*>("PButDone")->click();
    EXPECT_FALSE(dlg.isVisible());
    EXPECT_FALSE(model.Window.Visible());
}

TEST_F(QtEvaluation, StatsWindowTextFollowsTheWindow) {
    frmVStat model;
    model.vhl = &v;
    model.Form_Load();
    qt::StatsDialog dlg(model);
    model.Show();
    dlg.show();
    auto* text = dlg.findChild<QPlainTextEdit*>("TStats");
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(text->isReadOnly());
    const QString t = text->toPlainText();
    EXPECT_TRUE(t.startsWith("Unit type: Rampart\n\n\tTonnage: 60\n")) << t.toStdString();
    EXPECT_FALSE(t.contains('\r'));
    Shot(dlg, "frmVStat.png");
    const int before = text->width();
    dlg.resize(dlg.width() + 200, dlg.height() + 100);
    QApplication::processEvents();
    EXPECT_EQ(text->width(), before + 200);
    dlg.findChild<QPushButton*>("PButDone")->click();
    EXPECT_FALSE(dlg.isVisible());
}

}  // namespace
