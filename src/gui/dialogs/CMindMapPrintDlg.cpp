#include "dialogs/CMindMapPrintDlg.h"

#include "common/Prompter.h"
#include "dialogs/DialogParts.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace velto {

namespace {

const char* const kBadPageCount = "Bitte geben Sie für die Seiten eine ganze Zahl von 1 bis 20 ein.";

QLineEdit* NewPageEdit(const char* name, QWidget* parent) {
    auto* edit = new QLineEdit(QStringLiteral("1"), parent);
    edit->setObjectName(QLatin1String(name));
    edit->setMaxLength(3);
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 8);
    return edit;
}

// The number in the edit when it is one of the allowed page counts.
std::optional<int> PagesIn(const QLineEdit* edit) {
    bool ok = false;
    const int pages = edit->text().trimmed().toInt(&ok);
    return ok && PagesPerSideValid(pages) ? std::optional<int>(pages) : std::nullopt;
}

} // namespace

CMindMapPrintDlg::CMindMapPrintDlg(Prompter& prompter, QWidget* parent)
    : QDialog(parent), m_prompter(prompter), m_across(NewPageEdit("edit1058", this)),
      m_down(NewPageEdit("edit1059", this)) {
    setWindowTitle(QStringLiteral("Mind Map drucken"));
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Ausdruck anpassen: "), this));
    row->addWidget(m_across);
    row->addWidget(new QLabel(QStringLiteral("Seite(n) breit und"), this));
    row->addWidget(m_down);
    row->addWidget(new QLabel(QStringLiteral("Seite(n) hoch"), this));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(NewButtonRow(this));
    m_across->selectAll();
}

void CMindMapPrintDlg::accept() {
    const auto across = PagesIn(m_across);
    const auto down = PagesIn(m_down);
    if (!across || !down) {
        m_prompter.Tell(kBadPageCount, Prompter::kCaption, PromptIcon::Warning);
        QLineEdit* bad = across ? m_down : m_across;
        bad->setFocus();
        bad->selectAll();
        return;
    }
    m_grid = PageGrid{*across, *down};
    QDialog::accept();
}

} // namespace velto
