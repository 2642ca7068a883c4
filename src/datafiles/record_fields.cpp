#include "datafiles/record_fields.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "common/numbers.h"
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
    models::VPSetAntoine& s = r.*Set;
    const std::array<float*, 3> constants{&s.A, &s.B, &s.C};
    return constants[i];
}

FieldRef august(Record& r, std::size_t i) {
    return i == 0 ? &r.AUG.A : &r.AUG.B;
}

template <std::size_t I>
FieldRef spare(Record& r, std::size_t) {
    return &r.spare[I];
}

constexpr bool kSaved = true, kKept = false;

template <auto Member>
constexpr RecordField value(std::string_view name, int slot, bool saved) {
    return {
        .name = name, .slot = slot, .inPrivateFile = saved, .column = name, .at = single<Member>};
}

template <auto Member>
constexpr RecordField computed(std::string_view name) {
    return {.name = name, .at = single<Member>};
}

template <auto Set, auto Member>
constexpr RecordField bound(std::string_view name, int slot, std::string_view column) {
    return {.name = name,
            .slot = slot,
            .inPrivateFile = slot != 0,
            .column = column,
            .at = of_set<Set, Member>};
}

template <auto Set>
constexpr RecordField antoine_set(std::string_view name, int slot, std::string_view column) {
    return {.name = name,
            .count = 3,
            .slot = slot,
            .inPrivateFile = slot != 0,
            .column = column,
            .letters = "ABC",
            .at = antoine<Set>};
}

template <auto Set>
constexpr RecordField frost_set(std::string_view name, int slot, std::string_view column) {
    return {.name = name,
            .count = 9,
            .slot = slot,
            .inPrivateFile = slot != 0,
            .column = column,
            .at = element_of_set<Set, &models::VPSetFrost::a>};
}

template <auto Set>
constexpr RecordField cp_set(std::string_view name, int slot, std::string_view column) {
    return {.name = name,
            .count = 5,
            .slot = slot,
            .inPrivateFile = kSaved,
            .column = column,
            .firstColumn = 0,
            .at = element_of_set<Set, &models::CpSet::c>};
}

template <auto Array>
constexpr RecordField array(std::string_view name, std::size_t count, int slot, bool saved,
                            std::string_view column) {
    return {.name = name,
            .count = count,
            .slot = slot,
            .inPrivateFile = saved,
            .column = column,
            .at = element<Array>};
}

template <std::size_t I>
constexpr RecordField spare_value(std::string_view name, int slot) {
    return {.name = name, .slot = slot, .at = spare<I>};
}

using Antoine = models::VPSetAntoine;
using Frost = models::VPSetFrost;
using Wagner = models::VPSetWagner;
using Cp = models::CpSet;

constexpr std::array kFields{
    computed<&Record::Name>("Name"),
    computed<&Record::Formula>("Formula"),
    computed<&Record::CASRN>("CASRN"),
    value<&Record::M>("M", 1, kSaved),
    value<&Record::Tcrit>("Tcrit", 7, kSaved),
    value<&Record::pcrit>("pcrit", 8, kSaved),
    value<&Record::rhocrit>("rhocrit", 9, kSaved),
    computed<&Record::vcritExp>("vcritExp"),
    value<&Record::omega>("omega", 10, kSaved),
    value<&Record::Tboil>("Tboil", 11, kSaved),
    computed<&Record::rhoLboil>("rhoLboil"),
    value<&Record::Ttriple>("Ttriple", 92, kSaved),
    value<&Record::ptriple>("ptriple", 93, kKept),
    value<&Record::dfh>("dfh", 86, kSaved),
    value<&Record::dfg>("dfg", 88, kSaved),
    computed<&Record::dfs>("dfs"),
    value<&Record::sconv>("sconv", 90, kKept),

    antoine_set<&Record::ALP>("ALP", 37, "ALP_"),
    bound<&Record::ALP, &Antoine::TLo>("ALP.TLo", 40, "ALP_TLo"),
    bound<&Record::ALP, &Antoine::THi>("ALP.THi", 41, "ALP_THi"),
    antoine_set<&Record::AHP>("AHP", 43, "AHP_"),
    bound<&Record::AHP, &Antoine::TLo>("AHP.TLo", 46, "AHP_TLo"),
    bound<&Record::AHP, &Antoine::THi>("AHP.THi", 47, "AHP_THi"),
    frost_set<&Record::FRO>("FRO", 25, "FRO_"),
    bound<&Record::FRO, &Frost::TLo>("FRO.TLo", 34, "FRO_TLo"),
    bound<&Record::FRO, &Frost::THi>("FRO.THi", 35, "FRO_THi"),
    RecordField{.name = "WAG",
                .count = 10,
                .slot = 49,
                .inPrivateFile = kSaved,
                .column = "WAG_",
                .at = element_of_set<&Record::WAG, &Wagner::a>},
    bound<&Record::WAG, &Wagner::TLo>("WAG.TLo", 59, "WAG_TLo"),
    bound<&Record::WAG, &Wagner::THi>("WAG.THi", 60, "WAG_THi"),
    RecordField{.name = "AUG", .count = 2, .letters = "AB", .at = august},
    frost_set<&Record::KFW>("KFW", 0, {}),
    bound<&Record::KFW, &Frost::TLo>("KFW.TLo", 0, {}),
    bound<&Record::KFW, &Frost::THi>("KFW.THi", 0, {}),
    frost_set<&Record::KFR>("KFR", 0, {}),
    bound<&Record::KFR, &Frost::TLo>("KFR.TLo", 0, {}),
    bound<&Record::KFR, &Frost::THi>("KFR.THi", 0, {}),
    antoine_set<&Record::THO>("THO", 0, {}),

    array<&Record::rhoLPar>("rhoLPar", 7, 14, kSaved, "rhoL_"),
    value<&Record::rhoLTc>("rhoLTc", 21, kSaved),
    value<&Record::rhoLTLo>("rhoLTLo", 22, kSaved),
    value<&Record::rhoLTHi>("rhoLTHi", 23, kSaved),
    array<&Record::rhoSPar>("rhoSPar", 4, 119, kKept, "rhoS_"),
    value<&Record::rhoSTLo>("rhoSTLo", 123, kKept),
    value<&Record::rhoSTHi>("rhoSTHi", 124, kKept),

    array<&Record::hLVPar>("hLVPar", 6, 97, kSaved, "hLV_"),
    value<&Record::hLVTc>("hLVTc", 103, kSaved),
    value<&Record::hLVTLo>("hLVTLo", 104, kSaved),
    value<&Record::hLVTHi>("hLVTHi", 105, kSaved),
    value<&Record::WatsonH>("WatsonH", 106, kSaved),
    value<&Record::WatsonT>("WatsonT", 107, kSaved),

    cp_set<&Record::cpPoly>("cpPoly", 62, "cpPoly_"),
    bound<&Record::cpPoly, &Cp::TLo>("cpPoly.TLo", 67, "cpPoly_TLo"),
    bound<&Record::cpPoly, &Cp::THi>("cpPoly.THi", 68, "cpPoly_THi"),
    cp_set<&Record::cpSinh>("cpSinh", 70, "cpSinh_"),
    bound<&Record::cpSinh, &Cp::TLo>("cpSinh.TLo", 75, "cpSinh_TLo"),
    bound<&Record::cpSinh, &Cp::THi>("cpSinh.THi", 76, "cpSinh_THi"),
    cp_set<&Record::cpL>("cpL", 78, "cpL_"),
    bound<&Record::cpL, &Cp::TLo>("cpL.TLo", 83, "cpL_TLo"),
    bound<&Record::cpL, &Cp::THi>("cpL.THi", 84, "cpL_THi"),
    cp_set<&Record::cpS>("cpS", 111, "cpS_"),
    bound<&Record::cpS, &Cp::TLo>("cpS.TLo", 116, "cpS_TLo"),
    bound<&Record::cpS, &Cp::THi>("cpS.THi", 117, "cpS_THi"),
    computed<&Record::hasCpPoly>("hasCpPoly"),
    computed<&Record::hasCpSinh>("hasCpSinh"),
    computed<&Record::hasCpL>("hasCpL"),
    computed<&Record::hasCpS>("hasCpS"),

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
        const std::optional<double> number = parse_number(value);
        if (!number || std::fabs(*number) > static_cast<double>(std::numeric_limits<float>::max()))
            return not_a(name, value, "number");
        *field = static_cast<float>(*number);
        return {};
    }
    Result<void> operator()(double* field) const {
        const std::optional<double> number = parse_number(value);
        if (!number) return not_a(name, value, "number");
        *field = *number;
        return {};
    }
    Result<void> operator()(std::int16_t* field) const {
        const std::optional<double> number = parse_number(value);
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
        if (const auto i = element_of(f, column.substr(f.column.size()), f.firstColumn))
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

int SlotOf(const FieldPlace& place) {
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

FieldValue ValueOf(const SubstanceRecord& record, const FieldPlace& place) {
    // The accessors serve reading and writing alike; nothing is written here.
    const FieldRef ref = locate(const_cast<SubstanceRecord&>(record), place);
    return std::visit([](const auto* field) { return FieldValue(*field); }, ref);
}

std::optional<FieldValue> get_field(const SubstanceRecord& record, std::string_view name) {
    const std::optional<FieldPlace> place = find_field(name);
    return place ? std::optional(ValueOf(record, *place)) : std::nullopt;
}

Result<void> set_field(SubstanceRecord& record, std::string_view name, std::string_view value) {
    const std::optional<FieldPlace> place = find_field(name);
    if (!place) return unknown_field(name);
    const Result<void> stored = std::visit(Store{name, value}, locate(record, *place));
    if (!stored) return stored;
    // Both texts have a form of their own in the record.
    if (name == "Formula") record.FormulaCompact = text::remove_blanks(record.Formula);
    if (name == "CASRN") record.CASRN = text::pad_right(record.CASRN, 12);
    return {};
}

}  // namespace quor::datafiles
