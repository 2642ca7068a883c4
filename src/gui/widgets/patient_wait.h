#pragma once

#include <QProgressDialog>
#include <chrono>

namespace quor::gui {

/// A box that keeps the windows alive while another program works, and lets the user give the wait
/// up.
class PatientWait {
  public:
    PatientWait(const QString& program, std::chrono::milliseconds limit, QWidget* parent);

    /// Waits a little; false when the user has given up.
    bool pass() const;

  private:
    QProgressDialog box_;
};

}  // namespace quor::gui
