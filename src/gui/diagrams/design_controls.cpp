#include "gui/diagrams/design_controls.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

#include "gui/chart/chart_qt.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr int kTextLines = 2;

QIcon swatch(const chart::Colour& c) {
    QPixmap pixmap(28, 14);
    pixmap.fill(chart::toQt(c));
    return pixmap;
}

chart::Colour fromQt(const QColor& c) {
    const auto channel = [](int value) { return static_cast<std::uint8_t>(value); };
    return {channel(c.red()), channel(c.green()), channel(c.blue()), channel(c.alpha())};
}

}  // namespace

DesignControls::DesignControls(QWidget* parent) : QWidget(parent) {
    setObjectName("design");
    pages_ = form::named(new QTabWidget, "tabDesign");
    pages_->setUsesScrollButtons(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(pages_);
}

void DesignControls::showPage(const QString& name) {
    for (int i = 0; i < pages_->count(); ++i)
        if (pages_->widget(i)->objectName() == "page_" + name) pages_->setCurrentIndex(i);
}

void DesignControls::apply() {
    if (!loading_) Q_EMIT changed();
}

void DesignControls::text(QFormLayout* into, const QString& caption, const QString& name,
                          Field<std::string> field, bool lines) {
    const auto take = [this, field](const QString& typed) {
        std::string* target = field();
        if (loading_ || target == nullptr) return;
        *target = typed.toStdString();
        apply();
    };
    if (!lines) {
        auto* edit = form::named(new QLineEdit, name);
        connect(edit, &QLineEdit::textChanged, this, take);
        loads_.push_back([edit, field] {
            const std::string* source = field();
            edit->setEnabled(source != nullptr);
            const QString now = source ? qt(*source) : QString();
            if (edit->text() != now) edit->setText(now);
        });
        into->addRow(caption, edit);
        return;
    }
    auto* edit = form::named(new QPlainTextEdit, name);
    edit->setTabChangesFocus(true);
    edit->setFixedHeight(edit->fontMetrics().lineSpacing() * kTextLines + 4 * theme::kGap);
    connect(edit, &QPlainTextEdit::textChanged, this, [edit, take] { take(edit->toPlainText()); });
    loads_.push_back([edit, field] {
        const QString now = qt(*field());
        if (edit->toPlainText() != now) edit->setPlainText(now);
    });
    into->addRow(caption, edit);
}

void DesignControls::check(QFormLayout* into, const QString& caption, const QString& name,
                           Field<bool> field) {
    auto* box = form::named(new QCheckBox(caption), name);
    connect(box, &QCheckBox::toggled, this, [this, field](bool on) {
        bool* target = field();
        if (loading_ || target == nullptr) return;
        *target = on;
        apply();
    });
    loads_.push_back([box, field] {
        const bool* source = field();
        box->setEnabled(source != nullptr);
        box->setChecked(source != nullptr && *source);
    });
    into->addRow(QString(), box);
}

void DesignControls::colour(QFormLayout* into, const QString& caption, const QString& name,
                            Field<chart::Colour> field) {
    QPushButton* button = form::button("&Choose ...", name);
    button->setText("Choose ...");
    connect(button, &QPushButton::clicked, this, [this, field] {
        chart::Colour* target = field();
        if (target == nullptr) return;
        QColorDialog dialog(chart::toQt(*target), this);
        dialog.setObjectName("ColourDialog");
        dialog.setOption(QColorDialog::ShowAlphaChannel);
        if (dialog.exec() != QDialog::Accepted) return;
        *target = fromQt(dialog.selectedColor());
        apply();
    });
    loads_.push_back([button, field] {
        const chart::Colour* source = field();
        button->setEnabled(source != nullptr);
        button->setIcon(source ? swatch(*source) : QIcon());
    });
    into->addRow(caption, button);
}

void DesignControls::font(QFormLayout* into, const QString& caption, const QString& name,
                          Field<chart::Font> field) {
    QPushButton* button = form::button("", name);
    connect(button, &QPushButton::clicked, this, [this, field] {
        chart::Font* target = field();
        if (target == nullptr) return;
        QFont now(target->family.empty() ? QFont().family() : qt(target->family));
        now.setPointSizeF(static_cast<double>(target->size));
        now.setBold(target->bold);
        now.setItalic(target->italic);
        QFontDialog dialog(now, this);
        dialog.setObjectName("FontDialog");
        if (dialog.exec() != QDialog::Accepted) return;
        const QFont chosen = dialog.selectedFont();
        *target = {chosen.family().toStdString(), static_cast<float>(chosen.pointSizeF()),
                   chosen.bold(), chosen.italic()};
        apply();
    });
    loads_.push_back([button, field] {
        const chart::Font* source = field();
        button->setEnabled(source != nullptr);
        if (source == nullptr) return;
        const QString family = source->family.empty() ? "Sans serif" : qt(source->family);
        button->setText(QString("%1, %2 pt%3")
                            .arg(family)
                            .arg(static_cast<double>(source->size))
                            .arg(source->bold ? ", bold" : ""));
    });
    into->addRow(caption, button);
}

void DesignControls::number(QFormLayout* into, const QString& caption, const QString& name,
                            double low, double high, double step, std::function<double()> get,
                            std::function<void(double)> set, std::function<bool()> usable) {
    auto* spin = form::named(new QDoubleSpinBox, name);
    spin->setRange(low, high);
    spin->setSingleStep(step);
    spin->setDecimals(step < 1 ? 1 : 0);
    connect(spin, &QDoubleSpinBox::valueChanged, this, [this, set, usable](double value) {
        if (loading_ || (usable && !usable())) return;
        set(value);
        apply();
    });
    loads_.push_back([spin, get, usable] {
        const bool enabled = !usable || usable();
        spin->setEnabled(enabled);
        if (enabled) spin->setValue(get());
    });
    into->addRow(caption, spin);
}

void DesignControls::choice(QFormLayout* into, const QString& caption, const QString& name,
                            const QStringList& entries, std::function<int()> get,
                            std::function<void(int)> set) {
    auto* box = form::named(new QComboBox, name);
    box->addItems(entries);
    connect(box, &QComboBox::currentIndexChanged, this, [this, set](int index) {
        if (loading_ || index < 0) return;
        set(index);
        apply();
    });
    loads_.push_back([box, get] {
        const int index = get();
        box->setEnabled(index >= 0);
        box->setCurrentIndex(index);
    });
    into->addRow(caption, box);
}

QFormLayout* DesignControls::page(const QString& name, const QString& title) {
    auto* inside = new QWidget;
    auto* layout = new QFormLayout(inside);
    layout->setHorizontalSpacing(theme::kGap);
    layout->setVerticalSpacing(theme::kGap);
    layout->setLabelAlignment(Qt::AlignRight);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto* scroll = form::named(new QScrollArea, "page_" + name);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(inside);
    pages_->addTab(scroll, title);
    return layout;
}

void DesignControls::printPlace(QFormLayout* into, Field<chart::PrintPlace> place) {
    struct Entry {
        const char* caption;
        const char* name;
        double chart::PrintPlace::*value;
    };
    for (const Entry& e : {Entry{"Print: left / cm", "txtLeft_in_cm", &chart::PrintPlace::left},
                           Entry{"top / cm", "txtTop_in_cm", &chart::PrintPlace::top},
                           Entry{"width / cm", "txtWidth_in_cm", &chart::PrintPlace::width},
                           Entry{"height / cm", "txtHeight_in_cm", &chart::PrintPlace::height}})
        number(
            into, e.caption, e.name, 0, 120, 0.5, [place, e] { return place()->*e.value; },
            [place, e](double value) { place()->*e.value = value; });
}

}  // namespace quor::gui
