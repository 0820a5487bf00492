// The report dialogs and the report printer: that the controls reach the core's report and the
// list, the clipboard, the CSV file and the printed pages show it.
#include "base/ReportPrinter.h"
#include "dialogs/CCostReportDlg.h"
#include "dialogs/CHoursReportDlg.h"
#include "gui/chart/ChartTestSupport.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "support/ScriptedPrompter.h"
#include "support/TempDir.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDateEdit>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

namespace velto {
namespace {

using charttest::BuildList;

CHoursEntry Booked(int day, int hours, const char* remark) {
    return {CTime(2026, 3, day, 0, 0, 0), CTime(2026, 3, day, 8, 0, 0), CTime(2026, 3, day, 8 + hours, 0, 0),
            "Anna", remark};
}

class ReportDialogs : public ::testing::Test {
protected:
    ReportDialogs() {
        first = BuildList({{0, kKindProject, "Haus"}, {1, kKindTask, "Fenster"}, {1, kKindTask, "Dach"}});
        CProjectNode* windows = first->m_pNext;
        windows->m_bDone = 1;
        windows->m_pHours = {Booked(2, 1, "Zeile 2"), Booked(3, 2, "Zeile 3")};
        windows->m_pNext->m_pHours = {Booked(4, 4, "Zeile 4")};
        windows->m_pCosts = {{CTime(2026, 3, 2, 0, 0, 0), 10.0f, 2.0f, -20.0f, "", "Glas"}};
        windows->m_pCosts2 = {{CTime(2026, 3, 2, 0, 0, 0), 5.0f, 3.0f, 15.0f, "Kunde", "Rabatt"}};
    }
    ~ReportDialogs() override { FreeNodeList(first); }

    template <typename D> void ShowMarch(D& dialog) {
        Find<QDateEdit>(dialog, "from")->setDate(QDate(2026, 3, 1));
        Find<QDateEdit>(dialog, "to")->setDate(QDate(2026, 3, 31));
    }
    static QTableView& List(const QDialog& dialog) { return *Find<QTableView>(dialog, "list"); }
    static QString Total(const QDialog& dialog) { return Find<QLabel>(dialog, "total")->text(); }
    static void SelectRows(const QDialog& dialog, std::initializer_list<int> rows) {
        QTableView& list = List(dialog);
        for (int row : rows)
            list.selectionModel()->select(list.model()->index(row, 1),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }

    CProjectNode* first;
    ScriptedPrompter prompter;
};

TEST_F(ReportDialogs, HoursControlsRefillTheListAtOnce) {
    CHoursReportDlg dialog(first, prompter);
    ShowMarch(dialog);
    QAbstractItemModel& model = *List(dialog).model();
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 9) << "sort key, day, five optional columns in six, hours";
    EXPECT_TRUE(List(dialog).isColumnHidden(0));
    EXPECT_EQ(Total(dialog), "7,00 h");

    Find<QCheckBox>(dialog, "Uhrzeiten")->setChecked(false);
    EXPECT_EQ(model.columnCount(), 7);
    Find<QLineEdit>(dialog, "contains")->setText("DACH");
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(Total(dialog), "4,00 h");
    Find<QCheckBox>(dialog, "undone")->setChecked(false);
    EXPECT_EQ(model.rowCount(), 0) << "Dach is not done";
}

TEST_F(ReportDialogs, RemoveAndCopyWorkOnTheSelectedRows) {
    CHoursReportDlg dialog(first, prompter);
    ShowMarch(dialog);
    Find<QPushButton>(dialog, "remove")->click();
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{"Kein Eintrag ausgewählt!"});

    Find<QPushButton>(dialog, "copy")->click();
    EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 3) << "no selection copies every row";
    SelectRows(dialog, {0, 2});
    Find<QPushButton>(dialog, "copy")->click();
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
              "02.03.2026\tMO\t08:00\t09:00\tFenster\tAnna\tZeile 2\t1,00\n"
              "04.03.2026\tMI\t08:00\t12:00\tDach\tAnna\tZeile 4\t4,00\n");
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    List(dialog).setFocus();
    QTest::keyClick(&List(dialog), Qt::Key_Delete);
    EXPECT_EQ(List(dialog).model()->rowCount(), 1);
    EXPECT_EQ(Total(dialog), "2,00 h");
    EXPECT_EQ(first->m_pNext->m_pHours.size(), 2u) << "the project keeps its entries";
}

TEST_F(ReportDialogs, CostsFollowTheChosenListAndGoToCsv) {
    CCostReportDlg dialog(first, prompter);
    ShowMarch(dialog);
    EXPECT_EQ(Total(dialog), "-20,00 €");
    Find<QRadioButton>(dialog, "needed")->setChecked(true);
    EXPECT_EQ(Total(dialog), "15,00 €");

    testsupport::TempDir folder;
    ASSERT_TRUE(dialog.SaveCsv(QString::fromStdString(folder.PathOf("k.csv"))));
    EXPECT_EQ(testsupport::ReadFile(folder.PathOf("k.csv")),
              "\xEF\xBB\xBFTag;Preis;Anzahl;Aufgabe;Bear./Kommi.;Bemerkung;Summe\r\n"
              "02.03.2026;5,00;3;Fenster;Kunde;Rabatt;15,00\r\n");
    EXPECT_FALSE(dialog.SaveCsv(QString::fromStdString(folder.PathOf("fehlt/k.csv"))));
    ASSERT_EQ(prompter.texts().size(), 1u);
    EXPECT_NE(prompter.texts()[0].find("kann nicht geschrieben werden"), std::string::npos);
}

// Prints a report of many rows to a PDF and reads it back page by page.
TEST(ReportPrinterTest, EveryPageHasTheHeaderRowsAndTheFooter) {
    testsupport::TempDir folder;
    const QString pdf = QString::fromStdString(folder.PathOf("r.pdf"));
    ReportPrinter printer("Stunden im März", 12, QDateTime(QDate(2026, 3, 9), QTime(7, 5, 3)));
    printer.SetColumns({"Tag", "h"}, {false, true});
    constexpr int kRows = 150;
    for (int row = 1; row <= kRows; ++row)
        printer.AddRow({QString("Zeile%1").arg(row), "1,00"});
    QPrinter device(QPrinter::HighResolution);
    device.setOutputFormat(QPrinter::PdfFormat);
    device.setOutputFileName(pdf);
    const int pages = printer.Print(device);
    ASSERT_GE(pages, 2);
    EXPECT_EQ(ReportPrinter::StartedText(QDateTime(QDate(2026, 3, 9), QTime(7, 5, 3))),
              "09/03/2026  07:05:03");

    QProcess reader;
    reader.start("pdftotext", {"-layout", pdf, "-"});
    ASSERT_TRUE(reader.waitForFinished(20000));
    const QStringList texts =
        QString::fromUtf8(reader.readAllStandardOutput()).split('\f', Qt::SkipEmptyParts);
    ASSERT_EQ(texts.size(), pages);
    int rows = 0;
    for (int page = 0; page < pages; ++page) {
        const QString& text = texts[page];
        EXPECT_TRUE(text.contains("Stunden im März")) << page;
        EXPECT_TRUE(text.contains(QString("Page : %1").arg(page + 1))) << page;
        // pdftotext gives the two blanks between date and time as one.
        EXPECT_TRUE(text.contains(QRegularExpression("09/03/2026 +07:05:03"))) << page;
        const int onPage = int(text.count("Zeile"));
        EXPECT_GT(onPage, 0) << page;
        EXPECT_TRUE(text.contains(QString("Zeile%1").arg(rows + 1)))
            << "rows continue in order on page " << page;
        rows += onPage;
    }
    EXPECT_EQ(rows, kRows) << "no row lost or split across pages";

    QPrinter stopped(QPrinter::HighResolution);
    stopped.setOutputFormat(QPrinter::PdfFormat);
    stopped.setOutputFileName(pdf);
    EXPECT_EQ(printer.Print(stopped, [pages](int printed, int all) { return all == pages && printed < 2; }),
              2);
}

} // namespace
} // namespace velto
