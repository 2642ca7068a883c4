#include <cmath>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/measured_table.h"
#include "datafiles/substance_editor.h"
#include "harness.h"
#include "models/model_tables.h"
#include "models/unit_text.h"

using namespace quor;

namespace {

/// A number that was read is written so that it reads back as the same.
void check_number(double value) {
    FUZZ_CHECK(std::isfinite(value));
    FUZZ_CHECK(numbers::number(datafiles::exact(value)) == value);
    FUZZ_CHECK(std::isfinite(numbers::val(numbers::general_point(value))) ||
               std::fabs(value) > 1e308);
    for (const char* mask : {"0.000", "#.##", "0.00E+00", "0%", "#", "0;-0"})
        FUZZ_CHECK(!numbers::format(value, mask).empty() || value == 0 || std::fabs(value) < 1);
}

void check_cells(std::string_view typed) {
    for (const bool volume : {false, true})
        for (int column = 0; column < datafiles::kMeasuredColumns; ++column) {
            datafiles::MeasuredPoint set{.T = 1, .p = 2, .rhoV = 3, .rhoL = 4, .hLV = 5, .cp = 6};
            const datafiles::MeasuredPoint before = set;
            const datafiles::MeasuredUnits units{.T = datafiles::TemperatureUnit::Celsius,
                                                 .p = datafiles::PressureUnit::Torr,
                                                 .volume = volume,
                                                 .M = 44.096};
            const auto where = static_cast<datafiles::MeasuredColumn>(column);
            if (!datafiles::store_cell(set, where, typed, units))
                FUZZ_CHECK(set == before);
            else
                for (int i = 1; i <= 5; ++i)
                    FUZZ_CHECK(std::isfinite(datafiles::fit_column_value(set, i)));
            FUZZ_CHECK(std::isfinite(set.T));
            datafiles::cell_text(set, where, units);
        }
}

/// The same text in every field of a quantity, and as a choice of units.
void check_units(std::string_view typed) {
    for (std::size_t i = 0; i < models::kDimensions; ++i) {
        const auto dimension = static_cast<models::Dimension>(i);
        const auto value = models::typed_value(typed, dimension, {}, models::Fluid());
        FUZZ_CHECK(!value || std::isfinite(*value));
        models::find_unit(dimension, typed);
        models::begins_unit(dimension, typed);
    }
    if (const auto choice = models::read_choice(typed))
        FUZZ_CHECK(models::read_choice(models::text_of(*choice)).value() == *choice);
}

/// The same text in every field of the substance editor.
void check_editor(const std::string& typed) {
    datafiles::EditorTexts texts;
    texts.fill(typed);
    models::SubstanceRecord substance;
    models::ModelSelection models;
    datafiles::apply_editor(texts, substance, models);
    for (const datafiles::RecordField& field : datafiles::record_fields())
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
            std::visit(
                [](const auto& value) {
                    if constexpr (std::is_floating_point_v<std::decay_t<decltype(value)>>)
                        FUZZ_CHECK(std::isfinite(value));
                },
                datafiles::value_of(substance, {&field, i}));
    datafiles::show_record(substance);
    using enum datafiles::EditorCorrelation;
    for (const auto correlation : {August, Antoine, KFW, KFR})
        datafiles::recalculate(correlation, texts);
}

/// Any text in the fields that take numbers.
bool read(std::string_view input) {
    if (input.size() > 400) return false;
    const std::string typed(input);
    const auto number = numbers::number(typed), free = numbers::typed_number(typed);
    if (number) FUZZ_CHECK(free && *free == *number);
    if (free) check_number(*free);
    FUZZ_CHECK(!std::isnan(numbers::val(typed)) && !std::isnan(numbers::val_input(typed)));
    FUZZ_CHECK(std::isfinite(datafiles::cell_number(typed)));
    check_cells(typed);
    check_units(typed);
    check_editor(typed);
    models::SubstanceRecord record;
    for (const char* field : {"M", "Tcrit", "WAG.1", "WAG.TLo", "name", "hasCpL"})
        static_cast<void>(datafiles::set_field(record, field, typed));
    return free.has_value();
}

const fuzz::Registered registered("number_fields", read);

}  // namespace
