#pragma once

#include "app/main_window.h"
#include "app/wiring.h"
#include "gui/view_test.h"
#include "support/databases.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

/// A running program with a few files in its folder: STUDENT.Q05 of three substances, one of them
/// without acentric factor and one without critical data, synonyms and tips.
class FrameTest : public ViewTest {
  protected:
    FrameTest() {
        const std::filesystem::path data = std::string(QUOR_SOURCE_DATA);
        for (const char* name : {"SYNOM.TXT", "QUORTIPS_E.TXT"})
            std::filesystem::copy_file(data / name, folder() / name);
        databases::TableRow noOmega = databases::Row("Argon");
        noOmega["omega"] = "";
        databases::TableRow noCritical = databases::Row("Water");
        noCritical["Tcrit"] = "";
        databases::Write(folder() / "STUDENT.Q05",
                         {databases::Row("Carbon dioxide"), noOmega, noCritical});
    }

    /// Changes what stands behind the commands before the frame opens.
    virtual void connect() {}

    /// Starts the program as its user finds it.
    void start() {
        wiring::connectViews(desk, commands);
        connect();
        frame = std::make_unique<MainWindow>(desk, commands);
        frame->show();
        frame->startUp();
        drive::settle();
        if (drive::find("frmTip") != nullptr) drive::click("cmdOK");
    }

    /// "New project" down to confirmed default models.
    void openSubstance(const QString& name) {
        user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
        drive::when("frmStoffWahl", [name] {
            drive::type("Text1", name);
            drive::click("StoffOK");
        });
        drive::when("frmQModell", [] { drive::click("OKModell"); });
        drive::click("Toolbar1_2");
    }

    void TearDown() override {
        ViewTest::TearDown();
        frame.reset();
    }

    Commands commands;
    std::unique_ptr<MainWindow> frame;
};
