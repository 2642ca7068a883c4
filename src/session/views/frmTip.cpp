#include "session/views/frmTip.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRandomGenerator>
#include <QVBoxLayout>

#include "common/views/form.h"
#include "common/views/settings.h"
#include "common/views/theme.h"
#include "session/declare.h"
#include "session/views/shell.h"

namespace {

constexpr QSize kTextSize(420, 120);
constexpr int kPicture = 40;

}  // namespace

frmTip::frmTip(QWidget* parent) : QDialog(parent) {
    setObjectName("frmTip");
    setWindowTitle("Tips");
    setAttribute(Qt::WA_DeleteOnClose);

    auto* picture = new QLabel;
    picture->setPixmap(theme::icon("first_steps").pixmap(kPicture, kPicture));
    picture->setAlignment(Qt::AlignTop);
    text_ = form::named(new QLabel, "lblTipText");
    text_->setWordWrap(true);
    text_->setTextFormat(Qt::PlainText);
    text_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text_->setMinimumSize(kTextSize);

    auto* atStartup = form::named(new QCheckBox("&Show Tips at Startup"), "chkLoadTipsAtStartup");
    atStartup->setChecked(settings::showTipsAtStartup());
    connect(atStartup, &QCheckBox::toggled, this, settings::setShowTipsAtStartup);

    QPushButton* next = form::button("&Next Tip", "cmdNextTip");
    connect(next, &QPushButton::clicked, this, [this] {
        Module2::NextTip(tips_);
        showTip();
    });
    QPushButton* close = form::button("&Close", "cmdOK");
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::close);

    auto* tip = new QHBoxLayout;
    tip->setSpacing(theme::kGroupGap);
    tip->addWidget(picture);
    tip->addWidget(text_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(atStartup);
    buttons->addStretch(1);
    buttons->addWidget(next);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addLayout(tip, 1);
    layout->addLayout(buttons);

    tips_ = Module2::LoadTips(QRandomGenerator::global()->generate());
    next->setEnabled(tips_.lines.size() > 1);
    showTip();
}

void frmTip::showTip() {
    text_->setText(QString::fromStdString(Module2::CurrentTip(tips_)));
}

void frmTip::load() {
    Declare::session.TipsHidden =
        Module2::TipsStayHidden(settings::showTipsAtStartup(), Declare::session.TipsRequested);
    if (Declare::session.TipsHidden || shell::Activate("frmTip")) return;
    auto* view = new frmTip(shell::FrameWindow());
    view->show();
}

void frmTip::ShowAtStartup() {
    Declare::session.TipsRequested = false;
    load();
}

void frmTip::ShowOnRequest() {
    Declare::session.TipsRequested = true;
    load();
}
