#pragma once
// A number edit with its "+" and "-" buttons: the buttons move the value to the next quarter or
// half mark, and the edit shows numbers in the dialogs' number format, always with ".".
#include <QWidget>

class QLineEdit;
class QToolButton;

namespace velto {

class StepEdit : public QWidget {
    Q_OBJECT
public:
    // step: 0.25 or 0.5 (see NodeEditLogic.h).
    StepEdit(double step, QWidget* parent = nullptr);

    QLineEdit* Edit() const { return m_edit; }
    QToolButton* PlusButton() const { return m_plus; }
    QToolButton* MinusButton() const { return m_minus; }

    // The text read like "%f": an unparsable text is 0.
    float Value() const;
    void SetValue(double value);
    QString Text() const;
    void SetText(const QString& text);

signals:
    // Every change of the text, typed or set.
    void TextChanged(const QString& text);

protected:
    // The arrow keys in the edit step like the buttons, so that the keyboard needs no stop on them.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    double m_step;
    QLineEdit* m_edit;
    QToolButton* m_plus;
    QToolButton* m_minus;
};

} // namespace velto
