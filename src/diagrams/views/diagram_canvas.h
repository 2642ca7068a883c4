#pragma once

#include <QRubberBand>

#include "diagrams/sheet_hit.h"
#include "diagrams/views/chart2d_plot.h"

/// The drawn diagram with the mouse: rectangle and wheel zoom, pan by the middle button, moving of
/// texts and legend. It knows what lies under the pointer and leaves the meaning to its view.
class DiagramCanvas : public chart::Chart2DPlot {
    Q_OBJECT

  public:
    explicit DiagramCanvas(Module9::DiagramSheet& sheet, QWidget* parent = nullptr);

    /// Lays out and paints what the sheet holds now.
    void refresh();

    /// A drag with the left button zooms whatever it begins on.
    void setZoomArmed(bool armed);
    /// Without this no gesture changes the window.
    void setZoomAllowed(bool allowed) { zoomAllowed_ = allowed; }

    Module9::Hit hitAt(const QPointF& pixel) const;

  Q_SIGNALS:
    void pointerMoved(const Module9::Hit& hit, double x, double y);
    void rectangleZoom(const chart::Window& window);
    void wheelZoom(double x, double y, double factor);
    void panned(double du, double dv);
    void fitWanted();
    void designWanted(const Module9::Hit& hit);
    void clicked(const Module9::Hit& hit);
    void moved();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    enum class Gesture { None, Rectangle, Pan, Move };
    void showPointer(const Module9::Hit& hit);

    Module9::DiagramSheet& sheet_;
    QRubberBand* band_;
    Gesture gesture_ = Gesture::None;
    Module9::Hit grabbed_;
    QPointF pressed_, last_;
    bool zoomArmed_ = false, zoomAllowed_ = true;
};
