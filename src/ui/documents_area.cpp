#include "ui/documents_area.h"

#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "documents/printroutines.h"
#include "documents/working_schedule.h"
#include "scheduling/board_find.h"
#include "ui/add_result_window.h"
#include "ui/id_lists.h"
#include "ui/list_search.h"
#include "ui/main_window.h"
#include "ui/pdf_printer.h"
#include "ui/players_windows.h"
#include "ui/qt_text.h"
#include "ui/schedule_board.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace qv {

namespace {

std::string join_lines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const auto& line : lines)
        text += line + "\n";
    return text;
}

} // namespace

DocumentsArea::DocumentsArea(Session& session, MainWindow& main, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_main(main)
    , m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("idocuments"));
    auto* title = new QLabel(QStringLiteral("Documents"), this);
    QFont bold = title->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    title->setFont(bold);

    m_tabs->setObjectName(QStringLiteral("pages"));
    m_tabs->addTab(build_schedule(), QStringLiteral("schedule"));
    m_tabs->addTab(build_results(), QStringLiteral("results"));
    m_tabs->addTab(build_player_times(), QStringLiteral("player times"));
    m_tabs->addTab(build_players(), QStringLiteral("players"));
    m_tabs->addTab(build_alias(), QStringLiteral("alias"));
    m_tabs->addTab(build_country_codes(), QStringLiteral("country codes"));
    m_tabs->addTab(build_draws(), QStringLiteral("draws"));

    // Every page's tab in view: the pages are as wide as their tabs.
    m_tabs->setFixedWidth(m_tabs->tabBar()->sizeHint().width() + 8);
    auto* columns = new QHBoxLayout;
    columns->addWidget(m_tabs);
    columns->addWidget(build_output(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addLayout(columns, 1);
}

QWidget* DocumentsArea::build_output()
{
    auto* box = new QWidget(this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);

    auto* top = new QHBoxLayout;
    m_output = new QComboBox(box);
    m_output->setObjectName(QStringLiteral("output"));
    m_output->addItems({ QStringLiteral("select.."), QStringLiteral("save as.."), QStringLiteral("print(l)"),
        QStringLiteral("print(p)"), QStringLiteral("save as PDF(l)"), QStringLiteral("save as PDF(p)"),
        QStringLiteral("save all pages") });
    m_output->setToolTip(
        QStringLiteral("save to a text file, print landscape, print portrait, save the printed pages as a PDF file"));
    top->addWidget(m_output);
    add_button(top, QStringLiteral("view"), [](DocumentsArea* a) { a->view(); });
    add_button(top, QStringLiteral("toggle text"), [](DocumentsArea* a) { a->toggle_text(); });
    top->addStretch();
    m_search = new QLineEdit(box);
    m_search->setObjectName(QStringLiteral("search text"));
    m_search->setPlaceholderText(QStringLiteral("search"));
    m_search->setMaximumWidth(160);
    top->addWidget(m_search);
    add_button(top, QStringLiteral("search"), [](DocumentsArea* a) { a->search(); });
    column->addLayout(top);

    m_output_stack = new QStackedWidget(box);
    m_list = new QListWidget(box);
    m_list->setObjectName(QStringLiteral("lines"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_text = new QPlainTextEdit(box);
    m_text->setObjectName(QStringLiteral("text"));
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont fixed(QStringLiteral("Monospace"));
    fixed.setStyleHint(QFont::TypeWriter);
    m_list->setFont(fixed);
    m_text->setFont(fixed);
    m_output_stack->addWidget(m_list);
    m_output_stack->addWidget(m_text);
    column->addWidget(m_output_stack, 1);

    auto* line_ops = new QHBoxLayout;
    add_button(line_ops, QStringLiteral("show in draw"), [](DocumentsArea* a) { a->show_in_draw(); });
    add_button(line_ops, QStringLiteral("show in schedule"), [](DocumentsArea* a) { a->show_in_schedule(); });
    add_button(line_ops, QStringLiteral("add result"), [](DocumentsArea* a) { a->add_result(); });
    add_button(line_ops, QStringLiteral("player details"), [](DocumentsArea* a) { a->player_details(); });
    line_ops->addStretch();
    column->addLayout(line_ops);

    connect(m_output, &QComboBox::activated, this, [this](int index) {
        m_output->setCurrentIndex(0);
        if (index == 1)
            save_as();
        else if (index == 2 || index == 3)
            print(index == 2 ? "l" : "p");
        else if (index == 4 || index == 5)
            save_as_pdf(index == 4 ? "l" : "p");
        else if (index == 6)
            save_all_pages();
    });
    connect(m_search, &QLineEdit::returnPressed, this, &DocumentsArea::search);
    return box;
}

QPushButton* DocumentsArea::add_button(QBoxLayout* layout, const QString& caption, void (*action)(DocumentsArea*))
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(caption);
    layout->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, action] { action(this); });
    return button;
}

void DocumentsArea::init()
{
    load_ticks();
    load_lists();
    m_document = {};
    m_made.clear();
    m_list->clear();
    m_text->clear();
}

void DocumentsArea::clear()
{
    m_document = {};
    m_made.clear();
    m_list->clear();
    m_text->clear();
    for (auto& [tab, list] : m_day_lists)
        list->clear();
    m_players->clear();
    m_alias_events->clear();
    m_draw_events->clear();
}

void DocumentsArea::refresh_lists(Lists which)
{
    if (which == Lists::schedule || which == Lists::draw || which == Lists::events)
        load_lists();
    if ((which == Lists::schedule || which == Lists::draw) && m_page == DocumentPage::schedule)
        update_schedule_lines();
}

void DocumentsArea::update_schedule_lines()
{
    if (!m_session.has_tournament())
        return;
    const auto context = document_context(m_session);
    for (std::size_t i = 0; i < m_document.lines.size(); ++i) {
        auto& line = m_document.lines[i];
        if (line.sid == 0)
            continue;
        const auto text = idocs_working_schedule_update_line(context, m_schedule_run, m_schedule_options, line.sid);
        if (!text || *text == line.text)
            continue;
        line.text = *text;
        m_list->item(static_cast<int>(i))->setText(qs(line.text));
    }
    m_made[DocumentPage::schedule] = m_document;
    m_text->setPlainText(qs(join_lines(m_document.texts())));
}

void DocumentsArea::refresh()
{
    switch (m_tabs->currentIndex()) {
    case schedule_tab:
        return refresh_schedule();
    case results_tab:
        return refresh_results();
    case player_times_tab:
        return refresh_player_times();
    case players_tab:
        return refresh_players();
    case alias_tab:
        return refresh_alias();
    case country_codes_tab:
        return refresh_country_codes();
    case draws_tab:
        return text_draws();
    }
}

// lbx_tbx_additem for every line: the list with each line's match, the text box with the lines.
void DocumentsArea::show_document(Document document, DocumentPage page)
{
    m_document = std::move(document);
    m_page = page;
    m_made[page] = m_document;
    m_list->clear();
    for (const auto& line : m_document.lines)
        add_id_line(m_list, line.text, line.sid);
    m_text->setPlainText(qs(join_lines(m_document.texts())));
}

bool DocumentsArea::save_as()
{
    if (!m_session.has_tournament())
        return false;
    const auto saved = save_document_as(m_session, m_page, m_document);
    if (saved)
        m_session.settings().set_disk_var("app.last_dir_opened", saved->parent_path().string());
    return saved.has_value();
}

bool DocumentsArea::save_all_pages()
{
    if (!m_session.has_tournament())
        return false;
    const std::vector<PageDocument> pages(m_made.begin(), m_made.end());
    const auto saved = save_all_pages_as(m_session, pages);
    if (saved)
        m_session.settings().set_disk_var("app.last_dir_opened", saved->parent_path().string());
    return saved.has_value();
}

bool DocumentsArea::print(const std::string& orientation)
{
    if (!m_session.has_tournament())
        return false;
    const auto name = std::filesystem::path(default_file_name(m_page)).stem().string();
    return print_lines(m_session, m_document.texts(), orientation, name);
}

bool DocumentsArea::save_as_pdf(const std::string& orientation)
{
    if (!m_session.has_tournament())
        return false;
    const auto name = std::filesystem::path(default_file_name(m_page)).stem().string();
    return save_lines_as_pdf(m_session, m_document.texts(), orientation, name, name + ".pdf").has_value();
}

bool DocumentsArea::view()
{
    return m_session.has_tournament() && view_document(m_session, m_page, m_document);
}

void DocumentsArea::toggle_text()
{
    m_output_stack->setCurrentIndex(m_output_stack->currentIndex() == 0 ? 1 : 0);
}

std::optional<std::int64_t> DocumentsArea::chosen_sid()
{
    const auto& words = current_sport_words(m_session);
    const auto* item = m_list->currentItem();
    const auto sid = item ? item->data(Qt::UserRole).toLongLong() : 0;
    if (sid == 0) {
        m_session.talk().message("select " + words.match);
        return std::nullopt;
    }
    if (m_session.tournament().scalar_integer("select count(*) from schedule where sid=?", sid) == 0) {
        m_session.talk().message(words.match + " not found,stale data");
        return std::nullopt;
    }
    return sid;
}

ScheduleBoardArea* DocumentsArea::board_area() const
{
    return qobject_cast<ScheduleBoardArea*>(m_main.area_page(Area::schedule));
}

void DocumentsArea::show_in_draw()
{
    if (!m_session.has_tournament() || !board_area())
        return;
    if (const auto sid = chosen_sid())
        BF_find_match_in_draw(board_area()->board(), *sid);
}

void DocumentsArea::show_in_schedule()
{
    if (!m_session.has_tournament() || !board_area())
        return;
    if (const auto sid = chosen_sid())
        board_area()->show_match(*sid);
}

void DocumentsArea::add_result()
{
    if (!m_session.has_tournament() || !board_area())
        return;
    if (const auto sid = chosen_sid())
        open_addresult(m_session, *board_area(), window(), *sid);
}

void DocumentsArea::player_details()
{
    if (!m_session.has_tournament())
        return;
    if (const auto sid = chosen_sid())
        open_player_details_by_match(m_session, *sid, window());
}

void DocumentsArea::search()
{
    if (m_search->text().trimmed().isEmpty())
        return;
    if (const auto row = next_matching_row(m_list, m_search->text().trimmed()))
        m_list->setCurrentRow(*row);
    else
        m_session.talk().beep();
}

} // namespace qv
