#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>

#include "models/fluid.h"
#include "models/reference_record.h"
#include "models/units.h"

using namespace quor;

/// Draws for tests of what holds whatever is given: ordinary values beside the worst that can be
/// typed or stand in a file. The same seed draws the same on every machine.
class Draws {
  public:
    explicit Draws(std::uint64_t seed) : engine_(seed) {}

    /// A whole number from 0 to `count` - 1.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    int between(int low, int high) {
        return low + static_cast<int>(below(static_cast<std::size_t>(high - low + 1)));
    }
    /// True once in `times`.
    bool once_in(std::size_t times) { return below(times) == 0; }
    template <class Container>
    auto& one_of(Container& container) {
        return container[below(std::size(container))];
    }

    /// A share of 0 to 1.
    double share() { return static_cast<double>(below(1025)) / 1024.0; }
    /// A number of any size: 0, negative, beyond 32 bits, nearly beyond 64, not a number.
    double any_number();
    /// The same without what no reader lets through: an infinite value, and what is no number.
    double any_finite();
    float any_finite_single();
    /// Any number as far as it fits 32 bits; what does not becomes infinite, as an input that was
    /// narrowed would.
    float any_single();
    /// A multiple of `scale` of 0 to 3 times, or once in a few draws any number.
    double near(double scale);

    /// A record of the table of substances with its correlated sets, once in a few draws with
    /// fields that make no sense.
    models::SubstanceRecord substance();
    /// A choice of any models, whether the substance has data for them or not.
    models::ModelSelection selection(const models::SubstanceRecord& substance);
    models::ReferenceState reference();
    models::UnitChoice units();
    /// The fluid of a drawn record and choice. One that is refused is drawn anew.
    models::Fluid fluid();

  private:
    std::mt19937_64 engine_;
};

/// How often a test draws: a sanitized program is slow, and looks at each draw more closely.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif
#else
inline constexpr bool kSanitized = false;
#endif
constexpr int draws_of(int count) {
    return kSanitized ? count / 20 : count;
}

/// True when a text holds a number that is none, such as "nan" or "-inf", as a word of its own.
bool has_no_number(const std::string& text);
