#pragma once

#include <QHash>
#include <QMainWindow>
#include <array>

#include "app/menu_catalogue.h"
#include "gui/widgets/shell.h"

class QMenu;

class QLabel;

namespace quor::app {

class FirstSteps;
class WorkArea;

/// The main window: menu bar, tool bar, status bar and the area in which all other views open. It
/// orders the work by enabling commands: database, substance, models, then calculation and
/// diagrams.
class MainWindow : public QMainWindow, private gui::shell::Frame {
    Q_OBJECT

  public:
    MainWindow();
    ~MainWindow() override;

    /// The start of the program: all defaults, name tables, tips.
    void startUp();

    /// Shows the first-steps panel to a user who has never seen it.
    void inviteFirstUser();

    /// Who opens a file that is dropped on the window or chosen among the recent ones; at first
    /// nobody.
    using FileOpener = void (*)(const std::string& file);
    static void setFileOpener(FileOpener opener);

    /// Runs what a menu row stands for, as if it had been chosen; nothing when it is disabled.
    void runRow(const menu::Row& row);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    // gui::shell::Frame
    QWidget* window() override { return this; }
    void addChild(QWidget* view) override;
    void refresh() override;

    void buildMenus();
    void buildToolBar();
    void buildStatusBar();
    void registerActions();
    void registerProjectActions();

    void menuOpens(const QString& menuName);
    void fillWindowList(QMenu* menu);
    void fillRecentFiles(QMenu* menu);
    void runTool(const menu::ToolButton& button);
    void setFirstStepsVisible(bool visible);

    WorkArea* area_ = nullptr;
    FirstSteps* firstSteps_ = nullptr;
    QHash<QString, QAction*> rowActions_;
    QHash<int, QAction*> toolActions_;
    std::array<QLabel*, 4> panels_{};
};

}  // namespace quor::app
