#include "estimation/fit_models.h"

#include <algorithm>

#include "common/constants.h"
#include "estimation/fit_apply.h"
#include "estimation/linearised.h"
#include "estimation/model_functions.h"

namespace quor::estimation {

namespace {

constexpr Parameters kThousandB{1, 1000, 1, 1, 1, 1, 1};
constexpr std::string_view kFrostCaption =
    "ln(p/kPa) = A + B/(C+T/K-273.15) + D ln(T/K) + E (p/kPa)/(T/K)^2";
constexpr std::string_view kFrostCaptionLg =
    "lg(p/kPa) = A + B/(C+T/K-273.15) + D lg(T/K) + E (p/kPa)/(T/K)^2";
constexpr std::string_view kIncluded = "included in the";
constexpr std::string_view kIncludedExtended = "included in the extended";
constexpr std::string_view kFrostSet = "FROST-KALKWARF parameter set of QUOR.";

/// D0 of model 5 where no critical temperature is known.
constexpr double kDefaultD0 = -5;
/// A critical temperature below this, in K, gives no proposal for D.
constexpr double kLeastTcritForD = 10;

const std::array<FitModelRow, 16> kModels{{
    {.number = 0,
     .tab = FitTab::General,
     .name = "Polynomial",
     .parameter_count = 6,
     .start = {1, 1, 1, 0, 0, 0},
     .start_lg = {1, 1, 1, 0, 0, 0},
     .fixed = {false, false, false, true, true, true},
     .caption = "y = A + B x + C  x^2 + D  x^3 + E x^4 + F x^5",
     .model = polynomial,
     .basis = polynomial_basis,
     .linearised = linearised_polynomial},
    {.number = 1,
     .tab = FitTab::General,
     .name = "Combi-expression",
     .parameter_count = 7,
     .start = {1, 1, 1, 0, 0, 0, 0},
     .start_lg = {1, 1, 1, 0, 0, 0, 0},
     .fixed = {false, false, false, false, false, true, true},
     .caption = "y = A + B x + C  x^2 + D  x^3 + E/x + F/x^2 + G ln(x)",
     .model = combi_expression,
     .basis = combi_basis,
     .linearised = linearised_combi},
    {.number = 3,
     .tab = FitTab::VapourPressure,
     .name = "AUGUST, DUPRÉ-RANKINE",
     .parameter_count = 3,
     .start = {20, 1500, -1},
     .start_lg = {20, 1500, -1},
     .scale = kThousandB,
     .labels = {"A = ", "B = ", "D = "},
     .caption = "ln(p/kPa) = A - B / (T/K) + D ln(T/K)",
     .caption_lg = "lg(p/kPa) = A - B / (T/K) + D lg(T/K)",
     .model = august,
     .linearised = linearised_august,
     .logarithmic = {true, true}},
    {.number = 4,
     .tab = FitTab::VapourPressure,
     .name = "ANTOINE",
     .parameter_count = 3,
     .start = {10, 3000, 200},
     .start_lg = {5, 1500, 200},
     .scale = kThousandB,
     .caption = "ln(p/kPa) = A - B / (C + t/°C)",
     .caption_lg = "lg(p/kPa) = A - B / (C + t/°C)",
     .model = antoine,
     .linearised = linearised_antoine,
     .search = {{{2, 50, 350}}},
     .apply = apply_antoine,
     .logarithmic = {true, true},
     .applied_to = "ANTOINE (Lo-p) parameter set of QUOR.",
     .extended = kIncluded},
    {.number = 5,
     .tab = FitTab::VapourPressure,
     .name = "FROST-KALKWARF",
     .parameter_count = 5,
     .start = {50, -5000, 273.15, kDefaultD0, 5},
     .start_lg = {20, -3000, 273.15, kDefaultD0, 5},
     .scale = kThousandB,
     .fixed = {false, false, true},
     .caption = kFrostCaption,
     .caption_lg = kFrostCaptionLg,
     .model = frost_kalkwarf,
     .linearised = linearised_frost,
     .search = {{{2, 223.15, 323.15}}},
     .apply = apply_frost,
     .logarithmic = {true, true, false, false, true},
     .applied_to = kFrostSet,
     .extended = kIncludedExtended},
    {.number = 6,
     .tab = FitTab::VapourPressure,
     .name = "FROST-KALKWARF/THODOS",
     .parameter_count = 5,
     .start = {20, 0, 273.15, 5, 5},
     .start_lg = {20, 0, 273.15, 5, 5},
     .scale = kThousandB,
     .fixed = {false, false, true, true},
     .caption = kFrostCaption,
     .caption_lg = kFrostCaptionLg,
     .remark = " parameter D, THODOS correlated: D = 1.80 /Tcr * B + 2.67 ",
     .needs_Tcr = true,
     .computed = 3,
     .model = frost_kalkwarf_thodos,
     .linearised = linearised_frost_thodos,
     .search = {{{2, 223.15, 323.15}}},
     .apply = apply_frost_thodos,
     .logarithmic = {true, true, false, false, true},
     .applied_to = kFrostSet,
     .extended = kIncludedExtended},
    {.number = 7,
     .tab = FitTab::VapourPressure,
     .name = " RIEDEL/PLANK/MILLER equation",
     .parameter_count = 5,
     .start = {20, -1500, -1, 1e-5, 2},
     .start_lg = {20, -1500, -1, 1e-5, 2},
     .scale = {1, 1000, 1, 1e-5, 1, 1, 1},
     .fixed = {false, false, false, false, true},
     .labels = {"A = ", "B = ", "D = ", "H = ", "I = "},
     .caption = "ln(p/kPa) = A + B / (T/K) + D ln(T/K) + H(T/K)^I",
     .caption_lg = "lg(p/kPa) = A + B / (T/K) + D lg(T/K) + H(T/K)^I",
     .model = riedel_plank_miller,
     .linearised = linearised_riedel,
     .search = {{{4, 1, 6}}},
     .apply = apply_riedel,
     .logarithmic = {true, true, false, true},
     .applied_to = kFrostSet,
     .extended = kIncludedExtended},
    {.number = 8,
     .tab = FitTab::VapourPressure,
     .name = "WAGNER",
     .parameter_count = 4,
     .start = {1, 1, 1, 1},
     .start_lg = {1, 1, 1, 1},
     .caption = "ln(p/pcr) = (A X + B X^1.5 + C X^3 + D X^6) / (T/Tcr)  (mit X = 1 - T/Tcr)",
     .needs_Tcr = true,
     .needs_pcr = true,
     .model = wagner,
     .linearised = linearised_wagner,
     .apply = apply_wagner},
    {.number = 9,
     .tab = FitTab::LDensity,
     .name = "RACKETT  (DIPPR)",
     .parameter_count = 3,
     .start = {75, 0.3, 0.24},
     .start_lg = {75, 0.3, 0.24},
     .caption = "rho(L) = A / ( B^(X^C) )    mit X = 1 + T/Tcr",
     .needs_Tcr = true,
     .model = rackett,
     .linearised = linearised_rackett,
     .logged = {true, true},
     .search = {{{2, 0.1, 0.6}}},
     .apply = apply_rackett},
    {.number = 10,
     .tab = FitTab::LDensity,
     .name = "LEUNA equation",
     .parameter_count = 5,
     .start = {500, -1, 0.002, -2e-6, 500},
     .start_lg = {500, -1, 0.002, -2e-6, 500},
     .scale = {1, 1, 1e-3, 1e-6, 1, 1, 1},
     .caption = "rho(L) = A + B (T/K) + C (T/K)^2 + D (T/K)^3 + E (1 - T/Tcr)^1/3",
     .needs_Tcr = true,
     .model = leuna,
     .linearised = linearised_leuna,
     .apply = apply_leuna},
    {.number = 11,
     .tab = FitTab::LDensity,
     .name = "Polynomial",
     .parameter_count = 4,
     .start = {600, 1, -0.001, -1e-6},
     .start_lg = {600, 1, -0.001, -1e-6},
     .scale = {10, 1, 1e-3, 1e-6, 1, 1, 1},
     .caption = "rho(L) = A + B T +  C  T^2 +  D T^3 +  E T^4",
     .model = cubic,
     .linearised = linearised_cubic,
     .apply = apply_density_polynomial},
    {.number = 14,
     .tab = FitTab::Vaporisation,
     .name = "MAJER equation",
     .parameter_count = 3,
     .start = {30000, 0.3, 0.3},
     .start_lg = {30000, 0.3, 0.3},
     .scale = {1000, 1, 1, 1, 1, 1, 1},
     .labels = {"A = ", "alpha = ", "beta = "},
     .caption = "delta(LV)h = A*(1-Tr)^beta  exp(-alpha Tr)",
     .needs_Tcr = true,
     .model = majer,
     .linearised = linearised_majer,
     .logged = {true},
     .apply = apply_majer},
    {.number = 15,
     .tab = FitTab::Vaporisation,
     .name = "DIPPR equation",
     .parameter_count = 5,
     .start = {30000, 0.3, 0.3, 0, 0},
     .start_lg = {30000, 0.3, 0.3, 0, 0},
     .scale = {1000, 1, 1, 1, 1, 1, 1},
     .caption = "delta(LV)h = A*(1-Tr)^(B + C*Tr + D*Tr^2 + E*Tr^3)",
     .needs_Tcr = true,
     .model = dippr_vaporisation,
     .linearised = linearised_dippr_vaporisation,
     .logged = {true},
     .apply = apply_dippr_vaporisation},
    {.number = 16,
     .tab = FitTab::HeatCapacity,
     .name = "Polynomial",
     .parameter_count = 5,
     .start = {20, 0.02, -1e-5, -1e-8, 0},
     .start_lg = {20, 0.02, -1e-5, -1e-8, 0},
     .scale = {1, 1, 1e-5, 1e-8, 1e-10, 1, 1},
     .caption = "cp = A + B T +  C  T^2 +  D T^3 +  E T^4",
     .model = cubic,
     .linearised = linearised_cubic,
     .apply = apply_cp_polynomial},
    {.number = 17,
     .tab = FitTab::HeatCapacity,
     .name = "SHOMATE equation",
     .parameter_count = 5,
     .start = {30, 0.2, -2e-5, -1e-8, -1e6},
     .start_lg = {30, 0.2, -2e-5, -1e-8, -1e6},
     .scale = {1, 1, 1e-5, 1e-8, 1e6, 1, 1},
     .caption = "cp = A + B T +  C T^2 + DT^3 +  E/ (T^2)",
     .model = shomate,
     .linearised = linearised_shomate,
     .apply = apply_shomate},
    {.number = 18,
     .tab = FitTab::HeatCapacity,
     .name = "DIPPR equation cp(IdGas)",
     .parameter_count = 5,
     .start = {60, 300, 1500, 200, 500},
     .start_lg = {60, 300, 1500, 200, 500},
     .scale = {1000, 1000, 1000, 1000, 1000, 1, 1},
     .caption = "cp = A + B*((C/T)/sinh(C/T))^2 + D*((E/T)/cosh(E/T))^2",
     .model = dippr_heat_capacity,
     .linearised = linearised_dippr_heat_capacity,
     .search = {{{2, 200, 4000}, {4, 100, 3000}}},
     .apply = apply_cp_sinh},
}};

}  // namespace

std::string_view tab_caption(FitTab tab) {
    constexpr std::array<std::string_view, 5> captions{"General", "Vapour pressure", "L-Density",
                                                       "delta(LV)h", "Heat capac."};
    return captions[static_cast<std::size_t>(tab)];
}

std::string_view unit_text(FitTab tab) {
    constexpr std::array<std::string_view, 5> units{
        "", "", "liquid density     [rho(L)] = kg/m^3",
        "mol. enthalpy of vapor.     [delta(LV)h] = kJ/kmol, Tr = T/T(cr)",
        "mol. heat capacity       [cp] = kJ/(kmol K),  [T] = K "};
    return units[static_cast<std::size_t>(tab)];
}

std::span<const FitModelRow> fit_models() {
    return kModels;
}

const FitModelRow* find_model(std::int16_t number) {
    const auto it = std::find_if(kModels.begin(), kModels.end(),
                                 [number](const FitModelRow& row) { return row.number == number; });
    return it == kModels.end() ? nullptr : &*it;
}

Parameters start_values(const FitModelRow& row, bool lg, double Tcr) {
    Parameters start = lg && !row.caption_lg.empty() ? row.start_lg : row.start;
    if (row.number == 5 && Tcr > kLeastTcritForD) start[3] = 1.8 * start[1] / Tcr + 2.67;
    if (row.number == 6) start[1] = -12 * Tcr / 1.8;
    return start;
}

bool choose_model(FitState& state, std::int16_t number) {
    const FitModelRow* row = find_model(number);
    if (row == nullptr) return false;
    state.model = number;
    state.parameter_count = row->parameter_count;
    state.scale = row->scale;
    state.fixed = row->fixed;
    state.Tcr = row->needs_Tcr ? state.substance.Tcrit : 0;
    state.pcr = row->needs_pcr ? state.substance.pcrit : 0;
    state.start = start_values(*row, state.lg, state.substance.Tcrit);
    state.fitted = false;
    state.parameters = {};
    state.std_dev = {};
    state.sum_of_squares = state.residual_deviation = 0;
    state.report = {};
    return true;
}

void change_Tcr(FitState& state, double Tcr) {
    const FitModelRow* row = find_model(state.model);
    const bool follow =
        row != nullptr && row->needs_Tcr && state.start == start_values(*row, state.lg, state.Tcr);
    state.Tcr = Tcr;
    if (follow) state.start = start_values(*row, state.lg, Tcr);
}

bool is_same_function(const FitSettings& a, const FitSettings& b) {
    FitSettings alike = b;
    alike.start = a.start;
    alike.fixed = a.fixed;
    alike.logarithmic = a.logarithmic;
    alike.cp_phase = a.cp_phase;
    return alike == a;
}

bool is_linear(const FitState& state) {
    const FitModelRow* row = find_model(state.model);
    return row != nullptr && row->basis != nullptr;
}

ModelContext context_of(const FitState& state) {
    const FitModelRow* row = find_model(state.model);
    const bool decadic = state.lg && row != nullptr && !row->caption_lg.empty();
    return {decadic ? constants::kLn10 : 1.0, state.Tcr, state.pcr};
}

bool evaluate_fit(const FitState& state, double x, double& y) {
    const FitModelRow* row = find_model(state.model);
    return row != nullptr && row->model(x, state.parameters, context_of(state), y);
}

}  // namespace quor::estimation
