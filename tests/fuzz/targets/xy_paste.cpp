#include <cmath>

#include "datafiles/xy_points.h"
#include "harness.h"

using namespace quor;
using datafiles::XyManipulation;

namespace {

void check_finite(std::span<const datafiles::FitPoint> points) {
    for (const datafiles::FitPoint& point : points)
        FUZZ_CHECK(std::isfinite(point.x) && std::isfinite(point.y));
}

/// What the clipboard holds, pasted into the list of x-y points, and the changes of that list.
bool read(std::string_view input) {
    const auto pasted = datafiles::xy_from_clipboard(input);
    for (const std::size_t place : pasted.wrong) FUZZ_CHECK(place < pasted.points.size());
    check_finite(pasted.points);

    std::vector<datafiles::FitPoint> list(3);
    datafiles::insert_xy(list, 2, pasted.points);
    for (const auto what :
         {XyManipulation::OneMinusX, XyManipulation::InverseY, XyManipulation::AddToY,
          XyManipulation::MultiplyY, XyManipulation::LogarithmY, XyManipulation::ExponentialY})
        if (const auto changed = datafiles::manipulated_xy(pasted.points, what, 3e38))
            check_finite(*changed);
    datafiles::sort_by_x(list);
    datafiles::swap_xy(list);
    datafiles::sort_by_y(list);
    datafiles::xy_list_text(list);
    datafiles::make_xy_graph(list, true);

    // The points as they are copied can be pasted again; with 7 digits they are nearly the same.
    const std::string copied =
        datafiles::xy_for_clipboard(pasted.points, 1, static_cast<int>(pasted.points.size()));
    const auto again = datafiles::xy_from_clipboard(copied);
    FUZZ_CHECK(again.points.size() == pasted.points.size());
    check_finite(again.points);
    return !pasted.points.empty() && pasted.wrong.size() < pasted.points.size();
}

const fuzz::Registered registered("xy_paste", read);

}  // namespace
