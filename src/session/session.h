#pragma once

#include <functional>
#include <memory>

#include "common/paths.h"
#include "session/listeners.h"
#include "session/session_state.h"

namespace quor::session {

/// What is open in one run of the program, and who wants to hear of changes. Two may live side by
/// side, also in two threads; one session belongs to one thread.
class Session {
  public:
    /// The state at the start of the program. Files are looked for, and written to, in `places`.
    explicit Session(Places places = {});
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    const Places& places() const { return places_; }

    const SessionState& state() const { return state_; }
    const SessionState* operator->() const { return &state_; }

    /// Substance, models and constants as the value that everything computes with. Without a
    /// substance or an equation of state it is one that has none.
    const models::Fluid& fluid() const;

    /// A change of the state. It lasts as long as the object; changes may nest, and the listeners
    /// are told once, when the outermost has ended. After a change of the units the current result
    /// is told in them.
    class Change {
      public:
        explicit Change(Session& session) : session_(session) { ++session_.changing_; }
        ~Change() { session_.end_change(); }
        Change(const Change&) = delete;
        Change& operator=(const Change&) = delete;

        SessionState* operator->() const { return &session_.state_; }
        SessionState& operator*() const { return session_.state_; }

      private:
        Session& session_;
    };
    [[nodiscard]] Change change() { return Change(*this); }

    /// `listener` is called after each change, until the connection ends.
    [[nodiscard]] Connection on_change(std::function<void()> listener) {
        return listeners_.add(std::move(listener));
    }

    /// Busy pointer, nested: only the outermost pair changes it.
    void begin_busy();
    void end_busy();

  private:
    void end_change();
    void tell_in_present_units();

    Places places_;
    SessionState state_;
    mutable models::Fluid fluid_;  ///< of the state as it was asked for last
    models::UnitChoice told_in_;   ///< what the current result is told in
    Listeners listeners_;
    int changing_ = 0, busy_ = 0;
};

/// The busy pointer, for routines that may leave early.
class BusyPointer {
  public:
    explicit BusyPointer(Session& session) : session_(session) { session_.begin_busy(); }
    ~BusyPointer() { session_.end_busy(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    Session& session_;
};

/// Every part of the state gets its default, as at the start of the program.
void reset_everything(Session& session);

/// Clears what depends on the substance and disables the commands that need one.
void reset_session(Session& session);

/// The reference state resolved for the present fluid. Where the fluid lacks a named one, h and s
/// of the ideal gas are 0: `settle_reference_state` has told it and proposed another.
models::ReferenceState present_reference(const Session& session);
/// After a change of fluid or models: where the fluid lacks the named state, that is told with the
/// reason, and a state that it has takes its place.
void settle_reference_state(Session& session);

/// The choice of units, with T/K of the divisor R T.
models::UnitChoice unit_choice(const SessionState& state);
/// The units of the present fluid. Throws as `models::make_units`.
models::Units present_units(const Session& session);
/// The same without what the fluid cannot have; never throws.
models::Units usable_units(const Session& session);
/// Brings the choice of units to one that the present fluid has: without a critical volume nothing
/// is reduced, without a molar mass everything is molar.
void settle_units(Session& session);

}  // namespace quor::session
