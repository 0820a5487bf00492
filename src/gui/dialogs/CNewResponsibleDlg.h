#pragma once
// "Neuer Verantwortlicher": a name and a short code ("Kurzzeichen") for a new responsible person.
#include <QDialog>

#include <string>

class QLineEdit;

namespace velto {

class CNewResponsibleDlg : public QDialog {
    Q_OBJECT
public:
    explicit CNewResponsibleDlg(QWidget* parent = nullptr);
    // Name, " «» ", short code, as the node stores it.
    std::string Person() const;

private:
    QLineEdit* m_name;
    QLineEdit* m_shortCode;
};

} // namespace velto
