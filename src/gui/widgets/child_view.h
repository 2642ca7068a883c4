#pragma once

#include <QWidget>
#include <functional>

#include "gui/widgets/desk.h"

class QPushButton;

namespace quor::gui {

/// Property of a field that runs a command of its own on Enter, instead of the view's default.
inline constexpr auto kTakesReturn = "takesReturn";

/// A view that stands inside the frame, or alone: Enter presses its default button, or the button
/// that has the focus; Escape cancels it.
class ChildView : public QWidget {
    Q_OBJECT

  public:
    /// `name` is the object name, which is also the key of the place that is remembered.
    ChildView(Desk& desk, const QString& name, QWidget* parent = nullptr);

    Desk& desk() const { return desk_; }

    /// Closes the view together with the window that it stands in.
    void closeView();

  protected:
    /// The button that Enter presses; nullptr for none.
    void setDefaultButton(QPushButton* button);

    /// A button that prints the view, which Ctrl+P also does.
    QPushButton* printButton(std::function<void()> print);

    /// What Escape does; closes the view unless the view has something else to do.
    virtual void cancel() { closeView(); }

    /// Makes the window large enough for the contents after these have changed. A view that
    /// `hugs` its contents also gives back height that they do not need.
    void fitWindow();
    void setHugs(bool hugs) { hugs_ = hugs; }

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

    Desk& desk_;
    session::Session& session_;

  private:
    QPushButton* default_ = nullptr;
    std::function<void()> print_;
    bool hugs_ = false;
};

}  // namespace quor::gui
