#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quor {

/// A value with its former and later states, one step of undo for each change. Steps have names,
/// as the Edit menu shows them. Beyond `kMostSteps` the oldest step is forgotten, and of a list of
/// very many points beyond `kMostPoints` in all steps; the last step can always be taken back.
template <class T>
class History {
  public:
    static constexpr std::size_t kMostSteps = 200;
    static constexpr std::size_t kMostPoints = 10000000;

    explicit History(T value = {}) { states_.push_back({{}, std::move(value)}); }

    const T& value() const { return states_[present_].value; }

    /// Makes `value` the present one. What was undone before is lost. A value equal to the present
    /// one is no step.
    void change(std::string name, T value) {
        if (value == this->value()) return;
        states_.resize(present_ + 1, states_.front());
        states_.push_back({std::move(name), std::move(value)});
        while (states_.size() > kMostSteps + 1 || (states_.size() > 2 && points() > kMostPoints))
            states_.erase(states_.begin());
        present_ = states_.size() - 1;
    }

    /// Begins anew with a value: there is nothing to undo, as after a file was loaded.
    void restart(T value) {
        states_.clear();
        states_.push_back({{}, std::move(value)});
        present_ = 0;
    }

    bool can_undo() const { return present_ > 0; }
    bool can_redo() const { return present_ + 1 < states_.size(); }
    /// Name of the step that `undo` would take back; nothing when there is none.
    std::optional<std::string> undo_name() const {
        return can_undo() ? std::optional(states_[present_].name) : std::nullopt;
    }
    /// Name of the step that `redo` would make again; nothing when there is none.
    std::optional<std::string> redo_name() const {
        return can_redo() ? std::optional(states_[present_ + 1].name) : std::nullopt;
    }
    /// False when there was nothing to take back.
    bool undo() {
        if (!can_undo()) return false;
        --present_;
        return true;
    }
    /// False when there was nothing to make again.
    bool redo() {
        if (!can_redo()) return false;
        ++present_;
        return true;
    }

  private:
    /// Points in all states, where the value is a list of them.
    std::size_t points() const {
        std::size_t sum = 0;
        if constexpr (requires(const T& t) { t.points.size(); })
            for (const State& state : states_) sum += state.value.points.size();
        return sum;
    }

    struct State {
        std::string name;  ///< of the change that led here
        T value;
    };
    std::vector<State> states_;
    std::size_t present_ = 0;
};

}  // namespace quor
