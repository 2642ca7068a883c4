#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Comparison with measured data: result lists and their means.
namespace quor::calculation {

/// Quantities that are compared, in the order of the list's columns.
enum Quantity : std::size_t { kT, kP, kRhoV, kRhoL, kHLV };
inline constexpr std::size_t kQuantities = 5;

/// A mean of absolute deviations.
struct Mean {
    double sum = 0;  ///< of the absolute deviations in per cent
    int count = 0;   ///< data sets in it
    /// Nothing when no data set has both values.
    std::optional<double> value() const {
        return count > 0 ? std::optional(sum / count) : std::nullopt;
    }
};

/// (calculated/experimental - 1) 100 as a 32-bit value; nothing unless both exceed 1E-6.
std::optional<float> Deviation(double calculated, double experimental);
/// "(1.25 %)", or "(dev.> 500%!)" from 500 % on.
std::string deviation_text(float deviation);

/// Where a list goes; both forms have the same content.
enum class ListForm { File, Print };

/// A list of results.
struct ResultList {
    std::vector<std::string> lines;
    std::array<Mean, kQuantities> means{};
};

/// Calculates every active data set in `CalcMode`, quietly, so that `ResultRecords` is complete.
/// All else of the session stays as it was; a message that repeats is shown once.
void calculate_all_sets();

/// The list of all data sets that have a result. `extended` adds the pages of functions when the
/// session shows them.
ResultList make_result_list(const std::string& title, bool global, bool extended, ListForm form);

/// Calculates, and prints the list or writes it to a file: a name without "." gets ".LST", one
/// without a folder goes to the program's folder, and one that begins with "LPT" stands as it is.
/// `result_file` is false, after a message, when the file could not be written.
void print_result(const std::string& title, bool global, bool extended);
bool result_file(const std::string& name, const std::string& title, bool global, bool extended);

}  // namespace quor::calculation
