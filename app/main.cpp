// The Brasswick Works: the desktop program.
#include <QApplication>

#include "core/Globals.h"
#include "shell/qt/QtUi.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    bw::SetAppPath(QCoreApplication::applicationDirPath().toStdString());
    static bw::qt::QtUi ui;
    bw::SetUi(&ui);
    return 0;
}
