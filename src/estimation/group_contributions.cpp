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

constexpr const char* kRefused = "Execution not possible";
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

bool IsMissing(float increment) {
    return increment == kMissing;
}

void TellMissing(std::string_view group) {
    dialogs::Tell(
        "The increment (" + std::string(group) + ") is not available for this calculation.",
        kRefused, dialogs::Icon::Stop);
}

/// Tells of the first group of the molecule that lacks one of the increments.
void TellWhatLacks(const GroupCounts& groups, std::initializer_list<Increment> increments) {
    for (std::size_t i = 0; i < kGroups; ++i) {
        const Group& group = Groups()[i];
        const bool lacks = std::any_of(increments.begin(), increments.end(), [&](Increment k) {
            return IsMissing(group.increment[static_cast<std::size_t>(k)]);
        });
        if (groups[i] == 0 || !lacks) continue;
        TellMissing(group.name);
        return;
    }
}

std::optional<double> Finite(double value) {
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> CriticalTemperature(const GroupCounts& groups, double Tb) {
    const std::optional<double> S = SumOf(groups, Increment::Tc);
    if (!S) return std::nullopt;
    const double share = 0.584 + 0.965 * *S - *S * *S;
    return share > 0 ? Finite(Tb / share) : std::nullopt;
}

std::optional<double> CriticalPressure(const GroupCounts& groups) {
    const std::optional<double> S = SumOf(groups, Increment::pc);
    if (!S) return std::nullopt;
    const double root = 0.113 + 0.0032 * NumberOfAtoms(groups) - *S;
    return root > 0 ? Finite(100 / (root * root)) : std::nullopt;
}

std::optional<std::size_t> GroupByName(std::string_view name) {
    if (name.starts_with('#')) {
        std::size_t position = 0;
        const auto [end, error] =
            std::from_chars(name.data() + 1, name.data() + name.size(), position);
        if (error != std::errc() || end != name.data() + name.size()) return std::nullopt;
        return position >= 1 && position <= kGroups ? std::optional(position - 1) : std::nullopt;
    }
    const auto table = Groups();
    for (std::size_t i = 0; i < kGroups; ++i)
        if (table[i].name == name) return i;
    if (!name.ends_with(kRingSuffix)) return std::nullopt;
    name.remove_suffix(kRingSuffix.size());
    for (std::size_t i = kGroups; i-- > 0;)
        if (table[i].family == "Ring" && table[i].name == name) return i;
    return std::nullopt;
}

std::string Shown(std::optional<double> value, std::string_view mask) {
    return value ? numbers::Format(*value, mask) : kNoValue;
}

}  // namespace

std::optional<GroupCounts> ParseGroups(std::string_view list) {
    GroupCounts counts{};
    if (text::Trim(list).empty()) return counts;
    for (const std::string& part : text::Split(list, ',')) {
        const std::size_t equals = part.rfind('=');
        if (equals == std::string::npos) return std::nullopt;
        const std::optional<std::size_t> group = GroupByName(text::Trim(part.substr(0, equals)));
        const std::string number = text::Trim(part.substr(equals + 1));
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

int GroupCount(std::string_view field) {
    return static_cast<int>(
        std::clamp(numbers::Val(field), 0.0, static_cast<double>(kMostOfAGroup)));
}

double MolarMass(const GroupCounts& groups) {
    double mass = 0;
    for (std::size_t i = 0; i < kGroups; ++i)
        mass += groups[i] * static_cast<double>(GroupMolarMass(Groups()[i]));
    return mass;
}

int NumberOfAtoms(const GroupCounts& groups) {
    int atoms = 0;
    for (std::size_t i = 0; i < kGroups; ++i) atoms += groups[i] * GroupAtoms(Groups()[i]);
    return atoms;
}

bool AnyGroup(const GroupCounts& groups) {
    return std::any_of(groups.begin(), groups.end(), [](int count) { return count != 0; });
}

std::optional<double> SumOf(const GroupCounts& groups, Increment increment) {
    double sum = 0;
    for (std::size_t i = 0; i < kGroups; ++i) {
        if (groups[i] == 0) continue;
        const float value = Groups()[i].increment[static_cast<std::size_t>(increment)];
        if (IsMissing(value)) return std::nullopt;
        sum += groups[i] * static_cast<double>(value);
    }
    return sum;
}

Formation JobackFormation(const GroupCounts& groups) {
    Formation result;
    if (!AnyGroup(groups)) return result;
    if (const auto S = SumOf(groups, Increment::dfh)) result.dfh = 1000 * *S + kDfh0;
    if (const auto S = SumOf(groups, Increment::dfg)) result.dfg = 1000 * *S + kDfg0;
    return result;
}

std::optional<std::array<double, 4>> JobackCp(const GroupCounts& groups) {
    if (!AnyGroup(groups)) return std::nullopt;
    constexpr std::array<Increment, 4> columns{Increment::cpA, Increment::cpB, Increment::cpC,
                                               Increment::cpD};
    std::array<double, 4> cp{};
    for (std::size_t i = 0; i < cp.size(); ++i) {
        const std::optional<double> S = SumOf(groups, columns[i]);
        if (!S) return std::nullopt;
        cp[i] = *S + kCp0[i];
    }
    return cp;
}

std::optional<double> JobackBoilingPoint(const GroupCounts& groups) {
    const std::optional<double> S = SumOf(groups, Increment::Tb);
    if (!AnyGroup(groups) || !S) return std::nullopt;
    return kTb0 + *S;
}

CriticalData JobackCritical(const GroupCounts& groups, std::optional<double> Tb) {
    CriticalData result;
    if (!AnyGroup(groups) || groups[kImine] != 0) return result;
    result.Tb = Tb ? Tb : JobackBoilingPoint(groups);
    if (const auto S = SumOf(groups, Increment::Tf)) result.Tf = kTf0 + *S;
    if (result.Tb) result.Tc = CriticalTemperature(groups, *result.Tb);
    result.pc = CriticalPressure(groups);
    if (const auto S = SumOf(groups, Increment::Vc)) result.Vc = (17.5 + *S) / 1000;
    if (result.Vc && *result.Vc > 0) result.rhoc = Finite(MolarMass(groups) / *result.Vc);
    return result;
}

std::optional<double> LeeKeslerOmega(double Tb, double Tc, double pc) {
    if (!(Tb > kPresent) || !(Tc > kPresent) || !(pc > kPresent) || !(Tb < Tc)) return std::nullopt;
    const double theta = Tb / Tc;
    const double lnp = std::log(pc / kAtmosphere);
    const double theta6 = std::pow(theta, 6);
    const double alpha =
        -lnp - 5.92714 + 6.09648 / theta + 1.28862 * std::log(theta) - 0.169347 * theta6;
    const double beta = 15.2518 - 15.6875 / theta - 13.4721 * std::log(theta) + 0.43577 * theta6;
    return beta == 0 ? std::nullopt : Finite(alpha / beta);
}

Formation CalcFormation(const GroupCounts& groups) {
    TellWhatLacks(groups, {Increment::dfh, Increment::dfg});
    return JobackFormation(groups);
}

std::optional<std::array<double, 4>> CalcCp(const GroupCounts& groups) {
    TellWhatLacks(groups, {Increment::cpA});
    return JobackCp(groups);
}

CriticalData CalcCritical(const GroupCounts& groups, double knownTb) {
    if (groups[kImine] != 0) {
        TellMissing(Groups()[kImine].name);
        return {};
    }
    const std::optional<double> estimate = JobackBoilingPoint(groups);
    if (!estimate) return {};
    TellWhatLacks(groups, {Increment::Vc, Increment::Tf});

    constexpr const char* kQuestion =
        "If there an experimental value of the normal boiling point\n"
        "is available you can input it to improve the calculated\n"
        "T(cr), otherwise the value calculated by using the increments\n"
        "is used.\n"
        "\n"
        "T(LV),NP /K";
    const double proposal = knownTb > kPresent ? knownTb : *estimate;
    const std::optional<std::string> answer =
        dialogs::AskInput({kQuestion, "Input Normal Boiling Temperature T(LV), NP",
                           numbers::Format(proposal, "#####.0")});
    const double typed = answer ? numbers::Val(numbers::CommaToPoint(*answer)) : 0;
    return JobackCritical(groups, typed > kPresent ? typed : *estimate);
}

void ShowOmega(double Tb, double Tc, double pc) {
    const std::optional<double> omega = LeeKeslerOmega(Tb, Tc, pc);
    if (omega) {
        dialogs::Tell(" omega = " + numbers::Format(*omega, "0.000"), "Acentric Factor",
                      dialogs::Icon::Information);
        return;
    }
    const bool complete = Tb > kPresent && Tc > kPresent && pc > kPresent;
    dialogs::Tell(complete ? "T(LV),NP has to be lower than T(cr)."
                           : "Acentric Factor omega\nby using the LEE/KESLER method\n"
                             "T(LV),NP, T(cr) and p(cr)\nare needed",
                  kRefused, dialogs::Icon::Stop);
}

void TransferFormation(const Formation& formation, models::SubstanceRecord& substance) {
    if (formation.dfh.value_or(0) != 0) substance.dfh = static_cast<float>(*formation.dfh);
    if (formation.dfg.value_or(0) != 0) substance.dfg = static_cast<float>(*formation.dfg);
    datafiles::FormDerivedValues(substance);
}

void TransferFormation(const Formation& formation, datafiles::EditorTexts& editor) {
    using datafiles::EditorText;
    if (formation.dfh.value_or(0) != 0)
        editor[kFieldDfh] = EditorText(static_cast<float>(*formation.dfh));
    if (formation.dfg.value_or(0) != 0)
        editor[kFieldDfg] = EditorText(static_cast<float>(*formation.dfg));
}

void TransferCp(const std::array<double, 4>& cp, models::SubstanceRecord& substance) {
    models::CpSet& set = substance.cpPoly;
    for (std::size_t i = 0; i < cp.size(); ++i)
        if (cp[i] != 0) set.c[i] = static_cast<float>(cp[i]);
    set.c[4] = kStoredZero;
    set.TLo = kCpTLo;
    set.THi = kCpTHi;
    datafiles::form_cp_flags(substance);
}

void TransferCp(const std::array<double, 4>& cp, datafiles::EditorTexts& editor) {
    using datafiles::EditorText;
    for (std::size_t i = 0; i < cp.size(); ++i)
        if (cp[i] != 0) editor[kFieldCp + i] = EditorText(static_cast<float>(cp[i]));
    editor[kFieldCp + cp.size()] = EditorText(kStoredZero);
    editor[kFieldCpTLo] = EditorText(static_cast<float>(kCpTLo));
    editor[kFieldCpTHi] = EditorText(static_cast<float>(kCpTHi));
}

std::string FormationText(std::optional<double> value) {
    return Shown(value, "#####.000");
}
std::string TemperatureText(std::optional<double> value) {
    return Shown(value, "####.0");
}
std::string PressureText(std::optional<double> value) {
    return Shown(value, "#####.000");
}
std::string VolumeText(std::optional<double> value) {
    return Shown(value, "0.####");
}
std::string DensityText(std::optional<double> value) {
    return Shown(value, "####.0");
}

std::string DensityTooltip(const GroupCounts& groups) {
    return "critical density calculated from v(cr) by using M = " +
           numbers::General(static_cast<float>(MolarMass(groups))) + " kg/kmol ";
}

}  // namespace quor::estimation
