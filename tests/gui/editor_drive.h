#pragma once

#include <QTabWidget>
#include <QTableView>

#include "gui/drive.h"

namespace drive {

/// Brings the tab with that caption to the front.
inline void tab(const QString& tabs, const QString& caption) {
    auto* widget = usable<QTabWidget>(tabs);
    for (int i = 0; i < widget->count(); ++i)
        if (widget->tabText(i) == caption) {
            widget->setCurrentIndex(i);
            settle();
            return;
        }
    fail(tabs + " has no tab \"" + caption + "\"");
}

/// The caption of the tab in front.
inline QString tabInFront(const QString& tabs) {
    auto* widget = get<QTabWidget>(tabs);
    return widget->tabText(widget->currentIndex());
}

/// Marks the lines `first` to `last` of a table, counted from 1.
inline void mark(const QString& table, int first, int last) {
    auto* view = usable<QTableView>(table);
    const QAbstractItemModel* model = view->model();
    view->selectionModel()->select(
        {model->index(first - 1, 0), model->index(last - 1, model->columnCount() - 1)},
        QItemSelectionModel::ClearAndSelect);
    settle();
}

/// What a cell shows, line and column counted from 1.
inline QString cell(const QString& table, int line, int column) {
    const QAbstractItemModel* model = get<QAbstractItemView>(table)->model();
    return model->index(line - 1, column - 1).data().toString();
}

/// Heading of a line, counted from 1.
inline QString lineHead(const QString& table, int line) {
    return get<QAbstractItemView>(table)->model()->headerData(line - 1, Qt::Vertical).toString();
}

inline int lines(const QString& table) {
    return get<QAbstractItemView>(table)->model()->rowCount();
}

/// The pop-up row of a widget, by its name.
inline QAction* popupRow(const QString& name) {
    for (QWidget* top : QApplication::topLevelWidgets())
        for (QAction* one : top->findChildren<QAction*>(name)) return one;
    fail("no row named " + name);
}

}  // namespace drive
