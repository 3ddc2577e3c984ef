// Every window at its smallest fits a 1600x1000 screen at 200% (800x500
// logical pixels, less a title bar and a panel), and each of its buttons
// lies whole inside it; buttons in a scrolling area are reached by scrolling.
// Opened, each is no larger than the screen.
#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QScreen>
#include <QAbstractButton>

#include "core/Globals.h"
#include "core/Vocabulary.h"
#include "core/frmSet.h"
#include "database/DatabaseOps.h"
#include "evaluation/frmCost.h"
#include "evaluation/frmVStat.h"
#include "refdata/Weapons.h"
#include "sheets/frmAAMaker.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "shell/frmVOpen.h"
#include "shell/qt/AllocationDialog.h"
#include "shell/qt/FormHost.h"
#include "shell/qt/MainWindow.h"
#include "shell/qt/VehicleEditor.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"
#include "support/NewEditor.h"
#include "vehicle/frmNVhl.h"
#include "refdata/frmWData.h"

using namespace bw;

namespace {

const QSize kScreen(800, 450);

void Fits(QWidget* w, const char* name) {
    SCOPED_TRACE(name);
    ASSERT_NE(w, nullptr);
    w->show();
    // It opens within its screen, however much it would like.
    const QSize screen = w->screen()->availableSize();
    EXPECT_LE(w->width(), screen.width());
    EXPECT_LE(w->height(), screen.height());
    w->resize(1, 1);  // the layout holds it at its minimum
    QApplication::processEvents();
    EXPECT_LE(w->width(), kScreen.width());
    EXPECT_LE(w->height(), kScreen.height());
    int checked = 0;
    for (QAbstractButton* b : w->findChildren<QAbstractButton*>()) {
        if (!b->isVisibleTo(w)) continue;
        bool scrolled = false;
        for (QWidget* p = b->parentWidget(); p && p != w; p = p->parentWidget())
            scrolled = scrolled || qobject_cast<QAbstractScrollArea*>(p);
        if (scrolled) continue;
        ++checked;
        const QRect r(b->mapTo(w, QPoint(0, 0)), b->size());
        EXPECT_TRUE(w->rect().contains(r)) << b->text().toStdString();
        EXPECT_GE(b->width(), b->minimumSizeHint().width()) << b->text().toStdString();
    }
    EXPECT_GT(checked, 0);
}

// A model's window as the form host makes it, shown modeless.
QWidget* Shown(FormModel& model) {
    model.Show(false);
    return qt::QtFormHost::Instance().WidgetOf(model);
}

}  // namespace

TEST(QtWindowSize, EveryWindowFitsAtItsMinimum) {
    test::AppFolder app;
    test::ScopedFakeUi fake;
    const std::string savedPath = gAppPath;
    SetAppPath(BW_BIN_DIR);
    ASSERT_TRUE(zLoadWeapons());

    frmMain main;
    main.Form_Load();
    qt::MainWindow mainWindow(main);
    Fits(&mainWindow, "frmMain");

    for (int16_t type : {kVhlTracked, kVhlSuperHeavy}) {
        FormModel* editor = zShowModeless(test::NewEditor(type));
        auto& m = static_cast<frmVhl&>(*editor);
        Fits(qt::QtFormHost::Instance().WidgetOf(m), "frmVhl");
        m.CBoxHasTurret.SetValue(1);
        m.CBoxHasSponsonTurret.SetValue(1);
        m.vhl->AddWeapon(0);
        frmVEQ allocation;
        allocation.vhl = m.vhl;
        Fits(Shown(allocation), "frmVEQ");
        allocation.Unload();
        frmCost cost;
        Fits(Shown(cost), "frmCost");
        cost.Unload();
        frmVStat stats;
        stats.vhl = m.vhl.get();
        Fits(Shown(stats), "frmVStat");
        stats.Unload();
        m.wSaved = kTrue;
        m.Unload();
    }
    frmVOpen picker;
    Fits(Shown(picker), "frmVOpen");
    picker.Unload();
    frmNVhl newVehicle;
    Fits(Shown(newVehicle), "frmNVhl");
    newVehicle.Unload();
    frmWData data;
    ASSERT_TRUE(data.zGetWpnData(0));
    Fits(Shown(data), "frmWData");
    data.Unload();
    frmSet settings;
    Fits(Shown(settings), "frmSet");
    settings.Unload();
    frmAbout about;
    Fits(Shown(about), "frmAbout");
    about.Unload();
    frmAAMaker maker;
    Fits(Shown(maker), "frmAAMaker");
    maker.Unload();

    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    SetAppPath(savedPath);
    zResetDatabase();
}
