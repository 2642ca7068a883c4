#include <algorithm>

#include "gui/widgets/print_page.h"

/// Tables that are too wide for a page, broken into blocks of columns.
namespace quor::gui::printing {

namespace {

bool isBlank(const QString& line, qsizetype place) {
    return place >= line.size() || line.at(place).isSpace();
}

/// A line of one character such as "=====" may be broken anywhere.
bool isRule(const QString& line) {
    return !line.isEmpty() && line.count(line.at(0)) == line.size();
}

/// True when a column ends before `place` in some line and no line has a word across it.
bool isGap(const QStringList& lines, qsizetype place) {
    bool ends = false;
    for (const QString& line : lines) {
        if (isRule(line)) continue;
        if (!isBlank(line, place)) return false;
        ends = ends || !isBlank(line, place - 1);
    }
    return ends;
}

qsizetype lastGap(const QStringList& lines, qsizetype from, qsizetype to) {
    for (qsizetype place = to; place > from; --place)
        if (isGap(lines, place)) return place;
    return to;
}

/// The width of the first column of the lines that are too long; 0 when it would take much room.
qsizetype firstColumn(const QStringList& lines, qsizetype width) {
    QStringList rows;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(rows),
                 [&](const QString& line) { return line.size() > width; });
    for (qsizetype place = 1; place < width / 3; ++place)
        if (isGap(rows, place)) return place;
    return 0;
}

qsizetype longest(const QStringList& lines) {
    qsizetype most = 0;
    for (const QString& line : lines) most = std::max(most, line.size());
    return most;
}

QStringList fitParagraph(const QStringList& lines, qsizetype width) {
    const qsizetype all = longest(lines);
    if (all <= width) return lines;
    const qsizetype repeated = firstColumn(lines, width);
    QStringList fitted;
    for (qsizetype from = 0; from < all;) {
        const qsizetype kept = from == 0 ? 0 : repeated;
        const qsizetype most = from + width - kept;
        const qsizetype to = most >= all ? all : lastGap(lines, from, most);
        if (from > 0) fitted << QString();
        for (const QString& line : lines) {
            const QString part = line.mid(from, to - from);
            if (from > 0 && part.trimmed().isEmpty()) continue;
            fitted << line.left(kept) + part;
        }
        from = to;
    }
    return fitted;
}

}  // namespace

QStringList fitLines(const QStringList& lines, qsizetype width) {
    QStringList fitted, paragraph;
    for (const QString& line : lines) {
        if (!line.trimmed().isEmpty()) {
            paragraph << line;
            continue;
        }
        fitted << fitParagraph(paragraph, width) << QString();
        paragraph.clear();
    }
    return fitted << fitParagraph(paragraph, width);
}

}  // namespace quor::gui::printing
