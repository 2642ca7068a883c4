#pragma once

#include <optional>
#include <string>

#include "chart/chart_file.h"
#include "common/save_file.h"

namespace quor::diagrams {

/// Asks where a 2D or 3D chart is saved, beginning with a name in a folder, and writes it; the path
/// of the file, if there is one now.
template <class Chart>
std::optional<std::string> save_chart(const Chart& chart, dialogs::FileChoice choice) {
    choice.save = choice.overwrite_prompt = true;
    return saving::save_where_chosen(
        {.choice = std::move(choice),
         .content = [&chart](const std::string&) { return chart::file_text(chart); },
         .failure_title = "ERROR"});
}

}  // namespace quor::diagrams
