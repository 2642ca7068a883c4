#include <algorithm>
#include <array>

#include "diagrams/catalogue.h"

namespace quor::Module9 {

namespace {

using D = diagrams::CoordinateDefaults;

constexpr LimitPair kT{&D::TMin, &D::TMax};
constexpr LimitPair kTResidual{&D::TMin, &D::TMaxResidual};
constexpr LimitPair kp{&D::pMin, &D::pMax};
/// The residual functions of p keep the temperature limit as their lower end.
constexpr LimitPair kpResidual{&D::TMin, &D::pMax};
constexpr LimitPair kv{&D::vMin, &D::vMax};
constexpr LimitPair kpv{&D::pvMin, &D::pvMax};
constexpr LimitPair krho{&D::rhoMin, &D::rhoMax};
constexpr LimitPair kinvT{&D::invTMin, &D::invTMax};
constexpr LimitPair klnp{&D::lnpMin, &D::lnpMax};
constexpr LimitPair kdlnp{&D::dlnpMin, &D::dlnpMax};
constexpr LimitPair kvaporisation{&D::vaporisationMin, &D::vaporisationMax};
constexpr LimitPair kcp{&D::cpMin, &D::cpMax};
constexpr LimitPair kfunc{&D::funcMin, &D::funcMax};
constexpr LimitPair kentropy{&D::entropyMin, &D::entropyMax};
constexpr LimitPair kresEntropy{&D::resEntropyMin, &D::resEntropyMax};
constexpr LimitPair kresEnthalpy{&D::resEnthalpyMin, &D::resEnthalpyMax};
constexpr LimitPair kjt{&D::jtMin, &D::jtMax};
constexpr LimitPair kData{};

constexpr std::string_view kAlongIsobar = "  (isobaric section)";
constexpr std::string_view kAlongIsotherm = "  (isothermal section)";
constexpr std::string_view kAlongIsochore = "  (isochoric section)";
constexpr std::string_view kCpTitle =
    "Heat capacity cp (real) = cp(idGas) + Residual value by EOS, at the respective saturation "
    "pressure";
constexpr std::string_view kPressureTitle = "saturation pressure pLV = Fu(T), Datenbankfunktion ";
constexpr std::string_view kPressureSuffix = ", saturation pressure (database function)";

constexpr SubTitle kModel = SubTitle::model;
constexpr SubTitle kFromData = SubTitle::database;

constexpr bool kPrefixed = true;
constexpr bool kPlain = false;

constexpr auto kRows = std::to_array<CatalogueRow>({
    {1, "Isothermal section p - v", kPlain, Axis::v, Axis::p, kv, kp},
    {2, "isothermal section pv-p", kPlain, Axis::p, Axis::pv, kp, kpv},
    {3, "Isobaric section T - v", kPlain, Axis::v, Axis::T, kv, kT},
    {4, "Isobaric Section T - rho", kPlain, Axis::rho, Axis::T, krho, kT},
    {5, "Isochoric section p - T", kPlain, Axis::T, Axis::p, kT, kp},
    {6, "Projection p - v", kPlain, Axis::v, Axis::p, kv, kp},
    {7, "Projection T - v", kPlain, Axis::v, Axis::T, kv, kT},
    {8, "Projection rho - T", kPlain, Axis::T, Axis::rho, kT, krho},
    {9, "Projection p - T", kPlain, Axis::T, Axis::p, kT, kp, SubTitle::vapourPressure},
    {10, "Vapour pressure curve by using ", kPlain, Axis::inverseT, Axis::lnp, kinvT, klnp},
    {11, "dlnp / d(1/T) vs. 1/T for vapour-pressure equation", kPlain, Axis::inverseTSlope,
     Axis::dlnp, kinvT, kdlnp},
    {12, "Projection T - rho", kPlain, Axis::rho, Axis::T, krho, kT},
    {13, "Heat of vaporization delta(LV)h = F(T)", kPrefixed, Axis::T, Axis::deltaLVh, kT,
     kvaporisation, SubTitle::vaporisation},
    {15, "Enthalpy h", kPrefixed, Axis::T, Axis::h, kT, kfunc, kModel, kAlongIsobar},
    {16, "Entropy s", kPrefixed, Axis::T, Axis::s, kT, kentropy, kModel, kAlongIsobar},
    {17, "Gibbs Function g", kPrefixed, Axis::T, Axis::g, kT, kfunc, kModel, kAlongIsobar},
    {18, "Exergy of H", kPrefixed, Axis::T, Axis::e, kT, kfunc, kModel, kAlongIsobar},
    {19, kCpTitle, kPrefixed, Axis::T, Axis::cp, kT, kcp},
    {21, "Exergy of H e vs. Enthalpy, isothermal", kPrefixed, Axis::hSpaced, Axis::e, kfunc, kfunc},
    {22, "Exergy of H e vs. Enthalpy, isobaric", kPrefixed, Axis::hSpaced, Axis::e, kfunc, kfunc},
    {23, "Exergy of H e vs. (T(surr)* entropy), isobaric", kPrefixed, Axis::Tenvs, Axis::e, kfunc,
     kfunc},
    {24, "Enthalpy h vs. Entropy s, isobaric", kPrefixed, Axis::s, Axis::h, kentropy, kfunc},
    {26, "isothermal section rho - p", kPlain, Axis::p, Axis::rho, kp, krho},
    {27, "Projection rho - p", kPlain, Axis::p, Axis::rho, kp, krho},
    {30, "Residual Entropy    (s - s_idG), isobaric", kPrefixed, Axis::T, Axis::deltas, kTResidual,
     kresEntropy},
    {31, "Residual Enthalpy   (h - h_idG), isobaric", kPrefixed, Axis::T, Axis::deltah, kTResidual,
     kresEnthalpy},
    {32, "Residual Gibbs Function  (g - g_idG) = RT ln(phi), isobaric", kPrefixed, Axis::T,
     Axis::deltag, kTResidual, kresEnthalpy},
    {33, "Residual Heat Capacity   (cp - cp_idG), isobaric", kPrefixed, Axis::T, Axis::deltacp,
     kTResidual, kcp},
    {34, "differential Joule-Thomson coefficient by  EOS, isobaric", kPlain, Axis::T,
     Axis::jouleThomson, kTResidual, kjt},
    {40, "Residual Entropy    (s - s_idG), isothermal", kPrefixed, Axis::p, Axis::deltas,
     kpResidual, kresEntropy},
    {41, "Residual Enthalpy   (h - h_idG), isothermal", kPrefixed, Axis::p, Axis::deltah,
     kpResidual, kresEnthalpy},
    {42, "Residual Gibbs Function  (g - g_idG) = RT ln(phi), isothermal", kPrefixed, Axis::p,
     Axis::deltag, kpResidual, kresEnthalpy},
    {43, "Residual Heat Capacity   (cp - cp_idG), isothermal", kPrefixed, Axis::p, Axis::deltacp,
     kpResidual, kcp},
    {90, "Enthalpy H(T) in the phase-equilibrium V - L", kPrefixed, Axis::T, Axis::h, kT, kfunc},
    {91, "Entropy S(T) in the phase-equilibrium V - L", kPrefixed, Axis::T, Axis::s, kT, kentropy},
    {92, "Heat Capacity cp(T) in the phase-equilibrium V - L", kPrefixed, Axis::T, Axis::cp, kT,
     kcp},
    {93, "Gibbs Function g(T) in the phase equilibrium V - L", kPrefixed, Axis::T, Axis::g, kT,
     kfunc},
    {94, "Exergy of H e(T), VLE ", kPrefixed, Axis::T, Axis::e, kT, kfunc},
    {95, "Exergy of U e, VLE", kPrefixed, Axis::T, Axis::e, kT, kfunc},
    {106, "Projection pv - p", kPlain, Axis::p, Axis::pv, kp, kpv},
    {107, "Enthalpy h vs. Entropy s, isothermal", kPrefixed, Axis::s, Axis::h, kentropy, kfunc},
    {109, "Exergy of H e vs. (T(surr)* entropy), isothermal", kPrefixed, Axis::Tenvs, Axis::e,
     kfunc, kfunc},
    {120, "", kPlain, Axis::s, Axis::h, kentropy, kfunc},
    {121, "", kPlain, Axis::Tenvs, Axis::e, kfunc, kfunc},
    {150, "Enthalpy h", kPrefixed, Axis::p, Axis::h, kp, kfunc, kModel, kAlongIsotherm},
    {151, "Entropy s", kPrefixed, Axis::p, Axis::s, kp, kentropy, kModel, kAlongIsotherm},
    {152, "Gibbs Function g", kPrefixed, Axis::p, Axis::g, kp, kfunc, kModel, kAlongIsotherm},
    {153, "Exergy of H", kPrefixed, Axis::p, Axis::e, kp, kfunc, kModel, kAlongIsotherm},
    {154, kCpTitle, kPrefixed, Axis::p, Axis::cp, kp, kcp},
    {155, "Exergy of U e", kPrefixed, Axis::p, Axis::e, kp, kfunc, kModel, kAlongIsotherm},
    {156, "Helmholtz Function a vs. Volume v", kPrefixed, Axis::v, Axis::a, kv, kfunc, kModel,
     kAlongIsotherm},
    {157, "Internal Energy vs. Volume v", kPrefixed, Axis::v, Axis::u, kv, kfunc, kModel,
     kAlongIsotherm},
    {158, "Entropy s vs. Volume", kPrefixed, Axis::v, Axis::s, kv, kentropy},
    {159, "Heat capacity cV vs. volume", kPrefixed, Axis::v, Axis::cV, kv, kcp},
    {160, "Exergy of U e vs. Volume", kPrefixed, Axis::v, Axis::e, kv, kfunc},
    {181, "Exergy of U e", kPrefixed, Axis::T, Axis::e, kT, kfunc, kModel, kAlongIsochore},
    {182, "Helmholtz Function a vs. Temperature T", kPrefixed, Axis::T, Axis::a, kT, kfunc, kModel,
     kAlongIsochore},
    {183, "Internal Energy vs. Temperature T", kPrefixed, Axis::T, Axis::u, kT, kfunc, kModel,
     kAlongIsochore},
    {184, "Entropy s", kPrefixed, Axis::T, Axis::s, kT, kentropy, kModel, kAlongIsochore},
    {185, "Heat Capacity cV(T)            (isochoric)", kPrefixed, Axis::T, Axis::cVIsochoric, kT,
     kcp},
    {190, "Inversion curve delta = 0", kPlain, Axis::p, Axis::pv, kp, kpv},
    {300, "L-density from data-bank function", kPlain, Axis::T, Axis::rho, kData, kData, kFromData,
     ",  L-density, data-bank function, validity T = "},
    {301, "molar volume from database function rho(L) = F(T)", kPlain, Axis::T, Axis::v, kData,
     kData, kFromData, ",  volume from database function, validity T ="},
    {302, "Ideal Gas Heat-Capacity cp = Fu(T), Database Function", kPrefixed, Axis::T,
     Axis::cpDatabase, kData, kData, kFromData, ", ideal gas heat capacity (database function"},
    {303, "Liquid Heat-Capacity cp = Fu(T), Database Function", kPrefixed, Axis::T,
     Axis::cpDatabase, kData, kData, kFromData, ", liquid heat capacity cp(L) (database function)"},
    {304, "Solid Heat-Capacity cp = Fu(T), Database Function", kPrefixed, Axis::T, Axis::cpDatabase,
     kData, kData, kFromData, ", solid gas heat capacity cp(S) (database function)"},
    {305, "Enthalpy of vaporization delta(LV)h = Fu(T), database function", kPrefixed, Axis::T,
     Axis::deltaLVh, kData, kData, kFromData, ", enthalpy of vaporization (database function)"},
    {306, kPressureTitle, kPlain, Axis::T, Axis::p, kData, kData, kFromData, kPressureSuffix},
    {307, kPressureTitle, kPlain, Axis::T, Axis::p, kData, kData, kFromData, kPressureSuffix},
    {308, kPressureTitle, kPlain, Axis::T, Axis::p, kData, kData, kFromData, kPressureSuffix},
    {309, kPressureTitle, kPlain, Axis::T, Axis::p, kData, kData, kFromData, kPressureSuffix},
    {310, "S density from database function", kPlain, Axis::T, Axis::rho, kData, kData, kFromData,
     ", S density, database function"},
});

static_assert(std::is_sorted(kRows.begin(), kRows.end(),
                             [](const CatalogueRow& a, const CatalogueRow& b) {
                                 return a.code < b.code;
                             }));

/// Codes of curves that are only added to the diagram of another code.
struct AddedCurve {
    std::int16_t code, diagram;
};
constexpr auto kAdded = std::to_array<AddedCurve>({
    {70, 150},
    {71, 151},
    {72, 154},
    {73, 152},
    {74, 153},
    {75, 155},
    {80, 8},
    {89, 159},
    {96, 21},
    {97, 156},
    {98, 182},
    {99, 183},
    {100, 157},
    {101, 158},
    {102, 160},
    {105, 5},
});

}  // namespace

std::int16_t diagram_of_curve(std::int16_t code) {
    for (const AddedCurve& curve : kAdded)
        if (curve.code == code) return curve.diagram;
    return code;
}

std::span<const CatalogueRow> Catalogue() {
    return kRows;
}

const CatalogueRow* find_row(std::int16_t DiagramType) {
    const auto row =
        std::lower_bound(kRows.begin(), kRows.end(), DiagramType,
                         [](const CatalogueRow& r, std::int16_t code) { return r.code < code; });
    return row != kRows.end() && row->code == DiagramType ? &*row : nullptr;
}

}  // namespace quor::Module9
