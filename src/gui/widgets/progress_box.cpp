#include "gui/widgets/progress_box.h"

#include <QApplication>
#include <QProgressDialog>
#include <memory>

#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"

namespace quor::progress {

namespace {

constexpr int kParts = 1000;

class Box {
  public:
    bool show(const QString& what, double done) {
        if (done >= 1) {
            box_.reset();
            return true;
        }
        if (box_ == nullptr) open(what);
        box_->setValue(static_cast<int>(kParts * done));
        QApplication::processEvents();
        return !box_->wasCanceled();
    }

  private:
    void open(const QString& what) {
        QWidget* front = QApplication::activeModalWidget();
        if (front == nullptr) front = QApplication::activeWindow();
        box_ = std::make_unique<QProgressDialog>(front);
        box_->setObjectName("ProgressBox");
        box_->setLabel(gui::form::label(what));
        box_->setRange(0, kParts);
        box_->setMinimumDuration(0);
        box_->setAutoReset(false);
        box_->setAutoClose(false);
        // Nothing else of the program can be used meanwhile.
        box_->setWindowModality(Qt::ApplicationModal);
        box_->show();
    }

    std::unique_ptr<QProgressDialog> box_;
};

}  // namespace

Show desktop() {
    return [box = std::make_shared<Box>()](const std::string& what, double done) {
        return box->show(gui::qt(what), done);
    };
}

}  // namespace quor::progress
