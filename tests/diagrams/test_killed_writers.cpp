#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "chart/chart_file.h"
#include "common/whole_file.h"
#include "diagrams/active_fluid.h"
#include "session/calculations.h"
#include "session/measured_data_session.h"
#include "session/project_session.h"
#include "session/substance_session.h"
#include "session/xy_session.h"
#include "support/databases.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;

std::string content(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A kind of file, and how the program writes it with one of two contents.
struct Kind {
    const char* name;
    std::function<void(const fs::path& file, bool second)> write;
};

class KilledWriters : public ActiveFluid {
  protected:
    KilledWriters() {
        activate("Propane");
        change([this](auto& state) {
            state.substance = substance;
            state.models = selection;
            state.eos_parameters = eosConstants;
        });
        databases::Write(folder() / "STUDENT.Q05", {databases::Row("Propane")});
        session::load_database(session, (folder() / "STUDENT.Q05").string());
        session::take_substance(session, 1);
        user.inputAnswers.assign(100000, "a comment");
    }

    /// Measured data that differ in their number.
    void data(bool second) {
        session.change()->measured.points.assign(second ? 900 : 700,
                                                 {.T = 300, .p = 500, .rhoV = 11});
    }
    void answer(const fs::path& file) {
        user.fileAnswers = {file.string()};
        user.answers.assign(3, dialogs::Answer::Yes);
    }

    std::vector<Kind> kinds() {
        return {
            {"project.QCF",
             [this](const fs::path& file, bool second) {
                 change([&](auto& state) {
                     state.project_comment = std::string(second ? 9000 : 7000, 'c');
                     state.last_session_file = file.string();
                 });
                 (void)session::save_last_session(session);
             }},
            {"data.BAQ",
             [this](const fs::path& file, bool second) {
                 data(second);
                 answer(file);
                 session::save_measured_data(session);
             }},
            {"points.XY",
             [this](const fs::path& file, bool second) {
                 const std::vector<datafiles::FitPoint> points(second ? 9000 : 7000, {1, 2, 0});
                 answer(file);
                 session::save_xy(session, {"points", points});
             }},
            {"own.Q05",
             [this](const fs::path& file, bool second) {
                 session.change()->substance.name = std::string(second ? 30 : 20, 'n');
                 answer(file);
                 session::save_private_database(session);
             }},
            {"diagram.oc2",
             [](const fs::path& file, bool second) {
                 chart::Chart2D chart;
                 chart::series_at(chart, chart::Group::Curves, 0).x.assign(second ? 9000 : 7000, 1);
                 (void)files::write_whole(file, chart::to_text(chart));
             }},
            {"surface.oc3",
             [](const fs::path& file, bool second) {
                 chart::Chart3D chart;
                 chart.header.text = std::string(second ? 9000 : 7000, 't');
                 (void)files::write_whole(file, chart::to_text(chart));
             }},
            {"results.LST",
             [this](const fs::path& file, bool second) {
                 data(second);
                 change([](auto& state) {
                     state.calculation.task = calculation::Task::state;
                     state.batch_mode = true;
                 });
                 answer(file);
                 session::save_result_list(session, "T, p", false);
             }},
            {"protocol.CSV",
             [this](const fs::path& file, bool second) {
                 change([&](auto& state) {
                     report::Protocol& protocol = state.protocol;
                     const std::string name = file.filename().string();
                     if (protocol.file != name) protocol.begin(name);
                     protocol.rows.assign(second ? 90 : 70, {});
                     for (auto& row : protocol.rows) row.values[0] = 300;
                     protocol.pending = true;
                 });
                 session::write_protocol(session);
             }},
        };
    }
};

TEST_F(KilledWriters, EveryFileHoldsItsOldOrItsNewContent) {
    for (const Kind& kind : kinds()) {
        SCOPED_TRACE(kind.name);
        const fs::path file = folder() / kind.name;
        kind.write(file, true);
        const std::string newer = content(file);
        kind.write(file, false);
        const std::string older = content(file);
        ASSERT_FALSE(older.empty());
        ASSERT_NE(older, newer);
        for (int round = 0; round < 200; ++round) {
            const pid_t writer = fork();
            ASSERT_GE(writer, 0);
            if (writer == 0)
                for (bool second = true;; second = !second) kind.write(file, second);
            usleep(static_cast<useconds_t>(300 + 23 * round));
            kill(writer, SIGKILL);
            waitpid(writer, nullptr, 0);
            const std::string found = content(file);
            ASSERT_TRUE(found == older || found == newer)
                << "round " << round << ", " << found.size() << " bytes";
        }
    }
}

}  // namespace
