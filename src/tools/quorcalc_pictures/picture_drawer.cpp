#include "tools/quorcalc_pictures/picture_drawer.h"

#include <QGuiApplication>
#include <QSaveFile>

#include "gui/chart/chart_qt.h"
#include "gui/chart/picture_export.h"
#include "tools/quorcalc/pictures.h"

namespace quor::picture_drawer {

namespace {

void start_painting() {
    if (QCoreApplication::instance() != nullptr) return;
    // Remarks on the desktop's folders are none of the messages of a calculation.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static char program[] = "quorcalc", option[] = "-platform", platform[] = "offscreen";
    static char* words[] = {program, option, platform, nullptr};
    static int count = 3;
    static const QGuiApplication application(count, words);
}

chart::FileOutcome write(const chart::Painting& painting, const std::string& format,
                         const std::string& file, const chart::PictureOptions& options) {
    const auto kind = chart::formatOf("picture." + QString::fromStdString(format));
    const QByteArray bytes = kind ? chart::pictureBytes(painting, *kind, options) : QByteArray();
    if (bytes.isEmpty()) return {false, "A picture of this size cannot be made."};
    QSaveFile out(QString::fromStdString(file));
    if (out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.commit())
        return {};
    return {false, file + ": The file cannot be written."};
}

chart::FileOutcome draw_sheet(diagrams::DiagramSheet& sheet, const std::string& format,
                              const std::string& file) {
    start_painting();
    chart::PictureOptions options;
    options.title = QString::fromStdString(sheet.request.texts.title);
    diagrams::place_labels(sheet, options.size.width(), options.size.height(),
                           chart::qtTextMeasure());
    return write(chart::paintingOf(sheet.chart), format, file, options);
}

chart::FileOutcome draw_surface(const chart::Chart3D& surface, const std::string& format,
                                const std::string& file) {
    start_painting();
    return write(chart::paintingOf(surface), format, file, {});
}

}  // namespace

void Install() {
    quorcalc::pictures() = {.drawSheet = draw_sheet, .drawSurface = draw_surface};
}

}  // namespace quor::picture_drawer
