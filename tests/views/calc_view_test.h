#pragma once

#include "common/views/settings.h"
#include "session/views/mdiQUOR.h"
#include "views/view_test.h"

/// Base of tests of the calculation views: the program from its start, with the database that is
/// built with it.
class CalcViewTest : public ViewTest {
  protected:
    CalcViewTest() {
        settings::setShowTipsAtStartup(false);
        frame.show();
        frame.StartUp();
    }

    /// "New project": the database, a substance, its models as `choose` leaves them.
    void startProject(
        const QString& substance, const std::function<void()>& choose = [] {}) {
        user.fileAnswers.emplace_back(QUOR_BINARY_FOLDER "/STUDENT.Q05");
        drive::when("frmStoffWahl", [=] {
            drive::type("Text1", substance);
            drive::click("StoffOK");
        });
        drive::when("frmQModell", [=] {
            choose();
            drive::click("OKModell");
        });
        drive::click("Toolbar1_2");
        user.messages.clear();
    }

    /// Chooses "T, p => rho" and answers the question of the phase equilibrium.
    void chooseTp(bool vle = false) {
        user.answers.push_back(vle ? dialogs::Answer::Yes : dialogs::Answer::No);
        drive::choose("mnuCalc_2");
    }

    /// Types T and p and calculates.
    static void calculate(const QString& T, const QString& p) {
        drive::type("par_0", T);
        drive::type("par_1", p);
        drive::click("cmdParameter_OK");
    }

    mdiQUOR frame;
};
