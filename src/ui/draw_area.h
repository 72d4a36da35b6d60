#pragma once

#include "drawengine/draw_random.h"
#include "drawengine/draw_saving.h"
#include "drawengine/drawconfig.h"
#include "drawengine/ko_generation.h"
#include "drawengine/open_draw.h"
#include "drawengine/rr_draw.h"

#include <QGraphicsItem>
#include <QGraphicsView>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QCheckBox;
class QDialog;
class QGraphicsPathItem;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QPushButton;
class QStackedWidget;

namespace qv {

class DrawConfigWindow;
class ForceDrawWindow;
class DrawView;
class RrDrawView;
class Session;

// What the draw area says where no draw is open: choose an event, or how its draw is made.
std::string draw_area_hint(bool event_chosen);

// The line a slot shows: the seed in brackets, the name on show and the country in brackets,
// "(1) bob jones (ENG)"; empty for an empty slot.
std::string slot_line(const OpenDraw& draw, int level, int position);

// The parts of a first-round line that a left click overrides rather than sends on.
enum class SlotField { seed, country };

// One slot of the tree: its name line and, from level 2 on, the score box of the match whose winner it holds.
class DrawSlotItem : public QGraphicsItem
{
public:
    static constexpr qreal name_height = 22;
    static constexpr qreal score_height = 16;

    DrawSlotItem(DrawView& view, int level, int position, qreal width);

    int level() const { return m_level; }
    int position() const { return m_position; }
    // The name line and the score box in the item's coordinates.
    QRectF name_rect() const;
    QRectF score_rect() const;
    bool has_score_box() const { return m_level > 1; }
    // Takes the slot's texts again from the open draw.
    void refresh();

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    // The seed or the country of a first-round line under the x of a click, if either is there.
    std::optional<SlotField> field_at(qreal x) const;

    DrawView& m_view;
    int m_level;
    int m_position;
    qreal m_width;
    QString m_text;
    QString m_score;
    bool m_highlight = false;
    bool m_empty = true;
};

// The tree of the open draw, level by level from left to right, one item per slot. A click on a name goes to
// on_click; a click on a score box opens one line editor over it, whose text goes to on_score.
class DrawView : public QGraphicsView
{
    Q_OBJECT

public:
    using Click = std::function<void(int level, int position, int button)>;
    using Score = std::function<void(int level, int position, const QString& text)>;
    using FieldClick = std::function<void(int position, SlotField field)>;

    explicit DrawView(QWidget* parent = nullptr);

    void set_handlers(Click on_click, Score on_score);
    void set_field_handler(FieldClick on_field) { m_on_field = std::move(on_field); }
    // A right click on a score box: the long score of its match is wanted.
    void set_long_score_handler(Click on_long_score);
    void long_score(int level, int position);
    // Builds the items for the draw's tree, or only refreshes their texts when the tree has the same shape.
    void show_draw(const OpenDraw& draw);
    void refresh();
    void clear_draw();

    const OpenDraw* draw() const { return m_draw; }
    DrawSlotItem* slot_item(int level, int position) const;
    // The slot items on show.
    int item_count() const;
    QLineEdit* score_editor() const { return m_editor; }
    // Opens the score editor over the slot's score box.
    void edit_score(int level, int position);

    void clicked(int level, int position, int button);
    void field_clicked(int position, SlotField field);

protected:
    // Escape in the score editor drops the typed text.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build(const OpenDraw& draw);
    void commit_score();

    const OpenDraw* m_draw = nullptr;
    int m_drawsize = 0;
    std::vector<std::vector<DrawSlotItem*>> m_items;
    QGraphicsPathItem* m_lines = nullptr;
    QLineEdit* m_editor = nullptr;
    SlotAddress m_editing;
    Click m_on_click;
    Score m_on_score;
    FieldClick m_on_field;
    Click m_on_long_score;
};

// The draw area: the list of events (filtered by draw_events_filter), the open draw of the chosen event and the
// operations on it. Each button calls one operation of the draw engine on the open draw and shows it again.
class DrawArea : public QWidget
{
    Q_OBJECT

public:
    DrawArea(Session& session, QWidget* parent = nullptr);
    ~DrawArea() override;

    // Reads the events list from the open tournament file; the draw stays closed.
    void init();
    // The file is closing: the draw is put away without a question and the lists emptied.
    void clear();
    // Asks before the open draw is left; false when the user chose to stay. The reason is the session's switch
    // word, closing the draw when it names none.
    bool leave_draw();
    bool leave_draw(LeaveReason reason);
    // The area was entered: an open draw is read again so that changes made elsewhere show.
    void refresh_on_entry();

    OpenDraw& open_draw() { return m_open; }
    // The open "rr" draw: its players, match lines and standings.
    OpenRoundRobin& round_robin() { return m_rr; }
    const DrawSaveHooks& save_hooks() const { return m_hooks; }
    // The schedule board's side of a save: renumbering and refreshing its lists.
    void set_board_hooks(ScheduleBoardHooks hooks) { m_hooks.board = std::move(hooks); }
    // Tests hand in a seeded source so that a draw comes out the same each time.
    void set_random(std::unique_ptr<DrawRandom> random) { m_random = std::move(random); }

    QListWidget* events() const { return m_events; }
    QLabel* filter_tag() const { return m_filter_tag; }
    QLabel* heading() const { return m_heading; }
    QLabel* timestamp_label() const { return m_timestamp; }
    // Shown in place of a draw while none is open.
    QLabel* hint() const { return m_hint; }
    QWidget* current_page() const;
    DrawView* view() const { return m_view; }
    // Shown in place of the tree while an "rr" draw is open.
    RrDrawView* rr_view() const { return m_rr_view; }
    QCheckBox* save_as_u_go_box() const { return m_save_as_u_go; }
    QCheckBox* save_no_prompt_box() const { return m_save_no_prompt; }
    QPushButton* button(const QString& caption) const;
    DrawConfigWindow* drawconfig_window() const { return m_drawconfig; }
    // What a draw configuration window must tell this area: opened from elsewhere too, it passes these on.
    DrawConfigHooks drawconfig_hooks();
    // The save button is yellow while changes wait.
    bool save_button_marked() const;

signals:
    // A right click on a first-round name: the first-round menu of that slot is wanted.
    void firstRoundMenuRequested(int position);
    // "player details" in the draw configuration.
    void playerDetailsRequested(const QString& player);
    // "add result": the result window, on the match of the name clicked last (0 for none).
    void resultRequested(qint64 sid);

public slots:
    // The events list from the filter again, keeping the chosen event.
    void reload_events();
    // Leaves the open draw (after the question) and opens the event's draw. False when the user stayed.
    bool choose_event(qint64 eid);
    void do_draw();
    void save_draw();
    void rollback();
    void byes_thru();
    void do_all_draws();
    void delete_draw();
    DrawConfigWindow* open_drawconfig();
    // "force draw config": the hand-made layout of the chosen event.
    ForceDrawWindow* open_force_draw_config();
    // "force draw": the chosen event's layout becomes its open draw.
    void force_draw();
    QWidget* set_filter();
    // A click on a name: left sends the player on, right takes a later round's name back.
    void click_slot(int level, int position, int button);
    // The first-round menu of the slot, popped up where the pointer is; its lines run r1_choice.
    QMenu* first_round_menu(int position);
    // One line of the first-round menu; a line that needs more opens its window (r1_window).
    void r1_choice(int position, const QString& line);
    // A click on a first-round seed or country: the window that overrides it.
    void field_click(int position, SlotField field);
    // The replacement or override window opened last, while it is open.
    QDialog* r1_window() const { return m_r1_window; }
    // A score typed in the box of the slot (level 2 on): the box of the match whose winner the slot holds.
    void set_score(int level, int position, const QString& text);
    // addlongscore on the score box of the slot (level 2 on), or on a round robin's match line.
    void long_score(int level, int position);
    void rr_long_score(int match);

private:
    void event_clicked(QListWidgetItem* item);
    void select_event_line(std::int64_t eid);
    void open_r1_window(QDialog* window);
    // The save button's look from the rows of the event, after the draw was read or written.
    void recount_changes();
    void show_draw();
    void show_state();
    // Under save as u go a result is live at once: the board renumbers the days and courts of these matches.
    void results_changed(const std::vector<std::int64_t>& sids);
    void setting_toggled(QCheckBox* box, const char* key, bool on);
    void load_settings();
    DrawHooks draw_hooks();

    Session& m_session;
    OpenDraw m_open;
    OpenRoundRobin m_rr;
    DrawSaveHooks m_hooks;
    std::unique_ptr<DrawRandom> m_random;

    QListWidget* m_events;
    QLabel* m_filter_tag;
    QLabel* m_heading;
    QLabel* m_timestamp;
    QStackedWidget* m_pages;
    QLabel* m_hint;
    DrawView* m_view;
    RrDrawView* m_rr_view;
    QCheckBox* m_save_as_u_go;
    QCheckBox* m_save_no_prompt;
    QPushButton* m_save;
    QPointer<DrawConfigWindow> m_drawconfig;
    QPointer<QDialog> m_r1_window;
    std::int64_t m_last_sid = 0;
};

} // namespace qv
