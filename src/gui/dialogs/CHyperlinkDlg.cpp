#include "dialogs/CHyperlinkDlg.h"

#include "dialogs/DialogParts.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace velto {

namespace {
QString ChooseWithFileDialog(QWidget* parent) {
    return QFileDialog::getOpenFileName(parent, QString::fromUtf8("Datei für den Hyperlink auswählen"));
}

// One example of each kind of target, the file path in the form this system writes.
QString Hint() {
    const QString file = QDir::toNativeSeparators(QDir::homePath() + "/Projekte/Angebot.pdf");
    return QString::fromUtf8("Beispiele:\nDatei:  %1\nInternet:  https://www.example.com").arg(file);
}
} // namespace

CHyperlinkDlg::CHyperlinkDlg(QWidget* parent, FileChooser chooseFile)
    : QDialog(parent), m_target(new QLineEdit(this)), m_file(new QPushButton("Datei", this)),
      m_chooseFile(chooseFile ? std::move(chooseFile) : FileChooser(&ChooseWithFileDialog)) {
    setWindowTitle(QString::fromUtf8("Hyperlink einfügen"));
    m_target->setObjectName("target1006");
    m_target->setMinimumWidth(m_target->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 50);
    m_file->setObjectName("file1031");
    m_file->setToolTip(QString::fromUtf8("Eine Datei auswählen, auf die der Hyperlink verweist"));
    connect(m_file, &QPushButton::clicked, this, &CHyperlinkDlg::ChooseFile);
    connect(m_target, &QLineEdit::textChanged, this, &CHyperlinkDlg::EnableOk);

    auto* row = new QHBoxLayout;
    row->addWidget(m_target, 1);
    row->addWidget(m_file);
    auto* hint = new QLabel(Hint(), this);
    hint->setObjectName("hint");
    hint->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QDialogButtonBox* buttons = NewButtonRow(this);
    for (QAbstractButton* button : buttons->buttons())
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            m_ok = qobject_cast<QPushButton*>(button);

    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(QString::fromUtf8("&Datei oder Internetadresse:"), this);
    label->setBuddy(m_target);
    layout->addWidget(label);
    layout->addLayout(row);
    layout->addWidget(hint);
    layout->addWidget(buttons);
    EnableOk();
}

void CHyperlinkDlg::SetTarget(const QString& target) {
    m_target->setText(target);
    m_target->selectAll();
}

QString CHyperlinkDlg::Target() const {
    return m_target->text().trimmed();
}

void CHyperlinkDlg::ChooseFile() {
    const QString path = m_chooseFile(this);
    if (path.isEmpty())
        return;
    m_target->setText(QDir::toNativeSeparators(path));
    m_target->setFocus();
}

void CHyperlinkDlg::EnableOk() {
    m_ok->setEnabled(!Target().isEmpty());
}

} // namespace velto
