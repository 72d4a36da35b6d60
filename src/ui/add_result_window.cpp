#include "ui/add_result_window.h"

#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "drawengine/rr_scoring.h"
#include "scheduling/add_result.h"
#include "scheduling/board_find.h"
#include "ui/qt_text.h"
#include "ui/schedule_board.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

constexpr const char* onsave_setting = "addres.onsave";
constexpr const char* close_setting = "addres.close_on_sid_sis";
constexpr const char* hold_setting = "hold_refresh_on_add_result";

QPushButton* add_button(QHBoxLayout* row, QWidget* parent, const char* caption)
{
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(caption));
    row->addWidget(button);
    return button;
}

} // namespace

AddResultWindow::AddResultWindow(Session& session, ScheduleBoardArea& board, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_board(board)
    , m_number(new QLineEdit(this))
    , m_details(new QPlainTextEdit(this))
    , m_top(new QPushButton(this))
    , m_bottom(new QPushButton(this))
    , m_score_label(new QLabel(this))
    , m_score(new QLineEdit(this))
    , m_longscore_label(new QLabel(this))
    , m_longscore(new QLineEdit(this))
    , m_points_row(new QWidget(this))
    , m_points1(new QLineEdit(m_points_row))
    , m_points2(new QLineEdit(m_points_row))
    , m_note(new QLabel(this))
    , m_following(new QLabel(this))
    , m_onsave(new QComboBox(this))
    , m_hold(new QCheckBox(QStringLiteral("hold refresh"), this))
    , m_close_on_jump(new QCheckBox(QStringLiteral("close on show in draw/schedule"), this))
{
    setObjectName(QStringLiteral("addresult"));
    setWindowTitle(QStringLiteral("add result"));
    m_number->setObjectName(QStringLiteral("number"));
    fit_characters(m_number, 10);
    m_details->setReadOnly(true);
    m_details->setFixedHeight(m_details->fontMetrics().lineSpacing() * 8);
    m_details->setMinimumWidth(m_details->fontMetrics().averageCharWidth() * 44);
    m_top->setObjectName(QStringLiteral("top"));
    m_bottom->setObjectName(QStringLiteral("bottom"));
    for (auto* side : { m_top, m_bottom }) {
        side->setCheckable(true);
        side->setAutoDefault(false);
        side->setMinimumWidth(m_details->minimumWidth() / 2);
    }
    m_score->setObjectName(QStringLiteral("score"));
    m_longscore->setObjectName(QStringLiteral("longscore"));
    m_points1->setObjectName(QStringLiteral("points1"));
    m_points2->setObjectName(QStringLiteral("points2"));
    fit_characters(m_score, 14);
    fit_characters(m_longscore, 40);
    for (auto* box : { m_points1, m_points2 })
        fit_characters(box, 8);
    for (OnSave onsave : { OnSave::beep_confirm, OnSave::ok_confirm, OnSave::close_confirm })
        m_onsave->addItem(qs(onsave_caption(onsave)), static_cast<int>(onsave));

    auto* load_row = new QHBoxLayout;
    load_row->addWidget(new QLabel(qs(id_term() + " id"), this));
    load_row->addWidget(m_number);
    auto* load_button = add_button(load_row, this, "load");
    load_row->addStretch(1);

    auto* sides = new QHBoxLayout;
    sides->addWidget(m_top);
    sides->addWidget(new QLabel(QStringLiteral("vs"), this));
    sides->addWidget(m_bottom);

    auto* points = new QHBoxLayout(m_points_row);
    points->setContentsMargins(0, 0, 0, 0);
    points->addWidget(new QLabel(QStringLiteral("points"), m_points_row));
    points->addWidget(m_points1);
    points->addWidget(m_points2);
    points->addStretch(1);

    auto* scores = new QGridLayout;
    scores->addWidget(m_score_label, 0, 0);
    scores->addWidget(m_score, 0, 1);
    scores->addWidget(m_longscore_label, 1, 0);
    scores->addWidget(m_longscore, 1, 1);

    auto* options = new QHBoxLayout;
    options->addWidget(m_onsave);
    options->addWidget(m_hold);
    options->addWidget(m_close_on_jump);
    options->addStretch(1);

    auto* buttons = new QHBoxLayout;
    auto* save_button = add_button(buttons, this, "save");
    add_button(buttons, this, "show in draw");
    add_button(buttons, this, "show in schedule");
    add_button(buttons, this, "following round match id");
    add_button(buttons, this, "close");

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(load_row);
    layout->addWidget(m_details);
    layout->addLayout(sides);
    layout->addWidget(m_points_row);
    layout->addLayout(scores);
    layout->addWidget(m_note);
    layout->addWidget(m_following);
    layout->addLayout(options);
    layout->addLayout(buttons);

    set_main_button(this, save_button);
    m_details->setFocusPolicy(Qt::NoFocus);
    set_tab_chain({ m_number, load_button, m_top, m_bottom, m_points1, m_points2, m_score, m_longscore, m_onsave,
        m_hold, m_close_on_jump, save_button, button(QStringLiteral("show in draw")),
        button(QStringLiteral("show in schedule")), button(QStringLiteral("following round match id")),
        button(QStringLiteral("close")) });
    // Enter in the number box loads; everywhere else it saves.
    run_on_enter(m_number, [this] { load(); });
    connect(load_button, &QPushButton::clicked, this, &AddResultWindow::load);
    connect(save_button, &QPushButton::clicked, this, &AddResultWindow::save);
    connect(button(QStringLiteral("show in draw")), &QPushButton::clicked, this, &AddResultWindow::show_in_draw);
    connect(
        button(QStringLiteral("show in schedule")), &QPushButton::clicked, this, &AddResultWindow::show_in_schedule);
    connect(button(QStringLiteral("following round match id")), &QPushButton::clicked, this,
        &AddResultWindow::following_round);
    connect(button(QStringLiteral("close")), &QPushButton::clicked, this, &QDialog::reject);
    connect(m_top, &QPushButton::clicked, this, [this] { mark(ResultWinner::top); });
    connect(m_bottom, &QPushButton::clicked, this, [this] { mark(ResultWinner::bottom); });
    // The round robin's score filter trims, so it runs when the box is left rather than at each key.
    connect(m_score, &QLineEdit::editingFinished, this, [this] { filter_score(m_score); });
    connect(m_longscore, &QLineEdit::editingFinished, this, [this] { filter_score(m_longscore); });
    connect(m_points1, &QLineEdit::textEdited, this, [this] { filter_points(m_points1); });
    connect(m_points2, &QLineEdit::textEdited, this, [this] { filter_points(m_points2); });
    connect(m_onsave, &QComboBox::activated, this,
        [this] { m_session.settings().set_disk_var(onsave_setting, std::to_string(m_onsave->currentData().toInt())); });
    connect(m_hold, &QCheckBox::toggled, this,
        [this](bool on) { m_session.settings().set_disk_var(hold_setting, on ? "1" : "0"); });
    connect(m_close_on_jump, &QCheckBox::toggled, this,
        [this](bool on) { m_session.settings().set_disk_var(close_setting, on ? "1" : "0"); });

    set_check_options();
    clear_match();
}

QPushButton* AddResultWindow::button(const QString& caption) const
{
    for (auto* each : findChildren<QPushButton*>())
        if (each->objectName() == caption)
            return each;
    return nullptr;
}

std::string AddResultWindow::id_term() const
{
    return m_session.settings().text("app.generic_match");
}

void AddResultWindow::set_check_options()
{
    const auto& settings = m_session.settings();
    const int at = m_onsave->findData(settings.integer(onsave_setting));
    m_onsave->setCurrentIndex(at >= 0 ? at : 0);
    m_hold->blockSignals(true);
    m_hold->setChecked(settings.integer(hold_setting) == 1);
    m_hold->blockSignals(false);
    m_close_on_jump->blockSignals(true);
    m_close_on_jump->setChecked(settings.integer(close_setting) == 1);
    m_close_on_jump->blockSignals(false);
}

void AddResultWindow::clear_match()
{
    m_loaded.reset();
    m_winner = ResultWinner::none;
    m_details->clear();
    for (auto* box : { m_score, m_longscore, m_points1, m_points2 })
        box->clear();
    m_note->clear();
    m_following->clear();
    configure_controls();
    show_winner();
}

bool AddResultWindow::load()
{
    const auto text = m_number->text().trimmed();
    if (text.isEmpty()) {
        m_session.talk().message("enter " + id_term() + " id");
        return false;
    }
    bool ok = false;
    const auto sid = text.toLongLong(&ok);
    if (!ok) {
        m_session.talk().message(to_std(text) + " not found");
        return false;
    }
    return loadsid(sid);
}

bool AddResultWindow::loadsid(qint64 sid)
{
    m_number->setText(QString::number(sid));
    auto loaded = qv::loadsid(m_session, sid);
    if (!loaded) {
        clear_match();
        return false;
    }
    m_loaded = std::move(loaded);
    const auto& m = *m_loaded;
    m_winner = m.winner;
    QStringList lines;
    for (const auto& line : m.details)
        lines << qs(line);
    m_details->setPlainText(lines.join(QLatin1Char('\n')));
    m_score->setText(qs(m.matchscore));
    m_longscore->setText(qs(m.matchlongscore));
    m_points1->setText(qs(m.points1));
    m_points2->setText(qs(m.points2));
    if (m.locked) {
        m_note->setText(QStringLiteral("following round played, cannot change winner"));
        m_following->setText(QStringLiteral("following round match id =") + QString::number(m.following_sid));
    } else {
        m_note->clear();
        m_following->clear();
    }
    configure_controls();
    show_winner();
    return true;
}

void AddResultWindow::configure_controls()
{
    const bool rr = m_loaded && m_loaded->drawtype == "rr";
    const bool open = m_loaded && !m_loaded->locked;
    m_points_row->setVisible(rr);
    m_score_label->setText(rr ? QStringLiteral("rr score") : QStringLiteral("short score"));
    m_longscore_label->setText(rr ? QStringLiteral("rr long score") : QStringLiteral("long score"));
    const auto boxes = rr ? rr_boxes(m_loaded->pts) : RrBoxes {};
    m_top->setEnabled(open);
    m_bottom->setEnabled(open);
    m_score->setReadOnly(!open || !boxes.score_open);
    m_longscore->setReadOnly(!open);
    m_points1->setReadOnly(!open || !boxes.points_open);
    m_points2->setReadOnly(!open || !boxes.points_open);
    button(QStringLiteral("following round match id"))->setEnabled(m_loaded && m_loaded->following_sid != 0);
}

void AddResultWindow::show_winner()
{
    const auto caption
        = [](const std::string& side, bool won) { return qs(side) + (won ? QStringLiteral(" *") : QString()); };
    m_top->setText(m_loaded ? caption(m_loaded->top, m_winner == ResultWinner::top) : QString());
    m_bottom->setText(m_loaded ? caption(m_loaded->bottom, m_winner == ResultWinner::bottom) : QString());
    m_top->setChecked(m_winner == ResultWinner::top);
    m_bottom->setChecked(m_winner == ResultWinner::bottom);
}

void AddResultWindow::mark(ResultWinner side)
{
    if (!m_loaded || m_loaded->locked)
        return;
    m_winner = m_winner == side ? ResultWinner::none : side;
    if (m_loaded->drawtype == "rr" && m_loaded->pts == 2) {
        MatchResult points;
        points.winner = m_winner;
        rr_result_mode(2, points);
        m_points1->setText(qs(points.points1));
        m_points2->setText(qs(points.points2));
    }
    show_winner();
}

void AddResultWindow::filter_score(QLineEdit* box)
{
    if (m_filtering)
        return;
    // A knock-out's scores are taken as typed: the save names a reserved character.
    if (!m_loaded || m_loaded->drawtype != "rr")
        return;
    const auto text = to_std(box->text());
    const auto kept = filter_text_rr(text);
    if (kept != text) {
        m_filtering = true;
        box->setText(qs(kept));
        m_filtering = false;
    }
}

void AddResultWindow::filter_points(QLineEdit* box)
{
    if (m_filtering)
        return;
    const auto text = to_std(box->text());
    const auto kept = filter_text_rr_points(text);
    m_filtering = true;
    if (kept != text)
        box->setText(qs(kept));
    // Mode 1: the score follows the points.
    if (m_loaded && m_loaded->drawtype == "rr" && m_loaded->pts == 1) {
        MatchResult score;
        score.points1 = to_std(m_points1->text());
        score.points2 = to_std(m_points2->text());
        rr_result_mode(1, score);
        m_score->setText(qs(score.matchscore));
    }
    m_filtering = false;
}

bool AddResultWindow::save()
{
    if (!m_loaded) {
        m_session.talk().message("no " + id_term() + " loaded");
        return false;
    }
    MatchResult result;
    result.sid = m_loaded->sid;
    result.winner = m_winner;
    result.matchscore = to_std(m_score->text());
    result.matchlongscore = to_std(m_longscore->text());
    if (m_loaded->drawtype == "rr") {
        result.points1 = to_std(m_points1->text());
        result.points2 = to_std(m_points2->text());
    }
    if (!check_result_texts(m_session.talk(), m_loaded->drawtype, result))
        return false;
    if (m_loaded->drawtype == "rr" && m_loaded->pts == 1)
        rr_result_mode(1, result);
    const auto onsave = static_cast<OnSave>(m_onsave->currentData().toInt());
    if (onsave != OnSave::close_confirm) {
        // The next number is typed over this one.
        m_number->setFocus();
        m_number->selectAll();
    }
    const auto after = BF_add_result(m_board.board(), result, onsave);
    m_board.after_result();
    if (after == AfterResult::refused)
        return false;
    if (after == AfterResult::close) {
        accept();
        return true;
    }
    loadsid(m_loaded->sid);
    m_number->selectAll();
    return true;
}

void AddResultWindow::show_in_draw()
{
    if (!m_loaded) {
        m_session.talk().message("no " + id_term() + " loaded");
        return;
    }
    BF_find_match_in_draw(m_board.board(), m_loaded->sid);
    after_jump();
}

void AddResultWindow::show_in_schedule()
{
    if (!m_loaded) {
        m_session.talk().message("no " + id_term() + " loaded");
        return;
    }
    m_board.show_match(m_loaded->sid);
    after_jump();
}

void AddResultWindow::following_round()
{
    if (m_loaded && m_loaded->following_sid != 0)
        loadsid(m_loaded->following_sid);
}

void AddResultWindow::after_jump()
{
    if (m_session.settings().integer(close_setting) == 1)
        close();
}

AddResultWindow* open_addresult(Session& session, ScheduleBoardArea& board, QWidget* parent, qint64 sid)
{
    if (!session.has_tournament())
        return nullptr;
    auto* window = parent->findChild<AddResultWindow*>(QStringLiteral("addresult"), Qt::FindDirectChildrenOnly);
    if (!window) {
        window = new AddResultWindow(session, board, parent);
        window->setAttribute(Qt::WA_DeleteOnClose);
    }
    if (sid != 0)
        window->loadsid(sid);
    show_over_parent(window);
    window->raise();
    window->activateWindow();
    return window;
}

} // namespace qv
