#include "datafiles/record_fields.h"

#include <array>
#include <charconv>
#include <cmath>

#include "common/numbers.h"
#include "common/single.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"

namespace quor::datafiles {

namespace {

using models::SubstanceRecord;
using Record = SubstanceRecord;

template <auto Member>
FieldRef single(Record& r, std::size_t) {
    return &(r.*Member);
}

template <auto Array>
FieldRef element(Record& r, std::size_t i) {
    return &(r.*Array)[i];
}

template <auto Set, auto Member>
FieldRef of_set(Record& r, std::size_t) {
    return &(r.*Set.*Member);
}

template <auto Set, auto Array>
FieldRef element_of_set(Record& r, std::size_t i) {
    return &(r.*Set.*Array)[i];
}

template <auto Set>
FieldRef antoine(Record& r, std::size_t i) {
    models::AntoineSet& s = r.*Set;
    const std::array<float*, 3> constants{&s.A, &s.B, &s.C};
    return constants[i];
}

FieldRef august(Record& r, std::size_t i) {
    return i == 0 ? &r.august.A : &r.august.B;
}

template <std::size_t I>
FieldRef spare(Record& r, std::size_t) {
    return &r.spare[I];
}

constexpr bool kSaved = true, kKept = false;

template <auto Member>
constexpr RecordField value(std::string_view name, int slot, bool saved) {
    return {
        .name = name, .slot = slot, .in_private_file = saved, .column = name, .at = single<Member>};
}

template <auto Member>
constexpr RecordField computed(std::string_view name) {
    return {.name = name, .at = single<Member>};
}

template <auto Set, auto Member>
constexpr RecordField bound(std::string_view name, int slot, std::string_view column) {
    return {.name = name,
            .slot = slot,
            .in_private_file = slot != 0,
            .column = column,
            .at = of_set<Set, Member>};
}

template <auto Set>
constexpr RecordField antoine_set(std::string_view name, int slot, std::string_view column) {
    return {.name = name,
            .count = 3,
            .slot = slot,
            .in_private_file = slot != 0,
            .column = column,
            .letters = "ABC",
            .at = antoine<Set>};
}

template <auto Set>
constexpr RecordField frost_set(std::string_view name, int slot, std::string_view column) {
    return {.name = name,
            .count = 9,
            .slot = slot,
            .in_private_file = slot != 0,
            .column = column,
            .at = element_of_set<Set, &models::FrostSet::a>};
}

template <auto Set>
constexpr RecordField cp_set(std::string_view name, int slot, std::string_view column) {
    return {.name = name,
            .count = 5,
            .slot = slot,
            .in_private_file = kSaved,
            .column = column,
            .first_column = 0,
            .at = element_of_set<Set, &models::CpSet::c>};
}

template <auto Array>
constexpr RecordField array(std::string_view name, std::size_t count, int slot, bool saved,
                            std::string_view column) {
    return {.name = name,
            .count = count,
            .slot = slot,
            .in_private_file = saved,
            .column = column,
            .at = element<Array>};
}

template <std::size_t I>
constexpr RecordField spare_value(std::string_view name, int slot) {
    return {.name = name, .slot = slot, .at = spare<I>};
}

using Antoine = models::AntoineSet;
using Frost = models::FrostSet;
using Wagner = models::WagnerSet;
using Cp = models::CpSet;

constexpr std::array kFields{
    computed<&Record::name>("Name"),
    computed<&Record::formula>("Formula"),
    computed<&Record::casrn>("CASRN"),
    value<&Record::M>("M", 1, kSaved),
    value<&Record::Tcrit>("Tcrit", 7, kSaved),
    value<&Record::pcrit>("pcrit", 8, kSaved),
    value<&Record::rhocrit>("rhocrit", 9, kSaved),
    computed<&Record::vcrit_measured>("vcritExp"),
    value<&Record::omega>("omega", 10, kSaved),
    value<&Record::Tboil>("Tboil", 11, kSaved),
    computed<&Record::rhoL_boil>("rhoLboil"),
    value<&Record::Ttriple>("Ttriple", 92, kSaved),
    value<&Record::ptriple>("ptriple", 93, kKept),
    value<&Record::dfh>("dfh", 86, kSaved),
    value<&Record::dfg>("dfg", 88, kSaved),
    computed<&Record::dfs>("dfs"),
    value<&Record::sconv>("sconv", 90, kKept),

    antoine_set<&Record::antoine_low>("ALP", 37, "ALP_"),
    bound<&Record::antoine_low, &Antoine::T_low>("ALP.TLo", 40, "ALP_TLo"),
    bound<&Record::antoine_low, &Antoine::T_high>("ALP.THi", 41, "ALP_THi"),
    antoine_set<&Record::antoine_high>("AHP", 43, "AHP_"),
    bound<&Record::antoine_high, &Antoine::T_low>("AHP.TLo", 46, "AHP_TLo"),
    bound<&Record::antoine_high, &Antoine::T_high>("AHP.THi", 47, "AHP_THi"),
    frost_set<&Record::frost>("FRO", 25, "FRO_"),
    bound<&Record::frost, &Frost::T_low>("FRO.TLo", 34, "FRO_TLo"),
    bound<&Record::frost, &Frost::T_high>("FRO.THi", 35, "FRO_THi"),
    RecordField{.name = "WAG",
                .count = 10,
                .slot = 49,
                .in_private_file = kSaved,
                .column = "WAG_",
                .at = element_of_set<&Record::wagner, &Wagner::a>},
    bound<&Record::wagner, &Wagner::T_low>("WAG.TLo", 59, "WAG_TLo"),
    bound<&Record::wagner, &Wagner::T_high>("WAG.THi", 60, "WAG_THi"),
    RecordField{.name = "AUG", .count = 2, .letters = "AB", .at = august},
    frost_set<&Record::frost_van_der_waals>("KFW", 0, {}),
    bound<&Record::frost_van_der_waals, &Frost::T_low>("KFW.TLo", 0, {}),
    bound<&Record::frost_van_der_waals, &Frost::T_high>("KFW.THi", 0, {}),
    frost_set<&Record::frost_redlich_kwong>("KFR", 0, {}),
    bound<&Record::frost_redlich_kwong, &Frost::T_low>("KFR.TLo", 0, {}),
    bound<&Record::frost_redlich_kwong, &Frost::T_high>("KFR.THi", 0, {}),
    antoine_set<&Record::thompson>("THO", 0, {}),

    array<&Record::rhoL_coefficients>("rhoLPar", 7, 14, kSaved, "rhoL_"),
    value<&Record::rhoL_Tc>("rhoLTc", 21, kSaved),
    value<&Record::rhoL_T_low>("rhoLTLo", 22, kSaved),
    value<&Record::rhoL_T_high>("rhoLTHi", 23, kSaved),
    array<&Record::rhoS_coefficients>("rhoSPar", 4, 119, kKept, "rhoS_"),
    value<&Record::rhoS_T_low>("rhoSTLo", 123, kKept),
    value<&Record::rhoS_T_high>("rhoSTHi", 124, kKept),

    array<&Record::hLV_coefficients>("hLVPar", 6, 97, kSaved, "hLV_"),
    value<&Record::hLV_Tc>("hLVTc", 103, kSaved),
    value<&Record::hLV_T_low>("hLVTLo", 104, kSaved),
    value<&Record::hLV_T_high>("hLVTHi", 105, kSaved),
    value<&Record::watson_hLV>("WatsonH", 106, kSaved),
    value<&Record::watson_T>("WatsonT", 107, kSaved),

    cp_set<&Record::cp_polynomial>("cpPoly", 62, "cpPoly_"),
    bound<&Record::cp_polynomial, &Cp::T_low>("cpPoly.TLo", 67, "cpPoly_TLo"),
    bound<&Record::cp_polynomial, &Cp::T_high>("cpPoly.THi", 68, "cpPoly_THi"),
    cp_set<&Record::cp_sinh_cosh>("cpSinh", 70, "cpSinh_"),
    bound<&Record::cp_sinh_cosh, &Cp::T_low>("cpSinh.TLo", 75, "cpSinh_TLo"),
    bound<&Record::cp_sinh_cosh, &Cp::T_high>("cpSinh.THi", 76, "cpSinh_THi"),
    cp_set<&Record::cpL>("cpL", 78, "cpL_"),
    bound<&Record::cpL, &Cp::T_low>("cpL.TLo", 83, "cpL_TLo"),
    bound<&Record::cpL, &Cp::T_high>("cpL.THi", 84, "cpL_THi"),
    cp_set<&Record::cpS>("cpS", 111, "cpS_"),
    bound<&Record::cpS, &Cp::T_low>("cpS.TLo", 116, "cpS_TLo"),
    bound<&Record::cpS, &Cp::T_high>("cpS.THi", 117, "cpS_THi"),
    computed<&Record::has_cp_polynomial>("hasCpPoly"),
    computed<&Record::has_cp_sinh_cosh>("hasCpSinh"),
    computed<&Record::has_cpL>("hasCpL"),
    computed<&Record::has_cpS>("hasCpS"),

    spare_value<0>("spare.1", 12),
    spare_value<1>("spare.2", 13),
    spare_value<2>("spare.3", 24),
    spare_value<3>("spare.4", 48),
    spare_value<4>("spare.5", 89),
    spare_value<5>("spare.6", 95),
    spare_value<6>("spare.7", 96),
    spare_value<7>("spare.8", 118),
};

/// Position (from 0) that a text like "3" or "B" gives in a set whose first number is `first`.
std::optional<std::size_t> element_of(const RecordField& field, std::string_view key, int first) {
    if (key.size() == 1 && field.letters.find(key.front()) != std::string_view::npos)
        return field.letters.find(key.front());
    int number = 0;
    const auto result = std::from_chars(key.data(), key.data() + key.size(), number);
    if (result.ec != std::errc() || result.ptr != key.data() + key.size()) return std::nullopt;
    if (number < first || number >= first + static_cast<int>(field.count)) return std::nullopt;
    return static_cast<std::size_t>(number - first);
}

std::string sentence(std::initializer_list<std::string_view> parts) {
    std::string all;
    for (const std::string_view part : parts) all.append(part);
    return all;
}

Failure not_a(std::string_view name, std::string_view value, std::string_view kind) {
    return {sentence({"\"", value, "\" is no ", kind, " for ", name, "."})};
}

Failure unknown_field(std::string_view name) {
    for (const RecordField& f : kFields)
        if (f.name == name)
            return {sentence({name, " has ", std::to_string(f.count),
                              " elements: name one of them, as ", name, ".1."})};
    return {sentence({"There is no field \"", name, "\"."})};
}

bool is_true(std::string_view value) {
    return value == "1" || value == "-1" || value == "true";
}
bool is_false(std::string_view value) {
    return value == "0" || value == "false";
}

/// Stores a text in the kind of field that it meets.
struct Store {
    std::string_view name, value;

    Result<void> operator()(float* field) const {
        const std::optional<double> number = numbers::number(value);
        if (!number || !numbers::fits_single(*number)) return not_a(name, value, "number");
        *field = static_cast<float>(*number);
        return {};
    }
    /// Kept in more digits, but a database has 32 bits for it as well.
    Result<void> operator()(double* field) const {
        float narrow = 0;
        const Result<void> stored = (*this)(&narrow);
        if (stored) *field = *numbers::number(value);
        return stored;
    }
    Result<void> operator()(std::int16_t* field) const {
        const std::optional<double> number = numbers::number(value);
        if (!number || std::fabs(*number) > 32767.0) return not_a(name, value, "whole number");
        *field = numbers::to_int16(*number);
        return {};
    }
    Result<void> operator()(bool* field) const {
        if (!is_true(value) && !is_false(value)) return not_a(name, value, "flag");
        *field = is_true(value);
        return {};
    }
    Result<void> operator()(std::string* field) const {
        *field = value;
        return {};
    }
};

}  // namespace

std::span<const RecordField> record_fields() {
    return kFields;
}

std::optional<FieldPlace> find_field(std::string_view name) {
    for (const RecordField& f : kFields) {
        if (f.count == 0) {
            if (f.name == name) return FieldPlace{&f, 0};
            continue;
        }
        if (!name.starts_with(f.name) || name.size() <= f.name.size() || name[f.name.size()] != '.')
            continue;
        if (const auto i = element_of(f, name.substr(f.name.size() + 1), 1))
            return FieldPlace{&f, *i};
    }
    return std::nullopt;
}

std::optional<FieldPlace> find_column(std::string_view column) {
    for (const RecordField& f : kFields) {
        if (f.column.empty()) continue;
        if (f.count == 0) {
            if (f.column == column) return FieldPlace{&f, 0};
            continue;
        }
        if (!column.starts_with(f.column)) continue;
        if (const auto i = element_of(f, column.substr(f.column.size()), f.first_column))
            return FieldPlace{&f, *i};
    }
    return std::nullopt;
}

std::optional<FieldPlace> find_slot(int slot) {
    for (const RecordField& f : kFields) {
        const int width = f.count == 0 ? 1 : static_cast<int>(f.count);
        if (f.slot != 0 && slot >= f.slot && slot < f.slot + width)
            return FieldPlace{&f, static_cast<std::size_t>(slot - f.slot)};
    }
    return std::nullopt;
}

int slot_of(const FieldPlace& place) {
    return place.field->slot == 0 ? 0 : place.field->slot + static_cast<int>(place.element);
}

std::string name_of(const FieldPlace& place) {
    const RecordField& f = *place.field;
    if (f.count == 0) return std::string(f.name);
    if (!f.letters.empty()) return sentence({f.name, ".", f.letters.substr(place.element, 1)});
    return sentence({f.name, ".", std::to_string(place.element + 1)});
}

bool is_bound(const RecordField& field) {
    Record any;
    return std::holds_alternative<std::int16_t*>(field.at(any, 0));
}

FieldRef locate(SubstanceRecord& record, const FieldPlace& place) {
    return place.field->at(record, place.element);
}

FieldValue value_of(const SubstanceRecord& record, const FieldPlace& place) {
    // The accessors serve reading and writing alike; nothing is written here.
    const FieldRef ref = locate(const_cast<SubstanceRecord&>(record), place);
    return std::visit([](const auto* field) { return FieldValue(*field); }, ref);
}

std::optional<FieldValue> get_field(const SubstanceRecord& record, std::string_view name) {
    const std::optional<FieldPlace> place = find_field(name);
    return place ? std::optional(value_of(record, *place)) : std::nullopt;
}

Result<void> set_field(SubstanceRecord& record, std::string_view name, std::string_view value) {
    const std::optional<FieldPlace> place = find_field(name);
    if (!place) return unknown_field(name);
    const Result<void> stored = std::visit(Store{name, value}, locate(record, *place));
    if (!stored) return stored;
    // Both texts have a form of their own in the record.
    if (name == "Formula") record.formula_compact = text::remove_blanks(record.formula);
    if (name == "CASRN") record.casrn = text::pad_right(record.casrn, 12);
    return {};
}

}  // namespace quor::datafiles
