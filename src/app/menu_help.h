#pragma once

#include <span>
#include <string_view>

namespace quor::help {

/// The name of a control and the page about it.
struct NamedTopic {
    std::string_view name;
    int topic;
};

/// The pages of the views and of larger parts of them.
std::span<const NamedTopic> view_topics();

/// The page about a view or a part of one by its control name; -1 when it has none of its own.
int topic_of_view(std::string_view name);

/// The page about a menu row or tool button by its control name: its own, else that of the menu it
/// stands in; -1 for a name that belongs to no menu.
int topic_of_row(std::string_view name);

}  // namespace quor::help
