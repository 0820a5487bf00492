#include "dialogs/CSearchDlg.h"

#include "base/Cp1252Text.h"
#include "dialogs/SearchIcons.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace velto {

namespace {

struct Indicator {
    SearchPart part;
    const char* name;
    const char* tip;
};

constexpr std::array<Indicator, kSearchPartCount> kIndicators = {{
    {kPartTitle, "inTitle", "Im Titel"},
    {kPartNote, "inNote", "In der Notiz"},
    {kPartHours, "inHours", "In den Stunden"},
    {kPartCalculatedCosts, "inCalculatedCosts", "In den kalkulierten Kosten"},
    {kPartNeededCosts, "inNeededCosts", "In den benötigten Kosten"},
}};

QLabel* NewIndicator(const Indicator& indicator, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(indicator.name);
    label->setPixmap(SearchPartIcon(indicator.part));
    label->setToolTip(QString::fromUtf8(indicator.tip));
    // A hidden indicator keeps its place, so the others do not move about.
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
    label->hide();
    return label;
}

QPushButton* NewStepButton(const QString& text, const char* name, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    return button;
}

} // namespace

CSearchDlg::CSearchDlg(const QString& documentTitle, QWidget* parent)
    : QDialog(parent), m_text(new QLineEdit(this)),
      m_matchCase(new QCheckBox(QString::fromUtf8("Groß-/Kleinschreibung beachten"), this)) {
    setWindowTitle("Suchen in: " + documentTitle);
    m_text->setObjectName("text");
    m_matchCase->setObjectName("matchCase");
    QPushButton* forward = NewStepButton(QString::fromUtf8("Abwärts suchen"), "forward", this);
    QPushButton* backward = NewStepButton(QString::fromUtf8("Aufwärts suchen"), "backward", this);
    // Enter searches on downwards.
    forward->setDefault(true);
    backward->setAutoDefault(false);
    connect(m_text, &QLineEdit::textChanged, this, &CSearchDlg::OnTextChanged);
    connect(forward, &QPushButton::clicked, this, [this] { Step(kSearchForward); });
    connect(backward, &QPushButton::clicked, this, [this] { Step(kSearchBackward); });

    auto* indicators = new QHBoxLayout;
    for (size_t i = 0; i < kIndicators.size(); ++i)
        indicators->addWidget(m_indicators[i] = NewIndicator(kIndicators[i], this));
    indicators->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(forward);
    buttons->addWidget(backward);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addLayout(buttons);
    layout->addWidget(m_matchCase);
    layout->addLayout(indicators);
}

SearchText CSearchDlg::Text() const {
    const std::optional<std::string> text = ToCp1252(m_text->text());
    return text ? SearchText(*text, m_matchCase->isChecked()) : SearchText();
}

void CSearchDlg::ShowParts(SearchParts parts) {
    for (size_t i = 0; i < kIndicators.size(); ++i)
        m_indicators[i]->setVisible(parts & kIndicators[i].part);
}

void CSearchDlg::OnTextChanged(const QString& text) {
    if (text.size() < int(kMinTypedSearchLength))
        ShowParts(0);
    else
        Step(kSearchInPlace);
}

void CSearchDlg::Step(int direction) {
    m_direction = direction;
    emit stepRequested();
}

} // namespace velto
