#pragma once

#include <memory>

#include "common/result.h"
#include "models/equation_of_state.h"
#include "models/substance_record.h"

namespace quor::models {

/// A substance with a choice of models and the constants that follow from both. A value that never
/// changes: copies share it, and threads may use it at once.
class Fluid {
  public:
    /// A fluid without data and without an equation of state.
    Fluid();
    /// `eos` and `jt` are the constants that belong to the substance and the choice.
    Fluid(SubstanceRecord substance, const ModelSelection& models, const EosParameters& eos,
          const JiTorvikParameters& jt);

    /// The fluid of a substance and a choice, with the constants that follow; whether the equation
    /// describes the V phase alone follows from it too. Fails where the equation of state needs
    /// data that the substance lacks.
    static Result<Fluid> make(SubstanceRecord substance, const ModelSelection& models);
    /// The same with an equation that need not stand in the table, which must outlive the fluid.
    static Result<Fluid> make(SubstanceRecord substance, const ModelSelection& models,
                              const EquationOfState& equation);
    /// The same substance with another equation of state.
    Result<Fluid> with(Eos eos) const;

    const SubstanceRecord& substance() const { return parts_->substance; }
    const ModelSelection& models() const { return parts_->models; }
    const EosParameters& eos() const { return parts_->eos; }
    const JiTorvikParameters& jt() const { return parts_->jt; }
    const EquationOfState& equation() const { return *parts_->equation; }

    /// True when both stand for the very same value, not only for equal ones.
    bool is_same(const Fluid& other) const { return parts_ == other.parts_; }

    /// True for equal data, models and constants.
    bool operator==(const Fluid& other) const { return is_same(other) || *parts_ == *other.parts_; }

  private:
    struct Parts {
        SubstanceRecord substance;
        ModelSelection models;
        EosParameters eos;
        JiTorvikParameters jt;
        const EquationOfState* equation;

        bool operator==(const Parts&) const = default;
    };
    explicit Fluid(Parts parts) : parts_(std::make_shared<const Parts>(std::move(parts))) {}

    std::shared_ptr<const Parts> parts_;
};

}  // namespace quor::models
