#pragma once

#include <QWidget>

#include "report/diagnosis.h"

namespace quor::gui {

/// The p-v isotherm of a cubic EOS with its roots at the given p, and below the critical
/// temperature p(LV) with the two equal areas.
class IsothermPlot : public QWidget {
    Q_OBJECT

  public:
    explicit IsothermPlot(QWidget* parent = nullptr);

    void showDiagnosis(const report::Diagnosis& diagnosis);

    /// Paints the plot in the size of the widget.
    void paint(QPainter& painter) const;

    /// True when the volume axis is logarithmic: where the V volume is far from the L volume.
    bool isLogarithmic() const;
    /// Titles of the axes, in the units of the diagnosis: "v/(m^3/kmol)".
    QString volumeTitle() const;
    QString pressureTitle() const;
    /// The numbers at the axis of the pressure, in its unit.
    std::vector<double> pressureTicks() const;
    /// The place of a point of the isotherm in the widget.
    QPointF place(double v, double p) const;
    /// The area within the axes.
    QRectF area() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    double vFirst() const;
    double vLast() const;
    void paintAxes(QPainter& painter) const;
    void paintAreas(QPainter& painter) const;
    void paintLines(QPainter& painter) const;
    void paintRoots(QPainter& painter) const;
    QPolygonF polygon(const std::vector<calculation::IsothermPoint>& points) const;

    report::Diagnosis diagnosis_;
};

}  // namespace quor::gui
