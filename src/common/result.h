#pragma once

#include <string>
#include <utility>
#include <variant>

namespace quor {

/// Why something could not be had: a whole sentence for the user.
struct Failure {
    std::string reason;

    bool operator==(const Failure&) const = default;
};

/// A value, or why there is none: the one form of failure of the core. The reason is a `Failure` in
/// words, or a small type of its own (an enumeration, say) where no words may be made. Whoever asks
/// for the value of a failure, or for the reason of a success, gets `std::bad_variant_access`.
template <class T, class Why = Failure>
class [[nodiscard]] Result {
  public:
    // Implicit on purpose: a function returns what it has, or `Failure{...}`.
    Result(T value) : held_(std::in_place_index<0>, std::move(value)) {}
    Result(Why failure) : held_(std::in_place_index<1>, std::move(failure)) {}

    explicit operator bool() const { return held_.index() == 0; }

    const T& value() const& { return std::get<0>(held_); }
    T& value() & { return std::get<0>(held_); }
    T&& value() && { return std::get<0>(std::move(held_)); }
    const T& operator*() const& { return value(); }
    T& operator*() & { return value(); }
    T&& operator*() && { return std::move(*this).value(); }
    const T* operator->() const { return &value(); }
    T* operator->() { return &value(); }

    const std::string& reason() const { return failure().reason; }
    /// The failure itself, to be passed on as that of another type.
    const Why& failure() const { return std::get<1>(held_); }

  private:
    std::variant<T, Why> held_;
};

/// Success without a value, or the reason of a failure.
template <>
class [[nodiscard]] Result<void> {
  public:
    Result() = default;
    Result(Failure failure) : held_(std::move(failure)) {}

    explicit operator bool() const { return held_.index() == 0; }
    const std::string& reason() const { return failure().reason; }
    const Failure& failure() const { return std::get<1>(held_); }

  private:
    std::variant<std::monostate, Failure> held_;
};

}  // namespace quor
