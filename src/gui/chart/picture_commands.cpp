#include "gui/chart/picture_commands.h"

#include <QPrintDialog>
#include <QPrinter>

#include "common/dialogs.h"

namespace quor::gui {

namespace picture_commands {

namespace {

chart::PictureOptions options_of(const Picture& picture) {
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

void tell_failure(const chart::FileOutcome& outcome) {
    if (!outcome.ok) dialogs::tell(outcome.message, "ERROR", dialogs::Icon::Stop);
}

}  // namespace

void Copy(const Picture& picture) {
    chart::copyPicture(picture.painting, options_of(picture));
}

void Save(const Picture& picture, const std::string& folder) {
    const auto name = dialogs::choose_file(
        {.save = true,
         .title = "Save as Image File",
         .filter = "PNG image (*.png)|*.png|Bitmap (*.bmp)|*.bmp|SVG drawing (*.svg)|*.svg|"
                   "PDF document (*.pdf)|*.pdf|Enhanced metafile (*.emf)|*.emf|"
                   "Windows metafile (*.wmf)|*.wmf",
         .folder = folder,
         .defaultExtension = ".png",
         .overwritePrompt = true});
    if (!name || name->empty()) return;
    tell_failure(
        chart::exportPicture(picture.painting, QString::fromStdString(*name), options_of(picture)));
}

void Print(const Picture& picture, QWidget* parent) {
    QPrinter printer;
    printer.setDocName(picture.title);
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName("PrintDialog");
    if (dialog.exec() != QDialog::Accepted) return;
    tell_failure(chart::printPicture(picture.painting, printer, picture.print));
}

}  // namespace picture_commands

}  // namespace quor::gui
