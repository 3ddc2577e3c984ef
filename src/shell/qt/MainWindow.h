// The main window of the Qt program, showing the frmMain model.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>

#include "shell/frmMain.h"

namespace bw::qt {

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(frmMain& model, QWidget* parent = nullptr);
    ~MainWindow() override;
    frmMain& Model() { return model_; }
    QAction* ActionFor(const MenuItem& item) const;
    QAction* ToolAction(const QString& key) const;

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void BuildMenus();
    void BuildToolBar();
    void FitHeight();

    frmMain& model_;
    std::vector<std::pair<const MenuItem*, QAction*>> actions_;
    std::vector<std::pair<QString, QAction*>> toolActions_;
};

}  // namespace bw::qt
