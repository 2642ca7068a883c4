#include "gui/widgets/undo_keys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace quor::gui {

namespace {

enum class Step { None, Undo, Redo };

Step stepOf(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Undo)) return Step::Undo;
    return key.matches(QKeySequence::Redo) ? Step::Redo : Step::None;
}

bool hasOwn(QObject* watched, Step step) {
    const auto* field = qobject_cast<QLineEdit*>(watched);
    if (field == nullptr || field->isReadOnly()) return false;
    return step == Step::Undo ? field->isUndoAvailable() : field->isRedoAvailable();
}

}  // namespace

UndoKeys::UndoKeys(QWidget* view, Undoable& steps) : QObject(view), steps_(steps) {
    view->installEventFilter(this);
    for (QWidget* part : view->findChildren<QWidget*>()) part->installEventFilter(this);
}

bool UndoKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool announced = event->type() == QEvent::ShortcutOverride;
    if (!announced && event->type() != QEvent::KeyPress) return false;
    const Step step = stepOf(*static_cast<QKeyEvent*>(event));
    if (step == Step::None || hasOwn(watched, step)) return false;
    event->accept();
    if (announced) return true;
    step == Step::Undo ? steps_.undo() : steps_.redo();
    return true;
}

}  // namespace quor::gui
