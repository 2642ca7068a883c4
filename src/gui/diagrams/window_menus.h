#pragma once

#include <QKeySequence>
#include <QMap>
#include <QString>
#include <functional>
#include <utility>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace quor::gui {

/// One row of a menu, or one button of a tool bar.
struct MenuRow {
    QString caption{};                ///< empty: a separator
    QString name{};                   ///< object name
    std::function<void()> run{};      ///< nothing for a submenu
    std::function<bool()> enabled{};  ///< empty: always
    std::function<bool()> checked{};  ///< empty: no check mark
    QString tip{};
    QString icon{};
    std::vector<MenuRow> rows{};  ///< of a submenu
    QKeySequence shortcut{};
};

/// The menus and the tool bar of a window, made from rows. Before a row runs the window becomes the
/// current one.
class WindowMenus {
  public:
    WindowMenus(QMainWindow* window, std::function<void()> before)
        : window_(window), before_(std::move(before)) {}

    /// A menu of the menu bar; the row has its rows.
    void addMenu(const MenuRow& menu);
    /// A row at the end of the menu of a name.
    void addRow(const QString& menu, const MenuRow& row);
    QToolBar* addToolBar(const QString& name, const std::vector<MenuRow>& buttons);
    void addButton(QToolBar* bar, const MenuRow& button);

    /// Enables and checks the rows by the state of their window.
    void follow();

  private:
    QAction* makeAction(const MenuRow& row);
    void fill(QMenu* menu, const std::vector<MenuRow>& rows);
    void add(QMenu* menu, const MenuRow& row);
    void rule(QAction* action, const MenuRow& row);

    QMainWindow* window_;
    std::function<void()> before_;
    QMap<QString, QMenu*> menus_;
    std::vector<std::pair<QAction*, std::function<bool()>>> enabled_, checked_;
};

}  // namespace quor::gui
