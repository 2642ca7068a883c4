#include <cmath>

#include "diagrams/polytropic_exchange.h"
#include "harness.h"

using namespace quor;

namespace {

/// The answer of the separate program that computes polytropic processes (FROM_DAL.DAT); the first
/// byte chooses the delimiter of its points.
bool read(std::string_view input) {
    constexpr std::string_view kDelimiters = ";,\t";
    const char delimiter =
        kDelimiters[input.empty() ? 0 : static_cast<unsigned char>(input.front()) % 3U];
    const auto line = diagrams::take_polytropic_answer(input.substr(input.empty() ? 0 : 1),
                                                       diagrams::ProcessLine{}, delimiter);
    if (!line) return false;
    for (const double value : line->polytropic_values) FUZZ_CHECK(std::isfinite(value));
    for (const diagrams::PolytropicPoint& point : line->polytropic_points)
        FUZZ_CHECK(!std::isinf(point.T) && !std::isinf(point.p));
    return true;
}

const fuzz::Registered registered("polytropic_answer", read);

}  // namespace
