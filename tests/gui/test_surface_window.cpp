#include <QClipboard>
#include <QDockWidget>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QSpinBox>
#include <QWheelEvent>
#include <cmath>

#include "chart/chart_file.h"
#include "common/numbers.h"
#include "gui/chart/chart3d_paint.h"
#include "gui/chart/chart_qt.h"
#include "gui/frame_test.h"
#include "gui/surfaces/surface_window.h"
#include "gui/widgets/number_edit.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::offers;
using drive::read;
using drive::type;
using drive::when;

constexpr auto kEnthalpyRow = "mnu3DSub_5", kPressureRow = "mnu3DSub_0";

class Graph3D : public FrameTest {
  protected:
    Graph3D() {
        databases::Write(folder() / "STUDENT.Q05", {databases::Row("Propane")});
        start();
        openSubstance("Propane");
    }

    SurfaceWindow* window() const { return desk.lastUsed<SurfaceWindow>(); }
    diagrams::SurfaceSheet& sheet() const { return window()->sheet(); }
    chart::Chart3D& shown() const { return sheet().chart; }
    chart::Chart3DWidget* canvas() const { return window()->findChild<chart::Chart3DWidget*>(); }
    /// Opens a surface in place of the one that is open.
    static void openInstead(const char* row) {
        choose("mnuHaupt");
        choose(row);
    }
    static QImage picture(const chart::Chart3D& c) {
        QImage image(700, 560, QImage::Format_RGB32);
        QPainter painter(&image);
        paintChart3D(painter, image.rect(), c);
        return image;
    }
    QImage picture() const { return picture(shown()); }

    QString path(const char* name) const {
        return QString::fromStdString((folder() / name).string());
    }
    QByteArray contents(const char* name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void answerFile(const QString& name) { user.fileAnswers.push_back(name.toStdString()); }

    void move(QPointF to, Qt::MouseButtons buttons) const {
        QMouseEvent event(QEvent::MouseMove, to, canvas()->mapToGlobal(to), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(canvas(), &event);
    }
    /// Opens the dialog of limits and does something in it.
    static void limits(std::function<void()> what) {
        when("fraCoord3", std::move(what));
        click("mnuCoord");
    }
};

TEST_F(Graph3D, EveryRowOfTheMenuOpensItsSurface) {
    struct Expected {
        const char* row;
        int kind;
        const char* title;
    };
    for (const Expected& e : {Expected{"mnu3DSub_0", 1, "Pressure p(v, T)"},
                              Expected{"mnu3DSub_1", 3, "Volume  v(p, T)"},
                              Expected{"mnu3DSub_2", 4, "Temperature T(v, p)"},
                              Expected{"mnu3DSub_4", 5, "Heat Capacity cp(p, T)"},
                              Expected{"mnu3DSub_5", 7, "Enthalpy  h(p, T)"},
                              Expected{"mnu3DSub_6", 8, "Entropy s(p, T)"},
                              Expected{"mnu3DSub_7", 9, "Gibbs Function g(p, T)"},
                              Expected{"mnu3DSub_8", 10, "Exergy of H          e(p, T)"}}) {
        user.messages.clear();
        choose(e.row);
        ASSERT_NE(window(), nullptr) << e.row;
        EXPECT_EQ(session->surface_kind, e.kind);
        EXPECT_EQ(sheet().kind->code, e.kind);
        EXPECT_EQ(shown().header.text, e.title);
        EXPECT_EQ(shown().subtitle.text, " for Propane,  CEOS Peng / Robinson");
        EXPECT_EQ(shown().surface.nx, 41);
        EXPECT_EQ(shown().surface.ny, 41);
        EXPECT_TRUE(diagrams::has_surface(shown().surface)) << e.row;
        EXPECT_EQ(user.messages.size(), e.kind == 1 || e.kind == 4 ? 1U : 0U) << e.row;
        EXPECT_FALSE(user.pointer.empty()) << "the pointer is busy meanwhile";
        EXPECT_FALSE(user.pointer.back());
    }
}

TEST_F(Graph3D, IsOfferedOnlyWithSubstanceAndModels) {
    EXPECT_TRUE(offers(kEnthalpyRow));
    when("frmStoffWahl", [] { drive::get<QDialog>("frmStoffWahl")->reject(); });
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    click("Toolbar1_2");
    EXPECT_FALSE(offers(kEnthalpyRow));
}

TEST_F(Graph3D, AsksWhetherToDrawTheSShapedCurves) {
    user.answers.push_back(dialogs::Answer::Yes);
    choose(kPressureRow);
    EXPECT_EQ(user.lastTitle(), "for cubic EOS only");
    EXPECT_EQ(user.lastText(),
              "Draw physically real behaviour?\n"
              "(No = Draw S-shaped curves in the undercritical region)");
    EXPECT_FALSE(sheet().s_curve);
    const float plane = sheet().limits.T_min;
    user.answers.push_back(dialogs::Answer::No);
    choose(kPressureRow);
    EXPECT_TRUE(sheet().s_curve);
    EXPECT_NEAR(static_cast<double>(sheet().limits.T_min), 0.93 * session->substance.Tcrit, 1e-3);
    EXPECT_NEAR(static_cast<double>(plane), 0.75 * session->substance.Tcrit, 1e-3);
}

TEST_F(Graph3D, ShowsTheLimitsOfTheQuantitiesOnTheAxes) {
    choose(kPressureRow);
    limits([] {
        for (const char* used : {"txtTMin", "txtTMax", "txtpMin", "txtpMax", "txtvMin", "txtvMax"})
            EXPECT_TRUE(drive::isVisible(used)) << used;
        EXPECT_EQ(drive::find("txtzMin"), nullptr);
        click("cmdCoord3_Cancel");
    });
    openInstead(kEnthalpyRow);
    limits([] {
        for (const char* used : {"txtTMin", "txtTMax", "txtpMin", "txtpMax", "txtzMin", "txtzMax"})
            EXPECT_TRUE(drive::isVisible(used)) << used;
        EXPECT_EQ(drive::find("txtvMin"), nullptr);
        EXPECT_EQ(read("txtzMin").replace(',', '.'), "-0.01111");
        EXPECT_EQ(read("txtzMax").replace(',', '.'), "0.01111");
        click("cmdCoord3_Cancel");
    });
}

TEST_F(Graph3D, TakesNewLimitsAndComputesAnew) {
    choose(kEnthalpyRow);
    const chart::SurfaceGrid before = shown().surface;
    limits([] {
        type("txtTMin", "300");
        type("txtTMax", "450");
        type("txtzMax", "0");
        click("cmdCoord3_OK");
    });
    EXPECT_EQ(shown().y.min, 300);
    EXPECT_EQ(shown().y.max, 450);
    EXPECT_EQ(shown().surface.y(0), 300);
    EXPECT_DOUBLE_EQ(shown().surface.y(40), 450);
    EXPECT_NE(shown().surface, before);
    for (const float z : shown().surface.z) EXPECT_TRUE(shown().surface.is_hole(z) || z <= 0);
    limits([] {
        EXPECT_EQ(read("txtTMin"), "300");
        click("cmdCoord3_Default");
        click("cmdCoord3_OK");
    });
    EXPECT_EQ(shown().surface, before);
}

TEST_F(Graph3D, RefusesLimitsThatDoNotRise) {
    choose(kEnthalpyRow);
    const chart::SurfaceGrid before = shown().surface;
    limits([this] {
        type("txtTMin", "500");
        type("txtTMax", "500");
        click("cmdCoord3_OK");
        EXPECT_EQ(user.lastText(), "Lower limits have to be smaller then upper limits!");
        EXPECT_EQ(user.lastTitle(), "INPUT ERROR");
        EXPECT_TRUE(drive::isVisible("fraCoord3"));
        user.messages.clear();
        type("txtTMax", "1e");
        click("cmdCoord3_OK");
        EXPECT_TRUE(drive::isVisible("fraCoord3"));
        EXPECT_TRUE(drive::get<NumberEdit>("txtTMax")->isMarked());
        EXPECT_TRUE(user.messages.empty()) << user.lastText();
        click("cmdCoord3_Cancel");
    });
    EXPECT_EQ(shown().surface, before);
    EXPECT_EQ(sheet().limits,
              diagrams::default_limits(*diagrams::find_surface(7), sheet().basis, false));
}

TEST_F(Graph3D, TellsWhenNothingIsToBeSeen) {
    choose(kPressureRow);
    // In this corner of the window all pressures lie above the limit.
    limits([] {
        type("txtTMin", "400");
        type("txtTMax", "480");
        type("txtvMax", "0.06");
        type("txtvMin", "0.059");
        type("txtpMax", "600");
        click("cmdCoord3_OK");
    });
    EXPECT_EQ(user.lastTitle(), "Remark");
    EXPECT_TRUE(user.lastText().starts_with("If no function area is drawn"));
    user.messages.clear();
    click("cmdNewDraw");
    EXPECT_EQ(user.lastTitle(), "Remark");
}

TEST_F(Graph3D, TakesTheNumbersOfMeshLines) {
    choose(kEnthalpyRow);
    when("fraIXIY", [] {
        EXPECT_EQ(read("fraIXIY"), "x-y meshlines");
        auto* ix = drive::get<QSpinBox>("txtIX");
        EXPECT_EQ(ix->value(), 41);
        EXPECT_EQ(ix->maximum(), 201);
        ix->setValue(61);
        drive::get<QSpinBox>("txtIY")->setValue(21);
        click("cmdIXIY_OK");
    });
    click("mnuIXIY");
    EXPECT_EQ(shown().surface.nx, 61);
    EXPECT_EQ(shown().surface.ny, 21);
    when("fraIXIY", [] { click("cmdIXIY_Cancel"); });
    click("mnuIXIY");
    EXPECT_EQ(shown().surface.nx, 61);
}

TEST_F(Graph3D, TurnsAndZoomsByTheMouseAndLooksAlongTheAxes) {
    choose(kEnthalpyRow);
    const chart::View3D start = shown().view;
    QTest::mousePress(canvas(), Qt::LeftButton, {}, QPoint(300, 300));
    move({360, 320}, Qt::LeftButton);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, QPoint(360, 320));
    EXPECT_NE(shown().view.rotation, start.rotation);
    EXPECT_GT(shown().view.elevation, start.elevation);
    QWheelEvent wheel({300, 300}, {300, 300}, {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas(), &wheel);
    EXPECT_GT(shown().view.zoom, 1.1);
    choose("mnuViewDefault");
    EXPECT_EQ(shown().view, start);
    choose("mnuViewX");
    EXPECT_EQ(shown().view.elevation, 0);
    EXPECT_EQ(shown().view.rotation, 0);
    choose("mnuViewY");
    EXPECT_EQ(shown().view.rotation, -90);
    choose("mnuViewZ");
    EXPECT_EQ(shown().view.elevation, 90);
    choose("mnuZoomIn");
    EXPECT_GT(shown().view.zoom, 1);
    choose("mnuZoomOut");
    EXPECT_NEAR(shown().view.zoom, 1, 1e-12);
    choose("mnuPerspective");
    EXPECT_FALSE(shown().view.perspective);
    EXPECT_FALSE(drive::action("mnuPerspective")->isChecked());
}

TEST_F(Graph3D, ReadsThePlaceUnderThePointer) {
    choose("mnu3DSub_7");  // of the Gibbs function, smooth everywhere
    choose("mnuViewZ");    // the surface covers the middle of the sheet
    const QString hint = read("lblReadout");
    const QPointF middle(canvas()->width() / 2.0, canvas()->height() / 2.0);
    const auto place = canvas()->placeAt(middle);
    ASSERT_TRUE(place);
    move(middle, Qt::NoButton);
    const QStringList parts = read("lblReadout").split("     ");
    ASSERT_EQ(parts.size(), 3);
    EXPECT_TRUE(parts[0].startsWith("p / kPa = "));
    EXPECT_TRUE(parts[1].startsWith("T / K = "));
    EXPECT_TRUE(parts[2].startsWith("g / (kJ/kmol) = "));
    const auto number = [](const QString& part) {
        return numbers::val(part.section("= ", 1).replace(',', '.').toStdString());
    };
    EXPECT_NEAR(number(parts[0]), place->x, 1e-4 * std::fabs(place->x));
    EXPECT_NEAR(number(parts[1]), place->y, 1e-4 * std::fabs(place->y));
    EXPECT_NEAR(number(parts[2]), place->z, 1e-4 * std::fabs(place->z) + 1e-9);
    // The value lies between those of the four nodes around the place.
    const chart::SurfaceGrid& g = shown().surface;
    const int i = static_cast<int>((place->x - g.x0) / g.dx);
    const int j = static_cast<int>((place->y - g.y0) / g.dy);
    const auto node = [&](int a, int b) { return static_cast<double>(g.z[g.at(a, b)]); };
    const auto [low, high] =
        std::minmax({node(i, j), node(i + 1, j), node(i, j + 1), node(i + 1, j + 1)});
    EXPECT_GE(place->z, low - 1e-6 * std::fabs(low));
    EXPECT_LE(place->z, high + 1e-6 * std::fabs(high));
    move({2, 2}, Qt::NoButton);
    EXPECT_EQ(read("lblReadout"), hint);
}

TEST_F(Graph3D, MarksTheCriticalPointAndTakesItAway) {
    choose(kPressureRow);
    choose("mnuAddCritPoint");
    ASSERT_EQ(shown().markers.size(), 1U);
    EXPECT_EQ(shown().markers[0].text, "CrP");
    EXPECT_TRUE(drive::action("mnuAddCritPoint")->isChecked());
    choose("mnuAddCritPoint");
    EXPECT_TRUE(shown().markers.empty());
    EXPECT_FALSE(drive::action("mnuAddCritPoint")->isChecked());
    openInstead("mnu3DSub_4");
    choose("mnuAddCritPoint");
    EXPECT_EQ(user.lastText(), "at the critical point cp => infinite");
    EXPECT_TRUE(shown().markers.empty());
}

TEST_F(Graph3D, EveryControlOfThePanelChangesThePicture) {
    choose(kEnthalpyRow);
    chart::Chart3D& c = shown();
    choose("mnuSurfaceDesign");
    EXPECT_TRUE(drive::isVisible("dockDesign"));
    struct Control {
        const char* page;
        const char* name;
        bool* flag;
    };
    chart::SurfaceStyle& s = c.style;
    const std::vector<Control> controls{
        {"mnuSurfaceDesign", "chkSolid", &s.solid},
        {"mnuSurfaceDesign", "chkShaded", &s.shaded},
        {"mnuSurfaceDesign", "chkTransparent", &s.transparent},
        {"mnuSurfaceDesign", "chkXMesh", &c.mesh.x},
        {"mnuSurfaceDesign", "chkYMesh", &c.mesh.y},
        {"mnuSurfaceDesign", "chkIsochorenHalbe", &c.mesh.halved_x},
        {"mnuSurfaceDesign", "chkIsothermenHalbe", &c.mesh.halved_y},
        {"mnuSectionDesign", "chkContoured", &s.contoured},
        {"mnuSectionDesign", "chkZoned", &s.zoned},
        {"mnuSectionDesign", "chkCeilingCont", &s.ceiling_contours},
        {"mnuSectionDesign", "chkCeilingZon", &s.ceiling_zones},
        {"mnuSectionDesign", "chkFloorCont", &s.floor_contours},
        {"mnuSectionDesign", "chkFloorZon", &s.floor_zones},
        {"mnuSectionDesign", "chk2Dprojection", &s.projection_2d},
        {"mnuAxesDesign", "ChkXGrid_XY", &c.x.grid_xy},
        {"mnuAxesDesign", "chkXGrid_XZ", &c.x.grid_xz},
        {"mnuAxesDesign", "chkYGrid_XY", &c.y.grid_xy},
        {"mnuAxesDesign", "chkYGrid_YZ", &c.y.grid_yz},
        {"mnuAxesDesign", "chkZGrid_XZ", &c.z.grid_xz},
        {"mnuAxesDesign", "chkZGrid_YZ", &c.z.grid_yz},
        {"mnuViewDesign", "chkPerspective", &c.view.perspective},
    };
    for (const Control& control : controls) {
        choose(control.page);
        const bool before = *control.flag;
        const QImage pictureBefore = picture();
        EXPECT_EQ(drive::isChecked(control.name), before) << control.name;
        click(control.name);
        EXPECT_NE(*control.flag, before) << control.name;
        EXPECT_NE(picture(), pictureBefore) << control.name;
        click(control.name);
        EXPECT_EQ(*control.flag, before) << control.name;
        EXPECT_EQ(picture(), pictureBefore) << control.name;
    }
}

TEST_F(Graph3D, DesignsSectionsTextsAndView) {
    choose(kEnthalpyRow);
    choose("mnuSectionDesign");
    EXPECT_EQ(read("fraSections"), "Sections Z = const ");
    EXPECT_EQ(read("fraProjection"), "Projection of the Z-sections");
    drive::get<QDoubleSpinBox>("UpDown_Sections")->setValue(15);
    EXPECT_EQ(shown().sections.number, 15);
    click("chkZoned");
    const QImage withScale = picture();
    click("chkLegend");
    EXPECT_FALSE(shown().scale_shown);
    EXPECT_NE(picture(), withScale);
    choose("mnuTextDesign");
    drive::get<QPlainTextEdit>("txtHeader")->setPlainText("My surface");
    EXPECT_EQ(shown().header.text, "My surface");
    drive::get<QPlainTextEdit>("txtFooter")->setPlainText("A note");
    choose("mnuAxesDesign");
    type("txtXTitle", "pressure");
    EXPECT_EQ(shown().x.title, "pressure");
    drive::select("cmbZDigits", "1");
    EXPECT_EQ(shown().z.decimals, 1);
    choose("mnuViewDesign");
    drive::get<QDoubleSpinBox>("UpDown_Elevation")->setValue(-40);
    drive::get<QDoubleSpinBox>("UpDown_Rotation")->setValue(120);
    drive::get<QDoubleSpinBox>("UpDown_Zoom")->setValue(2);
    EXPECT_EQ(shown().view.elevation, -40);
    EXPECT_EQ(shown().view.rotation, 120);
    EXPECT_EQ(shown().view.zoom, 2);
    choose("mnuViewZ");
    EXPECT_EQ(drive::get<QDoubleSpinBox>("UpDown_Elevation")->value(), 90) << "the panel follows";
    // The buttons of the tool bar and the panel are the same state.
    click("cmdContoured");
    EXPECT_TRUE(shown().style.contoured);
    choose("mnuSectionDesign");
    EXPECT_TRUE(drive::isChecked("chkContoured"));
    click("cmdNewDraw");
    EXPECT_EQ(shown().header.text, "My surface") << "what was typed stays";
    EXPECT_EQ(shown().x.title, "pressure");
    EXPECT_EQ(shown().view.elevation, 90);
}

TEST_F(Graph3D, DrawsAnewInTheUnitsOfTheMoment) {
    choose(kEnthalpyRow);
    choose("mnuAddCritPoint");
    const chart::Marker3D molar = shown().markers.at(0);
    const float before = shown().surface.z.at(100);
    change([](auto& state) {
        state.units.caloric = models::CaloricUnit::specific;
        state.units.system = models::UnitSystem::specific;
    });
    click("cmdNewDraw");
    EXPECT_EQ(shown().z.title, "h / (kJ/kg) ");
    const auto M = static_cast<double>(session->substance.M);
    EXPECT_NEAR(static_cast<double>(shown().surface.z.at(100)), static_cast<double>(before) / M,
                1e-4 * std::fabs(static_cast<double>(before)));
    ASSERT_EQ(shown().markers.size(), 1U);
    EXPECT_NEAR(shown().markers[0].z, molar.z / M, 1e-6 * std::fabs(molar.z));
}

TEST_F(Graph3D, SavesAndLoadsTheSamePicture) {
    choose(kPressureRow);
    choose("mnuAddCritPoint");
    click("cmdZoned");
    click("cmdContoured");
    choose("mnuZoomIn");
    const QImage saved = picture();
    const chart::Chart3D chart = shown();
    std::filesystem::create_directories(folder() / "kept");
    answerFile(path("kept/surface"));
    choose("mnuSaveOC3");
    EXPECT_EQ(user.files.back().title, "Save this diagram design");
    EXPECT_EQ(user.files.back().filter, "picture file (*.oc3)|*.oc3");
    EXPECT_EQ(user.files.back().name, "Propane p-v-T.oc3");
    EXPECT_TRUE(std::filesystem::exists(folder() / "kept" / "surface.oc3"));
    EXPECT_EQ(session->folder_surfaces, (folder() / "kept" / "").string());

    openInstead(kEnthalpyRow);
    const diagrams::SurfaceLimits limits = sheet().limits;
    EXPECT_NE(picture(), saved);
    answerFile("surface.oc3");
    choose("mnuLoadOC3");
    EXPECT_EQ(user.files.back().title, "Load a saved pattern (*.oc2)");
    EXPECT_EQ(user.files.back().folder, (folder() / "kept" / "").string());
    EXPECT_EQ(shown(), chart);
    EXPECT_EQ(picture(), saved);
    EXPECT_EQ(sheet().limits, limits) << "the working limits are not rebuilt";
    EXPECT_EQ(read("frmGraph3D"), "Filename: surface.oc3");
    EXPECT_TRUE(drive::action("cmdZoned")->isChecked());
    click("cmdNewDraw");
    EXPECT_EQ(shown().header.text, "Enthalpy  h(p, T)") << "the view's own surface comes back";
    EXPECT_TRUE(shown().style.zoned) << "in the style that was loaded";
    EXPECT_EQ(read("frmGraph3D"), "Enthalpy  h(p, T) for Propane,  CEOS Peng / Robinson");
}

TEST_F(Graph3D, KeepsItsSurfaceWhenAFileCannotBeRead) {
    choose(kEnthalpyRow);
    const chart::Chart3D before = shown();
    user.fileAnswers.push_back(std::nullopt);
    choose("mnuLoadOC3");
    user.fileAnswers.push_back(std::nullopt);
    choose("mnuSaveOC3");
    EXPECT_TRUE(user.messages.empty());
    QFile damaged(path("damaged.oc3"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("{\"format\": \"QUOR-6 3D diagram\"");
    damaged.close();
    for (const char* name : {"damaged.oc3", "nowhere.oc3"}) {
        user.messages.clear();
        answerFile(path(name));
        choose("mnuLoadOC3");
        EXPECT_EQ(user.lastTitle(), "Execution not possible") << name;
        EXPECT_NE(user.lastText().find(name), std::string::npos);
        EXPECT_EQ(shown(), before);
    }
    answerFile(path("no/folder/a.oc3"));
    choose("mnuSaveOC3");
    EXPECT_EQ(user.lastTitle(), "ERROR");
}

TEST_F(Graph3D, WritesPicturesOfEveryFormat) {
    choose(kEnthalpyRow);
    struct Format {
        const char* name;
        QByteArray begin;
    };
    for (const Format& f :
         {Format{"a.png", "\x89PNG"}, Format{"a.bmp", "BM"}, Format{"a.svg", "<?xml"},
          Format{"a.pdf", "%PDF"}, Format{"a.emf", QByteArray("\1\0\0\0", 4)},
          Format{"a.wmf", "\xd7\xcd\xc6\x9a"}}) {
        answerFile(path(f.name));
        choose("mnuBild_1");
        EXPECT_TRUE(contents(f.name).startsWith(f.begin)) << f.name;
    }
    const QByteArray svg = contents("a.svg");
    EXPECT_GT(svg.count("<path") + svg.count("<poly"), 40 * 40) << "every cell is a vector";
    EXPECT_FALSE(svg.contains("<image"));
    EXPECT_FALSE(contents("a.pdf").contains("/Subtype /Image"));
    answerFile(path("no/folder/a.png"));
    choose("mnuBild_1");
    EXPECT_EQ(user.lastTitle(), "ERROR");
    choose("mnuBild_0");
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasImage());
}

TEST_F(Graph3D, PrintsVectorsIntoAPdf) {
    choose(kEnthalpyRow);
    when("PrintDialog", [this] {
        auto* name = drive::get<QLineEdit>("filename");
        name->setText(path("print.pdf"));
        drive::get<QDialog>("PrintDialog")->accept();
    });
    choose("mnuBild_2");
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
    const QByteArray pdf = contents("print.pdf");
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 1);
    EXPECT_FALSE(pdf.contains("/Subtype /Image"));
    EXPECT_GT(pdf.size(), 20000) << "the cells of the surface are in it";
}

TEST_F(Graph3D, TheSurfaceInUseIsTheOneOfTheSession) {
    choose(kPressureRow);
    SurfaceWindow* first = window();
    choose(kEnthalpyRow);
    EXPECT_NE(window(), first);
    EXPECT_EQ(session->surface_kind, 7);
    first->becomeCurrent();
    EXPECT_EQ(session->surface_kind, 1);
    first->findChild<QAction*>("mnuHaupt")->trigger();
    drive::settle();
    ASSERT_NE(window(), nullptr);
    EXPECT_NE(window(), first);
    choose("mnuHaupt");
    EXPECT_EQ(window(), nullptr);
}

TEST_F(Graph3D, AFaultWhileTheViewOpensIsTold) {
    change([](auto& state) {
        state.substance.M = 0;
        state.units.caloric = models::CaloricUnit::specific;
    });
    choose(kEnthalpyRow);
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(user.lastText().starts_with(
        "The registration of the 3D graph module \\...\\olch8x3.ocx during the installation "
        "process failed."));
}

}  // namespace
