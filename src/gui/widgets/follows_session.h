#pragma once

#include "session/session.h"

namespace quor::gui {

/// A view that shows something of the session, such as the present fluid: it is told after each
/// change.
class FollowsSession {
  public:
    explicit FollowsSession(session::Session& session)
        : connection_(session.on_change([this] { followSession(); })) {}
    FollowsSession(const FollowsSession&) = delete;
    FollowsSession& operator=(const FollowsSession&) = delete;
    virtual ~FollowsSession() = default;

    virtual void followSession() = 0;

  private:
    session::Connection connection_;
};

}  // namespace quor::gui
