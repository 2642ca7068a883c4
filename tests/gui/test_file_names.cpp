#include <QComboBox>
#include <QFile>
#include <QFileDialog>

#include "datafiles/search.h"
#include "gui/graph_test.h"
#include "gui/widgets/qt_dialogs.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

/// What the dialogs for files propose and write.
class FileNames : public GraphTest {
  protected:
    FileNames() { dialogs::current().file = dialogs::desktop().file; }

    /// Chooses a kind of file in the dialog to come, types a name and accepts.
    static void saveAs(const QString& kind, const QString& name) {
        drive::when("FileDialog", [kind, name] {
            auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            auto* kinds = box->findChild<QComboBox*>("fileTypeCombo");
            const int row = kinds->findText(kind, Qt::MatchStartsWith);
            ASSERT_GE(row, 0) << kind.toStdString();
            while (kinds->currentIndex() < row) QTest::keyClick(kinds, Qt::Key_Down);
            auto* field = box->findChild<QLineEdit*>("fileNameEdit");
            field->setText(name);
            static_cast<QDialog*>(box)->accept();
        });
    }
    QByteArray bytes(const char* name) const {
        QFile file(QString::fromStdString((folder() / name).string()));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(FileNames, TheKindChosenDecidesOverANameWithoutExtension) {
    openIsotherm();
    session.change()->folder_diagrams = (folder() / "").string();
    const std::tuple<const char*, const char*, QByteArray> kinds[] = {
        {"PNG", "a.png", "\x89PNG"},
        {"Bitmap", "b.bmp", "BM"},
        {"SVG", "c.svg", "<?xml"},
        {"PDF", "d.pdf", "%PDF"},
        {"Enhanced", "e.emf", QByteArray("\x01\x00\x00\x00", 4)},
        {"Windows", "f.wmf", QByteArray("\xd7\xcd\xc6\x9a", 4)}};
    for (const auto& [kind, file, head] : kinds) {
        saveAs(kind, QString(file).section('.', 0, 0));
        drive::choose("mnuBild_1");
        EXPECT_TRUE(bytes(file).startsWith(head)) << file;
    }
    for (const char* wrong : {"b.png", "c.png", "d.png", "e.png", "f.png"})
        EXPECT_FALSE(std::filesystem::exists(folder() / wrong)) << wrong;
}

TEST_F(FileNames, ATypedExtensionStays) {
    openIsotherm();
    session.change()->folder_diagrams = (folder() / "").string();
    saveAs("PNG", "own.svg");
    drive::choose("mnuBild_1");
    EXPECT_TRUE(bytes("own.svg").startsWith("<?xml"));
}

TEST_F(FileNames, ADiagramIsProposedByItsSubstanceAndAxes) {
    openIsotherm();
    session.change()->folder_diagrams = (folder() / "").string();
    drive::when("FileDialog", [] {
        auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        EXPECT_EQ(box->findChild<QLineEdit*>("fileNameEdit")->text(), "Propane p-v.oc2");
        static_cast<QDialog*>(box)->accept();
    });
    drive::choose("mnuSaveOC2");
    EXPECT_TRUE(std::filesystem::exists(folder() / "Propane p-v.oc2"));
    EXPECT_FALSE(std::filesystem::exists(folder() / "*.oc2"));
}

TEST(ShortName, IsTheRNumberOfASystematicName) {
    EXPECT_EQ(datafiles::short_name_of("1,1,1,2-Tetrafluoroethane;R-134a"), "R134a");
    EXPECT_EQ(datafiles::short_name_of("Propane;R-290"), "Propane");
    EXPECT_EQ(datafiles::short_name_of("2-Methylbutane;isopentane"), "2-Methylbutane");
}

}  // namespace
