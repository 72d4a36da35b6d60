#include "ui/draw_area.h"

#include "core/session.h"
#include "documents/print_save_draws.h"
#include "drawengine/force_draw.h"
#include "drawengine/ko_progression.h"
#include "drawengine/ko_row_values.h"
#include "drawengine/name_forms.h"
#include "drawengine/replacements.h"
#include "drawengine/result_entry.h"
#include "drawengine/rr_saving.h"
#include "drawengine/rr_scoring.h"
#include "entries/filters.h"
#include "scheduling/result_places.h"
#include "ui/drawconfig_window.h"
#include "ui/events_filter_window.h"
#include "ui/force_draw_window.h"
#include "ui/id_lists.h"
#include "ui/pdf_printer.h"
#include "ui/qt_text.h"
#include "ui/replacement_windows.h"
#include "ui/rr_draw_view.h"
#include "ui/score_windows.h"
#include "ui/window_behaviour.h"

#include <QApplication>
#include <QCheckBox>
#include <QCursor>
#include <QFontMetricsF>
#include <QGraphicsPathItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyleOptionGraphicsItem>
#include <QVBoxLayout>

namespace qv {

namespace {

// The tree's geometry: a first-round line every row_height, each later level centred between its two feeders.
constexpr qreal row_height = 26;
constexpr qreal margin = 12;
constexpr qreal first_width = 220;
constexpr qreal later_width = 170;
constexpr qreal level_gap = 28;

qreal level_width(int level)
{
    return level == 1 ? first_width : later_width;
}

qreal level_x(int level)
{
    return level == 1 ? margin : margin + first_width + level_gap + (level - 2) * (later_width + level_gap);
}

// The y of the line a slot's name stands on.
qreal line_y(int level, int position)
{
    return margin + DrawSlotItem::name_height + (position - 0.5) * qreal(1 << (level - 1)) * row_height;
}

const QColor highlight_colour(255, 255, 192);
const QColor changes_colour(255, 255, 0); // 65535 as the program stores colours

} // namespace

std::string draw_area_hint(bool event_chosen)
{
    if (!event_chosen)
        return "Choose an event in the list to see its draw.";
    return "This event has no draw yet. Enter its players (tournament area, \"add to event\"), check its \"draw "
           "config\", then press \"do draw\".";
}

std::string slot_line(const OpenDraw& draw, int level, int position)
{
    if (!draw.has_slot(level, position) || draw.is_empty(level, position))
        return {};
    const auto& slot = draw.slot(level, position);
    std::string line;
    if (!slot.seed.empty())
        line += "(" + slot.seed + ") ";
    line += draw.caption(level, position);
    if (!slot.country.empty())
        line += " (" + slot.country + ")";
    return line;
}

DrawSlotItem::DrawSlotItem(DrawView& view, int level, int position, qreal width)
    : m_view(view)
    , m_level(level)
    , m_position(position)
    , m_width(width)
{
    setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton);
    setCacheMode(QGraphicsItem::DeviceCoordinateCache);
}

QRectF DrawSlotItem::name_rect() const
{
    return { 0, 0, m_width, name_height };
}

QRectF DrawSlotItem::score_rect() const
{
    return has_score_box() ? QRectF(0, name_height + 1, m_width * 0.6, score_height) : QRectF();
}

QRectF DrawSlotItem::boundingRect() const
{
    return { 0, 0, m_width, name_height + (has_score_box() ? score_height + 2 : 1) };
}

void DrawSlotItem::refresh()
{
    const auto* draw = m_view.draw();
    if (!draw || !draw->has_slot(m_level, m_position))
        return;
    const auto& slot = draw->slot(m_level, m_position);
    m_empty = draw->is_empty(m_level, m_position);
    m_text = qs(slot_line(*draw, m_level, m_position));
    QString score;
    if (has_score_box()) {
        score = qs(slot.score.matchscore);
        if (const auto shown = settsdisplay(slot.score); !shown.time.empty())
            score += (score.isEmpty() ? QString() : QStringLiteral("  ")) + qs(shown.time);
    }
    m_score = score;
    m_highlight = slot.score.highlighted;
    setToolTip(qs(slot.score.matchlongscore.empty() ? slot.ttt : slot.score.matchlongscore));
    update();
}

void DrawSlotItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const bool winner_line = m_view.draw() && m_level == m_view.draw()->levels();
    painter->setPen(QPen(Qt::black, winner_line ? 2 : 1));
    painter->drawLine(QPointF(0, name_height), QPointF(m_width, name_height));
    if (!m_empty) {
        QFont font = painter->font();
        font.setBold(winner_line);
        painter->setFont(font);
        QRectF text_rect = name_rect().adjusted(3, 0, -3, -2);
        QString line = m_text;
        // In round 1 the country stands at the right end of the line, a field of its own that a click overrides.
        if (const auto* draw = m_view.draw(); m_level == 1 && draw && !draw->slot(1, m_position).country.empty()) {
            const QString country = qs("(" + draw->slot(1, m_position).country + ")");
            painter->drawText(text_rect, Qt::AlignRight | Qt::AlignBottom, country);
            text_rect.setRight(text_rect.right() - painter->fontMetrics().horizontalAdvance(country) - 4);
            line.chop(country.size() + 1);
        }
        const QString text = painter->fontMetrics().elidedText(line, Qt::ElideRight, int(text_rect.width()));
        painter->drawText(text_rect, Qt::AlignLeft | Qt::AlignBottom, text);
    }
    if (has_score_box()) {
        const QRectF box = score_rect();
        painter->setPen(QColor(190, 190, 190));
        painter->setBrush(m_highlight ? highlight_colour : QColor(Qt::white));
        painter->drawRect(box);
        painter->setPen(QColor(60, 60, 60));
        QFont font = painter->font();
        font.setBold(false);
        font.setPointSizeF(font.pointSizeF() * 0.85);
        painter->setFont(font);
        painter->drawText(box.adjusted(3, 0, -2, 0), Qt::AlignLeft | Qt::AlignVCenter, m_score);
    }
}

void DrawSlotItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::LeftButton && score_rect().contains(event->pos())) {
        m_view.edit_score(m_level, m_position);
        return;
    }
    // A right click on a score box asks for the long score.
    if (event->button() == Qt::RightButton && score_rect().contains(event->pos())) {
        m_view.long_score(m_level, m_position);
        return;
    }
    if (event->button() == Qt::LeftButton) {
        if (const auto field = field_at(event->pos().x())) {
            m_view.field_clicked(m_position, *field);
            return;
        }
        m_view.clicked(m_level, m_position, left_button);
    } else if (event->button() == Qt::RightButton)
        m_view.clicked(m_level, m_position, right_button);
}

std::optional<SlotField> DrawSlotItem::field_at(qreal x) const
{
    const auto* draw = m_view.draw();
    if (m_level != 1 || !draw || m_empty)
        return std::nullopt;
    // The seed opens the line 3 in from the item's left edge; the country ends it 3 in from the right.
    const auto& slot = draw->slot(m_level, m_position);
    const QFontMetricsF metrics(scene() ? scene()->font() : QFont());
    const qreal at = x - 3;
    if (!slot.seed.empty() && at >= 0 && at < metrics.horizontalAdvance(qs("(" + slot.seed + ")")))
        return SlotField::seed;
    if (!slot.country.empty() && x >= m_width - 3 - metrics.horizontalAdvance(qs("(" + slot.country + ")")))
        return SlotField::country;
    return std::nullopt;
}

DrawView::DrawView(QWidget* parent)
    : QGraphicsView(parent)
{
    setScene(new QGraphicsScene(this));
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setBackgroundBrush(Qt::white);
    setRenderHint(QPainter::TextAntialiasing);
    setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
    m_editor = new QLineEdit(viewport());
    m_editor->setObjectName(QStringLiteral("score_editor"));
    m_editor->hide();
    m_editor->installEventFilter(this);
    connect(m_editor, &QLineEdit::editingFinished, this, &DrawView::commit_score);
}

bool DrawView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_editor && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        m_editor->hide();
        return true;
    }
    return QGraphicsView::eventFilter(watched, event);
}

void DrawView::set_long_score_handler(Click on_long_score)
{
    m_on_long_score = std::move(on_long_score);
}

void DrawView::long_score(int level, int position)
{
    if (m_on_long_score)
        m_on_long_score(level, position, right_button);
}

void DrawView::set_handlers(Click on_click, Score on_score)
{
    m_on_click = std::move(on_click);
    m_on_score = std::move(on_score);
}

void DrawView::clear_draw()
{
    m_editor->hide();
    scene()->clear();
    m_items.clear();
    m_lines = nullptr;
    m_draw = nullptr;
    m_drawsize = 0;
}

void DrawView::show_draw(const OpenDraw& draw)
{
    if (m_draw != &draw || m_drawsize != draw.draw.drawsize || int(m_items.size()) != draw.levels())
        build(draw);
    refresh();
}

void DrawView::build(const OpenDraw& draw)
{
    clear_draw();
    m_draw = &draw;
    m_drawsize = draw.draw.drawsize;
    QPainterPath path;
    for (int level = 1; level <= draw.levels(); ++level) {
        auto& items = m_items.emplace_back();
        for (int position = 1; position <= draw.positions(level); ++position) {
            auto* item = new DrawSlotItem(*this, level, position, level_width(level));
            item->setPos(level_x(level), line_y(level, position) - DrawSlotItem::name_height);
            scene()->addItem(item);
            items.push_back(item);
            // The bracket from a match's two lines to the line its winner goes to.
            if (level > 1) {
                const qreal right = level_x(level - 1) + level_width(level - 1);
                const qreal middle = right + level_gap / 2;
                const qreal top = line_y(level - 1, 2 * position - 1);
                const qreal bottom = line_y(level - 1, 2 * position);
                path.moveTo(right, top);
                path.lineTo(middle, top);
                path.lineTo(middle, bottom);
                path.lineTo(right, bottom);
                path.moveTo(middle, line_y(level, position));
                path.lineTo(level_x(level), line_y(level, position));
            }
        }
    }
    m_lines = scene()->addPath(path, QPen(QColor(90, 90, 90)));
    const qreal width = level_x(draw.levels()) + level_width(draw.levels()) + margin;
    const qreal height = line_y(1, draw.draw.drawsize) + DrawSlotItem::score_height + margin;
    scene()->setSceneRect(0, 0, width, height);
}

void DrawView::refresh()
{
    for (auto& level : m_items)
        for (auto* item : level)
            item->refresh();
}

DrawSlotItem* DrawView::slot_item(int level, int position) const
{
    if (level < 1 || level > int(m_items.size()))
        return nullptr;
    const auto& items = m_items[std::size_t(level - 1)];
    if (position < 1 || position > int(items.size()))
        return nullptr;
    return items[std::size_t(position - 1)];
}

int DrawView::item_count() const
{
    std::size_t count = 0;
    for (const auto& level : m_items)
        count += level.size();
    return static_cast<int>(count);
}

void DrawView::clicked(int level, int position, int button)
{
    if (m_on_click)
        m_on_click(level, position, button);
}

void DrawView::field_clicked(int position, SlotField field)
{
    if (m_on_field)
        m_on_field(position, field);
}

void DrawView::edit_score(int level, int position)
{
    auto* item = slot_item(level, position);
    if (!item || !item->has_score_box() || !m_draw)
        return;
    m_editing = { level, position };
    const QRect box = mapFromScene(item->mapRectToScene(item->score_rect())).boundingRect();
    m_editor->setGeometry(box.x(), box.y() - 2, std::max(box.width(), 90), box.height() + 4);
    m_editor->setText(qs(m_draw->slot(level, position).score.matchscore));
    m_editor->show();
    m_editor->setFocus();
    m_editor->selectAll();
}

void DrawView::commit_score()
{
    // Hiding the editor takes its focus away, which finishes the edit a second time.
    if (m_editor->isHidden())
        return;
    m_editor->hide();
    if (m_on_score)
        m_on_score(m_editing.level, m_editing.position, m_editor->text());
}

DrawArea::DrawArea(Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_random(std::make_unique<SeededDrawRandom>())
    , m_events(new QListWidget(this))
    , m_filter_tag(new QLabel(this))
    , m_heading(new QLabel(this))
    , m_timestamp(new QLabel(this))
    , m_pages(new QStackedWidget(this))
    , m_hint(new QLabel(this))
    , m_view(new DrawView(this))
    , m_rr_view(new RrDrawView(
          session, m_open.draw, m_rr,
          [this] {
              show_state();
              results_changed(event_sids(m_session.tournament(), m_open.draw.curr_eid));
          },
          this))
    , m_save_as_u_go(new QCheckBox(QStringLiteral("save as u go"), this))
    , m_save_no_prompt(new QCheckBox(QStringLiteral("save no prompt"), this))
    , m_save(nullptr)
{
    setObjectName(QStringLiteral("draw"));
    m_events->setObjectName(QStringLiteral("draw_events"));
    m_filter_tag->setWordWrap(true);
    // A wrapped label in the narrow side column gets no height for its width: room for the filter's four lines.
    m_filter_tag->setMinimumHeight(4 * m_filter_tag->fontMetrics().lineSpacing());
    m_filter_tag->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_heading->setObjectName(QStringLiteral("draw_heading"));
    QFont heading_font = m_heading->font();
    heading_font.setBold(true);
    m_heading->setFont(heading_font);

    auto* left = new QVBoxLayout;
    left->addWidget(m_events, 1);
    left->addWidget(m_filter_tag);
    for (const char* caption : { "do draw", "save draw", "rollback to last save", "byes thru", "do all draws",
             "delete draw", "draw config", "add result", "force draw config", "force draw", "save as PDF" }) {
        auto* button = new QPushButton(QString::fromLatin1(caption), this);
        button->setAutoDefault(false);
        left->addWidget(button);
    }
    left->addWidget(m_save_as_u_go);
    left->addWidget(m_save_no_prompt);
    m_save = button(QStringLiteral("save draw"));

    auto* right = new QVBoxLayout;
    right->addWidget(m_heading);
    right->addWidget(m_timestamp);
    m_hint->setObjectName(QStringLiteral("draw_hint"));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_pages->addWidget(m_hint);
    m_pages->addWidget(m_view);
    m_pages->addWidget(m_rr_view);
    right->addWidget(m_pages, 1);

    auto* layout = new QHBoxLayout(this);
    auto* side = new QWidget(this);
    side->setLayout(left);
    side->setFixedWidth(230);
    layout->addWidget(side);
    layout->addLayout(right, 1);

    m_hooks.busy = [](bool on) {
        if (on)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    };
    m_hooks.show_draw = [this](OpenDraw&) { show_draw(); };
    // A round robin keeps its match lines beside the tree's state record; its save steps work on them.
    m_hooks.validate_rr = [this](OpenDraw&) { return qv::validate_rr(m_session.talk(), m_rr); };
    m_hooks.add_draw_stub_RR
        = [this](OpenDraw& open) { qv::add_draw_stub_RR(m_session.tournament(), open.draw, m_rr); };
    m_hooks.RR_savecontrols = [this](OpenDraw& open) { qv::RR_savecontrols(m_session.tournament(), open.draw, m_rr); };
    m_hooks.RR_copy_over = [this](OpenDraw& open) { qv::RR_copy_over(m_session.tournament(), open.draw.curr_eid); };
    m_hooks.RR_loadroundsdata
        = [this](OpenDraw& open) { qv::RR_loadroundsdata(m_session.tournament(), open.draw, m_rr); };
    m_hooks.force_draw_fix_players
        = [this](OpenDraw& open) { qv::force_draw_fix_players(m_session.tournament(), open.draw.curr_eid); };
    m_view->set_handlers([this](int level, int position, int button) { click_slot(level, position, button); },
        [this](int level, int position, const QString& text) { set_score(level, position, text); });
    m_view->set_field_handler([this](int position, SlotField field) { field_click(position, field); });
    connect(this, &DrawArea::firstRoundMenuRequested, this, [this](int position) {
        if (auto* menu = first_round_menu(position))
            menu->popup(QCursor::pos());
    });

    m_view->set_long_score_handler([this](int level, int position, int) { long_score(level, position); });
    connect(m_rr_view, &RrDrawView::longScoreRequested, this, &DrawArea::rr_long_score);
    connect(m_events, &QListWidget::itemClicked, this, &DrawArea::event_clicked);
    connect(m_events, &QListWidget::itemActivated, this, &DrawArea::event_clicked);
    connect(button(QStringLiteral("do draw")), &QPushButton::clicked, this, &DrawArea::do_draw);
    connect(m_save, &QPushButton::clicked, this, &DrawArea::save_draw);
    connect(button(QStringLiteral("rollback to last save")), &QPushButton::clicked, this, &DrawArea::rollback);
    connect(button(QStringLiteral("byes thru")), &QPushButton::clicked, this, &DrawArea::byes_thru);
    connect(button(QStringLiteral("do all draws")), &QPushButton::clicked, this, &DrawArea::do_all_draws);
    connect(button(QStringLiteral("delete draw")), &QPushButton::clicked, this, &DrawArea::delete_draw);
    connect(button(QStringLiteral("draw config")), &QPushButton::clicked, this, &DrawArea::open_drawconfig);
    connect(
        button(QStringLiteral("force draw config")), &QPushButton::clicked, this, &DrawArea::open_force_draw_config);
    connect(button(QStringLiteral("force draw")), &QPushButton::clicked, this, &DrawArea::force_draw);
    connect(button(QStringLiteral("add result")), &QPushButton::clicked, this,
        [this] { emit resultRequested(m_last_sid); });
    connect(button(QStringLiteral("save as PDF")), &QPushButton::clicked, this, [this] {
        if (m_open.draw.curr_eid == 0)
            m_session.talk().message("select event");
        else
            draw_save_pdf(m_session, m_open.draw.curr_eid, pdf_printer);
    });
    connect(m_save_as_u_go, &QCheckBox::toggled, this,
        [this](bool on) { setting_toggled(m_save_as_u_go, "draw.isaveasugo", on); });
    connect(m_save_no_prompt, &QCheckBox::toggled, this,
        [this](bool on) { setting_toggled(m_save_no_prompt, "draw.iautosavechanges", on); });
}

DrawArea::~DrawArea()
{
    // The views point at the open draw, which goes before the area's children.
    m_view->clear_draw();
    delete m_rr_view;
}

QPushButton* DrawArea::button(const QString& caption) const
{
    for (auto* button : findChildren<QPushButton*>())
        if (button->text() == caption)
            return button;
    return nullptr;
}

QWidget* DrawArea::current_page() const
{
    return m_pages->currentWidget();
}

bool DrawArea::save_button_marked() const
{
    return m_save->property("changes").toBool();
}

void DrawArea::init()
{
    m_view->clear_draw();
    m_open = OpenDraw {};
    m_rr.clear();
    m_last_sid = 0;
    load_settings();
    reload_events();
    show_draw();
}

void DrawArea::clear()
{
    if (m_drawconfig)
        m_drawconfig->close();
    m_view->clear_draw();
    m_open = OpenDraw {};
    m_rr.clear();
    m_last_sid = 0;
    m_events->clear();
    m_filter_tag->clear();
    show_state();
}

bool DrawArea::leave_draw()
{
    return leave_draw(leave_reason_from_word(m_session.switch_word()).value_or(LeaveReason::closingdraws));
}

bool DrawArea::leave_draw(LeaveReason reason)
{
    const bool leaving = qv::leave_draw(m_session, m_open, reason, m_hooks);
    show_draw();
    return leaving;
}

void DrawArea::refresh_on_entry()
{
    if (m_open.draw.curr_eid != 0 && m_open.draw.on_screen)
        BF_refresh_draw(m_session, m_open, m_hooks);
    recount_changes();
    load_settings();
    show_draw();
}

void DrawArea::load_settings()
{
    for (auto [box, key] :
        { std::pair { m_save_as_u_go, "draw.isaveasugo" }, std::pair { m_save_no_prompt, "draw.iautosavechanges" } }) {
        box->blockSignals(true);
        box->setChecked(m_session.settings().integer(key) == 1);
        box->blockSignals(false);
    }
}

void DrawArea::setting_toggled(QCheckBox* box, const char* key, bool on)
{
    if (set_draw_save_setting(m_session, m_open, key, on))
        return;
    box->blockSignals(true);
    box->setChecked(!on);
    box->blockSignals(false);
}

void DrawArea::reload_events()
{
    const auto filter = load_event_filter(m_session.settings(), filter_keys::draw_events);
    m_filter_tag->setText(qs(disp_tag(filter)));
    m_events->clear();
    m_events->addItem(qs(set_filter_line));
    for (const auto& line : filtered_events(m_session.tournament(), filter))
        add_id_line(m_events, line.text, line.id);
    select_event_line(m_open.draw.curr_eid);
}

void DrawArea::select_event_line(std::int64_t eid)
{
    m_events->blockSignals(true);
    m_events->clearSelection();
    for (int row = 1; row < m_events->count(); ++row)
        if (m_events->item(row)->data(Qt::UserRole).toLongLong() == eid) {
            m_events->setCurrentRow(row);
            break;
        }
    m_events->blockSignals(false);
}

void DrawArea::event_clicked(QListWidgetItem* item)
{
    if (m_events->row(item) == 0) {
        set_filter();
        select_event_line(m_open.draw.curr_eid);
        return;
    }
    choose_event(item->data(Qt::UserRole).toLongLong());
}

QWidget* DrawArea::set_filter()
{
    auto* window = new EventsFilterWindow(
        m_session, std::string(filter_keys::draw_events), [this](const EventFilter&) { reload_events(); }, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    return window;
}

bool DrawArea::choose_event(qint64 eid)
{
    if (eid == m_open.draw.curr_eid && (m_open.draw.on_screen || eid == 0))
        return true;
    if (!qv::leave_draw(m_session, m_open, LeaveReason::switchingdraws, m_hooks)) {
        select_event_line(m_open.draw.curr_eid);
        return false;
    }
    m_view->clear_draw();
    // An event without rows in schedule reads no match lines: the last event's must not stay.
    m_rr.clear();
    BF_load_draw(m_session, m_open, eid, m_hooks);
    recount_changes();
    select_event_line(eid);
    show_draw();
    return true;
}

DrawHooks DrawArea::draw_hooks()
{
    DrawHooks hooks;
    hooks.set_scoreboxes = [](OpenDraw& draw, bool highlight) { set_scoreboxes(draw, highlight); };
    hooks.sendbyesthru = [this](OpenDraw& draw) { sendbyesthru(m_session, draw); };
    hooks.show_draw = [this](OpenDraw&) { show_draw(); };
    hooks.round_robin = [this](OpenDraw& open) { RR_do_draw(m_session, open.draw, m_rr); };
    return hooks;
}

void DrawArea::do_draw()
{
    // The chosen event must also be the line selected in the list: a filter may have taken its line away.
    const auto* line = m_events->currentItem();
    if (m_open.draw.curr_eid == 0 || !line || !line->isSelected() || m_events->row(line) == 0
        || line->data(Qt::UserRole).toLongLong() != m_open.draw.curr_eid)
        return;
    DODRAW(m_session, m_open, *m_random, draw_hooks());
    show_draw();
    reload_events();
}

void DrawArea::save_draw()
{
    qv::save_draw(m_session, m_open, m_hooks);
    recount_changes();
    show_draw();
    reload_events();
}

void DrawArea::rollback()
{
    BF_rollback_draw(m_session, m_open, m_hooks);
    recount_changes();
    show_draw();
}

void DrawArea::byes_thru()
{
    sendbyesthru(m_session, m_open);
    show_draw();
}

void DrawArea::do_all_draws()
{
    AllDrawsSteps steps;
    steps.close_draw
        = [this](OpenDraw& draw) { return qv::leave_draw(m_session, draw, LeaveReason::closingdraws, m_hooks); };
    steps.event_lines = [this] {
        std::vector<ListLine> lines;
        for (int row = 1; row < m_events->count(); ++row)
            lines.push_back(
                { to_std(m_events->item(row)->text()), m_events->item(row)->data(Qt::UserRole).toLongLong() });
        return lines;
    };
    steps.load_draw = [this](OpenDraw& draw, std::int64_t eid) {
        select_event_line(eid);
        m_view->clear_draw();
        m_rr.clear();
        BF_load_draw(m_session, draw, eid, m_hooks);
    };
    steps.breathe = [] { QCoreApplication::processEvents(); };
    steps.save_draw_doing_all_draws = [this](OpenDraw& draw) {
        qv::save_draw(m_session, draw, m_hooks, SaveRefresh::doing_all_draws);
        return true;
    };
    // The last event's draw is put away; it has just been saved.
    steps.close_draw_special = [this](OpenDraw& draw) {
        m_view->clear_draw();
        draw.clear_tree();
        m_rr.clear();
        draw.draw.on_screen = false;
        draw.draw.new_draw = false;
        draw.draw.changes_waiting = false;
    };
    steps.save_draw_END_doing_all_draws = [this](OpenDraw&) { qv::save_draw_END_doing_all_draws(m_session, m_hooks); };
    m_view->clear_draw();
    // The run lets the event loop breathe between events: no other button may start meanwhile.
    setEnabled(false);
    qv::do_all_draws(m_session, m_open, *m_random, draw_hooks(), steps);
    setEnabled(true);
    show_draw();
    reload_events();
}

ForceDrawWindow* DrawArea::open_force_draw_config()
{
    if (m_open.draw.curr_eid == 0)
        return nullptr;
    auto* window = new ForceDrawWindow(m_session, m_open.draw.curr_eid, m_open.draw.eventname, this);
    show_over_parent(window);
    return window;
}

void DrawArea::force_draw()
{
    // As "do draw": the chosen event must be the line selected in the list.
    const auto* line = m_events->currentItem();
    if (m_open.draw.curr_eid == 0 || !line || !line->isSelected() || m_events->row(line) == 0
        || line->data(Qt::UserRole).toLongLong() != m_open.draw.curr_eid)
        return;
    FORCEDRAW(m_session, m_open, draw_hooks());
    show_draw();
    reload_events();
}

void DrawArea::delete_draw()
{
    if (!RR_KO_delete_draw(m_session, m_open))
        return;
    if (!m_open.draw.on_screen)
        m_rr.clear();
    show_draw();
    reload_events();
}

DrawConfigWindow* DrawArea::open_drawconfig()
{
    const auto eid = m_open.draw.curr_eid;
    if (eid == 0)
        return nullptr;
    if (m_drawconfig)
        m_drawconfig->close();
    m_drawconfig = qv::open_drawconfig(m_session, eid, drawconfig_hooks(), this);
    connect(m_drawconfig, &DrawConfigWindow::playerDetailsRequested, this, &DrawArea::playerDetailsRequested);
    return m_drawconfig;
}

DrawConfigHooks DrawArea::drawconfig_hooks()
{
    // The window may be opened from another area and outlive this one.
    QPointer<DrawArea> self(this);
    DrawConfigHooks hooks;
    hooks.drawconfig_change = [self](std::int64_t changed, const std::string& drawtype, int pts) {
        if (!self || changed != self->m_open.draw.curr_eid)
            return;
        self->m_open.draw.drawtype = drawtype;
        self->m_open.draw.pts = pts;
    };
    hooks.draw_in_progress = [self](std::int64_t of) {
        return self && of == self->m_open.draw.curr_eid && self->m_open.draw.on_screen && self->m_open.draw.new_draw;
    };
    return hooks;
}

void DrawArea::click_slot(int level, int position, int button)
{
    if (!m_open.draw.on_screen || !m_open.has_slot(level, position))
        return;
    m_last_sid = m_open.slot(level, position).sid;
    const auto result = master_click(m_session, m_open, level, position, button);
    if (result.outcome == ClickOutcome::first_round_menu)
        emit firstRoundMenuRequested(position);
    else
        results_changed(changed_matches(m_open, level, position));
    show_draw();
}

QMenu* DrawArea::first_round_menu(int position)
{
    const auto lines = r1_rmc(m_open, position);
    if (!m_open.draw.on_screen || lines.empty())
        return nullptr;
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("r1_rmc"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& line : lines) {
        const auto caption = qs(line);
        // The choice runs once the menu has closed, so that its windows and questions stand on their own.
        menu->addAction(caption, this, [this, position, caption] {
            QMetaObject::invokeMethod(
                this, [this, position, caption] { r1_choice(position, caption); }, Qt::QueuedConnection);
        });
    }
    return menu;
}

void DrawArea::r1_choice(int position, const QString& line)
{
    if (!m_open.draw.on_screen || !m_open.has_slot(1, position))
        return;
    const auto word = to_std(line);
    if (word == "set as bye" || word == "set as wildcard" || word == "set as qualifier") {
        set_as_bye(m_session, m_open, position, word.substr(7), m_hooks);
    } else if (word == "replace") {
        if (!r1_change_allowed(m_session, m_open, position, m_hooks))
            return show_draw();
        auto* window = new ReplacementsWindow(
            m_open.slot(1, position).ttt, event_reserves(m_session.tournament(), m_open.draw.curr_eid),
            [this, position](const std::string& name) {
                const bool done = REP_replace_player_or_team1(m_session, m_open, name, position, m_hooks);
                show_draw();
                return done;
            },
            this);
        open_r1_window(window);
    } else if (word == "overide name") {
        if (!r1_change_allowed(m_session, m_open, position, m_hooks))
            return show_draw();
        const auto& slot = m_open.slot(1, position);
        auto* window = new SlotFieldsWindow(
            "overide_names", "overide names", slot.ttt,
            { { "first round name", slot.frn, int(frn_limit) }, { "sub round name", slot.tag, int(tag_limit) } },
            [this, position](const std::vector<std::string>& values) {
                const bool done = overidenames(m_session, m_open, position, values[0], values[1], m_hooks);
                show_draw();
                return done;
            },
            this);
        open_r1_window(window);
    }
    show_draw();
}

void DrawArea::field_click(int position, SlotField field)
{
    if (!m_open.draw.on_screen || !m_open.has_slot(1, position))
        return;
    const auto& slot = m_open.slot(1, position);
    auto done = [this](bool changed) {
        show_draw();
        return changed;
    };
    QDialog* window = nullptr;
    if (field == SlotField::seed) {
        window = new SlotFieldsWindow(
            "override_seeding", "override seeding", slot.ttt, { { "seed", slot.seed, 3 } },
            [this, position, done](const std::vector<std::string>& values) {
                return done(override_seeding(m_session, m_open, position, values[0], m_hooks));
            },
            this);
    } else if (m_open.draw.singdobs != "doubles") {
        window = new SlotFieldsWindow(
            "overidecountry_singles", "overide country", slot.ttt, { { "country", slot.country, 3 } },
            [this, position, done](const std::vector<std::string>& values) {
                return done(overidecountry_singles(m_session, m_open, position, values[0], m_hooks));
            },
            this);
    } else {
        const auto people = split_people(slot.ttt);
        const auto auto_codes = split_people(slot.country);
        window = new SlotFieldsWindow(
            "overidecountry_doubles", "overide country", slot.ttt,
            { { people.first, auto_codes.first, 3 }, { people.second, auto_codes.second, 3 } },
            [this, position, done](const std::vector<std::string>& values) {
                return done(overidecountry_doubles(m_session, m_open, position, values[0], values[1], m_hooks));
            },
            this);
    }
    open_r1_window(window);
}

void DrawArea::open_r1_window(QDialog* window)
{
    if (m_r1_window)
        m_r1_window->close();
    m_r1_window = window;
    show_over_parent(window);
}

void DrawArea::set_score(int level, int position, const QString& text)
{
    if (!m_open.draw.on_screen || level < 2 || !m_open.has_slot(level, position))
        return;
    m_open.slot(level, position).score.matchscore = filter_text(to_std(text));
    KO_imm_save(m_session, m_open, level - 1, 2 * position - 1);
    results_changed(changed_matches(m_open, level - 1, 2 * position - 1));
    show_draw();
}

void DrawArea::long_score(int level, int position)
{
    if (!m_open.draw.on_screen || m_open.draw.drawtype == "rr")
        return;
    const auto request = add_ls(m_open, level, position);
    if (!request)
        return;
    const auto& box = m_open.slot(level, position).score;
    open_addlongscore(
        m_session, qs(request->top), qs(request->bottom), qs(box.matchscore), qs(box.matchlongscore),
        [this, level, position](const QString& score, const QString& longscore) {
            if (!m_open.draw.on_screen || !m_open.has_slot(level, position))
                return;
            auto& box = m_open.slot(level, position).score;
            box.matchscore = filter_text(to_std(score));
            box.matchlongscore = filter_text(to_std(longscore));
            KO_imm_save(m_session, m_open, level - 1, 2 * position - 1);
            results_changed(changed_matches(m_open, level - 1, 2 * position - 1));
            show_draw();
        },
        window());
}

void DrawArea::rr_long_score(int match)
{
    if (!m_open.draw.on_screen || m_open.draw.drawtype != "rr" || match < 1
        || match > static_cast<int>(m_rr.matches.size()))
        return;
    const auto& line = m_rr.match(match);
    open_addlongscore(
        m_session, qs(line.top_names.frn), qs(line.bottom_names.frn), qs(line.score), qs(line.longscore),
        [this, match](const QString& score, const QString& longscore) {
            if (m_open.draw.on_screen && m_open.draw.drawtype == "rr")
                m_rr_view->set_long_score(match, score, longscore);
            show_state();
        },
        window());
}

void DrawArea::results_changed(const std::vector<std::int64_t>& sids)
{
    if (m_session.settings().integer("draw.isaveasugo") != 1 || !m_hooks.board.renumber || sids.empty())
        return;
    if (const auto places = match_places(m_session.tournament(), sids); !places.empty())
        m_hooks.board.renumber(places);
}

void DrawArea::recount_changes()
{
    if (m_open.draw.on_screen && !m_open.draw.new_draw)
        set_changed_recs(m_session.tournament(), m_open);
}

void DrawArea::show_draw()
{
    const bool rr = m_open.draw.on_screen && m_open.draw.drawtype == "rr";
    const bool tree = m_open.draw.on_screen && m_open.levels() > 0 && !rr;
    if (tree)
        m_view->show_draw(m_open);
    else
        m_view->clear_draw();
    if (rr)
        m_rr_view->refresh();
    m_hint->setText(qs(draw_area_hint(m_open.draw.curr_eid != 0)));
    m_pages->setCurrentWidget(rr ? static_cast<QWidget*>(m_rr_view) : tree ? static_cast<QWidget*>(m_view) : m_hint);
    show_state();
}

void DrawArea::show_state()
{
    const auto& draw = m_open.draw;
    QString heading;
    if (draw.curr_eid != 0) {
        heading = qs(draw.eventname);
        if (draw.on_screen && draw.drawsize > 0)
            heading += QStringLiteral("   drawsize ") + QString::number(draw.drawsize);
    }
    m_heading->setText(heading);
    m_timestamp->setText(draw.on_screen && !draw.new_draw ? qs(draw.timestamp_text) : QString());
    const bool changes = draw.on_screen && check_for_changes(m_open);
    m_save->setProperty("changes", changes);
    m_save->setStyleSheet(changes ? QStringLiteral("background-color: %1").arg(changes_colour.name()) : QString());
}

} // namespace qv
