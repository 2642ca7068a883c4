#include "app/first_steps.h"

#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "gui/widgets/form.h"
#include "gui/widgets/theme.h"

namespace quor::app {

namespace {

constexpr int kWidth = 560;
constexpr const char* kLines[] = {
    "In case you are not yet familiar with QUOR:",
    "(1)  Begin with a new project (Click at the left icon)",
    "(2)  Select a database (e. g. STUDENT.Q05), then a substance, then the models for the "
    "calculation (recommended: Confirm the default models)",
    "(3)  Now in the top level menue the execution is ready for 2D/3D-diagrams or single-point "
    "calculations "};

}  // namespace

FirstSteps::FirstSteps(QWidget* parent) : QFrame(parent) {
    setObjectName("Picture1");
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setToolTip("A click hides this panel");

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * gui::theme::kMargin, gui::theme::kMargin,
                               2 * gui::theme::kMargin, gui::theme::kMargin);
    layout->setSpacing(gui::theme::kGap);
    int number = 0;
    for (const char* line : kLines) {
        auto* label = gui::form::label(line);
        label->setObjectName(QString("lblFirstSteps_%1").arg(number));
        label->setWordWrap(true);
        // A press on a label counts as one on the panel.
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        if (number == 0) {
            QFont bold = label->font();
            bold.setBold(true);
            label->setFont(bold);
        }
        layout->addWidget(label);
        ++number;
    }
    setFixedSize(kWidth, layout->totalHeightForWidth(kWidth));
}

void FirstSteps::mousePressEvent(QMouseEvent* event) {
    hide();
    event->accept();
}

}  // namespace quor::app
