#pragma once

#include <QWidget>

#include "report/tank_picture.h"

namespace quor::gui {

/// A lying cylinder, seen from its front end and a little from the side. The section at its front
/// shows the share of the volume that the liquid fills as a share of its area.
class TankDrawing : public QWidget {
    Q_OBJECT

  public:
    explicit TankDrawing(QWidget* parent = nullptr);

    void showPicture(const report::TankPicture& picture);

    /// Paints the tank in the size of the widget.
    void paint(QPainter& painter) const;

    /// The circle of the front section, in the coordinates of the widget.
    QRectF section() const;

    static QColor liquidColour();
    static QColor vapourColour();
    static QColor supercriticalColour();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPointF depth() const;
    void paintLiquid(QPainter& painter) const;

    report::TankPicture picture_;
};

}  // namespace quor::gui
