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
    // A reader that takes none of its own seeds is not tested by mutations of them.
    FUZZ_CHECK(fuzz::targets().size() == 1);
    FUZZ_CHECK(fuzz::replay(target()) > 0);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    target().read({reinterpret_cast<const char*>(data), size});
    return 0;
}
// NOLINTEND(readability-identifier-naming)
