#include "datafiles/preview.h"
#include "support/database_builder.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

using datafiles::Database;
using datafiles::FilePreview;

class Preview : public testing::Test {
  protected:
    Preview() {
        builder::WriteFile(folder() / "A.Q05",
                           builder::Database({builder::Plain("Methane;R-50", "74-82-8")}));
        builder::WriteFile(folder() / "B.Q05", builder::Database({builder::Propane()}));
        open = *Database::open(folder() / "A.Q05");
    }

    const std::filesystem::path& folder() const { return folder_.path(); }
    FilePreview preview_file(const std::string& path) const {
        return datafiles::preview_file(path, open, Places(folder()), {});
    }
    FilePreview of(const std::string& name, const std::string& bytes) {
        builder::WriteFile(folder() / name, bytes);
        return preview_file((folder() / name).string());
    }

    Database open;

  private:
    TemporaryFolder folder_;
};

TEST_F(Preview, AFileOfDataShowsItsSubstanceAndComment) {
    const FilePreview p =
        of("D.BAQ", "1.2.2026\r\nK\xE4lte\r\n74-82-8     \r\n1\r\n300,1,2,3,4,5\r\n");
    EXPECT_EQ(p.substance, "Methane");
    EXPECT_EQ(p.comment, "Kälte");
    EXPECT_EQ(p.date, "1.2.2026");
    EXPECT_EQ(p.database, "A.Q05");
}

TEST_F(Preview, ADataFileOfAnUnknownSubstanceSaysSo) {
    EXPECT_EQ(of("d.baq", "1.2.2026\r\nc\r\n74-98-6     \r\n0\r\n").substance,
              "Substance not found in the actual data base");
}

TEST_F(Preview, AProjectIsLookedUpInItsOwnDatabaseAndTheOpenOneStays) {
    const FilePreview p = of("P.QCF", "1.2.2026\r\nmy project\r\nB.Q05\r\n74-98-6     \r\n300\r\n");
    EXPECT_EQ(p.substance, "Propane");
    EXPECT_EQ(p.database, "B.Q05");
    EXPECT_EQ(p.comment, "my project");
    EXPECT_EQ(open.path(), folder() / "A.Q05");
    EXPECT_EQ(open.size(), 1U);
    EXPECT_EQ(open.entries()[0].name.substr(0, 8), "Methane;");
}

TEST_F(Preview, AProjectOfAnUnknownSubstanceOrDatabaseSaysSo) {
    const char* missing = "Substance not found in the actual database";
    EXPECT_EQ(of("P.QCF", "d\r\nc\r\nA.Q05\r\n74-98-6     \r\n").substance, missing);
    EXPECT_EQ(of("P.QCF", "d\r\nc\r\nNONE.Q05\r\n74-98-6     \r\n").substance, missing);
    EXPECT_EQ(of("P.QCF", "d\r\nc\r\nA.Q05\r\n            \r\n").substance, missing);
}

TEST_F(Preview, OtherAndDamagedFilesShowNothing) {
    for (const FilePreview& p :
         {of("X.TXT", "1\r\n2\r\n3\r\n4\r\n"), of("P.QCF", "1\r\n2\r\n"), of("D.BAQ", ""),
          preview_file("MISSING.BAQ"), preview_file(""), preview_file(folder().string())}) {
        EXPECT_EQ(p.substance, "");
        EXPECT_EQ(p.database, "");
        EXPECT_EQ(p.comment, "");
        EXPECT_EQ(p.date, "");
    }
}

}  // namespace
