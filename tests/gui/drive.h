#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>

/// Drives real widgets as a user does, by their object names. What is not there, hidden or disabled
/// cannot be used: the functions then throw, which fails the test.
namespace drive {

[[noreturn]] inline void fail(const QString& what) {
    throw std::runtime_error(what.toStdString());
}

/// Lets pending events happen.
inline void settle() {
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

/// The widget of a name: in the modal dialog in front, else in any open window; nullptr for none.
inline QWidget* find(const QString& name) {
    QWidgetList tops = QApplication::topLevelWidgets();
    if (QWidget* modal = QApplication::activeModalWidget()) tops.prepend(modal);
    for (const bool visible : {true, false})
        for (QWidget* top : tops) {
            if (!top->isVisible()) continue;
            if (top->objectName() == name) return top;
            for (QWidget* child : top->findChildren<QWidget*>(name))
                if (child->isVisible() == visible) return child;
        }
    return nullptr;
}

template <class Widget = QWidget>
Widget* get(const QString& name) {
    QWidget* widget = find(name);
    if (widget == nullptr) fail("no widget named " + name);
    auto* typed = qobject_cast<Widget*>(widget);
    if (typed == nullptr) fail(name + " is a " + widget->metaObject()->className());
    return typed;
}

template <class Widget = QWidget>
Widget* usable(const QString& name) {
    Widget* widget = get<Widget>(name);
    if (!widget->isVisible()) fail(name + " is hidden");
    if (!widget->isEnabled()) fail(name + " is disabled");
    return widget;
}

inline bool isEnabled(const QString& name) {
    return get(name)->isEnabled();
}
inline bool isVisible(const QString& name) {
    const QWidget* widget = find(name);
    return widget != nullptr && widget->isVisible();
}
inline bool isChecked(const QString& name) {
    return get<QAbstractButton>(name)->isChecked();
}

/// Presses a button with the mouse, where buttons with an indicator have it.
inline void click(const QString& name) {
    auto* button = usable<QAbstractButton>(name);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
    settle();
}

/// Presses a key in a widget.
inline void press(const QString& name, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(usable(name), key, modifiers);
    settle();
}

/// Types into a field in place of what stands there.
inline void type(const QString& name, const QString& text) {
    QWidget* widget = usable(name);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) widget = combo->lineEdit();
    auto* field = qobject_cast<QLineEdit*>(widget);
    if (field == nullptr) fail(name + " takes no text");
    field->setFocus();
    field->selectAll();
    if (text.isEmpty())
        QTest::keyClick(field, Qt::Key_Delete);
    else
        QTest::keyClicks(field, text);
    settle();
}

/// The text a widget shows.
inline QString read(const QString& name) {
    QWidget* widget = get(name);
    if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    if (auto* field = qobject_cast<QLineEdit*>(widget)) return field->text();
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return combo->currentText();
    if (auto* lines = qobject_cast<QPlainTextEdit*>(widget)) return lines->toPlainText();
    if (auto* rich = qobject_cast<QTextEdit*>(widget)) return rich->toPlainText();
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) return button->text();
    if (auto* group = qobject_cast<QGroupBox*>(widget)) return group->title();
    return widget->windowTitle();
}

/// All entries of a drop-down list.
inline QStringList entries(const QString& name) {
    const auto* combo = get<QComboBox>(name);
    QStringList all;
    for (int i = 0; i < combo->count(); ++i) all << combo->itemText(i);
    return all;
}

/// Selects an entry of a drop-down list, or clicks the first cell with that text in a list or
/// table.
inline void select(const QString& name, const QString& text) {
    QWidget* widget = usable(name);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        const int row = combo->findText(text);
        if (row < 0) fail(name + " has no entry \"" + text + "\"");
        combo->setCurrentIndex(row);
        Q_EMIT combo->activated(row);
        settle();
        return;
    }
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    if (view == nullptr) fail(name + " is no list");
    const QAbstractItemModel* model = view->model();
    for (int row = 0; row < model->rowCount(); ++row)
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex cell = model->index(row, column);
            if (cell.data().toString() != text) continue;
            view->scrollTo(cell);
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                              view->visualRect(cell).center());
            settle();
            return;
        }
    fail(name + " has no cell \"" + text + "\"");
}

/// The action of a menu row.
inline QAction* action(const QString& name) {
    for (QWidget* top : QApplication::topLevelWidgets())
        for (QAction* one : top->findChildren<QAction*>(name)) return one;
    fail("no menu row named " + name);
}

/// The menus that lead to a row, from the menu bar downwards.
inline QList<QMenu*> menusAbove(const QAction* row) {
    QList<QMenu*> chain;
    for (const QAction* step = row; step != nullptr;) {
        QMenu* above = nullptr;
        for (QObject* owner : step->associatedObjects())
            if (auto* menu = qobject_cast<QMenu*>(owner)) above = menu;
        if (above == nullptr || chain.contains(above)) break;
        chain.prepend(above);
        step = above->menuAction();
    }
    return chain;
}

/// Opens the menus down to a row, as moving through them does.
inline QAction* open(const QString& rowName) {
    QAction* row = action(rowName);
    for (QMenu* menu : menusAbove(row)) {
        if (!menu->menuAction()->isEnabled()) fail("menu " + menu->objectName() + " is disabled");
        Q_EMIT menu->aboutToShow();
    }
    return row;
}

/// Chooses a menu row.
inline void choose(const QString& rowName) {
    QAction* row = open(rowName);
    if (!row->isVisible()) fail(rowName + " is hidden");
    if (!row->isEnabled()) fail(rowName + " is disabled");
    row->trigger();
    settle();
}

/// True when the row could be chosen now: all menus above it and the row itself are enabled.
inline bool offers(const QString& rowName) {
    QAction* row = action(rowName);
    for (QMenu* menu : menusAbove(row))
        if (!menu->menuAction()->isEnabled()) return false;
    return row->isVisible() && row->isEnabled();
}

/// What a user does in the modal dialogs to come. A dialog blocks the call that opens it, so what
/// happens in it is told before.
class Script {
  public:
    static Script& instance() {
        static Script script;
        return script;
    }

    void add(const QString& dialog, std::function<void()> what) {
        steps_.push_back({dialog, std::move(what)});
        waited_ = 0;
        timer_.start();
    }
    bool done() const { return steps_.empty(); }
    void clear() { steps_.clear(); }
    QString next() const { return steps_.empty() ? QString() : steps_.front().dialog; }

  private:
    struct Step {
        QString dialog;
        std::function<void()> what;
    };
    static constexpr int kPoll = 2, kPatience = 10000;  // ms

    Script() {
        timer_.setInterval(kPoll);
        QObject::connect(&timer_, &QTimer::timeout, [this] { poll(); });
    }

    void poll() {
        if (steps_.empty()) {
            timer_.stop();
            return;
        }
        QWidget* modal = QApplication::activeModalWidget();
        const bool there =
            modal != nullptr && modal->isVisible() && modal->objectName() == steps_.front().dialog;
        if (!there) {
            waited_ += kPoll;
            if (waited_ > kPatience) give_up(modal);
            return;
        }
        waited_ = 0;
        // What happens in the dialog may open the next one, so the step goes first.
        const Step step = std::move(steps_.front());
        steps_.pop_front();
        try {
            step.what();
        } catch (const std::exception& e) {
            ADD_FAILURE() << "in " << step.dialog.toStdString() << ": " << e.what();
            if (QWidget* front = QApplication::activeModalWidget()) front->close();
        }
    }

    void give_up(QWidget* modal) {
        ADD_FAILURE() << steps_.front().dialog.toStdString() << " did not open";
        steps_.clear();
        while (modal != nullptr) {
            modal->close();
            QWidget* next = QApplication::activeModalWidget();
            modal = next == modal ? nullptr : next;
        }
    }

    std::deque<Step> steps_;
    QTimer timer_;
    int waited_ = 0;
};

/// Says what is done in the next modal dialog of that name.
inline void when(const QString& dialog, std::function<void()> what) {
    Script::instance().add(dialog, std::move(what));
}

}  // namespace drive
