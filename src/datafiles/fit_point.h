#pragma once

namespace quor::datafiles {

/// A point of the XY editor and of a fit: mark -1.0 means inactive.
struct FitPoint {
    float x = 0, y = 0, mark = 0;

    bool operator==(const FitPoint&) const = default;
};

}  // namespace quor::datafiles
