#pragma once

#include <QSettings>

#include "gui/drive.h"
#include "gui/widgets/desk.h"
#include "support/session_test.h"

using namespace quor;
using namespace quor::gui;

/// Base of tests with real widgets: a fresh session at a desk without any doors but those the test
/// opens, a per-user store of its own, and a check that every dialog of the script was met.
class ViewTest : public SessionTest {
  protected:
    ViewTest() {
        for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat})
            QSettings::setPath(format, QSettings::UserScope,
                               QString::fromStdString((folder() / "settings").string()));
    }

    void TearDown() override {
        EXPECT_TRUE(drive::Script::instance().done())
            << drive::Script::instance().next().toStdString() << " never opened";
        drive::Script::instance().clear();
        user.answers.assign(100, dialogs::Answer::No);  // nothing of what is left is saved
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->isVisible()) top->close();
        drive::settle();
    }

    Desk desk{session};
};
