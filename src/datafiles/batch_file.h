#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "calculation/result_records.h"

namespace quor::datafiles {

/// More sets of data than this cannot be counted.
inline constexpr std::size_t kMostBatchSets = 32767;

/// What a file of experimental data (.BAQ) holds.
struct BatchFileContent {
    std::string date{}, comment{};
    std::string casrn{};   ///< of the substance
    double announced = 0;  ///< number of sets that the file says it has
    std::vector<calculation::BatchDataSet>
        sets{};  ///< those that it really has, at most `announced`
};

/// Reads a file's text (code page 1252); nothing when it has less than the four lines of the head,
/// or announces data and has none. A text in the place of a number reads as 0; a last line that is
/// cut short does not count.
std::optional<BatchFileContent> read_batch_text(const std::string& ansiText);
/// The text of a file: head, then one line of T, p, rhoL, rhoV, hLV, cp a set.
std::string BatchText(const BatchFileContent& content);

/// Asks for a file of experimental data and loads it, in place of the present data or behind them.
/// Questions and refusals are shown. False when nothing was loaded.
bool batch_load(bool append);
/// The same for a known file.
bool batch_load(const std::string& name, bool append);

/// Asks for a name and writes the experimental data. False when nothing was written.
bool batch_save();
/// Before data are left: asks whether to save when they are `changed`. True when they may be left,
/// because there is nothing to save, they are saved, or the user does not want to.
bool batch_save_frage(bool changed);

/// Asks for a name and writes T and one column (1 p, 2 rhoL, 3 rhoV, 4 hLV, 5 cp) of the active
/// sets that have a value there as .XY. False when nothing was written.
bool batch_save_xy(int column);

}  // namespace quor::datafiles
