#pragma once

#include <QSettings>

#include "gui/drive.h"
#include "gui/widgets/shell.h"
#include "session/actions.h"
#include "session/project_hooks.h"
#include "session/shutdown.h"
#include "support/session_test.h"

using namespace quor;
using namespace quor::gui;

/// Base of tests with real widgets: a fresh session, a per-user store of its own, no actions but
/// those the test brings, and a check that every dialog of the script was met.
class ViewTest : public SessionTest {
  protected:
    ViewTest() {
        for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat})
            QSettings::setPath(format, QSettings::UserScope,
                               QString::fromStdString((folder() / "settings").string()));
        actions::clear();
        session::project_hooks() = {};
        session::shutdown_hooks() = {};
        shell::setHelp(nullptr);
    }

    void TearDown() override {
        EXPECT_TRUE(drive::Script::instance().done())
            << drive::Script::instance().next().toStdString() << " never opened";
        drive::Script::instance().clear();
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->isVisible()) top->close();
        drive::settle();
        actions::clear();
        session::project_hooks() = {};
        session::shutdown_hooks() = {};
    }
};
