#include "estimation/group_contributions.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/substance_slots.h"

namespace quor::estimation {

namespace {

using constants::kPresent;

constexpr const char* kNoValue = " ---";
constexpr std::size_t kImine = 35;  // =NH
constexpr std::string_view kRingSuffix = " (ring)";
constexpr int kMostOfAGroup = 9999;
constexpr double kAtmosphere = 100 / 0.98692327;  // kPa

// Constants of the Joback method as the system uses them.
constexpr double kTb0 = 198, kTf0 = 122;        // K
constexpr double kDfh0 = 68290, kDfg0 = 53880;  // kJ/kmol
constexpr std::array<double, 4> kCp0{-37.93, 0.21, -0.000391, 2.06e-7};
constexpr std::int16_t kCpTLo = 250, kCpTHi = 1000;  // K, range of the ideal-gas cp
constexpr float kStoredZero = 1e-37F;

// Fields of the substance editor.
constexpr std::size_t kFieldDfh = 44, kFieldDfg = 45, kFieldCp = 28, kFieldCpTLo = 33,
                      kFieldCpTHi = 34;

bool is_missing(float increment) {
    return increment == kMissing;
}

void tell_missing(std::string_view group) {
    dialogs::tell(
        "The increment (" + std::string(group) + ") is not available for this calculation.",
        dialogs::kNotPossible, dialogs::Icon::Stop);
}

/// Tells of the first group of the molecule that lacks one of the increments.
void tell_what_lacks(const GroupCounts& groups, std::initializer_list<Increment> increments) {
    for (std::size_t i = 0; i < kGroups; ++i) {
        const Group& group = all_groups()[i];
        const bool lacks = std::any_of(increments.begin(), increments.end(), [&](Increment k) {
            return is_missing(group.increment[static_cast<std::size_t>(k)]);
        });
        if (groups[i] == 0 || !lacks) continue;
        tell_missing(group.name);
        return;
    }
}

std::optional<double> finite(double value) {
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> critical_temperature(const GroupCounts& groups, double Tb) {
    const std::optional<double> S = sum_of(groups, Increment::Tc);
    if (!S) return std::nullopt;
    const double share = 0.584 + 0.965 * *S - *S * *S;
    return share > 0 ? finite(Tb / share) : std::nullopt;
}

std::optional<double> critical_pressure(const GroupCounts& groups) {
    const std::optional<double> S = sum_of(groups, Increment::pc);
    if (!S) return std::nullopt;
    const double root = 0.113 + 0.0032 * number_of_atoms(groups) - *S;
    return root > 0 ? finite(100 / (root * root)) : std::nullopt;
}

std::optional<std::size_t> group_by_name(std::string_view name) {
    if (name.starts_with('#')) {
        std::size_t position = 0;
        const auto [end, error] =
            std::from_chars(name.data() + 1, name.data() + name.size(), position);
        if (error != std::errc() || end != name.data() + name.size()) return std::nullopt;
        return position >= 1 && position <= kGroups ? std::optional(position - 1) : std::nullopt;
    }
    const auto table = all_groups();
    for (std::size_t i = 0; i < kGroups; ++i)
        if (table[i].name == name) return i;
    if (!name.ends_with(kRingSuffix)) return std::nullopt;
    name.remove_suffix(kRingSuffix.size());
    for (std::size_t i = kGroups; i-- > 0;)
        if (table[i].family == "Ring" && table[i].name == name) return i;
    return std::nullopt;
}

std::string shown(std::optional<double> value, std::string_view mask) {
    return value ? numbers::format(*value, mask) : kNoValue;
}

}  // namespace

std::optional<GroupCounts> parse_groups(std::string_view list) {
    GroupCounts counts{};
    if (text::trim(list).empty()) return counts;
    for (const std::string& part : text::split(list, ',')) {
        const std::size_t equals = part.rfind('=');
        if (equals == std::string::npos) return std::nullopt;
        const std::optional<std::size_t> group = group_by_name(text::trim(part.substr(0, equals)));
        const std::string number = text::trim(part.substr(equals + 1));
        int count = 0;
        const auto [end, error] =
            std::from_chars(number.data(), number.data() + number.size(), count);
        if (!group || error != std::errc() || end != number.data() + number.size())
            return std::nullopt;
        if (count < 0 || counts[*group] + count > kMostOfAGroup) return std::nullopt;
        counts[*group] += count;
    }
    return counts;
}

int group_count(std::string_view field) {
    return static_cast<int>(
        std::clamp(numbers::val(field), 0.0, static_cast<double>(kMostOfAGroup)));
}

double molar_mass(const GroupCounts& groups) {
    double mass = 0;
    for (std::size_t i = 0; i < kGroups; ++i)
        mass += groups[i] * static_cast<double>(group_molar_mass(all_groups()[i]));
    return mass;
}

int number_of_atoms(const GroupCounts& groups) {
    int atoms = 0;
    for (std::size_t i = 0; i < kGroups; ++i) atoms += groups[i] * group_atoms(all_groups()[i]);
    return atoms;
}

bool any_group(const GroupCounts& groups) {
    return std::any_of(groups.begin(), groups.end(), [](int count) { return count != 0; });
}

std::optional<double> sum_of(const GroupCounts& groups, Increment increment) {
    double sum = 0;
    for (std::size_t i = 0; i < kGroups; ++i) {
        if (groups[i] == 0) continue;
        const float value = all_groups()[i].increment[static_cast<std::size_t>(increment)];
        if (is_missing(value)) return std::nullopt;
        sum += groups[i] * static_cast<double>(value);
    }
    return sum;
}

Formation joback_formation(const GroupCounts& groups) {
    Formation result;
    if (!any_group(groups)) return result;
    if (const auto S = sum_of(groups, Increment::dfh)) result.dfh = 1000 * *S + kDfh0;
    if (const auto S = sum_of(groups, Increment::dfg)) result.dfg = 1000 * *S + kDfg0;
    return result;
}

std::optional<std::array<double, 4>> joback_cp(const GroupCounts& groups) {
    if (!any_group(groups)) return std::nullopt;
    constexpr std::array<Increment, 4> columns{Increment::cpA, Increment::cpB, Increment::cpC,
                                               Increment::cpD};
    std::array<double, 4> cp{};
    for (std::size_t i = 0; i < cp.size(); ++i) {
        const std::optional<double> S = sum_of(groups, columns[i]);
        if (!S) return std::nullopt;
        cp[i] = *S + kCp0[i];
    }
    return cp;
}

std::optional<double> joback_boiling_point(const GroupCounts& groups) {
    const std::optional<double> S = sum_of(groups, Increment::Tb);
    if (!any_group(groups) || !S) return std::nullopt;
    return kTb0 + *S;
}

CriticalData joback_critical(const GroupCounts& groups, std::optional<double> Tb) {
    CriticalData result;
    if (!any_group(groups) || groups[kImine] != 0) return result;
    result.Tb = Tb ? Tb : joback_boiling_point(groups);
    if (const auto S = sum_of(groups, Increment::Tf)) result.Tf = kTf0 + *S;
    if (result.Tb) result.Tc = critical_temperature(groups, *result.Tb);
    result.pc = critical_pressure(groups);
    if (const auto S = sum_of(groups, Increment::Vc)) result.vc = (17.5 + *S) / 1000;
    if (result.vc && *result.vc > 0) result.rhoc = finite(molar_mass(groups) / *result.vc);
    return result;
}

std::vector<std::string> implausible_values(const CriticalData& data) {
    std::vector<std::string> notes;
    const auto positive = [&](const std::optional<double>& value, const std::string& name) {
        if (value && !(*value > 0))
            notes.push_back(name + " is not plausible: it is not positive.");
    };
    const auto ascending = [&](const std::optional<double>& low, const std::string& low_name,
                               const std::optional<double>& high, const std::string& high_name) {
        if (low && high && !(*low < *high))
            notes.push_back(low_name + " is not plausible: it is not below " + high_name + ".");
    };
    positive(data.Tf, "T(f)");
    positive(data.Tb, "T(LV),NP");
    positive(data.Tc, "T(cr)");
    positive(data.vc, "v(cr)");
    ascending(data.Tf, "T(f)", data.Tb, "T(LV),NP");
    ascending(data.Tb, "T(LV),NP", data.Tc, "T(cr)");
    return notes;
}

std::optional<double> lee_kesler_omega(double Tb, double Tc, double pc) {
    if (!(Tb > kPresent) || !(Tc > kPresent) || !(pc > kPresent) || !(Tb < Tc)) return std::nullopt;
    const double theta = Tb / Tc;
    const double lnp = std::log(pc / kAtmosphere);
    const double theta6 = std::pow(theta, 6);
    const double alpha =
        -lnp - 5.92714 + 6.09648 / theta + 1.28862 * std::log(theta) - 0.169347 * theta6;
    const double beta = 15.2518 - 15.6875 / theta - 13.4721 * std::log(theta) + 0.43577 * theta6;
    return beta == 0 ? std::nullopt : finite(alpha / beta);
}

Formation calc_formation(const GroupCounts& groups) {
    tell_what_lacks(groups, {Increment::dfh, Increment::dfg});
    return joback_formation(groups);
}

std::optional<std::array<double, 4>> calc_cp(const GroupCounts& groups) {
    tell_what_lacks(groups, {Increment::cpA});
    return joback_cp(groups);
}

CriticalData calc_critical(const GroupCounts& groups, double known_Tb) {
    if (groups[kImine] != 0) {
        tell_missing(all_groups()[kImine].name);
        return {};
    }
    const std::optional<double> estimate = joback_boiling_point(groups);
    if (!estimate) return {};
    tell_what_lacks(groups, {Increment::Vc, Increment::Tf});

    constexpr const char* kQuestion =
        "If there an experimental value of the normal boiling point\n"
        "is available you can input it to improve the calculated\n"
        "T(cr), otherwise the value calculated by using the increments\n"
        "is used.\n"
        "\n"
        "T(LV),NP /K";
    const double proposal = known_Tb > kPresent ? known_Tb : *estimate;
    const std::optional<std::string> answer =
        dialogs::ask_input({kQuestion, "Input Normal Boiling Temperature T(LV), NP",
                            numbers::format(proposal, "#####.0")});
    const double typed = answer ? numbers::val(numbers::comma_to_point(*answer)) : 0;
    return joback_critical(groups, typed > kPresent ? typed : *estimate);
}

void show_omega(double Tb, double Tc, double pc) {
    const std::optional<double> omega = lee_kesler_omega(Tb, Tc, pc);
    if (omega) {
        dialogs::tell(" omega = " + numbers::format(*omega, "0.000"), "Acentric Factor",
                      dialogs::Icon::Information);
        return;
    }
    const bool complete = Tb > kPresent && Tc > kPresent && pc > kPresent;
    dialogs::tell(complete ? "T(LV),NP has to be lower than T(cr)."
                           : "Acentric Factor omega\nby using the LEE/KESLER method\n"
                             "T(LV),NP, T(cr) and p(cr)\nare needed",
                  dialogs::kNotPossible, dialogs::Icon::Stop);
}

void transfer_formation(const Formation& formation, models::SubstanceRecord& substance) {
    if (formation.dfh.value_or(0) != 0) substance.dfh = static_cast<float>(*formation.dfh);
    if (formation.dfg.value_or(0) != 0) substance.dfg = static_cast<float>(*formation.dfg);
    datafiles::form_derived_values(substance);
}

void transfer_formation(const Formation& formation, datafiles::EditorTexts& editor) {
    using datafiles::editor_text;
    if (formation.dfh.value_or(0) != 0)
        editor[kFieldDfh] = editor_text(static_cast<float>(*formation.dfh));
    if (formation.dfg.value_or(0) != 0)
        editor[kFieldDfg] = editor_text(static_cast<float>(*formation.dfg));
}

void transfer_cp(const std::array<double, 4>& cp, models::SubstanceRecord& substance) {
    models::CpSet& set = substance.cp_polynomial;
    for (std::size_t i = 0; i < cp.size(); ++i)
        if (cp[i] != 0) set.c[i] = static_cast<float>(cp[i]);
    set.c[4] = kStoredZero;
    set.T_low = kCpTLo;
    set.T_high = kCpTHi;
    datafiles::form_cp_flags(substance);
}

void transfer_cp(const std::array<double, 4>& cp, datafiles::EditorTexts& editor) {
    using datafiles::editor_text;
    for (std::size_t i = 0; i < cp.size(); ++i)
        if (cp[i] != 0) editor[kFieldCp + i] = editor_text(static_cast<float>(cp[i]));
    editor[kFieldCp + cp.size()] = editor_text(kStoredZero);
    editor[kFieldCpTLo] = editor_text(static_cast<float>(kCpTLo));
    editor[kFieldCpTHi] = editor_text(static_cast<float>(kCpTHi));
}

std::string formation_text(std::optional<double> value) {
    return shown(value, "#####.000");
}
std::string temperature_text(std::optional<double> value) {
    return shown(value, "####.0");
}
std::string pressure_text(std::optional<double> value) {
    return shown(value, "#####.000");
}
std::string volume_text(std::optional<double> value) {
    return shown(value, "0.####");
}
std::string density_text(std::optional<double> value) {
    return shown(value, "####.0");
}

std::string density_tooltip(const GroupCounts& groups) {
    return "critical density calculated from v(cr) by using M = " +
           numbers::general(static_cast<float>(molar_mass(groups))) + " kg/kmol ";
}

}  // namespace quor::estimation
