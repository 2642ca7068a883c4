#pragma once

#include <QMimeData>
#include <QPrinter>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <functional>
#include <memory>

#include "chart/chart2d.h"
#include "chart/chart3d.h"
#include "chart/chart_file.h"

namespace quor::chart {

/// What is exported: paints itself into a rectangle whose unit is 1/96 inch.
using Painting = std::function<void(QPainter&, const QRectF&)>;

/// The painting of a chart; the chart is copied.
Painting paintingOf(const Chart2D& chart);
Painting paintingOf(const Chart3D& chart);

enum class PictureFormat { Png, Bmp, Svg, Pdf, Emf, Wmf };

/// The format by the name's extension, whatever its case; nothing for another extension.
std::optional<PictureFormat> formatOf(const QString& fileName);

/// Filters of a save dialog for all formats, in one line as Qt wants it.
QString pictureFilters();

struct PictureOptions {
    QSizeF size{900, 650};     ///< pixels of 1/96 inch
    double dotsPerInch = 192;  ///< of PNG and BMP
    QString title;
};

/// Size in pixels of 1/96 inch for a size in cm.
QSizeF pixelsOfCm(double widthCm, double heightCm);

/// The whole file as bytes; empty when it cannot be made. SVG, PDF, EMF and WMF are vectors.
QByteArray pictureBytes(const Painting& painting, PictureFormat format,
                        const PictureOptions& options);

/// The bytes of a picture's file; the format follows the file's extension.
Result<std::string> pictureFile(const Painting& painting, const QString& file,
                                const PictureOptions& options);

/// The picture for the clipboard: an image, and the same as SVG and EMF for programs that take
/// vectors.
std::unique_ptr<QMimeData> clipboardData(const Painting& painting, const PictureOptions& options);
void copyPicture(const Painting& painting, const PictureOptions& options);

/// Prints the picture at a place on the first page. Refused when the place has no size.
Result<void> printPicture(const Painting& painting, QPrinter& printer, const PrintPlace& place);

}  // namespace quor::chart
