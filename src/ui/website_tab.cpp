#include "ui/website_tab.h"

#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "online/website_files.h"
#include "online/website_make.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/tournament_config_window.h"
#include "ui/window_behaviour.h"

#include <QApplication>
#include <QCheckBox>
#include <QDesktopServices>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QTabWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace qv {

namespace {

constexpr const char* part_captions[] = { "details", "draws", "alias", "schedules", "player times", "results",
    "qv4 file", "enter", "withdraw", "entries...", "players...", "message" };

constexpr const char* operation_captions[]
    = { "make website", "upload website", "copy qv4 file to archive", "tournament", "links", "view local website" };

// The label of the setting that is "1" stands out; the other is greyed.
void paint_pair_label(QLabel* label, bool on)
{
    auto font = label->font();
    font.setBold(on);
    font.setUnderline(on);
    label->setFont(font);
    label->setStyleSheet(on ? QString() : QStringLiteral("color: gray"));
}

} // namespace

void ClickLabel::mousePressEvent(QMouseEvent* event)
{
    QLabel::mousePressEvent(event);
    emit clicked();
}

WebsiteTab::WebsiteTab(Session& session, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_pages(make_website_page_tabs(session, parent))
    , m_styles(new QListWidget(this))
    , m_operations(new QListWidget(this))
    , m_local(new QListWidget(this))
    , m_size(new QLabel(this))
    , m_status(new QLabel(this))
    , m_files(new QTabWidget(this))
    , m_open_file(
          [](const std::filesystem::path& file) { QDesktopServices::openUrl(QUrl::fromLocalFile(qs_path(file))); })
{
    setObjectName(QStringLiteral("website"));
    m_styles->setObjectName(QStringLiteral("styles"));
    for (auto style : website_styles())
        m_styles->addItem(qs(style));
    m_star = new ClickLabel(QStringLiteral("*"), this);
    m_star->setToolTip(QStringLiteral("select all"));
    m_no_star = new ClickLabel(QStringLiteral(" "), this);
    m_no_star->setToolTip(QStringLiteral("unselect all"));
    m_no_star->setFrameShape(QFrame::Box);
    m_no_star->setMinimumWidth(m_star->sizeHint().width() + 6);
    auto* marks = new QHBoxLayout;
    marks->addWidget(m_star);
    marks->addWidget(m_no_star);
    marks->addStretch();
    auto* styles_box = new QGroupBox(QStringLiteral("website styles"), this);
    auto* styles_column = new QVBoxLayout(styles_box);
    styles_column->addLayout(marks);
    styles_column->addWidget(m_styles);

    m_operations->setObjectName(QStringLiteral("operations"));
    for (const char* caption : operation_captions)
        m_operations->addItem(QString::fromLatin1(caption));

    m_local->setObjectName(QStringLiteral("local files"));
    m_size->setObjectName(QStringLiteral("size"));
    m_status->setObjectName(QStringLiteral("status"));
    auto* local_page = new QWidget(this);
    auto* local_column = new QVBoxLayout(local_page);
    local_column->addWidget(m_local, 1);
    local_column->addWidget(m_size);
    m_files->addTab(local_page, QStringLiteral("local files"));

    auto* left = new QVBoxLayout;
    left->addWidget(build_parts());
    left->addWidget(styles_box, 1);
    // The operations list is as tall as its lines; what a run is making shows under it.
    m_operations->setMaximumHeight(m_operations->sizeHintForRow(0) * m_operations->count() + 6);
    m_status->setWordWrap(true);
    auto* middle = new QVBoxLayout;
    middle->addWidget(m_operations);
    middle->addWidget(m_status);
    middle->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left);
    layout->addLayout(middle, 1);
    layout->addWidget(m_files, 2);

    connect(m_styles, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { apply_style(item->text()); });
    connect(m_star, &ClickLabel::clicked, this, [this] { apply_style(QStringLiteral("select all")); });
    connect(m_no_star, &ClickLabel::clicked, this, [this] { apply_style(QStringLiteral("unselect all")); });
    connect(
        m_operations, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { run_operation(item->text()); });
}

QWidget* WebsiteTab::build_parts()
{
    auto* box = new QGroupBox(QStringLiteral("website"), this);
    auto* column = new QVBoxLayout(box);
    for (const char* caption : part_captions) {
        auto* row = new QWidget(box);
        auto* line = new QHBoxLayout(row);
        line->setContentsMargins(0, 0, 0, 0);
        auto* tick = new QCheckBox(QString::fromLatin1(caption), row);
        tick->setObjectName(QString::fromLatin1(caption));
        line->addWidget(tick);
        m_parts.push_back(tick);
        const std::string_view name = caption;
        if (name == "alias")
            add_pair(row, WebsitePair::alias, QStringLiteral("page"), QStringLiteral("pages"));
        else if (name == "entries...")
            add_pair(row, WebsitePair::entries, QStringLiteral("online"), QStringLiteral("make"));
        else if (name == "players...")
            add_pair(row, WebsitePair::players, QStringLiteral("online"), QStringLiteral("make"));
        line->addStretch();
        column->addWidget(row);
    }
    return box;
}

void WebsiteTab::add_pair(QWidget* row, WebsitePair pair, const QString& first, const QString& second)
{
    for (bool is_first : { true, false }) {
        auto* label = new ClickLabel(is_first ? first : second, row);
        label->setObjectName(is_first ? first : second);
        label->setToolTip(qs(is_first ? website_pair_keys(pair).first : website_pair_keys(pair).second));
        row->layout()->addWidget(label);
        m_pair_labels[{ static_cast<int>(pair), is_first }] = label;
        connect(label, &ClickLabel::clicked, this, [this, pair, is_first] {
            if (!m_session.booted())
                return;
            choose_website_pair(m_session.settings(), pair, is_first);
            show_pair(pair);
        });
    }
}

void WebsiteTab::show_pair(WebsitePair pair)
{
    const auto keys = website_pair_keys(pair);
    auto& settings = m_session.settings();
    paint_pair_label(pair_label(pair, true), website_setting_on(settings, keys.first));
    paint_pair_label(pair_label(pair, false), website_setting_on(settings, keys.second));
}

ClickLabel* WebsiteTab::pair_label(WebsitePair pair, bool first) const
{
    const auto found = m_pair_labels.find({ static_cast<int>(pair), first });
    return found == m_pair_labels.end() ? nullptr : found->second;
}

QCheckBox* WebsiteTab::part(const QString& caption) const
{
    for (auto* tick : m_parts)
        if (tick->objectName() == caption)
            return tick;
    return nullptr;
}

WebsiteOptions WebsiteTab::options() const
{
    WebsiteOptions options;
    bool* parts[] = { &options.parts.details, &options.parts.draws, &options.parts.alias, &options.parts.schedules,
        &options.parts.player_times, &options.parts.results, &options.parts.qv4_file, &options.parts.enter,
        &options.parts.withdraw, &options.parts.entries, &options.parts.players, &options.parts.message };
    for (std::size_t i = 0; i < m_parts.size(); ++i)
        *parts[i] = m_parts[i]->isChecked();
    options.draws = draw_options(*m_pages.draws);
    options.schedules = schedule_options(*m_pages.schedules);
    options.player_times = player_times_options(*m_pages.player_times);
    options.results = results_options(*m_pages.results);
    return options;
}

void WebsiteTab::set_options(const WebsiteOptions& options)
{
    const bool parts[] = { options.parts.details, options.parts.draws, options.parts.alias, options.parts.schedules,
        options.parts.player_times, options.parts.results, options.parts.qv4_file, options.parts.enter,
        options.parts.withdraw, options.parts.entries, options.parts.players, options.parts.message };
    for (std::size_t i = 0; i < m_parts.size(); ++i)
        m_parts[i]->setChecked(parts[i]);
    m_pages.draws->set_ticked(QStringLiteral("include next round pointer"), options.draws.next_round_pointer);
}

void WebsiteTab::apply_style(const QString& style)
{
    auto options = this->options();
    if (apply_website_style(options, to_std(style)))
        set_options(options);
}

void WebsiteTab::init()
{
    for (auto pair : { WebsitePair::entries, WebsitePair::players, WebsitePair::alias })
        show_pair(pair);
    load_local_files();
}

void WebsiteTab::clear()
{
    m_status->clear();
}

void WebsiteTab::refresh_lists(Lists which)
{
    (void)which;
}

void WebsiteTab::load_local_files()
{
    m_local->clear();
    if (!m_session.booted())
        return;
    const auto files = local_website_files(m_session.dirs().website);
    for (const auto& file : files)
        m_local->addItem(qs(file.name));
    m_size->setText(qs(format_file_size(website_size(files))));
}

bool WebsiteTab::make_website()
{
    if (!m_session.has_tournament())
        return false;
    m_status->clear();
    m_local->clear();
    m_size->clear();
    auto run = website_run_now(m_session);
    // Each step tells what it makes and lets the window repaint; the user's clicks wait for the end.
    run.step = [this](std::string_view what) {
        m_status->setText(qs(what));
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    setEnabled(false);
    const bool made = qv::make_website(m_session, options(), run);
    setEnabled(true);
    load_local_files();
    return made;
}

void WebsiteTab::view_local_website()
{
    if (!m_session.booted())
        return;
    if (const auto index = local_website_index(m_session))
        m_open_file(*index);
}

void WebsiteTab::set_remote_panel(QWidget* panel)
{
    m_files->addTab(panel, QStringLiteral("remote files"));
}

void WebsiteTab::show_local_files()
{
    m_files->setCurrentIndex(0);
}

void WebsiteTab::run_operation(const QString& caption)
{
    if (caption == QLatin1String("make website")) {
        make_website();
    } else if (caption == QLatin1String("upload website")) {
        emit uploadRequested();
    } else if (caption == QLatin1String("copy qv4 file to archive")) {
        emit copyQv4Requested();
    } else if (caption == QLatin1String("tournament")) {
        if (m_session.has_tournament())
            show_over_parent(new TournamentConfigWindow(m_session, window()));
    } else if (caption == QLatin1String("links")) {
        if (auto* main = qobject_cast<MainWindow*>(window()))
            main->open_links();
    } else if (caption == QLatin1String("view local website")) {
        view_local_website();
    }
}

} // namespace qv
