#pragma once

#include "drawengine/force_draw.h"

#include <QDialog>

#include <cstdint>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;

namespace qv {

class Session;

// "force draw config": the event's players on the left, the slots of the hand-made layout on the right. The
// space bar puts the selected player on the selected slot ("insert>"), the z key takes it off ("<remove").
class ForceDrawWindow : public QDialog
{
    Q_OBJECT

public:
    ForceDrawWindow(Session& session, std::int64_t eid, const std::string& eventname, QWidget* parent = nullptr);

    QListWidget* players() const { return m_players; }
    QListWidget* positions() const { return m_slots; }
    QComboBox* target_size() const { return m_size; }
    QCheckBox* ignore_seeding() const { return m_ignore; }
    QCheckBox* insertion_order() const { return m_order; }
    QLineEdit* search_box() const { return m_search; }
    const ForceDrawLayout& layout() const { return m_layout; }

    void choose_size(int drawsize);
    void insert();
    void remove();
    void mirror();
    void save();
    void reset();
    void search();

protected:
    // The two lists would take the space bar and letters for their own selection and search.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ForceOrder order() const;
    void show_lists(int player_row, int slot_row);

    Session& m_session;
    std::int64_t m_eid;
    ForceDrawLayout m_layout;
    QListWidget* m_players;
    QListWidget* m_slots;
    QComboBox* m_size;
    QCheckBox* m_ignore;
    QCheckBox* m_order;
    QLineEdit* m_search;
};

} // namespace qv
