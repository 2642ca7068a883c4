#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

#include "gui/widgets/theme.h"

using namespace quor;
using namespace quor::gui;

namespace {

/// A dialog that no test answers would hold its process for ever: it fails the test and is closed.
class DialogWatch : public QTimer {
  public:
    DialogWatch() {
        connect(this, &QTimer::timeout, this, [this] { look(); });
        start(kInterval);
    }

  private:
    static constexpr int kInterval = 1000, kPatience = 60;

    void look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        waited_ = dialog != nullptr && dialog == seen_ ? waited_ + 1 : 0;
        seen_ = dialog;
        if (waited_ < kPatience) return;
        ADD_FAILURE() << "nobody answers the dialog " << dialog->objectName().toStdString();
        dialog->reject();
    }

    QPointer<QDialog> seen_;
    int waited_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    theme::install(app);
    const DialogWatch watch;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
