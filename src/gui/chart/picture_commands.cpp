#include "gui/chart/picture_commands.h"

#include <QPrintDialog>
#include <QPrinter>

#include "common/dialogs.h"
#include "common/save_file.h"

namespace quor::gui {

namespace picture_commands {

namespace {

chart::PictureOptions optionsOf(const Picture& picture) {
    chart::PictureOptions options;
    const QSizeF printed = chart::pixelsOfCm(picture.print.width, picture.print.height);
    if (printed.width() > 1 && printed.height() > 1) {
        // The proportions of the printed picture at a width that carries the texts.
        constexpr double kWidth = 900;
        options.size = printed * (kWidth / printed.width());
    }
    options.title = picture.title;
    return options;
}

void tellFailure(const Result<void>& outcome) {
    if (!outcome) dialogs::tell(outcome.reason(), "ERROR", dialogs::Icon::Stop);
}

}  // namespace

void copy(const Picture& picture) {
    chart::copyPicture(picture.painting, optionsOf(picture));
}

void save(const Picture& picture, const std::string& folder) {
    saving::save_where_chosen(
        {.choice = {.save = true,
                    .title = "Save as Image File",
                    .filter = "PNG image (*.png)|*.png|Bitmap (*.bmp)|*.bmp|"
                              "SVG drawing (*.svg)|*.svg|PDF document (*.pdf)|*.pdf|"
                              "Enhanced metafile (*.emf)|*.emf|Windows metafile (*.wmf)|*.wmf",
                    .folder = folder,
                    .default_extension = ".png",
                    .overwrite_prompt = true},
         .content =
             [&picture](const std::string& path) {
                 return chart::pictureFile(picture.painting, QString::fromStdString(path),
                                           optionsOf(picture));
             },
         .failure_title = "ERROR"});
}

void print(const Picture& picture, QWidget* parent) {
    QPrinter printer;
    printer.setDocName(picture.title);
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName("PrintDialog");
    if (dialog.exec() != QDialog::Accepted) return;
    tellFailure(chart::printPicture(picture.painting, printer, picture.print));
}

}  // namespace picture_commands

}  // namespace quor::gui
