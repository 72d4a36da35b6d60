#pragma once

#include "core/sports_vocabulary.h"

#include <QWidget>

#include <array>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;

namespace qv {

class AccountsTab;
class AddressesTab;
class ColoursTab;
class FeedbackTab;
class OptionsTab;
class Session;

// "control panel": the accounts of the online service, the sports vocabulary, the options, the colours,
// feedback to the service and the addresses, one tab each.
class ControlPanel : public QWidget
{
    Q_OBJECT

public:
    ControlPanel(Session& session, QWidget* parent = nullptr);

    QTabWidget* tabs() const { return m_tabs; }
    AccountsTab* accounts() const { return m_accounts; }
    OptionsTab* options() const { return m_options; }
    ColoursTab* colours() const { return m_colours; }
    FeedbackTab* feedback() const { return m_feedback; }
    AddressesTab* addresses() const { return m_addresses; }

    QListWidget* sports() const { return m_sports; }
    QLineEdit* word_box(int field) const { return m_words.at(static_cast<std::size_t>(field)); }
    QPushButton* save_button() const { return m_save; }
    SportWords words() const;

public slots:
    void choose_sport(int row);
    void save();

private:
    QWidget* sports_page();
    void show_words(const SportWords& words);

    Session& m_session;
    QTabWidget* m_tabs;
    AccountsTab* m_accounts;
    OptionsTab* m_options = nullptr;
    ColoursTab* m_colours = nullptr;
    FeedbackTab* m_feedback = nullptr;
    AddressesTab* m_addresses = nullptr;
    QListWidget* m_sports = nullptr;
    std::array<QLineEdit*, 6> m_words {};
    QPushButton* m_save = nullptr;
};

} // namespace qv
