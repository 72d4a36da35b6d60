#include "ui/tournament_config_window.h"

#include "core/session.h"
#include "online/accounts.h"
#include "online/request_url.h"
#include "ui/qt_text.h"
#include "ui/refusal_selection.h"
#include "ui/setdatescourts_window.h"
#include "ui/tabbed_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace qv {

namespace {

// The country list shows "country (code)"; the tournament keeps the country's name.
std::string country_name(const QString& line)
{
    const auto open = line.lastIndexOf(QStringLiteral(" ("));
    return to_std(open > 0 && line.endsWith(QLatin1Char(')')) ? line.left(open) : line.trimmed());
}

void append_text(QPlainTextEdit* box, const std::string& text)
{
    QString current = box->toPlainText();
    if (!current.isEmpty() && !current.endsWith(QLatin1Char('\n')))
        current += QLatin1Char('\n');
    box->setPlainText(current + qs(text));
}

} // namespace

TournamentConfigWindow::TournamentConfigWindow(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_open_url([](const std::string& url) {
        QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(wire_url(url))));
    })
    , m_tabs(new QTabWidget(this))
    , m_name(new QLineEdit(this))
    , m_dates(new QLineEdit(this))
    , m_currency(new QLineEdit(this))
    , m_venue(new QLineEdit(this))
    , m_address(new QLineEdit(this))
    , m_country(new QComboBox(this))
    , m_surface(new QLineEdit(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("sc_tdetails"));
    setWindowTitle(QStringLiteral("tournament configuration"));

    m_tabs->addTab(details_page(), QStringLiteral("details"));
    for (auto which : tournament_texts()) {
        // The tabs are named short enough for all of them to show side by side.
        const auto caption
            = which == TournamentText::conditions ? std::string("conditions") : std::string(text_info(which).caption);
        m_tabs->addTab(text_page(which), qs(caption));
    }
    m_tabs->addTab(limits_page(), QStringLiteral("max events"));
    m_tabs->addTab(emails_page(), QStringLiteral("recovery emails"));

    lay_out_tabbed_window(this, m_tabs);
    resize(1020, 540);
    load();
}

QListWidget* TournamentConfigWindow::action_list(
    std::initializer_list<std::pair<const char*, std::function<void()>>> actions)
{
    auto* list = new QListWidget(this);
    for (const auto& [caption, action] : actions) {
        list->addItem(QString::fromLatin1(caption));
        m_actions[list][QString::fromLatin1(caption)] = action;
    }
    list->setFixedWidth(190);
    list->setMaximumHeight(list->sizeHintForRow(0) * list->count() + 2 * list->frameWidth() + 4);
    connect(
        list, &QListWidget::itemClicked, this, [this, list](QListWidgetItem* item) { run_action(list, item->text()); });
    return list;
}

void TournamentConfigWindow::run_action(QListWidget* list, const QString& caption)
{
    const auto& actions = m_actions[list];
    if (const auto found = actions.find(caption); found != actions.end())
        found->second();
}

QWidget* TournamentConfigWindow::details_page()
{
    auto* page = new QWidget(this);
    auto* tournament = new QGroupBox(QStringLiteral("tournament"), page);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("tournament name"), m_name);
    form->addRow(QStringLiteral("dates"), m_dates);
    form->addRow(QStringLiteral("currency code"), m_currency);
    const auto save_details = [this] {
        const auto refused
            = save_tournament(m_session, to_std(m_name->text()), to_std(m_dates->text()), to_std(m_currency->text()));
        if (refused)
            select_refusal(refused->field == 0 ? m_name : m_dates, refused->refusal);
    };
    const auto upload_details = [this] {
        save_tournament_online(m_session, to_std(m_name->text()), to_std(m_dates->text()), to_std(m_currency->text()));
    };
    // The days saved there become the tournament's dates, and this box shows them at once.
    const auto set_dates = [this] {
        open_setdatescourts(m_session, this, [this](const std::string& dates) { m_dates->setText(qs(dates)); });
    };
    m_details_actions = action_list(
        { { "save locally", save_details }, { "upload", upload_details }, { "set dates...", set_dates } });
    auto* row = new QHBoxLayout(tournament);
    row->addLayout(form);
    row->addWidget(m_details_actions, 0, Qt::AlignTop);

    auto* venue = new QGroupBox(QStringLiteral("venue"), page);
    auto* venue_form = new QFormLayout;
    m_country->setEditable(true);
    m_country->setInsertPolicy(QComboBox::NoInsert);
    for (const auto& line : country_lines(m_session.init_db()))
        m_country->addItem(qs(line));
    venue_form->addRow(QStringLiteral("venue"), m_venue);
    venue_form->addRow(QStringLiteral("address"), m_address);
    venue_form->addRow(QStringLiteral("country"), m_country);
    venue_form->addRow(QStringLiteral("surface"), m_surface);
    const auto save_place = [this] {
        const auto refused = save_venue(m_session, to_std(m_venue->text()), to_std(m_address->text()),
            country_name(m_country->currentText()), to_std(m_surface->text()));
        const std::array<QLineEdit*, 4> boxes { m_venue, m_address, m_country->lineEdit(), m_surface };
        if (refused)
            select_refusal(boxes.at(static_cast<std::size_t>(refused->field)), refused->refusal);
    };
    m_venue_actions = action_list({ { "save locally", save_place } });
    auto* venue_row = new QHBoxLayout(venue);
    venue_row->addLayout(venue_form);
    venue_row->addWidget(m_venue_actions, 0, Qt::AlignTop);

    for (auto* box : { m_name, m_dates, m_currency })
        connect(box, &QLineEdit::returnPressed, this, save_details);
    for (auto* box : { m_venue, m_address, m_surface })
        connect(box, &QLineEdit::returnPressed, this, save_place);

    auto* layout = new QVBoxLayout(page);
    layout->addWidget(tournament);
    layout->addWidget(venue);
    layout->addStretch();
    return page;
}

QWidget* TournamentConfigWindow::text_page(TournamentText which)
{
    auto* page = new QWidget(this);
    auto& boxes = m_texts[which];
    const auto act = [this, which](const char* caption) {
        return std::pair<const char*, std::function<void()>>(
            caption, [this, which, caption] { text_action(which, QString::fromLatin1(caption)); });
    };
    auto* layout = new QHBoxLayout(page);
    if (which == TournamentText::details) {
        m_detail_pages = new QStackedWidget(page);
        for (auto& box : boxes) {
            box = new QPlainTextEdit(page);
            m_detail_pages->addWidget(box);
        }
        layout->addWidget(m_detail_pages, 1);
        m_text_actions[which] = action_list(
            { act("page 1"), act("page 2"), act("save locally"), act("upload"), act("view"), act("clean text"),
                act("clear text"), act("add data template"), act("add data template (caps)"), act("add name/dates") });
    } else {
        boxes[0] = new QPlainTextEdit(page);
        boxes[1] = nullptr;
        layout->addWidget(boxes[0], 1);
        m_text_actions[which]
            = action_list({ act("save locally"), act("upload"), act("view"), act("clean text"), act("clear text") });
    }
    // "local" while the text is what the file holds, "online" once it went to the service.
    auto* state = new QLabel(QStringLiteral("local"), page);
    state->setObjectName(QStringLiteral("state"));
    m_text_states[which] = state;
    auto* side = new QVBoxLayout;
    side->addWidget(state);
    side->addWidget(m_text_actions[which]);
    side->addStretch();
    layout->addLayout(side);
    return page;
}

QPlainTextEdit* TournamentConfigWindow::text_box(TournamentText which, int page) const
{
    return m_texts.at(which).at(static_cast<std::size_t>(page));
}

void TournamentConfigWindow::text_action(TournamentText which, const QString& caption)
{
    auto& boxes = m_texts[which];
    const auto text_of = [&boxes](int i) { return boxes[i] ? to_std(boxes[i]->toPlainText()) : std::string(); };
    QPlainTextEdit* current = m_detail_pages && which == TournamentText::details
        ? boxes[static_cast<std::size_t>(m_detail_pages->currentIndex())]
        : boxes[0];
    if (caption == "page 1" || caption == "page 2") {
        m_detail_pages->setCurrentIndex(caption == "page 1" ? 0 : 1);
    } else if (caption == "save locally") {
        save_text_locally(m_session, which, text_of(0), text_of(1));
        m_text_states[which]->setText(QStringLiteral("local"));
    } else if (caption == "upload") {
        std::optional<FieldRefusal> refused;
        if (upload_text(m_session, which, text_of(0), text_of(1), refused))
            m_text_states[which]->setText(QStringLiteral("online"));
        else if (refused) {
            if (m_detail_pages && which == TournamentText::details)
                m_detail_pages->setCurrentIndex(refused->field);
            select_refusal(boxes[static_cast<std::size_t>(refused->field)], refused->refusal);
        }
    } else if (caption == "view") {
        if (const auto url = text_view_url(m_session, which))
            open_in_browser(m_session, *url, m_open_url);
    } else if (caption == "clean text") {
        for (auto* box : boxes)
            if (box)
                box->setPlainText(qs(remove_chars(to_std(box->toPlainText()))));
    } else if (caption == "clear text") {
        current->clear();
    } else if (caption == "add data template" || caption == "add data template (caps)") {
        TournamentDetails details;
        details.venue = to_std(m_venue->text());
        details.address = to_std(m_address->text());
        details.country = country_name(m_country->currentText());
        details.surface = to_std(m_surface->text());
        append_text(current, data_template(details, caption.endsWith(QStringLiteral("(caps)"))));
    } else if (caption == "add name/dates") {
        append_text(current, name_dates_lines(to_std(m_name->text()), to_std(m_dates->text())));
    }
}

QWidget* TournamentConfigWindow::limits_page()
{
    auto* page = new QWidget(this);
    static const std::array<const char*, 4> labels { "max events", "max events (singles)", "max events (doubles)",
        "max events (mixed)" };
    auto* local = new QGroupBox(QStringLiteral("local"), page);
    auto* local_form = new QFormLayout(local);
    auto* online = new QGroupBox(QStringLiteral("online"), page);
    auto* online_form = new QFormLayout(online);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        m_limits[i] = new QLineEdit(page);
        m_online_limits[i] = new QLineEdit(page);
        m_online_limits[i]->setReadOnly(true);
        local_form->addRow(QString::fromLatin1(labels[i]), m_limits[i]);
        online_form->addRow(QString::fromLatin1(labels[i]), m_online_limits[i]);
    }
    m_mixed_as_doubles = new QCheckBox(QStringLiteral("consider mixed events as doubles events"), page);
    m_online_mixed_as_doubles = new QCheckBox(QStringLiteral("consider mixed events as doubles events"), page);
    m_online_mixed_as_doubles->setEnabled(false);
    local_form->addRow(m_mixed_as_doubles);
    online_form->addRow(m_online_mixed_as_doubles);

    const auto select = [this](const std::optional<FieldRefusal>& refused) {
        if (refused)
            select_refusal(m_limits.at(static_cast<std::size_t>(refused->field)), refused->refusal);
    };
    const auto save = [this, select] { select(save_max_events(m_session, typed_limits())); };
    m_limit_actions = action_list({ { "save locally", save },
        { "upload",
            [this, select] {
                std::optional<FieldRefusal> refused;
                if (save_max_events_online(m_session, typed_limits(), refused)) {
                    if (const auto limits
                        = stored_online_limits(m_session.init_db(), m_session.settings().text("app.custid")))
                        show_limits(*limits, m_online_limits, m_online_mixed_as_doubles);
                }
                select(refused);
            } },
        { "refresh", [this] {
             if (const auto limits = get_online_maxevents_stuff(m_session))
                 show_limits(*limits, m_online_limits, m_online_mixed_as_doubles);
         } } });
    for (auto* box : m_limits)
        connect(box, &QLineEdit::returnPressed, this, save);

    auto* layout = new QHBoxLayout(page);
    layout->addWidget(local, 1, Qt::AlignTop);
    layout->addWidget(online, 1, Qt::AlignTop);
    layout->addWidget(m_limit_actions, 0, Qt::AlignTop);
    return page;
}

QWidget* TournamentConfigWindow::emails_page()
{
    auto* page = new QWidget(this);
    m_ccemails = new QLineEdit(page);
    m_dosend = new QCheckBox(QStringLiteral("send recovery emails"), page);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("send recovery emails to :"), m_ccemails);
    form->addRow(QString(), m_dosend);
    const auto save = [this] { save_recovery_emails(m_session, to_std(m_ccemails->text()), m_dosend->isChecked()); };
    m_email_actions = action_list({ { "save locally", save },
        { "upload", [this] { upload_recovery_emails(m_session, to_std(m_ccemails->text()), m_dosend->isChecked()); } },
        { "refresh", [this] {
             if (const auto remote = refesh_remote_state(m_session)) {
                 m_ccemails->setText(qs(remote->ccemails));
                 m_dosend->setChecked(remote->dosend);
             }
         } } });
    connect(m_ccemails, &QLineEdit::returnPressed, this, save);
    auto* layout = new QHBoxLayout(page);
    layout->addLayout(form, 1);
    layout->addWidget(m_email_actions, 0, Qt::AlignTop);
    auto* outer = new QWidget(this);
    auto* column = new QVBoxLayout(outer);
    column->addWidget(page);
    column->addStretch();
    return outer;
}

MaxEventsInput TournamentConfigWindow::typed_limits() const
{
    return { to_std(m_limits[0]->text()), to_std(m_limits[1]->text()), to_std(m_limits[2]->text()),
        to_std(m_limits[3]->text()), m_mixed_as_doubles->isChecked() };
}

void TournamentConfigWindow::show_limits(
    const MaxEventLimits& limits, std::array<QLineEdit*, 4>& boxes, QCheckBox* mixed)
{
    boxes[0]->setText(qs(limits.maxevents));
    boxes[1]->setText(qs(limits.scnti));
    boxes[2]->setText(qs(limits.dcnti));
    boxes[3]->setText(qs(limits.xcnti));
    mixed->setChecked(limits.xdcnti == "1");
}

void TournamentConfigWindow::load()
{
    const TournamentDetails d = load_tournament(m_session.tournament());
    m_name->setText(qs(d.tournament));
    m_dates->setText(qs(d.dates));
    m_currency->setText(qs(d.currencycode));
    m_venue->setText(qs(d.venue));
    m_address->setText(qs(d.address));
    const int country = m_country->findText(qs(d.country + " ("), Qt::MatchStartsWith);
    if (!d.country.empty() && country >= 0)
        m_country->setCurrentIndex(country);
    else
        m_country->setEditText(qs(d.country));
    m_surface->setText(qs(d.surface));
    m_texts[TournamentText::details][0]->setPlainText(qs(d.tdetails));
    m_texts[TournamentText::details][1]->setPlainText(qs(d.tdetails2));
    m_texts[TournamentText::entry_instructions][0]->setPlainText(qs(d.entryinstructions));
    m_texts[TournamentText::payment_instructions][0]->setPlainText(qs(d.paymentinstructions));
    m_texts[TournamentText::message_to_players][0]->setPlainText(qs(d.messagetoplayers));
    m_texts[TournamentText::conditions][0]->setPlainText(qs(d.conditions));
    show_limits(
        { d.limits.maxevents, d.limits.scnti, d.limits.dcnti, d.limits.xcnti, d.limits.mixed_as_doubles ? "1" : "0" },
        m_limits, m_mixed_as_doubles);
    if (const auto online = stored_online_limits(m_session.init_db(), m_session.settings().text("app.custid")))
        show_limits(*online, m_online_limits, m_online_mixed_as_doubles);
    m_ccemails->setText(qs(d.ccemails));
    m_dosend->setChecked(d.dosend);
}

} // namespace qv
