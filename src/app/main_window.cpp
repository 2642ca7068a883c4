#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSessionManager>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "app/first_steps.h"
#include "app/frame_commands.h"
#include "app/help_viewer.h"
#include "app/menu_commands.h"
#include "app/open_file.h"
#include "app/tip_dialog.h"
#include "app/work_area.h"
#include "gui/session/unit_sets.h"
#include "gui/session/units_dialog.h"
#include "gui/widgets/form.h"
#include "gui/widgets/help_topics.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/theme.h"
#include "session/calculations.h"
#include "session/commands.h"
#include "session/end_session.h"
#include "session/options.h"
#include "session/session_status.h"
#include "session/substance_session.h"

namespace quor::app {

namespace {

using gui::qt;

constexpr auto kBanner =
    "QUOR-6   Thermodynamic Calculations of States and Processes for Pure Substances";
constexpr QSize kFirstSize(1180, 780), kToolIcon(24, 24);
constexpr QPoint kFirstStepsPlace(24, 24);
constexpr int kPanelWidth = 110, kRecentCharacters = 60;
constexpr std::int16_t kTankGlobal = 9, kTankPartial = 10;

/// The files of this computer among what is dragged.
QStringList localFiles(const QMimeData* data) {
    QStringList files;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile()) files << url.toLocalFile();
    return files;
}

}  // namespace

MainWindow::MainWindow(gui::Desk& desk, Commands& commands, std::span<const menu::Row> rows)
    : desk_(desk),
      session_(desk.session()),
      commands_(commands),
      rows_(rows),
      help_(new HelpWindow(desk, this)) {
    setObjectName("mdiQUOR");
    setWindowTitle(kBanner);
    desk_.setFrame(this);

    area_ = new WorkArea(this);
    area_->setObjectName("area");
    setCentralWidget(area_);
    // An empty hidden child from the start: the area never is without one.
    auto* phantom = new QWidget(area_);
    phantom->setObjectName("frmPhantom");
    phantom->hide();

    addCommands();
    buildMenus();
    buildStatusBar();
    buildToolBar();

    following_ = session_.on_change([this] { refresh(); });
    auto* exit = new QShortcut(QKeySequence("Alt+F4"), this);
    connect(exit, &QShortcut::activated, this, &QWidget::close);

    resize(kFirstSize);
    gui::settings::restorePlace(this, objectName());
    setAcceptDrops(true);
    // The end of the desktop's session is the end of the program, unless something unsaved stays.
    connect(
        qApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& manager) {
            if (isVisible() && !close()) manager.cancel();
        },
        Qt::DirectConnection);
}

MainWindow::~MainWindow() {
    following_.end();
    desk_.setFrame(nullptr);
}

void MainWindow::startUp() {
    firstSteps_->hide();
    session::reset_everything(session_);
    panels_[3]->setText(qt(session_.places().short_date()));
    TipDialog::showAtStartup(desk_);
    tellWhereNothingIsKept();
    refresh();
}

void MainWindow::tellWhereNothingIsKept() {
    const Places& places = session_.places();
    const std::optional<std::string> fault = places.write_fault();
    if (!fault) return;
    dialogs::tell("No files can be written to the folder " + places.write_folder().string() + " (" +
                      *fault +
                      ").\n\nWhatever is saved can go to other places; the session itself is not "
                      "kept for the next start.",
                  "WARNING");
}

void MainWindow::inviteFirstUser() {
    constexpr auto kSeen = "Options/First Steps Seen";
    QSettings store = gui::settings::store();
    if (store.value(kSeen, false).toBool()) return;
    store.setValue(kSeen, true);
    setFirstStepsVisible(true);
}

// ---------------------------------------------------------------------------------------- commands

void MainWindow::addCommands() {
    frame_commands::add(desk_, commands_);
    commands_.add("mnuData_Exit", [this] { close(); });
    commands_.add("mnuHilfe_Index", [this] { help_->showTopic(help::kContents); });
    commands_.add("mnuEdit_Undo", [this] {
        if (gui::Undoable* view = undoable()) view->undo();
    });
    commands_.add("mnuEdit_Redo", [this] {
        if (gui::Undoable* view = undoable()) view->redo();
    });
}

void MainWindow::runRow(const menu::Row& row) {
    if (!menu::enabled(session_, commands_, row) || !menu::prepare(session_, row)) return;
    commands_.run(row.action);
    refresh();
}

void MainWindow::menuOpens(const QString& menuName) {
    if (menuName == "mnuEdit") return followUndo();
    if (menuName == "mnuData") {
        desk_.closeViews(gui::Desk::inputViews());
        menu::open_data_menu(session_);
    } else if (menuName == "mnuCalcMain") {
        session::prepare_calculation_menu(session_, desk_.calculationViews);
    }
    refresh();
}

// ------------------------------------------------------------------------------------------- menus

void MainWindow::buildMenus() {
    QHash<QString, QMenu*> menus;
    for (const menu::Row& row : rows_) {
        QMenu* parent = menus.value(qt(row.parent));
        if (row.kind == menu::Kind::Separator) {
            parent->addSeparator();
            continue;
        }
        const QString name = qt(menu::object_name(row));
        QAction* action = nullptr;
        if (row.kind == menu::Kind::Submenu) {
            const QString opens = qt(row.submenu);
            QMenu* sub =
                parent != nullptr ? parent->addMenu(QString()) : menuBar()->addMenu(QString());
            sub->setObjectName(opens);
            connect(sub, &QMenu::aboutToShow, this, [this, opens] { menuOpens(opens); });
            menus.insert(opens, sub);
            action = sub->menuAction();
        } else {
            action = new QAction(this);
            connect(action, &QAction::triggered, this, [this, &row] { runRow(row); });
            if (parent != nullptr)
                parent->addAction(action);
            else
                menuBar()->addAction(action);
        }
        action->setObjectName(name);
        action->setMenuRole(QAction::NoRole);
        action->setStatusTip(qt(row.hint));
        rowActions_.insert(name, action);
    }
    QMenu* recent = menus.value("mnuData")->addMenu("Recent databases and projects");
    recent->setObjectName("mnuData_Recent");
    connect(menus.value("mnuData"), &QMenu::aboutToShow, this,
            [this, recent] { fillRecentFiles(recent); });
    QMenu* windows = menus.value("mnuWindow");
    connect(windows, &QMenu::aboutToShow, this, [this, windows] { fillWindowList(windows); });
    fillWindowList(windows);
}

void MainWindow::fillWindowList(QMenu* menu) {
    menu->clear();
    const auto command = [&](const QString& text, const QString& name, auto slot) {
        QAction* action = menu->addAction(text, area_, slot);
        action->setObjectName(name);
        action->setEnabled(!area_->subWindowList().isEmpty());
    };
    command("Cascade", "mnuWindow_Cascade", &QMdiArea::cascadeSubWindows);
    command("Tile", "mnuWindow_Tile", &QMdiArea::tileSubWindows);
    command("Close All", "mnuWindow_CloseAll", &QMdiArea::closeAllSubWindows);
    menu->addSeparator();
    for (QMdiSubWindow* sub : area_->subWindowList()) {
        QAction* action =
            menu->addAction(gui::form::captionOf(sub->windowTitle().replace("[*][*]", "[*]")));
        action->setCheckable(true);
        action->setChecked(sub == area_->activeSubWindow());
        connect(action, &QAction::triggered, sub, [this, sub] { area_->setActiveSubWindow(sub); });
    }
}

void MainWindow::fillRecentFiles(QMenu* menu) {
    menu->clear();
    const QStringList files = gui::settings::recentFiles();
    menu->setEnabled(!files.isEmpty());
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString& file = files[i];
        const QString shown = qt(paths::shorten_path(file.toStdString(), kRecentCharacters));
        QAction* action =
            menu->addAction(QString("&%1  %2").arg(i + 1).arg(QString(shown).replace('&', "&&")));
        action->setObjectName(QString("mnuData_Recent_%1").arg(i));
        action->setStatusTip(file);
        connect(action, &QAction::triggered, this, [this, file] { openFile(file); });
    }
}

void MainWindow::refresh() {
    for (const menu::Row& row : rows_) {
        QAction* action = rowActions_.value(qt(menu::object_name(row)));
        if (action == nullptr) continue;
        action->setText(qt(menu::caption(session_, row)));
        action->setVisible(menu::visible(session_, row));
        action->setEnabled(menu::enabled(session_, commands_, row));
    }
    for (const menu::ToolButton& button : menu::tool_buttons())
        if (QAction* action = toolActions_.value(button.index))
            action->setEnabled(menu::enabled(session_, commands_, button));
    const session::StatusPanels texts = session::panel_texts(
        session_, session::is_enabled(session_, session::Command::calculations));
    panels_[0]->setText(qt(texts.substance));
    panels_[1]->setText(qt(texts.eos));
    panels_[2]->setText(qt(texts.vapour_pressure));
    reference_->setText(qt(texts.reference));
    units_->setText("Units: " + gui::nameOf(session_->units));
    followUndo();
}

gui::Undoable* MainWindow::undoable() const {
    const QMdiSubWindow* active = area_->activeSubWindow();
    return active == nullptr ? nullptr : dynamic_cast<gui::Undoable*>(active->widget());
}

void MainWindow::followUndo() {
    const gui::Undoable* view = undoable();
    const auto show = [&](const char* row, const QString& verb, const QString& step,
                          const char* keys) {
        QAction* action = rowActions_.value(row);
        action->setEnabled(!step.isEmpty());
        action->setText((step.isEmpty() ? verb : verb + " " + QString(step).replace('&', "&&")) +
                        "\t" + keys);
    };
    show("mnuEdit_Undo", "&Undo", view == nullptr ? QString() : view->undoName(), "Ctrl+Z");
    show("mnuEdit_Redo", "&Redo", view == nullptr ? QString() : view->redoName(), "Ctrl+Shift+Z");
}

// ---------------------------------------------------------------------------- children and closing

void MainWindow::addChild(QWidget* view) {
    // The panel stands above all views and would cover this one.
    firstSteps_->hide();
    area_->openView(view);
}

void MainWindow::setFirstStepsVisible(bool visible) {
    firstSteps_->setVisible(visible);
    firstSteps_->raise();
}

void MainWindow::openFile(const QString& file) {
    open_file::open(desk_, commands_, file.toStdString());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The source of the drag waits for the end of this event, and opening may ask something.
    QMetaObject::invokeMethod(
        this,
        [this, files = localFiles(event->mimeData())] {
            for (const QString& file : files) openFile(file);
        },
        Qt::QueuedConnection);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // A view with something unsaved may refuse, and then everything stays.
    if (!session::may_leave_substance(session_) || !area_->closeAllViews()) {
        event->ignore();
        return;
    }
    if (!session::end_session(session_)) {
        event->ignore();
        return;
    }
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top != this && top->isVisible()) top->close();
    gui::settings::rememberPlace(this, objectName());
    event->accept();
}

// -------------------------------------------------------------------------------------------- bars

void MainWindow::buildToolBar() {
    auto* bar = new QToolBar("Tool Bar", this);
    bar->setObjectName("Toolbar1");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize(kToolIcon);
    int last = 0;
    for (const menu::ToolButton& button : menu::tool_buttons()) {
        // A gap in the numbering is a separator on the bar.
        if (last != 0 && button.index > last + 1) bar->addSeparator();
        last = button.index;
        QAction* action =
            bar->addAction(gui::theme::icon(qt(button.icon)), qt(button.tooltip).trimmed());
        const QString name = QString("Toolbar1_%1").arg(button.index);
        action->setObjectName(name);
        action->setToolTip(qt(button.tooltip));
        bar->widgetForAction(action)->setObjectName(name);
        connect(action, &QAction::triggered, this, [this, &button] { runTool(button); });
        toolActions_.insert(button.index, action);
    }
    auto* space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);

    auto* steps = gui::form::named(new QToolButton, "cmdErstnutzer");
    steps->setText("First Steps    (on/off)  ");
    steps->setIcon(gui::theme::icon("first_steps"));
    steps->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    steps->setFocusPolicy(Qt::TabFocus);
    connect(steps, &QToolButton::clicked, this,
            [this] { setFirstStepsVisible(firstSteps_->isHidden()); });
    bar->addWidget(steps);
    addToolBar(bar);

    firstSteps_ = new FirstSteps(area_);
    firstSteps_->move(kFirstStepsPlace);
    firstSteps_->hide();
}

void MainWindow::buildStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setObjectName("StatusBar1");
    constexpr int kStretch[] = {2, 3, 3, 0};
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = gui::form::named(gui::form::label(), QString("StatusBar1_%1").arg(i + 1));
        panels_[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        panels_[i]->setMinimumWidth(kPanelWidth);
        panels_[i]->setIndent(gui::theme::kGap);
        bar->addWidget(panels_[i], kStretch[i]);
    }
    reference_ = gui::form::named(gui::form::label(), "StatusBar1_5");
    reference_->setToolTip("Zero of h and s");
    bar->addPermanentWidget(reference_);
    bar->addPermanentWidget(unitsButton());
}

QWidget* MainWindow::unitsButton() {
    units_ = gui::form::named(new QToolButton, "cmdStatusUnits");
    units_->setAutoRaise(true);
    units_->setPopupMode(QToolButton::InstantPopup);
    units_->setFocusPolicy(Qt::TabFocus);
    units_->setToolTip("Units of all quantities");
    auto* menu = gui::form::named(new QMenu(units_), "mnuUnits");
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { fillUnitsMenu(menu); });
    units_->setMenu(menu);
    return units_;
}

void MainWindow::fillUnitsMenu(QMenu* menu) {
    menu->clear();
    for (const gui::NamedUnits& set : gui::unitSets()) {
        QAction* action = menu->addAction(gui::form::captionOf(set.name), this, [this, set] {
            session::apply_units(session_, set.choice);
        });
        action->setCheckable(true);
        action->setChecked(gui::sameUnits(set.choice, session_->units));
    }
    menu->addSeparator();
    menu->addAction("&Each quantity ...", this, [this] {
        gui::UnitsDialog dialog(session_->units, this);
        if (desk_.openModal(dialog) == QDialog::Accepted)
            session::apply_units(session_, dialog.choice());
    });
}

void MainWindow::runTool(const menu::ToolButton& button) {
    const menu::Row* row = menu::find(button.action);
    if (button.command == session::Command::toolTank)
        row = menu::calculation_row(session_->models.eos_has_priority ? kTankGlobal : kTankPartial);
    if (row != nullptr)
        runRow(*row);
    else
        commands_.run(button.action);
}

}  // namespace quor::app
