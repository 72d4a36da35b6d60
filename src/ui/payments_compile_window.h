#pragma once

#include <QDialog>

#include <vector>

class QPushButton;
class QRadioButton;

namespace qv {

class Session;

// "payments_compile": the three criteria of a compile, the choice remembered in payments.opt, and the button
// that compiles. Enter compiles; Esc or "close" leaves.
class PaymentsCompileWindow : public QDialog
{
    Q_OBJECT

public:
    PaymentsCompileWindow(Session& session, QWidget* parent = nullptr);

    QRadioButton* criterion(int option) const;
    QPushButton* compile_button() const { return m_compile; }

public slots:
    // Compiles under the chosen criterion and closes when bills were made.
    bool compile();

signals:
    // The bills were compiled again (or all went to 0): the payments list must be read again.
    void compiled();

private:
    Session& m_session;
    std::vector<QRadioButton*> m_criteria;
    QPushButton* m_compile;
};

} // namespace qv
