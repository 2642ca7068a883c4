#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrinter>
#include <fstream>

#include "common/numbers.h"
#include "gui/view_test.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/print_page.h"
#include "gui/widgets/qt_dialogs.h"
#include "gui/widgets/theme.h"

using namespace quor;
using namespace quor::gui;

namespace {

class NumberField : public ViewTest {
  protected:
    NumberField() {
        field.setObjectName("field");
        field.show();
    }
    double typed(const QString& text) {
        drive::type("field", text);
        return field.value();
    }
    NumberEdit field;
};

TEST_F(NumberField, TakesPointAndComma) {
    for (const char mark : {'.', ','}) {
        numbers::set_decimal_mark(mark);
        EXPECT_EQ(typed("273.15"), 273.15);
        EXPECT_EQ(typed("273,15"), 273.15);
        EXPECT_EQ(typed("-1.5e-3"), -0.0015);
        EXPECT_EQ(typed(""), 0.0);
    }
}

TEST_F(NumberField, TakesNothingButCharactersOfANumber) {
    drive::type("field", "1a2;34.56");
    EXPECT_EQ(field.text(), "1234.56");
    drive::type("field", "abc");
    EXPECT_EQ(field.text(), "1234.56") << "what cannot be typed does not delete either";
}

TEST_F(NumberField, AnAmbiguousNumberIsMarkedWhereItStandsAndNotUsed) {
    for (const char* text : {"1,234.5", "1.000,5", "3 000", "1.2.3", "3'000"}) {
        EXPECT_EQ(typed(text), 0.0);
        EXPECT_EQ(field.text(), text) << "what was typed stays to be seen";
        EXPECT_FALSE(field.holdsNumber()) << text;
        EXPECT_TRUE(field.isMarked()) << text;
        typed("1,5");
        EXPECT_FALSE(field.isMarked());

        QApplication::clipboard()->setText(text);
        field.selectAll();
        QTest::keySequence(&field, QKeySequence::Paste);
        EXPECT_EQ(field.text(), text);
        EXPECT_TRUE(field.isMarked()) << "pasted " << text;
        NumberEdit* fields[] = {&field};
        EXPECT_TRUE(markWrongNumber(fields));
    }
}

TEST_F(NumberField, ShowsTheDecimalMarkOfTheLocale) {
    numbers::set_decimal_mark(',');
    field.setValue(0.25);
    EXPECT_EQ(field.text(), "0,25");
    EXPECT_EQ(field.value(), 0.25);
}

TEST_F(NumberField, SelectsItsTextOnFocus) {
    QWidget window;
    QLineEdit other(&window);
    NumberEdit second(&window);
    second.setGeometry(0, 40, 100, 30);
    second.setValue(12);
    window.show();
    other.setFocus();
    drive::settle();
    second.setFocus(Qt::TabFocusReason);
    drive::settle();
    EXPECT_EQ(second.selectedText(), "12");
}

TEST_F(NumberField, AMarkStaysUntilSomethingIsTyped) {
    field.setMark("too small");
    EXPECT_TRUE(field.isMarked());
    EXPECT_EQ(field.toolTip(), "too small");
    field.setMark("too large");
    EXPECT_EQ(field.actions().size(), 1);
    drive::type("field", "5");
    EXPECT_FALSE(field.isMarked());
    EXPECT_TRUE(field.actions().isEmpty());
}

TEST_F(NumberField, KnowsAnIncompleteNumber) {
    for (const char* whole : {"1", "-1.5", ".5", "1E5", " 2,5 ", "1e-3"}) {
        field.setText(whole);
        EXPECT_TRUE(field.holdsNumber()) << whole;
    }
    for (const char* part : {"", "-", ".", "1E", "1E-"}) {
        field.setText(part);
        EXPECT_FALSE(field.holdsNumber()) << part;
    }
}

TEST(ToolkitFilter, TurnsPairsIntoEntries) {
    EXPECT_EQ(dialogs::toolkitFilter("Database (*.Q05)|*.Q05"), "Database (*.Q05)");
    EXPECT_EQ(dialogs::toolkitFilter("Project|*.QCF|All files|*.*"),
              "Project (*.QCF);;All files (*.*)");
    EXPECT_EQ(dialogs::toolkitFilter("Points (*.XY; *.LRG)|*.XY;*.LRG"), "Points (*.XY *.LRG)");
    EXPECT_EQ(dialogs::toolkitFilter(""), "");
}

class DesktopDialogs : public ViewTest {
  protected:
    const dialogs::Functions desktop = dialogs::desktop();
};

TEST_F(DesktopDialogs, AMessageBoxAnswersWithItsButton) {
    drive::when("MessageBox", [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        EXPECT_EQ(box->text(), "Overwright?");
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    EXPECT_EQ(desktop.message({.text = "Overwright?",
                               .title = "WARNING",
                               .icon = dialogs::Icon::Exclamation,
                               .buttons = dialogs::Buttons::YesNo,
                               .default_answer = dialogs::Answer::No}),
              dialogs::Answer::Yes);
}

TEST_F(DesktopDialogs, EscapeNeverMeansMoreThanNo) {
    using dialogs::Answer;
    using dialogs::Buttons;
    const std::vector<std::pair<Buttons, Answer>> all = {{Buttons::Ok, Answer::Ok},
                                                         {Buttons::YesNo, Answer::No},
                                                         {Buttons::OkCancel, Answer::Cancel},
                                                         {Buttons::YesNoCancel, Answer::Cancel}};
    for (const auto& [buttons, expected] : all) {
        drive::when("MessageBox",
                    [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        EXPECT_EQ(desktop.message({.text = "?", .title = "t", .buttons = buttons}), expected);
    }
}

TEST_F(DesktopDialogs, ABoxIsReadableWhileWorkRuns) {
    desktop.pointer(true);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    drive::when("MessageBox", [] {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    });
    desktop.message({.text = "?", .title = "t"});
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.pointer(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopDialogs, AnInputBoxGivesTheTextOrNothing) {
    drive::when("InputBox", [] {
        auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        EXPECT_EQ(box->textValue(), "old");
        box->setTextValue("new");
        box->accept();
    });
    EXPECT_EQ(desktop.input({.text = "comment", .title = "t", .proposal = "old"}), "new");
    drive::when("InputBox",
                [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(desktop.input({.text = "comment", .title = "t"}), std::nullopt);
}

TEST_F(DesktopDialogs, ASaveDialogAddsTheExtension) {
    drive::when("FileDialog", [this] {
        auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        EXPECT_EQ(box->windowTitle(), "Save");
        EXPECT_EQ(box->directory().absolutePath().toStdString(), folder().string());
        EXPECT_EQ(box->nameFilters(), QStringList{"Project (*.QCF)"});
        box->selectFile("mine");
        static_cast<QDialog*>(box)->accept();
    });
    EXPECT_EQ(desktop.file({.save = true,
                            .title = "Save",
                            .filter = "Project (*.QCF)|*.QCF",
                            .folder = folder().string(),
                            .name = {},
                            .default_extension = ".QCF"}),
              (folder() / "mine.QCF").string());
}

TEST_F(DesktopDialogs, AnOpenDialogTakesExistingFilesOnly) {
    std::ofstream(folder() / "A.Q05") << "x";
    drive::when("FileDialog", [] {
        auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        EXPECT_EQ(box->fileMode(), QFileDialog::ExistingFile);
        box->selectFile("A.Q05");
        static_cast<QDialog*>(box)->accept();
    });
    EXPECT_EQ(desktop.file({.title = "Open",
                            .filter = "Database (*.Q05)|*.Q05",
                            .folder = folder().string(),
                            .name = {}}),
              (folder() / "A.Q05").string());
    drive::when("FileDialog",
                [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(desktop.file({.title = "Open",
                            .filter = "Database (*.Q05)|*.Q05",
                            .folder = folder().string(),
                            .name = {}}),
              std::nullopt);
}

TEST_F(DesktopDialogs, TheClipboardCarriesText) {
    desktop.set_clipboard("T\t300");
    EXPECT_EQ(desktop.clipboard(), "T\t300");
}

TEST_F(DesktopDialogs, ATextIsPrintedPageByPage) {
    const auto pages = [this](int lines, const std::string& line) {
        const std::string file = (folder() / "list.pdf").string();
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file));
        std::string text;
        for (int i = 0; i < lines; ++i) text += line + "\n";
        printing::paint(
            printer, {.title = "List", .text = QString::fromStdString(text), .family = "COURIER"});
        std::ifstream in(file, std::ios::binary);
        const std::string pdf((std::istreambuf_iterator<char>(in)), {});
        EXPECT_TRUE(pdf.starts_with("%PDF"));
        std::size_t count = 0;
        for (std::size_t at = pdf.find("/Type /Page\n"); at != std::string::npos;
             at = pdf.find("/Type /Page\n", at + 1))
            ++count;
        return count;
    };
    EXPECT_EQ(pages(1, "x"), 1U);
    EXPECT_EQ(pages(0, ""), 1U);
    const std::size_t many = pages(500, "T = 300.000 K");
    EXPECT_GE(many, 5U);
    EXPECT_LE(many, 12U);
    // The text of an A4 page is at most 777 points wide when it lies: 160 characters of 8 points.
    EXPECT_GE(pages(500, std::string(160, 'x')), many) << "long lines turn the paper";
}

TEST_F(DesktopDialogs, ADrawingIsPrintedAboveItsTextAsLines) {
    const auto printed = [this](const std::string& drawing) {
        const std::string file = (folder() / (drawing.empty() ? "a.pdf" : "b.pdf")).string();
        drive::when("PrintDialog", [&] {
            drive::get<QLineEdit>("filename")->setText(QString::fromStdString(file));
            drive::get<QDialog>("PrintDialog")->accept();
        });
        EXPECT_TRUE(desktop.print({.title = "Fit", .text = "A = 1\n", .drawing = drawing}));
        std::ifstream in(file, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(in)), {});
    };
    const std::string without = printed("");
    std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='300' height='200'>";
    for (int i = 1; i < 200; ++i)
        svg += "<line x1='0' y1='" + std::to_string(i) + "' x2='" +
               std::to_string(300 - i * i % 173) + "' y2='0' stroke='black'/>";
    const std::string with = printed(svg + "</svg>");
    ASSERT_TRUE(without.starts_with("%PDF"));
    ASSERT_TRUE(with.starts_with("%PDF"));
    EXPECT_GT(with.size(), without.size() + 500) << "compressed lines";
    EXPECT_EQ(with.find("/Subtype /Image"), std::string::npos);
}

// Of 222 characters a line the right-hand columns were cut off.
TEST(PrintedPage, NothingOfAWideTableIsCut) {
    QStringList lines = {"Results", "Substance: Propane", ""};
    QString head, row;
    for (int i = 0; i < 17; ++i) {
        head += QString("head%1").arg(i).rightJustified(13);
        row += QString("%1.5").arg(1000 + i).rightJustified(13);
    }
    lines << QString(221, '=') << head << QString(221, '=') << row << row << ""
          << "end";
    const QStringList fitted = printing::fitLines(lines, 100);
    for (const QString& line : fitted) EXPECT_LE(line.size(), 100) << line.toStdString();
    const QString all = fitted.join('\n');
    for (int i = 0; i < 17; ++i) {
        EXPECT_TRUE(all.contains(QString("head%1").arg(i))) << i;
        EXPECT_GE(all.count(QString("%1.5").arg(1000 + i)), 2) << i;
    }
    EXPECT_EQ(all.count("1000.5"), 6) << "each of three blocks begins with the first column";
    EXPECT_EQ(fitted.mid(0, 3), lines.mid(0, 3));
    EXPECT_EQ(fitted.constLast(), "end");
    EXPECT_EQ(printing::fitLines(lines, 300), lines);
}

TEST(Theme, EveryPictureIsThere) {
    for (const char* name :
         {"app", "new_project", "last_session", "open_project", "save_project", "reference_state",
          "tank", "first_steps", "help", "print", "copy", "undo", "zoom_in", "zoom_fit"})
        EXPECT_FALSE(theme::icon(name).pixmap(24, 24).isNull()) << name;
}

TEST(Theme, ErrorsStandOutOnLightAndDark) {
    const QPalette kept = QApplication::palette();
    for (const QColor window : {QColor(Qt::white), QColor(0x30, 0x30, 0x30)}) {
        QApplication::setPalette(QPalette(window));
        EXPECT_EQ(theme::isDark(), window.lightness() < 128);
        EXPECT_GT(std::abs(theme::errorColour().lightness() - window.lightness()), 90);
    }
    QApplication::setPalette(kept);
}

}  // namespace
