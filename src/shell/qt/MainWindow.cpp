#include "shell/qt/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "shell/qt/Binders.h"
#include "shell/qt/FormHost.h"
#include "shell/qt/Icons.h"

namespace bw::qt {

MainWindow::MainWindow(frmMain& model, QWidget* parent) : QMainWindow(parent), model_(model) {
    setObjectName("frmMain");
    BindWindowTitle(this, model_.Window);
    BuildMenus();
    BuildToolBar();

    auto* central = new QWidget(this);
    auto* layout = new QHBoxLayout(central);
    layout->setContentsMargins(12, 6, 12, 6);
    auto* dbLabel = new QLabel(central);
    dbLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    dbLabel->setObjectName("lDatabase");
    dbLabel->setStyleSheet("color: #505050;");
    BindLabel(dbLabel, model_.LDatabase);
    layout->addWidget(dbLabel, 1);
    setCentralWidget(central);

    auto* info = new QLabel(this);
    auto* bar = new QProgressBar(this);
    bar->setMaximumWidth(260);
    BindLabel(info, model_.LProgInfo);
    BindProgress(bar, model_.PBarMainProg);
    statusBar()->addWidget(info, 1);
    statusBar()->addPermanentWidget(bar);
    statusBar()->setSizeGripEnabled(false);
    // The progress area shows only while a long operation runs; afterwards
    // the window returns to its compact height.
    auto progress = [this] {
        const bool shown = model_.PBarMainProg.Visible() || model_.LProgInfo.Visible();
        if (statusBar()->isVisibleTo(this) == shown) return;
        statusBar()->setVisible(shown);
        FitHeight();
    };
    Watch(this, model_.PBarMainProg, [progress](MainWindow*) { progress(); });
    Watch(this, model_.LProgInfo, [progress](MainWindow*) { progress(); });
    statusBar()->setVisible(false);

    QtFormHost::Instance().Attach(model_, this);
    resize(760, 10);
    FitHeight();
}

MainWindow::~MainWindow() = default;

void MainWindow::FitHeight() {
    if (QLayout* l = layout()) l->activate();
    resize(width(), minimumSizeHint().height());
}

void MainWindow::BuildMenus() {
    for (auto& m : model_.Menus()) {
        if (m.items.empty()) {
            // A top-level command (Preferences, Search) or a menu that has
            // no items yet (Dropship, Warship).
            if (m.submenu) {
                QMenu* menu = menuBar()->addMenu(QString());
                BindMenuItem(menu->menuAction(), *m.menu);
                actions_.push_back({m.menu, menu->menuAction()});
            } else {
                QAction* a = menuBar()->addAction(QString());
                BindMenuItem(a, *m.menu);
                actions_.push_back({m.menu, a});
            }
            continue;
        }
        QMenu* menu = menuBar()->addMenu(QString());
        // A disabled item says why in its tool tip.
        menu->setToolTipsVisible(true);
        BindMenuItem(menu->menuAction(), *m.menu);
        actions_.push_back({m.menu, menu->menuAction()});
        for (MenuItem* item : m.items) {
            if (!item) {
                menu->addSeparator();
                continue;
            }
            QAction* a = menu->addAction(QString());
            BindMenuItem(a, *item);
            actions_.push_back({item, a});
        }
    }
    if (QAction* exit = ActionFor(model_.mnuFileExit)) exit->setShortcut(QKeySequence::Quit);
    if (QAction* open = ActionFor(model_.mnuFileOpne)) open->setShortcut(QKeySequence::Open);
    if (QAction* nw = ActionFor(model_.mnuFileNew)) nw->setShortcut(QKeySequence::New);
}

void MainWindow::BuildToolBar() {
    auto* tb = addToolBar("TBarMain");
    tb->setObjectName("TBarMain");
    tb->setMovable(false);
    tb->setIconSize(QSize(28, 28));
    tb->setToolButtonStyle(Qt::ToolButtonIconOnly);
    QString lastKind;
    for (const auto& b : model_.TBarMain) {
        const QString key = QString::fromStdString(b.Key);
        const QString kind = QString::fromStdString(b.Kind);
        const QString action = QString::fromStdString(b.Action);
        if (!lastKind.isEmpty() && kind != lastKind) tb->addSeparator();
        lastKind = kind;
        QAction* a = tb->addAction(DesignIcon(kind, action), QString::fromStdString(b.ToolTip));
        a->setToolTip(QString::fromStdString(b.ToolTip));
        a->setEnabled(b.Enabled);
        a->setObjectName(key);
        connect(a, &QAction::triggered, this, [this, key] { model_.TBarMain_ButtonClick(key.toStdString()); });
        toolActions_.push_back({key, a});
    }
}

QAction* MainWindow::ActionFor(const MenuItem& item) const {
    for (const auto& [m, a] : actions_)
        if (m == &item) return a;
    return nullptr;
}

QAction* MainWindow::ToolAction(const QString& key) const {
    for (const auto& [k, a] : toolActions_)
        if (k == key) return a;
    return nullptr;
}

void MainWindow::closeEvent(QCloseEvent* e) {
    // The shutdown walk asks every editor; one that stays keeps the program.
    QtFormHost::Instance().CloseEvent(model_, this, e);
}

}  // namespace bw::qt
