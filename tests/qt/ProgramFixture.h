// The real program in a program folder of its own (the reference files and
// the art), with the helpers its end-to-end tests drive it by: modal
// dialogs answered when they show, typing, up-down arrows, the database read
// back through bwtool.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QListWidget>
#include <QMimeData>
#include <QLineEdit>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "core/Globals.h"
#include "database/DatabaseOps.h"
#include "refdata/Weapons.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"

namespace bw::test {

class ProgramFixture : public ::testing::Test {
protected:
    ScopedFakeUi fake;
    TempDir dir;
    std::string savedPath = gAppPath;
    std::vector<WeaponRec> savedWeapons = gWeapons;
    std::string program, database;

    // A program folder of its own and the database the test will make.
    void SetUpProgram(const std::string& databaseName) {
        namespace fs = std::filesystem;
        program = dir.Path() + "/program";
        fs::create_directories(program);
        for (const char* f : {"weapons.bin", "armorloc.bin", "intloc.bin"})
            fs::copy_file(fs::path(BW_BIN_DIR) / f, fs::path(program) / f);
        fs::copy(fs::path(BW_BIN_DIR) / "bwp", fs::path(program) / "bwp", fs::copy_options::recursive);
        SetAppPath(program);
        database = dir.Path() + "/" + databaseName;
        fake.settings.Set("General", "OpenLast", "1");
    }
    // Closes the editors of type E left open, their work let go.
    template <class E>
    static void CloseEditors() {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* e = qobject_cast<E*>(w)) {
                e->Model().wSaved = kTrue;
                e->close();
            }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void TearDown() override {
        gWeapons = savedWeapons;
        SetAppPath(savedPath);
        zResetDatabase();
    }

    // Runs fn on the next modal dialog once it shows; the caller then opens it.
    static void WhenModal(std::function<void(QWidget*)> fn) {
        auto* poll = new QTimer;
        poll->setInterval(5);
        QObject::connect(poll, &QTimer::timeout, [poll, fn] {
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal || !modal->isVisible()) return;
            poll->stop();
            poll->deleteLater();
            fn(modal);
            // A failed check must not leave the test waiting on the dialog.
            if (auto* d = qobject_cast<QDialog*>(modal); d && d->isVisible()) {
                ADD_FAILURE() << "dialog left open: " << d->windowTitle().toStdString();
                d->reject();
            }
        });
        poll->start();
    }
    // The editor window of type E now open, made active so its boxes take
    // the focus.
    template <class E>
    static E* TopEditor() {
        E* found = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* e = qobject_cast<E*>(w); e && e->isVisible()) found = e;
        if (found) {
            EXPECT_TRUE(QTest::qWaitForWindowExposed(found));
            found->activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(found));
        }
        return found;
    }
    static void TypeAndLeave(QLineEdit* e, const QString& text) {
        // Focus comes and goes only in the active window.
        if (!e->window()->isActiveWindow()) {
            e->window()->activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(e->window()));
        }
        e->setFocus();
        e->selectAll();
        QTest::keyClicks(e, text);
        e->clearFocus();
    }
    static void Arrow(QWidget* upDownOwner, const char* which, int times) {
        auto* b = upDownOwner->findChild<QToolButton*>(which);
        ASSERT_NE(b, nullptr);
        for (int i = 0; i < times; ++i) QTest::mouseClick(b, Qt::LeftButton);
    }
    // Drags every entry of an allocation dialog's unallocated list onto the
    // location locFor names for its text, as a user's drag ends.
    template <class Dialog, class LocFor>
    static void DragAll(Dialog* dlg, LocFor locFor) {
        while (dlg->Avail()->count() > 0) {
            QListWidgetItem* item = dlg->Avail()->item(0);
            // The lists are rebuilt by the drop: keep the text, not the item.
            const QString text = item->text();
            QTest::mouseClick(dlg->Avail()->viewport(), Qt::LeftButton, {}, dlg->Avail()->visualItemRect(item).center());
            std::unique_ptr<QMimeData> data(dlg->Avail()->DragPayload());
            QWidget* target = dlg->Loc(locFor(text))->viewport();
            const QPoint at = target->rect().center();
            QDragEnterEvent enter(at, Qt::MoveAction, data.get(), Qt::LeftButton, {});
            QApplication::sendEvent(target, &enter);
            QDragMoveEvent move(at, Qt::MoveAction, data.get(), Qt::LeftButton, {});
            QApplication::sendEvent(target, &move);
            QDropEvent drop(at, Qt::MoveAction, data.get(), Qt::LeftButton, {});
            QApplication::sendEvent(target, &drop);
            // The list takes the entry once the drag has ended.
            QCoreApplication::processEvents();
            ASSERT_EQ(dlg->Avail()->findItems(text, Qt::MatchExactly).size(), 0);
        }
    }
    // The database as bwtool dump reads it, a line a design.
    std::vector<std::string> Dump() const {
        QProcess p;
        p.start(QString(BW_BIN_DIR) + "/bwtool", {"dump", QString::fromStdString(database)});
        EXPECT_TRUE(p.waitForFinished(10000));
        EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
        std::vector<std::string> lines;
        for (const QByteArray& l : p.readAllStandardOutput().split('\n'))
            if (!l.isEmpty()) lines.push_back(l.toStdString());
        return lines;
    }
    // Pictures for the eye when BW_TEST_SHOTS names a folder.
    static void Shot(QWidget* w, const char* file) {
        if (!qEnvironmentVariableIsSet("BW_TEST_SHOTS")) return;
        QApplication::processEvents();
        w->grab().save(qEnvironmentVariable("BW_TEST_SHOTS") + "/" + file);
    }
    static bool Has(const std::string& line, const std::string& part) { return line.find(part) != std::string::npos; }
};

}  // namespace bw::test
