#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "chart/chart3d.h"
#include "chart/scene3d.h"

namespace quor::chart {

/// Shows a `Chart3D` on the screen. The chart belongs to the owner, who changes it and then calls
/// `refresh`; turning and zooming by the user is written into `Chart3D::view`.
///
/// Mouse: a left drag turns, the wheel zooms, a double click goes back to the default view. Keys:
/// arrows turn, + and - zoom, X, Y, Z look along an axis, Home is the default view.
class Chart3DWidget : public QWidget {
    Q_OBJECT
  public:
    /// `chart` outlives the widget's last repaint.
    explicit Chart3DWidget(Chart3D& chart, QWidget* parent = nullptr);

    /// Repaints after changes of the chart.
    void refresh();

    void setPreset(PresetView preset);
    /// Zooms by a factor above 0.
    void zoom(double factor);

    /// x, y and z of the surface at a place of this widget.
    std::optional<PickedPlace> placeAt(const QPointF& place) const;

    QSize sizeHint() const override { return {720, 560}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

  signals:
    /// The pointer is over the surface, in data units.
    void surfaceMoved(double x, double y, double z);
    /// The pointer has left the surface.
    void surfaceLeft();
    /// The user has turned or zoomed.
    void viewChanged();
    void rightClicked(const QPoint& globalPlace);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void turn(double rotation, double elevation);
    void changed();
    void report(const QPointF& place);

    Chart3D& chart_;
    QPointF last_;
    QPointF pressed_;
    bool turning_ = false;
    QTimer rest_;  ///< runs while the view changes; then the picture is painted finely
    bool overSurface_ = false;
};

}  // namespace quor::chart
