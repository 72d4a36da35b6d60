#pragma once

#include "documents/document_lines.h"
#include "documents/document_options.h"
#include "documents/document_save.h"
#include "ui/area_page.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class QTabWidget;
class QVBoxLayout;

namespace qv {

class MainWindow;
class ScheduleBoardArea;

// The documents area, idocuments ("Documents"): a page for each kind of document with its days or events and its
// ticks, and one output that shows the lines of the last document made, as a list (whose lines know their
// match) or as text. The output is saved, printed or viewed as it stands.
class DocumentsArea : public AreaPage
{
    Q_OBJECT

public:
    // The pages, in the order of the tabs.
    enum Tab { schedule_tab, results_tab, player_times_tab, players_tab, alias_tab, country_codes_tab, draws_tab };

    DocumentsArea(Session& session, MainWindow& main, QWidget* parent = nullptr);

    void init() override;
    void clear() override;
    void refresh_lists(Lists which) override;

    QTabWidget* tabs() const { return m_tabs; }
    QListWidget* output_list() const { return m_list; }
    QPlainTextEdit* output_text() const { return m_text; }
    QComboBox* output_chooser() const { return m_output; }
    QListWidget* days(Tab tab) const;
    QListWidget* players() const { return m_players; }
    QListWidget* alias_events() const { return m_alias_events; }
    QListWidget* draw_events() const { return m_draw_events; }
    QComboBox* schedule_by() const { return m_schedule_by; }
    QComboBox* results_style() const { return m_results_style; }
    QComboBox* xtime() const { return m_xtime; }
    QLineEdit* copies() const { return m_copies; }
    QLineEdit* search_box() const { return m_search; }
    QLineEdit* player_box() const { return m_player_box; }
    // The tick of a setting, by its key.
    QCheckBox* tick(const std::string& key) const;
    const Document& document() const { return m_document; }

public slots:
    // The main action of the page on show.
    void refresh();
    void refresh_schedule();
    void refresh_results();
    void refresh_player_times();
    void show_player_times(const QString& player);
    // The player search box: the live and unfinished matches of the name typed, on any day.
    void search_player();
    void refresh_players();
    void refresh_alias();
    void refresh_country_codes();
    void text_draws();
    void standings();
    bool save_images();
    bool print_images();
    // The output: "save as..", "print(l)", "print(p)", "save as PDF(l)", "save as PDF(p)", "save all pages", the
    // text viewer, list or text.
    bool save_as();
    // "save all pages": the last document of every page made since the tournament was opened, in one file.
    bool save_all_pages();
    bool print(const std::string& orientation);
    bool save_as_pdf(const std::string& orientation);
    bool view();
    void toggle_text();
    // The operations on the match of the current line.
    void show_in_draw();
    void show_in_schedule();
    void add_result();
    void player_details();
    void search();

private:
    QWidget* build_output();
    QWidget* build_schedule();
    QWidget* build_results();
    QWidget* build_player_times();
    QWidget* build_players();
    QWidget* build_alias();
    QWidget* build_country_codes();
    QWidget* build_draws();
    QCheckBox* add_tick(QBoxLayout* layout, const QString& caption, const std::string& key);
    // The four ticks of the states with the flat label that restores their defaults.
    void add_state_ticks(QBoxLayout* layout, const std::vector<std::string>& keys, bool with_empty);
    QListWidget* add_day_list(QBoxLayout* layout, Tab tab);
    QListWidget* add_event_list(QBoxLayout* layout, const char* name);
    QPushButton* add_button(QBoxLayout* layout, const QString& caption, void (*action)(DocumentsArea*));
    void load_lists();
    void load_ticks();
    void show_document(Document document, DocumentPage page);
    // After a change elsewhere: each match line of the schedule shown is read again, as the run made it.
    void update_schedule_lines();
    // The days chosen on a page; "select day" when there is none.
    std::optional<std::vector<std::string>> chosen_days(Tab tab);
    std::vector<std::int64_t> chosen_events(QListWidget* list) const;
    // The match of the current line; "select " match when there is none, match " not found,stale data" when it
    // has gone.
    std::optional<std::int64_t> chosen_sid();
    ScheduleBoardArea* board_area() const;

    Session& m_session;
    MainWindow& m_main;
    bool m_loading = false;
    Document m_document;
    // The last document each page made, for "save all pages".
    std::map<DocumentPage, Document> m_made;
    DocumentPage m_page = DocumentPage::schedule;
    ScheduleBy m_schedule_run = ScheduleBy::court;
    ScheduleOptions m_schedule_options;
    QTabWidget* m_tabs;
    QStackedWidget* m_output_stack = nullptr;
    QListWidget* m_list = nullptr;
    QPlainTextEdit* m_text = nullptr;
    QComboBox* m_output = nullptr;
    QLineEdit* m_search = nullptr;
    std::vector<std::pair<QCheckBox*, std::string>> m_ticks;
    std::vector<std::pair<Tab, QListWidget*>> m_day_lists;
    QComboBox* m_schedule_by = nullptr;
    QComboBox* m_results_style = nullptr;
    QComboBox* m_xtime = nullptr;
    QListWidget* m_players = nullptr;
    QLineEdit* m_player_box = nullptr;
    QListWidget* m_alias_events = nullptr;
    QListWidget* m_draw_events = nullptr;
    QCheckBox* m_pointers = nullptr;
    QCheckBox* m_countries = nullptr;
    QLineEdit* m_copies = nullptr;
};

} // namespace qv
