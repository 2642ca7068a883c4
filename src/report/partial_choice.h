#pragma once

#include <string>

#include "calculation/request.h"
#include "models/fluid.h"

namespace quor::report {

/// What `PartialChoiceDialog` shows and allows: the choice of a global or a partial calculation, of
/// the source of the L density, and of the second reference point of Benson's method. It changes
/// nothing but itself.
class PartialChoice {
  public:
    /// Where the second reference point comes from, in the order of `Ref_opt`.
    enum class Reference { proposed, approximation, typed };

    /// The view as it opens for a task, with the proposed reference point.
    PartialChoice(models::Fluid fluid, calculation::Task task, const calculation::Method& present);

    /// `opt_glob` click; a V-only EOS refuses the global calculation: false, the choice is partial.
    bool choose_global(bool global);
    /// `optPartialBenson` click.
    void choose_density(bool benson);
    /// `Ref_opt` click.
    void choose_reference(Reference which);

    calculation::Method method;  ///< what is chosen

    std::string title;
    std::string situation_text;  ///< the situation in words

    bool choices_visible = true;     ///< all choice controls; without them only the text is shown
    bool cancel_enabled = true;      ///< `ESC`
    bool mode_frame_visible = true;  ///< frame "Mode of Calculation"
    int global_index = 0;            ///< `opt_glob`: 0 global, 1 partial
    bool global_enabled = true;      ///< `opt_glob`(0)

    bool density_frame_visible = false;  ///< frame of `optPartialBenson`
    int density_index = 0;               ///< 0 Benson's method, 1 database equation
    bool database_enabled = false;       ///< `optPartialBenson`(1)
    std::string database_range;          ///< where the database equation is valid
    std::string density_range;

    bool reference_frame_visible = false;
    int reference_index = 0;     ///< `Ref_opt`
    bool input_enabled = false;  ///< `RefInput`
    std::string proposal_text;   ///< the reference point in words

  private:
    void show_global();
    void show_partial();
    void take_approximation();
    void take_proposal();

    models::Fluid fluid_;
};

/// Why a global calculation is refused.
inline constexpr auto kGlobalNeedsCubic =
    "Global calculation only possible by using a cubic EOS (=> Window \"Models\").";

}  // namespace quor::report
