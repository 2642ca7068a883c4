#include "app/help_viewer.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/menu_help.h"
#include "common/dialogs.h"
#include "common/whole_file.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"

namespace quor::app {

namespace {

using gui::qt;

constexpr int kPageRole = Qt::UserRole;
constexpr QSize kFirstSize(980, 680);
constexpr int kContentsWidth = 290;
constexpr std::size_t kLargestPage = std::size_t{4} << 20;

QToolButton* button(const QString& text, const QString& name, const QString& tip,
                    const QKeySequence& keys) {
    auto* made = gui::form::named(new QToolButton, name);
    made->setText(text);
    made->setToolTip(tip + " (" + keys.toString(QKeySequence::NativeText) + ")");
    made->setShortcut(keys);
    return made;
}

/// Shows pages of a folder. A pipe or a device in the place of one is passed over, not waited for.
class Page : public QTextBrowser {
  public:
    explicit Page(std::filesystem::path folder) : folder_(std::move(folder)) {}

  protected:
    QVariant loadResource(int, const QUrl& name) override {
        const std::string file =
            (name.isLocalFile() ? name.toLocalFile() : name.path()).toStdString();
        const auto bytes = files::read_whole(folder_ / file, kLargestPage);
        return bytes ? QVariant(QByteArray::fromStdString(*bytes)) : QVariant();
    }

  private:
    std::filesystem::path folder_;
};

/// The style of the pages with the colours of the theme in the places that ask for them.
QString pageStyle(const std::filesystem::path& folder) {
    const auto style = files::read_whole(folder / "help.css", kLargestPage);
    if (!style) return {};
    const QPalette colours = QApplication::palette();
    const bool dark = colours.color(QPalette::Base).lightness() < 128;
    // The desktop's own colour of links is often too dark for a dark page.
    const QString link = dark ? "#7ab8f5" : "#1a5fa8";
    return qt(*style)
               .replace("palette(mid)", colours.color(QPalette::Mid).name())
               .replace("palette(alternate-base)", colours.color(QPalette::AlternateBase).name()) +
           "a { color: " + link + "; }";
}

/// The number of the page about what has the focus: a row of an open menu, or a view.
int topicAt(const QWidget* place) {
    if (const auto* menu = qobject_cast<const QMenu*>(place))
        if (const QAction* row = menu->activeAction())
            if (const int topic = help::topic_of_row(row->objectName().toStdString()); topic >= 0)
                return topic;
    for (const QWidget* at = place; at != nullptr; at = at->parentWidget())
        if (const int topic = help::topic_of_view(at->objectName().toStdString()); topic >= 0)
            return topic;
    return help::kContents;
}

}  // namespace

HelpViewer::HelpViewer(help::Book book, QWidget* parent)
    : QDialog(parent, Qt::Window), book_(std::move(book)) {
    setObjectName("helpViewer");
    setWindowTitle("QUOR-6 Help");
    setModal(false);
    resize(kFirstSize);

    page_ = gui::form::named(new Page(book_.folder()), "helpPage");
    page_->document()->setDefaultStyleSheet(pageStyle(book_.folder()));
    page_->document()->setDocumentMargin(2 * gui::theme::kMargin);
    search_ = gui::form::named(new QLineEdit, "helpSearch");
    search_->setPlaceholderText("Search (Ctrl+F)");
    search_->setClearButtonEnabled(true);
    search_->setAccessibleName("Search in the help");
    contents_ = gui::form::named(new QTreeWidget, "helpContents");
    contents_->setHeaderHidden(true);
    contents_->setAccessibleName("Contents");
    results_ = gui::form::named(new QListWidget, "helpResults");
    results_->setWordWrap(true);
    results_->setSpacing(gui::theme::kGap / 2);
    results_->setAccessibleName("Pages found");
    results_->hide();

    auto* bar = new QHBoxLayout;
    QToolButton* back = button("Back", "helpBack", "Page before", Qt::ALT | Qt::Key_Left);
    QToolButton* forward = button("Forward", "helpForward", "Page after", Qt::ALT | Qt::Key_Right);
    QToolButton* home = button("Contents", "helpHome", "First page", Qt::ALT | Qt::Key_Home);
    for (QToolButton* each : {back, forward, home}) bar->addWidget(each);
    bar->addStretch(1);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QToolButton::clicked, page_, &QTextBrowser::backward);
    connect(forward, &QToolButton::clicked, page_, &QTextBrowser::forward);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(home, &QToolButton::clicked, this, [this] { showTopic(help::kContents); });
    connect(page_, &QTextBrowser::sourceChanged, this, &HelpViewer::markPage);

    auto* left = new QWidget;
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins({});
    column->addWidget(search_);
    column->addWidget(results_);
    column->addWidget(contents_);
    auto* halves = new QSplitter;
    halves->addWidget(left);
    halves->addWidget(page_);
    halves->setStretchFactor(1, 1);
    halves->setSizes({kContentsWidth, kFirstSize.width() - kContentsWidth});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(gui::theme::kMargin, gui::theme::kMargin, gui::theme::kMargin,
                               gui::theme::kMargin);
    layout->addLayout(bar);
    layout->addWidget(halves, 1);

    fillContents();
    connect(contents_, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem* item) {
        showPage(item->data(0, kPageRole).toString().toStdString());
    });
    connect(contents_, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* item) {
        showPage(item->data(0, kPageRole).toString().toStdString());
    });
    const auto open = [this](const QListWidgetItem* item) {
        showPage(item->data(kPageRole).toString().toStdString());
    };
    connect(results_, &QListWidget::itemClicked, this, open);
    connect(results_, &QListWidget::itemActivated, this, open);
    connect(search_, &QLineEdit::textChanged, this, &HelpViewer::search);
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        search_->setFocus();
        search_->selectAll();
    });
}

void HelpViewer::fillContents() {
    QList<QTreeWidgetItem*> path;
    for (const help::Entry& entry : book_.contents()) {
        path.resize(std::min<qsizetype>(path.size(), entry.depth));
        auto* item =
            path.isEmpty() ? new QTreeWidgetItem(contents_) : new QTreeWidgetItem(path.constLast());
        item->setText(0, qt(entry.title));
        item->setData(0, kPageRole, qt(entry.page));
        path.append(item);
    }
    contents_->expandAll();
}

void HelpViewer::showTopic(int topic) {
    showPage(book_.page_of(topic));
}

void HelpViewer::showPage(const std::string& page) {
    if (!page.empty()) page_->setSource(QUrl(qt(page)));
}

void HelpViewer::search(const QString& text) {
    const std::vector<help::Hit> hits = book_.search(text.toStdString());
    results_->clear();
    for (const help::Hit& hit : hits) {
        auto* item = new QListWidgetItem(qt(hit.title) + "\n" + qt(hit.excerpt), results_);
        item->setData(kPageRole, qt(hit.page));
    }
    const bool asked = !text.trimmed().isEmpty();
    if (asked && hits.empty()) {
        auto* none = new QListWidgetItem("no page found", results_);
        none->setFlags(Qt::NoItemFlags);
    }
    results_->setVisible(asked);
    contents_->setVisible(!asked);
}

void HelpViewer::markPage(const QUrl& url) {
    const QString page = url.toString();
    QTreeWidgetItem* best = nullptr;
    for (QTreeWidgetItemIterator it(contents_); *it != nullptr; ++it) {
        const QString own = (*it)->data(0, kPageRole).toString();
        if (own == page) {
            best = *it;
            break;
        }
        if (best == nullptr && !own.isEmpty() && own.section('#', 0, 0) == page.section('#', 0, 0))
            best = *it;
    }
    contents_->setCurrentItem(best);
}

HelpWindow::HelpWindow(gui::Desk& desk, QObject* parent) : QObject(parent), desk_(desk) {
    desk_.doors.help = [this](int topic) { showTopic(topic); };
    qApp->installEventFilter(this);
}

HelpWindow::~HelpWindow() {
    desk_.doors.help = {};
    delete viewer_;
}

void HelpWindow::showTopic(int topic) {
    // A modal dialog lets only its own windows be used.
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* parent = modal != nullptr ? modal : desk_.frameWindow();
    if (viewer_ != nullptr && viewer_->parentWidget() != parent) delete viewer_;
    if (viewer_ == nullptr) {
        const std::filesystem::path folder = help::folder(desk_.session().places());
        std::optional<help::Book> book = help::Book::load(folder);
        if (!book) {
            dialogs::refuse("The pages of the help are not there:\n" + folder.string());
            return;
        }
        viewer_ = new HelpViewer(std::move(*book), parent);
        viewer_->setAttribute(Qt::WA_DeleteOnClose);
    }
    viewer_->showTopic(topic);
    viewer_->show();
    viewer_->raise();
    viewer_->activateWindow();
}

// F1 in every window, also in modal dialogs.
bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1) return false;
    showTopic(topicAt(static_cast<QWidget*>(watched)));
    return true;
}

}  // namespace quor::app
