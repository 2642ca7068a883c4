#include "gui/widgets/print_page.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>
#include <utility>

namespace quor::gui::printing {

namespace {

constexpr double kLargestPoints = 10.0, kSmallestPoints = 6.0;
constexpr int kPixelsOfText = 13;        // of a picture in its own size
constexpr double kShareOfPicture = 0.6;  // of the height of the first page, when a text follows

QFont fixedPitch(const QString& family, double points) {
    QFont font =
        family.isEmpty() ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QFont(family);
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSizeF(points);
    return font;
}

qsizetype longestOf(const QStringList& lines) {
    qsizetype most = 1;
    for (const QString& line : lines) most = std::max(most, line.size());
    return most;
}

double pageWidth(const QPrinter& printer) {
    return printer.pageLayout().paintRectPixels(printer.resolution()).width();
}

/// Points at which that many characters fill the width of the page.
double fittingPoints(QPrinter& printer, const QString& family, qsizetype characters) {
    const QFontMetricsF metrics(fixedPitch(family, kLargestPoints), &printer);
    const double needed = metrics.horizontalAdvance(QString(characters, '0'));
    return kLargestPoints * pageWidth(printer) / needed;
}

/// Turns the paper and breaks the lines as far as it must be; the size of the face.
double arrange(QPrinter& printer, const QString& family, QStringList& lines) {
    if (fittingPoints(printer, family, longestOf(lines)) >= kLargestPoints) return kLargestPoints;
    printer.setPageOrientation(QPageLayout::Landscape);
    constexpr qsizetype kProbe = 100;
    const auto most =
        static_cast<qsizetype>(kProbe * fittingPoints(printer, family, kProbe) / kSmallestPoints);
    lines = fitLines(lines, std::max<qsizetype>(most, 1));
    return std::clamp(fittingPoints(printer, family, longestOf(lines)), kSmallestPoints,
                      kLargestPoints);
}

/// Paints page by page.
class Press {
  public:
    Press(QPrinter& printer, const Page& page, QStringList lines, double points)
        : printer_(printer), page_(page), lines_(std::move(lines)), painter_(&printer) {
        if (!painter_.isActive()) return;
        painter_.setFont(fixedPitch(page.family, points));
        lineHeight_ = painter_.fontMetrics().lineSpacing();
        sheet_ = QRect(0, 0, painter_.device()->width(), painter_.device()->height());
    }

    void run() {
        if (!painter_.isActive()) return;
        const int top = 2 * lineHeight_;
        const int first = page_.picture ? top + pictureHeight(top) + lineHeight_ : top;
        const qsizetype onFirst = linesBelow(first), onOthers = linesBelow(top);
        const qsizetype rest = std::max<qsizetype>(lines_.size() - onFirst, 0);
        const qsizetype pages = 1 + (rest + onOthers - 1) / onOthers;
        paintHead(1, pages);
        if (page_.picture) paintPicture(top);
        qsizetype next = paintLines(0, onFirst, first);
        for (qsizetype number = 2; number <= pages; ++number) {
            printer_.newPage();
            paintHead(number, pages);
            next = paintLines(next, onOthers, top);
        }
    }

  private:
    qsizetype linesBelow(int y) const {
        return std::max((sheet_.height() - y) / std::max(lineHeight_, 1), 1);
    }

    int pictureHeight(int top) const {
        const int room = sheet_.height() - top;
        const bool alone = lines_.join("").trimmed().isEmpty();
        return static_cast<int>(alone ? room : kShareOfPicture * room);
    }

    void paintHead(qsizetype number, qsizetype pages) {
        const QRect line(0, 0, sheet_.width(), lineHeight_);
        painter_.drawText(line, Qt::AlignLeft, page_.title);
        painter_.drawText(line, Qt::AlignRight, QString("%1 / %2").arg(number).arg(pages));
    }

    void paintPicture(int top) {
        const QSizeF room(sheet_.width(), pictureHeight(top));
        const QSizeF size = page_.pictureSize.scaled(room, Qt::KeepAspectRatio);
        painter_.save();
        page_.picture(painter_, QRectF(QPointF(0, top), size));
        painter_.restore();
    }

    qsizetype paintLines(qsizetype next, qsizetype count, int top) {
        const int ascent = painter_.fontMetrics().ascent();
        for (qsizetype row = 0; row < count && next < lines_.size(); ++row, ++next)
            painter_.drawText(0, top + static_cast<int>(row) * lineHeight_ + ascent,
                              lines_.at(next));
        return next;
    }

    QPrinter& printer_;
    const Page& page_;
    QStringList lines_;
    QPainter painter_;
    QRect sheet_;
    int lineHeight_ = 1;
};

}  // namespace

Page pageWith(std::function<void(QPainter&)> paint, QSizeF size, const QString& title,
              const QString& text) {
    return {.title = title,
            .text = text,
            .picture =
                [paint = std::move(paint), size](QPainter& painter, const QRectF& place) {
                    painter.translate(place.topLeft());
                    painter.scale(place.width() / size.width(), place.height() / size.height());
                    QFont font = painter.font();
                    // A font of points would shrink with the dots of the printer.
                    font.setPixelSize(kPixelsOfText);
                    painter.setFont(font);
                    paint(painter);
                },
            .pictureSize = size};
}

bool print(const Page& page, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(page.title);
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName("PrintDialog");
    if (dialog.exec() != QDialog::Accepted) return false;
    paint(printer, page);
    return true;
}

void paint(QPrinter& printer, const Page& page) {
    QStringList lines = page.text.split('\n');
    while (!lines.isEmpty() && lines.constLast().trimmed().isEmpty()) lines.removeLast();
    const double points = arrange(printer, page.family, lines);
    Press(printer, page, lines, points).run();
}

}  // namespace quor::gui::printing
