#pragma once

#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <functional>

class QPainter;
class QPrinter;
class QWidget;

/// Printing of lists and of views: a picture, if there is one, and lines of text below it.
namespace quor::gui::printing {

/// What is printed. A text of more lines than fit goes on to further pages; each page bears the
/// title and its number.
struct Page {
    QString title;
    QString text;         ///< lines separated by '\n'
    QString family = {};  ///< a fixed-pitch face; the desktop's own when empty
    std::function<void(QPainter&, const QRectF&)> picture = {};
    QSizeF pictureSize = {};  ///< its proportions
};

/// A page with the picture that `paint` makes in `size`.
Page pageWith(std::function<void(QPainter&)> paint, QSizeF size, const QString& title,
              const QString& text);

/// Asks for a printer or a PDF file, in front of `parent`, and prints; false when the user cancels.
bool print(const Page& page, QWidget* parent);

/// Prints. Lines too long for upright paper turn it to landscape, then the face shrinks to 6
/// points, then the columns are broken into blocks, each beginning with the first column.
void paint(QPrinter& printer, const Page& page);

/// Lines of at most `width` characters: paragraphs with longer ones are broken between their
/// columns into blocks below each other, in which the first column is repeated.
QStringList fitLines(const QStringList& lines, qsizetype width);

}  // namespace quor::gui::printing
