#include "gui/chart/picture_export.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QFileInfo>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <array>
#include <cmath>

#include "gui/chart/chart2d_paint.h"
#include "gui/chart/chart3d_paint.h"
#include "gui/chart/metafile_device.h"

namespace quor::chart {

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kCmPerInch = 2.54;
constexpr double kLargestImage = 20000;  // pixels to a side

struct FormatRow {
    PictureFormat format;
    const char* extension;
    const char* filter;
};

constexpr std::array<FormatRow, 6> kFormats{
    {{PictureFormat::Png, "png", "PNG image (*.png)"},
     {PictureFormat::Bmp, "bmp", "Bitmap (*.bmp)"},
     {PictureFormat::Svg, "svg", "Scalable vector graphics (*.svg)"},
     {PictureFormat::Pdf, "pdf", "PDF document (*.pdf)"},
     {PictureFormat::Emf, "emf", "Enhanced metafile (*.emf)"},
     {PictureFormat::Wmf, "wmf", "Windows metafile (*.wmf)"}}};

bool canBePainted(const QSizeF& size) {
    return size.width() >= 1 && size.height() >= 1 && size.width() <= kLargestImage &&
           size.height() <= kLargestImage;
}

/// Paints the picture of a size into a device whose units are `factor` times finer.
bool paintOn(QPaintDevice& device, const Painting& painting, const QSizeF& size, double factor) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    painter.scale(factor, factor);
    painting(painter, QRectF(QPointF(0, 0), size));
    return painter.end();
}

QImage imageOf(const Painting& painting, const PictureOptions& options) {
    const double factor = options.dotsPerInch / kPixelsPerInch;
    const QSizeF pixels = options.size * factor;
    if (!canBePainted(options.size) || !canBePainted(pixels)) return {};
    QImage image(static_cast<int>(std::lround(pixels.width())),
                 static_cast<int>(std::lround(pixels.height())), QImage::Format_RGB32);
    if (image.isNull()) return {};
    image.fill(Qt::white);
    if (!paintOn(image, painting, options.size, factor)) return {};
    const auto perMetre = static_cast<int>(std::lround(options.dotsPerInch * 100 / kCmPerInch));
    image.setDotsPerMeterX(perMetre);
    image.setDotsPerMeterY(perMetre);
    return image;
}

QByteArray imageBytes(const Painting& painting, const PictureOptions& options, const char* type) {
    const QImage image = imageOf(painting, options);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, type)) return {};
    return bytes;
}

QByteArray svgBytes(const Painting& painting, const PictureOptions& options) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(static_cast<int>(kPixelsPerInch));
    generator.setSize(options.size.toSize());
    generator.setViewBox(QRectF(QPointF(0, 0), options.size));
    generator.setTitle(options.title);
    return paintOn(generator, painting, options.size, 1) ? bytes : QByteArray();
}

QByteArray pdfBytes(const Painting& painting, const PictureOptions& options) {
    constexpr int kDots = 1200;
    constexpr double kPointsPerPixel = 72 / kPixelsPerInch;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kDots);
        writer.setTitle(options.title);
        writer.setPageSize(
            QPageSize(options.size * kPointsPerPixel, QPageSize::Point, {}, QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        if (!paintOn(writer, painting, options.size, kDots / kPixelsPerInch)) return {};
    }
    return bytes;
}

QByteArray metafileBytes(const Painting& painting, const PictureOptions& options,
                         MetafileKind kind) {
    MetafileDevice device(kind, options.size, options.title);
    return paintOn(device, painting, options.size, 1) ? device.file() : QByteArray();
}

Result<void> failed(const QString& text) {
    return Failure{text.toStdString()};
}

}  // namespace

Painting paintingOf(const Chart2D& chart) {
    return [chart](QPainter& painter, const QRectF& rect) { paintChart2D(painter, rect, chart); };
}

Painting paintingOf(const Chart3D& chart) {
    return [chart](QPainter& painter, const QRectF& rect) { paintChart3D(painter, rect, chart); };
}

std::optional<PictureFormat> formatOf(const QString& fileName) {
    const QString extension = QFileInfo(fileName).suffix().toLower();
    for (const FormatRow& row : kFormats)
        if (extension == QLatin1String(row.extension)) return row.format;
    return std::nullopt;
}

QString pictureFilters() {
    QStringList filters;
    for (const FormatRow& row : kFormats) filters << QString::fromLatin1(row.filter);
    return filters.join(QStringLiteral(";;"));
}

QSizeF pixelsOfCm(double widthCm, double heightCm) {
    return QSizeF(widthCm, heightCm) * (kPixelsPerInch / kCmPerInch);
}

QByteArray pictureBytes(const Painting& painting, PictureFormat format,
                        const PictureOptions& options) {
    if (!canBePainted(options.size)) return {};
    switch (format) {
        case PictureFormat::Png:
            return imageBytes(painting, options, "PNG");
        case PictureFormat::Bmp:
            return imageBytes(painting, options, "BMP");
        case PictureFormat::Svg:
            return svgBytes(painting, options);
        case PictureFormat::Pdf:
            return pdfBytes(painting, options);
        case PictureFormat::Emf:
            return metafileBytes(painting, options, MetafileKind::Emf);
        case PictureFormat::Wmf:
            return metafileBytes(painting, options, MetafileKind::Wmf);
    }
    return {};
}

Result<std::string> pictureFile(const Painting& painting, const QString& file,
                                const PictureOptions& options) {
    const auto format = formatOf(file);
    if (!format)
        return Failure{QStringLiteral("%1: The extension of the name tells no picture format "
                                      "(png, bmp, svg, pdf, emf, wmf).")
                           .arg(QFileInfo(file).fileName())
                           .toStdString()};
    const QByteArray bytes = pictureBytes(painting, *format, options);
    if (bytes.isEmpty()) return Failure{"A picture of this size cannot be made."};
    return bytes.toStdString();
}

std::unique_ptr<QMimeData> clipboardData(const Painting& painting, const PictureOptions& options) {
    auto data = std::make_unique<QMimeData>();
    const QImage image = imageOf(painting, options);
    if (!image.isNull()) data->setImageData(image);
    data->setData(QStringLiteral("image/svg+xml"),
                  pictureBytes(painting, PictureFormat::Svg, options));
    data->setData(QStringLiteral("image/x-emf"),
                  pictureBytes(painting, PictureFormat::Emf, options));
    return data;
}

void copyPicture(const Painting& painting, const PictureOptions& options) {
    QGuiApplication::clipboard()->setMimeData(clipboardData(painting, options).release());
}

Result<void> printPicture(const Painting& painting, QPrinter& printer, const PrintPlace& place) {
    const QSizeF size = pixelsOfCm(place.width, place.height);
    if (!canBePainted(size)) return failed(QStringLiteral("The picture has no size to print."));
    QPainter painter;
    printer.setFullPage(true);  // places count from the corner of the sheet of paper
    if (!painter.begin(&printer)) return failed(QStringLiteral("The printer cannot be used."));
    const double dotsPerCm = printer.resolution() / kCmPerInch;
    painter.translate(place.left * dotsPerCm, place.top * dotsPerCm);
    painter.scale(printer.resolution() / kPixelsPerInch, printer.resolution() / kPixelsPerInch);
    painting(painter, QRectF(QPointF(0, 0), size));
    if (!painter.end()) return failed(QStringLiteral("The printer cannot be used."));
    return {};
}

}  // namespace quor::chart
