#include <QDir>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <map>

#include "chart/chart_samples.h"
#include "common/whole_file.h"
#include "gui/chart/metafile_device.h"
#include "gui/chart/picture_export.h"

using namespace quor;

namespace {

using chart::Chart2D;
using chart::Chart3D;
using chart::Group;
using chart::PictureFormat;
using chart::PictureOptions;

Chart2D sheet() {
    Chart2D c;
    c.curves = {samples::curveOf([](double x) { return x * x; }, 0, 3, 60),
                samples::curveOf([](double x) { return 9 - 3 * x; }, 0, 3, 20)};
    c.curves[1].line.pattern = chart::LinePattern::Dashed;
    c.curves[0].legend = "first";
    c.legend.shown = true;
    c.x.max = 3;
    c.y.max = 9;
    c.x.title = "v / (m^3/kmol)";
    c.y.title = "p / kPa";
    c.header.text = "Isotherms";
    c.footer.text = "\u0394h at 25 \u00B0C";
    return c;
}

Chart3D surface() {
    Chart3D c = samples::surfaceOf(samples::bumps, samples::twoHoles, 21, 21);
    c.style.zoned = true;
    return c;
}

QByteArray bytesOf(PictureFormat format) {
    return chart::pictureBytes(chart::paintingOf(sheet()), format, {});
}

std::uint32_t u16(const QByteArray& b, qsizetype at) {
    return static_cast<std::uint8_t>(b[at]) |
           static_cast<std::uint32_t>(static_cast<std::uint8_t>(b[at + 1])) << 8;
}
std::uint32_t u32(const QByteArray& b, qsizetype at) {
    return u16(b, at) | u16(b, at + 2) << 16;
}
std::int32_t i32(const QByteArray& b, qsizetype at) {
    return static_cast<std::int32_t>(u32(b, at));
}

// Types of [MS-EMF] 2.1.1 that the tests look at.
constexpr std::uint32_t kEmfPolyline = 4, kEmfPolyPolygon = 8, kEmfEof = 14, kEmfRop = 20,
                        kEmfSelect = 37, kEmfDelete = 40, kEmfText = 84;

/// Walks over the records of an enhanced metafile and counts them by type; fails where a size is
/// wrong.
std::map<std::uint32_t, int> emfRecords(const QByteArray& b) {
    std::map<std::uint32_t, int> counts;
    qsizetype at = 0;
    std::uint32_t type = 0;
    while (at + 8 <= b.size()) {
        type = u32(b, at);
        const std::uint32_t size = u32(b, at + 4);
        EXPECT_GE(size, 8U) << at;
        EXPECT_EQ(size % 4, 0U) << at;
        if (size < 8) break;
        ++counts[type];
        at += size;
    }
    EXPECT_EQ(at, b.size());
    EXPECT_EQ(type, kEmfEof);
    return counts;
}

TEST(ChartPictures, TheFormatFollowsTheExtension) {
    EXPECT_EQ(chart::formatOf("a.PNG"), PictureFormat::Png);
    EXPECT_EQ(chart::formatOf("/x.y/b.wmf"), PictureFormat::Wmf);
    EXPECT_FALSE(chart::formatOf("c.doc"));
    EXPECT_FALSE(chart::formatOf("emf"));
    for (const char* extension : {"png", "bmp", "svg", "pdf", "emf", "wmf"})
        EXPECT_TRUE(chart::pictureFilters().contains(QString("(*.%1)").arg(extension)));
}

TEST(ChartPictures, ImagesHaveTheirSizeAndResolution) {
    PictureOptions options;
    options.size = chart::pixelsOfCm(12, 8);
    options.dotsPerInch = 300;
    for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Bmp}) {
        const QImage image =
            QImage::fromData(chart::pictureBytes(chart::paintingOf(sheet()), format, options));
        EXPECT_NEAR(image.width(), 12 / 2.54 * 300, 1);
        EXPECT_NEAR(image.height(), 8 / 2.54 * 300, 1);
        EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, 300, 1);
        EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
    }
}

TEST(ChartPictures, ALargerResolutionIsTheSamePicture) {
    PictureOptions coarse, fine;
    coarse.dotsPerInch = 96;
    fine.dotsPerInch = 192;
    const QImage a = QImage::fromData(
        chart::pictureBytes(chart::paintingOf(surface()), PictureFormat::Png, coarse));
    const QImage b = QImage::fromData(
        chart::pictureBytes(chart::paintingOf(surface()), PictureFormat::Png, fine));
    const QImage small = b.scaled(a.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            sum += std::abs(qGray(a.pixel(x, y)) - qGray(small.pixel(x, y)));
    EXPECT_LT(sum / (a.width() * a.height()), 4) << "mean difference of grey";
}

TEST(ChartPictures, SvgHoldsLinesAndTextsAndNoImage) {
    for (const chart::Painting& painting :
         {chart::paintingOf(sheet()), chart::paintingOf(surface())}) {
        QXmlStreamReader xml(chart::pictureBytes(painting, PictureFormat::Svg, {}));
        std::map<QString, int> elements;
        QString texts;
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement) ++elements[xml.name().toString()];
            if (xml.isCharacters()) texts += xml.text();
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
        EXPECT_GT(elements["polyline"] + elements["path"] + elements["polygon"], 10);
        EXPECT_GT(elements["text"], 10);
        EXPECT_EQ(elements["image"], 0);
        EXPECT_TRUE(texts.contains("p / kPa"));
    }
}

TEST(ChartPictures, SvgLinesKeepToThePlotArea) {
    Chart2D c = sheet();
    c.y.max = 1;  // most of both curves is outside
    PictureOptions options;
    options.size = {900, 650};
    QXmlStreamReader xml(chart::pictureBytes(chart::paintingOf(c), PictureFormat::Svg, options));
    int lines = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"polyline") continue;
        ++lines;
        const QString points = xml.attributes().value("points").toString();
        for (const QString& pair : points.split(' ', Qt::SkipEmptyParts)) {
            const QStringList xy = pair.split(',');
            ASSERT_EQ(xy.size(), 2);
            EXPECT_GE(xy[1].toDouble(), 0);
            EXPECT_LE(xy[1].toDouble(), 650);
        }
    }
    EXPECT_GE(lines, 2);
}

TEST(ChartPictures, PdfIsAPageOfTheSizeWithoutImages) {
    PictureOptions options;
    options.size = {960, 480};
    const QByteArray pdf =
        chart::pictureBytes(chart::paintingOf(surface()), PictureFormat::Pdf, options);
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 720")) << "960 / 96 inches of 72 points";
    EXPECT_TRUE(pdf.contains("/Font"));
    EXPECT_FALSE(pdf.contains("/Subtype /Image"));
}

TEST(ChartPictures, EmfIsMadeOfVectorRecords) {
    PictureOptions options;
    options.size = {960, 640};
    options.title = "Isotherms";
    for (const chart::Painting& painting :
         {chart::paintingOf(sheet()), chart::paintingOf(surface())}) {
        const QByteArray emf = chart::pictureBytes(painting, PictureFormat::Emf, options);
        ASSERT_GT(emf.size(), 108);
        EXPECT_EQ(u32(emf, 0), 1U);
        EXPECT_EQ(emf.mid(40, 4), " EMF");
        EXPECT_EQ(u32(emf, 48), static_cast<std::uint32_t>(emf.size()));
        // 10 inches by 6 2/3 in hundredths of a millimetre, and in units of 1/1200 inch.
        EXPECT_EQ(i32(emf, 32), 25400);
        EXPECT_NEAR(i32(emf, 36), 16933, 1);
        EXPECT_EQ(i32(emf, 16), 11999);
        EXPECT_EQ(i32(emf, 20), 7999);
        auto counts = emfRecords(emf);
        int total = 0;
        for (const auto& [type, count] : counts) total += count;
        EXPECT_EQ(u32(emf, 52), static_cast<std::uint32_t>(total));
        EXPECT_GT(counts[kEmfPolyline], 20);
        EXPECT_GT(counts[kEmfPolyPolygon], 1);
        EXPECT_GT(counts[kEmfText], 8);
        for (const std::uint32_t bitmap : {76U, 77U, 80U, 81U}) EXPECT_EQ(counts[bitmap], 0);
    }
}

TEST(ChartPictures, EmfObjectsAreSelectedAliveAndNeverDeletedInUse) {
    const QByteArray emf =
        chart::pictureBytes(chart::paintingOf(surface()), PictureFormat::Emf, {});
    std::map<std::uint32_t, bool> alive;
    std::map<std::uint32_t, bool> selected;
    const std::uint32_t handles = u16(emf, 56);
    for (qsizetype at = 0; at < emf.size(); at += u32(emf, at + 4)) {
        const std::uint32_t type = u32(emf, at), object = u32(emf, at + 8);
        if (type == 39 || type == 82 || type == 95) {
            EXPECT_FALSE(alive[object]) << "handle " << object << " is taken";
            EXPECT_LT(object, handles);
            alive[object] = true;
        }
        if (type == kEmfSelect && object < 0x80000000U) {
            EXPECT_TRUE(alive[object]);
            for (auto& [other, state] : selected)
                if ((other - 1) / 2 == (object - 1) / 2) state = false;
            selected[object] = true;
        }
        if (type == kEmfDelete) {
            EXPECT_TRUE(alive[object]);
            EXPECT_FALSE(selected[object]);
            alive[object] = false;
        }
    }
}

/// Text of the record at `at`, and its place.
struct EmfText {
    QString text;
    int x, y;
};

std::vector<EmfText> emfTexts(const QByteArray& emf) {
    std::vector<EmfText> texts;
    for (qsizetype at = 0; at < emf.size(); at += u32(emf, at + 4)) {
        if (u32(emf, at) != kEmfText) continue;
        EmfText t{{}, i32(emf, at + 36), i32(emf, at + 40)};
        const qsizetype start = at + u32(emf, at + 48);
        for (std::uint32_t k = 0; k < u32(emf, at + 44); ++k)
            t.text += QChar(static_cast<char16_t>(u16(emf, start + 2 * k)));
        texts.push_back(t);
    }
    return texts;
}

TEST(ChartPictures, EmfTextsAreTextsAtTheirPlaces) {
    const auto texts = emfTexts(bytesOf(PictureFormat::Emf));
    const auto find = [&](const QString& text) {
        for (const EmfText& t : texts)
            if (t.text == text) return t;
        return EmfText{"", -1, -1};
    };
    const EmfText header = find("Isotherms"), footer = find(QString::fromUtf8("h at 25 °C"));
    EXPECT_GT(header.x, 4000);
    EXPECT_LT(header.y, 600);
    EXPECT_GT(footer.y, 7000) << "the Greek letter before it is a text of its own";
    EXPECT_EQ(find(QString::fromUtf8("Δ")).y, footer.y);
    EXPECT_GT(find("p / kPa").x, 0);
}

TEST(ChartPictures, EmfLinesRunWhereTheCurveLies) {
    Chart2D c;
    c.curves = {samples::curveOf([](double x) { return x; }, 0, 1, 11)};
    c.plot_area.automatic = false;
    c.plot_area.left = c.plot_area.top = 0.25;
    c.plot_area.width = c.plot_area.height = 0.5;
    PictureOptions options;
    options.size = {960, 480};
    const QByteArray emf = chart::pictureBytes(chart::paintingOf(c), PictureFormat::Emf, options);
    bool found = false;
    for (qsizetype at = 0; at < emf.size(); at += u32(emf, at + 4)) {
        if (u32(emf, at) != kEmfPolyline || u32(emf, at + 24) != 11) continue;
        found = true;
        // From the left bottom (240, 360) to the right top (720, 120), 12.5 units a pixel.
        EXPECT_NEAR(i32(emf, at + 28), 3000, 2);
        EXPECT_NEAR(i32(emf, at + 32), 4500, 2);
        EXPECT_NEAR(i32(emf, at + 28 + 80), 9000, 2);
        EXPECT_NEAR(i32(emf, at + 32 + 80), 1500, 2);
    }
    EXPECT_TRUE(found);
}

TEST(ChartPictures, DashesBecomeLinesOfTheirLength) {
    chart::MetafileDevice device(chart::MetafileKind::Emf, {1000, 100}, "");
    QPainter painter(&device);
    QPen pen(Qt::black, 2);
    pen.setCapStyle(Qt::FlatCap);
    pen.setDashPattern({5, 3});  // 10 pixels drawn, 6 left out
    painter.setPen(pen);
    painter.drawLine(QPointF(0, 50), QPointF(160, 50));
    painter.end();
    const QByteArray emf = device.file();
    int dashes = 0;
    for (qsizetype at = 0; at < emf.size(); at += u32(emf, at + 4)) {
        if (u32(emf, at) != kEmfPolyline) continue;
        EXPECT_NEAR(i32(emf, at + 28), dashes * 16 * 12.5, 1);
        EXPECT_NEAR(i32(emf, at + 36), (dashes * 16 + 10) * 12.5, 1);
        ++dashes;
    }
    EXPECT_EQ(dashes, 10);
}

TEST(ChartPictures, TranslucentAreasLetDarkThingsShowThrough) {
    Chart3D c = surface();
    EXPECT_EQ(
        emfRecords(chart::pictureBytes(chart::paintingOf(c), PictureFormat::Emf, {}))[kEmfRop], 0);
    c.style.transparent = true;
    EXPECT_GT(
        emfRecords(chart::pictureBytes(chart::paintingOf(c), PictureFormat::Emf, {}))[kEmfRop],
        100);
}

TEST(ChartPictures, WmfHasThePlaceableHeaderAndVectorRecords) {
    PictureOptions options;
    options.size = {960, 640};
    const QByteArray wmf =
        chart::pictureBytes(chart::paintingOf(sheet()), PictureFormat::Wmf, options);
    ASSERT_GT(wmf.size(), 40);
    EXPECT_EQ(u32(wmf, 0), 0x9AC6CDD7U);
    EXPECT_EQ(u16(wmf, 10), 12000U);
    EXPECT_EQ(u16(wmf, 12), 8000U);
    EXPECT_EQ(u16(wmf, 14), 1200U);
    std::uint32_t sum = 0;
    for (int k = 0; k < 20; k += 2) sum ^= u16(wmf, k);
    EXPECT_EQ(u16(wmf, 20), sum);
    EXPECT_EQ(u16(wmf, 22), 1U);
    EXPECT_EQ(u16(wmf, 24), 9U);
    EXPECT_EQ(u32(wmf, 28) * 2, static_cast<std::uint32_t>(wmf.size() - 22));
    std::map<std::uint32_t, int> counts;
    std::uint32_t largest = 0, last = 1;
    qsizetype at = 40;
    while (at + 6 <= wmf.size()) {
        const std::uint32_t words = u32(wmf, at);
        ASSERT_GE(words, 3U);
        largest = std::max(largest, words);
        last = u16(wmf, at + 4);
        ++counts[last];
        at += words * 2;
    }
    EXPECT_EQ(at, wmf.size());
    EXPECT_EQ(last, 0U) << "the end record";
    EXPECT_EQ(u32(wmf, 34), largest);
    EXPECT_GT(counts[0x0325], 20) << "polylines";
    EXPECT_GT(counts[0x0538], 0) << "polygons";
    EXPECT_GT(counts[0x0A32], 8) << "texts";
    EXPECT_EQ(counts[0x0F43] + counts[0x0B41], 0) << "bitmaps";
}

TEST(ChartPictures, AWmfTextOutsideItsCodePageIsPaintedAsOutline) {
    const auto texts = [](const QString& text) {
        chart::MetafileDevice device(chart::MetafileKind::Wmf, {400, 100}, "");
        QPainter painter(&device);
        painter.drawText(10, 50, text);
        painter.end();
        const QByteArray wmf = device.file();
        int written = 0, filled = 0;
        for (qsizetype at = 40; at < wmf.size(); at += 2 * u32(wmf, at)) {
            if (u16(wmf, at + 4) == 0x0A32) ++written;
            if (u16(wmf, at + 4) == 0x0538) ++filled;
        }
        return std::pair{written, filled};
    };
    EXPECT_EQ(texts(QString::fromUtf8("25 °C ä?")), (std::pair{1, 0}));
    EXPECT_EQ(texts(QString::fromUtf8("Δh")), (std::pair{1, 1})) << "the letter h is written";
}

TEST(ChartPictures, AVeryLargeWmfStaysWithinSixteenBits) {
    PictureOptions options;
    options.size = {9000, 3000};
    const QByteArray wmf =
        chart::pictureBytes(chart::paintingOf(sheet()), PictureFormat::Wmf, options);
    EXPECT_LE(u16(wmf, 10), 32767U);
    EXPECT_NEAR(u16(wmf, 10) * 96.0 / u16(wmf, 14), 9000, 40) << "the size in inches is kept";
}

TEST(ChartPictures, OfficeProgramsOpenTheMetafiles) {
    const QString office = QStandardPaths::findExecutable("soffice");
    if (office.isEmpty()) GTEST_SKIP() << "LibreOffice is not installed";
    QTemporaryDir folder;
    QStringList names;
    for (const char* name : {"a.emf", "b.wmf"}) {
        names << folder.filePath(name);
        const auto bytes = chart::pictureFile(chart::paintingOf(sheet()), names.back(), {});
        ASSERT_TRUE(bytes && files::write_whole(names.back().toStdString(), *bytes));
    }
    QProcess process;
    process.start(office, QStringList{"-env:UserInstallation=file://" + folder.filePath("profile"),
                                      "--headless", "--convert-to", "png", "--outdir",
                                      folder.filePath("out")} +
                              names);
    ASSERT_TRUE(process.waitForFinished(180000));
    for (const char* name : {"out/a.png", "out/b.png"}) {
        const QImage image(folder.filePath(name));
        ASSERT_FALSE(image.isNull()) << name;
        int ink = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) < 160) ++ink;
        EXPECT_GT(ink, 2000) << name;
    }
}

TEST(ChartPictures, TheNameOfAFileTellsItsFormat) {
    for (const char* extension : {"png", "bmp", "svg", "pdf", "emf", "wmf"}) {
        const auto bytes =
            chart::pictureFile(chart::paintingOf(surface()), QString("a.%1").arg(extension), {});
        ASSERT_TRUE(bytes) << bytes.reason();
        EXPECT_GT(bytes->size(), 1000U);
    }
    EXPECT_NE(chart::pictureFile(chart::paintingOf(sheet()), "a.doc", {})
                  .reason()
                  .find("a.doc: The extension of the name tells no picture format"),
              std::string::npos);
    PictureOptions endless;
    endless.size = {1e9, 1e9};
    EXPECT_EQ(chart::pictureFile(chart::paintingOf(sheet()), "b.png", endless).reason(),
              "A picture of this size cannot be made.");
}

TEST(ChartPictures, TheClipboardHoldsAnImageAndVectors) {
    const auto data = chart::clipboardData(chart::paintingOf(sheet()), {});
    EXPECT_TRUE(data->hasImage());
    EXPECT_TRUE(data->data("image/svg+xml").contains("<svg"));
    EXPECT_EQ(data->data("image/x-emf").mid(40, 4), " EMF");
}

TEST(ChartPictures, PrintingPutsThePictureAtItsPlace) {
    QTemporaryDir folder;
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath("print.pdf"));
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setResolution(254);  // 100 dots a cm
    std::vector<QRectF> places;
    const auto painting = [&](QPainter& painter, const QRectF& rect) {
        places.push_back(painter.transform().mapRect(rect));
        painter.drawRect(rect);
    };
    const auto outcome = chart::printPicture(painting, printer, {2, 3, 10, 5});
    EXPECT_TRUE(outcome) << outcome.reason();
    ASSERT_EQ(places.size(), 1U);
    EXPECT_NEAR(places[0].left(), 200, 1);
    EXPECT_NEAR(places[0].top(), 300, 1);
    EXPECT_NEAR(places[0].width(), 1000, 1);
    EXPECT_NEAR(places[0].height(), 500, 1);
    EXPECT_GT(QFile(folder.filePath("print.pdf")).size(), 500);
    EXPECT_EQ(chart::printPicture(painting, printer, {2, 3, 0, 5}).reason(),
              "The picture has no size to print.");
}

}  // namespace
