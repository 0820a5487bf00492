#include "dialogs/CAlarmDlg.h"

#include "common/Prompter.h"
#include "dialogs/DialogIcons.h"
#include "outline/Reminders.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace velto {

namespace {

constexpr int kIconSize = 48;

QString Label(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

QComboBox* NewSnoozeList(QWidget* parent) {
    auto* list = new QComboBox(parent);
    list->setObjectName("snooze");
    // Editable as the original list is, so that the text is checked against the intervals.
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    for (const SnoozeInterval& interval : kSnoozeIntervals)
        list->addItem(Label(interval.label));
    list->setCurrentText(Label(kDefaultSnooze));
    return list;
}

QPushButton* NewButton(const char* text, QWidget* parent) {
    auto* button = new QPushButton(QString::fromUtf8(text), parent);
    button->setAutoDefault(false);
    return button;
}

} // namespace

CAlarmDlg::CAlarmDlg(const QString& nodeTitle, const QString& projectTitle, Prompter& prompter,
                     QWidget* parent)
    : QDialog(parent), m_projectTitle(projectTitle), m_prompter(prompter), m_snooze(NewSnoozeList(this)) {
    setWindowTitle(QStringLiteral("Erinnerung im Projekt: ") + projectTitle);
    auto* icon = new QLabel(this);
    icon->setObjectName("icon");
    icon->setPixmap(AlarmIcon().pixmap(kIconSize, kIconSize));
    auto* text = new QLabel(nodeTitle, this);
    text->setObjectName("alarmText");
    text->setWordWrap(true);
    text->setTextFormat(Qt::PlainText);
    QFont bold = text->font();
    bold.setBold(true);
    text->setFont(bold);

    QPushButton* close = NewButton("Schließen", this);
    close->setDefault(true);
    QPushButton* snooze = NewButton("Erneut erinnern", this);
    QPushButton* goTo = NewButton("Gehe zu", this);
    connect(close, &QPushButton::clicked, this, &CAlarmDlg::accept);
    connect(snooze, &QPushButton::clicked, this, &CAlarmDlg::reject);
    connect(goTo, &QPushButton::clicked, this, &CAlarmDlg::GoToChosen);

    auto* layout = new QGridLayout(this);
    layout->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(text, 0, 1, 1, 3);
    layout->addWidget(m_snooze, 1, 1, 1, 3);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(close);
    buttons->addWidget(snooze);
    buttons->addWidget(goTo);
    layout->addLayout(buttons, 2, 0, 1, 4);
    layout->setColumnStretch(1, 1);
    setMinimumWidth(360);
}

void CAlarmDlg::accept() {
    emit SwitchOffChosen();
    QDialog::accept();
}

void CAlarmDlg::reject() {
    const QString text = m_snooze->currentText();
    const std::optional<int> seconds = SnoozeSeconds(text.toStdString());
    if (!seconds) {
        m_prompter.Tell("Die Erinnerungszeit " + text.toStdString() + " ist ungültig!", Prompter::kCaption,
                        PromptIcon::Warning);
        return;
    }
    emit SnoozeChosen(*seconds);
    QDialog::reject();
}

} // namespace velto
