#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>

#include "models/units.h"
#include "report/calculation_state.h"

namespace quor::report {

/// What an input view is opened for.
struct InputForm {
    InputKind kind = InputKind::state;
    calculation::Task task = calculation::Task::none;
    bool volume = false;    ///< a volume instead of a density
    bool amount = false;    ///< the tank's content in kmol
    models::Units units{};  ///< in which numbers are typed
};

/// A field of `DirectInputView`.
struct InputField {
    bool visible = false;
    std::string label;
    models::Dimension dimension = models::Dimension::temperature;
    models::Scale scale{};  ///< of the number in it
};

/// What `DirectInputView` shows .
struct DirectInput {
    std::string title;
    std::string command;                ///< caption of `cmdParameter_OK`
    std::array<InputField, 4> fields;   ///< `par` with its label `Bz`
    bool volume_frame_visible = false;  ///< `fraRhoVInput`
    std::string volume_frame;           ///< its text
    bool amount_frame_visible = false;  ///< `fram_n`
};

DirectInput describe_direct_input(const InputForm& form);

/// What was typed, by the kind of the form.
using TypedInput = std::variant<DirectValues, calculation::Tank, models::BensonPoint>;

/// The texts of the four fields, numbers in the units of the form, as values in K, kPa, kg/m^3, m^3
/// and kg: of a state some must be given, else all. Nothing when the input is not valid.
std::optional<TypedInput> read_input(const InputForm& form, const std::array<std::string, 4>& texts,
                                     const models::Fluid& fluid);

}  // namespace quor::report
