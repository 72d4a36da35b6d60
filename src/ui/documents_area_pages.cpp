// The pages of the documents area: what each offers and what its main action makes.
#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "documents/idocuments.h"
#include "documents/print_save_draws.h"
#include "ui/documents_area.h"
#include "ui/id_lists.h"
#include "ui/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

QVBoxLayout* page_column(QWidget* page)
{
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(4, 4, 4, 4);
    return column;
}

QString word(Session& session, std::string SportWords::*which)
{
    return qs(current_sport_words(session).*which);
}

} // namespace

QCheckBox* DocumentsArea::add_tick(QBoxLayout* layout, const QString& caption, const std::string& key)
{
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(qs(key));
    layout->addWidget(box);
    m_ticks.emplace_back(box, key);
    connect(box, &QCheckBox::toggled, this, [this, key](bool on) {
        if (!m_loading && m_session.booted())
            m_session.settings().set_disk_var(key, on ? "1" : "0");
    });
    return box;
}

void DocumentsArea::add_state_ticks(QBoxLayout* layout, const std::vector<std::string>& keys, bool with_empty)
{
    auto* row = new QHBoxLayout;
    auto* label = new QPushButton(QStringLiteral("states"), this);
    label->setFlat(true);
    label->setObjectName(with_empty ? QStringLiteral("states bottom") : QStringLiteral("states top"));
    label->setToolTip(QStringLiteral("back to the default: live and unfinished"));
    row->addWidget(label);
    const QStringList captions { QStringLiteral("empty"), QStringLiteral("live"), QStringLiteral("unf"),
        QStringLiteral("dead") };
    std::vector<QCheckBox*> boxes;
    for (std::size_t i = 0; i < keys.size(); ++i)
        boxes.push_back(add_tick(row, captions[int(i + (with_empty ? 0 : 1))], keys[i]));
    row->addStretch();
    layout->addLayout(row);
    connect(label, &QPushButton::clicked, this, [boxes, with_empty] {
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            const auto state = i + (with_empty ? 0 : 1);
            boxes[i]->setChecked(state == 1 || state == 2);
        }
    });
}

QListWidget* DocumentsArea::add_day_list(QBoxLayout* layout, Tab tab)
{
    auto* list = new QListWidget(this);
    list->setObjectName(QStringLiteral("days"));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    layout->addWidget(list, 1);
    m_day_lists.emplace_back(tab, list);
    connect(list, &QListWidget::itemActivated, this, [this] { refresh(); });
    return list;
}

QListWidget* DocumentsArea::add_event_list(QBoxLayout* layout, const char* name)
{
    auto* list = new QListWidget(this);
    list->setObjectName(QString::fromLatin1(name));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    layout->addWidget(list, 1);
    connect(list, &QListWidget::itemActivated, this, [this] { refresh(); });
    return list;
}

QListWidget* DocumentsArea::days(Tab tab) const
{
    for (const auto& [page, list] : m_day_lists)
        if (page == tab)
            return list;
    return nullptr;
}

QCheckBox* DocumentsArea::tick(const std::string& key) const
{
    for (const auto& [box, setting] : m_ticks)
        if (setting == key)
            return box;
    return nullptr;
}

QWidget* DocumentsArea::build_schedule()
{
    auto* page = new QWidget(this);
    auto* column = page_column(page);
    add_day_list(column, schedule_tab);
    m_schedule_by = new QComboBox(page);
    m_schedule_by->setObjectName(QStringLiteral("schedule by"));
    m_schedule_by->addItems({ QStringLiteral("by court"), QStringLiteral("by time"), QStringLiteral("by event") });
    column->addWidget(m_schedule_by);
    add_state_ticks(
        column, { "idocs.empty_bottom", "idocs.live_bottom", "idocs.unf_bottom", "idocs.dead_bottom" }, true);
    auto* scores = new QHBoxLayout;
    add_tick(scores, QStringLiteral("long score"), "idocs.check1");
    add_tick(scores, QStringLiteral("short score"), "idocs.check2");
    column->addLayout(scores);
    auto* names = new QHBoxLayout;
    add_tick(names, QStringLiteral("from"), "idocs.check3");
    add_tick(names, QStringLiteral("wqs"), "idocs.check4")->setToolTip(QStringLiteral("wildcard,qualifer,seeding"));
    add_tick(names, QStringLiteral("match id"), "idocs.check14");
    column->addLayout(names);
    add_button(column, QStringLiteral("refresh"), [](DocumentsArea* a) {
        a->refresh_schedule();
    })->setObjectName(QStringLiteral("refresh schedule"));
    return page;
}

QWidget* DocumentsArea::build_results()
{
    auto* page = new QWidget(this);
    auto* column = page_column(page);
    add_day_list(column, results_tab);
    m_results_style = new QComboBox(page);
    m_results_style->setObjectName(QStringLiteral("results style"));
    for (auto style :
        { ResultsStyle::by_event, ResultsStyle::by_schedule, ResultsStyle::by_day, ResultsStyle::by_round })
        m_results_style->addItem(qs(results_style_caption(style)));
    column->addWidget(m_results_style);
    connect(m_results_style, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        if (!m_loading && m_session.booted())
            m_session.settings().set_disk_var("idocs_results_style", to_std(text));
    });
    auto* scores = new QHBoxLayout;
    add_tick(scores, QStringLiteral("short score"), "idocs.check8");
    add_tick(scores, QStringLiteral("long score"), "idocs.check9");
    column->addLayout(scores);
    auto* names = new QHBoxLayout;
    add_tick(names, QStringLiteral("wqs"), "idocs.check12")->setToolTip(QStringLiteral("wildcard,qualifer,seeding"));
    add_tick(names, QStringLiteral("from"), "idocs.check13");
    names->addStretch();
    column->addLayout(names);
    add_button(column, QStringLiteral("refresh"), [](DocumentsArea* a) {
        a->refresh_results();
    })->setObjectName(QStringLiteral("refresh results"));
    return page;
}

QWidget* DocumentsArea::build_player_times()
{
    auto* page = new QWidget(this);
    auto* column = page_column(page);
    add_day_list(column, player_times_tab);
    add_state_ticks(column, { "idocs_live_top", "idocs_unf_top", "idocs_dead_top" }, false);
    m_xtime = new QComboBox(page);
    m_xtime->setObjectName(QStringLiteral("explicit time"));
    m_xtime->addItems(
        { QStringLiteral("explicit time"), QStringLiteral("no explicit time"), QStringLiteral("either") });
    column->addWidget(m_xtime);
    connect(m_xtime, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (!m_loading && m_session.booted() && index >= 0)
            m_session.settings().set_disk_var("idocs_xtime", std::to_string(index));
    });
    add_tick(column, QStringLiteral("include ") + word(m_session, &SportWords::match) + QStringLiteral(" context"),
        "idocs.check11");
    add_button(column, QStringLiteral("refresh"), [](DocumentsArea* a) {
        a->refresh_player_times();
    })->setObjectName(QStringLiteral("refresh player times"));
    m_player_box = new QLineEdit(page);
    m_player_box->setObjectName(QStringLiteral("player search"));
    m_player_box->setPlaceholderText(QStringLiteral("player search"));
    column->addWidget(m_player_box);
    connect(m_player_box, &QLineEdit::returnPressed, this, &DocumentsArea::search_player);
    column->addWidget(new QLabel(QStringLiteral("players"), page));
    m_players = new QListWidget(page);
    m_players->setObjectName(QStringLiteral("players"));
    column->addWidget(m_players, 1);
    connect(
        m_players, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { show_player_times(item->text()); });
    connect(m_players, &QListWidget::itemActivated, this,
        [this](QListWidgetItem* item) { show_player_times(item->text()); });
    return page;
}

QWidget* DocumentsArea::build_players()
{
    auto* page = new QWidget(this);
    auto* column = page_column(page);
    add_tick(column, QStringLiteral("ranking"), "idocs.check5");
    add_tick(column, QStringLiteral("rating"), "idocs.check7");
    add_tick(column, QStringLiteral("from"), "idocs.check15");
    add_tick(column, QStringLiteral("admin"), "idocs.check10")->setToolTip(QStringLiteral("admin line space"));
    add_button(column, QStringLiteral("refresh"), [](DocumentsArea* a) {
        a->refresh_players();
    })->setObjectName(QStringLiteral("refresh players"));
    column->addStretch();
    return page;
}

QWidget* DocumentsArea::build_alias()
{
    auto* page = new QWidget(this);
    auto* column = page_column(page);
    m_alias_events = add_event_list(column, "alias events");
    m_alias_events->setSelectionMode(QAbstractItemView::SingleSelection);
    add_button(column, QStringLiteral("refresh"), [](DocumentsArea* a) {
        a->refresh_alias();
    })->setObjectName(QStringLiteral("refresh alias"));
    return page;
}

QWidget* DocumentsArea::build_country_codes()
{
    auto* page = new QWidget(this);
    auto* column = page_column(page);
    add_button(column, QStringLiteral("refresh"), [](DocumentsArea* a) {
        a->refresh_country_codes();
    })->setObjectName(QStringLiteral("refresh country codes"));
    column->addStretch();
    return page;
}

QWidget* DocumentsArea::build_draws()
{
    auto* page = new QWidget(this);
    auto* column = page_column(page);
    m_draw_events = add_event_list(column, "draw events");
    auto* options = new QHBoxLayout;
    m_pointers = add_tick(options, QStringLiteral("next round pointers"), "include_next_round_pointers");
    m_countries = add_tick(options, QStringLiteral("countries"), "idocs.check16");
    column->addLayout(options);
    auto* texts = new QHBoxLayout;
    add_button(texts, QStringLiteral("text draws"), [](DocumentsArea* a) { a->text_draws(); });
    add_button(texts, QStringLiteral("standings"), [](DocumentsArea* a) { a->standings(); });
    column->addLayout(texts);
    auto* images = new QHBoxLayout;
    add_button(images, QStringLiteral("save images"), [](DocumentsArea* a) { a->save_images(); });
    add_button(images, QStringLiteral("print"), [](DocumentsArea* a) { a->print_images(); });
    m_copies = new QLineEdit(QStringLiteral("1"), page);
    m_copies->setObjectName(QStringLiteral("copies"));
    m_copies->setMaximumWidth(40);
    m_copies->setToolTip(QStringLiteral("copies"));
    images->addWidget(m_copies);
    column->addLayout(images);
    connect(m_copies, &QLineEdit::returnPressed, this, &DocumentsArea::print_images);
    return page;
}

void DocumentsArea::load_ticks()
{
    m_loading = true;
    auto& settings = m_session.settings();
    // The captions that carry the match word follow the sport of the session.
    const auto match = word(m_session, &SportWords::match);
    tick("idocs.check14")->setText(match + QStringLiteral(" id"));
    tick("idocs.check11")->setText(QStringLiteral("include ") + match + QStringLiteral(" context"));
    for (auto& [box, key] : m_ticks)
        box->setChecked(settings.integer(key) == 1);
    m_results_style->setCurrentText(qs(results_style_caption(results_style_of(settings.text("idocs_results_style")))));
    const int xtime = settings.integer("idocs_xtime");
    m_xtime->setCurrentIndex(xtime >= 0 && xtime <= 2 ? xtime : 2);
    m_loading = false;
}

void DocumentsArea::load_lists()
{
    if (!m_session.has_tournament())
        return;
    auto& db = m_session.tournament();
    auto fill = [](QListWidget* list, const std::vector<std::string>& lines) {
        list->clear();
        for (const auto& line : lines)
            list->addItem(qs(line));
    };
    fill(days(schedule_tab), days_working_schedule(db));
    fill(days(results_tab), days_results(db));
    fill(days(player_times_tab), days_playertimes(db));
    m_alias_events->clear();
    for (const auto& choice : name_map_choices(db))
        add_id_line(m_alias_events, choice.text, choice.eid.value_or(0));
    m_draw_events->clear();
    for (const auto& line : events_drawdone_draws(db))
        add_id_line(m_draw_events, line.text, line.eid);
}

std::optional<std::vector<std::string>> DocumentsArea::chosen_days(Tab tab)
{
    std::vector<std::string> chosen;
    auto* list = days(tab);
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->isSelected())
            chosen.push_back(to_std(list->item(row)->text()));
    if (chosen.empty()) {
        m_session.talk().message("select day");
        return std::nullopt;
    }
    return chosen;
}

std::vector<std::int64_t> DocumentsArea::chosen_events(QListWidget* list) const
{
    return selected_ids(list);
}

void DocumentsArea::refresh_schedule()
{
    if (!m_session.has_tournament())
        return;
    const auto chosen = chosen_days(schedule_tab);
    if (!chosen)
        return;
    m_session.busy(true);
    const auto context = document_context(m_session);
    m_schedule_run = static_cast<ScheduleBy>(m_schedule_by->currentIndex());
    m_schedule_options = idocs_schedule_options(m_session.settings());
    Document document;
    for (const auto& day : *chosen)
        document.append(FORMAT_schedule_by(context, m_schedule_run, day.substr(0, 10), m_schedule_options));
    show_document(std::move(document), DocumentPage::schedule);
    m_session.busy(false);
}

void DocumentsArea::refresh_results()
{
    if (!m_session.has_tournament())
        return;
    const auto chosen = chosen_days(results_tab);
    if (!chosen)
        return;
    m_session.busy(true);
    setlivedays_idocs(m_session.tournament(), *chosen);
    const auto style = results_style_of(to_std(m_results_style->currentText()));
    show_document(results_document(document_context(m_session), style, idocs_results_options(m_session.settings())),
        DocumentPage::results);
    m_session.busy(false);
}

void DocumentsArea::refresh_player_times()
{
    if (!m_session.has_tournament())
        return;
    const auto chosen = chosen_days(player_times_tab);
    if (!chosen)
        return;
    m_session.busy(true);
    auto& db = m_session.tournament();
    VIP_setlivedays_playertimes(db, *chosen);
    const auto context = document_context(m_session);
    VIP_compile_player_times_idocs(context, idocs_player_times_options(m_session.settings()));
    show_document(VIP_text_player_times_idocs(context), DocumentPage::player_times);
    m_players->clear();
    for (auto row = db.query("select distinct player from player_times_idocs order by player"); row.step();)
        m_players->addItem(qs(row.text(0)));
    m_session.busy(false);
}

void DocumentsArea::show_player_times(const QString& player)
{
    if (!m_session.has_tournament())
        return;
    show_document(
        VIP_text_player_times_idocs_pn(document_context(m_session), to_std(player)), DocumentPage::player_times);
}

void DocumentsArea::search_player()
{
    const auto name = to_std(m_player_box->text().trimmed());
    if (!m_session.has_tournament() || name.empty())
        return;
    show_document(player_search_times(document_context(m_session), name), DocumentPage::player_times);
}

void DocumentsArea::refresh_players()
{
    if (!m_session.has_tournament())
        return;
    show_document(VIP_text_rating_ranking(document_context(m_session), idocs_player_list_options(m_session.settings())),
        DocumentPage::players);
}

void DocumentsArea::refresh_alias()
{
    if (!m_session.has_tournament())
        return;
    std::optional<std::int64_t> eid;
    if (const auto chosen = current_id(m_alias_events); chosen && *chosen != 0)
        eid = *chosen;
    show_document(name_map(document_context(m_session), eid), DocumentPage::alias);
}

void DocumentsArea::refresh_country_codes()
{
    if (!m_session.has_tournament())
        return;
    show_document(make_country_codes(document_context(m_session), m_session.init_db()), DocumentPage::country_codes);
}

void DocumentsArea::text_draws()
{
    if (!m_session.has_tournament())
        return;
    const auto eids = chosen_events(m_draw_events);
    if (eids.empty()) {
        m_session.talk().message("select at least 1 draw");
        return;
    }
    const auto pointers = m_pointers->isChecked() ? NextRoundPointers::on : NextRoundPointers::off;
    const auto countries = m_countries->isChecked() ? TextDrawCountries::on : TextDrawCountries::off;
    Document document;
    for (auto eid : eids) {
        if (!document.lines.empty())
            document.add("");
        document.append(text_draw_document(m_session.tournament(), eid, pointers, countries));
    }
    show_document(std::move(document), DocumentPage::text_draws);
}

void DocumentsArea::standings()
{
    if (!m_session.has_tournament())
        return;
    const auto context = document_context(m_session);
    Document document;
    for (auto eid : chosen_events(m_draw_events))
        if (m_session.tournament().scalar_text("select drawtype from events where eid=?", eid) == "rr")
            document.append(standings_rr(context, eid));
    if (document.lines.empty()) {
        m_session.talk().message("select at least 1 draw");
        return;
    }
    show_document(std::move(document), DocumentPage::standings);
}

bool DocumentsArea::save_images()
{
    if (!m_session.has_tournament())
        return false;
    const auto eids = chosen_events(m_draw_events);
    if (eids.empty()) {
        m_session.talk().message("select at least 1 draw");
        return false;
    }
    const auto folder = m_session.talk().choose_file(
        { FileDialogKind::Directory, "save images to...", "", "", m_session.settings().text("app.last_dir_opened") });
    return folder && qv::save_images(m_session, eids, *folder);
}

bool DocumentsArea::print_images()
{
    if (!m_session.has_tournament())
        return false;
    const auto eids = chosen_events(m_draw_events);
    if (eids.empty()) {
        m_session.talk().message("select at least 1 draw");
        return false;
    }
    return iprint(m_session, eids, to_std(m_copies->text()));
}

} // namespace qv
