#pragma once

#include <QString>
#include <QStringList>

class QDialog;
class QAbstractButton;
class QWidget;

namespace quor::gui {

/// What views need of the main window: a place to open in, the other open views, help. All of it
/// also works without a main window; a view then stands alone.
namespace shell {

/// What the main window does for the views.
class Frame {
  public:
    Frame() = default;
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    virtual ~Frame() = default;

    virtual QWidget* window() = 0;
    virtual void addChild(QWidget* view) = 0;
    /// Menus, tool bar and status bar follow the session again.
    virtual void refresh() = 0;
};

/// The main window in use; nullptr when it has gone.
void setFrame(Frame* frame);
QWidget* frameWindow();

/// Opens a view inside the frame, or brings it to the front when it is open already. Its object
/// name must be set: it is the key under which size and place are remembered. The view is deleted
/// as it closes.
void openChild(QWidget* view);

/// Runs a dialog in front of the frame and remembers its place. Returns `QDialog::Accepted` or
/// `QDialog::Rejected`.
int openModal(QDialog& dialog);

/// The open view of that object name; nullptr when there is none.
QWidget* findView(const QString& name);

/// True when that very view is among the open ones.
bool isFormOpen(const QWidget* view);

/// Brings an open view to the front and gives it the focus; false when it is not open.
bool activate(const QString& name);

/// Closes the open views of these names.
void closeViews(const QStringList& names);

/// The views of results and of input, which make room for a new task.
QStringList resultViews();
QStringList inputViews();

/// Menus, tool bar and status bar follow the session again.
void Refresh();

/// True when help pages can be shown.
bool helpAvailable();
/// Opens a help page by its number; false without help.
bool showHelp(int topic);
/// Makes a button open a help page; without help the button is disabled.
void connectHelp(QAbstractButton* button, int topic);
/// Who shows help pages; an empty function for none.
void setHelp(void (*show)(int topic));

}  // namespace shell

}  // namespace quor::gui
