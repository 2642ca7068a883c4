#include "gui/data/file_view.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "common/text.h"
#include "datafiles/preview.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr int kPathCharacters = 50;
constexpr QSize kFirstSize(760, 520);

/// The pattern of "Caption|*.EXT|Caption|*.EXT": its first one.
QString patternOf(const std::string& filter) {
    const std::vector<std::string> parts = text::split(filter, '|');
    return parts.size() > 1 ? qt(parts[1]) : QStringLiteral("*");
}

bool isPattern(const QString& name) {
    return name.contains('?') || name.contains('*');
}

QLineEdit* shown(const QString& name) {
    auto* field = form::named(new QLineEdit, name);
    field->setReadOnly(true);
    field->setFocusPolicy(Qt::NoFocus);
    return field;
}

}  // namespace

FileView::FileView(Desk& desk, const dialogs::FileChoice& choice, QWidget* parent)
    : QDialog(parent),
      desk_(desk),
      choice_(choice),
      pattern_(patternOf(choice.filter)),
      firstPattern_(pattern_),
      drives_(form::named(new QComboBox, "drvOpenList")),
      folders_(form::named(new QListWidget, "dirOpenList")),
      files_(form::named(new QListWidget, "filOpenList")),
      name_(form::named(new QLineEdit, "txtOpenFile")),
      path_(form::named(form::label(), "lblOpenPath")),
      database_(form::named(form::label(), "lblDataBase")),
      comment_(form::named(form::label(), "lblComment")),
      substance_(shown("Text1")),
      date_(shown("Text2")),
      ok_(form::button(choice.save ? "&Save" : "&Open", "cmdOpenOK")),
      cancel_(form::button("&Cancel", "cmdOpenCancel")),
      return_(form::button("&Enter", "cmdReturn")) {
    setObjectName("frmCmnDlg");
    setWindowTitle("Standard Dialogs");
    resize(kFirstSize);
    auto* title = form::named(form::label(qt(choice.title)), "lblOpenFile");
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    for (const QFileInfo& drive : QDir::drives()) drives_->addItem(drive.absoluteFilePath());
    for (const auto place : {QStandardPaths::HomeLocation, QStandardPaths::DocumentsLocation}) {
        const QString folder = QStandardPaths::writableLocation(place);
        if (drives_->findText(folder) < 0 && QDir(folder).exists()) drives_->addItem(folder);
    }
    drives_->setAccessibleName("Places");
    folders_->setAccessibleName("Folders");
    files_->setAccessibleName("Files");
    comment_->setWordWrap(true);
    return_->setToolTip("opens what is marked, as the Enter key does");
    return_->setFocusPolicy(Qt::NoFocus);  // the list that it speaks to keeps the focus
    ok_->setDefault(true);

    auto* lists = new QGridLayout;
    lists->setSpacing(theme::kGap);
    lists->addWidget(drives_, 0, 0);
    lists->addWidget(path_, 0, 1);
    lists->addWidget(folders_, 1, 0);
    lists->addWidget(files_, 1, 1);
    lists->setColumnStretch(0, 2);
    lists->setColumnStretch(1, 3);

    auto* preview = form::frame(" Substance of the marked batch file: ", "fraViewStoff");
    auto* grid = form::grid(preview);
    form::addRow(grid, 0, "Substance:", substance_);
    form::addRow(grid, 1, "Data base:", database_);
    form::addRow(grid, 2, "File Comment:", comment_);
    form::addRow(grid, 3, "Date:", date_);
    grid->setColumnStretch(1, 1);

    auto* line = new QHBoxLayout;
    line->setSpacing(theme::kGap);
    line->addWidget(form::caption("&Name:", name_));
    line->addWidget(name_, 1);
    for (QPushButton* button : {return_, ok_, cancel_}) line->addWidget(button);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    layout->addWidget(title);
    layout->addLayout(lists, 1);
    layout->addWidget(preview);
    layout->addLayout(line);

    connect(drives_, &QComboBox::textActivated, this, &FileView::showFolder);
    connect(folders_, &QListWidget::itemDoubleClicked, this, [this] { openFolder(); });
    connect(files_, &QListWidget::itemSelectionChanged, this, &FileView::marked);
    connect(files_, &QListWidget::itemDoubleClicked, this,
            [this](const QListWidgetItem* item) { take(item->text()); });
    connect(ok_, &QPushButton::clicked, this, &FileView::confirm);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(return_, &QPushButton::clicked, this, &FileView::sendReturn);
    folders_->installEventFilter(this);
    files_->installEventFilter(this);

    const QDir start(qt(choice.folder));
    showFolder(!choice.folder.empty() && start.exists() ? start.absolutePath() : QDir::homePath());
    name_->setText(qt(choice.name));
    name_->setFocus();
}

bool FileView::serves(const dialogs::FileChoice& choice) {
    const QString pattern = patternOf(choice.filter).toUpper();
    return pattern == "*.BAQ" || pattern == "*.QCF";
}

std::optional<std::string> FileView::choose(Desk& desk, const dialogs::FileChoice& choice) {
    FileView view(desk, choice, desk.frameWindow());
    if (desk.openModal(view) != QDialog::Accepted) return std::nullopt;
    return view.file();
}

std::string FileView::file() const {
    return QDir::toNativeSeparators(chosen_).toStdString();
}

QString FileView::pathOf(const QString& name) const {
    return QDir::isAbsolutePath(name) ? name : QDir(folder_).filePath(name);
}

void FileView::showFolder(const QString& path) {
    const QDir folder(path);
    folder_ = folder.absolutePath();
    path_->setText(
        qt(paths::shorten_path(QDir::toNativeSeparators(folder_).toStdString(), kPathCharacters)));
    path_->setToolTip(form::tip(QDir::toNativeSeparators(folder_)));
    folders_->clear();
    if (!folder.isRoot()) folders_->addItem("..");
    folders_->addItems(folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name));
    showFiles();
}

void FileView::showFiles() {
    files_->clear();
    files_->addItems(QDir(folder_).entryList({pattern_}, QDir::Files, QDir::Name));
    marked();
}

void FileView::marked() {
    const QListWidgetItem* item = files_->currentItem();
    const bool has = item != nullptr && item->isSelected();
    const session::Session& session = desk_.session();
    const datafiles::FilePreview told =
        has ? datafiles::preview_file(pathOf(item->text()).toStdString(), session->database,
                                      session.places(), session->database_folders)
            : datafiles::FilePreview{};
    substance_->setText(qt(told.substance));
    substance_->setCursorPosition(0);
    database_->setText(qt(told.database));
    comment_->setText(qt(told.comment));
    date_->setText(qt(told.date));
}

void FileView::openFolder() {
    if (const QListWidgetItem* item = folders_->currentItem())
        showFolder(QDir::cleanPath(QDir(folder_).filePath(item->text())));
}

void FileView::confirm() {
    const QListWidgetItem* item = files_->currentItem();
    if (item != nullptr && item->isSelected() && name_->text().trimmed().isEmpty()) {
        if (choice_.save) return take(item->text());
        name_->setText(item->text());
    }
    take(name_->text().trimmed());
}

void FileView::take(const QString& name) {
    if (name.isEmpty()) {
        name_->setFocus();
        return;
    }
    if (isPattern(name)) {
        pattern_ = name;
        showFiles();
        name_->setFocus();
        return;
    }
    QString path = pathOf(name);
    if (QFileInfo(path).isDir()) {
        name_->clear();
        return showFolder(path);
    }
    const QString extension = qt(choice_.default_extension);
    if (QFileInfo(path).suffix().isEmpty() && (choice_.save || !QFileInfo::exists(path)))
        path += extension;
    if (!choice_.save && !QFileInfo::exists(path)) {
        dialogs::tell("file not found in the QUOR directory", name.toStdString(),
                      dialogs::Icon::Stop);
        pattern_ = firstPattern_;
        showFiles();
        name_->setFocus();
        name_->selectAll();
        return;
    }
    if (choice_.save && choice_.overwrite_prompt && QFileInfo::exists(path) &&
        !dialogs::ask("such a file is already existing\nOverwright?", "WARNING"))
        return;
    chosen_ = path;
    accept();
}

void FileView::removeFile() {
    const QListWidgetItem* item = files_->currentItem();
    if (item == nullptr || !item->isSelected()) return;
    const std::string name = item->text().toStdString();
    if (!dialogs::ask("File " + name + " Really delete?", "Confirm deleting files")) return;
    if (!QFile::remove(pathOf(item->text())))
        dialogs::tell("The file cannot be deleted.", name, dialogs::Icon::Stop);
    showFiles();
}

/// Enter goes to the list that is in use: a folder opens, a file is taken.
void FileView::sendReturn() {
    QWidget* target = folders_->hasFocus() ? folders_ : files_;
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
}

bool FileView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == folders_ && enter) {
        openFolder();
        return true;
    }
    if (watched == files_ && enter && files_->currentItem() != nullptr) {
        take(files_->currentItem()->text());
        return true;
    }
    if (watched == files_ && key == Qt::Key_Delete) {
        removeFile();
        return true;
    }
    return false;
}

}  // namespace quor::gui
