#include <gtest/gtest.h>

#include <QApplication>

#include "shell/qt/FormHost.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    bw::qt::zInstallQtForms();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
