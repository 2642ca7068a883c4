#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "session/session.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

using namespace quor;

/// Base of tests with a session of their own: it starts from the state of a fresh program, with a
/// folder of its own as the program's folder and a scripted user.
class SessionTest : public testing::Test {
  protected:
    SessionTest();
    ~SessionTest() override;

    /// The test's own folder, empty at its start and removed at its end.
    const std::filesystem::path& folder() const { return folder_.path(); }

    /// Changes the state in one step.
    template <class Edit>
    void change(Edit edit) {
        const auto state = session.change();
        edit(*state);
    }

  private:
    TemporaryFolder folder_;

  protected:
    ScriptedDialogs user;
    session::Session session{Places(folder(), {}, "15.11.2026")};
};
