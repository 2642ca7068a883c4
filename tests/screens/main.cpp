#include <gtest/gtest.h>

#include <QApplication>

#include "common/views/theme.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    theme::install(app);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
