#pragma once

#include <QHash>
#include <QMainWindow>
#include <array>
#include <span>

#include "app/menu_catalogue.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/undo_keys.h"

class QLabel;
class QToolButton;
class QMenu;

namespace quor::app {

class FirstSteps;
class HelpWindow;
class WorkArea;

/// The main window: menu bar, tool bar, status bar and the area in which all other views open. It
/// orders the work by enabling commands: database, substance, models, then calculation and
/// diagrams.
class MainWindow : public QMainWindow, private gui::Desk::Frame {
    Q_OBJECT

  public:
    /// The frame of a desk with the rows of its menus, which outlive it. Its own commands join
    /// those of the views.
    MainWindow(gui::Desk& desk, Commands& commands, std::span<const menu::Row> rows = menu::rows());
    ~MainWindow() override;

    /// The start of the program: all defaults, name tables, tips.
    void startUp();

    /// Shows the first-steps panel to a user who has never seen it.
    void inviteFirstUser();

    /// Runs what a menu row stands for, as if it had been chosen; nothing when it is disabled.
    void runRow(const menu::Row& row);

  private:
    /// A folder that takes no files is told before something is lost in it.
    void tellWhereNothingIsKept();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    // gui::Desk::Frame
    QWidget* window() override { return this; }
    void addChild(QWidget* view) override;
    void refresh() override;

    void buildMenus();
    void buildToolBar();
    void buildStatusBar();
    QWidget* unitsButton();
    void fillUnitsMenu(QMenu* menu);
    void addCommands();

    void menuOpens(const QString& menuName);
    void fillWindowList(QMenu* menu);
    void fillRecentFiles(QMenu* menu);
    void runTool(const menu::ToolButton& button);
    void setFirstStepsVisible(bool visible);

    void openFile(const QString& file);
    /// The view in front, when its changes can be taken back.
    gui::Undoable* undoable() const;
    void followUndo();

    gui::Desk& desk_;
    session::Session& session_;
    Commands& commands_;
    std::span<const menu::Row> rows_;
    session::Connection following_;
    HelpWindow* help_;
    WorkArea* area_ = nullptr;
    FirstSteps* firstSteps_ = nullptr;
    QHash<QString, QAction*> rowActions_;
    QHash<int, QAction*> toolActions_;
    std::array<QLabel*, 4> panels_{};
    QLabel* reference_ = nullptr;
    QToolButton* units_ = nullptr;
};

}  // namespace quor::app
