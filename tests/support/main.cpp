#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

/// Tests run in the locale of their environment, as the windows do.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (std::setlocale(LC_ALL, "") == nullptr) {
        const char* const wanted = std::getenv("LC_ALL");
        std::fprintf(stderr, "no such locale: %s\n", wanted == nullptr ? "" : wanted);
        return EXIT_FAILURE;
    }
    return RUN_ALL_TESTS();
}
