// A user's road through the real program with fighters: a Clan Omni-Fighter
// made through the dialogs, its base built and locked, a configuration added
// on "Alpha" and allocated by drag, saved; the program started again, the
// design reopened on "Primary", switched to "Alpha", and deleted. The file is
// read back with bwtool dump. Then a conventional fighter whose I.C.E. makes
// its heat sinks follow its energy weapons.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Vocabulary.h"
#include "core/Startup.h"
#include "database/DatabaseOps.h"
#include "fighter/Fighter.h"
#include "refdata/Weapons.h"
#include "shell/qt/FighterDialogs.h"
#include "shell/qt/FighterEditor.h"
#include "shell/qt/Startup.h"
#include "ProgramFixture.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"

using namespace bw;

namespace {

namespace fs = std::filesystem;

class FighterEndToEnd : public test::ProgramFixture {
protected:
    void SetUp() override { SetUpProgram("Hangar.bwd"); }
    void TearDown() override {
        CloseEditors<qt::FighterEditor>();
        ProgramFixture::TearDown();
    }
    static qt::FighterEditor* TopEditor() { return ProgramFixture::TopEditor<qt::FighterEditor>(); }
    static void Pick(QComboBox* c, int index) {
        c->setFocus();
        while (c->currentIndex() < index) QTest::keyClick(c, Qt::Key_Down);
        while (c->currentIndex() > index) QTest::keyClick(c, Qt::Key_Up);
    }
    // Clicks the named row of the available tree and presses "Add >>".
    static void Add(qt::FighterEditor* ed, const QString& row) {
        auto* tree = ed->findChild<QTreeWidget*>("tvAvailEQ");
        ASSERT_NE(tree, nullptr);
        const auto found = tree->findItems(row, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << row.toStdString();
        tree->expandItem(found[0]->parent());
        tree->scrollToItem(found[0]);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(found[0]).center());
        QTest::mouseClick(ed->findChild<QPushButton*>("PButEquipment(0)"), Qt::LeftButton);
    }
    // Drags every available line onto the location.
    static void AllocateAll(qt::FighterEditor* ed, int16_t loc) {
        WhenModal([loc](QWidget* w) {
            auto* dlg = qobject_cast<qt::FighterAllocationDialog*>(w);
            ASSERT_NE(dlg, nullptr);
            DragAll(dlg, [loc](const QString&) { return loc; });
            Shot(dlg, "fighter-allocation.png");
            QTest::mouseClick(dlg->findChild<QPushButton*>("PButDone"), Qt::LeftButton);
        });
        QTest::mouseClick(ed->findChild<QPushButton*>("PButAllocate"), Qt::LeftButton);
    }
};

}  // namespace

TEST_F(FighterEndToEnd, OmniFighterLockedConfiguredSavedReopenedDeleted) {
    auto first = std::make_unique<qt::QtStartupHost>();
    ASSERT_EQ(Main(*first), StartResult::Running);
    qt::MainWindow* main = first->Window();
    fake.ui.fileAnswers.push_back(database);
    main->ActionFor(first->Model()->mnuFileNew)->trigger();

    WhenModal([](QWidget* dlg) {
        EXPECT_EQ(dlg->windowTitle(), "New Fighter");
        Pick(dlg->findChild<QComboBox*>("cmboBase"), 1);
        Pick(dlg->findChild<QComboBox*>("cmboType"), 2);
        Shot(dlg, "new-fighter.png");
        QTest::keyClick(dlg, Qt::Key_Return);
    });
    main->ToolAction("butNewFtr")->trigger();
    qt::FighterEditor* ed = TopEditor();
    ASSERT_NE(ed, nullptr);
    frmFtr& m = ed->Model();
    ASSERT_EQ(m.FTR->FighterType, kFtrOmni);
    ASSERT_EQ(m.FTR->TechBase, kBaseClan);

    TypeAndLeave(ed->findChild<QLineEdit*>("TName"), "Sabre");
    TypeAndLeave(ed->findChild<QLineEdit*>("TTonnage"), "50");
    EXPECT_EQ(m.FTR->CruiseSpeed, 3);  // stepped until the rating fits
    Arrow(ed->findChild<QLineEdit*>("TThrust")->parentWidget(), "up", 3);
    EXPECT_EQ(m.FTR->EngineRating, 200);
    Add(ed, "ER Medium Laser");
    AllocateAll(ed, kFtrLocNose);
    EXPECT_EQ(m.FTR->WcUnallocatedWeapons(), 0);
    ed->Tabs()->setCurrentIndex(1);
    Shot(ed, "fighter-armor.png");
    ed->Tabs()->setCurrentIndex(0);

    // The lock: the question is answered Yes, and "Primary" is entered.
    QTest::mouseClick(ed->findChild<QCheckBox*>("CBoxBaseOmniLock"), Qt::LeftButton);
    EXPECT_EQ(fake.ui.LastBox().title, "Lock Base Configuration?");
    EXPECT_EQ(m.FTR->OmniBaseLocked, kTrue);
    EXPECT_TRUE(ed->findChild<QLineEdit*>("TTonnage")->isReadOnly());
    EXPECT_EQ(ed->windowTitle(), "Sabre - P *");

    // "Alpha" carries a second laser on the left wing.
    Pick(ed->findChild<QComboBox*>("cmboOmniConfig"), 2);
    EXPECT_EQ(m.FTR->OmniCurrentConfig, 2);
    Add(ed, "ER Small Laser");
    AllocateAll(ed, kFtrLocLeftWing);
    Shot(ed, "fighter-general.png");
    QTest::mouseClick(ed->findChild<QPushButton*>("PButSave"), Qt::LeftButton);
    EXPECT_EQ(ed->windowTitle(), "Sabre - A");
    auto lines = Dump();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(Has(lines[0], "\"kind\":\"fighter\""));
    EXPECT_TRUE(Has(lines[0], "\"Name\":\"Sabre\""));
    EXPECT_TRUE(Has(lines[0], "\"OmniBaseLocked\":-1"));
    EXPECT_TRUE(Has(lines[0], "\"OmniConfigUsed\":[0,-1,-1,0,0,0]"));
    EXPECT_TRUE(Has(lines[0], "\"wSlot\":0,\"wLoc\":1}"));  // the wing laser of Alpha

    QTest::mouseClick(ed->findChild<QPushButton*>("PButClose"), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    main->close();
    first.reset();
    zResetDatabase();

    // ---- Second run: reopen on "Primary", then look at "Alpha".
    auto second = std::make_unique<qt::QtStartupHost>();
    ASSERT_EQ(Main(*second), StartResult::Running);
    main = second->Window();
    auto pick = [](QWidget* dlg) {
        auto* list = dlg->findChild<QTreeWidget*>();
        ASSERT_NE(list, nullptr);
        ASSERT_EQ(list->topLevelItemCount(), 1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(0)).center());
        QTest::mouseClick(dlg->findChild<QPushButton*>("PButOpen"), Qt::LeftButton);
    };
    WhenModal(pick);
    main->ToolAction("butOpenFtr")->trigger();
    ed = TopEditor();
    ASSERT_NE(ed, nullptr);
    EXPECT_EQ(ed->windowTitle(), "Sabre - P");
    EXPECT_EQ(ed->findChild<QComboBox*>("cmboOmniConfig")->currentText(), "Primary");
    EXPECT_TRUE(ed->findChild<QLineEdit*>("TName")->isReadOnly());
    Pick(ed->findChild<QComboBox*>("cmboOmniConfig"), 2);
    EXPECT_EQ(ed->Model().FTR->WeaponCount(), 2);
    EXPECT_EQ(ed->windowTitle(), "Sabre - A *");
    ed->Model().wSaved = kTrue;
    QTest::mouseClick(ed->findChild<QPushButton*>("PButClose"), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    WhenModal(pick);
    fake.ui.answers.push_back(MsgResult::Yes);
    main->ToolAction("butDelFtr")->trigger();
    EXPECT_EQ(fake.ui.LastBox().text, "Are you sure you want to delete the fighter named Sabre?");
    for (const std::string& l : Dump()) EXPECT_FALSE(Has(l, "Sabre")) << l;
    main->close();
    second.reset();
}

TEST_F(FighterEndToEnd, ConventionalIceSinksFollowItsEnergyWeapons) {
    auto host = std::make_unique<qt::QtStartupHost>();
    ASSERT_EQ(Main(*host), StartResult::Running);
    qt::MainWindow* main = host->Window();
    WhenModal([](QWidget* dlg) { QTest::mouseClick(dlg->findChild<QPushButton*>("PButCreate"), Qt::LeftButton); });
    main->ToolAction("butNewFtr")->trigger();
    qt::FighterEditor* ed = TopEditor();
    ASSERT_NE(ed, nullptr);
    ASSERT_EQ(ed->Model().FTR->FighterType, kFtrConventional);
    TypeAndLeave(ed->findChild<QLineEdit*>("TTonnage"), "30");
    Add(ed, "Medium Laser");
    Add(ed, "Medium Laser");
    auto* sinks = ed->findChild<QLabel*>("LHS");
    ASSERT_NE(sinks, nullptr);
    EXPECT_EQ(sinks->text(), "6");
    EXPECT_EQ(ed->findChild<QLabel*>("LHSTonnage")->text(), "6");
    Shot(ed, "fighter-conventional.png");
    ed->Model().wSaved = kTrue;
    main->close();
    host.reset();
}
