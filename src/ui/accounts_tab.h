#pragma once

#include <QWidget>

#include <cstdint>
#include <optional>
#include <string_view>

class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace qv {

class Session;

// The control panel's accounts: the list, the three fields of an account, and the operations on the line
// selected.
class AccountsTab : public QWidget
{
    Q_OBJECT

public:
    AccountsTab(Session& session, QWidget* parent = nullptr);

    QListWidget* list() const { return m_list; }
    QLineEdit* server_box() const { return m_server; }
    QLineEdit* login_box() const { return m_login; }
    QLineEdit* password_box() const { return m_password; }
    QPlainTextEdit* details() const { return m_details; }
    QPushButton* button(const QString& caption) const;

    // The selected account, or nothing after the given message; its requests also need the fields to be the
    // stored ones, all set.
    std::optional<std::int64_t> selected(std::string_view select_message);
    std::optional<std::int64_t> checked_for_request(std::string_view select_message);

public slots:
    void add_account();
    void toggle_default();
    void delete_account();
    void refresh_account_data();
    void save_list();
    void reload(std::optional<std::int64_t> select = std::nullopt);

private:
    void show_selected();

    Session& m_session;
    QListWidget* m_list;
    QLineEdit* m_server;
    QLineEdit* m_login;
    QLineEdit* m_password;
    QPlainTextEdit* m_details;
};

} // namespace qv
