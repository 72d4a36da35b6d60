#include "ui/rr_draw_view.h"

#include "core/session.h"
#include "drawengine/rr_saving.h"
#include "drawengine/rr_scoring.h"
#include "drawengine/rr_screenscrape.h"
#include "ui/qt_text.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace qv {

namespace {

const QColor winner_colour(255, 255, 192);
const QColor locked_colour(230, 230, 230);

QTableWidget* new_table(QWidget* parent, const char* name, const QStringList& headers)
{
    auto* table = new QTableWidget(0, static_cast<int>(headers.size()), parent);
    table->setObjectName(QString::fromLatin1(name));
    table->setHorizontalHeaderLabels(headers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setEditTriggers(
        QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    table->verticalHeader()->setDefaultSectionSize(22);
    return table;
}

// The cell, made on first use. Its text, look and whether it takes typing are set each time.
QTableWidgetItem* put(QTableWidget* table, int row, int column, const QString& text, bool editable = false,
    const QColor& background = QColor())
{
    auto* item = table->item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        table->setItem(row, column, item);
    }
    item->setText(text);
    Qt::ItemFlags flags = Qt::ItemIsEnabled;
    if (editable)
        flags |= Qt::ItemIsEditable;
    item->setFlags(flags);
    item->setBackground(background.isValid() ? QBrush(background) : QBrush());
    return item;
}

bool screenscrape_allowed(Session& session)
{
    return session.settings().text("app.screenscrape") == "allow screenscrape";
}

int column_index(RrColumn column)
{
    return static_cast<int>(column);
}

} // namespace

RrDrawView::RrDrawView(Session& session, DrawState& draw, OpenRoundRobin& rr, Changed on_change, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_draw(draw)
    , m_rr(rr)
    , m_on_change(std::move(on_change))
    , m_drawtype(new QLabel(this))
    , m_screenscrape(new QPushButton(QStringLiteral("screen scrape"), this))
    , m_players(new_table(this, "rr_players",
          { QStringLiteral("#"), QStringLiteral("player"), QStringLiteral("country"), QStringLiteral("ar"),
              QStringLiteral("frn"), QStringLiteral("psex") }))
    , m_grid(new_table(this, "rr_grid", {}))
    , m_matches(new_table(this, "rr_matches",
          { QStringLiteral("#"), QStringLiteral("p1"), QStringLiteral("p2"), QStringLiteral("points1"),
              QStringLiteral("points2"), QStringLiteral("score") }))
    , m_standings(
          new_table(this, "rr_standings", { QStringLiteral("#"), QStringLiteral("name"), QStringLiteral("points") }))
{
    setObjectName(QStringLiteral("rr_draw"));
    m_drawtype->setObjectName(QStringLiteral("rr_drawtype"));
    m_screenscrape->setAutoDefault(false);
    m_players->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_players->verticalHeader()->hide();
    m_players->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_players->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_players->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_players->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_standings->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_matches->verticalHeader()->hide();
    m_standings->verticalHeader()->hide();
    m_matches->horizontalHeader()->setSectionResizeMode(column_index(RrColumn::top), QHeaderView::Stretch);
    m_matches->horizontalHeader()->setSectionResizeMode(column_index(RrColumn::bottom), QHeaderView::Stretch);
    m_standings->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_matches->horizontalHeader()->setSectionResizeMode(column_index(RrColumn::match), QHeaderView::ResizeToContents);
    m_standings->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);

    auto* top = new QHBoxLayout;
    top->addWidget(m_drawtype, 1);
    top->addWidget(m_screenscrape);

    auto* lists = new QHBoxLayout;
    lists->addWidget(m_matches, 3);
    lists->addWidget(m_standings, 2);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    auto* tables = new QHBoxLayout;
    tables->addWidget(m_players, 1);
    tables->addWidget(m_grid, 1);
    layout->addLayout(tables);
    layout->addLayout(lists, 1);

    connect(m_matches, &QTableWidget::cellClicked, this, &RrDrawView::cell_clicked);
    connect(m_matches, &QTableWidget::cellDoubleClicked, this, &RrDrawView::cell_double_clicked);
    connect(m_matches, &QTableWidget::itemChanged, this, &RrDrawView::cell_changed);
    connect(m_screenscrape, &QPushButton::clicked, this, &RrDrawView::screen_scrape);
    refresh();
}

QTableWidgetItem* RrDrawView::match_cell(int match, RrColumn column) const
{
    return m_matches->item(match - 1, column_index(column));
}

void RrDrawView::refresh()
{
    m_filling = true;
    m_drawtype->setText(qs(RR_set_scoring(m_draw.pts)));
    m_screenscrape->setVisible(screenscrape_allowed(m_session));
    m_screenscrape->setEnabled(!m_rr.empty());
    fill_players();
    fill_grid();
    fill_matches();
    fill_standings();
    m_filling = false;
}

void RrDrawView::fill_players()
{
    const int n = m_rr.size();
    m_players->setRowCount(n);
    for (const auto& p : m_rr.players) {
        const int row = p.number - 1;
        put(m_players, row, 0, QString::number(p.number));
        put(m_players, row, 1, qs(p.player));
        put(m_players, row, 2, qs(p.country));
        put(m_players, row, 3, qs(p.ar));
        put(m_players, row, 4, qs(p.frn));
        put(m_players, row, 5, qs(p.psex));
    }
    // As tall as the grid beside it, whose rows it names.
    m_players->setFixedHeight(m_players->horizontalHeader()->sizeHint().height()
        + n * m_players->verticalHeader()->defaultSectionSize() + 2 * m_players->frameWidth() + 4);
}

void RrDrawView::fill_grid()
{
    const int n = m_rr.size();
    QStringList headers { QStringLiteral("name") };
    for (int number = 1; number <= n; ++number)
        headers << QString::number(number);
    headers << QStringLiteral("total wins");
    m_grid->setRowCount(n);
    m_grid->setColumnCount(n + 2);
    m_grid->setHorizontalHeaderLabels(headers);
    QStringList numbers;
    for (int number = 1; number <= n; ++number) {
        numbers << QString::number(number);
        const int row = number - 1;
        put(m_grid, row, 0, qs(m_rr.player(number).frn));
        for (int other = 1; other <= n; ++other) {
            // A win shows as 1 and a loss as 0, as the written draw counts them; nobody plays himself.
            const auto cell = m_rr.cell(number, other);
            const QString text = cell == RrCell::win ? QStringLiteral("1")
                : cell == RrCell::loss               ? QStringLiteral("0")
                                                     : QString();
            auto* item = put(m_grid, row, other, text, false, other == number ? locked_colour : QColor());
            item->setTextAlignment(Qt::AlignCenter);
        }
        put(m_grid, row, n + 1, QString::number(m_rr.wins(number)))->setTextAlignment(Qt::AlignCenter);
    }
    m_grid->setVerticalHeaderLabels(numbers);
    m_grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int column = 1; column < n + 2; ++column)
        m_grid->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    // At most eight players: the grid takes the height of its rows and leaves the rest to the lists.
    m_grid->setFixedHeight(m_grid->horizontalHeader()->sizeHint().height()
        + n * m_grid->verticalHeader()->defaultSectionSize() + 2 * m_grid->frameWidth() + 4);
}

void RrDrawView::fill_matches()
{
    const auto boxes = rr_boxes(m_draw.pts);
    const QColor points_look = boxes.points_open ? QColor() : locked_colour;
    const QColor score_look = boxes.score_open ? QColor() : locked_colour;
    m_matches->setRowCount(static_cast<int>(m_rr.matches.size()));
    for (const auto& m : m_rr.matches) {
        const int row = m.number - 1;
        put(m_matches, row, column_index(RrColumn::match), QString::number(m.number));
        for (auto side : { RrWinner::top, RrWinner::bottom }) {
            const auto column = side == RrWinner::top ? RrColumn::top : RrColumn::bottom;
            auto* item = put(m_matches, row, column_index(column), qs(rr_caption(m, side)), false,
                m.winner == side ? winner_colour : QColor());
            item->setToolTip(qs(m.names(side).ttt));
        }
        put(m_matches, row, column_index(RrColumn::points1), qs(m.points1), boxes.points_open, points_look);
        put(m_matches, row, column_index(RrColumn::points2), qs(m.points2), boxes.points_open, points_look);
        put(m_matches, row, column_index(RrColumn::score), qs(m.score), boxes.score_open, score_look)
            ->setToolTip(qs(m.longscore));
    }
}

void RrDrawView::fill_standings()
{
    m_standings->setRowCount(static_cast<int>(m_rr.standings.size()));
    int row = 0;
    for (const auto& standing : m_rr.standings) {
        put(m_standings, row, 0, QString::number(row + 1));
        put(m_standings, row, 1, qs(standing.nm));
        put(m_standings, row, 2, qs(rr_points_text(standing.points)));
        ++row;
    }
}

void RrDrawView::cell_clicked(int row, int column)
{
    if (column == column_index(RrColumn::top))
        click_name(row + 1, RrWinner::top);
    else if (column == column_index(RrColumn::bottom))
        click_name(row + 1, RrWinner::bottom);
}

void RrDrawView::cell_double_clicked(int row, int column)
{
    if (column == column_index(RrColumn::score))
        emit longScoreRequested(row + 1);
}

void RrDrawView::cell_changed(QTableWidgetItem* item)
{
    if (m_filling)
        return;
    const int match = item->row() + 1;
    const int column = item->column();
    bool taken = false;
    if (column == column_index(RrColumn::points1))
        taken = type_points(match, RrWinner::top, item->text());
    else if (column == column_index(RrColumn::points2))
        taken = type_points(match, RrWinner::bottom, item->text());
    else if (column == column_index(RrColumn::score))
        taken = type_score(match, item->text());
    // A refused typing puts the box back as it was.
    if (!taken)
        refresh();
}

void RrDrawView::click_name(int match, RrWinner side)
{
    if (match < 1 || match > static_cast<int>(m_rr.matches.size()))
        return;
    rr_click_name(m_session, m_draw, m_rr, match, side);
    changed();
}

bool RrDrawView::type_points(int match, RrWinner side, const QString& text)
{
    if (!rr_type_points(m_session, m_draw, m_rr, match, side, to_std(text)))
        return false;
    changed();
    return true;
}

bool RrDrawView::type_score(int match, const QString& text)
{
    if (!rr_type_score(m_session, m_draw, m_rr, match, to_std(text)))
        return false;
    changed();
    return true;
}

void RrDrawView::set_long_score(int match, const QString& score, const QString& longscore)
{
    if (match < 1 || match > static_cast<int>(m_rr.matches.size()))
        return;
    rr_set_long_score(m_session, m_draw, m_rr, match, to_std(score), to_std(longscore));
    changed();
}

bool RrDrawView::screen_scrape()
{
    if (m_rr.empty() || !screenscrape_allowed(m_session))
        return false;
    return rr_screenscrape(m_session, m_rr);
}

void RrDrawView::changed()
{
    refresh();
    if (m_on_change)
        m_on_change();
}

} // namespace qv
