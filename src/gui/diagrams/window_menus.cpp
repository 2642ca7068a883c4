#include "gui/diagrams/window_menus.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr QSize kToolIcon(20, 20);

}  // namespace

QAction* WindowMenus::makeAction(const MenuRow& row) {
    auto* action = new QAction(row.caption, window_);
    action->setObjectName(row.name);
    if (!row.tip.isEmpty()) action->setToolTip(row.tip);
    if (!row.icon.isEmpty()) action->setIcon(theme::icon(row.icon));
    if (row.checked) action->setCheckable(true);
    if (!row.shortcut.isEmpty()) {
        action->setShortcut(row.shortcut);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        window_->addAction(action);
    }
    QObject::connect(action, &QAction::triggered, window_, [before = before_, run = row.run] {
        before();
        run();
    });
    rule(action, row);
    return action;
}

void WindowMenus::rule(QAction* action, const MenuRow& row) {
    if (row.enabled) enabled_.emplace_back(action, row.enabled);
    if (row.checked) checked_.emplace_back(action, row.checked);
}

void WindowMenus::add(QMenu* menu, const MenuRow& row) {
    if (row.caption.isEmpty()) {
        menu->addSeparator();
        return;
    }
    if (row.run) {
        menu->addAction(makeAction(row));
        return;
    }
    QMenu* inner = menu->addMenu(row.caption);
    inner->setObjectName(row.name);
    rule(inner->menuAction(), row);
    menus_[row.name] = inner;
    fill(inner, row.rows);
}

void WindowMenus::fill(QMenu* menu, const std::vector<MenuRow>& rows) {
    for (const MenuRow& row : rows) add(menu, row);
}

void WindowMenus::addMenu(const MenuRow& row) {
    auto* menu = new QMenu(row.caption, window_);
    menu->setObjectName(row.name);
    menu->setToolTipsVisible(true);
    window_->menuBar()->addMenu(menu);
    rule(menu->menuAction(), row);
    menus_[row.name] = menu;
    fill(menu, row.rows);
}

void WindowMenus::addRow(const QString& menu, const MenuRow& row) {
    add(menus_.value(menu), row);
}

QToolBar* WindowMenus::addToolBar(const QString& name, const std::vector<MenuRow>& buttons) {
    QToolBar* bar = window_->addToolBar("Diagram");
    bar->setObjectName(name);
    bar->setMovable(false);
    bar->setIconSize(kToolIcon);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (const MenuRow& button : buttons) addButton(bar, button);
    return bar;
}

void WindowMenus::addButton(QToolBar* bar, const MenuRow& button) {
    if (button.caption.isEmpty()) {
        bar->addSeparator();
        return;
    }
    QAction* action = makeAction(button);
    bar->addAction(action);
    bar->widgetForAction(action)->setObjectName(button.name);
}

void WindowMenus::follow() {
    for (const auto& [action, when] : enabled_) action->setEnabled(when());
    for (const auto& [action, when] : checked_) action->setChecked(when());
}

}  // namespace quor::gui
