#include "ui/events_filter_window.h"

#include "core/session.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QComboBox>
#include <QFormLayout>
#include <QPushButton>

namespace qv {

EventsFilterWindow::EventsFilterWindow(Session& session, std::string key, Stored on_stored, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_key(std::move(key))
    , m_on_stored(std::move(on_stored))
    , m_store(new QPushButton(QStringLiteral("set filter"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("admin_events_setfilter"));
    setWindowTitle(QStringLiteral("events  filter"));
    const std::array<const std::vector<std::string>*, 6> words { &event_singdobs_words(), &event_sex_words(),
        &event_type_words(), &event_draw_words(), &event_entries_words(), &event_order_words() };
    // The entries test reads every event's entries while the list fills: the label warns of it.
    static const std::array<const char*, 6> labels { "singles/doubles", "event sex", "event type", "draw done",
        "has entries (slowest)", "order by" };
    auto* layout = new QFormLayout(this);
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        m_lists[i] = new QComboBox(this);
        for (const auto& word : *words[i])
            m_lists[i]->addItem(qs(word));
        layout->addRow(QString::fromLatin1(labels[i]), m_lists[i]);
    }
    layout->addRow(m_store);
    set_tab_chain({ m_lists[0], m_lists[1], m_lists[2], m_lists[3], m_lists[4], m_lists[5], m_store });
    set_main_button(this, m_store);
    m_lists[0]->setFocus();
    connect(m_store, &QPushButton::clicked, this, &EventsFilterWindow::store);

    const auto stored = load_event_filter(m_session.settings(), m_key);
    const std::array<const std::string*, 6> values { &stored.singdobs, &stored.sex, &stored.type, &stored.draw,
        &stored.entries, &stored.order };
    for (std::size_t i = 0; i < m_lists.size(); ++i)
        m_lists[i]->setCurrentIndex(std::max(0, m_lists[i]->findText(qs(*values[i]))));
}

EventFilter EventsFilterWindow::filter() const
{
    auto word = [this](std::size_t i) { return to_std(m_lists[i]->currentText()); };
    return { word(0), word(1), word(2), word(3), word(4), word(5) };
}

void EventsFilterWindow::store()
{
    const auto chosen = filter();
    store_event_filter(m_session.settings(), m_key, chosen);
    if (m_on_stored)
        m_on_stored(chosen);
    close();
}

} // namespace qv
