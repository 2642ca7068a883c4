#include "support/comma_locale.h"

#include <clocale>
#include <cstdlib>
#include <stdexcept>

namespace {

constexpr auto kLocale = "de_DE.UTF-8";

bool comma_is_set() {
    return std::setlocale(LC_ALL, kLocale) != nullptr &&
           std::string(std::localeconv()->decimal_point) == ",";
}

}  // namespace

CommaLocale::CommaLocale() : kept_(std::setlocale(LC_ALL, nullptr)) {
    if (comma_is_set()) return;
    const std::string folder = folder_.path().string();
    const std::string make =
        "localedef -i de_DE -f UTF-8 '" + folder + "/" + kLocale + "' > /dev/null 2>&1";
    // Its warnings count as failures too: what is made tells.
    (void)!std::system(make.c_str());
    setenv("LOCPATH", folder.c_str(), 1);
    if (comma_is_set()) return;
    unsetenv("LOCPATH");
    throw std::runtime_error("no locale with a decimal comma: is the package locales installed?");
}

CommaLocale::~CommaLocale() {
    std::setlocale(LC_ALL, kept_.c_str());
    unsetenv("LOCPATH");
}
