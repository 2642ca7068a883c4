#include "gui/widgets/exact_copy.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <utility>

#include "common/dialogs.h"
#include "common/numbers.h"

namespace quor::gui {

namespace {

class ExactCopy : public QObject {
  public:
    ExactCopy(QLineEdit* field, std::function<std::optional<double>()> value)
        : QObject(field), field_(field), value_(std::move(value)) {
        field->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy) && copy())
            return true;
        if (event->type() == QEvent::ContextMenu)
            return showMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return QObject::eventFilter(watched, event);
    }

  private:
    /// False where the text itself is to be copied.
    bool copy() const {
        const std::optional<double> value = value_();
        if (!value || field_->selectedText() != field_->text()) return false;
        QString text = QLocale::c().toString(*value, 'g', QLocale::FloatingPointShortest);
        text.replace('.', QLatin1Char(numbers::decimal_mark()));
        dialogs::set_clipboard(text.toUpper().toStdString());
        return true;
    }

    bool showMenu(const QPoint& place) const {
        QMenu* menu = field_->createStandardContextMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        if (auto* action = menu->findChild<QAction*>("edit-copy")) {
            QObject::disconnect(action, nullptr, field_, nullptr);
            QObject::connect(action, &QAction::triggered, field_, [this] {
                if (!copy()) field_->copy();
            });
        }
        menu->popup(place);
        return true;
    }

    QLineEdit* field_;
    std::function<std::optional<double>()> value_;
};

}  // namespace

void copyExactly(QLineEdit* field, std::function<std::optional<double>()> value) {
    new ExactCopy(field, std::move(value));
}

}  // namespace quor::gui
