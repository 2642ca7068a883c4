#pragma once

#include <QMainWindow>

#include "gui/diagrams/window_menus.h"
#include "gui/widgets/desk.h"

class QDockWidget;
class QLabel;

namespace quor::gui {

/// What the windows of diagrams and of surfaces have in common: menus, a design panel at the right
/// edge, a line for what is under the pointer. The desk knows which of its kind was used last.
class ChartWindow : public QMainWindow {
    Q_OBJECT

  public:
    ~ChartWindow() override;

    /// Makes this window the one of its kind that was used last.
    void becomeCurrent();

  protected:
    /// `name` is the object name, which is also the key of the place that is remembered.
    ChartWindow(Desk& desk, const QString& name, const QString& icon);

    /// Shows the window in the frame. With `others` of its kind it does not hide the one before.
    void open(bool others);
    void closeView();

    void addDesignPanel(QWidget* panel);
    /// `given` or, for a chart from a file, the name of that file.
    void setCaption(const QString& given, const QString& file);

    /// Gives the session what the next window of the kind begins with.
    virtual void keepChoice() = 0;

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    Desk& desk_;
    session::Session& session_;
    WindowMenus menus_;
    QDockWidget* dock_ = nullptr;  ///< of the design panel
    QLabel* status_ = nullptr;
};

}  // namespace quor::gui
