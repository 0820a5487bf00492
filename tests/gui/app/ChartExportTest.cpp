#include "app/ChartExport.h"

#include "support/TempDir.h"

#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

namespace velto {

namespace {

std::optional<ExportRequest> Parse(QStringList args, QString& error) {
    args.prepend(QStringLiteral("velto"));
    return ExportRequestOf(ParseCommandLine(args), error);
}

class ChartExport : public ::testing::Test {
protected:
    ChartExport() {
        std::filesystem::copy_file(std::string(VELTO_SOURCE_DIR) + "/examples/Beispielprojekt.VT5",
                                   Path("p.VT5"));
    }
    std::string Path(const char* name) const { return dir.Path() + "/" + name; }
    // The exit code, with what was said on the error stream in told.
    int Export(const char* out, QStringList options = {}, const char* file = "p.VT5") {
        QString error;
        const auto request = Parse(
            QStringList{"--export", QString::fromStdString(Path(out)), QString::fromStdString(Path(file))} +
                options,
            error);
        EXPECT_TRUE(request) << error.toStdString();
        std::unique_ptr<FILE, int (*)(FILE*)> stream(std::tmpfile(), std::fclose);
        const int code = RunExport(*request, stream.get());
        std::rewind(stream.get());
        told.clear();
        for (int c; (c = std::fgetc(stream.get())) != EOF;)
            told += char(c);
        return code;
    }
    bool Exists(const char* name) const { return std::filesystem::exists(Path(name)); }

    testsupport::TempDir dir;
    std::string told;
};

} // namespace

TEST(ChartExportUsage, OptionsAreCheckedBeforeAnythingIsRead) {
    QString error;
    const auto request = Parse({"--export", "k.pdf", "p.VT5", "--view", "mindmap", "--pages", "3x2", "--from",
                                "2026-01-01", "--to", "2026-01-31"},
                               error);
    ASSERT_TRUE(request) << error.toStdString();
    EXPECT_TRUE(request->mindMap);
    EXPECT_EQ(request->pages.across, 3);
    EXPECT_EQ(request->pages.down, 2);
    EXPECT_EQ(*request->lastDay - *request->firstDay, 30);
    const auto defaults = Parse({"--export", "k.PNG", "p.VT5"}, error);
    ASSERT_TRUE(defaults);
    EXPECT_FALSE(defaults->mindMap);
    EXPECT_FALSE(defaults->firstDay);
    EXPECT_TRUE(ParseCommandLine({"velto", "--export"}).exportMode) << "answered as an export, not a window";
    EXPECT_FALSE(ParseCommandLine({"velto", "--", "--export"}).exportMode);
    for (const QStringList& bad :
         {QStringList{"--export", "k.pdf"},
          {"--export", "k.pdf", "a.VT5", "b.VT5"},
          {"--export", "k.doc", "p.VT5"},
          {"--export", "k.pdf", "p.VT5", "--view", "gantt"},
          {"--export", "k.pdf", "p.VT5", "--pages", "21x1"},
          {"--export", "k.pdf", "p.VT5", "--from", "2026-01-01"},
          {"--export", "k.pdf", "p.VT5", "--from", "2026-02-02", "--to", "2026-02-01"}}) {
        error.clear();
        EXPECT_FALSE(Parse(bad, error)) << bad.join(' ').toStdString();
        EXPECT_FALSE(error.isEmpty());
    }
}

TEST_F(ChartExport, WritesEachFormatAndLeavesNoOutputWhenItFails) {
    ASSERT_EQ(Export("k.pdf", {"--from", "2026-11-01", "--to", "2026-12-31"}), kExportDone) << told;
    std::ifstream pdf(Path("k.pdf"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(pdf), {}).substr(0, 5), "%PDF-");

    ASSERT_EQ(Export("m.png", {"--view", "mindmap"}), kExportDone) << told;
    const QImage map(QString::fromStdString(Path("m.png")));
    EXPECT_GT(map.width(), map.height()) << "the sample's map spreads to both sides";
    ASSERT_EQ(Export("t.svg"), kExportDone) << told;
    QFile svg(QString::fromStdString(Path("t.svg")));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    EXPECT_TRUE(svg.readAll().contains("<svg"));

    EXPECT_EQ(Export("a.pdf", {}, "fehlt.VT5"), kExportUnreadable);
    EXPECT_NE(told.find("fehlt.VT5"), std::string::npos);
    std::ofstream(Path("kaputt.VT5")) << "kein Projekt";
    EXPECT_EQ(Export("b.pdf", {}, "kaputt.VT5"), kExportUnreadable);
    EXPECT_FALSE(told.empty());
    EXPECT_EQ(Export("fehlt/c.pdf"), kExportUnwritable);
    EXPECT_NE(told.find("fehlt/c.pdf"), std::string::npos);
    for (const char* name : {"a.pdf", "b.pdf"})
        EXPECT_FALSE(Exists(name)) << name;
}

} // namespace velto
