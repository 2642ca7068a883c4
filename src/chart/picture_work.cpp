#include "chart/picture_work.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_set>

namespace quor::chart::work {

namespace {

/// Squared distance of p from the straight line through a and b; from a where these are one.
double off_line(SheetPoint p, SheetPoint a, SheetPoint b) {
    const double dx = b.x - a.x, dy = b.y - a.y, length2 = dx * dx + dy * dy;
    const double px = p.x - a.x, py = p.y - a.y;
    if (!(length2 > 0)) return px * px + py * py;
    const double t = std::clamp((px * dx + py * dy) / length2, 0.0, 1.0);
    const double ex = px - t * dx, ey = py - t * dy;
    return ex * ex + ey * ey;
}

double length_of(const std::vector<SheetPoint>& points) {
    double length = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    return length;
}

/// Lines of up to a pixel are painted straight away; the outline of a wider one is filled, which
/// takes the longer the more often it crosses itself.
double time_of(const PictureLine& line) {
    constexpr double kOneWay = 1500;  // pixels across a sheet, on which little is crossed
    const auto points = static_cast<double>(line.points.size());
    const double length = length_of(line.points);
    if (line.style.width <= 1) return 0.2 * points + 0.025 * length;
    const double again = std::max(0.0, length - kOneWay);
    const double time = 3 * points + 0.2 * length + std::min(again * again / 2300, 6 * length);
    return line.style.pattern == LinePattern::Dotted ? 3 * time : time;
}

double time_of(const std::vector<PictureLine>& lines) {
    double time = 0;
    for (const PictureLine& line : lines) time += time_of(line);
    return time;
}

/// Every `every`-th of a list and its last.
template <class T>
void thin(std::vector<T>& list, std::size_t every) {
    if (list.size() <= 2) return;
    const std::size_t last = list.size() - 1;
    std::size_t kept = 0;
    for (std::size_t i = 0; i <= last; ++i)
        if (i % every == 0 || i == last) std::swap(list[kept++], list[i]);
    list.resize(kept);
}

/// Leaves one symbol of those in each square of a side of `side` pixels.
std::vector<SheetPoint> one_a_square(const std::vector<SheetPoint>& places, double side) {
    std::vector<SheetPoint> kept;
    std::unordered_set<std::uint64_t> taken;
    taken.reserve(places.size() / 4);
    const auto square = [side](double at) {
        return static_cast<std::uint64_t>(static_cast<std::int64_t>(std::floor(at / side))) &
               0xFFFFFFFFU;
    };
    for (const SheetPoint& p : places)
        if (taken.insert(square(p.x) << 32U | square(p.y)).second) kept.push_back(p);
    return kept;
}

double time_of(const std::vector<PictureSymbols>& symbols) {
    double time = 0;
    for (const PictureSymbols& s : symbols)
        time += static_cast<double>(s.places.size()) * (0.5 + 0.9 * static_cast<double>(s.size));
    return time;
}

}  // namespace

void straighten(std::vector<SheetPoint>& points) {
    constexpr std::size_t kFew = 50, kFarthest = 24;  // points that one stretch passes over
    constexpr double kSeen2 = 0.1 * 0.1;
    if (points.size() <= kFew) return;
    std::vector<SheetPoint> kept{points.front()};
    std::size_t from = 0;
    for (std::size_t to = 2; to < points.size(); ++to) {
        bool straight = to - from <= kFarthest;
        for (std::size_t i = from + 1; straight && i < to; ++i)
            straight = off_line(points[i], points[from], points[to]) <= kSeen2;
        if (straight) continue;
        from = to - 1;
        kept.push_back(points[from]);
    }
    kept.push_back(points.back());
    points = std::move(kept);
}

bool lighten(std::vector<PictureLine>& lines) {
    if (time_of(lines) <= kLineTime) return false;
    for (PictureLine& line : lines) line.style.width = std::min(line.style.width, 1.0F);
    if (time_of(lines) <= kLineTime) return false;
    const auto is_piece = [](const PictureLine& l) { return l.points.size() <= 2; };
    while (time_of(lines) > kLineTime &&
           !(lines.size() <= 2 && std::all_of(lines.begin(), lines.end(), is_piece))) {
        // Pieces of two points cannot become shorter, only fewer.
        if (std::all_of(lines.begin(), lines.end(), is_piece)) thin(lines, 2);
        for (PictureLine& line : lines) thin(line.points, 2);
    }
    return true;
}

void lighten(std::vector<PictureSymbols>& symbols) {
    constexpr double kSheet = 1e6;  // pixels
    const double time = time_of(symbols);
    if (time <= kSymbolTime) return;
    std::size_t count = 0;
    for (const PictureSymbols& s : symbols) count += s.places.size();
    // Spread over a sheet those that can be painted stand this far apart; begin well below.
    const double most = kSymbolTime / time * static_cast<double>(count);
    const double least = std::sqrt(kSheet / std::max(most, 1.0)) / 4;
    for (double side = least; time_of(symbols) > kSymbolTime && side < 1e4; side *= 1.5)
        for (PictureSymbols& s : symbols) s.places = one_a_square(s.places, side);
    // Of very many series each has still one.
    while (time_of(symbols) > kSymbolTime && symbols.size() > 2) thin(symbols, 2);
}

double time_of(const std::string& text, const Font& font, int rotation) {
    constexpr double kOutlines = 60;  // pixels; larger letters are filled as outlines
    const double pixels = static_cast<double>(font.size) * 96 / 72;
    const double letter = pixels > kOutlines ? 140 : rotation == 0 ? 0.06 * pixels : 0.2 * pixels;
    return 5 + letter * static_cast<double>(text.size());
}

}  // namespace quor::chart::work
