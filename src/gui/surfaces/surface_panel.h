#pragma once

#include "diagrams/surface_sheet.h"
#include "gui/diagrams/design_controls.h"

namespace quor::gui {

/// The panel beside a surface: its styles, mesh, sections, axes, texts and view. A change shows at
/// once. Pages: "surface", "sections", "axes", "texts", "view".
class SurfacePanel : public DesignControls {
    Q_OBJECT

  public:
    explicit SurfacePanel(diagrams::SurfaceSheet& sheet, QWidget* parent = nullptr);

    /// The controls take what the sheet holds now.
    void follow();

  private:
    QFormLayout* group(QFormLayout* into, const QString& title, const QString& name);
    void surfacePage();
    void sectionPage();
    void axisPage();
    void textPage();
    void viewPage();

    diagrams::SurfaceSheet& sheet_;
};

}  // namespace quor::gui
