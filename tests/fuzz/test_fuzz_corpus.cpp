#include <gtest/gtest.h>

#include <algorithm>

#include "harness.h"

/// Every input that the fuzzer ever found fault with, and the seeds that it starts from.
namespace {

class FuzzCorpus : public testing::TestWithParam<fuzz::Target> {};

TEST_P(FuzzCorpus, IsReadWithoutFaultAndNotRefusedAltogether) {
    const fuzz::Target& target = GetParam();
    ASSERT_FALSE(fuzz::corpus(target).empty()) << "nothing to begin with";
    EXPECT_GT(fuzz::replay(target), 0) << "its reader takes none of the seeds";
}

TEST_P(FuzzCorpus, HoldsUpAgainstNothingAndEndlessRepetition) {
    const fuzz::Target& target = GetParam();
    target.read("");
    target.read(std::string(100000, '['));
    target.read(std::string(100000, '\n'));
    target.read(std::string(100000, '9'));
    target.read(std::string(100000, '\0'));
}

INSTANTIATE_TEST_SUITE_P(Readers, FuzzCorpus, testing::ValuesIn(fuzz::targets()),
                         [](const auto& target) { return target.param.name; });

TEST(FuzzTargetDeathTest, ATargetThatWouldTestNothingEndsAtItsStart) {
    const auto refuses = [](std::string_view) { return false; };
    const auto takes = [](std::string_view) { return true; };
    EXPECT_DEATH(fuzz::require_seeds({"no_such_target", takes}), "corpus\\(target\\).empty");
    EXPECT_DEATH(fuzz::require_seeds({"tips", refuses}), "replay\\(target\\) > 0");
    fuzz::require_seeds({"tips", takes});
}

TEST(FuzzTargetDeathTest, APropertyThatDoesNotHoldEndsTheProcessWithItsPlace) {
    EXPECT_DEATH(FUZZ_CHECK(fuzz::targets().empty()), "test_fuzz_corpus.cpp:.*targets");
}

TEST(FuzzCorpus, HasADictionaryAndSeedsForEachTargetAndForNothingElse) {
    namespace fs = std::filesystem;
    const fs::path corpus = QUOR_FUZZ_CORPUS;
    for (const fuzz::Target& target : fuzz::targets())
        EXPECT_TRUE(fs::exists(corpus / "../dictionaries" / (target.name + ".dict")))
            << target.name;
    for (const fs::directory_entry& folder : fs::directory_iterator(corpus))
        EXPECT_TRUE(std::ranges::any_of(
            fuzz::targets(),
            [&](const fuzz::Target& target) { return folder.path().filename() == target.name; }))
            << folder.path() << " belongs to no target";
}

}  // namespace
