#include "report/report.h"

#include "common/text.h"
#include "report/list_layout.h"

namespace quor::report {

namespace {

std::string with_break(const std::string& s) {
    return s.empty() ? s : s + '\n';
}

/// The four fields above the list, one a line, without the empty ones.
std::string fields_as_text(const Report& r) {
    return with_break(r.par1.text) + with_break(r.par2.text) + with_break(r.co1.text) +
           with_break(r.co2.text);
}

bool has_phase_columns(const Report& r) {
    for (const ListLine& line : r.lines)
        if (line.cells.size() == 3) return true;
    return false;
}

}  // namespace

std::string list_text(const Report& result) {
    std::string all;
    for (const ListLine& line : result.lines) {
        if (&line != &result.lines.front()) all += '\n';
        all += line.text;
    }
    return all;
}

std::string phase_header(const Report& result) {
    const std::string blanks(2 * kLabelWidth, ' ');
    if (result.identical)
        return blanks + text::pad_left(result.caption_L + " identical with " + result.caption_V,
                                       2 * kValueWidth);
    return blanks + text::pad_left(result.caption_L, kValueWidth) +
           text::pad_left(result.caption_V, kValueWidth);
}

std::string result_as_text(const Report& result) {
    std::string all = fields_as_text(result);
    if (has_phase_columns(result)) all += phase_header(result) + '\n';
    return all + with_break(list_text(result));
}

std::string result_as_table(const Report& result) {
    std::string all = fields_as_text(result);
    if (has_phase_columns(result)) all += '\t' + result.caption_L + '\t' + result.caption_V + '\n';
    for (const ListLine& line : result.lines) {
        if (line.cells.empty()) {
            all += line.text;
        } else {
            for (std::size_t i = 0; i < line.cells.size(); ++i)
                all += (i > 0 ? "\t" : "") + line.cells[i];
        }
        all += '\n';
    }
    return all;
}

}  // namespace quor::report
