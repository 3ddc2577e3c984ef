#include <gtest/gtest.h>

#include <QAction>
#include <QMenuBar>
#include <QSpinBox>
#include <QTest>
#include <QToolBar>

#include "core/Controls.h"
#include "database/DatabaseOps.h"
#include "shell/frmMain.h"
#include "shell/qt/Binders.h"
#include "shell/qt/MainWindow.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"

using namespace bw;

TEST(QtBinding, TypingFiresTheModelAndModelChangesDoNotEcho) {
    TextBox model("TName");
    int changes = 0;
    model.Change = [&] { ++changes; };
    QLineEdit edit;
    qt::BindTextBox(&edit, model);
    QTest::keyClicks(&edit, "Bulldog");
    EXPECT_EQ(model.Text(), "Bulldog");
    EXPECT_EQ(changes, 7);  // one change per typed character
    model.SetText("Manticore");
    EXPECT_EQ(edit.text(), "Manticore");
    EXPECT_EQ(changes, 8);  // the model's own change, not echoed back by the widget
}

TEST(QtBinding, SpinBoxFollowsLimitsAndReentry) {
    ScrollBar tons("scrlTonnage"), cruise("scrlCruise");
    tons.SetMin(1);
    tons.SetMax(50);
    cruise.SetMax(20);
    tons.Change = [&] { cruise.SetValue(static_cast<int16_t>(tons.Value() / 5)); };
    QSpinBox tonsBox, cruiseBox;
    qt::BindScrollBar(&tonsBox, tons);
    qt::BindScrollBar(&cruiseBox, cruise);
    EXPECT_EQ(tonsBox.maximum(), 50);
    tonsBox.setValue(40);
    EXPECT_EQ(tons.Value(), 40);
    EXPECT_EQ(cruiseBox.value(), 8);  // re-entered the second model, widget refreshed
    tons.SetMax(30);                  // pulls the value in
    EXPECT_EQ(tonsBox.value(), 30);
    EXPECT_EQ(cruiseBox.value(), 6);
}

TEST(QtBinding, ObserversDropWhenTheWidgetGoes) {
    Label l("LFree");
    {
        QLabel w;
        qt::BindLabel(&w, l);
        l.SetCaption("3.5");
        EXPECT_EQ(w.text(), "3.5");
    }
    l.SetCaption("4");  // the widget is gone: nothing may touch it
    SUCCEED();
}

TEST(QtMainWindow, TitleMenusAndToolbarComeFromTheModel) {
    test::AppFolder app;
    test::ScopedFakeUi fake;
    frmMain model;
    model.Form_Load();
    qt::MainWindow w(model);
    EXPECT_EQ(w.windowTitle(), "The Brasswick Works 3.0 - ");
    QAction* newVhl = w.ActionFor(model.mnuVhlNew);
    ASSERT_NE(newVhl, nullptr);
    EXPECT_EQ(newVhl->text(), "&New Vehicle");
    EXPECT_FALSE(newVhl->isEnabled());
    EXPECT_FALSE(w.ActionFor(model.mnuSpecial)->isVisible());
    // A DropShip button reaches the model's notice through the real toolbar.
    QAction* ds = w.ToolAction("butNewDS");
    ASSERT_NE(ds, nullptr);
    ds->trigger();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Not Implemented");
    EXPECT_FALSE(w.ToolAction("butVHLOpen")->isEnabled());
    // The caption follows the open database.
    model.Window.SetCaption("The Brasswick Works 3.0 - /tmp/x.bwd");
    EXPECT_EQ(w.windowTitle(), "The Brasswick Works 3.0 - /tmp/x.bwd");
    zResetDatabase();
}
