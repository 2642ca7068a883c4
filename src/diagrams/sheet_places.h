#pragma once

#include <cstddef>

namespace quor::diagrams {

/// A place or the number of a point, from 0, as an index.
inline std::size_t at(int place) {
    return static_cast<std::size_t>(place);
}

}  // namespace quor::diagrams
