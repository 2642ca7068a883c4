#pragma once

#include <QDialog>

#include "session/tips.h"

class QCheckBox;
class QLabel;

/// The tip of the day.
class frmTip : public QDialog {
    Q_OBJECT

  public:
    /// At the start of the program: shows the view unless the user switched tips off, which is
    /// kept in `TipsHidden`.
    static void ShowAtStartup();
    /// On request: shows it in any case.
    static void ShowOnRequest();

  private:
    explicit frmTip(QWidget* parent);
    static void load();
    void showTip();

    Module2::Tips tips_;
    QLabel* text_ = nullptr;
};
