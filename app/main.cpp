// The Brasswick Works: the desktop program.
#include <QApplication>
#include <QTimer>

#include "core/Globals.h"
#include "core/Startup.h"
#include "databuild/DiagramSources.h"
#include "shell/DotFiles.h"
#include "shell/qt/QtSettingsStore.h"
#include "shell/qt/QtUi.h"
#include "shell/qt/Startup.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("The Brasswick Works");
    QApplication::setOrganizationName("Tallowmere Workshop");
    bw::SetAppPath(QCoreApplication::applicationDirPath().toStdString());

    static bw::qt::QtUi ui;
    static bw::qt::QtSettingsStore store;
    bw::SetUi(&ui);
    bw::SetSettingsStore(&store);
    // The Special menu's table commands lay out the dots as the build does.
    bw::zSetDotTableBuilder(&bw::BuildDotTables);

    bw::qt::QtStartupHost host;
    // While the tables load, each step lets the window system run; that is
    // when the splash bar catches up with the model.
    ui.OnDoEvents = [&host] {
        if (host.Splash()) host.Splash()->Refresh();
    };
    if (bw::Main(host) == bw::StartResult::Ended) return 1;
    ui.OnDoEvents = nullptr;

    // For documentation and checks: save a picture of the main window and quit.
    if (qEnvironmentVariableIsSet("BW_SCREENSHOT") && host.Window()) {
        QTimer::singleShot(500, [&host] {
            host.Window()->grab().save(qEnvironmentVariable("BW_SCREENSHOT"));
            QApplication::quit();
        });
    }
    // The program ends when the main window closes (after the editors agreed).
    QObject::connect(&app, &QApplication::lastWindowClosed, &app, &QApplication::quit);
    return app.exec();
}
