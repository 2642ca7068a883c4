#include "tools/quorcalc/unit_options.h"

#include <algorithm>
#include <array>

#include "common/numbers.h"
#include "common/text.h"
#include "models/unit_text.h"

namespace quor::quorcalc {

namespace {

using models::Dimension;

/// The options with a number of a quantity.
struct NumberOption {
    std::optional<double> Arguments::*field;
    Dimension dimension;
};
constexpr NumberOption kNumbers[] = {
    {&Arguments::T, Dimension::temperature},    {&Arguments::Tcr, Dimension::temperature},
    {&Arguments::Tb, Dimension::temperature},   {&Arguments::T0, Dimension::temperature},
    {&Arguments::Tenv, Dimension::temperature}, {&Arguments::p, Dimension::pressure},
    {&Arguments::pcr, Dimension::pressure},     {&Arguments::p0, Dimension::pressure},
    {&Arguments::penv, Dimension::pressure},    {&Arguments::v, Dimension::volume},
    {&Arguments::rho, Dimension::density},      {&Arguments::V, Dimension::tankVolume},
    {&Arguments::m, Dimension::mass},           {&Arguments::href, Dimension::energy},
    {&Arguments::sref, Dimension::entropy}};

/// The values of --benson and of --refstate own, by their places; the phase of the latter is none.
constexpr std::array kBenson = {Dimension::temperature, Dimension::pressure, Dimension::density,
                                Dimension::density};
constexpr std::array kOwnState = {Dimension::temperature, Dimension::pressure, Dimension::amount,
                                  Dimension::energy, Dimension::entropy};
constexpr std::size_t kPlaceOfPhase = 2;

/// The names under which results hold quantities.
struct Key {
    std::string_view name;
    Dimension dimension;
};
constexpr Key kKeys[] = {
    {"T", Dimension::temperature}, {"p", Dimension::pressure},   {"v", Dimension::volume},
    {"vL", Dimension::volume},     {"vV", Dimension::volume},    {"B", Dimension::volume},
    {"rho", Dimension::density},   {"rhoL", Dimension::density}, {"rhoV", Dimension::density},
    {"h", Dimension::energy},      {"u", Dimension::energy},     {"g", Dimension::energy},
    {"a", Dimension::energy},      {"eH", Dimension::energy},    {"eU", Dimension::energy},
    {"hLV", Dimension::energy},    {"s", Dimension::entropy},    {"cp", Dimension::entropy},
    {"cv", Dimension::entropy},    {"w", Dimension::speed}};

const Key* find_key(const std::string& name) {
    for (const Key& key : kKeys)
        if (key.name == name) return &key;
    return nullptr;
}

/// The scales of the units in which the numbers of a call stand.
class InUnits {
  public:
    InUnits(const models::UnitChoice& choice, const models::Fluid& fluid)
        : list_(models::units_of(choice)), fluid_(fluid) {}

    double base(Dimension dimension, double value) const {
        const models::Unit& unit = *list_[static_cast<std::size_t>(dimension)];
        const auto scale = models::scale_of(unit, fluid_);
        if (!scale)
            throw CannotBeDone{"--in-units: the substance has no value for the unit " +
                               std::string(unit.name)};
        return scale->value(value);
    }

    template <std::size_t Count>
    std::string list(const std::string& values,
                     const std::array<Dimension, Count>& dimensions) const {
        std::vector<std::string> parts = text::split(values, ',');
        for (std::size_t i = 0; i < std::min(parts.size(), Count); ++i) {
            const auto value = numbers::number(parts[i]);
            const bool phase = Count == kOwnState.size() && i == kPlaceOfPhase;
            if (value && !phase) parts[i] = numbers::general_point(base(dimensions[i], *value));
        }
        std::string all;
        for (const std::string& part : parts) all += (&part == &parts.front() ? "" : ",") + part;
        return all;
    }

    /// "h=..,s=..": parts that name no quantity or no number stay, to be refused where they count.
    std::string named(const std::string& values) const {
        std::string all;
        for (std::string part : text::split(values, ',')) {
            const std::size_t sign = std::min(part.find('='), part.size());
            const auto value = numbers::number(part.substr(std::min(sign + 1, part.size())));
            const Key* const key = find_key(text::trim(part.substr(0, sign)));
            if (value && key != nullptr)
                part = part.substr(0, sign) + "=" +
                       numbers::general_point(base(key->dimension, *value));
            all += (all.empty() ? "" : ",") + part;
        }
        return all;
    }

  private:
    models::UnitList list_;
    const models::Fluid& fluid_;
};

/// A call for the substance alone: its reference state may still have to be converted.
Arguments substance_of(Arguments a) {
    a.href.reset();
    a.sref.reset();
    a.T0.reset();
    a.p0.reset();
    a.Tenv.reset();
    a.penv.reset();
    a.refstate.clear();
    a.benson.clear();
    return a;
}

bool needs_substance(const models::UnitChoice& choice) {
    const models::UnitList list = models::units_of(choice);
    return std::ranges::any_of(
        list, [](const models::Unit* unit) { return unit->per != models::Per::nothing; });
}

void convert(Json& value, const models::Scale& scale) {
    if (value.is_number()) value = number(scale.shown(value.get<double>()));
    if (value.is_array())
        for (Json& one : value) convert(one, scale);
}

void convert_all(Json& result, const models::Units& units, Json& names) {
    if (!result.is_object()) return;
    for (auto& [name, value] : result.items()) {
        const Key* const key = find_key(name);
        if (value.is_object()) {
            convert_all(value, units, names);
        } else if (key != nullptr) {
            convert(value, units.of(key->dimension));
            names[name] = units.of(key->dimension).name;
        }
    }
}

}  // namespace

models::UnitChoice choice_of(std::string_view option, const std::string& text) {
    const auto choice = models::read_choice(text);
    if (!choice) throw WrongCall{std::string(option) + ": " + choice.reason()};
    return *choice;
}

Arguments in_base_units(Call& call, const Arguments& a) {
    if (a.in_units.empty()) return a;
    const models::UnitChoice choice = choice_of("--in-units", a.in_units);
    if (needs_substance(choice) && !a.substance.empty()) set_up(call, substance_of(a));
    const InUnits units(choice, call.session.fluid());
    Arguments base = a;
    for (const NumberOption& option : kNumbers)
        if (auto& value = base.*option.field) value = units.base(option.dimension, *value);
    if (!a.given.empty()) base.given = units.named(a.given);
    if (!a.benson.empty()) base.benson = units.list(a.benson, kBenson);
    constexpr std::string_view kOwn = "own:";
    if (a.refstate.starts_with(kOwn))
        base.refstate = std::string(kOwn) + units.list(a.refstate.substr(kOwn.size()), kOwnState);
    return base;
}

void to_out_units(const session::Session& session, Json& result) {
    const models::Units units = session::present_units(session);
    Json names = Json::object();
    convert_all(result, units, names);
    result["units"] = std::move(names);
}

}  // namespace quor::quorcalc
