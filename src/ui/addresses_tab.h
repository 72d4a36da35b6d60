#pragma once

#include "ui/feedback_tab.h"

#include <QWidget>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

class Session;

// The control panel's addresses: the account's e-mail and password at the service, the address the service
// sees, and the program's help, signup and home pages.
class AddressesTab : public QWidget
{
    Q_OBJECT

public:
    AddressesTab(Session& session, AccountForRequest account, QWidget* parent = nullptr);

    QLineEdit* email_box() const { return m_email; }
    QLineEdit* old_password_box() const { return m_old_password; }
    QLineEdit* new_password_box() const { return m_new_password; }
    QListWidget* urls() const { return m_urls; }
    QLineEdit* url_box() const { return m_url; }
    QPushButton* button(const QString& caption) const;

signals:
    // The stored account changed (its password): the accounts tab shows it again.
    void accountChanged();

public slots:
    void update_email();
    void change_password();
    void show_ip_address();
    void update_url();
    void default_url();

private:
    QPushButton* add_button(const char* caption, void (AddressesTab::*slot)());

    Session& m_session;
    AccountForRequest m_account;
    QLineEdit* m_email;
    QLineEdit* m_old_password;
    QLineEdit* m_new_password;
    QListWidget* m_urls;
    QLineEdit* m_url;
};

} // namespace qv
