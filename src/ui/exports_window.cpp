#include "ui/exports_window.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "datafiles/entries_file.h"
#include "datafiles/entries_reports.h"
#include "datafiles/event_files.h"
#include "datafiles/player_files.h"
#include "datafiles/results_file.h"
#include "datafiles/results_reimport.h"
#include "ui/window_behaviour.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

constexpr const char* captions[]
    = { "1)export entries (brief)", "2)export entries (expanded)", "3)export formatted entries(use resolved doubles)",
          "4)export formatted entries(use raw doubles)", "5)export events qv3", "6)export players qv1 format",
          "7)export players qv2 format", "8)export qv5 entries file(use resolved doubles)",
          "9)export qv5 entries file(use raw doubles)", "10)make qv4 file (results file for analysis)",
          "11)dump schedule", "12)export qv6 (results file for reimport)", "13)import qv6 file" };

std::filesystem::path start_dir(Session& session)
{
    return session.settings().text("app.last_dir_opened");
}

void save_lines(Session& session, const std::string& name, const std::vector<std::string>& lines)
{
    save_text_file_as(session, name, start_dir(session), lines);
}

std::vector<std::int64_t> all_ids(Database& db, const char* sql)
{
    std::vector<std::int64_t> ids;
    for (auto q = db.query(sql); q.step();)
        ids.push_back(q.integer(0));
    return ids;
}

void import_qv6(Session& session)
{
    const auto file
        = session.talk().choose_file({ FileDialogKind::Open, "import qv6 file", "", "txt.", start_dir(session) });
    if (file)
        import_qv6_file(session, *file);
}

// Enter in the list runs the chosen line.
class ExportsList : public QListWidget
{
public:
    ExportsList(ExportsWindow* window)
        : QListWidget(window)
        , m_window(window)
    {
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentRow() >= 0) {
            m_window->run(currentRow());
            return;
        }
        QListWidget::keyPressEvent(event);
    }

private:
    ExportsWindow* m_window;
};

} // namespace

void save_entries_brief(Session& session)
{
    save_lines(session, "entries_brief", entriesbrief(session.tournament()));
}

void save_entries_expanded(Session& session)
{
    save_lines(session, "entries_expanded", entriesexpanded(session.tournament()));
}

ExportsWindow::ExportsWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_list(new ExportsList(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("exports"));
    setWindowTitle(QStringLiteral("imports/exports"));
    for (const char* caption : captions)
        m_list->addItem(QString::fromLatin1(caption));
    m_list->setCurrentRow(0);
    auto* close_button = new QPushButton(QStringLiteral("close"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addWidget(close_button, 0, Qt::AlignRight);
    no_main_button(this);
    set_tab_chain({ m_list, close_button });
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) { run(m_list->row(item)); });
    connect(close_button, &QPushButton::clicked, this, &QWidget::close);
    const auto width = m_list->sizeHintForColumn(0) + 40;
    resize(std::max(width, 320), m_list->sizeHintForRow(0) * (m_list->count() + 1) + 60);
}

void ExportsWindow::run(int row)
{
    if (!m_session.has_tournament())
        return;
    auto& s = m_session;
    auto& db = s.tournament();
    switch (row) {
    case 0:
        return save_entries_brief(s);
    case 1:
        return save_entries_expanded(s);
    case 2:
        return save_lines(
            s, "formatted_entries_with_resolved_doubles.txt", export_formatted_entries(db, FormattedDoubles::resolved));
    case 3:
        return save_lines(
            s, "export_formatted_entries_with_raw_doubles).txt", export_formatted_entries(db, FormattedDoubles::raw));
    case 4:
        export_events(s, all_ids(db, "select eid from events order by eid"));
        return;
    case 5:
    case 6:
        export_players(s, all_ids(db, "select pid from players order by player"),
            row == 5 ? PlayerFormat::qv1 : PlayerFormat::qv2);
        return;
    case 7:
    case 8:
        export_qv5(s, row == 7 ? Qv5Doubles::resolved : Qv5Doubles::raw);
        return;
    case 9:
        save_qv4_file(s);
        return;
    case 10:
        return save_lines(s, "dump_schedule.txt", export_results_txt_file(db, current_sport_words(s).court));
    case 11:
        export_qv6_file(s);
        return;
    case 12:
        return import_qv6(s);
    default:
        return;
    }
}

} // namespace qv
