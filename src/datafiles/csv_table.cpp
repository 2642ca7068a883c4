#include "datafiles/csv_table.h"

namespace quor::datafiles {

namespace {

/// Takes the characters of a table one by one.
class Splitter {
  public:
    Result<std::vector<CsvRow>> run(std::string_view csv) {
        for (std::size_t i = 0; i < csv.size(); ++i) {
            const bool doubled =
                csv[i] == '"' && quoted_ && i + 1 < csv.size() && csv[i + 1] == '"';
            if (doubled) {
                row_.cells.back() += '"';
                ++i;
            } else {
                take(csv[i]);
            }
        }
        if (quoted_)
            return Failure{"Line " + std::to_string(quote_line_) +
                           ": a quote is opened and never closed."};
        end_row();
        return std::move(rows_);
    }

  private:
    void take(char c) {
        if (c == '\n') ++line_;
        if (c == '"') {
            quoted_ = !quoted_;
            quote_line_ = line_;
        } else if (quoted_) {
            row_.cells.back() += c;
        } else if (c == ',') {
            row_.cells.emplace_back();
        } else if (c == '\n') {
            end_row();
        } else if (c != '\r') {
            row_.cells.back() += c;
        }
    }
    void end_row() {
        const bool empty = row_.cells.size() == 1 && row_.cells.front().empty();
        if (!empty) rows_.push_back(std::move(row_));
        row_ = {line_, {""}};
    }

    std::vector<CsvRow> rows_;
    CsvRow row_{1, {""}};
    std::size_t line_ = 1;
    std::size_t quote_line_ = 0;
    bool quoted_ = false;
};

}  // namespace

Result<std::vector<CsvRow>> split_csv(std::string_view csv) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (csv.starts_with(mark)) csv.remove_prefix(mark.size());
    return Splitter().run(csv);
}

}  // namespace quor::datafiles
