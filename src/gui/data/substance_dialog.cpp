#include "gui/data/substance_dialog.h"

#include <QComboBox>
#include <QCompleter>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "common/text.h"
#include "datafiles/search.h"
#include "gui/data/substance_list_model.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/theme.h"
#include "session/substance_session.h"

namespace quor::gui {

namespace {

constexpr QSize kSize(640, 560);
constexpr int kRowPadding = 6;

}  // namespace

/// Completes names, but not while what is typed is one already.
class NameCompleter : public QCompleter {
  public:
    using QCompleter::QCompleter;
    bool completes = true;

  protected:
    QStringList splitPath(const QString& typed) const override {
        static const QString kNoName(QChar::Null);
        return completes ? QCompleter::splitPath(typed) : QStringList(kNoName);
    }
};

SubstanceDialog::SubstanceDialog(Desk& desk, QWidget* parent)
    : QDialog(parent), desk_(desk), session_(desk.session()) {
    setObjectName("frmStoffWahl");
    setWindowTitle(QString("Select a substance (totally %1)").arg(session_->database.size()));
    buildList();
    buildSearch();
    arrange();
    resize(kSize);
    const std::int16_t current = session_->substance_number;
    selectEntry(current > 0 ? current : std::int16_t{1});
    search_->setFocus();
    search_->selectAll();
}

void SubstanceDialog::buildList() {
    auto* all = new SubstanceListModel(session_->database, this);
    shown_ = new SubstanceFilter(this);
    shown_->setSourceModel(all);
    shown_->setSortCaseSensitivity(Qt::CaseInsensitive);

    list_ = form::named(new QTableView, "StoffListe");
    list_->setModel(shown_);
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setShowGrid(false);
    list_->setAlternatingRowColors(true);
    list_->setSortingEnabled(true);
    list_->setTabKeyNavigation(false);
    list_->verticalHeader()->hide();
    list_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    list_->verticalHeader()->setDefaultSectionSize(list_->fontMetrics().height() + kRowPadding);
    list_->horizontalHeader()->setHighlightSections(false);
    list_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    list_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    list_->horizontalHeader()->setSectionResizeMode(SubstanceListModel::Name, QHeaderView::Stretch);
    const int character = list_->fontMetrics().averageCharWidth();
    list_->setColumnWidth(SubstanceListModel::Formula, 16 * character);
    list_->setColumnWidth(SubstanceListModel::Casrn, 16 * character);

    connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& now) {
                if (now.isValid() && list_->hasFocus())
                    showEntry(static_cast<std::int16_t>(
                        now.data(SubstanceListModel::kIndexRole).toInt()));
            });
    connect(list_, &QTableView::clicked, this, [this](const QModelIndex& now) {
        showEntry(static_cast<std::int16_t>(now.data(SubstanceListModel::kIndexRole).toInt()));
    });
    connect(list_, &QTableView::doubleClicked, this, &SubstanceDialog::take);
}

void SubstanceDialog::buildSearch() {
    search_ = form::named(new QLineEdit, "Text1");
    search_->setClearButtonEnabled(true);
    search_->setPlaceholderText("Type a part of it to shorten the list");
    completer_ = new NameCompleter(shown_->sourceModel(), this);
    completer_->setCompletionColumn(SubstanceListModel::Name);
    completer_->setCompletionMode(QCompleter::InlineCompletion);
    completer_->setCaseSensitivity(Qt::CaseInsensitive);
    search_->setCompleter(completer_);
    connect(search_, &QLineEdit::textEdited, this, &SubstanceDialog::followTyping);
    connect(search_, &QLineEdit::textChanged, this, &SubstanceDialog::matchEntry);
    search_->installEventFilter(this);

    names_ = form::named(new QComboBox, "NameCombo");
    names_->setToolTip(" All names of this substance in the database ");
    formula_ = form::named(form::label(), "lblFormula");
    formula_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    note_ = form::named(form::note(), "lblNote");
}

void SubstanceDialog::arrange() {
    ok_ = form::button("Substance &OK   Continue", "StoffOK");
    ok_->setDefault(true);
    connect(ok_, &QPushButton::clicked, this, &SubstanceDialog::take);
    data_ = form::button("&Show Data", "cmdDaten");
    data_->setToolTip("...but not editable from here ");
    data_->setEnabled(static_cast<bool>(desk_.doors.showSubstance));
    connect(data_, &QPushButton::clicked, this, &SubstanceDialog::showData);
    help_ = form::button("&Help", "Hilfe");
    desk_.connectHelp(help_, help::kSubstanceChoice);
    cancel_ = form::button("&Cancel", "ESC");
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);

    auto* fields = form::grid();
    fields->setContentsMargins({});
    form::addRow(fields, 0, "&Input: Name of substance/CASRN", search_);
    form::addRow(fields, 1, "&Names", names_);
    form::addRow(fields, 2, "Formula + CASRN", formula_);
    fields->setColumnStretch(1, 1);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    buttons->addWidget(data_);
    buttons->addWidget(help_);
    buttons->addStretch(1);
    buttons->addWidget(ok_);
    buttons->addWidget(cancel_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGap);
    layout->addLayout(fields);
    layout->addWidget(list_, 1);
    layout->addWidget(note_);
    layout->addSpacing(theme::kGap);
    layout->addLayout(buttons);
    for (const auto& [first, second] : {std::pair<QWidget*, QWidget*>{search_, list_},
                                        {list_, names_},
                                        {names_, ok_},
                                        {ok_, cancel_},
                                        {cancel_, data_},
                                        {data_, help_}})
        setTabOrder(first, second);
}

// Shows names, formula and CASRN of an entry.
void SubstanceDialog::describe(std::int16_t index) {
    const datafiles::DatabaseEntry& entry =
        session_->database.entries()[static_cast<std::size_t>(index - 1)];
    names_->clear();
    for (const std::string& name : datafiles::names_of(entry.name))
        names_->addItem(QString::fromStdString(name));
    formula_->setText(QString::fromStdString(datafiles::formula_and_casrn(entry)));
}

// The entry was picked in the list: its name goes into the field.
void SubstanceDialog::showEntry(std::int16_t index) {
    present_ = index;
    describe(index);
    search_->setText(names_->itemText(0));
}

// The field spells a name of the list, be it by completion: that entry is the one meant.
void SubstanceDialog::matchEntry(const QString& text) {
    if (selectedEntry() > 0 && names_->itemText(0).compare(text, Qt::CaseInsensitive) == 0) return;
    const QModelIndexList rows =
        shown_->match(shown_->index(0, SubstanceListModel::Name), Qt::DisplayRole, text, 1,
                      Qt::MatchFixedString | Qt::MatchWrap);
    if (text.isEmpty() || rows.isEmpty()) return;
    list_->setCurrentIndex(rows.constFirst());
    list_->scrollTo(rows.constFirst());
    describe(selectedEntry());
}

// What is typed as a whole name, synonym, R-number or CASRN is the substance meant, not the
// beginning of another one's name.
void SubstanceDialog::followTyping(const QString& typed) {
    const auto exact = session::exact_substance(session_, typed.trimmed().toStdString());
    completer_->completes = !exact;
    filterBy(typed, exact.value_or(0));
    if (exact.value_or(0) > 0)
        markEntry(*exact);
    else if (exact)
        note_->setText("A known substance, but not in this database.");
}

void SubstanceDialog::search(const QString& text) {
    search_->setText(text);
    followTyping(text);
}

void SubstanceDialog::filterBy(const QString& typed, std::int16_t exact) {
    // What was selected is not what is being typed.
    list_->setCurrentIndex({});
    names_->clear();
    formula_->clear();
    shown_->show(typed.trimmed(), exact);
    note_->setText(shown_->rowCount() == 0 ? "Not in the list; OK looks among the synonyms." : "");
}

void SubstanceDialog::markEntry(std::int16_t index) {
    const QModelIndex place =
        shown_->mapFromSource(shown_->sourceModel()->index(index - 1, SubstanceListModel::Name));
    list_->setCurrentIndex(place);
    list_->scrollTo(place, QAbstractItemView::PositionAtCenter);
    describe(index);
}

void SubstanceDialog::selectEntry(std::int16_t index) {
    if (index < 1 || index > shown_->sourceModel()->rowCount()) return;
    filterBy({}, 0);
    markEntry(index);
    showEntry(index);
}

std::int16_t SubstanceDialog::selectedEntry() const {
    const QModelIndex now = list_->currentIndex();
    return now.isValid()
               ? static_cast<std::int16_t>(now.data(SubstanceListModel::kIndexRole).toInt())
               : std::int16_t{0};
}

// The entry that the field names: the one in the list as long as its name stands there, else what
// the search finds.
std::int16_t SubstanceDialog::wantedEntry() {
    const std::int16_t selected = selectedEntry();
    const QString typed = search_->text().trimmed();
    if (selected > 0 && typed.compare(names_->itemText(0), Qt::CaseInsensitive) == 0)
        return selected;
    const session::BusyPointer busy(session_);
    return session::find_substance(session_, typed.toStdString());
}

void SubstanceDialog::take() {
    const std::int16_t found = wantedEntry();
    if (found == 0) {
        const QString typed = search_->text();
        selectEntry(present_);
        search_->setText(typed);
        search_->setFocus();
        search_->selectAll();
        return;
    }
    selectEntry(found);
    restoreKept();
    if (session::take_substance(session_, found)) accept();
}

void SubstanceDialog::showData() {
    const std::int16_t found = wantedEntry();
    if (found == 0) return;
    selectEntry(found);
    if (!kept_)
        kept_ =
            Kept{session_->substance, session_->models.vapour_pressure, session_->applied_unsaved};
    if (session::read_substance(session_, found)) desk_.doors.showSubstance();
}

void SubstanceDialog::restoreKept() {
    if (!kept_) return;
    const auto now = session_.change();
    now->substance = kept_->substance;
    now->models.vapour_pressure = kept_->equation;
    now->applied_unsaved = kept_->appliedUnsaved;
    kept_.reset();
}

// Leaving without a choice leaves the session's substance as it was, also after a look at another.
void SubstanceDialog::reject() {
    restoreKept();
    QDialog::reject();
}

// The arrow keys lead from the field into the list; Enter takes a completed name at once.
bool SubstanceDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == search_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            take();
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_PageDown) {
            list_->setFocus();
            if (!list_->currentIndex().isValid() && shown_->rowCount() > 0)
                list_->setCurrentIndex(shown_->index(0, 0));
            else if (list_->currentIndex().isValid())
                showEntry(selectedEntry());
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace quor::gui
