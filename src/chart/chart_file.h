#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "chart/chart2d.h"
#include "chart/chart3d.h"

namespace quor::chart {

/// Outcome of reading or writing a chart: `ok`, or a sentence that says what is wrong.
struct FileOutcome {
    bool ok = true;
    std::string message;
};

/// A chart as text: JSON with a format mark, a version and the record. Every field of the record
/// is written; holes are null.
std::string to_text(const Chart2D& chart);
std::string to_text(const Chart3D& chart);

/// Reads a text of `to_text`. The chart changes only on success. Refused are texts that are no JSON
/// or another kind of file, a newer main version, more data than a chart holds, and fields of a
/// wrong kind. Unknown fields are passed over, missing ones keep their default.
FileOutcome from_text(std::string_view text, Chart2D& chart);
FileOutcome from_text(std::string_view text, Chart3D& chart);

/// Writes the chart to a file. The file appears whole or not at all: an older file of the name
/// stays when the disk is full.
FileOutcome save_chart(const Chart2D& chart, const std::filesystem::path& file);
FileOutcome save_chart(const Chart3D& chart, const std::filesystem::path& file);

/// Reads a file of `save_chart`, with the promises of `from_text`. Files above 32 MiB are refused.
FileOutcome load_chart(const std::filesystem::path& file, Chart2D& chart);
FileOutcome load_chart(const std::filesystem::path& file, Chart3D& chart);

}  // namespace quor::chart
