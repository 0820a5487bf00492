#include "chart/ChartPrinter.h"

#include "gui/chart/ChartTestSupport.h"
#include "support/TempDir.h"

#include <QPdfWriter>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace velto::charttest {

namespace {

// The text of each page of a PDF, as poppler reads it back.
std::vector<std::string> PdfPages(const std::string& path) {
    const std::string command = "pdftotext -layout '" + path + "' -";
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string text;
    char buffer[4096];
    for (size_t n; pipe && (n = fread(buffer, 1, sizeof buffer, pipe.get())) > 0;)
        text.append(buffer, n);
    std::vector<std::string> pages(1);
    for (char c : text) {
        if (c == '\f')
            pages.emplace_back();
        else
            pages.back() += c;
    }
    pages.pop_back(); // the text after the last form feed
    return pages;
}

int Occurrences(const std::string& text, const std::string& word) {
    int count = 0;
    for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        ++count;
    return count;
}

std::string TaskTitle(int i) {
    char title[16];
    std::snprintf(title, sizeof title, "Aufgabe%03d", i);
    return title;
}

class ChartPrinterTest : public ChartFixture {
protected:
    void SetUp() override {
        CProjectNode* first = BuildList({{0, 0, "Wurzel"}});
        CProjectNode* tail = first;
        for (int i = 0; i < 60; ++i) {
            auto* node = new CProjectNode(NodeDefaults{Today(), Day(i % 5), Day(i % 5 + 2, 23, 59, 59)});
            node->m_nLevel = 1;
            node->m_nKind = 1;
            node->m_strTitle = TaskTitle(i);
            node->m_bVisible = true;
            node->m_pPrev = tail;
            tail = tail->m_pNext = node;
        }
        Load(first);
    }
    std::string Pdf(const char* name) { return dir.Path() + "/" + name; }

    testsupport::TempDir dir;
};

} // namespace

TEST_F(ChartPrinterTest, TimelinePagesRepeatTheHeaderAndCarryEveryRowFromTheSelectionOnce) {
    Select(TaskTitle(10));
    const auto what = WindowTimelinePrint(chart);
    ASSERT_TRUE(what);
    int pageCount = 0;
    {
        QPdfWriter pdf(QString::fromStdString(Pdf("chart.pdf")));
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageOrientation(QPageLayout::Landscape);
        pageCount = PrintTimeline(chart, pdf, *what);
    }
    const std::vector<std::string> pages = PdfPages(Pdf("chart.pdf"));
    ASSERT_GE(pageCount, 2) << "50 rows do not fit on one landscape page at this zoom";
    ASSERT_EQ(int(pages.size()), pageCount);
    for (int page = 0; page < pageCount; ++page) {
        const std::string& text = pages[size_t(page)];
        EXPECT_EQ(Occurrences(text, "März"), 1) << "calendar header on page " << page + 1;
        EXPECT_EQ(Occurrences(text, PageNumberText(page + 1, pageCount)), 1);
        EXPECT_EQ(Occurrences(text, "Gedruckt am 11.03.2026 12:00"), 1) << "the chart's clock";
    }
    std::string all;
    for (const std::string& page : pages)
        all += page;
    EXPECT_EQ(Occurrences(all, "Wurzel"), 0) << "printing starts at the selected node";
    EXPECT_EQ(Occurrences(all, TaskTitle(9)), 0);
    for (int i = 10; i < 60; ++i)
        EXPECT_EQ(Occurrences(all, TaskTitle(i)), 1) << TaskTitle(i);
}

TEST_F(ChartPrinterTest, MindMapTakesTheChosenPagesAndShowsEveryTitle) {
    {
        QPdfWriter pdf(QString::fromStdString(Pdf("map.pdf")));
        EXPECT_EQ(PrintMindMap(chart, pdf, PageGrid{2, 3}), 6);
    }
    EXPECT_EQ(PdfPages(Pdf("map.pdf")).size(), 6u);
    {
        QPdfWriter pdf(QString::fromStdString(Pdf("one.pdf")));
        pdf.setResolution(300);
        ASSERT_EQ(PrintMindMap(chart, pdf, PageGrid{}), 1);
    }
    const std::vector<std::string> one = PdfPages(Pdf("one.pdf"));
    ASSERT_EQ(one.size(), 1u);
    for (int i : {0, 29, 59})
        EXPECT_EQ(Occurrences(one[0], TaskTitle(i)), 1) << "the whole map is on the page";
}

} // namespace velto::charttest
