// The round trip over all pairs of properties, for all substances and equations of state:
//   sweep_flash [STATES] [FIRST STRIDE]
#include <charconv>
#include <cstdio>
#include <cstring>

#include "models/flash_sweep.h"

int main(int argc, char** argv) {
    std::array<std::size_t, 3> numbers{200, 0, 1};  // states, first, stride
    bool understood = argc <= 4;
    for (int i = 1; i < argc && understood; ++i) {
        const char* end = argv[i] + std::strlen(argv[i]);
        auto& number = numbers[static_cast<std::size_t>(i - 1)];
        const auto read = std::from_chars(argv[i], end, number);
        understood = read.ec == std::errc() && read.ptr == end;
    }
    if (!understood || numbers[0] > 1000000 || numbers[1] >= numbers[2]) {
        std::fputs("usage: sweep_flash [STATES] [FIRST STRIDE]\n", stderr);
        return 2;
    }
    flash_sweep::Counts counts;
    flash_sweep::sweep_all(static_cast<int>(numbers[0]), numbers[1], numbers[2], counts);
    std::fputs(flash_sweep::told(counts).c_str(), stdout);
    return counts.failed == 0 ? 0 : 1;
}
