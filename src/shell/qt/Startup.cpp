#include "shell/qt/Startup.h"

#include "shell/qt/FormHost.h"

#include <QApplication>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QVBoxLayout>

#include "core/Globals.h"
#include "shell/qt/Binders.h"

namespace bw::qt {

SplashWindow::SplashWindow(frmSplsh& model) : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), model_(model) {
    setObjectName("frmSplsh");
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet("#frmSplsh { background: #fbfaf7; border: 1px solid #8a7a5c; }"
                  "QLabel#LVersion { color: #6b5a3a; font-size: 11pt; }"
                  "QLabel#LTitle { color: #2b3a4a; font-size: 22pt; font-weight: 600; }"
                  "QLabel#LCoName { color: #2b3a4a; font-size: 12pt; }"
                  "QLabel#LDisclaimer, QLabel#LNotice, QLabel#LWeb { color: #555; font-size: 8pt; }");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(6);

    // The logo art, when the art folder is there; start-up checks the art
    // only later, so its absence must not stop the splash.
    const QString logo = QString::fromStdString(zJoinPath(gAppPath, "bwp/lgmn001.bwp"));
    auto* title = new QLabel("The Brasswick Works", this);
    title->setObjectName("LTitle");
    if (QFile::exists(logo)) {
        QSvgRenderer svg(logo);
        QSize size = svg.defaultSize();
        if (svg.isValid() && size.width() > 0) {
            const qreal dpr = devicePixelRatioF();
            QSize shown(440, 440 * size.height() / size.width());
            QPixmap pm(shown * dpr);
            pm.fill(Qt::transparent);
            QPainter p(&pm);
            svg.render(&p);
            p.end();
            pm.setDevicePixelRatio(dpr);
            auto* pic = new QLabel(this);
            pic->setObjectName("picLogo");
            pic->setPixmap(pm);
            layout->addWidget(pic, 0, Qt::AlignHCenter);
        }
    }
    // The logo already carries the name; the plain title stands in for it.
    if (layout->count() == 0) layout->addWidget(title, 0, Qt::AlignHCenter);
    else title->hide();

    auto add = [&](const std::string& text, const char* name) {
        auto* l = new QLabel(FromModel(text), this);
        l->setObjectName(name);
        l->setWordWrap(true);
        l->setAlignment(Qt::AlignHCenter);
        layout->addWidget(l);
        return l;
    };
    add(model_.LVersion, "LVersion");
    add(model_.LCoName, "LCoName");
    layout->addSpacing(8);
    bar_ = new QProgressBar(this);
    bar_->setObjectName("PBarProg");
    bar_->setTextVisible(false);
    bar_->setFixedHeight(10);
    layout->addWidget(bar_);
    layout->addSpacing(4);
    add(model_.LDisclaimer, "LDisclaimer");
    add(model_.LNotice, "LNotice");
    add(model_.LWeb, "LWeb");
    setFixedWidth(500);
    adjustSize();
    Refresh();
}

void SplashWindow::Refresh() {
    bar_->setRange(0, std::max(1, model_.PBarProg.Max));
    bar_->setValue(std::clamp(model_.PBarProg.Value, 0, std::max(1, model_.PBarProg.Max)));
}

void QtStartupHost::ShowSplash(frmSplsh& splash) {
    splash_ = std::make_unique<SplashWindow>(splash);
    if (QScreen* s = QGuiApplication::primaryScreen()) splash_->move(s->availableGeometry().center() - splash_->rect().center());
    splash_->show();
    QApplication::processEvents();
    // For documentation and checks: a picture of the splash.
    if (qEnvironmentVariableIsSet("BW_SPLASH_SCREENSHOT")) splash_->grab().save(qEnvironmentVariable("BW_SPLASH_SCREENSHOT"));
}

void QtStartupHost::LoadPictures() {
    // The record sheets load their art when they print; nothing to hold yet.
}

void QtStartupHost::LoadMainWindow() {
    zInstallQtForms();
    model_ = std::make_unique<frmMain>();
    model_->Load();
    window_ = std::make_unique<MainWindow>(*model_);
    if (QScreen* s = QGuiApplication::primaryScreen()) {
        // The model places the window in twips; 15 twips a pixel at 96 dpi.
        QRect avail = s->availableGeometry();
        model_->ScreenWidth = avail.width() * 15;
        model_->ScreenHeight = avail.height() * 15;
        window_->move(avail.left() + model_->Left / 15, avail.top() + model_->Top / 15);
    }
}

void QtStartupHost::UnloadSplash() { splash_.reset(); }

void QtStartupHost::ShowMainWindow() { window_->show(); }

void QtStartupHost::OpenDatabase(const std::string& path) { model_->zOpenDatabase(path); }

}  // namespace bw::qt
