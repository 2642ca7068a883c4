#pragma once

#include <fstream>
#include <initializer_list>
#include <sstream>
#include "app/wiring.h"

#include "app/main_window.h"
#include "gui/view_test.h"
#include "gui/widgets/settings.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

/// Base of tests of the calculation views: the program from its start, with the database that is
/// built with it.
class CalcViewTest : public ViewTest {
  protected:
    CalcViewTest() {
        settings::setShowTipsAtStartup(false);
        wiring::connectViews(desk, commands);
        frame.show();
        frame.startUp();
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

    /// Experimental data in place of those of the session.
    void useData(std::initializer_list<calculation::BatchDataSet> sets) {
        const auto now = session.change();
        now->measured.points = sets;
        now->measured_unsaved = false;
    }

    /// The number that stands behind a text in a widget that shows more; NaN when there is none.
    static double numberBehind(const QString& name, const QString& label) {
        const QString text = drive::read(name);
        const qsizetype at = text.indexOf(label);
        bool ok = false;
        const double value = at < 0 ? 0.0
                                    : text.mid(at + label.size())
                                          .section('\n', 0, 0)
                                          .trimmed()
                                          .section(' ', 0, 0)
                                          .toDouble(&ok);
        return ok ? value : std::nan("");
    }

    static bool lists(const QString& text) { return drive::read("Liste").contains(text); }

    static std::string content(const std::filesystem::path& file) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream all;
        all << in.rdbuf();
        return all.str();
    }

    Commands commands;
    MainWindow frame{desk, commands};
};
