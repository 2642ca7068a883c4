#include <QPainter>

#include "app/menu_graph_rows.h"
#include "diagrams/active_fluid.h"
#include "diagrams/parameter_input.h"
#include "diagrams/prepare_2d.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_marks.h"
#include "diagrams/sheet_readout.h"
#include "gui/chart/chart2d_paint.h"
#include "gui/chart/chart_qt.h"
#include "screens/look.h"

using namespace quor;

namespace {

constexpr QSize kCell(480, 340);
constexpr int kColumns = 4, kRowsOfSheet = 4;

/// Every diagram of the catalogue for a fluid, with the curves a user draws first.
class ContactSheet : public ActiveFluid {
  protected:
    static std::vector<const menu::Row*> rows() {
        std::vector<const menu::Row*> all;
        for (const menu::Row& row : menu::graph_rows())
            if (row.action == "Diagram2D") all.push_back(&row);
        return all;
    }

    /// False when the menu refuses the row for this fluid.
    bool openRow(const menu::Row& row) {
        const diagrams::Diagram& diagram = diagrams::diagram_of(row.code);
        const diagrams::OpeningAnswer answer = diagrams::opening_answer(diagram, fluid());
        refusal = answer.text;
        if (!answer.opens) return false;
        const diagrams::PreparedDiagram prepared =
            diagrams::prepare_diagram(diagram, basis(), {.limits = limits});
        limits = prepared.start.limits;
        sheet = diagrams::open_sheet(prepared.request, basis(), prepared.start.at);
        return true;
    }

    /// Sub- and supercritical curves, the coexistence curve where it is offered, and a legend.
    void drawRow() {
        const diagrams::Section section = sheet.request.section();
        if (section == diagrams::Section::projection || section == diagrams::Section::database) {
            diagrams::draw(sheet, pen());
        } else {
            for (const double reduced : {0.85, 1.05}) {
                sheet.at = {reduced * substance.Tcrit, (reduced < 1 ? 0.5 : 1.3) * substance.pcrit,
                            (reduced < 1 ? 2.5 : 0.8) * eosConstants.vcrit_calculated};
                const bool overT = section == diagrams::Section::isobaric;
                process.range_start = static_cast<double>(overT ? limits.T_min : limits.p_min);
                process.range_end = static_cast<double>(overT ? limits.T_max : limits.p_max);
                diagrams::draw(sheet, pen(), process);
            }
            if (diagrams::offers_mark(sheet, diagrams::Mark::Coexistence))
                diagrams::mark_coexistence(sheet, pen());
        }
        diagrams::add_legend(sheet);
    }

    void paint(QPainter& painter, const QRect& cell) {
        diagrams::place_labels(sheet, cell.width(), cell.height(), chart::qtTextMeasure());
        chart::paintChart2D(painter, cell, sheet.chart);
    }

    void checkTexts(const QSize& size, const std::string& what) {
        const chart::Sheet2D laid =
            chart::lay_out(sheet.chart, size.width(), size.height(), chart::qtTextMeasure());
        for (const chart::SheetText* text :
             {&laid.header, &laid.footer, &laid.x.title, &laid.y.title}) {
            if (!text->shown) continue;
            EXPECT_GE(text->rect.left, -0.5) << what;
            EXPECT_GE(text->rect.top, -0.5) << what;
            EXPECT_LE(text->rect.right(), size.width() + 0.5) << what;
            EXPECT_LE(text->rect.bottom(), size.height() + 0.5) << what;
        }
    }

    void contactSheets(const std::string& name_of_fluid, const QString& name) {
        activate(name_of_fluid);
        const auto all = rows();
        const auto perSheet = static_cast<std::size_t>(kColumns * kRowsOfSheet);
        for (std::size_t first = 0; first < all.size(); first += perSheet) {
            QImage picture(kCell.width() * kColumns, kCell.height() * kRowsOfSheet,
                           QImage::Format_RGB32);
            picture.fill(Qt::white);
            QPainter painter(&picture);
            for (std::size_t i = first; i < std::min(first + perSheet, all.size()); ++i) {
                const int place = static_cast<int>(i - first);
                const QRect cell(place % kColumns * kCell.width(),
                                 place / kColumns * kCell.height(), kCell.width(), kCell.height());
                const std::string what = name_of_fluid + ", code " + std::to_string(all[i]->code);
                user.messages.clear();
                painter.setPen(Qt::black);
                if (openRow(*all[i])) {
                    drawRow();
                    EXPECT_GE(diagrams::curve_count(sheet), 1) << what << ": " << user.lastText();
                    checkTexts(kCell, what);
                    paint(painter, cell);
                } else {
                    painter.drawText(cell, Qt::AlignCenter, QString::fromStdString(refusal));
                }
                painter.setPen(Qt::gray);
                painter.drawRect(cell.adjusted(0, 0, -1, -1));
                painter.drawText(cell.adjusted(4, 0, 0, -2), Qt::AlignLeft | Qt::AlignBottom,
                                 QString::number(all[i]->code));
            }
            painter.end();
            const QString folder = QStringLiteral(QUOR_SCREENS);
            QDir().mkpath(folder);
            const QString file =
                QString("%1/diagrams_%2_%3.png").arg(folder, name).arg(first / perSheet + 1);
            EXPECT_TRUE(picture.save(file));
            EXPECT_GE(look::colours(picture), 8);
        }
    }

    diagrams::DiagramSheet sheet;
    std::string refusal;
};

TEST_F(ContactSheet, Water) {
    contactSheets("Water", "water");
}

TEST_F(ContactSheet, CarbonDioxide) {
    contactSheets("Carbon dioxide", "carbon_dioxide");
}

TEST_F(ContactSheet, Tetrafluoroethane) {
    contactSheets("1,1,1,2-Tetrafluoroethane", "r134a");
}

}  // namespace
