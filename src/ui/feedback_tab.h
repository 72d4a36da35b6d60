#pragma once

#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace qv {

class Session;

// The account that a request of the panel goes out for, after the accounts tab's checks; nothing after the
// given message or a refusal.
using AccountForRequest = std::function<std::optional<std::int64_t>(std::string_view select_message)>;

// The control panel's feedback: its kind picked from a list, the text, "send".
class FeedbackTab : public QWidget
{
    Q_OBJECT

public:
    FeedbackTab(Session& session, AccountForRequest account, QWidget* parent = nullptr);

    QListWidget* kinds() const { return m_kinds; }
    QPlainTextEdit* text() const { return m_text; }
    QPushButton* send_button() const { return m_send; }

public slots:
    void send();

private:
    Session& m_session;
    AccountForRequest m_account;
    QListWidget* m_kinds;
    QPlainTextEdit* m_text;
    QPushButton* m_send;
};

} // namespace qv
