#include "datafiles/substance_editor.h"
#include "support/codes.h"

#include <charconv>
#include <set>

#include "common/constants.h"
#include "datafiles/substance_slots.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/substance_session.h"
#include "session/take_models.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using namespace datafiles;

class SubstanceEditor : public SessionTest {
  protected:
    SubstanceEditor() {
        session.change()->substance = fluids::ReferencePropane();
        session.change()->models.vapour_pressure = codes::vp("WAG");
        session.change()->models.vapour_pressure = codes::vp(4);
        session.change()->models.eos = codes::eos(6);
    }
    static const EditorField& field(int index) {
        return editor_field_table()[static_cast<std::size_t>(index)];
    }
};

/// Every numeric field of a record with a value of its own.
models::SubstanceRecord Numbered() {
    models::SubstanceRecord s;
    s.name = "Somethane";
    s.formula = "C2 H9";
    s.casrn = "12-34-5     ";
    int value = 300;
    for (const EditorField& f : editor_field_table()) {
        ++value;
        struct Put {
            int v;
            void operator()(float* p) const { *p = static_cast<float>(v); }
            void operator()(double* p) const { *p = v; }
            void operator()(std::int16_t* p) const { *p = static_cast<std::int16_t>(v); }
            void operator()(bool*) const {}
            void operator()(std::string*) const {}
        };
        std::visit(Put{value}, locate(s, place_of(f)));
    }
    return s;
}

TEST_F(SubstanceEditor, EveryFieldHasItsIndexAndItsOwnPlace) {
    std::set<std::string> places;
    for (int i = 0; i < kEditorFields; ++i) {
        EXPECT_EQ(field(i).index, i);
        ASSERT_TRUE(find_field(field(i).name).has_value()) << field(i).name;
        EXPECT_TRUE(places.insert(name_of(place_of(field(i)))).second) << i;
        EXPECT_FALSE(field(i).caption.empty()) << i;
    }
}

TEST_F(SubstanceEditor, FieldsStandWhereTheyAreKnown) {
    const struct {
        int first, last;
        const char* name;  // of the first field
        const char* lastName;
        const char* frame;
    } blocks[] = {{4, 7, "Tcrit", "omega", "Critical Data"},
                  {8, 12, "ALP.1", "ALP.THi", "ANTOINE (low press.)"},
                  {13, 17, "AHP.1", "AHP.THi", "ANTOINE (high press.)"},
                  {18, 27, "rhoLPar.1", "rhoLTHi", " rho(T) "},
                  {28, 34, "cpPoly.1", "cpPoly.THi", " polynomial function "},
                  {35, 41, "cpSinh.1", "cpSinh.THi", "sinh/cosh-function"},
                  {42, 43, "WatsonH", "WatsonT", "WATSON reference point"},
                  {44, 45, "dfh", "dfg", "Caloric Data"},
                  {46, 47, "AUG.1", "AUG.2", "AUGUST, calc. from T(crit) and normal boiling point"},
                  {48, 50, "THO.1", "THO.3", "ANTOINE Constants, Thompson correlated"},
                  {51, 61, "FRO.1", "FRO.THi", " FROST/KALKWARF "},
                  {62, 73, "WAG.1", "WAG.THi", " WAGNER "},
                  {74, 82, "hLVPar.1", "hLVTHi", "delta(LV)h (T)"},
                  {86, 96, "KFW.1", "KFW.THi", "van der Waals correl."},
                  {97, 107, "KFR.1", "KFR.THi", "Redlich/Kw. correlated"},
                  {108, 114, "cpL.1", "cpL.THi", "Polynomial cp(L)"},
                  {115, 121, "cpS.1", "cpS.THi", "Polynomial cp(S)"},
                  {122, 122, "sconv", "sconv", "Caloric Data"}};
    for (const auto& b : blocks) {
        SCOPED_TRACE(b.frame);
        EXPECT_EQ(place_of(field(b.first)).field, find_field(b.name)->field);
        EXPECT_EQ(place_of(field(b.first)).element, find_field(b.name)->element);
        EXPECT_EQ(place_of(field(b.last)).field, find_field(b.lastName)->field);
        for (int i = b.first; i <= b.last; ++i) EXPECT_EQ(field(i).frame, b.frame);
    }
    for (const auto& [index, name] : {std::pair{0, "M"},
                                      {1, "Tboil"},
                                      {2, "Ttriple"},
                                      {3, "ptriple"},
                                      {25, "rhoLTc"},
                                      {26, "rhoLTLo"},
                                      {80, "hLVTc"},
                                      {81, "hLVTLo"},
                                      {83, "Name"},
                                      {84, "Formula"},
                                      {85, "CASRN"}})
        EXPECT_EQ(field(index).name, name);
    EXPECT_EQ(field(37).caption, "Abs(C2)");
    EXPECT_EQ(field(6).caption, "rho(cr) /(kg/m^3)");
    EXPECT_EQ(field(2).caption, "triple point temp. /K ");
    for (int i = 0; i < kEditorFields; ++i) {
        const bool correlated = (i >= 46 && i <= 50) || (i >= 86 && i <= 107);
        EXPECT_EQ(field(i).editable, !correlated) << i;
        EXPECT_EQ(field(i).is_text(), i >= 83 && i <= 85) << i;
    }
}

TEST_F(SubstanceEditor, NothingAndZeroHaveTheirTexts) {
    EXPECT_EQ(editor_text(0.0F), "<>");
    EXPECT_EQ(editor_text(0.0), "<>");
    EXPECT_EQ(editor_text(1e-37F), " 0");
    EXPECT_EQ(editor_text(1e-37), " 0");
    EXPECT_EQ(editor_text(static_cast<double>(1e-37F)), " 0");
    EXPECT_EQ(editor_text(44.0956F), " 44.0956");
    EXPECT_EQ(editor_text(-7.5F), "-7.5");
    EXPECT_EQ(editor_text(1e-30F), " 1E-30");
    EXPECT_EQ(editor_text(369.89), " 369.89");
    EXPECT_EQ(editor_text(static_cast<double>(220.478F)), " 220.478");
}

/// The number of a text that begins with a blank or a sign.
template <class Number>
Number read_back(std::string text) {
    text.erase(0, text.find_first_not_of(' '));
    Number number = 0;
    EXPECT_EQ(std::from_chars(text.data(), text.data() + text.size(), number).ptr,
              text.data() + text.size());
    return number;
}

TEST_F(SubstanceEditor, TextsReadBackAsTheSameValue) {
    for (const float v :
         {0.1F, 123.456789F, 1.0F / 3, -2.71828183e-7F, 5.2053e7F, 16777217.0F, 3e38F})
        EXPECT_EQ(read_back<float>(editor_text(v)), v);
    for (const double v : {0.1, 369.8912345678, 1.0 / 3})
        EXPECT_EQ(read_back<double>(editor_text(v)), v);
}

TEST_F(SubstanceEditor, AnUntouchedFormAppliesToTheSameRecord) {
    for (const std::string& name : fluids::AllNames()) {
        SCOPED_TRACE(name);
        models::SubstanceRecord before = fluids::Row(name);
        if (before.Tboil > 0) models::correlate_august(before);
        models::SubstanceRecord after = before;
        models::ModelSelection models = session->models;
        EditorTexts texts = show_record(before);
        apply_editor(texts, after, models);
        for (const EditorField& f : editor_field_table())
            if (f.editable) {
                EXPECT_EQ(value_of(after, place_of(f)), value_of(before, place_of(f))) << f.name;
            }
        EXPECT_EQ(after.has_cp_polynomial, before.has_cp_polynomial);
        EXPECT_EQ(after.has_cp_sinh_cosh, before.has_cp_sinh_cosh);
        EXPECT_EQ(after.has_cpL, before.has_cpL);
        EXPECT_EQ(after.has_cpS, before.has_cpS);
    }
}

TEST_F(SubstanceEditor, EveryFieldTakesWhatIsTyped) {
    const models::SubstanceRecord numbered = Numbered();
    for (const EditorField& f : editor_field_table()) {
        if (!f.editable || f.is_text()) continue;
        SCOPED_TRACE(std::string(f.name));
        models::SubstanceRecord s = numbered;
        models::ModelSelection models = session->models;
        EditorTexts texts = show_record(s);
        const auto i = static_cast<std::size_t>(f.index);
        texts[i] = "1234.5";
        apply_editor(texts, s, models);
        const double stored = std::visit(
            [](const auto& v) -> double {
                if constexpr (std::is_arithmetic_v<std::decay_t<decltype(v)>>)
                    return static_cast<double>(v);
                else
                    return -1;
            },
            value_of(s, place_of(f)));
        EXPECT_EQ(stored,
                  is_bound(*place_of(f).field) ? 1234 : 1234.5);  // bounds round half to even

        texts[i] = "0";
        apply_editor(texts, s, models);
        const bool bound = is_bound(*place_of(f).field);
        EXPECT_EQ(texts[i], f.index == 37 ? " 0.1" : " 0");
        if (!bound && f.index != 37) {
            EXPECT_EQ(show_record(s)[i], " 0");
        }

        texts[i] = "";
        apply_editor(texts, s, models);
        if (f.index == 37) continue;  // C2 of the sinh/cosh function is never left without a value
        if (f.index == 1) continue;   // the boiling point is computed anew
        EXPECT_EQ(texts[i], "<>");
        EXPECT_EQ(show_record(s)[i], "<>");
    }
}

TEST_F(SubstanceEditor, NamesNeverBecomeZeros) {
    EditorTexts texts = show_record(session->substance);
    texts[83] = "0";
    texts[84] = " X0 Y ";
    texts[85] = "";
    session::apply_editor(session, texts);
    EXPECT_EQ(session->substance.name, "0");
    EXPECT_EQ(texts[83], "0");
    EXPECT_EQ(session->substance.formula, "X0 Y");
    EXPECT_EQ(session->substance.formula_compact, "X0Y");
    EXPECT_EQ(session->substance.casrn, "            ");
    EXPECT_EQ(texts[85], "<>");
}

TEST_F(SubstanceEditor, ACommaIsAPointAndOtherKeysAreSwallowed) {
    EditorTexts texts = show_record(session->substance);
    texts[0] = "44,5";
    session::apply_editor(session, texts);
    EXPECT_EQ(session->substance.M, 44.5F);
    EXPECT_EQ(filter_key(field(0), ','), '.');
    for (const char c : std::string("0123456789Ee-.\r\b\x7f"))
        EXPECT_EQ(filter_key(field(0), c), c);
    for (const char c : std::string("+xD d/ "))
        EXPECT_FALSE(filter_key(field(0), c).has_value()) << c;
    EXPECT_EQ(filter_key(field(83), 'x'), 'x');
    EXPECT_EQ(filter_key(field(83), ','), ',');
}

TEST_F(SubstanceEditor, AValueBeyondItsFieldLeavesTheRecord) {
    const float before = session->substance.Tboil;
    const std::int16_t T_low = session->substance.antoine_low.T_low;
    EditorTexts texts = show_record(session->substance);
    texts[1] = "1E300";
    texts[11] = "99999";
    texts[2] = "90";
    session::apply_editor(session, texts);
    EXPECT_EQ(session->substance.Tboil, before);
    EXPECT_EQ(texts[1], editor_text(before));
    EXPECT_EQ(session->substance.antoine_low.T_low, T_low);
    EXPECT_EQ(session->substance.Ttriple, 90);
}

TEST_F(SubstanceEditor, SinhFunctionKeepsADenominator) {
    EditorTexts texts = show_record(session->substance);
    texts[35] = "500";
    texts[37] = "";
    texts[40] = "200";
    texts[41] = "900";
    session::apply_editor(session, texts);
    EXPECT_EQ(session->substance.cp_sinh_cosh.c[2], 0.1F);
    EXPECT_EQ(texts[37], " 0.1");
    EXPECT_TRUE(session->substance.has_cp_sinh_cosh);
    texts[37] = "-1500";
    session::apply_editor(session, texts);
    EXPECT_EQ(session->substance.cp_sinh_cosh.c[2], 1500);
    texts[35] = "";
    texts[37] = "";
    session::apply_editor(session, texts);
    EXPECT_EQ(session->substance.cp_sinh_cosh.c[2], 0);
    EXPECT_FALSE(session->substance.has_cp_sinh_cosh);
}

TEST_F(SubstanceEditor, FlagsOfTheHeatCapacitiesFollow) {
    EditorTexts texts = show_record(session->substance);
    for (const int first : {28, 108, 115}) {
        const auto i = static_cast<std::size_t>(first);
        for (std::size_t k = 0; k < 7; ++k) texts[i + k] = "";
        texts[i + 1] = "2";
        texts[i + 5] = "200";
        texts[i + 6] = "300";
    }
    session::apply_editor(session, texts);
    EXPECT_FALSE(session->substance.has_cp_polynomial);  // the ideal gas needs C0
    EXPECT_TRUE(session->substance.has_cpL);             // a condensed phase C0 or C1
    EXPECT_TRUE(session->substance.has_cpS);
    texts[28] = "30";
    texts[113] = "";
    session::apply_editor(session, texts);
    EXPECT_TRUE(session->substance.has_cp_polynomial);
    EXPECT_FALSE(session->substance.has_cpL);
}

TEST_F(SubstanceEditor, AnEquationIsChosenWhereThereIsNone) {
    EditorTexts texts = show_record(session->substance);
    for (const int index : {8, 9, 10, 11, 12, 13, 14, 15, 16, 17})
        texts[static_cast<std::size_t>(index)] = "";
    session.change()->models.vapour_pressure = codes::vp("000");
    session.change()->models.vapour_pressure = codes::vp(0);
    session::apply_editor(session, texts);  // WAG is there, but only the Antoine sets are looked at
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "000");
    const char* antoine[] = {"6", "800", "247", "150", "250"};
    for (std::size_t k = 0; k < 5; ++k) texts[13 + k] = antoine[k];
    session::apply_editor(session, texts);
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "AHP");
    EXPECT_EQ(session->models.vapour_pressure, codes::vp("AHP"));
    session.change()->models.vapour_pressure = codes::vp("000");
    for (std::size_t k = 0; k < 5; ++k) texts[8 + k] = antoine[k];
    session::apply_editor(session, texts);
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "ALP");
    session.change()->models.vapour_pressure = codes::vp("WAG");
    session::apply_editor(session, texts);
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "WAG");
}

TEST_F(SubstanceEditor, AMissingBoilingPointIsComputed) {
    EditorTexts texts = show_record(session->substance);
    texts[1] = "";
    session::apply_editor(session, texts);
    EXPECT_NEAR(static_cast<double>(session->substance.Tboil), 231.04, 0.5);  // propane
    EXPECT_NEAR(
        models::vapour_pressure(session->substance, static_cast<double>(session->substance.Tboil),
                                codes::vp("WAG"))
            ->p,
        101.325, 0.02);
    EXPECT_EQ(texts[1], editor_text(session->substance.Tboil));
    texts[1] = "";
    session.change()->models.vapour_pressure = codes::vp("000");
    for (int index = 8; index <= 17; ++index) texts[static_cast<std::size_t>(index)] = "";
    session::apply_editor(session, texts);
    EXPECT_EQ(session->substance.Tboil, 0);
}

TEST_F(SubstanceEditor, CorrelatedSetsFollowTheCriticalPoint) {
    EditorTexts texts = show_record(session->substance);
    texts[1] = "240";
    texts[4] = "400";
    texts[5] = "4000";
    session::apply_editor(session, texts);
    const double B = 240.0 * 400 * std::log(4000 / 101.325) / (240 - 400);
    EXPECT_FLOAT_EQ(session->substance.august.B, static_cast<float>(B));
    EXPECT_FLOAT_EQ(session->substance.august.A, static_cast<float>(std::log(4000.0) - B / 400));
    EXPECT_EQ(texts[47], editor_text(session->substance.august.B));
    // Thompson: C = 18 - 0.19 Tboil + 273.15.
    EXPECT_FLOAT_EQ(session->substance.thompson.C, static_cast<float>(18 - 0.19 * 240 + 273.15));
    EXPECT_EQ(texts[50], editor_text(session->substance.thompson.C));
    // Frost-Kalkwarf: E = e Tcrit^f / pcrit.
    EXPECT_FLOAT_EQ(session->substance.frost_van_der_waals.a[4],
                    static_cast<float>(0.183218 * 400 * 400 / 4000));
    EXPECT_FLOAT_EQ(session->substance.frost_redlich_kwong.a[4],
                    static_cast<float>(0.185652 * std::pow(400, 2.5) / 4000));
    EXPECT_EQ(texts[90], editor_text(session->substance.frost_van_der_waals.a[4]));
    EXPECT_EQ(texts[101], editor_text(session->substance.frost_redlich_kwong.a[4]));
}

TEST_F(SubstanceEditor, WithoutCriticalDataTheCorrelatedSetsStayEmpty) {
    session.change()->substance.pcrit = 0;
    const EditorTexts texts = show_record(session->substance);
    for (const auto& [first, last] : {std::pair{48, 50}, {86, 107}})
        for (int i = first; i <= last; ++i) EXPECT_EQ(texts[static_cast<std::size_t>(i)], "") << i;
    EXPECT_EQ(texts[5], "<>");
}

TEST_F(SubstanceEditor, TheFormShowsTheCorrelatedSetsWithoutTouchingTheRecord) {
    session.change()->substance.frost_van_der_waals = {};
    session.change()->substance.thompson = {};
    const EditorTexts texts = show_record(session->substance);
    EXPECT_NE(texts[86], "<>");
    EXPECT_NE(texts[48], "<>");
    EXPECT_EQ(session->substance.frost_van_der_waals.a[0], 0);
    EXPECT_EQ(session->substance.thompson.A, 0);
}

TEST_F(SubstanceEditor, WatsonWithoutItsPointGivesWayToChen) {
    session.change()->models.vaporisation = codes::hlv(4);
    EditorTexts texts = show_record(session->substance);
    texts[42] = "18000";
    texts[43] = "231";
    session::apply_editor(session, texts);
    EXPECT_EQ(models::code_of(session->models.vaporisation), 4);
    EXPECT_EQ(user.beeps, 0);
    texts[43] = "";
    session::apply_editor(session, texts);
    EXPECT_EQ(models::code_of(session->models.vaporisation), 2);
    EXPECT_EQ(user.beeps, 1);
    session.change()->models.vaporisation = codes::hlv(3);
    session::apply_editor(session, texts);
    EXPECT_EQ(models::code_of(session->models.vaporisation), 3);
    EXPECT_EQ(user.beeps, 1);
}

TEST_F(SubstanceEditor, EosAndUnitsFollow) {
    ASSERT_TRUE(session::compute_constants(session, codes::eos(6)));
    const double before = session->eos_parameters.a0;
    session.change()->units.system = models::UnitSystem::specific;
    EditorTexts texts = show_record(session->substance);
    texts[0] = "50";
    texts[4] = "400";
    texts[6] = "250";
    session::apply_editor(session, texts);
    EXPECT_NEAR(session->eos_parameters.a0 / before, std::pow(400 / 369.89, 2), 1e-9);
    EXPECT_DOUBLE_EQ(session::present_units(session).v, 1 / 50.0);
    EXPECT_DOUBLE_EQ(session->substance.vcrit_measured, 50.0 / 250);
    // Manual virial coefficients stay.
    session.change()->models.eos = codes::eos(10);
    session.change()->models.manual_virial = {0.1, 20, 0.5};
    session::apply_editor(session, texts);
    EXPECT_EQ(session->eos_parameters.b0, 0.1);
    EXPECT_EQ(session->eos_parameters.nb, 20);
    EXPECT_EQ(session->eos_parameters.nv, 0.5);
}

TEST_F(SubstanceEditor, EntropyOfFormationFollows) {
    EditorTexts texts = show_record(session->substance);
    texts[44] = "-100000";
    texts[45] = "-40000";
    session::apply_editor(session, texts);
    EXPECT_FLOAT_EQ(session->substance.dfs, static_cast<float>(-60000 / 298.15));
    texts[45] = "";
    session::apply_editor(session, texts);
    EXPECT_FLOAT_EQ(session->substance.dfs, static_cast<float>(-60000 / 298.15));
}

TEST_F(SubstanceEditor, RecalculationTakesTheFieldsAndLeavesTheRecord) {
    EditorTexts texts = show_record(session->substance);
    const models::AugustSet august = session->substance.august;
    texts[1] = "240";
    texts[4] = " 400";
    texts[5] = "4000";
    const double B = 240.0 * 400 * std::log(4000 / 101.325) / (240 - 400);
    recalculate(EditorCorrelation::August, texts);
    EXPECT_EQ(texts[47], editor_text(static_cast<float>(B)));
    EXPECT_EQ(texts[50], editor_text(session->substance.thompson.C));
    recalculate(EditorCorrelation::Antoine, texts);
    EXPECT_EQ(texts[50], editor_text(static_cast<float>(18 - 0.19 * 240 + 273.15)));
    recalculate(EditorCorrelation::KFW, texts);
    EXPECT_EQ(texts[90], editor_text(static_cast<float>(0.183218 * 400 * 400 / 4000)));
    recalculate(EditorCorrelation::KFR, texts);
    EXPECT_EQ(texts[102], editor_text(2.5F));
    EXPECT_EQ(session->substance.august.B, august.B);
    EXPECT_EQ(session->substance.Tcrit, 369.89);
    // Without critical data nothing happens.
    const EditorTexts before = texts;
    texts[4] = "<>";
    EditorTexts expected = before;
    expected[4] = "<>";
    recalculate(EditorCorrelation::August, texts);
    EXPECT_EQ(texts, expected);
}

TEST_F(SubstanceEditor, TheTriplePointPressureComesFromEitherSource) {
    session.change()->substance.ptriple = 0.00017F;
    EXPECT_EQ(session::triple_point_pressure(session, false), " 0.00017");
    session.change()->substance.Ttriple = 150;
    const auto p = session::triple_point_pressure(session, true);
    ASSERT_TRUE(p.has_value());
    EXPECT_EQ(*p, editor_text(static_cast<float>(
                      models::vapour_pressure(session->substance, 150, codes::vp("WAG"))->p)));
    session.change()->substance.Ttriple = 0;
    EXPECT_FALSE(session::triple_point_pressure(session, true).has_value());
    EXPECT_EQ(user.lastText(), "Error while calculating vapour pressure");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

TEST_F(SubstanceEditor, ClosingAsksForChangedFields) {
    const EditorTexts shown = show_record(session->substance);
    EditorTexts now = shown;
    EXPECT_TRUE(session::may_close_editor(shown, now));
    EXPECT_TRUE(user.messages.empty());
    now[7] = "0.2";
    user.answers = {dialogs::Answer::No, dialogs::Answer::Yes};
    EXPECT_FALSE(session::may_close_editor(shown, now));
    EXPECT_EQ(user.lastText(), "Your changes are lost here (use \"Apply\")\n\nClose nevertheless?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_TRUE(session::may_close_editor(shown, now));
}

TEST_F(SubstanceEditor, CaptionsNameEquationAndDatabase) {
    EXPECT_EQ(session::active_equation_caption(session), "actual vapour-pressure equation: Wagner");
    session.change()->database_file = "student.q05";
    EXPECT_EQ(session::database_caption(session), "Database loaded:  STUDENT.Q05");
    EXPECT_EQ(kEditorNote, " Note: Any changes are lost without \"Apply\" ");
    EXPECT_EQ(kEditorLegend, "<> = empty");
    EXPECT_EQ(editor_tab_caption(EditorTab::SingleValues), "Single Values");
}

}  // namespace
