#pragma once

#include <QPixmap>
#include <QWidget>

#include "chart/picture2d.h"

namespace quor::chart {

/// Shows a 2D chart on the screen; `Chart2DWidget` adds the mouse to it. The chart is laid out
/// when it changes and painted into a pixmap once, so that what moves above it (the band of a
/// zoom, a menu) costs a copy of pixels.
class Chart2DPlot : public QWidget {
    Q_OBJECT
  public:
    explicit Chart2DPlot(QWidget* parent = nullptr);

    /// Lays the chart out anew and asks for a repaint. The chart is read again at every change of
    /// size and has to live as long; nullptr shows an empty sheet.
    void show2D(const Chart2D* chart);

    /// Places of all parts as laid out last.
    const Sheet2D& sheet() const { return picture_.sheet; }
    const Picture2D& picture() const { return picture_; }

  signals:
    /// The parts have new places, and a repaint follows.
    void laidOut();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void layOut();
    void paintPixels();

    const Chart2D* chart_ = nullptr;
    Picture2D picture_;
    QPixmap pixels_;  ///< the picture as painted last; null when it has changed since
};

}  // namespace quor::chart
