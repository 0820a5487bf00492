#include "dialogs/CStepEdit.h"

#include "model/NodeEditLogic.h"
#include "model/NumberFormat.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

namespace {

QToolButton* StepButton(const char* text, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setAutoRaise(false);
    button->setFixedWidth(24);
    return button;
}

} // namespace

CStepEdit::CStepEdit(double step, QWidget* parent)
    : QWidget(parent), m_edit(new QLineEdit(this)), m_plus(StepButton("+", this)),
      m_minus(StepButton("-", this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    m_edit->setAlignment(Qt::AlignRight);
    m_edit->setMinimumWidth(70);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_plus);
    layout->addWidget(m_minus);
    connect(m_edit, &QLineEdit::textChanged, this, &CStepEdit::TextChanged);
    connect(m_plus, &QToolButton::clicked, this, [this, step] { SetValue(StepUp(Value(), step)); });
    connect(m_minus, &QToolButton::clicked, this, [this, step] { SetValue(StepDown(Value(), step)); });
}

float CStepEdit::Value() const {
    return float(numfmt::ParseNumber(m_edit->text().toStdString()));
}

void CStepEdit::SetValue(double value) {
    SetText(QString::fromStdString(numfmt::FormatEditNumber(value)));
}

QString CStepEdit::Text() const {
    return m_edit->text();
}

void CStepEdit::SetText(const QString& text) {
    m_edit->setText(text);
}
