#include "diagrams/prepare_2d.h"

#include <exception>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/catalogue.h"
#include "diagrams/coordinates.h"
#include "session/module2.h"

namespace Module9 {

namespace {

using constants::kPresent;
using Declare::DiagramRequest;
using Declare::session;

constexpr std::uint8_t kRangeOfFunctions = 7;  // `ProcessLineRecord::Kind`

void settle_state_parameters(std::int16_t code) {
    const Declare::SubstanceRecord& s = Declare::substance;
    Declare::CoordinateDefaults& d = Declare::coordinates;
    if (session.NewSubstanceDiagram) {
        session.DiagramT = s.Tcrit;
        d.TMax = numbers::ToSingle(s.Tcrit * 1.1 * static_cast<double>(session.TemperatureFactor));
        d.pMax = numbers::ToSingle(s.pcrit * 1.6 * static_cast<double>(session.PressureFactor));
    }
    if (session.NewSubstanceDiagram || session.DiagramP == s.pcrit) {
        const bool nearNormalPressure = code >= 13 && code <= 99;
        session.DiagramV = 0;
        session.DiagramP = nearNormalPressure ? constants::kNormalPressure : s.pcrit;
    }
    session.NewSubstanceDiagram = false;

    if (session.DiagramV < kPresent) {
        session.DiagramV = Declare::eosParameters.vcritCalc;
        if (session.DiagramV < kPresent) session.DiagramV = s.vcritExp;
        if (session.DiagramV < kPresent) session.DiagramV = 2.0;
    }
}

void call(const std::function<void()>& view) {
    if (view) view();
}

void open_views(const DiagramRequest& request) {
    const Diagram2DViews& views = Views2D();
    call(views.openDiagram);
    if (request.sectionKind == kDatabase) {
        if (views.showDatabaseFunction)
            views.showDatabaseFunction(request.validityLow, request.validityHigh);
        return;
    }
    if (request.sectionKind != kProjection) {
        if (request.axisPair == "yy") {
            Declare::processLine.Kind = kRangeOfFunctions;
            call(views.openRangeInput);
        } else {
            call(views.openParameterInput);
        }
    }
    session.TieLineRequested = false;
}

}  // namespace

Diagram2DViews& Views2D() {
    static Diagram2DViews views;
    return views;
}

std::string ViewCaption(const DiagramRequest& request) {
    return " Type of Diagram: " + request.title;
}

void PrepareDiagram2D(DiagramRequest& request) {
    try {
        session.CurveModelName = CurveModelName(request.DiagramType);
        Module2::RefreshUnits();
        settle_state_parameters(request.DiagramType);
        session.CaloricFactor = Module2::CaloricFactorOf(session.CaloricUnit, session.DiagramT);
        FillDiagramWindow(Declare::coordinates, request);
        FillTexts(request);
        session.DiagramIsProjection = request.sectionKind == kProjection;
        open_views(request);
    } catch (const std::exception&) {
        dialogs::Tell(
            "The registration of the 2D graph module \\...\\olch8x2.ocx during the installation "
            "process failed.\nPlease carry out the registration manually (c.f. our website)",
            "Execution not possible");
    }
}

void OpenDiagram2D() {
    const OpeningAnswer answer = AnswerOf(Declare::diagram);
    if (!answer.text.empty())
        dialogs::Tell(answer.text, answer.opens ? "Note" : "Execution not possible");
    if (answer.opens) PrepareDiagram2D(Declare::diagram);
}

}  // namespace Module9
