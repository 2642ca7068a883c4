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
#include "app/menu_commands.h"
#include "app/tip_dialog.h"
#include "app/work_area.h"
#include "gui/widgets/follows_session.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/theme.h"
#include "legacy/declare.h"
#include "session/actions.h"
#include "session/calculations.h"
#include "session/commands.h"
#include "session/module2.h"
#include "session/project_hooks.h"
#include "session/session_status.h"
#include "session/shutdown.h"

namespace quor::app {

namespace {

using gui::qt;

constexpr auto kBanner =
    "QUOR-6   Thermodynamic Calculations of States and Processes for Pure Substances";
constexpr QSize kFirstSize(1180, 780), kToolIcon(24, 24);
constexpr QPoint kFirstStepsPlace(24, 24);
constexpr int kPanelWidth = 110, kRecentCharacters = 60;
constexpr std::int16_t kTankGlobal = 9, kTankPartial = 10;

MainWindow* theFrame = nullptr;
MainWindow::FileOpener fileOpener = nullptr;

/// The files of this computer among what is dragged.
QStringList local_files(const QMimeData* data) {
    QStringList files;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile()) files << url.toLocalFile();
    return files;
}

}  // namespace

MainWindow::MainWindow() {
    setObjectName("mdiQUOR");
    setWindowTitle(kBanner);
    theFrame = this;
    gui::shell::setFrame(this);

    area_ = new WorkArea(this);
    area_->setObjectName("area");
    setCentralWidget(area_);
    // An empty hidden child from the start: the area never is without one.
    auto* phantom = new QWidget(area_);
    phantom->setObjectName("frmPhantom");
    phantom->hide();

    registerActions();
    buildMenus();
    buildStatusBar();
    buildToolBar();

    session::on_commands_changed([] {
        if (theFrame != nullptr) theFrame->refresh();
    });
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

void MainWindow::setFileOpener(FileOpener opener) {
    fileOpener = opener;
}

MainWindow::~MainWindow() {
    actions::register_action("mnuData_Exit", {});
    session::on_commands_changed(nullptr);
    gui::shell::setFrame(nullptr);
    theFrame = nullptr;
}

void MainWindow::startUp() {
    firstSteps_->hide();
    session::reset_everything();
    registerProjectActions();
    panels_[3]->setText(qt(legacy::the_places.short_date()));
    TipDialog::showAtStartup();
    refresh();
}

void MainWindow::inviteFirstUser() {
    constexpr auto kSeen = "Options/First Steps Seen";
    QSettings store = gui::settings::store();
    if (store.value(kSeen, false).toBool()) return;
    store.setValue(kSeen, true);
    setFirstStepsVisible(true);
}

// ---------------------------------------------------------------------------------------- commands

void MainWindow::registerActions() {
    using actions::register_action;
    register_action("mnuData_OpenBank", frame_commands::openDatabase);
    register_action("mnuData_Status", frame_commands::showStatus);
    register_action("mnuData_ParameterEOS", frame_commands::showParameters);
    register_action("mnuData_Exit", [this] { close(); });
    register_action("mnuStoff", frame_commands::chooseSubstance);
    register_action("mnuModel", frame_commands::chooseModels);
    register_action("mnuHilfe_About", frame_commands::showAbout);
    register_action("mnuHilfe_Tip", frame_commands::showTips);
    register_action("mnuInfo", frame_commands::showInformation);
}

void MainWindow::registerProjectActions() {
    const session::ProjectHooks& hooks = session::project_hooks();
    using actions::register_action;
    if (hooks.load) register_action("mnuData_LoadLastSession", frame_commands::load_last_session);
    if (hooks.load && hooks.choose)
        register_action("mnuData_LoadProject", frame_commands::LoadProject);
    if (hooks.save) register_action("mnuData_SaveProject", frame_commands::save_project);
}

void MainWindow::runRow(const menu::Row& row) {
    if (!menu::Enabled(row) || !menu::Prepare(row)) return;
    actions::Run(row.action);
    refresh();
}

void MainWindow::menuOpens(const QString& menuName) {
    if (menuName == "mnuData") {
        gui::shell::closeViews(gui::shell::inputViews());
        menu::open_data_menu();
    } else if (menuName == "mnuCalcMain") {
        session::prepare_calculation_menu(legacy::the_calculationViews);
    }
    refresh();
}

// ------------------------------------------------------------------------------------------- menus

void MainWindow::buildMenus() {
    QHash<QString, QMenu*> menus;
    for (const menu::Row& row : menu::Rows()) {
        QMenu* parent = menus.value(qt(row.parent));
        if (row.kind == menu::Kind::Separator) {
            parent->addSeparator();
            continue;
        }
        const QString name = qt(menu::Name(row));
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
        QAction* action = menu->addAction(sub->windowTitle().replace('&', "&&"));
        action->setCheckable(true);
        action->setChecked(sub == area_->activeSubWindow());
        connect(action, &QAction::triggered, sub, [this, sub] { area_->setActiveSubWindow(sub); });
    }
}

void MainWindow::fillRecentFiles(QMenu* menu) {
    menu->clear();
    const QStringList files = gui::settings::recentFiles();
    menu->setEnabled(fileOpener != nullptr && !files.isEmpty());
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString& file = files[i];
        const QString shown = qt(paths::shorten_path(file.toStdString(), kRecentCharacters));
        QAction* action =
            menu->addAction(QString("&%1  %2").arg(i + 1).arg(QString(shown).replace('&', "&&")));
        action->setObjectName(QString("mnuData_Recent_%1").arg(i));
        action->setStatusTip(file);
        connect(action, &QAction::triggered, this, [file] { fileOpener(file.toStdString()); });
    }
}

void MainWindow::refresh() {
    for (const menu::Row& row : menu::Rows()) {
        QAction* action = rowActions_.value(qt(menu::Name(row)));
        if (action == nullptr) continue;
        action->setText(qt(menu::Caption(row)));
        action->setVisible(menu::Visible(row));
        action->setEnabled(menu::Enabled(row));
    }
    for (const menu::ToolButton& button : menu::tool_buttons())
        if (QAction* action = toolActions_.value(button.index))
            action->setEnabled(menu::Enabled(button));
    const session::StatusPanels texts =
        session::panel_texts(session::is_enabled(session::Command::mnuCalcMain));
    panels_[0]->setText(qt(texts.substance));
    panels_[1]->setText(qt(texts.eos));
    panels_[2]->setText(qt(texts.vapourPressure));
    for (const QMdiSubWindow* child : area_->subWindowList())
        if (auto* view = dynamic_cast<gui::FollowsSession*>(child->widget())) view->followSession();
}

// ---------------------------------------------------------------------------- children and closing

void MainWindow::addChild(QWidget* view) {
    area_->openView(view);
}

void MainWindow::setFirstStepsVisible(bool visible) {
    firstSteps_->setVisible(visible);
    firstSteps_->raise();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (fileOpener != nullptr && !local_files(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The source of the drag waits for the end of this event, and opening may ask something.
    QMetaObject::invokeMethod(
        this,
        [files = local_files(event->mimeData())] {
            for (const QString& file : files) fileOpener(file.toStdString());
        },
        Qt::QueuedConnection);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // A view with something unsaved may refuse, and then everything stays.
    if (!area_->closeAllViews()) {
        event->ignore();
        return;
    }
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top != this && top->isVisible()) top->close();
    gui::settings::rememberPlace(this, objectName());
    session::Shutdown();
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
        panels_[i] = gui::form::named(new QLabel, QString("StatusBar1_%1").arg(i + 1));
        panels_[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        panels_[i]->setMinimumWidth(kPanelWidth);
        panels_[i]->setIndent(gui::theme::kGap);
        bar->addWidget(panels_[i], kStretch[i]);
    }
}

void MainWindow::runTool(const menu::ToolButton& button) {
    const menu::Row* row = menu::Find(button.action);
    if (button.command == session::Command::toolTank)
        row = menu::calculation_row(legacy::the_models.PriorityCEOS ? kTankGlobal : kTankPartial);
    if (row != nullptr)
        runRow(*row);
    else
        actions::Run(button.action);
}

}  // namespace quor::app
