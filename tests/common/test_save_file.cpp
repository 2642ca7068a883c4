#include "common/save_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;
using dialogs::Answer;

class SavingAFile : public testing::Test {
  protected:
    std::optional<std::string> save(bool asked_by_dialog = true) {
        return saving::save_where_chosen({.choice = {.save = true,
                                                     .folder = folder().string(),
                                                     .default_extension = ".TXT",
                                                     .overwrite_prompt = asked_by_dialog},
                                          .content = [this](const std::string& path) {
                                              asked_for.push_back(path);
                                              if (meanwhile) meanwhile(path);
                                              return refusal.empty()
                                                         ? Result<std::string>("content")
                                                         : Failure{refusal};
                                          }});
    }
    std::string read(const std::string& name) const {
        std::ifstream in(folder() / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder() / name) << text;
    }
    const fs::path& folder() const { return folder_.path(); }

    ScriptedDialogs user;
    std::vector<std::string> asked_for;
    std::function<void(const std::string& path)> meanwhile;
    std::string refusal;

  private:
    TemporaryFolder folder_;
};

TEST_F(SavingAFile, FolderAndExtensionCompleteAName) {
    user.fileAnswers = {"a"};
    EXPECT_EQ(save(), (folder() / "a.TXT").string());
    EXPECT_EQ(read("a.TXT"), "content");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(SavingAFile, AnotherPlaceIsOfferedUntilItIsWrittenOrGivenUp) {
    user.fileAnswers = {(folder() / "no" / "a").string(), (folder() / "nor" / "a").string(), "a"};
    EXPECT_EQ(save(), (folder() / "a.TXT").string());
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.messages[0].text,
              "The file a.TXT could not be written (No such file or directory).\n\n"
              "Save it in another place?");
    user.fileAnswers = {(folder() / "no" / "b").string(), "b"};
    user.answers = {Answer::No};
    EXPECT_EQ(save(), std::nullopt);
    user.fileAnswers = {(folder() / "no" / "b").string(), std::nullopt};
    EXPECT_EQ(save(), std::nullopt);
    EXPECT_FALSE(fs::exists(folder() / "b.TXT"));
}

TEST_F(SavingAFile, WhatHasNoContentForAPlaceIsToldLikeAFailedWrite) {
    refusal = "This is the file that is open.";
    user.fileAnswers = {"a"};
    user.answers = {Answer::No};
    EXPECT_EQ(save(), std::nullopt);
    EXPECT_EQ(user.lastText(), "This is the file that is open.\n\nSave it in another place?");
    EXPECT_FALSE(fs::exists(folder() / "a.TXT"));
}

TEST_F(SavingAFile, AFileThatAnotherProgramMakesAfterTheQuestionIsAskedAbout) {
    meanwhile = [](const std::string& path) { std::ofstream(path) << "of another program"; };
    user.fileAnswers = {"a"};
    user.answers = {Answer::No};
    EXPECT_EQ(save(), std::nullopt);
    EXPECT_EQ(user.lastText(), "such a file is already existing\nOverwright?");
    EXPECT_EQ(read("a.TXT"), "of another program");
}

TEST_F(SavingAFile, ADialogThatDoesNotAskAboutAnOldFileIsMadeUpFor) {
    write("a.TXT", "old");
    user.fileAnswers = {"a", "a", "a"};
    user.answers = {Answer::No, Answer::Yes};
    EXPECT_EQ(save(false), std::nullopt);
    EXPECT_EQ(read("a.TXT"), "old");
    EXPECT_TRUE(asked_for.empty()) << "nothing is made before the answer";
    EXPECT_TRUE(save(false));
    EXPECT_EQ(read("a.TXT"), "content");
    user.messages.clear();
    EXPECT_TRUE(save(true));
    EXPECT_TRUE(user.messages.empty()) << "the dialog has asked";
}

}  // namespace
