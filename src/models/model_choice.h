#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "legacy/declare.h"

/// Choice of the models of a substance: which ones its data allow, the defaults, and what follows
/// from a change. The view shows the lists and passes on what the user picks.
namespace quor::models {

/// One entry of a list: the model's code and its name without outer blanks.
struct ModelEntry {
    std::int16_t code = 0;
    std::string text;

    bool operator==(const ModelEntry&) const = default;
};

using ModelEntries = std::vector<ModelEntry>;

/// Equations of state; those that need an acentric factor only when there is one.
ModelEntries eos_entries(const models::SubstanceRecord& substance);
/// Vapour pressure equations, code as `ModelSelection::VPModel`; "none" stands last when the
/// substance has no measured set.
ModelEntries vp_entries(const models::SubstanceRecord& substance);
/// Methods of the enthalpy of vaporisation; `onlyV` leaves out the one by the cubic EOS.
ModelEntries hlv_entries(const models::SubstanceRecord& substance, bool onlyV);
/// Ideal-gas cp forms; never empty.
ModelEntries cp_entries(const models::SubstanceRecord& substance);
/// Watson exponents proposed, as texts with a point; never empty.
std::vector<std::string> watson_entries(const models::SubstanceRecord& substance);

/// The equation of state of a first choice: Peng/Robinson, Redlich/Kwong without acentric factor.
std::int16_t default_eos(const models::SubstanceRecord& substance);

/// Position of a code in a list, 0 (the first entry) when it is not offered.
std::size_t index_of(const ModelEntries& entries, std::int16_t code);

/// What the view says of the liquid density: its source and range of validity.
struct DensityNote {
    std::string state, range;
};
DensityNote liquid_density_note(const models::SubstanceRecord& substance);

/// One run of the model view over `legacy::the_models` and `legacy::the_substance`. It begins as
/// the view opens and ends with `Confirm` or `Cancel`.
class ModelChoice {
  public:
    /// Keeps the present selection and brings every model to an entry that is offered.
    ModelChoice();

    /// Builds the lists anew after the data of the substance were edited; what `Cancel` brings back
    /// stays.
    void renew();

    const ModelEntries& eos() const { return eos_; }
    const ModelEntries& vp() const { return vp_; }
    const ModelEntries& hlv() const { return hlv_; }
    const ModelEntries& cp() const { return cp_; }
    const std::vector<std::string>& watson() const { return watson_; }

    /// Positions of the selected entries.
    std::size_t eos_index() const;
    std::size_t vpIndex() const;
    std::size_t hlv_index() const;
    std::size_t cp_index() const;
    /// Watson exponent as text.
    std::string watson_text() const;

    /// True when the Watson exponent is asked for.
    bool watson_visible() const;
    /// True when p(LV) may come from the EOS, so that the user chooses the priority.
    bool priority_enabled() const;

    /// Selects an equation of state. True when the manual virial coefficients must be asked for.
    bool choose_eos(std::size_t index);
    void choose_vp(std::size_t index);
    void choose_hlv(std::size_t index);
    void choose_cp(std::size_t index);
    /// The exponent as typed; a text without a number is 0.
    void set_watson(std::string_view text);
    void set_priority_ceos(bool ceos);
    /// Coefficients of the manual virial form B = b0 - b1/T^b2, m^3/kmol.
    void set_manual_virial(double b0, double b1, double b2);

    /// "Models OK": warns of a missing acentric factor, computes what the selection needs, and
    /// enables the commands of a complete choice. False when the EOS parameters fail; the view
    /// then stays open.
    bool Confirm();

    /// Everything as it was when the view opened.
    void Cancel();

  private:
    models::ModelSelection keptModels_;
    models::EOSParameters keptParameters_;
    models::JiTorvikParameters keptJiTorvik_;
    models::EOSParameters manual_;  ///< holds the last manual coefficients
    ModelEntries eos_, vp_, hlv_, cp_;
    std::vector<std::string> watson_;
};

/// The commands that a complete choice of models enables, for the present EOS.
void enable_model_commands();

}  // namespace quor::models
