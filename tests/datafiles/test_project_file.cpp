#include "datafiles/project_file.h"
#include "models/unit_text.h"

using namespace quor;

namespace {

using datafiles::project_text;
using datafiles::ProjectContent;
using datafiles::read_project;
using models::ManualVirial;

constexpr std::size_t kTold = 32;  // lines that every reader knows

ProjectContent manual_project() {
    ProjectContent content{
        .date = "15.11.2026", .comment = "c", .database = "A.Q05", .casrn = "74-98-6     "};
    content.settings.diagram_T = 300.5;
    content.settings.eos = models::Eos::manualVirial;
    content.settings.tank_T = 280.0F;
    content.manual_virial = ManualVirial{-0.275, 1.0 / 3.0, 1e-7};
    return content;
}

std::size_t lines_of(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST(project_file, CoefficientsOfTheManualVirialEquationComeBackExactly) {
    const auto read = read_project(project_text(manual_project()), "P.QCF");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->manual_virial, manual_project().manual_virial);
    EXPECT_EQ(read->settings.eos, models::Eos::manualVirial);
    EXPECT_EQ(read->settings.tank_T, 280.0F);
}

TEST(project_file, TheyStandBehindTheLinesThatEveryReaderKnows) {
    ProjectContent without = manual_project();
    without.manual_virial.reset();
    const std::string text = project_text(manual_project());
    EXPECT_EQ(lines_of(project_text(without)), kTold);
    EXPECT_EQ(text.find(project_text(without)), 0U);
    EXPECT_EQ(lines_of(text), kTold + 3);
}

TEST(project_file, AnIncompleteOrCutEquationIsNone) {
    const std::string text = project_text(manual_project());
    const std::size_t told = text.find("b0=");
    ASSERT_NE(told, std::string::npos);
    for (std::size_t length = told; length < text.size() - 1; ++length) {
        const auto read = read_project(text.substr(0, length), "P.QCF");
        ASSERT_TRUE(read) << length;
        EXPECT_EQ(read->manual_virial, std::nullopt) << length;
        EXPECT_EQ(read->settings.tank_T, 280.0F) << length;
    }
}

TEST(project_file, ASettingThatIsNotToldStaysOut) {
    const auto read = read_project(project_text(manual_project()), "P.QCF");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->settings.diagram_T, 300.5);
    EXPECT_EQ(read->settings.diagram_p, std::nullopt);
    EXPECT_EQ(read->settings.csv_separator, std::nullopt);
}

TEST(project_file, ANumberWithoutAnEquationOfStateMeansTheIdealGas) {
    std::string text = project_text(manual_project());
    // Item 15, the equation of state.
    text.replace(text.find("\r\n10\r\n"), 6, "\r\n9\r\n");
    const auto read = read_project(text, "P.QCF");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->settings.eos, models::Eos::idealGas);
}

TEST(project_file, AnotherFileIsRefusedByName) {
    EXPECT_EQ(read_project("one line", "P.QCF").reason(), "The file P.QCF is no project file.");
}

TEST(ProjectFile, NamesAndCommentsOutsideTheCodePageAreKept) {
    datafiles::ProjectContent content{.date = "22.11.2026",
                                      .comment = "температура 温度",
                                      .database = "вода.Q05",
                                      .casrn = "7732-18-5"};
    for (const bool virial : {false, true}) {
        if (virial) content.manual_virial = models::ManualVirial{1, 2, 3};
        const std::string file = datafiles::project_text(content);
        const auto read = datafiles::read_project(file, "A.QCF");
        ASSERT_TRUE(read);
        EXPECT_EQ(read->database, "вода.Q05");
        EXPECT_EQ(read->comment, "температура 温度");
        EXPECT_EQ(read->manual_virial, content.manual_virial);
    }
    content.database = "Wärme.Q05";
    content.comment = "Größe";
    EXPECT_EQ(datafiles::project_text(content).find("database="), std::string::npos)
        << "what the code page has stands once";
    // Bytes that are no text, and a name that is none, leave what the head says, or are refused.
    const std::string file = datafiles::project_text(content);
    EXPECT_EQ(datafiles::read_project(file + "database=\xFF\xFE\r\n", "A.QCF")->database,
              "Wärme.Q05");
    EXPECT_FALSE(datafiles::read_project(file + "database=\r\n", "A.QCF"));
}

TEST(ProjectFile, ANamedReferenceStateStandsWhereAnOlderReaderNeverLooks) {
    datafiles::ProjectContent content{
        .date = "22.11.2026", .database = "A.Q05", .casrn = "74-98-6"};
    const std::string plain = datafiles::project_text(content);
    content.named_reference = models::NamedState::iir;
    const std::string iir = datafiles::project_text(content);
    EXPECT_EQ(iir, plain + "refstate=iir\r\n");
    EXPECT_EQ(datafiles::read_project(iir, "A.QCF")->named_reference, models::NamedState::iir);

    content.named_reference = models::NamedState::own;
    content.own_state = {290.1, 100.2, false, -1000.3, 5.4};
    content.manual_virial = models::ManualVirial{1, 2, 3};
    const std::string own = datafiles::project_text(content);
    const auto read = datafiles::read_project(own, "A.QCF");
    EXPECT_EQ(read->named_reference, models::NamedState::own);
    EXPECT_EQ(read->own_state, content.own_state);
    EXPECT_EQ(read->manual_virial, content.manual_virial);
    for (const char* wrong : {"own_T=0\r\n", "own_p=-1\r\n", "own_h=x\r\n", "own_phase=S\r\n"}) {
        const std::string label = std::string(wrong).substr(0, std::string(wrong).find('=') + 1);
        std::string damaged = own;
        const std::size_t at = damaged.find(label);
        damaged.replace(at, damaged.find('\n', at) + 1 - at, wrong);
        EXPECT_EQ(datafiles::read_project(damaged, "A.QCF")->named_reference,
                  models::NamedState::none)
            << wrong;
    }
    EXPECT_EQ(datafiles::read_project(plain + "refstate=nonsense\r\n", "A.QCF")->named_reference,
              models::NamedState::none);
}

TEST(ProjectFile, UnitsOfTheirOwnStandWhereAnOlderReaderNeverLooks) {
    datafiles::ProjectContent content{
        .date = "22.11.2026", .database = "A.Q05", .casrn = "74-98-6"};
    const std::string plain = datafiles::project_text(content);
    content.units = models::read_choice("T=degC,p=bar(g)").value();
    const std::string own = datafiles::project_text(content);
    EXPECT_EQ(own, plain + "units=T=degC,p=bar(g)\r\n");
    EXPECT_EQ(datafiles::read_project(own, "A.QCF")->units, content.units);
    EXPECT_FALSE(datafiles::read_project(plain, "A.QCF")->units);
    for (const char* wrong : {"units=\r\n", "units=T=bar\r\n", "units=\xFF\r\n"})
        EXPECT_FALSE(datafiles::read_project(plain + wrong, "A.QCF")->units) << wrong;
}

}  // namespace
