#include <filesystem>
#include <iostream>

#include "tools/quorcalc/program.h"
#include "tools/quorcalc_pictures/picture_drawer.h"

using namespace quor;

int main(int argc, char** argv) {
    // Calls may come by thousands; nothing here uses the streams of C.
    std::ios::sync_with_stdio(false);
    // The program's folder is where the executable stands; no environment is read.
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    quorcalc::Program program(Places(error ? std::filesystem::path(".") : self.parent_path()),
                              picture_drawer::make());
    return program.main(std::vector<std::string>(argv + 1, argv + argc), std::cin, std::cout,
                        std::cerr);
}
