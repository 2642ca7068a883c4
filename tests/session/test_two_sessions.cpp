// Two sessions side by side, in one thread and in two: each gives what it gives alone.

#include <gtest/gtest.h>

#include <array>
#include <latch>
#include <sstream>
#include <thread>

#include "chart/chart_file.h"
#include "chart/picture2d.h"
#include "chart/scene3d.h"
#include "common/text.h"
#include "datafiles/project_file.h"
#include "diagrams/sheet_file.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/surface_sheet.h"
#include "models/reference_choice.h"
#include "session/calculations.h"
#include "session/diagram_choice.h"
#include "session/end_session.h"
#include "session/measured_data_session.h"
#include "session/options.h"
#include "session/project_session.h"
#include "session/substance_session.h"
#include "session/take_models.h"
#include "support/database_builder.h"
#include "support/databases.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

constexpr double kSheetWidth = 700, kSheetHeight = 500;

chart::TextSize measure(const std::string& text, const chart::Font& font) {
    const auto size = static_cast<double>(font.size);
    return {0.6 * size * static_cast<double>(text.size()), 1.2 * size};
}

namespace fs = std::filesystem;

using calculation::Task;
using models::Eos;

/// What a session works on.
struct Plan {
    std::string database;
    std::vector<std::string> substances;  ///< of the database
    std::string substance;                ///< that is worked on
    Eos eos;
    models::VaporisationModel vaporisation;
    bool specific;
    models::ReferenceOption reference;
    double h, s;                ///< of the reference state
    double T, dT, p;            ///< K, K, kPa
    std::array<int, 4> charts;  ///< codes of diagrams
    char separator;
    std::string note;  ///< in files, with letters that have another code there
};

Plan propane() {
    return {"FIRST.Q05",
            {"Methane", "Propane"},
            "Propane",
            Eos::pengRobinson,
            models::VaporisationModel::cubicEos,
            false,
            models::ReferenceOption::Formation,
            0,
            0,
            250,
            3,
            400,
            {1, 6, 15, 21},
            ';',
            "gemessen von Käthe Müller, 20 °C"};
}
Plan water() {
    return {"SECOND.Q05",
            {"Water", "Nitrogen", "Ammonia"},
            "Water",
            Eos::redlichKwong,
            models::VaporisationModel::databaseEquation,
            true,
            models::ReferenceOption::Values,
            150,
            2.5,
            400,
            5,
            200,
            {2, 5, 17, 22},
            '\t',
            "Groß und größer: ÄÖÜ ±2 µm"};
}

/// A session that goes through the steps of its plan, and writes down all that it gets to see.
class Work {
  public:
    explicit Work(Plan plan) : plan_(std::move(plan)) {
        std::vector<databases::TableRow> rows;
        for (const std::string& name : plan_.substances) rows.push_back(databases::Row(name));
        databases::Write(folder_.path() / plan_.database, rows);
    }

    /// The steps are those of a user: first the beginning, then rounds over all that can be done
    /// with a fluid, and the end of the program.
    static constexpr int kBeginning = 4, kRound = 9, kRounds = 24;
    static constexpr int kSteps = kBeginning + kRound * kRounds + 1;

    /// What was to be seen of a step.
    std::string step(int number) {
        out_.str("");
        out_ << std::hexfloat;
        ScriptedDialogs user;
        const int before = heard_;
        if (number < kBeginning)
            begin(number);
        else if (number == kSteps - 1)
            end();
        else
            go_on((number - kBeginning) % kRound, (number - kBeginning) / kRound);
        write_told(user);
        out_ << "changes heard: " << heard_ - before << '\n';
        return out_.str();
    }

    /// All steps.
    std::vector<std::string> all() {
        std::vector<std::string> seen;
        for (int i = 0; i < kSteps; ++i) seen.push_back(step(i));
        return seen;
    }

    int heard() const { return heard_; }

  private:
    void begin(int step) {
        switch (step) {
            case 0:
                EXPECT_EQ(session::load_database(session_, plan_.database),
                          session::LoadOutcome::Loaded);
                for (const datafiles::DatabaseEntry& entry : session_->database.entries())
                    out_ << entry.number << entry.formula << entry.name << entry.casrn << '\n';
                return;
            case 1: {
                const std::string casrn = databases::Row(plan_.substance)["casrn"];
                const std::int16_t place = session::find_substance(session_, casrn);
                EXPECT_TRUE(session::take_substance(session_, place));
                EXPECT_EQ(session_->substance.name, plan_.substance);
                const models::SubstanceRecord& s = session_->substance;
                write({s.M, s.Tcrit, s.pcrit, s.Tboil, s.frost_van_der_waals.a[0], s.thompson.A});
                return;
            }
            case 2: {
                models::ModelChoice choice(session_->substance, session_->models);
                choice.choose_eos(models::index_of(choice.eos(), plan_.eos));
                choice.choose_hlv(models::index_of(choice.hlv(), plan_.vaporisation));
                EXPECT_TRUE(session::take_models(session_, choice));
                const models::EosParameters& eos = session_.fluid().eos();
                write({eos.a0, eos.b0, eos.na, eos.vcrit_calculated, eos.rhocrit_calculated});
                return;
            }
            default: {
                models::ReferenceState reference = session_->reference;
                models::ReferenceFields fields = models::after_choice(
                    plan_.reference, models::fields_of(reference, session_->caloric_factor));
                fields[models::FieldTenv] += plan_.dT;
                if (models::is_editable(plan_.reference, models::FieldH)) {
                    fields[models::FieldH] = plan_.h;
                    fields[models::FieldS] = plan_.s;
                }
                EXPECT_TRUE(models::store_reference(plan_.reference, fields,
                                                    session_->caloric_factor, reference));
                session_.change()->reference = reference;
                session::choose_separator(session_, report::separator_index(plan_.separator));
                write(fields);
            }
        }
    }

    void go_on(int step, int round) {
        const double T = plan_.T + round * plan_.dT;
        switch (step) {
            case 0:
                return options(round);
            case 1:
                return calculate_tasks(T);
            case 2:
                return type(T);
            case 3:
                return protocol(round);
            case 4:
            case 5:
                return diagram(plan_.charts[static_cast<std::size_t>(2 * round + step) % 4], round);
            case 6:
                surface(round);
                return measured_data(T);
            case 7:
                return private_database(round);
            default:
                return project(round);
        }
    }

    /// The units change from round to round, and so do the points of a curve.
    void options(int round) {
        session::OptionChoice choice = session::open_options(session_);
        const bool reduced = round % 3 == 2;
        choice.units = {};
        if (reduced) choice.units.system = models::UnitSystem::reduced;
        if (!reduced && (round % 2 == 0) == plan_.specific)
            choice.units = {models::UnitSystem::specific, models::CaloricUnit::specific};
        choice.points = 50 + round;
        choice.s_without_tie_line = round % 4 == 3;
        EXPECT_TRUE(session::apply_options(session_, choice));
        const models::Units units = session::present_units(session_);
        const diagrams::CoordinateDefaults& limits = session_->coordinates;
        out_ << units.T_label << units.p_label << units.v_label << '\n';
        write({units.T, units.p, units.v, units.caloric, limits.p_max, limits.T_max, limits.v_max,
               limits.func_max, limits.entropy_min});
    }

    void calculate_tasks(double T) {
        for (const Task task : {Task::state, Task::saturationAtT, Task::vaporisationAtT,
                                Task::functions, Task::virial, Task::temperature}) {
            session_.change()->calculation.task = task;
            calculation::Request request = session::present_request(session_);
            request.given = {.T = T, .p = plan_.p, .rhoV = 5};
            request.pages = {.residual = true, .derivatives = true, .functions = true};
            write_result(session::calculate(session_, request));
        }
    }

    /// Numbers as a user types them.
    void type(double T) {
        session_.change()->calculation.task = Task::state;
        const std::string text = std::to_string(T);
        const std::array<std::string, 4> typed{text, std::to_string(plan_.p), "", ""};
        EXPECT_EQ(session::accept_input(session_, typed), session::InputResult::Calculated);
        write_result(session_->results.current);
        EXPECT_EQ(session_->results.current.made.fluid, session_.fluid());
    }

    void protocol(int round) {
        session::add_to_protocol(session_);
        const fs::path file = folder_.path() / session_->protocol.file;
        EXPECT_TRUE(session::write_protocol(session_));
        out_ << session_->protocol.file << '\n' << builder::ReadFile(file);
        if (round % 8 != 7) return;
        EXPECT_TRUE(session::open_new_protocol(session_));
    }

    /// A diagram as the menu opens it, with two of its curves.
    void diagram(int code, int round) {
        const diagrams::Diagram& row = diagrams::diagram_of(code);
        const diagrams::Pen pen = session::present_pen(session_);
        const diagrams::PreparedDiagram prepared =
            diagrams::prepare_diagram(row, pen.basis, session::present_start(session_));
        session::keep_start(session_, prepared.start);
        diagrams::DiagramSheet sheet =
            diagrams::open_sheet(prepared.request, pen.basis, prepared.start.at);
        for (const double factor : {1.0, 1.0 + 0.01 * round}) {
            sheet.at.T *= factor;
            sheet.at.p *= factor;
            diagrams::draw(sheet, pen);
        }
        out_ << sheet.chart.header.text << sheet.chart.footer.text << sheet.chart.x.title
             << sheet.chart.y.title << '\n';
        EXPECT_GT(diagrams::curve_count(sheet), 0) << code;
        for (int place = 0; place < diagrams::curve_count(sheet); ++place)
            out_ << sheet.curves[static_cast<std::size_t>(place)].name.legend << '\n'
                 << diagrams::curve_table(sheet, place);
        diagrams::place_labels(sheet, kSheetWidth, kSheetHeight, measure);
        const chart::Picture2D picture =
            chart::picture_of(sheet.chart, kSheetWidth, kSheetHeight, measure);
        out_ << picture.items.size() << '\n';
    }

    /// A surface as the menu opens it, turned and laid out.
    void surface(int round) {
        const auto kinds = diagrams::surface_kinds();
        diagrams::SurfaceSheet sheet =
            diagrams::open_surface(kinds[static_cast<std::size_t>(round) % kinds.size()],
                                   session::present_basis(session_), false, 9, 9);
        diagrams::set_meshlines(sheet, 7 + round % 3, 8);
        const chart::Scene3D scene =
            chart::build_scene(sheet.chart, kSheetWidth, kSheetHeight, measure);
        out_ << chart::to_text(sheet.chart) << scene.shapes.size() << ' ' << scene.texts.size()
             << '\n';
    }

    void measured_data(double T) {
        std::ostringstream text;
        text << "15.11.2026\r\n"
             << text::to_ansi(plan_.note) << "\r\n"
             << session_->substance.casrn << "\r\n3\r\n";
        for (const double at : {T, T + plan_.dT / 2, T + plan_.dT})
            text << at << ',' << plan_.p << ",500,5,15000,90\r\n";
        const fs::path file = folder_.path() / "DATA.BAQ";
        builder::WriteFile(file, text.str());
        EXPECT_TRUE(session::load_measured_data(session_, file.string(), false));
        EXPECT_EQ(session_->measured.comment, plan_.note);
        session_.change()->calculation.task = Task::state;
        const report::Comparison comparison = session::compare_all_sets(session_);
        EXPECT_EQ(comparison.results.size(), 3U);
        out_ << report::printed_list(comparison, "Title", true);
    }

    void private_database(int round) {
        const std::string name = "OWN" + std::to_string(round % 3) + ".Q05";
        // Each thread has a user of its own.
        const auto before = dialogs::current().file;
        dialogs::current().file = [&name](const dialogs::FileChoice&) { return name; };
        EXPECT_TRUE(session::save_private_database(session_));
        dialogs::current().file = before;
        out_ << builder::ReadFile(folder_.path() / name);
    }

    void project(int round) {
        session_.change()->project_comment = plan_.note;
        out_ << datafiles::project_text(session::present_project(session_));
        const fs::path file = folder_.path() / "WORK.QCF";
        builder::WriteFile(file, datafiles::project_text(session::present_project(session_)));
        const models::Fluid before = session_.fluid();
        if (round % 6 != 5) return;
        EXPECT_TRUE(session::load_project(session_, file.string()).models_complete);
        EXPECT_EQ(session_.fluid().eos(), before.eos());
        EXPECT_EQ(session_->project_comment, plan_.note);
    }

    void end() {
        session::end_session(session_);
        out_ << builder::ReadFile(session_->last_session_file);
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.path()))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        for (const std::string& name : names) out_ << name << '\n';
    }

    template <class Numbers>
    void write(const Numbers& numbers) {
        for (const double number : numbers) out_ << number << ' ';
        out_ << '\n';
    }
    void write(std::initializer_list<double> numbers) { write(std::vector<double>(numbers)); }
    void write_result(const report::TaskResult& result) {
        const calculation::Answer& answer = result.answer;
        write({answer.T, answer.p, answer.y, answer.hLV.value_or(0),
               answer.phases.liquid ? answer.phases.liquid->v.value_or(0) : 0,
               answer.phases.vapour ? answer.phases.vapour->v.value_or(0) : 0});
        out_ << report::result_as_text(result.report) << '\n';
    }
    void write_told(const ScriptedDialogs& user) {
        for (const dialogs::Message& m : user.messages) out_ << m.title << ": " << m.text << '\n';
        out_ << user.clipboard << user.beeps << ' ' << user.files.size() << " busy";
        for (const bool busy : user.pointer) out_ << busy;
        out_ << '\n';
    }

    Plan plan_;
    TemporaryFolder folder_;
    session::Session session_{Places(folder_.path(), {}, "15.11.2026")};
    int heard_ = 0;
    session::Connection listener_ = session_.on_change([this] { ++heard_; });
    std::ostringstream out_;
};

void expect_the_same(const std::vector<std::string>& seen, const std::vector<std::string>& alone) {
    ASSERT_EQ(seen.size(), alone.size());
    for (std::size_t i = 0; i < alone.size(); ++i) EXPECT_EQ(seen[i], alone[i]) << "step " << i;
}

TEST(TwoSessions, TakingTurnsGiveWhatEachGivesAlone) {
    const std::vector<std::string> first = Work(propane()).all(), second = Work(water()).all();
    Work one(propane()), other(water());
    std::vector<std::string> seenByOne, seenByOther;
    for (int i = 0; i < Work::kSteps; ++i) {
        const int heardByOther = other.heard();
        seenByOne.push_back(one.step(i));
        EXPECT_EQ(other.heard(), heardByOther) << "a change of the other session, step " << i;
        const int heardByOne = one.heard();
        seenByOther.push_back(other.step(i));
        EXPECT_EQ(one.heard(), heardByOne) << "a change of the other session, step " << i;
    }
    expect_the_same(seenByOne, first);
    expect_the_same(seenByOther, second);
    EXPECT_GT(one.heard(), Work::kRounds);
    EXPECT_GT(other.heard(), Work::kRounds);
}

TEST(TwoSessions, InTwoThreadsGiveWhatEachGivesAlone) {
    const std::vector<Plan> plans = {propane(), water()};
    std::vector<std::vector<std::string>> seen(plans.size());
    {
        std::latch start(static_cast<std::ptrdiff_t>(plans.size()));
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < plans.size(); ++i)
            threads.emplace_back([&, i] {
                Work work(plans[i]);
                start.arrive_and_wait();
                seen[i] = work.all();
            });
    }
    for (std::size_t i = 0; i < plans.size(); ++i) expect_the_same(seen[i], Work(plans[i]).all());
}

TEST(TwoSessions, AnOpenChangeOfOneDoesNotHoldBackTheOther) {
    session::Session one, other;
    int heardOfOne = 0, heardOfOther = 0;
    const session::Connection first = one.on_change([&] { ++heardOfOne; });
    const session::Connection second = other.on_change([&] { ++heardOfOther; });
    {
        const auto open = one.change();
        open->project_comment = "one";
        other.change()->project_comment = "other";
        EXPECT_EQ(heardOfOther, 1);
        EXPECT_EQ(heardOfOne, 0);
    }
    EXPECT_EQ(heardOfOne, 1);
    EXPECT_EQ(heardOfOther, 1);
    EXPECT_EQ(one->project_comment, "one");
    EXPECT_EQ(other->project_comment, "other");
}

TEST(TwoSessions, AThreadAsksNoUserOfAnother) {
    ScriptedDialogs user;
    user.answers = {dialogs::Answer::No};
    bool answer = false;
    std::jthread([&] { answer = dialogs::ask("Go on?", "A worker"); }).join();
    EXPECT_TRUE(answer) << "the default answer";
    EXPECT_TRUE(user.messages.empty());
    EXPECT_FALSE(dialogs::ask("Go on?", "The window"));
    EXPECT_EQ(user.lastTitle(), "The window");
}

}  // namespace
