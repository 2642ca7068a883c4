#include <cstddef>
#include <cstdint>

#include "harness.h"

namespace {

const fuzz::Target& target() {
    return fuzz::targets().front();
}

}  // namespace

// The names are those that libFuzzer calls.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" int LLVMFuzzerInitialize(int* count, char*** words);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FUZZ_CHECK(fuzz::targets().size() == 1);
    fuzz::require_seeds(target());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    target().read({reinterpret_cast<const char*>(data), size});
    return 0;
}
// NOLINTEND(readability-identifier-naming)
