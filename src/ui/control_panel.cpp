#include "ui/control_panel.h"

#include "core/session.h"
#include "ui/accounts_tab.h"
#include "ui/addresses_tab.h"
#include "ui/colours_tab.h"
#include "ui/feedback_tab.h"
#include "ui/options_tab.h"
#include "ui/qt_text.h"
#include "ui/refusal_selection.h"
#include "ui/tabbed_window.h"
#include "ui/window_behaviour.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

namespace qv {

ControlPanel::ControlPanel(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_tabs(new QTabWidget(this))
    , m_accounts(new AccountsTab(session, this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("control_panel"));
    setWindowTitle(QStringLiteral("control panel"));

    const AccountForRequest account
        = [this](std::string_view message) { return m_accounts->checked_for_request(message); };
    m_options = new OptionsTab(session, this);
    m_colours = new ColoursTab(session, this);
    m_feedback = new FeedbackTab(session, account, this);
    m_addresses = new AddressesTab(session, account, this);
    connect(m_addresses, &AddressesTab::accountChanged, this,
        [this] { m_accounts->reload(m_accounts->selected("select account on accounts tab")); });

    m_tabs->addTab(m_accounts, QStringLiteral("accounts"));
    m_tabs->addTab(sports_page(), QStringLiteral("sports words"));
    m_tabs->addTab(m_options, QStringLiteral("options"));
    m_tabs->addTab(m_colours, QStringLiteral("colours"));
    m_tabs->addTab(m_feedback, QStringLiteral("feedback"));
    m_tabs->addTab(m_addresses, QStringLiteral("addresses"));

    lay_out_tabbed_window(this, m_tabs);
    resize(760, 480);
}

QWidget* ControlPanel::sports_page()
{
    auto* page = new QWidget(this);
    m_sports = new QListWidget(page);
    m_save = new QPushButton(QStringLiteral("save"), page);
    for (const auto& sport : set_up_sport())
        m_sports->addItem(qs(sport.name));

    static const std::array<const char*, 6> labels { "court", "short", "plural", "match", "short", "plural" };
    auto* form = new QFormLayout;
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        m_words[i] = new QLineEdit(page);
        form->addRow(QString::fromLatin1(labels[i]), m_words[i]);
        connect(m_words[i], &QLineEdit::returnPressed, this, &ControlPanel::save);
    }
    form->addRow(QString(), m_save);

    auto* layout = new QHBoxLayout(page);
    layout->addWidget(m_sports);
    layout->addLayout(form);

    set_tab_chain({ m_sports, m_words[0], m_words[1], m_words[2], m_words[3], m_words[4], m_words[5], m_save });
    show_words(current_sport_words(m_session));
    connect(m_sports, &QListWidget::currentRowChanged, this, &ControlPanel::choose_sport);
    connect(m_save, &QPushButton::clicked, this, &ControlPanel::save);
    return page;
}

SportWords ControlPanel::words() const
{
    return { to_std(m_words[0]->text()), to_std(m_words[1]->text()), to_std(m_words[2]->text()),
        to_std(m_words[3]->text()), to_std(m_words[4]->text()), to_std(m_words[5]->text()) };
}

void ControlPanel::show_words(const SportWords& words)
{
    const auto values = as_array(words);
    for (std::size_t i = 0; i < m_words.size(); ++i)
        m_words[i]->setText(qs(values[i]));
}

void ControlPanel::choose_sport(int row)
{
    const auto& sports = set_up_sport();
    if (row >= 0 && row < static_cast<int>(sports.size()))
        show_words(sports[static_cast<std::size_t>(row)].words);
}

void ControlPanel::save()
{
    const SportWords typed = words();
    const SaveWords result = save_sport_words(m_session, typed);
    if (result == SaveWords::refused) {
        if (const auto refusal = validate_sport_words(typed))
            select_refusal(m_words.at(static_cast<std::size_t>(refusal->field)), refusal->refusal);
        return;
    }
    // The restart carries the new words everywhere; this panel must not outlive it.
    if (result == SaveWords::saved_restarting)
        close();
}

} // namespace qv
