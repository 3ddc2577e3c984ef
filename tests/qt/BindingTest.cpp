#include <gtest/gtest.h>

#include <QAction>
#include <QHeaderView>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QTimer>
#include <QTreeWidget>
#include <QMenuBar>
#include <QSpinBox>
#include <QTest>
#include <QToolBar>

#include "core/Controls.h"
#include "core/Forms.h"
#include "core/Progress.h"
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
    EXPECT_TRUE(newVhl->isEnabled());
    // Multi-print arrives with the record sheets: disabled, not faked.
    EXPECT_FALSE(w.ActionFor(model.mnuFighterMultiPrint)->isEnabled());
    EXPECT_FALSE(w.ActionFor(model.mnuSpecial)->isVisible());
    // A command this program lacks is disabled and its menu shows why.
    QAction* v2 = w.ActionFor(model.mnuFileOpenV2);
    EXPECT_FALSE(v2->isEnabled());
    EXPECT_EQ(v2->toolTip(), "Not available in this version of The Brasswick Works.");
    EXPECT_TRUE(w.ActionFor(model.mnuFile)->menu()->toolTipsVisible());
    // A DropShip button reaches the model's notice through the real toolbar.
    QAction* ds = w.ToolAction("butNewDS");
    ASSERT_NE(ds, nullptr);
    ds->trigger();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Not Implemented");
    EXPECT_TRUE(w.ToolAction("butVHLOpen")->isEnabled());
    EXPECT_TRUE(w.ToolAction("butOpenFtr")->isEnabled());
    // The caption follows the open database.
    model.Window.SetCaption("The Brasswick Works 3.0 - /tmp/x.bwd");
    EXPECT_EQ(w.windowTitle(), "The Brasswick Works 3.0 - /tmp/x.bwd");
    zResetDatabase();
}

TEST(QtBinding, ATextBoxSelectsWhatTheModelAsksOnce) {
    TextBox model("TX");
    model.SetText("1234");
    QLineEdit w;
    qt::BindTextBox(&w, model);
    model.Select(1, 2);
    QApplication::processEvents();
    EXPECT_EQ(w.selectedText(), "23");
    w.setCursorPosition(4);  // the user moves on; a later change keeps it
    model.SetText("12345");
    QApplication::processEvents();
    EXPECT_EQ(w.selectedText(), "");
}

TEST(QtBinding, ListViewRowsHeadersClicksAndSort) {
    ListView lv("lvVHLs");
    lv.ColumnHeaders = {"Name", "Base", "Type", "Tonnage", "Speed"};
    lv.FullRowSelect = true;
    std::vector<int32_t> clicks;
    lv.ItemClick = [&](int32_t i) { clicks.push_back(i); };
    lv.ColumnClick = [&](int32_t col) { lv.SortByColumn(col); };
    QTreeWidget w;
    w.resize(500, 300);
    qt::BindListView(&w, lv);
    lv.Add("v1", "Bulldog").SetSubItem(3, "60");
    lv.Add("v2", "Zephyr").SetSubItem(3, "100");
    lv.Add("v3", "Harasser").SetSubItem(3, "25");
    lv.Refresh();
    ASSERT_EQ(w.topLevelItemCount(), 3);
    EXPECT_EQ(w.headerItem()->text(3), "Tonnage");
    EXPECT_EQ(w.topLevelItem(1)->text(3), "100");

    // A header click reaches the model, whose text sort puts "100" first.
    emit w.header()->sectionClicked(3);
    EXPECT_EQ(w.topLevelItem(0)->text(0), "Zephyr");
    EXPECT_EQ(w.topLevelItem(1)->text(0), "Harasser");

    // A click on a row selects it in the model, once.
    w.show();
    QRect r = w.visualItemRect(w.topLevelItem(2));
    QTest::mouseClick(w.viewport(), Qt::LeftButton, {}, r.center());
    EXPECT_EQ(clicks, std::vector<int32_t>{2});
    EXPECT_EQ(lv.SelectedItem()->Key, "v1");
    EXPECT_EQ(w.currentItem(), w.topLevelItem(2));
    // The model's own selection shows without a second click event.
    lv.ItemClick = nullptr;
    lv.Select(0);
    EXPECT_EQ(w.currentItem(), w.topLevelItem(0));
}

TEST(QtBinding, TreeViewNodesExpandAndSelectBothWays) {
    TreeView tv("tvEquip");
    std::vector<std::string> events;
    tv.Expand = [&](const std::string& k) { events.push_back("expand " + k); };
    tv.NodeClick = [&](const std::string& k) { events.push_back("click " + k); };
    QTreeWidget w;
    qt::BindTreeView(&w, tv);
    tv.Add("", "Weapons", "Weapons");
    tv.Add("Weapons", "w12-1", "Medium Laser");
    tv.Add("Weapons", "w12-2", "Medium Laser");
    tv.Add("", "Equip", "Equipment");
    ASSERT_EQ(w.topLevelItemCount(), 2);
    QTreeWidgetItem* weapons = w.topLevelItem(0);
    ASSERT_EQ(weapons->childCount(), 2);
    EXPECT_FALSE(weapons->isExpanded());

    weapons->setExpanded(true);  // as the user opens it
    EXPECT_TRUE(tv.Find("Weapons")->Expanded);
    EXPECT_EQ(events, std::vector<std::string>{"expand Weapons"});
    EXPECT_EQ(w.topLevelItem(0), weapons);  // not rebuilt by its own expansion

    emit w.itemClicked(weapons->child(1), 0);
    EXPECT_EQ(tv.SelectedKey(), "w12-2");
    EXPECT_EQ(events.back(), "click w12-2");

    // Removing a parent takes its children from the widget too.
    tv.Remove("Weapons");
    ASSERT_EQ(w.topLevelItemCount(), 1);
    EXPECT_EQ(w.topLevelItem(0)->text(0), "Equipment");
    EXPECT_EQ(tv.SelectedKey(), "");
}

TEST(QtBinding, OptionButtonsKeepOneChosenAndTimerFollowsEnabled) {
    OptionButton is("RButIS"), clan("RButClan");
    std::vector<OptionButton*> group{&is, &clan};
    is.SetGroup(&group);
    clan.SetGroup(&group);
    is.SetValue(true);
    QRadioButton wIs, wClan;
    qt::BindOption(&wIs, is);
    qt::BindOption(&wClan, clan);
    QTest::mouseClick(&wClan, Qt::LeftButton);
    EXPECT_TRUE(clan.Value());
    EXPECT_FALSE(is.Value());
    EXPECT_FALSE(wIs.isChecked());
    QTest::mouseClick(&wClan, Qt::LeftButton);  // clicking the chosen one keeps it
    EXPECT_TRUE(wClan.isChecked());
    EXPECT_TRUE(clan.Value());

    Timer t("Timer1");
    t.Interval = 10;
    t.SetEnabled(false);
    int ticks = 0;
    t.OnTimer = [&] { ++ticks; };
    QTimer qtimer;
    qt::BindTimer(&qtimer, t);
    EXPECT_FALSE(qtimer.isActive());
    t.SetEnabled(true);
    EXPECT_TRUE(qtimer.isActive());
    QTest::qWait(60);
    EXPECT_GT(ticks, 0);
    t.SetEnabled(false);
    EXPECT_FALSE(qtimer.isActive());
}

namespace {
class StubbornEditor : public FormModel {
public:
    StubbornEditor() : FormModel("frmVhl") { Load(); }
    bool IsSaved() const override { return saved; }
    void Form_QueryUnload(bool& cancel) override {
        ++asked;
        cancel = !saved;
    }
    bool saved = false;
    int asked = 0;
};
}  // namespace

TEST(QtMainWindow, CloseBoxAndExitRunTheWalkOnce) {
    test::AppFolder app;
    test::ScopedFakeUi fake;
    frmMain model;
    model.Load();
    qt::MainWindow w(model);
    w.show();
    StubbornEditor editor;
    EXPECT_FALSE(w.close());  // the close box: the editor keeps its work
    EXPECT_TRUE(w.isVisible());
    EXPECT_EQ(editor.asked, 1);
    w.ActionFor(model.mnuFileExit)->trigger();
    EXPECT_TRUE(w.isVisible());
    EXPECT_EQ(editor.asked, 2);  // asked once by Exit, not again by the close
    editor.saved = true;
    w.ActionFor(model.mnuFileExit)->trigger();
    EXPECT_FALSE(w.isVisible());
    EXPECT_EQ(editor.asked, 3);
    zResetDatabase();
}

TEST(QtMainWindow, ProgressAreaShowsOnlyWhileAnOperationRuns) {
    test::AppFolder app;
    test::ScopedFakeUi fake;
    frmMain model;
    model.Form_Load();
    qt::MainWindow w(model);
    w.show();
    const int compact = w.height();
    auto* bar = w.findChild<QProgressBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_FALSE(bar->isVisibleTo(&w));
    zMainProgress(40, "Saving designs");
    zMainProgressSet(10);
    EXPECT_TRUE(bar->isVisibleTo(&w));
    EXPECT_EQ(bar->maximum(), 40);
    EXPECT_EQ(bar->value(), 10);
    EXPECT_GT(w.height(), compact);
    zMainProgressEnd();
    EXPECT_FALSE(bar->isVisibleTo(&w));
    EXPECT_EQ(w.height(), compact);
    zResetDatabase();
}

TEST(QtBinding, ListBoxSelectionBothWaysSingleAndMulti) {
    ListBox single("LBoxSel");
    for (auto s : {"Bulldog", "Zephyr", "Harasser"}) single.AddItem(s);
    int clicks = 0;
    single.Click = [&] { ++clicks; };
    QListWidget w;
    qt::BindListBox(&w, single);
    ASSERT_EQ(w.count(), 3);
    w.item(2)->setSelected(true);  // as the user picks a line
    EXPECT_EQ(single.ListIndex(), 2);
    EXPECT_EQ(clicks, 1);
    single.SetListIndex(0);
    EXPECT_TRUE(w.item(0)->isSelected());
    EXPECT_FALSE(w.item(2)->isSelected());
    EXPECT_EQ(clicks, 2);  // the model's own event, not echoed
    QTest::mouseClick(w.viewport(), Qt::LeftButton, {}, w.visualItemRect(w.item(1)).center());
    EXPECT_EQ(single.ListIndex(), 1);  // moving the choice keeps the new line
    EXPECT_TRUE(w.item(1)->isSelected());
    EXPECT_EQ(clicks, 3);

    ListBox multi("LBoxVhls");
    multi.MultiSelect = true;
    for (auto s : {"Bulldog", "Zephyr", "Harasser"}) multi.AddItem(s);
    QListWidget m;
    qt::BindListBox(&m, multi);
    m.item(0)->setSelected(true);
    m.item(2)->setSelected(true);
    EXPECT_EQ(multi.SelCount(), 2);
    multi.SetSelected(0, false);
    EXPECT_FALSE(m.item(0)->isSelected());
    EXPECT_TRUE(m.item(2)->isSelected());
}
