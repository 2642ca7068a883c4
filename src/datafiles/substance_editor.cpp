#include "datafiles/substance_editor.h"

#include <cmath>

#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/substance_slots.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"

namespace quor::datafiles {

namespace {

using constants::kPresent;
using models::SubstanceRecord;

constexpr const char* kEmpty = "<>";
constexpr const char* kZero = " 0";
constexpr const char* kStoredZeroText = "1E-37";
/// Up to this a value is the real zero of the files, 1E-37; 0 itself means that there is no value.
constexpr double kLargestStoredZero = 2e-37;

constexpr int kTboil = 1;
constexpr int kTcrit = 4;
constexpr int kPcrit = 5;
constexpr int kCpSinhC2 = 37;

/// The first field of a correlated set and its number of fields.
struct FieldBlock {
    int first, count;
};
constexpr FieldBlock kAugustBlock{46, 2};
constexpr FieldBlock kThompsonBlock{48, 3};
constexpr FieldBlock kVanDerWaalsBlock{86, 11};
constexpr FieldBlock kRedlichBlock{97, 11};

constexpr auto kIndexKFW = models::VapourPressureEquation::frostVanDerWaals;
constexpr auto kIndexKFR = models::VapourPressureEquation::frostRedlichKwong;
constexpr auto kIndexTHO = models::VapourPressureEquation::thompson;

const EditorField& field_of(int index) {
    return editor_field_table()[static_cast<std::size_t>(index)];
}

/// Numbers carry a blank where a minus sign would stand.
std::string signed_text(std::string number) {
    return number.front() == '-' ? number : " " + number;
}

template <class Real>
std::string shown_number(Real value) {
    if (value == 0) return kEmpty;
    if (std::fabs(static_cast<double>(value)) < kLargestStoredZero) return kZero;
    const std::string general = numbers::general_point(value);
    const bool whole = static_cast<Real>(numbers::val(general)) == value;
    return signed_text(whole ? general : exact(value));
}

/// A value of the record as the editor shows it.
struct Shown {
    std::string operator()(float value) const { return editor_text(value); }
    std::string operator()(double value) const { return editor_text(value); }
    std::string operator()(std::int16_t value) const {
        return editor_text(static_cast<float>(value));
    }
    std::string operator()(bool) const { return {}; }
    std::string operator()(const std::string& value) const { return text::trim_right(value); }
};

std::string shown_text(const EditorField& field, const SubstanceRecord& s) {
    return std::visit(Shown{}, value_of(s, place_of(field)));
}

void show_block(const FieldBlock& block, const SubstanceRecord& s, EditorTexts& texts) {
    for (int i = block.first; i < block.first + block.count; ++i)
        texts[static_cast<std::size_t>(i)] = shown_text(field_of(i), s);
}

void clear_block(const FieldBlock& block, EditorTexts& texts) {
    for (int i = block.first; i < block.first + block.count; ++i)
        texts[static_cast<std::size_t>(i)].clear();
}

bool has_critical_data(const SubstanceRecord& s) {
    return s.Tcrit >= kPresent && s.pcrit >= kPresent;
}

void correlate_sets(SubstanceRecord& s) {
    for (const models::VapourPressureEquation index : {kIndexKFW, kIndexKFR, kIndexTHO})
        models::correlate_vapour_pressure(s, index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
}

void show_correlated_sets(const SubstanceRecord& s, EditorTexts& texts) {
    for (const FieldBlock& block : {kThompsonBlock, kVanDerWaalsBlock, kRedlichBlock})
        show_block(block, s, texts);
}

/// The user's zeros become 1E-37, empty fields "<>".
void normalise_texts(EditorTexts& texts) {
    for (const EditorField& field : editor_field_table()) {
        std::string& content = texts[static_cast<std::size_t>(field.index)];
        const std::string trimmed = text::trim(content);
        if (trimmed.empty()) {
            content = kEmpty;
        } else if (!field.is_text() && numbers::typed_number(trimmed) == 0.0) {
            content = kStoredZeroText;
        }
    }
}

/// Stores the text of a field that `holds_value`, empty for none; throws `faults::Fault` beyond the
/// field's range.
struct Read {
    std::string content;

    double number() const { return numbers::typed_number(content).value_or(0); }
    void operator()(float* field) const { *field = numbers::to_single(number()); }
    void operator()(double* field) const { *field = number(); }
    void operator()(std::int16_t* field) const { *field = numbers::to_int16(number()); }
    void operator()(bool*) const {}
    void operator()(std::string* field) const { *field = content; }
};

/// Reads one field. A text that still shows the value leaves it, so that no digit is lost.
void read_field(const EditorField& field, const std::string& content, SubstanceRecord& s) {
    if (content == shown_text(field, s)) return;
    const std::string trimmed = text::trim(content);
    std::visit(Read{trimmed == kEmpty ? "" : trimmed}, locate(s, place_of(field)));
}

/// The measured equations that a substance without an active one is searched for.
void choose_equation(const SubstanceRecord& s, models::ModelSelection& models) {
    using enum models::VapourPressureEquation;
    if (models.vapour_pressure != none) return;
    if (s.antoine_high.T_low > 0) models.vapour_pressure = antoineHigh;
    if (s.antoine_low.T_low > 0) models.vapour_pressure = antoineLow;
}

}  // namespace

std::string editor_text(float value) {
    return shown_number(value);
}

std::string editor_text(double value) {
    const float single = single_or_zero(value);
    return static_cast<double>(single) == value ? shown_number(single) : shown_number(value);
}

EditorTexts show_record(const SubstanceRecord& substance) {
    SubstanceRecord s = substance;
    if (has_critical_data(s)) correlate_sets(s);
    EditorTexts texts;
    for (const EditorField& field : editor_field_table())
        texts[static_cast<std::size_t>(field.index)] = shown_text(field, s);
    if (!has_critical_data(s))
        for (const FieldBlock& block : {kThompsonBlock, kVanDerWaalsBlock, kRedlichBlock})
            clear_block(block, texts);
    return texts;
}

std::optional<char> filter_key(const EditorField& field, char typed) {
    constexpr std::string_view accepted = "0123456789Ee-.\r\n\b\x7f";
    if (field.is_text()) return typed;
    if (typed == ',') return '.';
    return accepted.find(typed) == std::string_view::npos ? std::nullopt : std::optional(typed);
}

bool holds_value(const EditorField& field, std::string_view typed) {
    const std::string content = text::trim(typed);
    return field.is_text() || content.empty() || content == kEmpty ||
           numbers::typed_number(content).has_value();
}

void form_derived_values(SubstanceRecord& s) {
    s.formula_compact = text::remove_blanks(s.formula);
    s.vcrit_measured = s.rhocrit > kPresent ? static_cast<double>(s.M) / s.rhocrit : 0;
    mend_sinh(s.cp_sinh_cosh);
    form_cp_flags(s);
    form_entropy(s, s.dfs);
}

EditorApplied apply_editor(EditorTexts& texts, SubstanceRecord& s, models::ModelSelection& models) {
    EditorApplied applied;
    normalise_texts(texts);
    for (const EditorField& field : editor_field_table()) {
        if (!field.editable) continue;
        std::string& content = texts[static_cast<std::size_t>(field.index)];
        try {
            if (holds_value(field, content))
                read_field(field, content, s);
            else
                content = shown_text(field, s);
        } catch (const faults::Fault&) {
            content = shown_text(field, s);
        }
    }
    s.casrn = text::pad_right(s.casrn, kCasrnLength);
    form_derived_values(s);
    choose_equation(s, models);

    if (!(static_cast<double>(s.Tboil) > kPresent) &&
        models.vapour_pressure != models::VapourPressureEquation::none) {
        const auto boiling =
            models::boiling_temperature(s, constants::kNormalPressure, models.vapour_pressure);
        if (boiling) s.Tboil = single_or_zero(boiling->T);
    }
    if (std::fabs(static_cast<double>(s.Tboil) * s.Tcrit * s.pcrit) > kPresent)
        models::correlate_august(s);
    if (std::fabs(static_cast<double>(s.watson_T) * static_cast<double>(s.watson_hLV)) < kPresent &&
        models.vaporisation == models::VaporisationModel::watson) {
        models.vaporisation = models::VaporisationModel::chen;
        applied.watson_dropped = true;
    }
    if (has_critical_data(s)) {
        correlate_sets(s);
        show_correlated_sets(s, texts);
    }
    show_block(kAugustBlock, s, texts);
    for (std::string& content : texts)
        if (content == kStoredZeroText) content = kZero;
    for (const int computed : {kTboil, kCpSinhC2})
        if (numbers::val_input(texts[static_cast<std::size_t>(computed)]) !=
            numbers::val(shown_text(field_of(computed), s)))
            texts[static_cast<std::size_t>(computed)] = shown_text(field_of(computed), s);
    return applied;
}

void recalculate(EditorCorrelation correlation, EditorTexts& texts) {
    const auto number = [&](int index) {
        const std::string content = text::trim(texts[static_cast<std::size_t>(index)]);
        return numbers::typed_number(content).value_or(0);
    };
    SubstanceRecord s;
    s.Tcrit = number(kTcrit);
    s.pcrit = number(kPcrit);
    s.Tboil = single_or_zero(number(kTboil));
    if (!has_critical_data(s)) return;
    const auto correlate = [&](models::VapourPressureEquation index, const FieldBlock& block) {
        models::correlate_vapour_pressure(s, index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
        show_block(block, s, texts);
    };
    switch (correlation) {
        case EditorCorrelation::August:
            models::correlate_august(s);
            show_block(kAugustBlock, s, texts);
            break;
        case EditorCorrelation::Antoine:
            correlate(kIndexTHO, kThompsonBlock);
            break;
        case EditorCorrelation::KFW:
            correlate(kIndexKFW, kVanDerWaalsBlock);
            break;
        case EditorCorrelation::KFR:
            correlate(kIndexKFR, kRedlichBlock);
            break;
    }
}

Result<std::string> triple_point_pressure(const SubstanceRecord& s,
                                          models::VapourPressureEquation equation) {
    const auto result = models::vapour_pressure(s, static_cast<double>(s.Ttriple), equation);
    const std::optional<float> p = single(result ? std::optional(result->p) : std::nullopt);
    if (!p) return Failure{"Error while calculating vapour pressure"};
    return editor_text(*p);
}

std::string editor_report(const EditorTexts& texts) {
    constexpr std::size_t kCaption = 34, kValue = 20;
    std::string report;
    EditorTab tab = EditorTab::Head;
    std::string_view frame;
    for (const EditorField& field : editor_field_table()) {
        if (field.tab != tab) report += "\n" + text::trim(editor_tab_caption(field.tab)) + "\n";
        if (field.tab != tab || field.frame != frame)
            if (!field.frame.empty()) report += "  " + text::trim(field.frame) + "\n";
        tab = field.tab;
        frame = field.frame;
        std::string line =
            "    " + text::pad_right(text::trim(field.caption), kCaption) +
            text::pad_left(text::trim(texts[static_cast<std::size_t>(field.index)]), kValue);
        if (!field.unit.empty()) line += " " + text::trim(field.unit);
        report += line + "\n";
    }
    return report;
}

}  // namespace quor::datafiles
