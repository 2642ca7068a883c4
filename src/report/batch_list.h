#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "common/result.h"
#include "report/calculation_state.h"
#include "report/result.h"

/// Comparison with measured data: result lists and their means.
namespace quor::report {

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
std::optional<float> relative_deviation(double calculated, double experimental);
/// "(1.25 %)", or "(dev.> 500%!)" from 500 % on.
std::string deviation_text(float deviation);

/// Where a list goes; both forms have the same content.
enum class ListForm { File, Print };

/// A list of results.
struct ResultList {
    std::vector<std::string> lines;
    std::array<Mean, kQuantities> means{};
};

/// A model beside measured data.
struct Comparison {
    Made made;
    calculation::Task task = calculation::Task::none;
    calculation::Method method;
    calculation::Pages pages;
    std::string file;  ///< of the data
    std::vector<calculation::BatchDataSet> sets;
    std::vector<ResultRecord> results;   ///< one for each set; inactive sets have none
    std::vector<dialogs::Message> told;  ///< what is to be told, each text once
};

/// Calculates every active data set in the task of `state`. Throws `progress::GivenUp`.
Comparison compare(const models::Fluid& fluid, const models::ReferenceState& reference,
                   const models::UnitChoice& units, const CalculationState& state,
                   std::span<const calculation::BatchDataSet> sets, const std::string& file);

/// The list of all data sets that have a result. `extended` adds the tables of functions when they
/// were asked for.
ResultList make_result_list(const Comparison& comparison, const std::string& title, bool extended,
                            ListForm form);
/// The printed form as one text.
std::string printed_list(const Comparison& comparison, const std::string& title, bool extended);
/// The bytes of the list's file.
std::string result_file_text(const Comparison& comparison, const std::string& title, bool extended);
/// Where a list of that name goes: a name without "." gets ".LST", one without a folder goes to
/// `folder`, and one that begins with "LPT" stands as it is.
std::string result_file_path(const std::string& name, const std::string& folder);

}  // namespace quor::report
