#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/result.h"

namespace quor::datafiles {

/// More sets of data than this cannot be counted by a file.
inline constexpr std::size_t kMostMeasuredPoints = 32767;

/// `skip` of an inactive line.
inline constexpr std::int16_t kInactive = -1;

/// One line of experimental data; a value of 0 means that there is none.
struct MeasuredPoint {
    std::int16_t skip = 0;  ///< non-zero (-1): the line is inactive
    double T = 0;           ///< K
    double p = 0;           ///< kPa
    float rhoV = 0;         ///< density of the vapour or of the single phase, kg/m^3
    float rhoL = 0;         ///< density of the liquid, kg/m^3
    float hLV = 0;          ///< enthalpy of vaporisation, kJ/kmol
    float cp = 0;           ///< heat capacity V, L or S, kJ/(kmol K)

    bool operator==(const MeasuredPoint&) const = default;
};

/// Experimental data of one substance.
struct MeasuredData {
    std::vector<MeasuredPoint> points{};
    std::string comment{};
    std::string casrn{};  ///< of the substance, empty while it has none
    double M = 0;         ///< molar mass of the substance, kg/kmol; 0: not known
    std::string file{};   ///< title of the file that the data came from or went to

    bool operator==(const MeasuredData&) const = default;
};

/// What a file of experimental data (.BAQ) holds.
struct MeasuredDataFile {
    std::string date{};
    MeasuredData data{};   ///< the sets that are there, at most `announced`
    double announced = 0;  ///< number of sets that the file says it has
    /// Places (from 0) of sets with a cell that is no number, or with too many or too few cells.
    std::vector<std::size_t> wrong{};
};

/// Reads a file's text (code page 1252). It is refused when it has less than the four lines of the
/// head, or announces data and has none. A set with a cell that is no number is inactive; a last
/// line that is cut short does not count. `title` names the file in the data and in a refusal. At
/// most one set more than a table holds is read, which tells that there are too many.
Result<MeasuredDataFile> read_measured_data(const std::string& ansi_text, const std::string& title);

/// The text of a file: head, then one line of T, p, rhoL, rhoV, hLV, cp a set.
std::string measured_data_text(const MeasuredData& data, const std::string& date);

}  // namespace quor::datafiles
