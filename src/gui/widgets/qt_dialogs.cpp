#include "gui/widgets/qt_dialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSvgRenderer>

#include "common/text.h"
#include "gui/widgets/patient_wait.h"
#include "gui/widgets/print_page.h"
#include "gui/widgets/qt_text.h"

namespace quor::dialogs {

namespace {

using gui::qt;

QWidget* frontWindow() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return QApplication::activeWindow();
}

// A box must be readable whatever the pointer says of running work.
class PlainPointer {
  public:
    PlainPointer() {
        while (QApplication::overrideCursor() != nullptr) {
            kept_.push_back(*QApplication::overrideCursor());
            QApplication::restoreOverrideCursor();
        }
    }
    ~PlainPointer() {
        for (auto it = kept_.rbegin(); it != kept_.rend(); ++it)
            QApplication::setOverrideCursor(*it);
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

  private:
    std::vector<QCursor> kept_;
};

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Stop:
            return QMessageBox::Critical;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton buttonOf(Answer answer) {
    switch (answer) {
        case Answer::Yes:
            return QMessageBox::Yes;
        case Answer::No:
            return QMessageBox::No;
        case Answer::Cancel:
            return QMessageBox::Cancel;
        case Answer::Ok:
            break;
    }
    return QMessageBox::Ok;
}

// What Escape and the close button of the box mean: never more than No.
QMessageBox::StandardButton escapeOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::YesNo:
            return QMessageBox::No;
        case Buttons::OkCancel:
        case Buttons::YesNoCancel:
            return QMessageBox::Cancel;
        case Buttons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

Answer answerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        default:
            return Answer::Ok;
    }
}

Answer message(const Message& m) {
    const PlainPointer plain;
    QMessageBox box(iconOf(m.icon), qt(m.title), qt(m.text), buttonsOf(m.buttons), frontWindow());
    box.setObjectName("MessageBox");
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setDefaultButton(buttonOf(m.default_answer));
    box.setEscapeButton(escapeOf(m.buttons));
    return answerOf(box.exec());
}

std::optional<std::string> input(const Input& i) {
    const PlainPointer plain;
    QInputDialog box(frontWindow());
    box.setObjectName("InputBox");
    box.setWindowTitle(qt(i.title));
    box.setLabelText(qt(i.text));
    for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
    box.setTextValue(qt(i.proposal));
    if (box.exec() != QDialog::Accepted) return std::nullopt;
    return box.textValue().toStdString();
}

// The extension of a filter like "Bitmap (*.bmp)"; empty for one that takes all.
QString suffixOf(const QString& filter) {
    static const QRegularExpression pattern(QStringLiteral("\\(\\*\\.([A-Za-z0-9]+)"));
    return pattern.match(filter).captured(1);
}

std::optional<std::string> file(const FileChoice& c) {
    const PlainPointer plain;
    QFileDialog box(frontWindow(), qt(c.title));
    box.setObjectName("FileDialog");
    box.setNameFilters(toolkitFilter(c.filter).split(";;", Qt::SkipEmptyParts));
    box.setAcceptMode(c.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    box.setFileMode(c.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    box.setOption(QFileDialog::DontConfirmOverwrite, !c.overwrite_prompt);
    if (!c.folder.empty()) box.setDirectory(QDir::fromNativeSeparators(qt(c.folder)));
    const QString extension = qt(c.default_extension);
    box.setDefaultSuffix(extension.startsWith('.') ? extension.mid(1) : extension);
    // A name without an extension becomes a file of the kind that is chosen.
    QObject::connect(&box, &QFileDialog::filterSelected, &box, [&box](const QString& chosen) {
        const QString suffix = suffixOf(chosen);
        if (!suffix.isEmpty()) box.setDefaultSuffix(suffix);
    });
    if (!c.name.empty()) box.selectFile(qt(c.name));
    if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return std::nullopt;
    return QDir::toNativeSeparators(box.selectedFiles().constFirst()).toStdString();
}

bool print(const PrintJob& job) {
    const PlainPointer plain;
    gui::printing::Page page{.title = qt(job.title), .text = qt(job.text), .family = qt(job.font)};
    QSvgRenderer drawing(QByteArray::fromStdString(job.drawing));
    if (drawing.isValid()) {
        page.picture = [&drawing](QPainter& painter, const QRectF& place) {
            drawing.render(&painter, place);
        };
        page.pictureSize = drawing.defaultSize();
    }
    return gui::printing::print(page, frontWindow());
}

void pointer(bool busy) {
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

}  // namespace

QString toolkitFilter(const std::string& filter) {
    const std::vector<std::string> parts = text::split(filter, '|');
    QStringList entries;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        // The toolkit reads the patterns from the last parentheses, so they stand there even when
        // the caption names them already.
        QString caption = qt(parts[i]);
        const qsizetype paren = caption.lastIndexOf('(');
        if (paren > 0 && caption.indexOf('*', paren) > paren)
            caption = caption.left(paren).trimmed();
        const QString patterns = qt(text::replace_all(parts[i + 1], ";", " "));
        entries << caption + " (" + patterns + ")";
    }
    return entries.join(";;");
}

Functions desktop() {
    return {
        .message = message,
        .input = input,
        .file = file,
        .print = print,
        .set_clipboard = [](const std::string& s) { QApplication::clipboard()->setText(qt(s)); },
        .clipboard = [] { return QApplication::clipboard()->text().toStdString(); },
        .pointer = pointer,
        .patience =
            [](const std::string& program, std::chrono::milliseconds limit) {
                const auto wait =
                    std::make_shared<gui::PatientWait>(qt(program), limit, frontWindow());
                return [wait] { return wait->pass(); };
            },
        .beep = [] { QApplication::beep(); },
    };
}

}  // namespace quor::dialogs
