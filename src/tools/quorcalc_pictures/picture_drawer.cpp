#include "tools/quorcalc_pictures/picture_drawer.h"

#include <QGuiApplication>
#include <memory>
#include <optional>

#include "common/whole_file.h"
#include "diagrams/sheet_labels.h"
#include "gui/chart/chart_qt.h"
#include "gui/chart/picture_export.h"

namespace quor::picture_drawer {

namespace {

/// Fonts and painters.
class Painters {
  public:
    void start() {
        if (QCoreApplication::instance() != nullptr) return;
        // Remarks on the desktop's folders are none of the messages of a calculation.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        application_.emplace(count_, words_);
    }

  private:
    // The application refers to its words as long as it lives.
    char program_[9] = "quorcalc", option_[10] = "-platform", platform_[10] = "offscreen";
    char* words_[4] = {program_, option_, platform_, nullptr};
    int count_ = 3;
    std::optional<QGuiApplication> application_;
};

Result<void> write(const chart::Painting& painting, const std::string& format,
                   const std::string& file, const chart::PictureOptions& options) {
    const auto kind = chart::formatOf("picture." + QString::fromStdString(format));
    const QByteArray bytes = kind ? chart::pictureBytes(painting, *kind, options) : QByteArray();
    if (bytes.isEmpty()) return Failure{"A picture of this size cannot be made."};
    return files::write_whole(
        file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

Result<void> draw_sheet(diagrams::DiagramSheet& sheet, const std::string& format,
                        const std::string& file) {
    chart::PictureOptions options;
    options.title = QString::fromStdString(sheet.request.texts.title);
    diagrams::place_labels(sheet, options.size.width(), options.size.height(),
                           chart::qtTextMeasure());
    return write(chart::paintingOf(sheet.chart), format, file, options);
}

Result<void> draw_surface(const chart::Chart3D& surface, const std::string& format,
                          const std::string& file) {
    return write(chart::paintingOf(surface), format, file, {});
}

}  // namespace

quorcalc::PictureDrawer make() {
    const auto painters = std::make_shared<Painters>();
    return {.draw_sheet =
                [painters](diagrams::DiagramSheet& sheet, const std::string& format,
                           const std::string& file) {
                    painters->start();
                    return draw_sheet(sheet, format, file);
                },
            .draw_surface =
                [painters](const chart::Chart3D& surface, const std::string& format,
                           const std::string& file) {
                    painters->start();
                    return draw_surface(surface, format, file);
                }};
}

}  // namespace quor::picture_drawer
