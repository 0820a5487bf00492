#include "dialogs/CNodeEditDlg.h"

#include "common/Prompter.h"
#include "dialogs/CReminderDlg.h"
#include "dialogs/CResponsibleDlg.h"
#include "dialogs/CTextFormatDlg.h"
#include "dialogs/DialogIcons.h"
#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"
#include "dialogs/EntryPanel.h"
#include "dialogs/StepEdit.h"
#include "model/CostLogic.h"
#include "model/NodeEditLogic.h"
#include "model/NumberFormat.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace velto {

namespace {

QGroupBox* GroupWith(const char* title, std::initializer_list<QWidget*> content, QWidget* parent) {
    auto* group = new QGroupBox(QString::fromUtf8(title), parent);
    auto* layout = new QHBoxLayout(group);
    for (QWidget* widget : content)
        layout->addWidget(widget);
    return group;
}

QPushButton* NewButton(const QString& text, const char* name, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

CNodeEditDlg::CNodeEditDlg(CProjectNode& node, const NodeEditContext& context, Prompter& prompter,
                           QWidget* parent)
    : QDialog(parent), m_node(node), m_copy(node.CloneUnlinked()), m_context(context),
      m_histories(context.histories), m_prompter(prompter), m_doneStamp(node.m_timeDone),
      m_responsible(node.m_strResponsible) {
    setWindowTitle("Knoten bearbeiten");
    m_title = new QLineEdit(this);
    m_title->setObjectName("title");
    dlgtext::Restrict(m_title);

    // Kept wide enough for a long title even when the kind shows little else.
    m_title->setMinimumWidth(360);

    auto* top = new QHBoxLayout;
    top->addWidget(BuildKindGroup());
    top->addWidget(BuildResponsibleGroup());
    top->addStretch(1);
    top->addLayout(BuildFormatButtons());

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addLayout(top);
    layout->addWidget(BuildDateRow());
    layout->addWidget(BuildHoursGroup());
    m_entries = new EntryPanel(*m_copy, m_histories, m_context.presetFile, m_prompter, this);
    layout->addWidget(m_entries, 1);
    QDialogButtonBox* buttons = NewButtonRow(this);
    layout->addWidget(buttons);
    SetTabOrder(buttons);

    LoadNode();
    ConnectChanges();
    RegenerateAutomaticEntries();
    ApplyVisibility();
}

CNodeEditDlg::~CNodeEditDlg() = default;

bool CNodeEditDlg::Run(QWidget* parent, CProjectNode& node, NodeEditContext& context, Prompter& prompter) {
    CNodeEditDlg dialog(node, context, prompter, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    context.histories = dialog.Histories();
    return true;
}

// Top to bottom, left to right, as the controls are laid out; the step buttons are left out, the
// arrow keys in their edits step instead.
void CNodeEditDlg::SetTabOrder(QDialogButtonBox* buttons) {
    QList<QWidget*> chain{m_title};
    for (int kind : {kKindProject, kKindTask, kKindMilestone, kKindNote})
        chain << m_kinds->button(kind);
    chain << m_responsibleButton << m_start << m_due << m_done << m_fontButton << m_alarmButton << m_planned
          << m_needed << m_rate << m_entries->TabChain();
    for (QAbstractButton* button : buttons->buttons())
        chain << button;
    for (qsizetype i = 1; i < chain.size(); ++i)
        QWidget::setTabOrder(chain[i - 1], chain[i]);
}

QWidget* CNodeEditDlg::BuildKindGroup() {
    auto* group = new QGroupBox("Knoten Art", this);
    auto* grid = new QGridLayout(group);
    m_kinds = new QButtonGroup(group);
    const struct {
        int kind;
        const char* text;
        const char* name;
    } radios[] = {{kKindProject, "Projekt", "kindProject"},
                  {kKindTask, "Aufgabe", "kindTask"},
                  {kKindMilestone, "Meilenstein", "kindMilestone"},
                  {kKindNote, "Notiz", "kindNote"}};
    int cell = 0;
    for (const auto& radio : radios) {
        auto* button = new QRadioButton(radio.text, group);
        button->setObjectName(radio.name);
        m_kinds->addButton(button, radio.kind);
        grid->addWidget(button, cell / 2, cell % 2);
        ++cell;
    }
    return group;
}

QWidget* CNodeEditDlg::BuildResponsibleGroup() {
    m_responsibleGroup = new QGroupBox("Verantwortlich", this);
    auto* row = new QHBoxLayout(m_responsibleGroup);
    m_responsibleButton = NewButton(QString(), "responsible", m_responsibleGroup);
    m_responsibleButton->setIcon(ResponsibleIcon());
    m_responsibleButton->setIconSize(QSize(24, 24));
    m_responsibleButton->setToolTip(QString::fromUtf8("Verantwortlichen auswählen oder neu anlegen"));
    m_responsibleName = new QLabel(m_responsibleGroup);
    m_responsibleName->setObjectName("responsibleName");
    m_responsibleName->setMinimumWidth(160);
    row->addWidget(m_responsibleButton);
    row->addWidget(m_responsibleName, 1);
    connect(m_responsibleButton, &QPushButton::clicked, this, &CNodeEditDlg::ChooseResponsible);
    return m_responsibleGroup;
}

QLayout* CNodeEditDlg::BuildFormatButtons() {
    m_fontButton = NewButton("Schriftart", "textFormat", this);
    m_fontButton->setToolTip("Schrift, Stil und Farbe des Titels");
    m_alarmButton = NewButton("Alarm", "alarm", this);
    m_alarmButton->setIconSize(QSize(20, 20));
    auto* column = new QVBoxLayout;
    column->addStretch(1);
    column->addWidget(m_fontButton);
    column->addWidget(m_alarmButton);
    connect(m_fontButton, &QPushButton::clicked, this, &CNodeEditDlg::EditTextFormat);
    connect(m_alarmButton, &QPushButton::clicked, this, &CNodeEditDlg::EditReminder);
    return column;
}

QWidget* CNodeEditDlg::BuildDateRow() {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    m_start = NewDayPicker(box);
    m_due = NewDayPicker(box);
    m_start->setObjectName("start");
    m_due->setObjectName("due");
    m_done = new QCheckBox("Erledigt !", box);
    m_done->setObjectName("done");
    m_startGroup = GroupWith("Aufgabe starten", {m_start}, box);
    // "Erledigt !" sits beside the due day it completes; a milestone hides it and keeps the day.
    m_dueGroup = GroupWith("Zu erledigen bis", {m_due, m_done}, box);
    row->addWidget(m_startGroup);
    row->addWidget(m_dueGroup);
    row->addStretch(1);
    connect(m_done, &QCheckBox::clicked, this, &CNodeEditDlg::MarkDoneClicked);
    return box;
}

QWidget* CNodeEditDlg::BuildHoursGroup() {
    m_hoursGroup = new QGroupBox("Stunden", this);
    m_planned = new StepEdit(kQuarterStep, m_hoursGroup);
    m_needed = new QLineEdit(m_hoursGroup);
    m_rate = new StepEdit(kHalfStep, m_hoursGroup);
    m_planned->setObjectName("planned");
    m_needed->setObjectName("needed");
    m_rate->setObjectName("rate");
    m_needed->setAlignment(Qt::AlignRight);
    m_needed->setFixedWidth(80);
    auto* row = new QHBoxLayout(m_hoursGroup);
    row->addWidget(new QLabel("Kalkuliert", m_hoursGroup));
    row->addWidget(m_planned);
    row->addSpacing(12);
    row->addWidget(new QLabel("Benötigt", m_hoursGroup));
    row->addWidget(m_needed);
    row->addSpacing(12);
    row->addWidget(new QLabel("Stundensatz in €", m_hoursGroup));
    row->addWidget(m_rate);
    row->addStretch(1);
    return m_hoursGroup;
}

void CNodeEditDlg::LoadNode() {
    m_title->setText(dlgtext::Show(m_node.m_strTitle));
    if (QAbstractButton* kind = m_kinds->button(m_node.m_nKind))
        kind->setChecked(true);
    else
        m_kinds->button(kKindProject)->setChecked(true);
    m_start->setDate(ToQDate(m_node.m_timeStart));
    m_due->setDate(ToQDate(m_node.m_timeDue));
    m_done->setChecked(m_node.m_bDone != 0);
    ShowReminderState();
    m_planned->SetValue(m_node.m_fHoursPlanned);
    m_needed->setText(QString::fromStdString(numfmt::FormatFixed2(m_node.m_fHoursNeeded)));
    m_rate->SetValue(m_node.m_fHourlyRate);
    m_responsibleName->setText(dlgtext::Show(m_responsible));
}

void CNodeEditDlg::ConnectChanges() {
    connect(m_kinds, &QButtonGroup::idClicked, this, [this](int kind) {
        ApplyVisibility();
        if (kind == kKindTask)
            m_entries->Refill();
    });
    connect(m_planned, &StepEdit::TextChanged, this, &CNodeEditDlg::RegenerateAutomaticEntries);
    connect(m_needed, &QLineEdit::textChanged, this, &CNodeEditDlg::RegenerateAutomaticEntries);
    connect(m_rate, &StepEdit::TextChanged, this, &CNodeEditDlg::RegenerateAutomaticEntries);
    connect(m_entries, &EntryPanel::NeededHoursChanged, m_needed, &QLineEdit::setText);
}

int CNodeEditDlg::SelectedKind() const {
    return m_kinds->checkedId();
}

void CNodeEditDlg::ApplyVisibility() {
    const int kind = SelectedKind();
    const bool task = kind == kKindTask;
    m_responsibleGroup->setVisible(task || kind == kKindProject);
    m_dueGroup->setVisible(task || kind == kKindMilestone);
    for (QWidget* taskOnly : {static_cast<QWidget*>(m_startGroup), static_cast<QWidget*>(m_done),
                              static_cast<QWidget*>(m_fontButton), static_cast<QWidget*>(m_alarmButton),
                              static_cast<QWidget*>(m_hoursGroup), static_cast<QWidget*>(m_entries)})
        taskOnly->setVisible(task);
    // Hidden controls leave no gaps: the dialog shrinks to what the kind shows.
    adjustSize();
}

void CNodeEditDlg::RegenerateAutomaticEntries() {
    velto::RegenerateAutomaticEntries(*m_copy, dlgtext::Keep(m_planned->Text()),
                                      dlgtext::Keep(m_needed->text()), dlgtext::Keep(m_rate->Text()),
                                      CTime::GetCurrentTime());
    m_entries->RefreshCosts();
}

void CNodeEditDlg::ShowReminderState() {
    const CTime reminder = m_copy->m_timeReminder;
    m_alarmButton->setIcon(reminder.IsNull() ? ReminderOffIcon() : ReminderOnIcon());
    m_alarmButton->setToolTip(reminder.IsNull()
                                  ? QString("Erinnerung einstellen (zurzeit aus)")
                                  : QString("Erinnerung am %1 um %2 Uhr")
                                        .arg(QString::fromStdString(reminder.Format("%d.%m.%Y")),
                                             QString::fromStdString(reminder.Format("%H:%M"))));
}

void CNodeEditDlg::MarkDoneClicked() {
    m_doneStamp = CTime::GetCurrentTime();
}

void CNodeEditDlg::EditTextFormat() {
    CProjectNode& copy = *m_copy;
    CTextFormatDlg dialog({std::string(copy.m_strFontName), copy.m_bStrikeOut != 0, copy.m_bUnderline != 0,
                           copy.m_bItalic != 0, copy.m_bBold != 0, copy.m_crColor},
                          this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const TitleFormat format = dialog.Format();
    copy.m_strFontName = format.fontName;
    copy.m_bStrikeOut = format.strikeOut;
    copy.m_bUnderline = format.underline;
    copy.m_bItalic = format.italic;
    copy.m_bBold = format.bold;
    copy.m_crColor = format.color;
}

void CNodeEditDlg::EditReminder() {
    const CTime current = m_copy->m_timeReminder;
    CReminderDlg dialog(current.IsNull() ? CTime::GetCurrentTime() : current, this);
    if (dialog.exec() == QDialog::Accepted)
        m_copy->m_timeReminder = dialog.Chosen();
    else if (dialog.SwitchedOff())
        m_copy->m_timeReminder = CTime();
    ShowReminderState();
}

void CNodeEditDlg::ChooseResponsible() {
    CResponsibleDlg dialog(m_context.firstNode, m_responsible, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_responsible = dialog.Person();
    m_responsibleName->setText(dlgtext::Show(m_responsible));
    m_copy->m_strResponsible = m_responsible;
}

void CNodeEditDlg::accept() {
    if (m_context.takeUndoCopy)
        m_context.takeUndoCopy();
    const NodeEditForm form{SelectedKind(),
                            ToCalendarDay(m_start->date()),
                            ToCalendarDay(m_due->date()),
                            m_done->isChecked(),
                            m_doneStamp,
                            dlgtext::Keep(m_planned->Text()),
                            dlgtext::Keep(m_needed->text()),
                            dlgtext::Keep(m_rate->Text()),
                            dlgtext::Keep(m_title->text()),
                            m_responsible};
    if (const auto refusal = ApplyEditForm(*m_copy, m_node, form)) {
        m_prompter.Tell(refusal->text, refusal->caption, PromptIcon::Warning);
        if (refusal->backToProject) {
            m_kinds->button(kKindProject)->setChecked(true);
            ApplyVisibility();
        }
        return;
    }
    CommitWorkingCopy(m_node, *m_copy, CTime::GetCurrentTime());
    QDialog::accept();
}

} // namespace velto
