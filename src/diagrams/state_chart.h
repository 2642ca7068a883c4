#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "models/fluid.h"
#include "models/reference_record.h"
#include "models/units.h"

/// State charts: a fluid's dome and families of lines over two properties, computed in one go as
/// values, without any text or paint.
namespace quor::diagrams {

enum class ChartKind : std::uint8_t { logph, ts, hs, pv, logpv, tv, pt, th, zp, eh };

/// What axes and families show: T, p, v, h, s, the compressibility Z = p v/(R T), and the exergy of
/// a flow.
enum class ChartQuantity : std::uint8_t { T, p, v, h, s, Z, e };

/// "T", "p", "v", "h", "s", "Z", "e".
std::string_view name_of(ChartQuantity quantity);
/// The dimension whose unit a quantity is shown in; nothing for Z, which has none.
std::optional<models::Dimension> dimension_of(ChartQuantity quantity);

struct ChartAxis {
    ChartQuantity quantity = ChartQuantity::T;
    bool logarithmic = false;
};

/// One kind of chart.
struct StateChartKind {
    ChartKind kind = ChartKind::logph;
    std::string_view key;    ///< as quorcalc takes it: "logph"
    std::string_view title;  ///< "log p, h"
    ChartAxis x, y;
    std::span<const ChartQuantity> families;  ///< those drawn at first
};
/// All kinds, in the order of `ChartKind`.
std::span<const StateChartKind> state_chart_kinds();
const StateChartKind& row_of(ChartKind kind);
/// The row of a key; nullptr for another text.
const StateChartKind* find_state_chart(std::string_view key);

/// Limits of the axes in shown units.
struct ChartWindow {
    double x_min = 0, x_max = 0, y_min = 0, y_max = 0;

    bool operator==(const ChartWindow&) const = default;
};

/// A family of lines along each of which a quantity is constant.
struct FamilyRequest {
    ChartQuantity quantity = ChartQuantity::T;  ///< T, p, v, h or s, and none of the axes
    std::vector<double> values{};               ///< in the shown unit; empty: round numbers
};

struct StateChartRequest {
    ChartKind kind = ChartKind::logph;
    std::vector<FamilyRequest> families{};  ///< empty: those of the kind
    std::optional<ChartWindow> window{};    ///< in shown units; nothing: by the fluid
    double width = 1000, height = 700;      ///< of the plot in pixels, for which lines are sampled
};

/// A state on a chart. x and y are in shown units, the rest in K, kPa, m^3/kmol.
struct ChartVertex {
    double x = 0, y = 0;
    double T = 0, p = 0, v = 0;
    std::optional<double> fraction{};  ///< vapour fraction of two phases, 0 or 1 on the dome
};

/// A line as the parts of it that lie in the window and could be computed.
using ChartParts = std::vector<std::vector<ChartVertex>>;

struct ChartLine {
    double value = 0;  ///< in the shown unit
    ChartParts parts;
    std::vector<ChartVertex> on_dome;  ///< where it crosses the dome; vertices of `parts`, too
};

struct ChartFamily {
    ChartQuantity quantity = ChartQuantity::T;
    std::string unit;
    std::vector<ChartLine> lines;  ///< by ascending value
};

struct FractionLine {
    double fraction = 0;
    ChartParts parts;
};

struct StateChart {
    ChartKind kind = ChartKind::logph;
    ChartWindow window;
    std::string x_unit, y_unit;  ///< empty for Z
    ChartParts dome;             ///< liquid up to the critical point, vapour down from it
    std::optional<ChartVertex> critical, triple_liquid, triple_vapour;  ///< inside the window
    ChartParts triple;                                                  ///< the line between both
    std::vector<FractionLine> fractions;                                ///< 0.1 to 0.9
    std::vector<ChartFamily> families;
    std::vector<std::string> skipped;  ///< what is not there and why, in words
};

/// Computes a chart. `reference` has to be settled and resolved for the fluid. Refused in words
/// where the fluid lacks what the axes need, or the window is none.
Result<StateChart> state_chart(const models::Fluid& fluid, const models::ReferenceState& reference,
                               const models::Units& units, const StateChartRequest& request);

}  // namespace quor::diagrams
