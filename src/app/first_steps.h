#pragma once

#include <QFrame>

namespace quor::app {

/// The panel "Picture1": what a new user does first. A click anywhere on it hides it.
class FirstSteps : public QFrame {
    Q_OBJECT

  public:
    explicit FirstSteps(QWidget* parent = nullptr);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace quor::app
