#pragma once

namespace quor::gui {

/// A view that shows something of the session, such as the present fluid. The frame tells it
/// whenever the session may have changed.
class FollowsSession {
  public:
    FollowsSession() = default;
    FollowsSession(const FollowsSession&) = delete;
    FollowsSession& operator=(const FollowsSession&) = delete;
    virtual ~FollowsSession() = default;

    virtual void followSession() = 0;
};

}  // namespace quor::gui
