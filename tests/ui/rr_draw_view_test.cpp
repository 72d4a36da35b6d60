#include "drawengine/rr_fixture.h"
#include "drawengine/rr_saving.h"
#include "drawengine/rr_scoring.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/rr_draw_view.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

namespace qv {
namespace {

using test::RrEntry;

QStringList row_texts(const QTableWidget* table, int row)
{
    QStringList texts;
    for (int column = 0; column < table->columnCount(); ++column)
        texts << (table->item(row, column) ? table->item(row, column)->text() : QString());
    return texts;
}

bool editable(const QTableWidgetItem* item)
{
    return item && (item->flags() & Qt::ItemIsEditable);
}

// A press and release on the middle of the cell, as the mouse makes them.
void click_cell(QTableWidget* table, int row, int column)
{
    auto* item = table->item(row, column);
    ASSERT_NE(item, nullptr);
    table->scrollToItem(item);
    const QPointF at = table->visualItemRect(item).center();
    const QPointF global = table->viewport()->mapToGlobal(at);
    QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(table->viewport(), &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(table->viewport(), &release);
}

class RrDrawViewTest : public test::RrFixture
{
protected:
    int changes = 0;
    std::unique_ptr<RrDrawView> view;

    void open_view()
    {
        view = std::make_unique<RrDrawView>(session, draw, rr, [this] { ++changes; });
        view->resize(900, 700);
        view->show();
    }

    QTableWidgetItem* cell_of(int match, RrColumn column) { return view->match_cell(match, column); }
};

TEST_F(RrDrawViewTest, ANewDrawShowsItsGridMatchesAndStandings)
{
    auto entries = lettered(3);
    entries[0].country = "SWE";
    entries[1].psex = "female";
    add_event(2, entries);
    ASSERT_TRUE(RR_do_draw(session, draw, rr));
    open_view();

    EXPECT_EQ(view->drawtype_label()->text(), QStringLiteral("drawtype: rr-a win is a point,scores open"));
    auto* players = view->players();
    ASSERT_EQ(players->rowCount(), 3);
    ASSERT_EQ(players->columnCount(), 6);
    EXPECT_EQ(players->horizontalHeaderItem(4)->text(), QStringLiteral("frn"));
    EXPECT_EQ(row_texts(players, 0), QStringList({ "1", "Player A", "SWE", "", "Player A", "m" }));
    EXPECT_EQ(row_texts(players, 1), QStringList({ "2", "Player B", "", "", "Player B", "f" }));
    auto* grid = view->grid();
    ASSERT_EQ(grid->rowCount(), 3);
    ASSERT_EQ(grid->columnCount(), 5);
    EXPECT_EQ(grid->horizontalHeaderItem(4)->text(), QStringLiteral("total wins"));
    EXPECT_EQ(grid->verticalHeaderItem(2)->text(), QStringLiteral("3"));
    EXPECT_EQ(row_texts(grid, 0), QStringList({ "Player A", "", "", "", "0" }));

    auto* matches = view->match_list();
    ASSERT_EQ(matches->rowCount(), 3);
    EXPECT_EQ(row_texts(matches, 0), QStringList({ "1", "Player A", "Player B", "0", "0", "" }));
    EXPECT_EQ(row_texts(matches, 2), QStringList({ "3", "Player B", "Player C", "0", "0", "" }));
    // A win is a point: the points follow the mark, only the score takes typing.
    EXPECT_FALSE(editable(cell_of(1, RrColumn::points1)));
    EXPECT_FALSE(editable(cell_of(1, RrColumn::points2)));
    EXPECT_TRUE(editable(cell_of(1, RrColumn::score)));

    // A click on the bottom name marks it; a second click takes the mark off again.
    click_cell(matches, 1, static_cast<int>(RrColumn::bottom));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(row_texts(matches, 1), QStringList({ "2", "Player A", "Player C*", "0", "1", "" }));
    EXPECT_NE(cell_of(2, RrColumn::bottom)->background(), QBrush());
    EXPECT_EQ(row_texts(grid, 2), QStringList({ "Player C", "1", "", "", "1" }));
    EXPECT_EQ(row_texts(grid, 0), QStringList({ "Player A", "", "", "0", "0" }));
    EXPECT_EQ(row_texts(view->standings(), 0), QStringList({ "1", "Player C", "1" }));

    view->click_name(2, RrWinner::bottom);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(row_texts(matches, 1), QStringList({ "2", "Player A", "Player C", "0", "0", "" }));
    EXPECT_EQ(cell_of(2, RrColumn::bottom)->background(), QBrush());
    EXPECT_EQ(row_texts(grid, 2), QStringList({ "Player C", "", "", "", "0" }));
    // Nothing goes to schedule while the draw is new.
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule"), 0);
}

TEST_F(RrDrawViewTest, TypedBoxesFollowTheModeAndReachTheShadowColumns)
{
    saved_draw(1, lettered(2));
    open_view();
    EXPECT_EQ(view->drawtype_label()->text(), QStringLiteral("drawtype: rr-allocate points,scores locked"));
    EXPECT_TRUE(editable(cell_of(1, RrColumn::points1)));
    EXPECT_FALSE(editable(cell_of(1, RrColumn::score)));
    EXPECT_EQ(cell_of(1, RrColumn::score)->text(), QStringLiteral("0/0"));

    // Typing goes through the cells as an editor leaves it there.
    cell_of(1, RrColumn::points1)->setText(QStringLiteral("3"));
    cell_of(1, RrColumn::points2)->setText(QStringLiteral("1x"));
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(cell_of(1, RrColumn::points2)->text(), QStringLiteral("1"));
    EXPECT_EQ(cell_of(1, RrColumn::score)->text(), QStringLiteral("3/1"));
    EXPECT_EQ(cell("ipoints1", 1), "3");
    EXPECT_EQ(cell("imatchscore", 1), "3/1");
    EXPECT_EQ(cell("points1", 1), "0");
    EXPECT_EQ(cell("changed", 1), "1");
    EXPECT_TRUE(draw.changes_waiting);
    EXPECT_EQ(row_texts(view->standings(), 0), QStringList({ "1", "Player A", "3" }));

    // A locked box refuses the text and shows the model's value again.
    EXPECT_FALSE(view->type_score(1, QStringLiteral("6-0")));
    cell_of(1, RrColumn::score)->setText(QStringLiteral("6-0"));
    EXPECT_EQ(cell_of(1, RrColumn::score)->text(), QStringLiteral("3/1"));
    EXPECT_EQ(changes, 2);

    // Both allocated: the score is typed freely and loses the two forbidden characters.
    draw.pts = 3;
    view->refresh();
    EXPECT_EQ(view->drawtype_label()->text(), QStringLiteral("drawtype: rr-allocate points,scores open"));
    EXPECT_TRUE(editable(cell_of(1, RrColumn::score)));
    cell_of(1, RrColumn::score)->setText(QString::fromUtf8(" 6-3 \u00BF6-4~ "));
    EXPECT_EQ(cell_of(1, RrColumn::score)->text(), QStringLiteral("6-3 6-4"));
    EXPECT_EQ(cell("imatchscore", 1), "6-3 6-4");
    view->set_long_score(1, QStringLiteral("6-3"), QStringLiteral("6-3 (5) 7-6"));
    EXPECT_EQ(cell_of(1, RrColumn::score)->toolTip(), QStringLiteral("6-3 (5) 7-6"));
    EXPECT_EQ(cell("imatchlongscore", 1), "6-3 (5) 7-6");
}

TEST_F(RrDrawViewTest, ScreenScrapeOnlyWhenAllowed)
{
    saved_draw(2, lettered(2));
    session.settings().apply_disk_var("app.screenscrape", "");
    open_view();
    EXPECT_FALSE(view->screenscrape_button()->isVisible());
    EXPECT_FALSE(view->screen_scrape());
    EXPECT_TRUE(talk.said.empty());

    session.settings().apply_disk_var("app.screenscrape", "allow screenscrape");
    view->refresh();
    ASSERT_TRUE(view->screenscrape_button()->isVisible());
    const auto file = dir.path() / "group.txt";
    talk.files.push_back({ file });
    view->screenscrape_button()->click();
    EXPECT_TRUE(std::filesystem::exists(file));
}

class RrDrawAreaTest : public test::RrFixture
{
public:
    std::unique_ptr<DrawArea> area;

    void SetUp() override
    {
        RrFixture::SetUp();
        session.settings().apply_disk_var("draw.iautosavechanges", "0");
        area = std::make_unique<DrawArea>(session);
        area->resize(1300, 900);
        area->show();
    }

    // Five players "Ann Able<eid>" .. "Ann Eyre<eid>", numbered in that order.
    void add_group(std::int64_t eid, int pts)
    {
        db->run(R"(insert into events (eid, eventname, sex, singdobs, drawtype, pts)
            values (?, ?, 'male', 'singles', 'rr', ?))",
            eid, "group " + std::to_string(eid), pts);
        auto next = db->next_id("evententries", "ent_idx");
        for (const char* sname : { "Able", "Baker", "Cole", "Dane", "Eyre" })
            db->run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, reserve, psex)
                values (?, ?, ?, 'Ann', ?, 0, 'male'))",
                next++, eid, name(eid, sname), sname + std::to_string(eid));
    }

    static std::string name(std::int64_t eid, const std::string& sname) { return "Ann " + sname + std::to_string(eid); }

    std::string row(std::int64_t eid, int match, const std::string& column)
    {
        return db->scalar_text("select " + column + R"( from schedule where eid = ? and "match" = ?)", eid, match);
    }

    RrDrawView& view() { return *area->rr_view(); }
    QTableWidgetItem* cell_of(int match, RrColumn column) { return view().match_cell(match, column); }
    void click_name(int match, RrColumn side) { click_cell(view().match_list(), match - 1, static_cast<int>(side)); }
};

TEST_F(RrDrawAreaTest, ARoundRobinIsDrawnPlayedSavedRolledBackAndLeft)
{
    struct Mode
    {
        int pts;
        std::function<void(RrDrawAreaTest&)> enter; // the result of match 1, typed and clicked in the view
        const char* points1;
        const char* points2;
        const char* score;
        const char* winner;
    };
    const Mode modes[] = {
        { 1,
            [](RrDrawAreaTest& t) {
                t.cell_of(1, RrColumn::points1)->setText(QStringLiteral("3"));
                t.cell_of(1, RrColumn::points2)->setText(QStringLiteral("1"));
                t.click_name(1, RrColumn::top);
            },
            "3", "1", "3/1", "Able" },
        { 2,
            [](RrDrawAreaTest& t) {
                t.click_name(1, RrColumn::bottom);
                t.cell_of(1, RrColumn::score)->setText(QStringLiteral("6-4 6-3"));
            },
            "0", "1", "6-4 6-3", "Baker" },
        { 3,
            [](RrDrawAreaTest& t) {
                t.cell_of(1, RrColumn::points1)->setText(QStringLiteral("2"));
                t.cell_of(1, RrColumn::points2)->setText(QStringLiteral("0.5"));
                t.cell_of(1, RrColumn::score)->setText(QStringLiteral("6-1"));
                t.click_name(1, RrColumn::top);
            },
            "2", "0.5", "6-1", "Able" },
    };
    for (const auto& mode : modes)
        add_group(mode.pts, mode.pts);
    area->init();

    for (const auto& mode : modes) {
        SCOPED_TRACE("pts " + std::to_string(mode.pts));
        const std::int64_t eid = mode.pts;
        ASSERT_TRUE(area->choose_event(eid));
        EXPECT_FALSE(view().isVisible());
        area->button(QStringLiteral("do draw"))->click();
        ASSERT_TRUE(area->open_draw().draw.on_screen);
        ASSERT_TRUE(view().isVisible());
        EXPECT_FALSE(area->view()->isVisible());
        EXPECT_TRUE(area->save_button_marked());
        EXPECT_EQ(view().drawtype_label()->text().toStdString(), RR_set_scoring(mode.pts));
        ASSERT_EQ(view().grid()->rowCount(), 5);
        ASSERT_EQ(view().match_list()->rowCount(), 10);

        mode.enter(*this);
        if (mode.pts == 3) {
            // A points box that is no number stops the save.
            cell_of(2, RrColumn::points1)->setText(QStringLiteral("1..5"));
            area->button(QStringLiteral("save draw"))->click();
            EXPECT_EQ(talk.last_message(), "invalid double value, more than one point (.)");
            EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = ?", eid), 0);
            cell_of(2, RrColumn::points1)->setText(QString());
        }
        area->button(QStringLiteral("save draw"))->click();

        // The first save writes every match, its result in the live and the shadow columns.
        ASSERT_EQ(db->scalar_integer("select count(*) from schedule where eid = ?", eid), 10);
        EXPECT_FALSE(area->save_button_marked());
        EXPECT_EQ(db->scalar_integer("select drawdone from events where eid = ?", eid), 1);
        EXPECT_EQ(db->scalar_integer("select drawsize from events where eid = ?", eid), 5);
        EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = ? and changed = 1", eid), 0);
        EXPECT_EQ(row(eid, 1, "rname"), "match 1/10");
        EXPECT_EQ(row(eid, 10, "rname"), "match 10/10");
        EXPECT_EQ(row(eid, 10, "mt") + "-" + row(eid, 10, "mb"), "4-5");
        EXPECT_EQ(row(eid, 1, "mtttt"), name(eid, "Able"));
        EXPECT_EQ(row(eid, 1, "mbttt"), name(eid, "Baker"));
        for (const char* prefix : { "", "i" }) {
            const std::string p(prefix);
            EXPECT_EQ(row(eid, 1, p + "points1"), mode.points1);
            EXPECT_EQ(row(eid, 1, p + "points2"), mode.points2);
            EXPECT_EQ(row(eid, 1, p + "matchscore"), mode.score);
            EXPECT_EQ(row(eid, 1, p + "mwttt"), name(eid, mode.winner));
        }
        EXPECT_EQ(row(eid, 1, "match_state"), "3");
        EXPECT_EQ(row(eid, 2, "match_state"), "2");
        EXPECT_EQ(row(eid, 2, "points1"), "0");
        EXPECT_EQ(row(eid, 2, "mwttt"), "");
        // Read back from schedule, the view shows the saved result.
        EXPECT_TRUE(cell_of(1, mode.winner == std::string("Able") ? RrColumn::top : RrColumn::bottom)
                        ->text()
                        .endsWith(QLatin1Char('*')));
        EXPECT_EQ(cell_of(1, RrColumn::score)->text(), QString::fromUtf8(mode.score));

        // A later result waits in the shadow columns; the rollback takes it back.
        click_name(10, RrColumn::bottom);
        EXPECT_TRUE(area->save_button_marked());
        EXPECT_EQ(row(eid, 10, "imwttt"), name(eid, "Eyre"));
        EXPECT_EQ(row(eid, 10, "mwttt"), "");
        EXPECT_EQ(row(eid, 10, "changed"), "1");
        area->button(QStringLiteral("rollback to last save"))->click();
        EXPECT_FALSE(area->save_button_marked());
        EXPECT_EQ(row(eid, 10, "imwttt"), "");
        EXPECT_FALSE(cell_of(10, RrColumn::bottom)->text().endsWith(QLatin1Char('*')));
        EXPECT_EQ(view().grid()->item(4, 6)->text(), QStringLiteral("0"));

        // Leaving with a result waiting asks, and Yes saves it.
        click_name(10, RrColumn::bottom);
        EXPECT_EQ(view().grid()->item(4, 6)->text(), QStringLiteral("1"));
        talk.clear();
        talk.answers = { Answer::Yes };
        ASSERT_TRUE(area->leave_draw(LeaveReason::switchingdraws));
        ASSERT_FALSE(talk.said.empty());
        EXPECT_EQ(talk.said.front().text, "save changes?");
        EXPECT_EQ(row(eid, 10, "mwttt"), name(eid, "Eyre"));
        EXPECT_EQ(row(eid, 10, "changed"), "0");
        EXPECT_EQ(row(eid, 10, "match_state"), "3");
    }

    // Opened again, a saved round robin shows its results.
    ASSERT_TRUE(area->choose_event(2));
    ASSERT_TRUE(view().isVisible());
    ASSERT_EQ(view().players()->rowCount(), 5);
    EXPECT_EQ(view().players()->item(4, 1)->text().toStdString(), name(2, "Eyre"));
    EXPECT_EQ(cell_of(1, RrColumn::bottom)->text(),
        QString::fromStdString(area->round_robin().match(1).bottom_names.frn + "*"));
    EXPECT_EQ(view().standings()->item(0, 2)->text(), QStringLiteral("1"));
    EXPECT_EQ(view().standings()->rowCount(), 5);
    std::filesystem::create_directories(QV_SCREENSHOT_DIR);
    area->grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/rr_draw.png"));
}

} // namespace
} // namespace qv
