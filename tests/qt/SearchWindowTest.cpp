// The Search window and the New Criteria dialog on real widgets: the tabs
// follow the model, several result rows are selected with the keyboard and
// counted, a header click sorts, and the advanced part shows and hides.
// BW_SHOTS=folder saves pictures of both windows there.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include "core/Globals.h"
#include "search/SearchSupport.h"
#include "shell/qt/SearchWindow.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"

using namespace bw;
using bw::qt::CriteriaDialog;
using bw::qt::SearchWindow;

namespace {

void Shot(QWidget* w, const char* name) {
    if (const char* dir = std::getenv("BW_SHOTS")) w->grab().save(QString(dir) + "/" + name + ".png");
}

TEST(QtSearch, TabsSelectionCountsAndSorting) {
    test::ScopedFakeUi fake;
    test::TempDir dir;
    gLogFile = "/dev/null";
    using test::Design;
    dir.Write("works.bwd", test::DbBytes({Design("Manticore", 0, 2, 0, 60, 5), Design("Harasser", 0, 2, 2, 25, 5),
                                          Design("Puma", 1, 2, 0, 80, 5)}));
    dir.Write("raiders.bwd", test::DbBytes({Design("Savannah Master", 0, 2, 2, 5, 5), Design("Demolisher", 0, 2, 0, 80, 5)}));
    frmSrch m;
    SearchWindow w(m);
    m.zAddDatabase(dir.File("works.bwd"));
    m.zAddDatabase(dir.File("raiders.bwd"));
    SearchCriterion c = test::Any();
    m.zAddCriterion(c);
    c.MovementType = 2;
    c.Tonnage = 30, c.TonnageCompare = 0, c.ExtraItems = {"No Turret", "Engine - Fusion"};
    m.zAddCriterion(c);
    w.show();
    QTabWidget* tabs = w.Tabs();
    EXPECT_EQ(tabs->tabText(0), "Databases");
    Shot(&w, "search-databases");
    m.SetTab(frmSrch::kTabCriteria);
    EXPECT_EQ(tabs->currentIndex(), 1);
    Shot(&w, "search-criteria");
    w.findChild<QPushButton*>("PButSearch")->click();
    EXPECT_EQ(tabs->currentIndex(), 2);
    auto* list = w.findChild<QTreeWidget*>("lvResult");
    ASSERT_EQ(list->topLevelItemCount(), 5);
    // Several rows at once: click, then shift-click.
    list->setFocus();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(0)).center());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      list->visualItemRect(list->topLevelItem(2)).center());
    EXPECT_EQ(m.LSelectedCount.Caption(), "Total Selected: 3");
    EXPECT_TRUE(m.lvResult.Item(2).Selected);
    QHeaderView* h = list->header();
    QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, QPoint(h->sectionViewportPosition(4) + 5, h->height() / 2));
    EXPECT_EQ(list->topLevelItem(0)->text(0), "Savannah Master");
    EXPECT_EQ(list->selectedItems().size(), 3);
    Shot(&w, "search-results");
}

TEST(QtSearch, CriteriaDialogShowsItsAdvancedPart) {
    test::ScopedFakeUi fake;
    frmCriteria m;
    m.Load();
    CriteriaDialog d(m);
    d.show();
    auto* extra = d.findChild<QGroupBox*>("fraAdditional");
    EXPECT_FALSE(extra->isVisible());
    Shot(&d, "criteria-short");
    const int shortHeight = d.height();
    d.findChild<QPushButton*>("PButAdvanced")->click();
    QTest::qWait(10);
    EXPECT_TRUE(extra->isVisible());
    EXPECT_GT(d.height(), shortHeight);
    auto* avail = d.findChild<QListWidget*>("LBoxAvail");
    const QPoint at = avail->visualItemRect(avail->item(1)).center();
    QTest::mouseClick(avail->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(avail->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(m.LBoxSel.ListCount(), 1);
    auto* tons = d.findChild<QComboBox*>("cmboTonnage");
    tons->setCurrentIndex(3);
    emit tons->activated(3);
    EXPECT_TRUE(m.RButTonnage[0].Enabled());
    Shot(&d, "criteria-full");
}

}  // namespace
