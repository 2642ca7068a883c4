#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "legacy/declare.h"

/// Diagram catalogue, windows, preparation of 2D and 3D diagrams.
namespace quor::Module9 {

/// Values of `DiagramRequest::sectionKind`.
inline constexpr std::int16_t kIsothermal = 1;
inline constexpr std::int16_t kIsobaric = 2;
inline constexpr std::int16_t kIsochoric = 3;
inline constexpr std::int16_t kProjection = 5;
inline constexpr std::int16_t kInversion = 6;
inline constexpr std::int16_t kDatabase = 7;

/// What an axis shows. The caloric families have one text for each `CaloricUnit`, volumes and pv
/// one for each `UnitMode`.
enum class Axis : std::uint8_t {
    T,
    p,
    v,
    rho,
    pv,
    inverseT,       ///< 1/T of the vapour pressure curve
    inverseTSlope,  ///< 1/T of its slope
    lnp,
    dlnp,
    jouleThomson,
    h,
    hSpaced,  ///< as h, with a blank behind the texts of units 1 and 2
    s,
    g,
    a,
    u,
    e,
    cp,
    cpDatabase,
    cV,
    cVIsochoric,
    deltaLVh,
    deltas,
    deltah,
    deltag,
    deltacp,
    Tenvs,
};

/// What stands behind the name of the substance in the second title line.
enum class SubTitle : std::uint8_t {
    model,           ///< the curve's model and the suffix of the row
    vapourPressure,  ///< the vapour pressure equation, unless the EOS has priority
    vaporisation,    ///< the method of the enthalpy of vaporisation
    database,        ///< the suffix and the range of validity
};

/// A pair of limits in `CoordinateDefaults`.
struct LimitPair {
    float diagrams::CoordinateDefaults::*low = nullptr;
    float diagrams::CoordinateDefaults::*high = nullptr;
};

/// One diagram of the catalogue. Codes without a title belong to added curves whose window is the
/// diagram's.
struct CatalogueRow {
    std::int16_t code;
    std::string_view title;
    bool prefixed;  ///< "molar " or "specific " before the title
    Axis x, y;
    LimitPair xLimits, yLimits;  ///< empty for the database functions, whose data fix the window
    SubTitle subTitle = SubTitle::model;
    std::string_view suffix{};
};

std::span<const CatalogueRow> Catalogue();

/// The row of a code; nullptr when the catalogue has none.
const CatalogueRow* find_row(std::int16_t DiagramType);

/// The diagram in which an added curve is drawn: 150 for the equilibrium curve 70. The code itself
/// for a diagram, and for a code of no diagram.
std::int16_t diagram_of_curve(std::int16_t code);

/// Text of an axis by `CaloricUnit` (0 to 3) and `UnitMode` (0 to 2), before reduced overrides.
std::string_view AxisText(Axis axis, std::int16_t CaloricUnit, std::int16_t UnitMode);

/// Texts that take the place of those of the catalogue in reduced mode.
struct ReducedText {
    std::string_view x, y;  ///< empty: the text of the catalogue stays
};
ReducedText reduced_text_of(std::int16_t DiagramType);

/// Title, axis texts and subtitle of `request.DiagramType` for the session's units and models.
/// A code without a row leaves them as they are.
void FillTexts(diagrams::DiagramRequest& request);

/// Name of the model that draws a diagram: the EOS, or the vapour pressure equation.
std::string CurveModelName(std::int16_t DiagramType);

/// What the menu says before a diagram opens, and whether it opens at all.
struct OpeningAnswer {
    bool opens = true;
    std::string text;  ///< empty: nothing is said
};
OpeningAnswer AnswerOf(const diagrams::DiagramRequest& request);

}  // namespace quor::Module9
