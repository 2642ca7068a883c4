#pragma once

#include <QDialog>

#include "app/tips.h"
#include "gui/widgets/desk.h"

class QCheckBox;
class QLabel;

namespace quor::app {

/// The tip of the day.
class TipDialog : public QDialog {
    Q_OBJECT

  public:
    /// At the start of the program: shows the view unless the user switched tips off, which is
    /// kept in `tips_hidden`.
    static void showAtStartup(gui::Desk& desk);
    /// On request: shows it in any case.
    static void showOnRequest(gui::Desk& desk);

  private:
    explicit TipDialog(gui::Desk& desk);
    static void load(gui::Desk& desk, bool requested);
    void showTip();

    session::Tips tips_;
    QLabel* text_ = nullptr;
};

}  // namespace quor::app
