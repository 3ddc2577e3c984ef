// A user's road through the real program, widget by widget: a new database,
// a 50-ton tracked Fusion vehicle at 4/6 with a turret, armor, weapons and
// ammunition, everything allocated and saved; the program closed and started
// again with the last database; the design reopened, changed, saved over
// itself, and deleted. The saved file is read back with bwtool dump.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDragEnterEvent>
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
#include "refdata/Weapons.h"
#include "shell/qt/AllocationDialog.h"
#include "shell/qt/Startup.h"
#include "shell/qt/VehicleEditor.h"
#include "ProgramFixture.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"

using namespace bw;

namespace {

namespace fs = std::filesystem;

class EndToEnd : public test::ProgramFixture {
protected:
    void SetUp() override { SetUpProgram("Armory.bwd"); }
    void TearDown() override {
        CloseEditors<qt::VehicleEditor>();
        ProgramFixture::TearDown();
    }
    static qt::VehicleEditor* TopEditor() { return ProgramFixture::TopEditor<qt::VehicleEditor>(); }
    // Opens a group of the available tree with the mouse on its arrow, picks
    // the named row and presses "Add >>".
    static void AddFromTree(qt::VehicleEditor* ed, const QString& group, const QString& row, int times) {
        auto* tree = ed->findChild<QTreeWidget*>("tvAvailEq");
        ASSERT_NE(tree, nullptr);
        auto find = [&](const QString& text, QTreeWidgetItem* under) -> QTreeWidgetItem* {
            const int n = under ? under->childCount() : tree->topLevelItemCount();
            for (int i = 0; i < n; ++i) {
                QTreeWidgetItem* it = under ? under->child(i) : tree->topLevelItem(i);
                if (it->text(0) == text) return it;
            }
            return nullptr;
        };
        QTreeWidgetItem* g = find(group, nullptr);
        ASSERT_NE(g, nullptr) << group.toStdString();
        if (!g->isExpanded()) {
            tree->scrollToItem(g);
            // The arrow left of the group's text.
            const QRect r = tree->visualItemRect(g);
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, QPoint(r.left() - tree->indentation() / 2, r.center().y()));
            g = find(group, nullptr);
        }
        ASSERT_TRUE(g->isExpanded());
        QTreeWidgetItem* it = find(row, g);
        ASSERT_NE(it, nullptr) << row.toStdString();
        tree->scrollToItem(it);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(it).center());
        auto* add = ed->findChild<QPushButton*>("PButEquipment(0)");
        for (int i = 0; i < times; ++i) QTest::mouseClick(add, Qt::LeftButton);
    }
};

}  // namespace

TEST_F(EndToEnd, CreateSaveReopenChangeOverwriteDelete) {
    // ---- First run: a new database and a new design.
    auto first = std::make_unique<qt::QtStartupHost>();
    ASSERT_EQ(Main(*first), StartResult::Running);
    qt::MainWindow* main = first->Window();
    ASSERT_NE(main, nullptr);
    fake.ui.fileAnswers.push_back(database);
    main->ActionFor(first->Model()->mnuFileNew)->trigger();
    EXPECT_EQ(gDatabasePath, database);
    EXPECT_EQ(main->windowTitle().toStdString(), "The Brasswick Works 3.0 - " + database);
    Shot(main, "main-window.png");

    WhenModal([](QWidget* dlg) {
        // The New Vehicle dialog: Inner Sphere, level 3, tracked.
        auto combos = dlg->findChildren<QComboBox*>();
        for (QComboBox* c : combos) {
            if (c->objectName() == "cmboLevel") {
                c->setFocus();
                while (c->currentIndex() < c->count() - 1) QTest::keyClick(c, Qt::Key_Down);
            }
        }
        Shot(dlg, "new-vehicle.png");
        QTest::mouseClick(dlg->findChild<QPushButton*>("PButCreate"), Qt::LeftButton);
    });
    main->ToolAction("butVHLNew")->trigger();
    qt::VehicleEditor* ed = TopEditor();
    ASSERT_NE(ed, nullptr);
    frmVhl& m = ed->Model();
    ASSERT_EQ(m.vhl->VhlType, kVhlTracked);
    ASSERT_EQ(m.vhl->TechLevel, 3);

    TypeAndLeave(ed->findChild<QLineEdit*>("TName"), "Rampart");
    TypeAndLeave(ed->findChild<QLineEdit*>("TTonnage"), "50");
    Arrow(ed->findChild<QWidget*>("scrlSpeed"), "up", 3);
    EXPECT_EQ(m.vhl->CruiseSpeed, 4);
    EXPECT_EQ(m.vhl->FlankSpeed, 6);
    auto* engine = ed->findChild<QComboBox*>("cmboEngType");
    engine->setFocus();
    QTest::keyClick(engine, Qt::Key_Down);
    EXPECT_EQ(m.vhl->EngineType, kEngFusion);
    QTest::mouseClick(ed->findChild<QCheckBox*>("CBoxHasTurret"), Qt::LeftButton);
    EXPECT_EQ(m.vhl->HasTurret, kTrue);

    AddFromTree(ed, "Energy Weapons", "Large Laser", 1);
    AddFromTree(ed, "Energy Weapons", "Medium Laser", 2);
    AddFromTree(ed, "Missile Weapons", "SRM 6", 1);
    AddFromTree(ed, "Ammunition", "SRM 6 Ammo", 1);
    EXPECT_EQ(m.vhl->WeaponCount(), 5);
    EXPECT_EQ(m.vhl->WcUnallocatedWeapons(), 4);  // the ammunition went to the body

    // Allocation: the guns into the turret, the missiles to the front.
    WhenModal([](QWidget* w) {
        auto* dlg = qobject_cast<qt::AllocationDialog*>(w);
        ASSERT_NE(dlg, nullptr);
        // The guns into the turret, the missiles to the front.
        DragAll(dlg, [](const QString& text) {
            return text.startsWith("SRM") ? int16_t{kLocFront} : int16_t{kLocTurret};
        });
        Shot(dlg, "allocation.png");
        QTest::mouseClick(dlg->findChild<QPushButton*>("PButDone"), Qt::LeftButton);
    });
    QTest::mouseClick(ed->findChild<QPushButton*>("PButAllocate"), Qt::LeftButton);
    EXPECT_EQ(m.vhl->WcUnallocatedWeapons(), 0);
    EXPECT_GT(m.vhl->TurretTonnage, 0);


    // Armor: as many half tons as the design has room for, all allocated.
    ed->Tabs()->setCurrentIndex(1);
    auto* armorTons = ed->Tabs()->widget(1)->findChild<QWidget*>("scrlArmorTonnage");
    const int halves = static_cast<int>(m.vhl->FreeTonnage * 2);
    ASSERT_GT(halves, 4);
    Arrow(armorTons, "up", halves);
    EXPECT_GE(m.vhl->FreeTonnage, 0);
    const int points = m.vhl->ArmorPoints;
    ed->Tabs()->setCurrentIndex(2);
    auto* diagram = ed->findChild<qt::ArmorDiagram*>("picVHLArm");
    ASSERT_NE(diagram, nullptr);
    auto input = [&](int loc) { return diagram->Input(loc)->findChild<QLineEdit*>(); };
    const int side = points / 5, turret = points / 5, front = points / 5;
    TypeAndLeave(input(kLocFront), QString::number(front));
    TypeAndLeave(input(kLocLeft), QString::number(side));  // the right side follows
    TypeAndLeave(input(kLocTurret), QString::number(turret));
    TypeAndLeave(input(kLocRear), QString::number(points - front - 2 * side - turret));
    EXPECT_EQ(m.vhl->RightArmor, side);
    EXPECT_EQ(m.vhl->ArmorAllocated, points);

    for (int tab = 0; tab < 3; ++tab) {
        ed->Tabs()->setCurrentIndex(tab);
        Shot(ed, QString("design-tab%1.png").arg(tab).toUtf8().constData());
    }
    // Its cost and its statistics, each in a window of its own.
    for (const char* button : {"PButCost", "PButShowStats"}) {
        WhenModal([button](QWidget* w) {
            Shot(w, (std::string(button) + ".png").c_str());
            if (auto* tabs = w->findChild<QTabWidget*>(); tabs && tabs->count() > 1) {
                tabs->setCurrentIndex(1);
                Shot(w, (std::string(button) + "-2.png").c_str());
            }
            w->close();
        });
        QTest::mouseClick(ed->findChild<QPushButton*>(button), Qt::LeftButton);
    }
    const size_t boxesBefore = fake.ui.boxes.size();
    QTest::mouseClick(ed->findChild<QPushButton*>("PButSave"), Qt::LeftButton);
    for (size_t i = boxesBefore; i < fake.ui.boxes.size(); ++i)
        EXPECT_EQ(fake.ui.boxes[i].title, "Within 'Gift' Range") << fake.ui.boxes[i].text;
    EXPECT_EQ(ed->windowTitle(), "Rampart");
    ASSERT_TRUE(fs::exists(database));
    auto lines = Dump();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(Has(lines[0], "\"kind\":\"vehicle\""));
    EXPECT_TRUE(Has(lines[0], "\"Name\":\"Rampart\""));
    EXPECT_TRUE(Has(lines[0], "\"Tonnage\":50"));
    EXPECT_TRUE(Has(lines[0], "\"CruiseSpeed\":4"));
    EXPECT_TRUE(Has(lines[0], "\"HasTurret\":-1"));
    EXPECT_TRUE(Has(lines[0], "\"FrontArmor\":" + std::to_string(front)));

    // A saved editor closes without a question; the program closes and
    // keeps the database for the next run.
    QTest::mouseClick(ed->findChild<QPushButton*>("PButClose"), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(TopEditor(), nullptr);
    main->close();
    EXPECT_EQ(fake.settings.Get("General", "LastDB", ""), database);
    first.reset();
    zResetDatabase();

    // ---- Second run: the last database opens by itself.
    auto second = std::make_unique<qt::QtStartupHost>();
    ASSERT_EQ(Main(*second), StartResult::Running);
    main = second->Window();
    EXPECT_EQ(gDatabasePath, database);
    ASSERT_GE(gVehicles.size(), 1u);
    EXPECT_EQ(gVehicles[0]->Name, "Rampart");

    auto pick = [](QWidget* dlg) {
        auto* list = dlg->findChild<QTreeWidget*>();
        ASSERT_NE(list, nullptr);
        ASSERT_EQ(list->topLevelItemCount(), 1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(0)).center());
        QTest::mouseClick(dlg->findChild<QPushButton*>("PButOpen"), Qt::LeftButton);
    };
    WhenModal(pick);
    main->ToolAction("butVHLOpen")->trigger();
    ed = TopEditor();
    ASSERT_NE(ed, nullptr);
    frmVhl& m2 = ed->Model();
    EXPECT_EQ(ed->windowTitle(), "Rampart");
    EXPECT_EQ(m2.vhl->FrontArmor, front);
    EXPECT_EQ(ed->findChild<QLineEdit*>("TTonnage")->text(), "50");
    EXPECT_EQ(ed->findChild<QLineEdit*>("TCruise")->text(), "4");

    // Move a point from the front to the rear, and save over the stored one.
    ed->Tabs()->setCurrentIndex(2);
    diagram = ed->findChild<qt::ArmorDiagram*>("picVHLArm");
    TypeAndLeave(diagram->Input(kLocFront)->findChild<QLineEdit*>(), QString::number(front - 1));
    TypeAndLeave(diagram->Input(kLocRear)->findChild<QLineEdit*>(),
                 QString::number(points - front - 2 * side - turret + 1));
    EXPECT_EQ(ed->windowTitle(), "Rampart *");
    fake.ui.answers.push_back(MsgResult::Yes);
    const size_t before = fake.ui.boxes.size();
    QTest::mouseClick(ed->findChild<QPushButton*>("PButSave"), Qt::LeftButton);
    bool asked = false;
    for (size_t i = before; i < fake.ui.boxes.size(); ++i) asked = asked || fake.ui.boxes[i].title == "Overwrite?";
    EXPECT_TRUE(asked);
    EXPECT_EQ(ed->windowTitle(), "Rampart");
    lines = Dump();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(Has(lines[0], "\"FrontArmor\":" + std::to_string(front - 1)));
    QTest::mouseClick(ed->findChild<QPushButton*>("PButClose"), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // Delete it.
    WhenModal(pick);
    fake.ui.answers.push_back(MsgResult::Yes);
    main->ToolAction("butVHLDel")->trigger();
    EXPECT_EQ(fake.ui.LastBox().text, "Are you sure you want to delete the vehicle named Rampart?");
    lines = Dump();
    for (const std::string& l : lines) EXPECT_FALSE(Has(l, "Rampart")) << l;
    main->close();
    second.reset();
}

TEST_F(EndToEnd, ClosingTheProgramAsksEveryUnsavedEditor) {
    auto host = std::make_unique<qt::QtStartupHost>();
    ASSERT_EQ(Main(*host), StartResult::Running);
    qt::MainWindow* main = host->Window();
    // The offscreen screen is small; on a full-HD one the cascade holds two.
    host->Model()->ScreenWidth = 1920 * 15;
    host->Model()->ScreenHeight = 1080 * 15;
    for (int i = 0; i < 2; ++i) {
        WhenModal([](QWidget* dlg) { QTest::mouseClick(dlg->findChild<QPushButton*>("PButCreate"), Qt::LeftButton); });
        main->ToolAction("butVHLNew")->trigger();
    }
    std::vector<qt::VehicleEditor*> editors;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* e = qobject_cast<qt::VehicleEditor*>(w); e && e->isVisible()) editors.push_back(e);
    ASSERT_EQ(editors.size(), 2u);
    // Two windows on two designs, the second a step down and right.
    EXPECT_NE(editors[0]->Model().vhl.get(), editors[1]->Model().vhl.get());
    EXPECT_EQ(std::abs(editors[1]->Model().Left - editors[0]->Model().Left), 120);

    // The first editor asked keeps its design: the program stays, and the
    // other editor was still asked.
    fake.ui.answers = {MsgResult::Cancel, MsgResult::No};
    const size_t before = fake.ui.boxes.size();
    main->close();
    ASSERT_EQ(fake.ui.boxes.size(), before + 2);
    EXPECT_EQ(fake.ui.boxes[before].title, "Save?");
    EXPECT_EQ(fake.ui.boxes[before + 1].title, "Save?");
    EXPECT_TRUE(main->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    int open = 0;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* e = qobject_cast<qt::VehicleEditor*>(w); e && e->isVisible()) ++open;
    EXPECT_EQ(open, 1);

    // Asked again, it lets go, and the program closes.
    fake.ui.answers = {MsgResult::No};
    main->close();
    EXPECT_FALSE(main->isVisible());
    host.reset();
}

// The four roads on which a design used to be lost or changed behind the
// user's back, each checked on the file itself.
TEST_F(EndToEnd, NothingReachesTheFileButThroughASaveThatWorked) {
    auto host = std::make_unique<qt::QtStartupHost>();
    ASSERT_EQ(Main(*host), StartResult::Running);
    qt::MainWindow* main = host->Window();
    frmMain& model = *host->Model();
    ASSERT_TRUE(gDatabasePath.empty());
    auto newDesign = [&](const QString& name) {
        WhenModal([](QWidget* dlg) { QTest::mouseClick(dlg->findChild<QPushButton*>("PButCreate"), Qt::LeftButton); });
        main->ToolAction("butVHLNew")->trigger();
        qt::VehicleEditor* ed = TopEditor();
        EXPECT_NE(ed, nullptr);
        if (ed) TypeAndLeave(ed->findChild<QLineEdit*>("TName"), name);
        return ed;
    };
    auto save = [](qt::VehicleEditor* ed) { QTest::mouseClick(ed->findChild<QPushButton*>("PButSave"), Qt::LeftButton); };
    auto names = [&] {
        std::vector<std::string> out;
        for (const std::string& l : Dump()) {
            const size_t at = l.find("\"Name\":\"");
            out.push_back(l.substr(at + 8, l.find('"', at + 8) - at - 8));
        }
        return out;
    };

    // No database open: the save says so and the design stays unsaved.
    qt::VehicleEditor* orphan = newDesign("Orphan");
    save(orphan);
    EXPECT_EQ(fake.ui.LastBox().title, "No database open");
    EXPECT_EQ(orphan->windowTitle(), "Orphan *");
    EXPECT_FALSE(orphan->Model().IsSaved());
    orphan->Model().wSaved = kTrue;
    orphan->close();

    // A name typed without its extension gets one the open dialog shows.
    const std::string typed = dir.Path() + "/Armory";
    fake.ui.fileAnswers.push_back(typed);
    main->ActionFor(model.mnuFileNew)->trigger();
    EXPECT_EQ(gDatabasePath, database);

    // A rename answered No to "Save?" never reaches the table or the file.
    qt::VehicleEditor* alpha = newDesign("Alpha");
    save(alpha);
    EXPECT_EQ(names(), std::vector<std::string>{"Alpha"});
    TypeAndLeave(alpha->findChild<QLineEdit*>("TName"), "Beta");
    fake.ui.answers = {MsgResult::No};
    alpha->close();
    qt::VehicleEditor* gamma = newDesign("Gamma");
    save(gamma);
    EXPECT_EQ(names(), (std::vector<std::string>{"Alpha", "Gamma"}));

    // A damaged database leaves the open one as it was; the next save
    // writes it whole.
    const std::string whole = [&] {
        std::ifstream in(database, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }();
    {
        std::ofstream out(dir.Path() + "/Damaged.bwd", std::ios::binary);
        out << whole.substr(0, whole.size() - 40);
    }
    fake.ui.fileAnswers.push_back(dir.Path() + "/Damaged.bwd");
    main->ActionFor(model.mnuFileOpne)->trigger();
    EXPECT_EQ(gDatabasePath, database);
    EXPECT_EQ(main->windowTitle().toStdString(), "The Brasswick Works 3.0 - " + database);
    TypeAndLeave(gamma->findChild<QLineEdit*>("TName"), "Delta");
    save(gamma);
    EXPECT_EQ(names(), (std::vector<std::string>{"Alpha", "Gamma", "Delta"}));
    gamma->close();
    host.reset();
}

// A saved design printed from its editor to a PDF file through the print
// options window.
TEST_F(EndToEnd, ASavedDesignPrintsToAPdfFile) {
    auto host = std::make_unique<qt::QtStartupHost>();
    ASSERT_EQ(Main(*host), StartResult::Running);
    qt::MainWindow* main = host->Window();
    fake.ui.fileAnswers.push_back(database);
    main->ActionFor(host->Model()->mnuFileNew)->trigger();
    WhenModal([](QWidget* dlg) { QTest::mouseClick(dlg->findChild<QPushButton*>("PButCreate"), Qt::LeftButton); });
    main->ToolAction("butVHLNew")->trigger();
    qt::VehicleEditor* ed = TopEditor();
    ASSERT_NE(ed, nullptr);
    TypeAndLeave(ed->findChild<QLineEdit*>("TName"), "Printed");
    QTest::mouseClick(ed->findChild<QPushButton*>("PButSave"), Qt::LeftButton);
    ASSERT_TRUE(ed->Model().IsSaved());

    const std::string pdf = dir.Path() + "/sheet.pdf";
    fake.ui.fileAnswers.push_back(pdf);
    WhenModal([](QWidget* dlg) {
        auto* printers = dlg->findChild<QComboBox*>("cmboPrinters");
        ASSERT_NE(printers, nullptr);
        printers->setCurrentIndex(printers->findText("PDF file"));
        Shot(dlg, "print-options.png");
        QTest::mouseClick(dlg->findChild<QPushButton*>("PButOK"), Qt::LeftButton);
    });
    QTest::mouseClick(ed->findChild<QPushButton*>("PButPrint"), Qt::LeftButton);
    ASSERT_TRUE(fs::exists(pdf));
    std::ifstream in(pdf, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), {});
    EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
    EXPECT_GT(bytes.size(), 10000u) << "a page with its art";
    host.reset();
}
