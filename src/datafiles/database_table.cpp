#include "datafiles/database_table.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <map>
#include <set>

#include "common/numbers.h"
#include "common/single.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/csv_table.h"
#include "datafiles/record_fields.h"

namespace quor::datafiles {

namespace {

constexpr std::size_t kMostSubstances = 32767;
constexpr std::size_t kMostErrors = 20;
constexpr std::string_view kSources = "src_";
constexpr std::string_view kSlot = "slot_";

/// What a column holds.
struct Column {
    std::string name;
    bool is_text = false;
    int slot = 0;           ///< 0: a text, or a column that is not read
    bool is_bound = false;  ///< a temperature bound: whole kelvins, 0 for none
};

constexpr std::string_view kTextColumns[] = {"formula", "name_en",     "synonyms_en", "name_de",
                                             "casrn",   "synonyms_de", "number"};
constexpr std::string_view kNeededColumns[] = {"formula", "name_en", "casrn",
                                               "M",       "Tcrit",   "pcrit"};

/// The slot of a column like "slot_95", 0 for any other name.
int numbered_slot(std::string_view name) {
    if (!name.starts_with(kSlot)) return 0;
    name.remove_prefix(kSlot.size());
    int slot = 0;
    const auto result = std::from_chars(name.data(), name.data() + name.size(), slot);
    const bool whole = result.ec == std::errc() && result.ptr == name.data() + name.size();
    return whole && slot >= 1 && slot <= static_cast<int>(kSlotCount) ? slot : 0;
}

class TableReader {
  public:
    DatabaseTable run(std::string_view csv) {
        const Result<std::vector<CsvRow>> rows = split_csv(csv);
        if (!rows) {
            complain(rows.reason());
        } else if (rows->empty()) {
            complain("The table is empty.");
        } else {
            read_heads(rows->front());
            if (table_.errors.empty()) read_rows(*rows);
        }
        if (!table_.errors.empty()) table_.records.clear();
        return std::move(table_);
    }

  private:
    void complain(std::string_view error) {
        if (table_.errors.size() < kMostErrors) table_.errors.emplace_back(error);
    }
    void complain(std::string_view column, std::string_view what) {
        complain("Line " + std::to_string(line_) + ", column " + std::string(column) + ": " +
                 std::string(what));
    }

    void read_heads(const CsvRow& row) {
        line_ = row.line;
        std::set<std::string> seen;
        for (const std::string& cell : row.cells) {
            const std::string name = text::trim(cell);
            if (!seen.insert(name).second) complain(name, "this column is there twice.");
            columns_.push_back(column_of(name));
        }
        for (const std::string_view name : kNeededColumns)
            if (!seen.contains(std::string(name))) complain(name, "this column is missing.");
    }

    Column column_of(const std::string& name) {
        Column column{.name = name};
        if (name.starts_with(kSources)) return column;
        for (const std::string_view known : kTextColumns)
            column.is_text = column.is_text || known == name;
        if (column.is_text) return column;
        column.slot = numbered_slot(name);
        if (const auto place = find_column(name)) column.slot = slot_of(*place);
        if (column.slot == 0) complain(name, "there is no such column.");
        const auto place = find_slot(column.slot);
        column.is_bound = place && is_bound(*place->field);
        return column;
    }

    void read_rows(const std::vector<CsvRow>& rows) {
        for (std::size_t i = 1; i < rows.size(); ++i) read_row(rows[i]);
        if (table_.records.empty()) complain("The table has no substances.");
        if (table_.records.size() > kMostSubstances)
            complain("A database holds at most " + std::to_string(kMostSubstances) +
                     " substances.");
    }

    void read_row(const CsvRow& row) {
        line_ = row.line;
        if (row.cells.size() != columns_.size()) {
            complain("Line " + std::to_string(line_) + ": it has " +
                     std::to_string(row.cells.size()) + " cells, but there are " +
                     std::to_string(columns_.size()) + " columns.");
            return;
        }
        SubstanceFileRecord record;
        texts_.clear();
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const std::string cell = text::trim(row.cells[i]);
            if (columns_[i].is_text) {
                texts_[columns_[i].name] = cell;
            } else if (columns_[i].slot != 0 && !cell.empty()) {
                record.values[static_cast<std::size_t>(columns_[i].slot - 1)] =
                    slot_value(columns_[i], cell);
            }
        }
        check_bounds(record);
        fill_texts(record);
        record.number = substance_number();
        table_.records.push_back(record);
    }

    float slot_value(const Column& column, const std::string& cell) {
        const std::optional<double> value = numbers::number(cell);
        if (!value) {
            complain(column.name, "\"" + cell + "\" is not a number.");
            return 0;
        }
        if (column.is_bound) return bound_value(column, *value);
        if (!numbers::fits_single(*value)) {
            complain(column.name, cell + " is too large.");
            return 0;
        }
        const auto single = static_cast<float>(*value);
        return single == 0 ? kRealZero : single;
    }

    /// A bound of 0 is never a real zero: it says that there is no range.
    float bound_value(const Column& column, double value) {
        const double kelvin = numbers::round_half_even(value);
        if (kelvin < 0 || kelvin > 32767) {
            complain(column.name, exact(value) + " is no temperature bound.");
            return 0;
        }
        return static_cast<float>(kelvin);
    }

    void check_bounds(const SubstanceFileRecord& record) {
        for (std::size_t i = 0; i + 1 < kSlotCount; ++i) {
            const auto low = find_slot(static_cast<int>(i) + 1);
            if (!low || !low->field->name.ends_with("TLo")) continue;
            // The upper bound of every set stands in the slot behind the lower one.
            if (record.values[i] > record.values[i + 1])
                complain(low->field->column, "the lower bound is above the upper one.");
        }
    }

    void fill_texts(SubstanceFileRecord& record) {
        if (texts_["name_en"].empty()) complain("name_en", "the name is missing.");
        put(record.formula, "formula", texts_["formula"]);
        put(record.name_english, "name_en", name_field(texts_["name_en"], texts_["synonyms_en"]));
        put(record.name_german, "name_de", name_field(texts_["name_de"], texts_["synonyms_de"]));
        put(record.casrn, "casrn", texts_["casrn"]);
        if (texts_["casrn"].empty()) return;
        const auto [first, isNew] = casrn_lines_.try_emplace(texts_["casrn"], line_);
        if (!isNew)
            complain("casrn", texts_["casrn"] + " stands in line " + std::to_string(first->second) +
                                  " already.");
    }

    void put(std::span<char> field, std::string_view column, const std::string& text) {
        if (text::length(text) > field.size())
            complain(column, "\"" + text + "\" is longer than " + std::to_string(field.size()) +
                                 " characters.");
        if (text::from_ansi(text::to_ansi(text)) != text)
            complain(column, "\"" + text + "\" has a character that a database cannot hold.");
        set_field_text(field, text);
    }

    std::int16_t substance_number() {
        const std::string& cell = texts_["number"];
        if (cell.empty()) {
            const std::size_t next = table_.records.size() + 1;
            return static_cast<std::int16_t>(std::min(next, kMostSubstances));
        }
        const std::optional<double> value = numbers::number(cell);
        if (!value || *value < 1 || *value > 32767 || *value != std::floor(*value)) {
            complain("number", "\"" + cell + "\" is no substance number.");
            return 0;
        }
        return static_cast<std::int16_t>(*value);
    }

    DatabaseTable table_;
    std::vector<Column> columns_;
    std::map<std::string, std::string, std::less<>> texts_;  ///< of the present row, by column
    std::map<std::string, std::size_t> casrn_lines_;
    std::size_t line_ = 0;
};

}  // namespace

DatabaseTable read_database_table(std::string_view csv) {
    return TableReader().run(csv);
}

std::string database_bytes(std::span<const SubstanceFileRecord> records) {
    std::string bytes;
    bytes.reserve((records.size() + 1) * kRecordSize);
    const auto append = [&](const SubstanceFileRecord& record) {
        const RecordBytes encoded = encode_record(record);
        bytes.append(encoded.begin(), encoded.end());
    };
    append({.number = static_cast<std::int16_t>(records.size())});
    for (const SubstanceFileRecord& record : records) append(record);
    return bytes;
}

std::string name_field(std::string_view name, std::string_view synonyms) {
    std::string all(name);
    all.append(";").append(synonyms);
    std::string field;
    for (const std::string& part : text::split(all, ';')) {
        const std::string one = text::trim(part);
        if (one.empty()) continue;
        const std::string longer = field.empty() ? one : field + ";" + one;
        if (!field.empty() && text::length(longer) > kNameLength) break;
        field = longer;
    }
    return field;
}

}  // namespace quor::datafiles
