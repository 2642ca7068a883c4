#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "legacy/declare.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

using namespace quor;

/// Base of tests that touch the process-level records: every test starts from the state of a
/// fresh program, with a folder of its own as the program's folder and a scripted user.
class SessionTest : public testing::Test {
  protected:
    SessionTest();
    ~SessionTest() override;

    /// The test's own folder, empty at its start and removed at its end.
    const std::filesystem::path& folder() const { return folder_.path(); }

    ScriptedDialogs user;

  private:
    TemporaryFolder folder_;
};
