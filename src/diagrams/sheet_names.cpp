#include "diagrams/sheet_names.h"

#include <algorithm>
#include <set>

#include "chart/sheet2d.h"
#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/sheet_places.h"
#include "models/model_tables.h"
#include "models/named_reference.h"

namespace quor::diagrams {

namespace {

using chart::Group;
using chart::Series;

/// T/K and p/kPa in a line of text.
std::string state_text(double T, double p, const models::Units& units) {
    const auto part = [&](Parameter what, double value, const char* unit) {
        const models::Scale* own = own_scale(what, units);
        // A difference of 32-bit numbers has fewer digits than they have.
        constexpr int kDigits = 6;
        if (own != nullptr)
            return numbers::general(own->shown(value), kDigits) + " " + std::string(own->name);
        return numbers::general(static_cast<float>(value)) + " " + unit;
    };
    return part(Parameter::T, T, "K") + ", " + part(Parameter::p, p, "kPa");
}

/// Adds a text to others unless it is empty or among them.
void add_once(std::vector<std::string>& texts, const std::string& text) {
    if (!text.empty() && std::find(texts.begin(), texts.end(), text) == texts.end())
        texts.push_back(text);
}

std::string joined(const std::vector<std::string>& texts, const char* between) {
    std::string all;
    for (const std::string& text : texts) all += (all.empty() ? "" : between) + text;
    return all;
}

}  // namespace

std::string reference_note(const Diagram& diagram, const models::ReferenceState& reference,
                           const models::Units& units) {
    const bool exergy = shows(diagram, Axis::eH) || shows(diagram, Axis::eU);
    bool caloric = exergy;
    for (const Axis axis : {Axis::h, Axis::hSpaced, Axis::s, Axis::g, Axis::a, Axis::u})
        caloric = caloric || shows(diagram, axis);
    if (!caloric) return {};
    const bool over_enthalpy = diagram.x == Axis::h || diagram.x == Axis::hSpaced;
    return reference_text(!exergy || over_enthalpy, exergy, reference, units);
}

namespace {

/// A reference state of the real fluid: its name with what it fixes, or the values of an own one.
std::string named_state(const models::ReferenceState& r, const models::Units& units) {
    using models::Dimension;
    if (r.named != models::NamedState::own) {
        const models::NamedReference& row = *models::named_reference(r.named);
        return std::string(row.name) + ", " + std::string(row.text);
    }
    const auto value = [&](double x, Dimension dimension) {
        const models::Scale& scale = units.of(dimension);
        return numbers::general(static_cast<float>(scale.shown(x))) + " " + std::string(scale.name);
    };
    return "h = " + value(r.own.h, Dimension::energy) +
           ", s = " + value(r.own.s, Dimension::entropy) + " of the " +
           (r.own.vapour ? "vapour" : "liquid") + " at " + state_text(r.own.T, r.own.p, units);
}

}  // namespace

std::string reference_text(bool zero_point, bool surroundings, const models::ReferenceState& r,
                           const models::Units& units) {
    const std::string around =
        surroundings ? "surroundings: " + state_text(r.Tenv, r.penv, units) : std::string();
    if (!zero_point) return around;
    constexpr std::int16_t kConventional = 2, kFormation = 10;
    const bool pressure_set = r.p0 > 0;
    std::string note =
        "reference state: " +
        state_text(static_cast<double>(r.T0),
                   pressure_set ? static_cast<double>(r.p0) : constants::kNormalPressure, units);
    if (r.mode == kConventional) note = "conventional reference state";
    if (r.mode == kFormation) note = "reference state: quantities of formation";
    if (r.named != models::NamedState::none) note = "reference state: " + named_state(r, units);
    return surroundings ? note + "; " + around : note;
}

std::string wrap_title(const std::string& title, std::size_t length) {
    std::string wrapped;
    std::size_t in_line = 0;
    for (const std::string& word : text::split(title, ' ')) {
        const std::size_t more = text::length(word);
        if (in_line > 0 && in_line + 1 + more > length) {
            wrapped += '\n';
            in_line = 0;
        } else if (!wrapped.empty()) {
            wrapped += ' ';
            ++in_line;
        }
        wrapped += word;
        in_line += more;
    }
    return wrapped;
}

namespace {

/// The footer: what the curves were made with, and on which references their values rest.
std::string footer_of(const std::string& titles, const std::vector<std::string>& notes) {
    std::string footer = wrap_title(text::trim(titles), kFooterLine);
    for (const std::string& note : notes) footer += "\n" + wrap_title(note, kFooterLine);
    return footer;
}

void show_footer(DiagramSheet& sheet, const std::string& footer) {
    if (sheet.chart.footer.text == sheet.given_footer) sheet.chart.footer.text = footer;
    sheet.given_footer = footer;
}

}  // namespace

std::string maximum_text(std::optional<double> T, const models::Units& units) {
    if (!T) return {};
    const models::Scale* own = own_scale(Parameter::T, units);
    return std::string(kMaximumCaption) + (own ? std::string(own->name) : "K") + " = " +
           numbers::format(own ? own->shown(*T) : *T, "#####0.0");
}

std::string opening_footer(const DiagramRequest& request, const Basis& basis) {
    std::vector<std::string> notes;
    if (request.diagram != nullptr)
        add_once(notes, reference_note(*request.diagram, basis.reference, basis.units));
    return footer_of(request.texts.sub_title, notes);
}

void show_texts(DiagramSheet& sheet, const Basis& basis) {
    const DiagramTexts& texts = sheet.request.texts;
    sheet.chart.header.text = wrap_title(text::trim(texts.title), kHeaderLine);
    sheet.chart.x.title = text::trim(texts.x);
    sheet.chart.y.title = text::trim(texts.y);
    show_footer(sheet, opening_footer(sheet.request, basis));
}

namespace {

/// The model by which a diagram shows a fluid; empty where the database itself is shown.
std::string model_of(const DiagramSheet& sheet, const SheetCurve& curve) {
    const Diagram* diagram = sheet.request.diagram;
    if (diagram == nullptr || diagram->section == Section::database) return {};
    if (diagram->sub_title == SubTitle::vaporisation)
        return text::trim(models::hlv_name(curve.basis.fluid.models().vaporisation));
    return model_name(*diagram, curve.basis.fluid);
}

bool has_fluid(const SheetCurve& curve) {
    return curve.drawn && !curve.basis.fluid.substance().name.empty();
}

/// Which parts of their origin the curves of a sheet have to name.
struct Distinction {
    bool fluids = false, models = false;
};

Distinction distinction_of(const DiagramSheet& sheet) {
    std::set<std::string> fluids, models;
    for (const SheetCurve& curve : sheet.curves) {
        if (!has_fluid(curve)) continue;
        fluids.insert(curve.basis.fluid.substance().name);
        models.insert(model_of(sheet, curve));
    }
    return {fluids.size() > 1, models.size() > 1};
}

std::string origin_of(const DiagramSheet& sheet, const SheetCurve& curve, Distinction told) {
    if (!has_fluid(curve)) return {};
    std::vector<std::string> parts;
    if (told.fluids) add_once(parts, curve.basis.fluid.substance().name);
    if (told.models) add_once(parts, model_of(sheet, curve));
    return joined(parts, ", ");
}

/// A text behind the name of its fluid; an empty one stays empty.
std::string behind(const std::string& origin, const std::string& text) {
    return origin.empty() || text.empty() ? text : origin + " " + text;
}

void show_name(DiagramSheet& sheet, int place, Distinction told) {
    SheetCurve& curve = sheet.curves[at(place)];
    Series& series = chart::series_at(sheet.chart, Group::Curves, place);
    const std::string origin = origin_of(sheet, curve, told);
    const CurveName shown{behind(origin, curve.name.legend), behind(origin, curve.name.label)};
    if (series.legend == curve.given.legend) series.legend = shown.legend;
    if (series.label.text == curve.given.label) series.label.text = shown.label;
    curve.given = shown;
}

}  // namespace

void name_curve(DiagramSheet& sheet, int place, const CurveName& name) {
    if (!is_drawn(sheet, place)) return;
    SheetCurve& curve = sheet.curves[at(place)];
    Series& series = chart::series_at(sheet.chart, Group::Curves, place);
    series.legend.clear();
    series.label.text.clear();
    curve.name = name;
    curve.given = {};
    show_name(sheet, place, distinction_of(sheet));
}

void name_fluids(DiagramSheet& sheet) {
    const Distinction told = distinction_of(sheet);
    std::vector<std::string> titles, notes;
    for (std::size_t i = 0; i < sheet.curves.size(); ++i) {
        const SheetCurve& curve = sheet.curves[i];
        if (!curve.drawn) continue;
        show_name(sheet, static_cast<int>(i), told);
        if (!has_fluid(curve)) continue;
        add_once(titles, text::trim(curve.source));
        if (sheet.request.diagram != nullptr)
            add_once(notes, reference_note(*sheet.request.diagram, curve.basis.reference,
                                           curve.basis.units));
    }
    // A sheet without a curve of a fluid keeps the footer that it was opened with.
    if (!titles.empty()) show_footer(sheet, footer_of(joined(titles, "; "), notes));
}

}  // namespace quor::diagrams
