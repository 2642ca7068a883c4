#include "diagrams/prepare_2d.h"

#include <exception>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/catalogue.h"
#include "diagrams/coordinates.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using constants::kPresent;
using diagrams::DiagramRequest;
using legacy::the_session;

constexpr std::uint8_t kRangeOfFunctions = 7;  // `ProcessLineRecord::Kind`

void settle_state_parameters(std::int16_t code) {
    const models::SubstanceRecord& s = legacy::the_substance;
    diagrams::CoordinateDefaults& d = legacy::the_coordinates;
    if (the_session.NewSubstanceDiagram) {
        the_session.DiagramT = s.Tcrit;
        d.TMax =
            numbers::to_single(s.Tcrit * 1.1 * static_cast<double>(the_session.TemperatureFactor));
        d.pMax =
            numbers::to_single(s.pcrit * 1.6 * static_cast<double>(the_session.PressureFactor));
    }
    if (the_session.NewSubstanceDiagram || the_session.DiagramP == s.pcrit) {
        const bool nearNormalPressure = code >= 13 && code <= 99;
        the_session.DiagramV = 0;
        the_session.DiagramP = nearNormalPressure ? constants::kNormalPressure : s.pcrit;
    }
    the_session.NewSubstanceDiagram = false;

    if (the_session.DiagramV < kPresent) {
        the_session.DiagramV = legacy::the_eosParameters.vcritCalc;
        if (the_session.DiagramV < kPresent) the_session.DiagramV = s.vcritExp;
        if (the_session.DiagramV < kPresent) the_session.DiagramV = 2.0;
    }
}

void call(const std::function<void()>& view) {
    if (view) view();
}

void open_views(const DiagramRequest& request) {
    const Diagram2DViews& views = views2_d();
    call(views.openDiagram);
    if (request.sectionKind == kDatabase) {
        if (views.showDatabaseFunction)
            views.showDatabaseFunction(request.validityLow, request.validityHigh);
        return;
    }
    if (request.sectionKind != kProjection) {
        if (request.axisPair == "yy") {
            legacy::the_processLine.Kind = kRangeOfFunctions;
            call(views.openRangeInput);
        } else {
            call(views.openParameterInput);
        }
    }
    the_session.TieLineRequested = false;
}

}  // namespace

Diagram2DViews& views2_d() {
    static Diagram2DViews views;
    return views;
}

std::string view_caption(const DiagramRequest& request) {
    return " Type of Diagram: " + request.title;
}

void prepare_diagram2_d(DiagramRequest& request) {
    try {
        the_session.CurveModelName = CurveModelName(request.DiagramType);
        session::refresh_units();
        settle_state_parameters(request.DiagramType);
        the_session.CaloricFactor =
            session::caloric_factor_of(the_session.CaloricUnit, the_session.DiagramT);
        fill_diagram_window(legacy::the_coordinates, request);
        FillTexts(request);
        the_session.DiagramIsProjection = request.sectionKind == kProjection;
        open_views(request);
    } catch (const std::exception&) {
        dialogs::tell(
            "The registration of the 2D graph module \\...\\olch8x2.ocx during the installation "
            "process failed.\nPlease carry out the registration manually (c.f. our website)",
            "Execution not possible");
    }
}

void open_diagram2_d() {
    const OpeningAnswer answer = AnswerOf(legacy::the_diagram);
    if (!answer.text.empty())
        dialogs::tell(answer.text, answer.opens ? "Note" : "Execution not possible");
    if (answer.opens) prepare_diagram2_d(legacy::the_diagram);
}

}  // namespace quor::Module9
