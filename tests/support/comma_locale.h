#pragma once

#include <string>

#include "support/temporary_folder.h"

/// The process as it runs on a German desktop while this lives: the C library writes and reads a
/// comma as the decimal mark. The locale is made in a folder of its own where the machine has none.
class CommaLocale {
  public:
    /// Throws where the locale can be neither found nor made.
    CommaLocale();
    ~CommaLocale();
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

  private:
    TemporaryFolder folder_;
    std::string kept_;
};
