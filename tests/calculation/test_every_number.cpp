// Whatever is asked of whatever substance: every number is one, and text and status agree.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <sstream>

#include "calculation/isotherm.h"
#include "common/numbers.h"
#include "common/text.h"
#include "report/diagnosis.h"
#include "report/iso_calculator.h"
#include "report/protocol.h"
#include "report/result.h"
#include "report/tank_picture.h"
#include "support/draws.h"

using namespace quor;

namespace {

using calculation::Answer;
using calculation::Task;

/// Looks at numbers and keeps the names of those that are none.
class Look {
  public:
    void operator()(const char* name, double value) {
        if (!std::isfinite(value)) bad_ += std::string(bad_.empty() ? "" : ", ") + name;
    }
    void operator()(const char* name, std::optional<double> value) {
        if (value) (*this)(name, *value);
    }
    template <std::size_t N>
    void operator()(const char* name, const std::array<double, N>& values) {
        for (const double value : values) (*this)(name, value);
    }
    template <std::size_t N>
    void operator()(const char* name, const std::array<std::optional<double>, N>& values) {
        for (const std::optional<double>& value : values) (*this)(name, value);
    }
    const std::string& bad() const { return bad_; }

  private:
    std::string bad_;
};

void look_at(Look& look, const calculation::Phases& phases) {
    for (const auto* phase : {&phases.liquid, &phases.vapour}) {
        if (!*phase) continue;
        look("v", (*phase)->v);
        look("rho", (*phase)->rho);
    }
}

void look_at(Look& look, const std::optional<calculation::FunctionPair>& pair) {
    if (!pair) return;
    if (pair->liquid) look("functions L", pair->liquid->z);
    if (pair->vapour) look("functions V", pair->vapour->z);
}

void look_at(Look& look, const calculation::PageValues& pages) {
    look_at(look, pages.phases);
    for (const auto* phase : {&pages.liquid, &pages.vapour}) {
        if (!*phase) continue;
        look("first", (*phase)->table.first);
        look("second", (*phase)->table.second);
        look("residual", (*phase)->table.residual);
        look("mechanical", (*phase)->mechanical);
    }
    look("inflexion v", pages.inflexion.v);
    look("inflexion p", pages.inflexion.p);
    look("inflexion d2p", pages.inflexion.second_derivative);
    look_at(look, pages.functions);
}

void look_at(Look& look, const calculation::VaporisationValues& values) {
    const models::Vaporisation& found = values.found;
    look("raw", found.raw);
    look("found T", found.T);
    look("found p", found.p);
    look("zV", found.zV);
    look("zL", found.zL);
    look("found rhoV", found.rhoV);
    look("found rhoL", found.rhoL);
    look("found v", found.v);
    look("database hLV", values.database);
}

void look_at(Look& look, const Answer& a) {
    look("T", a.T);
    look("p", a.p);
    look_at(look, a.phases);
    look("y", a.y);
    look("pLV", a.pLV);
    look_at(look, a.functions);
    look("hLV", a.hLV);
    if (a.vaporisation) look_at(look, *a.vaporisation);
    if (a.tank) {
        look("tank V", a.tank->V);
        look("tank m", a.tank->m);
        look("tank vapour", a.tank->vapour_volume);
        look("tank rhoL", a.tank->rhoL);
        look("tank rhoV", a.tank->rhoV);
        look("tank y", a.tank->y);
        look("tank level", a.tank->level());
    }
    if (a.database) look("database", a.database->value);
    for (const calculation::VirialValue& virial : a.virials) look("virial", virial.B);
    look("active virial", a.active_virial);
    for (const calculation::ProcessState& state : a.process) {
        look("process v", state.v);
        if (state.functions) look("process functions", state.functions->z);
    }
    if (a.parameters) {
        look("a", a.parameters->a);
        look("b", a.parameters->b);
        look("c", a.parameters->c);
        look("d", a.parameters->d);
    }
    look("B", a.B);
    if (a.pages) look_at(look, *a.pages);
}

void look_at(Look& look, const report::ResultRecord& r) {
    const auto single = [&](const char* name, float value) {
        look(name, static_cast<double>(value));
    };
    single("record T", r.T);
    single("record p", r.p);
    single("record rhoV", r.rhoV);
    single("record rhoL", r.rhoL);
    single("record hLV", r.hLV);
    for (const report::PhaseRecord* phase : {&r.vapour, &r.liquid}) {
        look("record functions", phase->caloric);
        look("record pages", phase->extended);
    }
}

bool is_blank(const report::ResultRecord& r) {
    return r.phases == "   " && r.T == 0 && r.p == 0 && r.rhoV == 0 && r.rhoL == 0 && r.hLV == 0;
}

/// Some words tell of the failure: a field, a red line, or a box.
bool is_told(const report::TaskResult& result) {
    const report::Report& r = result.report;
    const bool red = r.par1.red || r.par2.red || r.co1.red || r.co2.red;
    const bool line = std::any_of(r.lines.begin(), r.lines.end(),
                                  [](const report::ListLine& one) { return !one.text.empty(); });
    const bool tank =
        is_tank(result.request.task) && report::describe_tank(report::tank_state_of(result)).error;
    return red || line || tank || !r.co2.text.empty() ||
           !messages(result, report::Tell::all).empty();
}

/// What is wrong with a result; empty when nothing is.
std::string fault_of(const report::TaskResult& result) {
    const Answer& a = result.answer;
    Look look;
    if (a.ok()) {
        look_at(look, a);
        if (a.diagnosable) {
            look("last T", a.last.T);
            look("last p", a.last.p);
            look("last v", a.last.v);
        }
    }
    look("numbers", result.numbers);
    look_at(look, result.record);
    if (!look.bad().empty()) return "no number: " + look.bad();
    for (const std::string& text :
         {report::result_as_text(result.report), report::result_as_table(result.report)})
        for (const std::string& line : text::lines(text))
            if (has_no_number(line)) return "in the text: " + line + "\n" + text;
    for (const dialogs::Message& message : messages(result, report::Tell::all))
        if (has_no_number(message.text)) return "in a message: " + message.text;
    if (is_tank(result.request.task)) {
        const report::TankPicture tank = report::describe_tank(report::tank_state_of(result));
        look("tank picture", tank.level);
        if (has_no_number(tank.p_text) || has_no_number(tank.level_text) || !look.bad().empty())
            return "in the tank: " + tank.p_text + tank.level_text;
        if (tank.error != result.failed()) return "a tank that tells otherwise than its list";
    }
    if (!result.failed()) {
        if (!a.fault.empty()) return "a result with the fault " + a.fault;
        return {};
    }
    if (!is_blank(result.record)) return "a failure that is kept as a result";
    if (result.report.phases != "   ") return "a failure with phases";
    if (a.diagnosable && result.report.diagnosis.enabled) return "a failure with a diagnosis";
    if (!is_told(result)) return "a failure that nobody is told of";
    return {};
}

/// What was drawn, as far as it takes to see a failure again.
std::string described(const models::Fluid& fluid, const calculation::Request& request) {
    std::ostringstream out;
    out << fluid.substance().name << " eos " << static_cast<int>(fluid.models().eos) << " vp "
        << static_cast<int>(fluid.models().vapour_pressure) << " hlv "
        << static_cast<int>(fluid.models().vaporisation) << " cp "
        << static_cast<int>(fluid.models().cp_form) << " task " << code_of(request.task)
        << (request.method.global ? " global" : " partial") << " T " << request.given.T << " p "
        << request.given.p << " rhoV " << request.given.rhoV << " rhoL " << request.given.rhoL
        << " V " << request.tank.V << " m " << request.tank.m << " Ttank " << request.tank.T;
    return out.str();
}

calculation::Request drawn_request(Draws& draw, const models::SubstanceRecord& s) {
    calculation::Request request;
    request.task = calculation::task_of_code(draw.between(0, calculation::kTaskCount - 1));
    request.given.T = draw.near(s.Tcrit / 2);
    request.given.p = draw.near(s.pcrit / 2);
    const auto density = [&] {
        return draw.once_in(4) ? draw.any_single() : static_cast<float>(draw.share() * 1500.0);
    };
    request.given.rhoV = density();
    request.given.rhoL = draw.once_in(2) ? request.given.rhoV : density();
    if (draw.once_in(8)) request.given.hLV = draw.any_single();
    request.measured = draw.once_in(3);
    request.method = {.global = draw.once_in(2),
                      .liquid_by_benson = draw.once_in(2),
                      .assumed_vle = draw.once_in(2),
                      .reference = {}};
    if (draw.once_in(2)) request.method.reference = {231.0F, 101.0F, 580.0F, 2.4F};
    if (draw.once_in(8))
        request.method.reference = {draw.any_single(), draw.any_single(), draw.any_single(),
                                    draw.any_single()};
    request.pages = {
        .residual = draw.once_in(3), .derivatives = draw.once_in(3), .functions = draw.once_in(3)};
    request.tank = {
        .V = draw.once_in(4) ? draw.any_single() : static_cast<float>(draw.share()),
        .m = draw.once_in(4) ? draw.any_single() : static_cast<float>(500.0 * draw.share()),
        .T = draw.once_in(4) ? draw.any_single() : static_cast<float>(draw.share() * 600.0)};
    request.process = {.T1 = request.given.T,
                       .p1 = request.given.p,
                       .exponent = draw.near(1.4),
                       .kappa = draw.near(1.4),
                       .liquid = draw.once_in(2),
                       .points = {}};
    for (int i = draw.between(0, 3); i > 0; --i)
        request.process.points.push_back({draw.near(s.Tcrit / 2), draw.near(s.pcrit / 2)});
    return request;
}

/// Kinds of failures, each with its count and the first of them in full.
class Failures {
  public:
    /// What went wrong; its first line, without figures, is its kind.
    void add(int draw, const std::string& what, const std::string& asked) {
        std::string kind = what.substr(0, what.find('\n'));
        std::erase_if(kind,
                      [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; });
        One& one = kinds_[kind];
        if (++one.count == 1)
            one.first = "draw " + std::to_string(draw) + ": " + what + "\n  " + asked;
    }
    ~Failures() {
        for (const auto& [kind, one] : kinds_) ADD_FAILURE() << one.count << " like " << one.first;
    }
    Failures() = default;
    Failures(const Failures&) = delete;
    Failures& operator=(const Failures&) = delete;

  private:
    struct One {
        int count = 0;
        std::string first;
    };
    std::map<std::string, One> kinds_;
};

TEST(EveryNumber, OfACalculationIsOneWhateverIsAskedOfWhateverSubstance) {
    Draws draw(20240117);
    Failures failures;
    int good = 0;
    const int count = draws_of(100000);
    for (int i = 0; i < count; ++i) {
        const models::Fluid fluid = draw.fluid();
        const calculation::Request request = drawn_request(draw, fluid.substance());
        const report::TaskResult result =
            report::make_result(fluid, draw.reference(), draw.units(), request);
        if (!result.failed()) ++good;
        const std::string fault = fault_of(result);
        if (!fault.empty()) failures.add(i, fault, described(fluid, request));
    }
    // Draws that all fail would show nothing.
    EXPECT_GT(good, count / 5);
    EXPECT_LT(good, count * 4 / 5);
}

/// What is wrong with the diagnosis of a state; empty when nothing is.
std::string fault_of(const report::Diagnosis& d) {
    Look look;
    for (const auto* line : {&d.isotherm, &d.area_below, &d.area_above})
        for (const calculation::IsothermPoint& point : *line) {
            look("isotherm v", point.v);
            look("isotherm p", point.p);
        }
    look("p(LV)", d.saturation_pressure);
    look("lowest p", d.p_min);
    look("highest p", d.p_max);
    for (const report::RootRow& root : d.roots) {
        look("root", root.v);
        if (has_no_number(root.value)) return "in the text: " + root.value;
    }
    return look.bad().empty() ? "" : "no number: " + look.bad();
}

TEST(EveryNumber, OfADiagnosisIsOne) {
    Draws draw(20240120);
    Failures failures;
    int good = 0;
    const int count = draws_of(20000);
    for (int i = 0; i < count; ++i) {
        const models::Fluid fluid = draw.fluid();
        const calculation::Request request = drawn_request(draw, fluid.substance());
        const calculation::Answer answer = calculation::calculate(fluid, draw.reference(), request);
        if (!answer.diagnosable) continue;
        ++good;
        const std::string fault = fault_of(report::diagnose(fluid, answer.last));
        if (!fault.empty()) failures.add(i, fault, described(fluid, request));
    }
    EXPECT_GT(good, count / 50);
}

/// A text as it may be typed in a field of a number.
std::string typed(Draws& draw, double ordinary) {
    static const std::vector<std::string> worst = {"0",   "-5",    "1E-300",  "1E300", "nan", "inf",
                                                   "",    "1E400", "-1E-400", "x",     ",",   "1,5",
                                                   "1 0", "1E38",  "1E",      "-"};
    return draw.once_in(2) ? draw.one_of(worst)
                           : numbers::general_point(ordinary * 2.0 * draw.share());
}

TEST(EveryNumber, OfAnIsoCalculatorIsOneWhateverIsTyped) {
    Draws draw(20240121);
    Failures failures;
    int found = 0;
    const int count = draws_of(3000);
    for (int i = 0; i < count; ++i) {
        const models::Fluid fluid = draw.fluid();
        const models::SubstanceRecord& s = fluid.substance();
        const calculation::Request request =
            report::functions_request(draw.near(s.Tcrit / 2), draw.near(s.pcrit / 2));
        const report::TaskResult state =
            report::make_result(fluid, draw.reference(), draw.units(), request);
        if (state.failed()) continue;
        report::IsoCalculator iso(state, static_cast<calculation::IsoFunction>(draw.between(1, 8)),
                                  static_cast<calculation::IsoGiven>(draw.between(1, 2)));
        iso.choose_phase(draw.once_in(2));
        const bool is_T = iso.given == calculation::IsoGiven::T;
        const bool done = iso.calculate(draw.once_in(2) ? iso.constant_text : typed(draw, 1000),
                                        typed(draw, is_T ? request.given.T : request.given.p));
        if (done) ++found;
        Look look;
        look("T", iso.last_T());
        look("p", iso.last_p());
        std::string fault = look.bad().empty() ? fault_of(iso.last()) : look.bad();
        if (iso.last().failed()) fault += " a failure is kept";
        for (const std::string& text : {iso.constant_text, iso.given_text, iso.sought_text})
            if (done && has_no_number(text)) fault += " in the text: " + text;
        if (!fault.empty()) failures.add(i, fault, described(fluid, request));
    }
    EXPECT_GT(found, count / 50);
}

}  // namespace
