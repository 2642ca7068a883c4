#pragma once

#include <QDialog>

#include "app/tips.h"

class QCheckBox;
class QLabel;

namespace quor::app {

/// The tip of the day.
class TipDialog : public QDialog {
    Q_OBJECT

  public:
    /// At the start of the program: shows the view unless the user switched tips off, which is
    /// kept in `TipsHidden`.
    static void showAtStartup();
    /// On request: shows it in any case.
    static void showOnRequest();

  private:
    explicit TipDialog(QWidget* parent);
    static void load();
    void showTip();

    session::Tips tips_;
    QLabel* text_ = nullptr;
};

}  // namespace quor::app
