#include "gui/widgets/patient_wait.h"

#include <QCoreApplication>
#include <QThread>

namespace quor::gui {

PatientWait::PatientWait(const QString& program, std::chrono::milliseconds limit, QWidget* parent)
    : box_(QString("Waiting for %1, at most %2 s ...").arg(program).arg(limit.count() / 1000),
           "Give up", 0, 0, parent) {
    box_.setObjectName("programWait");
    box_.setWindowTitle("QUOR-6");
    // No other window takes a command while its values are being waited for.
    box_.setWindowModality(Qt::ApplicationModal);
    box_.setMinimumDuration(0);
    box_.show();
}

bool PatientWait::pass() const {
    constexpr unsigned long kPause = 20;  // ms
    QCoreApplication::processEvents();
    QThread::msleep(kPause);
    return !box_.wasCanceled();
}

}  // namespace quor::gui
