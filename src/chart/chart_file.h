#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "chart/chart2d.h"
#include "chart/chart3d.h"
#include "common/result.h"

namespace quor::chart {

/// A chart as text: JSON with a format mark, a version and the record. Every field of the record
/// is written; holes are null.
std::string to_text(const Chart2D& chart);
std::string to_text(const Chart3D& chart);

/// Reads a text of `to_text`. The chart changes only on success. Refused are texts that are no JSON
/// or another kind of file, a newer main version, more data than a chart holds, and fields of a
/// wrong kind or beyond their range; the reason is a sentence that names the field. Unknown fields
/// are passed over, missing ones keep their default.
Result<void> from_text(std::string_view text, Chart2D& chart);
Result<void> from_text(std::string_view text, Chart3D& chart);

/// The text of a chart's file: that of `to_text`. Refused is a chart that `load_chart` would not
/// take.
Result<std::string> file_text(const Chart2D& chart);
Result<std::string> file_text(const Chart3D& chart);

/// Reads a file with such a text, with the promises of `from_text`. Files above 32 MiB are refused.
Result<void> load_chart(const std::filesystem::path& file, Chart2D& chart);
Result<void> load_chart(const std::filesystem::path& file, Chart3D& chart);

}  // namespace quor::chart
