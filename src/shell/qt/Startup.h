// The Qt program's part in start-up: the splash window, the main window,
// and the hook that keeps the splash bar moving while the tables load.
#pragma once

#include <memory>

#include <QProgressBar>
#include <QWidget>

#include "core/Startup.h"
#include "refdata/Loaders.h"
#include "shell/frmMain.h"
#include "shell/qt/MainWindow.h"

namespace bw::qt {

class SplashWindow : public QWidget {
    Q_OBJECT
public:
    explicit SplashWindow(frmSplsh& model);
    // Copies the model's bar into the widget.
    void Refresh();

private:
    frmSplsh& model_;
    QProgressBar* bar_ = nullptr;
};

class QtStartupHost final : public IStartupHost {
public:
    void ShowSplash(frmSplsh& splash) override;
    void LoadPictures() override;
    void LoadMainWindow() override;
    void UnloadSplash() override;
    void ShowMainWindow() override;
    void OpenDatabase(const std::string& path) override;
    std::vector<bool (*)()> ReferenceLoaders() override { return zReferenceLoaders(); }

    MainWindow* Window() { return window_.get(); }
    frmMain* Model() { return model_.get(); }
    SplashWindow* Splash() { return splash_.get(); }

private:
    std::unique_ptr<SplashWindow> splash_;
    std::unique_ptr<frmMain> model_;
    std::unique_ptr<MainWindow> window_;
};

}  // namespace bw::qt
