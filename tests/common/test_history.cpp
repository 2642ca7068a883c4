#include "common/history.h"

using namespace quor;

namespace {

using Words = std::vector<std::string>;

TEST(History, BeginsWithoutAStep) {
    History<int> history{3};
    EXPECT_EQ(history.value(), 3);
    EXPECT_FALSE(history.can_undo());
    EXPECT_FALSE(history.can_redo());
    EXPECT_EQ(history.undo_name(), std::nullopt);
    EXPECT_FALSE(history.undo());
    EXPECT_FALSE(history.redo());
    EXPECT_EQ(history.value(), 3);
}

TEST(History, TakesStepsBackAndMakesThemAgain) {
    History<Words> history;
    history.change("Add a", {"a"});
    history.change("Add b", {"a", "b"});
    EXPECT_EQ(history.undo_name(), "Add b");
    EXPECT_EQ(history.redo_name(), std::nullopt);

    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.value(), Words{"a"});
    EXPECT_EQ(history.undo_name(), "Add a");
    EXPECT_EQ(history.redo_name(), "Add b");

    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.value(), Words{});
    EXPECT_TRUE(history.redo());
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(history.value(), (Words{"a", "b"}));
    EXPECT_FALSE(history.can_redo());
}

TEST(History, AChangeAfterAnUndoForgetsWhatWasUndone) {
    History<int> history{0};
    history.change("one", 1);
    history.change("two", 2);
    history.undo();
    history.change("three", 3);
    EXPECT_FALSE(history.can_redo());
    history.undo();
    EXPECT_EQ(history.value(), 1);
    EXPECT_EQ(history.redo_name(), "three");
}

TEST(History, AnEqualValueIsNoStep) {
    History<int> history{5};
    history.change("nothing", 5);
    EXPECT_FALSE(history.can_undo());
}

TEST(History, ForgetsItsOldestSteps) {
    History<std::size_t> history{0};
    const std::size_t most = History<std::size_t>::kMostSteps;
    for (std::size_t i = 1; i <= most + 5; ++i) history.change("step", i);
    EXPECT_EQ(history.value(), most + 5);
    std::size_t steps = 0;
    while (history.undo()) ++steps;
    EXPECT_EQ(steps, most);
    EXPECT_EQ(history.value(), 5U);
}

TEST(History, StepsOfALongListDoNotFillTheMemory) {
    // Every step of a million points was kept: 200 of them took gigabytes.
    struct List {
        std::vector<float> points;
        bool operator==(const List&) const = default;
    };
    History<List> history;
    const std::size_t many = History<List>::kMostPoints / 4;
    for (int i = 1; i <= 10; ++i)
        history.change("step", {std::vector<float>(many, static_cast<float>(i))});
    int steps = 0;
    while (history.undo()) ++steps;
    EXPECT_EQ(steps, 3);
    EXPECT_EQ(history.value().points.front(), 7);
    history.restart({});
    history.change("huge", {std::vector<float>(2 * History<List>::kMostPoints)});
    EXPECT_TRUE(history.can_undo());
}

TEST(History, ARestartLeavesNothingToUndo) {
    History<int> history{1};
    history.change("two", 2);
    history.restart(7);
    EXPECT_EQ(history.value(), 7);
    EXPECT_FALSE(history.can_undo());
    EXPECT_FALSE(history.can_redo());
}

}  // namespace
