#include "tools/quorcalc/pictures.h"

#include "tools/quorcalc/commands.h"

namespace quor::quorcalc {

namespace {

template <class Draw, class Chart>
void write_all(const Arguments& a, const Draw& draw, Chart& chart) {
    const std::pair<const char*, const std::string&> wanted[] = {
        {"png", a.png}, {"svg", a.svg}, {"pdf", a.pdf}};
    for (const auto& [format, file] : wanted) {
        if (file.empty()) continue;
        if (!draw) throw CannotBeDone{"Pictures cannot be drawn here."};
        const Result<void> outcome = draw(chart, format, file);
        if (!outcome) throw CannotBeDone{outcome.reason()};
    }
}

}  // namespace

bool wants_picture(const Arguments& a) {
    return !a.png.empty() || !a.svg.empty() || !a.pdf.empty();
}

void write_pictures(const PictureDrawer& drawer, const Arguments& a,
                    diagrams::DiagramSheet& sheet) {
    write_all(a, drawer.draw_sheet, sheet);
}

void write_pictures(const PictureDrawer& drawer, const Arguments& a,
                    const chart::Chart3D& surface) {
    write_all(a, drawer.draw_surface, surface);
}

}  // namespace quor::quorcalc
