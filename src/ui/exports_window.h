#pragma once

#include <QDialog>

class QListWidget;

namespace qv {

class Session;

// "imports/exports": the numbered exports of the tournament's entries, players, events and results, and the
// re-import of results. Enter or a double click runs the chosen line.
class ExportsWindow : public QDialog
{
    Q_OBJECT

public:
    ExportsWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* list() const { return m_list; }
    // Runs a line by its row.
    void run(int row);

private:
    Session& m_session;
    QListWidget* m_list;
};

// The exports the tournament area offers on lines of their own.
void save_entries_brief(Session& session);
void save_entries_expanded(Session& session);

} // namespace qv
