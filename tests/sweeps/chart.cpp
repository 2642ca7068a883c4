// All state charts of all substances by four equations of state, checked vertex by vertex:
//   chart_sweep [FIRST STRIDE]
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>

#include "diagrams/chart_sweep.h"

int main(int argc, char** argv) {
    std::array<std::size_t, 2> numbers{0, 1};  // first, stride
    bool understood = argc == 1 || argc == 3;
    for (int i = 1; i < argc && understood; ++i) {
        const char* end = argv[i] + std::strlen(argv[i]);
        auto& number = numbers[static_cast<std::size_t>(i - 1)];
        const auto read = std::from_chars(argv[i], end, number);
        understood = read.ec == std::errc() && read.ptr == end;
    }
    if (!understood || numbers[0] >= numbers[1]) {
        std::fputs("usage: chart_sweep [FIRST STRIDE]\n", stderr);
        return 2;
    }
    chart_sweep::Counts counts;
    chart_sweep::sweep_all(numbers[0], numbers[1], counts);
    std::fputs(chart_sweep::told(counts).c_str(), stdout);
    return counts.failed == 0 ? 0 : 1;
}
