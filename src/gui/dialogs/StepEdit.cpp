#include "dialogs/StepEdit.h"

#include "model/NodeEditLogic.h"
#include "model/NumberFormat.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

namespace velto {

namespace {

QToolButton* StepButton(const char* text, const QString& toolTip, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setToolTip(toolTip);
    button->setAutoRaise(false);
    button->setFixedWidth(24);
    // Tab goes from edit to edit; the arrow keys do the steps.
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QString StepName(double step) {
    return step == kQuarterStep ? QString("0.25") : QString("0.5");
}

} // namespace

StepEdit::StepEdit(double step, QWidget* parent)
    : QWidget(parent), m_step(step), m_edit(new QLineEdit(this)),
      m_plus(StepButton(
          "+",
          QString::fromUtf8("Auf das nächste Vielfache von %1 erhöhen (Pfeil nach oben)").arg(StepName(step)),
          this)),
      m_minus(StepButton("-",
                         QString::fromUtf8("Auf das nächste Vielfache von %1 verringern (Pfeil nach unten)")
                             .arg(StepName(step)),
                         this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    m_edit->setAlignment(Qt::AlignRight);
    m_edit->setMinimumWidth(70);
    m_edit->installEventFilter(this);
    setFocusProxy(m_edit);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_plus);
    layout->addWidget(m_minus);
    connect(m_edit, &QLineEdit::textChanged, this, &StepEdit::TextChanged);
    connect(m_plus, &QToolButton::clicked, this, [this] { SetValue(StepUp(Value(), m_step)); });
    connect(m_minus, &QToolButton::clicked, this, [this] { SetValue(StepDown(Value(), m_step)); });
}

bool StepEdit::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_edit && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            (key == Qt::Key_Up ? m_plus : m_minus)->click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

float StepEdit::Value() const {
    return float(numfmt::ParseNumber(m_edit->text().toStdString()));
}

void StepEdit::SetValue(double value) {
    SetText(QString::fromStdString(numfmt::FormatEditNumber(value)));
}

QString StepEdit::Text() const {
    return m_edit->text();
}

void StepEdit::SetText(const QString& text) {
    m_edit->setText(text);
}

} // namespace velto
