#include "gui/diagrams/coordinates_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <limits>

#include "diagrams/sheet_units.h"
#include "diagrams/sheet_window.h"
#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

CoordinatesDialog::CoordinatesDialog(diagrams::DiagramSheet& sheet, QWidget* parent)
    : QDialog(parent), sheet_(sheet) {
    setObjectName("fraCoord");
    setWindowTitle("Coordinates");
    const diagrams::CurveWindow &now = sheet.request.window, &proposed = sheet.request.proposed;
    struct Field {
        const char* caption;
        float now, proposed;
    };
    const std::array<Field, 4> fields{{{"x minimum", now.x_min, proposed.x_min},
                                       {"x maximum", now.x_max, proposed.x_max},
                                       {"y minimum", now.y_min, proposed.y_min},
                                       {"y maximum", now.y_max, proposed.y_max}}};
    auto* grid = form::grid();
    grid->setContentsMargins({});
    // The shortest text that gives the same 32-bit number.
    const auto show = [](NumberEdit* edit, float value) {
        edit->setValue(QString::number(static_cast<double>(value), 'g', 7).toDouble());
    };
    for (std::size_t i = 0; i < fields.size(); ++i) {
        coord_[i] = form::named(new NumberEdit, QString("coord_%1").arg(i));
        show(coord_[i], fields[i].now);
        const std::string& unit = i < 2 ? sheet.request.texts.x : sheet.request.texts.y;
        form::addRow(grid, static_cast<int>(i), fields[i].caption, coord_[i],
                     QString::fromStdString(diagrams::window_text(unit, sheet.units)).trimmed());
    }
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (const auto quantity = diagrams::quantity_of(sheet, i < 2))
            coord_[i]->setQuantity(quantity->dimension, quantity->scale, diagrams::fluid_of(sheet));
    QPushButton* ok = form::button("&OK", "cmdCoord_OK");
    ok->setDefault(true);
    QPushButton* defaults = form::button("&Defaults", "cmdCoord_Default");
    QPushButton* cancel = form::button("&Cancel", "cmdCoord_Cancel");
    connect(ok, &QPushButton::clicked, this, &CoordinatesDialog::confirm);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(defaults, &QPushButton::clicked, this, [this, fields, show] {
        for (std::size_t i = 0; i < fields.size(); ++i) show(coord_[i], fields[i].proposed);
    });
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(defaults);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);
}

void CoordinatesDialog::confirm() {
    std::array<double, 4> limits{};
    for (std::size_t i = 0; i < coord_.size(); ++i)
        limits[i] = coord_[i]->holdsNumber() ? coord_[i]->value()
                                             : std::numeric_limits<double>::quiet_NaN();
    if (diagrams::set_coordinates(sheet_, {{limits[0], limits[1]}, {limits[2], limits[3]}}))
        return accept();
    coord_[0]->setFocus();
}

}  // namespace quor::gui
