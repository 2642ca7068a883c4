#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "models/fluid.h"

/// Choice of the models of a substance: which ones its data allow, the defaults, and what follows
/// from a change. The view shows the lists and passes on what the user picks.
namespace quor::models {

/// One entry of a list: the model and its name without outer blanks.
template <class Model>
struct ModelEntry {
    Model model{};
    std::string text;

    bool operator==(const ModelEntry&) const = default;
};

template <class Model>
using ModelEntries = std::vector<ModelEntry<Model>>;

/// Equations of state; those that need an acentric factor only when there is one.
ModelEntries<Eos> eos_entries(const SubstanceRecord& substance);
/// Vapour pressure equations; "none" stands last when the substance has no measured set.
ModelEntries<VapourPressureEquation> vp_entries(const SubstanceRecord& substance);
/// The equation that a substance starts with: the measured set that is best, Wagner's before
/// Frost's before Antoine's, and without one the first entry.
VapourPressureEquation default_vapour_pressure(const SubstanceRecord& substance);
/// One of the sets was fitted to measured values.
bool has_measured_vapour_pressure(const SubstanceRecord& substance);
/// Methods of the enthalpy of vaporisation; `vapour_only` leaves out the one by the cubic EOS.
ModelEntries<VaporisationModel> hlv_entries(const SubstanceRecord& substance, bool vapour_only);
/// Ideal-gas cp forms; never empty.
ModelEntries<CpForm> cp_entries(const SubstanceRecord& substance);
/// Watson exponents proposed, as texts with a point; never empty.
std::vector<std::string> watson_entries(const SubstanceRecord& substance);

/// The equation of state of a first choice: Peng/Robinson, Redlich/Kwong without acentric factor.
Eos default_eos(const SubstanceRecord& substance);

/// Position of a model in a list, 0 (the first entry) when it is not offered.
template <class Model>
std::size_t index_of(const ModelEntries<Model>& entries, Model model) {
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (entries[i].model == model) return i;
    return 0;
}

/// What the view says of the liquid density: its source and range of validity.
struct DensityNote {
    std::string state, range;
};
DensityNote liquid_density_note(const SubstanceRecord& substance);

/// The correlated vapour pressure set that the choice needs is filled from the critical data of the
/// substance, whatever the equation of state.
void correlate_for(const ModelSelection& models, SubstanceRecord& substance);

/// One run of the model view for a substance. It begins with the models in use; `models` is what
/// is chosen now.
class ModelChoice {
  public:
    /// Brings every model to an entry that is offered.
    ModelChoice(const SubstanceRecord& substance, const ModelSelection& models);

    /// Builds the lists anew after the data of the substance were edited.
    void renew(const SubstanceRecord& substance);

    const ModelSelection& models() const { return models_; }
    const SubstanceRecord& substance() const { return substance_; }

    const ModelEntries<Eos>& eos() const { return eos_; }
    const ModelEntries<VapourPressureEquation>& vp() const { return vp_; }
    const ModelEntries<VaporisationModel>& hlv() const { return hlv_; }
    const ModelEntries<CpForm>& cp() const { return cp_; }
    const std::vector<std::string>& watson() const { return watson_; }

    /// Positions of the selected entries.
    std::size_t eos_index() const { return index_of(eos_, models_.eos); }
    std::size_t vp_index() const { return index_of(vp_, models_.vapour_pressure); }
    std::size_t hlv_index() const { return index_of(hlv_, models_.vaporisation); }
    std::size_t cp_index() const { return index_of(cp_, models_.cp_form); }
    /// Watson exponent as text.
    std::string watson_text() const;

    /// True when the Watson exponent is asked for.
    bool watson_visible() const { return models_.vaporisation == VaporisationModel::watson; }
    /// True when p(LV) may come from the EOS, so that the user chooses the priority.
    bool priority_enabled() const { return !models_.vapour_only; }

    /// Selects an equation of state. True when the manual virial coefficients must be asked for.
    bool choose_eos(std::size_t index);
    void choose_vp(std::size_t index);
    void choose_hlv(std::size_t index);
    void choose_cp(std::size_t index);
    /// The exponent as typed; a text without a number is 0.
    void set_watson(std::string_view text);
    void set_priority_ceos(bool ceos) { models_.eos_has_priority = ceos; }
    void set_manual_virial(const ManualVirial& coefficients) {
        models_.manual_virial = coefficients;
    }

    /// What the user should know of the choice; nothing when there is nothing to say.
    std::optional<std::string> warning() const;

  private:
    SubstanceRecord substance_;
    ModelSelection models_;
    ModelEntries<Eos> eos_;
    ModelEntries<VapourPressureEquation> vp_;
    ModelEntries<VaporisationModel> hlv_;
    ModelEntries<CpForm> cp_;
    std::vector<std::string> watson_;
};

}  // namespace quor::models
