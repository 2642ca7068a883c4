#pragma once

#include <optional>

#include "diagrams/state_chart.h"
#include "models/flash.h"

namespace quor::diagrams {

/// The states of a fluid as a chart needs them: found from two properties, and placed on its axes.
class ChartStates {
  public:
    ChartStates(const models::Fluid& fluid, const models::ReferenceState& reference,
                const models::Units& units, const StateChartKind& row)
        : flash_(fluid, reference, models::surroundings_state(fluid, reference)),
          reference_(reference),
          units_(units),
          row_(row) {}

    const models::Flash& flash() const { return flash_; }
    const models::Fluid& fluid() const { return flash_.fluid(); }
    const models::ReferenceState& reference() const { return reference_; }
    const StateChartKind& row() const { return row_; }

    /// The scale of a quantity in its shown unit; that of Z is 1.
    models::Scale scale(ChartQuantity quantity) const;
    double shown(ChartQuantity quantity, double value) const {
        return scale(quantity).shown(value);
    }

    /// A quantity of a state in K, kPa, m^3/kmol, kJ/kmol, kJ/(kmol K); NaN where it has none.
    static double value_of(const models::FlashState& state, ChartQuantity quantity);
    /// Its place; nothing where it has none.
    std::optional<ChartVertex> vertex(const models::FlashState& state) const;

    /// The property of the flash for T, p, v, h or s.
    static models::Property property_of(ChartQuantity quantity);

  private:
    models::Flash flash_;
    models::ReferenceState reference_;
    models::Units units_;
    const StateChartKind& row_;
};

inline bool is_caloric(ChartQuantity quantity) {
    using enum ChartQuantity;
    return quantity == h || quantity == s || quantity == e;
}

/// What the range of a chart rests on, K and kPa.
struct ChartRange {
    double T_low = 0, T_high = 0;    ///< of the proposed window
    double p_low = 0, p_high = 0;    ///< of the proposed window
    double T_end = 0;                ///< no line goes below: the triple point or the equation's end
    double T_most = 0;               ///< nor above
    std::optional<double> T_triple;  ///< where the fluid has a saturated state there
    bool has_dome = false;
};

/// The range of a fluid for a chart; refused in words where the fluid has no states that the chart
/// could show.
Result<ChartRange> chart_range(const ChartStates& states);

/// The window of round numbers that shows the range, the dome in its middle or left.
Result<ChartWindow> proposed_window(const ChartStates& states, const ChartRange& range);

/// About `wanted` round numbers of a quantity, in the shown unit, from those that the states in the
/// window have. p and v have geometric steps. Empty where no state was found there.
std::vector<double> round_values(const ChartStates& states, const ChartRange& range,
                                 const ChartWindow& window, ChartQuantity quantity, int wanted);

}  // namespace quor::diagrams
