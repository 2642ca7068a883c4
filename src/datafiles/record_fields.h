#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "common/result.h"
#include "models/substance_record.h"

namespace quor::datafiles {

/// Where a field of a record lies.
using FieldRef = std::variant<float*, double*, std::int16_t*, bool*, std::string*>;
/// What stands in it.
using FieldValue = std::variant<float, double, std::int16_t, bool, std::string>;

/// A field of `SubstanceRecord` that can be addressed by name, with its place in a database file
/// and in a table of substances. This is the one list of all fields: the database reader, the
/// writer of private files, the table reader and the commands that name fields go by it.
struct RecordField {
    std::string_view name;         ///< "M", "WAG", "WAG.TLo"
    std::size_t count = 0;         ///< elements of a set, 0 for a single value
    int slot = 0;                  ///< slot of the (first) value in a file, 0: none
    bool in_private_file = false;  ///< the writer of a private file sets its slots
    std::string_view column{};     ///< column of a table; of a set, the start of its columns' names
    int first_column = 1;          ///< number of a set's first column
    std::string_view letters{};    ///< one-letter names of the elements, empty: numbers only
    FieldRef (*at)(models::SubstanceRecord& record, std::size_t element) = nullptr;
};

/// All fields in the order of the record.
std::span<const RecordField> record_fields();

/// A field, or one element (from 0) of a set.
struct FieldPlace {
    const RecordField* field = nullptr;
    std::size_t element = 0;
};

/// The place of a name: "M", "WAG.1" (elements count from 1), "ALP.A", "WAG.TLo". Nothing for an
/// unknown name and for a set without an element.
std::optional<FieldPlace> find_field(std::string_view name);
/// The place of a table's column: "M", "WAG_1", "ALP_A", "cpPoly_0", "rhoL_1", "WAG_TLo".
std::optional<FieldPlace> find_column(std::string_view column);
/// The place that a slot of a file fills, if any.
std::optional<FieldPlace> find_slot(int slot);
/// The slot of a place, 0 when it has none.
int slot_of(const FieldPlace& place);
/// Name of a place, as `find_field` reads it.
std::string name_of(const FieldPlace& place);
/// True for a temperature bound, which is a whole number of kelvins and 0 for "none".
bool is_bound(const RecordField& field);

FieldRef locate(models::SubstanceRecord& record, const FieldPlace& place);
FieldValue value_of(const models::SubstanceRecord& record, const FieldPlace& place);

/// The value of a named field; nothing when there is no such field.
std::optional<FieldValue> get_field(const models::SubstanceRecord& record, std::string_view name);
/// Stores a value as it stands, without the rules of a database: a number with a point, a whole
/// number for a temperature bound, "1" or "0" ("true", "false") for a flag, a text for a text.
/// Refused with a sentence about what is wrong; the record is then unchanged.
Result<void> set_field(models::SubstanceRecord& record, std::string_view name,
                       std::string_view value);

}  // namespace quor::datafiles
