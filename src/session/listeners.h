#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quor::session {

namespace detail {

struct ListenerList {
    struct Listener {
        std::uint64_t number;
        std::function<void()> call;
    };
    std::vector<Listener> all;
    std::uint64_t next = 1;
};

}  // namespace detail

/// That somebody listens. It ends with this object; one that outlives what it listened to is
/// harmless.
class Connection {
  public:
    Connection() = default;
    Connection(std::weak_ptr<detail::ListenerList> list, std::uint64_t number)
        : list_(std::move(list)), number_(number) {}
    Connection(Connection&& other) noexcept
        : list_(std::exchange(other.list_, {})), number_(other.number_) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this == &other) return *this;
        end();
        list_ = std::exchange(other.list_, {});
        number_ = other.number_;
        return *this;
    }
    ~Connection() { end(); }

    /// From now on nothing is heard.
    void end() {
        if (const auto list = list_.lock())
            std::erase_if(list->all, [&](const auto& one) { return one.number == number_; });
        list_.reset();
    }

  private:
    std::weak_ptr<detail::ListenerList> list_;
    std::uint64_t number_ = 0;
};

/// Those who want to hear of something, in the order in which they came.
class Listeners {
  public:
    [[nodiscard]] Connection add(std::function<void()> call) {
        const std::uint64_t number = list_->next++;
        list_->all.push_back({number, std::move(call)});
        return {list_, number};
    }

    /// Calls everyone. A call may end connections and make new ones; who has left meanwhile is not
    /// called any more.
    void tell() const {
        const std::shared_ptr<detail::ListenerList> list = list_;
        for (const auto& [number, call] : std::vector(list->all))
            if (std::ranges::any_of(list->all,
                                    [n = number](const auto& one) { return one.number == n; }))
                call();
    }

  private:
    std::shared_ptr<detail::ListenerList> list_ = std::make_shared<detail::ListenerList>();
};

}  // namespace quor::session
