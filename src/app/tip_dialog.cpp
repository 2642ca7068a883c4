#include "app/tip_dialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRandomGenerator>
#include <QVBoxLayout>

#include "gui/widgets/form.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/theme.h"

namespace quor::app {

namespace {

constexpr QSize kTextSize(420, 120);
constexpr int kPicture = 40;

}  // namespace

TipDialog::TipDialog(gui::Desk& desk) : QDialog(desk.frameWindow()) {
    setObjectName("frmTip");
    setWindowTitle("Tips");
    setAttribute(Qt::WA_DeleteOnClose);

    auto* picture = gui::form::label();
    picture->setPixmap(gui::theme::icon("first_steps").pixmap(kPicture, kPicture));
    picture->setAlignment(Qt::AlignTop);
    text_ = gui::form::named(gui::form::label(), "lblTipText");
    text_->setWordWrap(true);
    text_->setTextFormat(Qt::PlainText);
    text_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text_->setMinimumSize(kTextSize);

    auto* atStartup =
        gui::form::named(new QCheckBox("&Show Tips at Startup"), "chkLoadTipsAtStartup");
    atStartup->setChecked(gui::settings::showTipsAtStartup());
    connect(atStartup, &QCheckBox::toggled, this, gui::settings::setShowTipsAtStartup);

    QPushButton* next = gui::form::button("&Next Tip", "cmdNextTip");
    connect(next, &QPushButton::clicked, this, [this] {
        session::next_tip(tips_);
        showTip();
    });
    QPushButton* close = gui::form::button("&Close", "cmdOK");
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::close);

    auto* tip = new QHBoxLayout;
    tip->setSpacing(gui::theme::kGroupGap);
    tip->addWidget(picture);
    tip->addWidget(text_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(gui::theme::kGap);
    buttons->addWidget(atStartup);
    buttons->addStretch(1);
    buttons->addWidget(next);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(gui::theme::kMargin, gui::theme::kMargin, gui::theme::kMargin,
                               gui::theme::kMargin);
    layout->setSpacing(gui::theme::kGroupGap);
    layout->addLayout(tip, 1);
    layout->addLayout(buttons);

    tips_ = session::load_tips(desk.session(), QRandomGenerator::global()->generate());
    next->setEnabled(tips_.lines.size() > 1);
    showTip();
}

void TipDialog::showTip() {
    text_->setText(QString::fromStdString(session::current_tip(tips_)));
}

void TipDialog::load(gui::Desk& desk, bool requested) {
    {
        const auto now = desk.session().change();
        now->tips_requested = requested;
        now->tips_hidden = session::tips_stay_hidden(gui::settings::showTipsAtStartup(), requested);
    }
    if (desk.session()->tips_hidden || desk.activate("frmTip")) return;
    desk.openDialog(new TipDialog(desk));
}

void TipDialog::showAtStartup(gui::Desk& desk) {
    load(desk, false);
}

void TipDialog::showOnRequest(gui::Desk& desk) {
    load(desk, true);
}

}  // namespace quor::app
