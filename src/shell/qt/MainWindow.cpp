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

#include "core/Config.h"
#include "core/frmSet.h"
#include "database/DatabaseOps.h"
#include "shell/qt/Binders.h"
#include "shell/qt/Icons.h"
#include "shell/qt/SettingsDialog.h"
#include "shell/qt/NewVehicleDialog.h"
#include "shell/qt/PickerDialog.h"
#include "shell/qt/VehicleEditor.h"

namespace bw::qt {

MainWindow::MainWindow(frmMain& model, QWidget* parent) : QMainWindow(parent), model_(model) {
    setObjectName("frmMain");
    BindWindowTitle(this, model_.Window);
    BuildMenus();
    BuildToolBar();

    auto* central = new QWidget(this);
    auto* layout = new QHBoxLayout(central);
    layout->setContentsMargins(12, 6, 12, 6);
    dbLabel_ = new QLabel(central);
    dbLabel_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    dbLabel_->setObjectName("lDatabase");
    dbLabel_->setStyleSheet("color: #505050;");
    layout->addWidget(dbLabel_, 1);
    setCentralWidget(central);
    // The caption carries the open database's path; the label says the same
    // in words, kept in step through the caption's observer.
    subscriptions_.push_back({&model_.Window, model_.Window.Subscribe([this] { RefreshDatabaseLabel(); })});
    RefreshDatabaseLabel();

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
    subscriptions_.push_back({&model_.PBarMainProg, model_.PBarMainProg.Subscribe(progress)});
    subscriptions_.push_back({&model_.LProgInfo, model_.LProgInfo.Subscribe(progress)});
    statusBar()->setVisible(false);

    model_.ShowSettings = [this] { ShowSettings(); };
    model_.ShowAbout = [this] { ShowAbout(); };
    // Editors are windows of their own: several at once, each on its design.
    model_.ShowVehicleEditor = [](std::unique_ptr<frmVhl> editor) { zShowVehicleEditor(std::move(editor)); };
    model_.ShowNewVehicle = [this](frmNVhl& dlg) { zShowNewVehicle(dlg, this); };
    model_.ShowVehiclePicker = [this](frmVOpen& dlg) { zShowVehiclePicker(dlg, this); };
    model_.ShowFighterPicker = [this](frmFOpen& dlg) { zShowFighterPicker(dlg, this); };
    model_.CloseWindow = [this] {
        walked_ = true;
        close();
    };
    resize(760, 10);
    FitHeight();
}

MainWindow::~MainWindow() {
    // The model may outlive this window.
    for (auto [control, id] : subscriptions_) control->Unsubscribe(id);
    model_.ShowSettings = nullptr;
    model_.ShowAbout = nullptr;
    model_.ShowVehicleEditor = nullptr;
    model_.ShowNewVehicle = nullptr;
    model_.ShowVehiclePicker = nullptr;
    model_.ShowFighterPicker = nullptr;
    model_.CloseWindow = nullptr;
}

void MainWindow::FitHeight() {
    if (QLayout* l = layout()) l->activate();
    resize(width(), minimumSizeHint().height());
}

void MainWindow::BuildMenus() {
    for (auto& m : model_.Menus()) {
        if (m.items.empty()) {
            // A top-level command (Preferences, Search) or an empty menu
            // (Dropship, Warship): an empty menu stays a menu with no items.
            if (m.menu == &model_.mnuDropship || m.menu == &model_.mnuWarship) {
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
        QString kind = key.contains("VHL") ? "vehicle" : key.contains("Ftr") ? "fighter" : key.contains("DS") ? "dropship" : "warship";
        QString action = key.contains("New") ? "new" : key.contains("Open") ? "open" : "delete";
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

void MainWindow::RefreshDatabaseLabel() {
    if (gDatabasePath.empty())
        dbLabel_->setText(tr("No database open. Use File > New Database or File > Open Database."));
    else
        dbLabel_->setText(tr("Database: %1").arg(FromModel(gDatabasePath)));
}

void MainWindow::closeEvent(QCloseEvent* e) {
    bool cancel = false;
    // Exit has already walked the windows; the close box has not.
    if (!walked_) model_.Form_Unload(cancel);
    walked_ = false;
    if (cancel) e->ignore();
    else e->accept();
}

void MainWindow::ShowSettings() {
    frmSet form;
    form.Form_Load();
    SettingsDialog dlg(form, this);
    dlg.Run();
}

void MainWindow::ShowAbout() {
    QMessageBox::about(this, tr("About The Brasswick Works"),
                       QString("<h3>The Brasswick Works %1.%2.%3</h3><p>%4</p><p>%5</p><p>%6</p>")
                           .arg(kVersionMajor)
                           .arg(kVersionMinor)
                           .arg(kVersionRevision)
                           .arg(kCompanyName)
                           .arg("BattleTech is a registered Trademark of the FASA corporation")
                           .arg(kMakerNotice));
}

}  // namespace bw::qt
