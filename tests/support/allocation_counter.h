#pragma once

#include <cstddef>

/// Number of heap allocations by operator new since the start of the program. Linking this file
/// replaces the global operators.
std::size_t AllocationCount();
