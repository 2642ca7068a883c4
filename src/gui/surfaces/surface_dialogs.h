#pragma once

#include <QDialog>
#include <vector>

#include "diagrams/surface_sheet.h"

class QSpinBox;

namespace quor::gui {

class NumberEdit;

/// The limits of a surface. Accepted when the sheet has taken them.
class SurfaceLimitsDialog : public QDialog {
    Q_OBJECT

  public:
    explicit SurfaceLimitsDialog(diagrams::SurfaceSheet& sheet, QWidget* parent = nullptr);

  private:
    void show(const diagrams::SurfaceLimits& limits);
    void confirm();

    struct Field {
        NumberEdit* edit;
        float diagrams::SurfaceLimits::*limit;
    };
    diagrams::SurfaceSheet& sheet_;
    std::vector<Field> fields_;
};

/// The numbers of mesh lines of a surface.
class MeshlinesDialog : public QDialog {
    Q_OBJECT

  public:
    explicit MeshlinesDialog(diagrams::SurfaceSheet& sheet, QWidget* parent = nullptr);
};

}  // namespace quor::gui
