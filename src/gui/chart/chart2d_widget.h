#pragma once

#include <QCursor>
#include <QPoint>
#include <QRubberBand>
#include <QWidget>
#include <optional>

#include "chart/chart2d.h"
#include "chart/sheet2d.h"

namespace quor::chart {

class Chart2DPlot;

/// What lies under the pointer.
enum class ChartPart {
    Sheet,  ///< nothing but the sheet
    PlotArea,
    Curve,
    PointSet,
    AxisX,
    AxisY,
    AxisY2,
    Legend,
    Label,
    Header,
    Footer
};

struct ChartHit {
    ChartPart part = ChartPart::Sheet;
    double x = 0, y = 0;  ///< data coordinates of the pointer
    bool inPlot = false;  ///< the pointer is inside the plot area
    Group group = Group::Curves;
    int series = -1;  ///< of `Curve` and `PointSet`, and of a line of the legend; -1 none
    int point = -1;   ///< nearest point of that series
    int label = -1;   ///< index in `Chart2D::labels` of `Label`
};

/// Shows a `Chart2D` on the screen. The chart belongs to the owner, who changes it and then calls
/// `refresh`; what the user does with the mouse (zoom, pan, dragged texts) is written into the
/// chart and told by signals.
///
/// Mouse: left drag in the plot area zooms into a rectangle, the wheel zooms about the pointer,
/// the middle button pans, a double click fits the window to the data; legend, labels, header and
/// footer are dragged; a right click reports what lies under the pointer.
class Chart2DWidget : public QWidget {
    Q_OBJECT
  public:
    /// `chart` outlives the widget's last repaint.
    explicit Chart2DWidget(Chart2D& chart, QWidget* parent = nullptr);

    /// Repaints once after changes of the chart, or at the end of the batch that is open.
    void refresh();

    /// A batch of changes: only the outermost `endBatch` repaints.
    void beginBatch();
    void endBatch();

    /// False keeps the window: no zoom, no pan, no fit. True at the start.
    void setZoomEnabled(bool enabled) { zoomEnabled_ = enabled; }
    bool zoomEnabled() const { return zoomEnabled_; }

    /// True once the user has changed the window; `resetZoom` goes back to the window before.
    bool isZoomed() const { return unzoomed_.has_value(); }
    void resetZoom();
    /// The window to which `resetZoom` goes back, to be converted with the axes; nullptr for none.
    Window* unzoomed() { return unzoomed_ ? &*unzoomed_ : nullptr; }
    /// The present window becomes the one to which `resetZoom` goes back.
    void forgetZoom() { unzoomed_.reset(); }

    /// Sets the window to round numbers around the data.
    void fit();
    /// Zooms by a factor above 0 about the middle of the plot area; above 1 shows less.
    void zoom(double factor);

    /// What lies at a place of this widget.
    ChartHit hitAt(const QPointF& place) const;

    /// The pixel of a data coordinate, and the layout of the sheet as painted last.
    QPointF pixelOf(double x, double y) const;
    const Sheet2D& sheet() const;

    QSize sizeHint() const override { return {720, 520}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

  signals:
    void mouseMoved(const chart::ChartHit& hit);
    void mousePressed(const chart::ChartHit& hit, Qt::MouseButton button);
    /// The button was released; `clicked` when the pointer has not moved in between.
    void mouseReleased(const chart::ChartHit& hit, Qt::MouseButton button, bool clicked);
    void rightClicked(const chart::ChartHit& hit, const QPoint& globalPlace);
    /// The user has changed the window of the chart.
    void windowChanged();
    /// The user has moved the legend, a label, the header or the footer.
    void partMoved(const chart::ChartHit& hit);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    enum class Drag { None, Rectangle, Pan, Part };

    /// The rubber band from the press to a place, within the plot area.
    QRectF bandTo(QPointF place) const;
    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void wheel(const QWheelEvent& event);
    void beginDrag(const QPointF& place, Qt::MouseButton button);
    void dragPart(const QPointF& place);
    void pan(const QPointF& place);
    void zoomIntoRectangle(const QRectF& rect);
    void zoomAbout(const QPointF& place, double factor);
    bool setWindow(const Window& window);
    void rememberWindow();
    void showPointer(const ChartHit& hit);

    Chart2D& chart_;
    Chart2DPlot* plot_;
    QCursor overCurve_, overPoint_;  ///< pointers over a curve and over a point
    QRubberBand* band_;
    int batches_ = 0;
    bool refreshWanted_ = false;
    bool zoomEnabled_ = true;
    std::optional<Window> unzoomed_;

    Drag drag_ = Drag::None;
    Qt::MouseButton button_ = Qt::NoButton;
    QPointF pressed_;
    bool moved_ = false;
    ChartHit pressedHit_;
    Window pressedWindow_;
    SheetPoint partStart_;  ///< where the dragged part stood
};

/// Opens a batch for as long as it lives.
class ChartBatch {
  public:
    explicit ChartBatch(Chart2DWidget& widget) : widget_(widget) { widget_.beginBatch(); }
    ~ChartBatch() { widget_.endBatch(); }
    ChartBatch(const ChartBatch&) = delete;
    ChartBatch& operator=(const ChartBatch&) = delete;

  private:
    Chart2DWidget& widget_;
};

}  // namespace quor::chart
