#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QSet>
#include <QTimer>

#include "app/help_viewer.h"
#include "app/open_file.h"
#include "gui/frame_test.h"
#include "gui/widgets/help_topics.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

/// Walks through all rows of the menu and all buttons of the tool bar and looks for what they do.
class MenuWalk : public FrameTest {
  protected:
    MenuWalk() {
        databases::Write(folder() / "STUDENT.Q05", {databases::Row("Propane")});
        std::filesystem::copy(std::filesystem::path(QUOR_SOURCE_DATA).parent_path() / "help",
                              folder() / "help", std::filesystem::copy_options::recursive);
        start();
        openSubstance("Propane");
        // A project that the rows can load, and data that they can show.
        user.fileAnswers = {(folder() / "mine.QCF").string()};
        drive::choose("mnuData_SaveProject");
        open_file::open(desk, commands,
                        std::string(QUOR_SOURCE_DATA) + "/samples/propane_saturation.BAQ");
        // Dialogs are seen and left again.
        QObject::connect(&watch_, &QTimer::timeout, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || !dialog->isVisible()) return;
            ++dialogs_;
            dialog->reject();
        });
        watch_.start(5);
    }
    void TearDown() override {
        watch_.stop();
        delete drive::find("helpViewer");
        FrameTest::TearDown();
    }

    /// What a user can see of the program.
    struct Sight {
        QSet<const QWidget*> windows;
        std::size_t messages, files, prints;
        int dialogs;
        calculation::Task task;
        bool operator==(const Sight&) const = default;
    };
    Sight look() const {
        Sight s{{},       user.messages.size(),     user.files.size(), user.prints.size(),
                dialogs_, session->calculation.task};
        for (QMdiSubWindow* sub : frame->findChild<QMdiArea*>("area")->subWindowList())
            if (sub->isVisible()) s.windows.insert(sub);
        for (const QWidget* top : QApplication::topLevelWidgets())
            if (top->isVisible()) s.windows.insert(top);
        return s;
    }
    void closeAll() {
        frame->findChild<QMdiArea*>("area")->closeAllSubWindows();
        delete drive::find("helpViewer");
        drive::settle();
    }

    int dialogs_ = 0;

  private:
    QTimer watch_;
};

TEST_F(MenuWalk, EveryRowDoesSomethingAndHasAnActionBehindIt) {
    int walked = 0;
    for (const menu::Row& row : menu::rows()) {
        if (row.kind != menu::Kind::Command) continue;
        const QString name = QString::fromStdString(menu::object_name(row));
        if (name == "mnuData_Exit") continue;   // walked last
        if (row.parent == "mnuEdit") continue;  // for the view in front, of which there is none
        EXPECT_TRUE(commands.has(row.action)) << name.toStdString() << " has no action";
        if (!menu::visible(session, row)) continue;
        if (!row.parent.empty()) drive::open(name);  // menus bring their rows up to date
        EXPECT_TRUE(menu::enabled(session, commands, row)) << name.toStdString() << " is disabled";
        if (!menu::enabled(session, commands, row)) continue;
        closeAll();
        user.fileAnswers = {(folder() / "mine.QCF").string()};
        const Sight before = look();
        QAction* action = drive::action(name);
        action->trigger();
        drive::settle();
        EXPECT_FALSE(look() == before) << name.toStdString() << " does nothing";
        ++walked;
        // Leaving the choice of a substance or a project leaves nothing behind to go on with.
        if (session->substance.name != "Propane" || !menu::enabled(session, commands, row)) {
            closeAll();
            user.fileAnswers = {(folder() / "mine.QCF").string()};
            drive::action("mnuData_LoadProject")->trigger();
            drive::settle();
        }
    }
    EXPECT_GT(walked, 60);
    closeAll();
    drive::action("mnuData_Exit")->trigger();
    drive::settle();
    EXPECT_FALSE(frame->isVisible());
}

TEST_F(MenuWalk, EveryToolButtonDoesSomething) {
    for (const menu::ToolButton& button : menu::tool_buttons()) {
        closeAll();
        user.fileAnswers = {(folder() / "mine.QCF").string()};
        const QString name = QString("Toolbar1_%1").arg(button.index);
        EXPECT_TRUE(drive::isEnabled(name)) << name.toStdString();
        const Sight before = look();
        drive::click(name);
        EXPECT_FALSE(look() == before) << name.toStdString() << " does nothing";
        user.fileAnswers = {(folder() / "mine.QCF").string()};
        drive::action("mnuData_LoadProject")->trigger();
        drive::settle();
    }
}

}  // namespace
