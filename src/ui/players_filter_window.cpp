#include "ui/players_filter_window.h"

#include "core/session.h"
#include "entries/folders.h"
#include "entries/main_lists.h"
#include "ui/id_lists.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace qv {

PlayersFilterWindow::PlayersFilterWindow(
    Session& session, std::string key, PlayersFilterKind kind, Stored on_stored, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_key(std::move(key))
    , m_kind(kind)
    , m_on_stored(std::move(on_stored))
    , m_order(new QComboBox(this))
    , m_store(new QPushButton(QStringLiteral("set filter"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(kind == PlayersFilterKind::with_sources ? QStringLiteral("players_filter")
                                                          : QStringLiteral("players_filter_addtoevent"));
    setWindowTitle(QStringLiteral("players filter"));
    auto* layout = new QVBoxLayout(this);

    if (kind == PlayersFilterKind::with_sources) {
        m_all = new QCheckBox(QStringLiteral("all players"), this);
        layout->addWidget(m_all);
        m_tabs = new QTabWidget(this);
        auto source_tab = [this](QListWidget*& list, QCheckBox*& use, const QString& caption) {
            auto* page = new QWidget(m_tabs);
            auto* page_layout = new QVBoxLayout(page);
            use = new QCheckBox(QStringLiteral("use"), page);
            list = new QListWidget(page);
            page_layout->addWidget(use);
            page_layout->addWidget(list);
            m_tabs->addTab(page, caption);
        };
        source_tab(m_events, m_use_event, QStringLiteral("filter by event"));
        source_tab(m_folders, m_use_folder, QStringLiteral("filter by folder"));
        layout->addWidget(m_tabs);
        for (auto* source : { m_all, m_use_event, m_use_folder })
            connect(source, &QCheckBox::toggled, this, [this, source](bool on) {
                if (on)
                    use_only(source);
            });
        for (const auto& line : loadevents(m_session.tournament()))
            add_id_line(m_events, line.text, line.id);
        for (const auto& folder : load_folders(m_session.tournament()))
            add_id_line(m_folders, folder.nm, folder.fid);
    }

    static const std::array<const char*, 6> captions { "male", "female", "reserves", "non-reserve", "players",
        "teams" };
    auto* grid = new QGridLayout;
    for (std::size_t i = 0; i < m_ticks.size(); ++i) {
        m_ticks[i] = new QCheckBox(QString::fromLatin1(captions[i]), this);
        grid->addWidget(m_ticks[i], static_cast<int>(i / 2), static_cast<int>(i % 2));
    }
    layout->addLayout(grid);
    for (const auto& word : player_order_words())
        m_order->addItem(qs(word));
    layout->addWidget(m_order);
    layout->addWidget(m_store);
    // The order list and the button were made first but stand last.
    std::vector<QWidget*> chain;
    if (kind == PlayersFilterKind::with_sources)
        chain = { m_all, m_tabs, m_use_event, m_events, m_use_folder, m_folders };
    chain.insert(chain.end(), m_ticks.begin(), m_ticks.end());
    chain.insert(chain.end(), { m_order, m_store });
    set_tab_chain(chain);
    chain.front()->setFocus();
    set_main_button(this, m_store);
    connect(m_store, &QPushButton::clicked, this, &PlayersFilterWindow::store);

    m_loaded = load_player_filter(m_session.settings(), m_key);
    show_filter(m_loaded);
}

void PlayersFilterWindow::show_filter(const PlayerFilter& filter)
{
    if (m_kind == PlayersFilterKind::with_sources) {
        m_all->setChecked(filter.source == PlayerSource::all);
        m_use_event->setChecked(filter.source == PlayerSource::event);
        m_use_folder->setChecked(filter.source == PlayerSource::folder);
        if (filter.source == PlayerSource::event)
            select_id(m_events, filter.id);
        if (filter.source == PlayerSource::folder) {
            select_id(m_folders, filter.id);
            m_tabs->setCurrentIndex(1);
        }
    }
    const std::array<bool, 6> ticked { filter.male, filter.female, filter.reserves, filter.non_reserve, filter.players,
        filter.teams };
    for (std::size_t i = 0; i < m_ticks.size(); ++i)
        m_ticks[i]->setChecked(ticked[i]);
    m_order->setCurrentIndex(static_cast<int>(filter.order));
}

void PlayersFilterWindow::use_only(QCheckBox* source)
{
    for (auto* other : { m_all, m_use_event, m_use_folder })
        if (other != source)
            other->setChecked(false);
}

PlayerFilter PlayersFilterWindow::filter() const
{
    PlayerFilter filter = m_loaded;
    if (m_kind == PlayersFilterKind::with_sources) {
        filter.id = 0;
        if (m_use_event->isChecked()) {
            filter.source = PlayerSource::event;
            filter.id = current_id(m_events).value_or(0);
        } else if (m_use_folder->isChecked()) {
            filter.source = PlayerSource::folder;
            filter.id = current_id(m_folders).value_or(0);
        } else {
            filter.source = PlayerSource::all;
        }
    }
    filter.male = m_ticks[0]->isChecked();
    filter.female = m_ticks[1]->isChecked();
    filter.reserves = m_ticks[2]->isChecked();
    filter.non_reserve = m_ticks[3]->isChecked();
    filter.players = m_ticks[4]->isChecked();
    filter.teams = m_ticks[5]->isChecked();
    filter.order = static_cast<PlayerOrder>(std::max(0, m_order->currentIndex()));
    return filter;
}

bool PlayersFilterWindow::store()
{
    if (m_kind == PlayersFilterKind::with_sources && !m_all->isChecked() && !m_use_event->isChecked()
        && !m_use_folder->isChecked()) {
        m_session.talk().message("select at least 1 source");
        return false;
    }
    const auto chosen = filter();
    store_player_filter(m_session.settings(), m_key, chosen);
    if (m_on_stored)
        m_on_stored(chosen);
    close();
    return true;
}

} // namespace qv
