#pragma once

#include <algorithm>
#include <utility>

#include "datafiles/measured_data.h"
#include "legacy/declare.h"

/// The experimental data of the process-level records as a value, and back.
namespace quor::legacy {

inline datafiles::MeasuredData measured_data() {
    const auto count = static_cast<std::size_t>(std::max<int>(the_session.BatchCount, 0));
    const auto first = the_BatchData.begin() + 1;  // behind the direct input
    const auto last =
        the_BatchData.begin() + static_cast<std::ptrdiff_t>(std::min(
                                    count + 1, std::max<std::size_t>(the_BatchData.size(), 1)));
    return {.points = {first, last},
            .comment = the_session.BatchComment,
            .casrn = the_session.BatchCasrn,
            .M = the_session.BatchMolarMass,
            .file = the_session.BatchFile};
}

inline void set_measured_data(const datafiles::MeasuredData& data) {
    the_session.BatchCount = static_cast<std::int16_t>(data.points.size());
    the_session.BatchComment = data.comment;
    the_session.BatchCasrn = data.casrn;
    the_session.BatchMolarMass = data.M;
    the_session.BatchFile = data.file;
    the_BatchData.resize(1);  // the direct input stays
    the_BatchData.insert(the_BatchData.end(), data.points.begin(), data.points.end());
    // The list never gets smaller than at the start of the program.
    if (data.points.empty()) the_BatchData.emplace_back();
}

}  // namespace quor::legacy
