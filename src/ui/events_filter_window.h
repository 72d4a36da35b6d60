#pragma once

#include "entries/filters.h"

#include <QDialog>

#include <array>
#include <functional>
#include <string>

class QComboBox;
class QPushButton;

namespace qv {

class Session;

// "events  filter" (`admin_events_setfilter`): six lists over the event filter stored under the caller's key
// (the events manager, the draw area or the two event lists of adding to events). "set filter" stores the text
// and hands the filter to the caller.
class EventsFilterWindow : public QDialog
{
    Q_OBJECT

public:
    using Stored = std::function<void(const EventFilter&)>;

    EventsFilterWindow(Session& session, std::string key, Stored on_stored, QWidget* parent = nullptr);

    // singles/doubles, event sex, event type, draw done, has entries, order by.
    QComboBox* list(int index) const { return m_lists.at(static_cast<std::size_t>(index)); }
    QPushButton* store_button() const { return m_store; }

    EventFilter filter() const;

public slots:
    void store();

private:
    Session& m_session;
    std::string m_key;
    Stored m_on_stored;
    std::array<QComboBox*, 6> m_lists {};
    QPushButton* m_store;
};

} // namespace qv
