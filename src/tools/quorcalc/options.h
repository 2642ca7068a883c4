#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "tools/quorcalc/arguments.h"

namespace quor::quorcalc {

/// One option of the command line: "--name" and the argument that takes its value.
struct Option {
    using Field = std::variant<std::string Arguments::*, std::optional<double> Arguments::*,
                               std::optional<int> Arguments::*,
                               std::vector<std::string> Arguments::*, bool Arguments::*>;
    std::string_view name;
    Field field;
    const char* help;
    std::span<const std::string_view> allowed = {};  ///< its only values; none: any value
};

/// The options of every command: substance, models, units, reference state, form of the output.
std::span<const Option> common_options();

/// An option that only some commands have; null for an unknown name.
const Option* find_option(std::string_view name);

}  // namespace quor::quorcalc
