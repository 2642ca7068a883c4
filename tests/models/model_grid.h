#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "legacy/declare.h"

using namespace quor;

/// The sweep over all substances and models that the property tests share.
namespace grid {

inline constexpr std::int16_t kCubic[] = {2, 3, 4, 5, 6, 7, 8};
inline constexpr std::int16_t kVOnly[] = {0, 10, 11, 12, 13, 14, 15, 16};

/// Makes a substance of the table and an equation of state the active ones, with given Ji/Torvik
/// parameters, correlated vapour pressure sets and the first cp form that the substance has.
void activate(const std::string& name, std::int16_t code);

/// The same for a record, which stays as it is.
void ActivateModel(std::int16_t code);

/// Calls `test` for every substance, with the substance active under every code.
void ForAll(std::span<const std::int16_t> codes,
            const std::function<void(const std::string&)>& test);

}  // namespace grid
