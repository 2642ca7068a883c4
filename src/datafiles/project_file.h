#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "common/result.h"
#include "models/model_selection.h"
#include "models/reference_record.h"
#include "models/units.h"

namespace quor::datafiles {

/// The typed items 5 to 32 of a project file, in their order. What a file does not tell, or tells
/// as no value of its kind or beyond its range, is missing.
struct ProjectSettings {
    std::optional<double> diagram_T, diagram_p, diagram_v;  ///< state parameters of the diagram
    std::optional<double> caloric_factor;
    std::optional<std::int16_t> unit_mode;     ///< 0 molar, 1 specific, 2 reduced
    std::optional<std::int16_t> caloric_unit;  ///< 0 kJ/kmol, 1 K, 2 R T, 3 kJ/kg
    std::optional<bool> curve_real_range_only;
    std::optional<std::int16_t> points_per_curve;
    std::optional<char> csv_separator;
    /// Missing also where the choice is left to the sets of the substance.
    std::optional<models::VapourPressureEquation> vapour_pressure;
    std::optional<models::Eos> eos;
    std::optional<models::CpForm> cp_form;
    std::optional<models::VaporisationModel> vaporisation;
    std::optional<float> watson_n;
    std::optional<bool> eos_has_priority;
    std::optional<std::int16_t> reference_mode;
    std::optional<double> href, sref;  ///< kJ/kmol, kJ/(kmol K)
    std::optional<float> T0, p0;       ///< K, kPa
    std::optional<double> Tenv, penv;  ///< surroundings, K and kPa
    std::optional<bool> batch_mode;
    std::optional<bool> curve_s_without_tie_line, partial_gas_curve;
    std::optional<float> tank_V, tank_m, tank_T;  ///< m^3, kg, K
};

/// What a project file (.QCF) holds.
struct ProjectContent {
    std::string date{};
    std::string comment{};   ///< any characters, one line
    std::string database{};  ///< title of its file, any characters
    std::string casrn{};     ///< of the substance, 12 characters
    ProjectSettings settings{};
    // What follows stands behind the items, where a reader that does not know it never looks.
    std::optional<models::ManualVirial> manual_virial{};
    /// With a named reference state the items hold what it comes to for this fluid.
    models::NamedState named_reference = models::NamedState::none;
    models::OwnState own_state{};  ///< with the named state `own`
    /// With units of their own, of which the items hold what they are computed in.
    std::optional<models::UnitChoice> units{};
};

/// Text files of projects beyond this size are refused.
inline constexpr std::size_t kLargestProject = std::size_t{1} << 20;

/// Reads a project's text (code page 1252). It is refused when its first four lines are no head of
/// a project; `title` names the file then. A last line that is cut short does not count. A decimal
/// comma counts as a point.
Result<ProjectContent> read_project(const std::string& ansi_text, const std::string& title);

/// The text of a project: numbers with a point, texts in double quotes, truth values as #TRUE#
/// and #FALSE#. A setting that is missing becomes an empty line, which leaves it as it was.
std::string project_text(const ProjectContent& content);

}  // namespace quor::datafiles
