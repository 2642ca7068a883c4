#include <QAbstractItemModel>
#include <QComboBox>
#include <QInputDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QTabBar>
#include <QTableView>
#include <QTimer>

#include "app/open_file.h"
#include "gui/frame_test.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_dialogs.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

/// A name that is taken for a picture to fetch, an access key and a mark of changes, wherever it is
/// not shown as it is written.
const QString kName = "<img src='/none'>Q&x[*]";

/// What shows a text otherwise than it is written.
class Watch {
  public:
    void look(const QWidget* top) {
        const auto children = top->findChildren<QWidget*>();
        lookAt(top);
        for (const QWidget* child : children) lookAt(child);
        for (const QAction* action : top->findChildren<QAction*>()) {
            keys(action->text(), action);
            tip(action->toolTip(), action);
        }
    }

    int labels() const { return labels_; }
    int named() const { return named_; }

  private:
    static std::string who(const QObject* one) {
        return (QString(one->metaObject()->className()) + " " + one->objectName()).toStdString();
    }

    void count(const QString& text) { named_ += text.contains("Q&x") || text.contains("Q&&x"); }

    /// A text in which "&" marks an access key.
    void keys(const QString& text, const QObject* of) {
        EXPECT_FALSE(text.contains("Q&x")) << who(of) << ": " << text.toStdString();
        count(text);
    }

    void tip(const QString& text, const QObject* of) {
        EXPECT_FALSE(text.contains("<img")) << who(of) << ": " << text.toStdString();
    }

    void lookAt(const QWidget* widget) {
        tip(widget->toolTip(), widget);
        tip(widget->statusTip(), widget);
        tip(widget->whatsThis(), widget);
        const QString title = widget->windowTitle();
        EXPECT_FALSE(QString(title).remove("[*][*]").contains("[*]"))
            << who(widget) << ": " << title.toStdString();
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            // The captions that a QFormLayout makes of the program's own words lead to a field.
            const bool own = label->buddy() != nullptr && !label->text().contains("Q&x");
            EXPECT_TRUE(label->textFormat() == Qt::PlainText || label->text().isEmpty() || own)
                << who(label) << ": " << label->text().toStdString();
            count(label->text());
            ++labels_;
        }
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            keys(button->text(), button);
        if (const auto* box = qobject_cast<const QGroupBox*>(widget)) keys(box->title(), box);
        if (const auto* tabs = qobject_cast<const QTabBar*>(widget))
            for (int i = 0; i < tabs->count(); ++i) {
                keys(tabs->tabText(i), tabs);
                tip(tabs->tabToolTip(i), tabs);
            }
        if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
            lookAt(view->model());
    }

    void lookAt(const QAbstractItemModel* model) {
        if (model == nullptr) return;
        for (int row = 0; row < std::min(model->rowCount(), 50); ++row)
            for (int column = 0; column < model->columnCount(); ++column) {
                const QModelIndex cell = model->index(row, column);
                tip(cell.data(Qt::ToolTipRole).toString(), model);
                count(cell.data().toString());
            }
    }

    int labels_ = 0, named_ = 0;
};

class NamesAsWritten : public FrameTest {
  protected:
    NamesAsWritten() {
        databases::TableRow row = databases::Row("Propane");
        row["name_en"] = kName.toStdString();
        row["synonyms_en"] = "";
        databases::Write(folder() / "STUDENT.Q05", {row});
        std::filesystem::copy(std::filesystem::path(QUOR_SOURCE_DATA).parent_path() / "help",
                              folder() / "help", std::filesystem::copy_options::recursive);
        start();
        QObject::connect(&watch_, &QTimer::timeout, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || !dialog->isVisible() || !watching_) return;
            seen_.look(dialog);
            dialog->reject();
        });
        watch_.start(5);
    }

    void TearDown() override {
        watch_.stop();
        delete drive::find("helpViewer");
        FrameTest::TearDown();
    }

    void lookAtAll() {
        for (const QWidget* top : QApplication::topLevelWidgets())
            if (top->isVisible()) seen_.look(top);
    }

    Watch seen_;
    bool watching_ = false;

  private:
    QTimer watch_;
};

TEST_F(NamesAsWritten, NoViewTakesANameFromAFileForMarkup) {
    openSubstance(kName);
    ASSERT_EQ(QString::fromStdString(session->substance.name).trimmed(), kName);
    user.inputAnswers = {kName.toStdString()};  // the comment of the project
    watching_ = true;
    user.fileAnswers = {(folder() / "mine.QCF").string()};
    drive::choose("mnuData_SaveProject");
    open_file::open(desk, commands,
                    std::string(QUOR_SOURCE_DATA) + "/samples/propane_saturation.BAQ");
    lookAtAll();
    int walked = 0;
    for (const menu::Row& row : menu::rows()) {
        if (row.kind != menu::Kind::Command) continue;
        const QString name = QString::fromStdString(menu::object_name(row));
        if (name == "mnuData_Exit" || row.parent == "mnuEdit") continue;
        if (!menu::visible(session, row) || !menu::enabled(session, commands, row)) continue;
        if (!row.parent.empty()) drive::open(name);
        user.fileAnswers = {(folder() / "mine.QCF").string()};
        drive::action(name)->trigger();
        drive::settle();
        lookAtAll();
        ++walked;
        frame->findChild<QMdiArea*>("area")->closeAllSubWindows();
        delete drive::find("helpViewer");
        drive::settle();
    }
    EXPECT_GT(walked, 30);
    EXPECT_GT(seen_.labels(), 500);
    EXPECT_GT(seen_.named(), 50);
}

TEST_F(NamesAsWritten, AMessageAndAQuestionShowATextAsItIsWritten) {
    watching_ = true;
    const dialogs::Functions desktop = dialogs::desktop();
    const int before = seen_.labels();
    desktop.message({.text = kName.toStdString(), .title = "Note"});
    desktop.input({.text = kName.toStdString(), .title = "Input", .proposal = "1"});
    EXPECT_GE(seen_.labels(), before + 2);
}

TEST_F(NamesAsWritten, ATipShowsATextAsItIsWritten) {
    EXPECT_EQ(form::tip("c:\\a & b"), "c:\\a & b");
    EXPECT_FALSE(form::tip(kName).contains("<img"));
    EXPECT_TRUE(form::tip(kName).contains("&lt;img src="));
}

}  // namespace
