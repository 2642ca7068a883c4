#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace quor::gui {

/// A view whose changes can be taken back. Names are those of the steps, empty for none.
class Undoable {
  public:
    Undoable() = default;
    Undoable(const Undoable&) = delete;
    Undoable& operator=(const Undoable&) = delete;
    virtual ~Undoable() = default;

    virtual QString undoName() const = 0;
    virtual QString redoName() const = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
};

/// Ctrl+Z and Ctrl+Shift+Z anywhere in a view. A field in which something is being typed takes its
/// own typing back first.
class UndoKeys : public QObject {
    Q_OBJECT

  public:
    /// For `view` and the parts that it has now; `steps` must live as long as the view.
    UndoKeys(QWidget* view, Undoable& steps);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Undoable& steps_;
};

}  // namespace quor::gui
