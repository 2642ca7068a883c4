#include <unistd.h>

#include <filesystem>
#include <iostream>

#include "session/module2.h"
#include "tools/quorcalc/commands.h"
#include "tools/quorcalc_pictures/picture_drawer.h"

using namespace quor;

int main(int argc, char** argv) {
    // The program's folder is where the executable stands; no environment is read.
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    legacy::the_places = Places(error ? std::filesystem::path(".") : self.parent_path());
    picture_drawer::Install();
    return quorcalc::Main(std::vector<std::string>(argv + 1, argv + argc), std::cin, std::cout,
                          std::cerr);
}
