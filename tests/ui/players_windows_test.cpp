#include "core/session.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"
#include "ui/players_windows.h"
#include "ui/tournament_area.h"
#include "ui_test_support.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace qv {
namespace {

void set_line(PlayerFieldsBox* fields, const char* column, const QString& text)
{
    auto* box = qobject_cast<QLineEdit*>(fields->box(QString::fromLatin1(column)));
    ASSERT_NE(box, nullptr) << column;
    box->setText(text);
}

class PlayersWindowsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        talk.clear();
        host.calls.clear();
    }

    Database& db() { return session.tournament(); }
    std::int64_t player_count() { return db().row_count("players"); }
    std::string column(const std::string& player, const std::string& name)
    {
        auto row = db().query("select * from players where player=?", player);
        return row.step() ? row.text(name) : "<gone>";
    }
    void insert_players(std::initializer_list<std::pair<const char*, const char*>> names)
    {
        std::int64_t pid = db().next_id("players", "pid");
        for (const auto& [fname, sname] : names)
            db().run("insert into players (pid, fname, sname, player, sex) values (?, ?, ?, ?, 'male')", pid++, fname,
                sname, std::string(fname) + " " + sname);
    }
    std::int64_t pid_of(const std::string& player)
    {
        return db().scalar_integer("select pid from players where player=?", player);
    }

    test::TempAppDir dir;
    test::ScriptedTalk talk;
    test::FakeHost host;
    Session session { dir.path(), talk, host };
};

TEST_F(PlayersWindowsTest, AddedPlayersShowInTheRegisterAndTheTournamentArea)
{
    PlayersWindow players(session);
    players.show();
    std::vector<std::int64_t> heard;
    AddPlayerWindow add(session, [&heard](std::int64_t pid) { heard.push_back(pid); });
    add.show();
    auto* fields = add.fields();

    fields->fname()->setText(QStringLiteral(" anna"));
    fields->sname()->setText(QStringLiteral("SMITH"));
    fields->sex()->setCurrentText(QStringLiteral("female"));
    set_line(fields, "country", QStringLiteral("gb1"));
    set_line(fields, "club", QStringLiteral("Riverside"));
    qobject_cast<QPlainTextEdit*>(fields->box(QStringLiteral("notes")))->setPlainText(QStringLiteral("left-handed"));
    add.save_button()->click();

    ASSERT_EQ(heard.size(), 1u);
    EXPECT_EQ(column("Anna Smith", "sex"), "female");
    EXPECT_EQ(column("Anna Smith", "country"), "gb1");
    EXPECT_EQ(column("Anna Smith", "club"), "Riverside");
    EXPECT_EQ(column("Anna Smith", "notes"), "left-handed");
    EXPECT_EQ(column("Anna Smith", "pval"), "1");
    // Ready for the next one.
    EXPECT_TRUE(fields->fname()->text().isEmpty());
    EXPECT_EQ(fields->sex()->currentIndex(), -1);
    // Beep on by default; the open register and the host's lists read again.
    EXPECT_EQ(talk.said.back().kind, "beep");
    EXPECT_EQ(host.count("refresh 0"), 1);
    EXPECT_EQ(test::lines_of(players.list()), QStringList { "Anna Smith" });

    // A team has one name: the person's boxes go grey.
    fields->team_option()->setChecked(true);
    EXPECT_FALSE(fields->fname()->isEnabled());
    EXPECT_FALSE(fields->sname()->isEnabled());
    EXPECT_TRUE(fields->team_name()->isEnabled());
    fields->team_name()->setText(QStringLiteral("the aces"));
    // The beep tick is remembered at once and silences the next add.
    add.findChild<QCheckBox*>()->setChecked(false);
    EXPECT_EQ(session.settings().integer("players_beep_ok"), 0);
    talk.clear();
    ASSERT_NE(add.save(), 0);
    EXPECT_TRUE(talk.said.empty());
    EXPECT_EQ(column("The aces", "pval"), "0");
    EXPECT_EQ(column("The aces", "fname"), "The aces");
    EXPECT_EQ(column("The aces", "sname"), "");

    // The register gives names no length: a long first name is kept whole, with no word about it.
    fields->player_option()->setChecked(true);
    const QString long_name = QStringLiteral("maximiliana-") + QString(48, QLatin1Char('x'));
    fields->fname()->setText(long_name);
    fields->sname()->setText(QStringLiteral("long"));
    talk.clear();
    ASSERT_NE(add.save(), 0);
    EXPECT_TRUE(talk.messages().empty());
    EXPECT_EQ(column("Maximiliana-" + std::string(48, 'x') + " Long", "fname").size(), 60u);

    TournamentArea area(session);
    area.init();
    const QStringList everyone { "Anna Smith", "Maximiliana-" + QString(48, QLatin1Char('x')) + " Long", "The aces" };
    EXPECT_EQ(test::lines_of(area.players()), everyone);
    EXPECT_EQ(test::lines_of(players.list()), everyone);
    add.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/players_fs_addnew.png"));
}

struct RefusedCase
{
    bool team;
    QString fname, sname, from_code;
    std::string message;
    PlayerField field;
    QString selected; // the offending character, selected in its box
};

TEST_F(PlayersWindowsTest, RefusedInputSaysWhyPointsAtTheBoxAndAddsNothing)
{
    insert_players({ { "Anna", "Smith" } });
    const RefusedCase cases[] = {
        { false, "O'Neil", "Kay", "", "illegal character", PlayerField::fname, "'" },
        { false, "Ann", "Sm^th", "", "illegal character", PlayerField::sname, "^" },
        { false, "Jos\u00e9\u00bf", "Ruiz", "", "illegal character", PlayerField::fname, "\u00bf" },
        { false, "", "Ruiz", "", "value required", PlayerField::fname, "" },
        { true, "", "", "", "value required", PlayerField::team_name, "" },
        { false, "Big wildcard", "Lee", "", "first name cannot contain the word 'wildcard'", PlayerField::fname, "" },
        { true, "Partner Required", "", "", "team cannot have name of 'partner required'", PlayerField::team_name, "" },
        { false, "Ann", "Lee", "g-b", "from code can be alphanumeric only", PlayerField::from_code, "-" },
        { false, " anna", "SMITH ", "", "already have a player with name=Anna Smith", PlayerField::fname, "" },
    };
    AddPlayerWindow add(session);
    add.show();
    auto* fields = add.fields();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message + " " + c.fname.toStdString());
        fields->clear();
        (c.team ? fields->team_option() : fields->player_option())->setChecked(true);
        (c.team ? fields->team_name() : fields->fname())->setText(c.fname);
        fields->sname()->setText(c.sname);
        fields->from_code()->setText(c.from_code);
        talk.clear();
        EXPECT_EQ(add.save(), 0);
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message });
        EXPECT_EQ(player_count(), 1);
        auto* box = fields->box_of(c.field);
        EXPECT_EQ(add.focusWidget(), box);
        EXPECT_TRUE(fields->tabs()->currentWidget()->isAncestorOf(box));
        EXPECT_EQ(qobject_cast<QLineEdit*>(box)->selectedText(), c.selected);
    }
    // The add window lets "preq" through; editing refuses it.
    fields->clear();
    fields->fname()->setText(QStringLiteral("preq"));
    fields->sname()->setText(QStringLiteral("Lee"));
    EXPECT_NE(add.save(), 0);
    PlayersWindow players(session);
    test::select_line(players.list(), "Anna Smith");
    players.fields()->sname()->setText(QStringLiteral("preq"));
    talk.clear();
    EXPECT_FALSE(players.save());
    EXPECT_EQ(talk.last_message(), "second name cannot equal 'preq' ( partner required indicator )");
    EXPECT_EQ(column("Anna Smith", "sname"), "Smith");
    // A quote in the search is refused the same way.
    players.search_box()->setText(QStringLiteral("o'n"));
    talk.clear();
    EXPECT_FALSE(players.search());
    EXPECT_EQ(talk.last_message(), "illegal character");
    EXPECT_EQ(players.search_box()->selectedText(), "'");
}

TEST_F(PlayersWindowsTest, EnteredPlayersKeepNameSexAndType)
{
    insert_players({ { "Al", "West" }, { "Bea", "Cole" }, { "Cy", "Dunn" } });
    db().run("insert into evententries (ent_idx, eid, player) values (1, 1, 'al west')");
    db().run("insert into rawdoublesentries (rdidx, eid, player, partnername) values (1, 2, 'x y', 'Cy Dunn')");
    PlayersWindow players(session);
    players.show();
    auto* fields = players.fields();
    EXPECT_EQ(test::lines_of(players.list()), (QStringList { "Al West", "Bea Cole", "Cy Dunn" }));

    // In a draw, and in a raw doubles entry only: locked alike, the other fields stay open.
    for (const char* name : { "Cy Dunn", "Al West" }) {
        SCOPED_TRACE(name);
        players.list()->clearSelection();
        test::select_line(players.list(), QString::fromLatin1(name));
        EXPECT_FALSE(fields->lock_label()->isHidden());
        EXPECT_EQ(fields->lock_label()->text(), "player in a draw, cannot change spelling of name ,sex or type");
        for (QWidget* w : std::initializer_list<QWidget*> { fields->fname(), fields->sname(), fields->team_name(),
                 fields->sex(), fields->player_option(), fields->team_option(), players.delete_button() })
            EXPECT_FALSE(w->isEnabled()) << w->objectName().toStdString();
        EXPECT_TRUE(fields->box(QStringLiteral("phone"))->isEnabled());
    }
    players.grab().save(QStringLiteral(QV_SCREENSHOT_DIR "/players_players.png"));
    set_line(fields, "phone", QStringLiteral("555 0101"));
    EXPECT_TRUE(players.save());
    EXPECT_EQ(column("Al West", "phone"), "555 0101");
    EXPECT_EQ(host.count("refresh 0"), 0);

    // A free player can be renamed; every list shows the new name.
    PlayersWindow second(session);
    players.list()->clearSelection();
    test::select_line(players.list(), "Bea Cole");
    EXPECT_TRUE(fields->lock_label()->isHidden());
    EXPECT_TRUE(players.delete_button()->isEnabled());
    fields->fname()->setText(QStringLiteral("beatrice"));
    EXPECT_TRUE(players.save());
    EXPECT_EQ(fields->fname()->text(), "Beatrice");
    EXPECT_EQ(host.count("refresh 0"), 1);
    EXPECT_EQ(test::lines_of(second.list()), (QStringList { "Al West", "Beatrice Cole", "Cy Dunn" }));
    TournamentArea area(session);
    area.init();
    EXPECT_TRUE(test::lines_of(area.players()).contains("Beatrice Cole"));

    // The details window on a name, case-blind, locks the same way and saves the rest; the open register
    // shows what it saved.
    players.list()->clearSelection();
    test::select_line(players.list(), "Al West");
    QPointer<PlayerDetailsWindow> details = open_player_details_by_name(session, " AL WEST", nullptr);
    ASSERT_FALSE(details.isNull());
    EXPECT_TRUE(details->fields()->locked());
    EXPECT_EQ(details->fields()->box_of(PlayerField::fname)->isEnabled(), false);
    qobject_cast<QPlainTextEdit*>(details->fields()->box(QStringLiteral("notes")))->setPlainText("seed 1");
    EXPECT_TRUE(details->save());
    EXPECT_EQ(column("Al West", "notes"), "seed 1");
    EXPECT_EQ(qobject_cast<QPlainTextEdit*>(fields->box(QStringLiteral("notes")))->toPlainText(), "seed 1");
    details->close();
}

TEST_F(PlayersWindowsTest, DetailsWindowOnAMatchAPidOrTheDownloadedPlayers)
{
    insert_players({ { "Al", "West" }, { "Bea", "Cole" }, { "Cy", "Dunn" } });
    db().run("insert into schedule (sid, eid, mtttt, mbttt) values (5, 1, 'Bea Cole/Cy Dunn', 'bye')");

    QPointer<PlayerDetailsWindow> match = open_player_details_by_match(session, 5, nullptr);
    ASSERT_FALSE(match.isNull());
    EXPECT_EQ(test::lines_of(match->names()), (QStringList { "Bea Cole", "Cy Dunn" }));
    EXPECT_EQ(match->fields()->fname()->text(), "Bea");
    match->names()->setCurrentRow(1);
    EXPECT_EQ(match->shown_pid(), pid_of("Cy Dunn"));
    match->close();

    talk.clear();
    EXPECT_EQ(open_player_details_by_match(session, 99, nullptr), nullptr);
    EXPECT_EQ(talk.last_message(), "99 not found,stale data");
    EXPECT_EQ(open_player_details_by_pid(session, 42, nullptr), nullptr);
    EXPECT_EQ(open_player_details_by_name(session, "nobody here", nullptr), nullptr);
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> { "99 not found,stale data", "player not found", "player not found" }));

    // A downloaded player is only looked at.
    session.peek_browse_db().run(
        "insert into peek_players (pid, fname, sname, player, pval) values (7, 'Dee', 'Ray', 'Dee Ray', 1)");
    QPointer<PlayerDetailsWindow> peek = open_player_details_by_pid(session, 7, nullptr, PlayerTable::peek_players);
    ASSERT_FALSE(peek.isNull());
    EXPECT_EQ(peek->fields()->sname()->text(), "Ray");
    EXPECT_TRUE(peek->fields()->sname()->isReadOnly() || !peek->fields()->sname()->isEnabled());
    EXPECT_TRUE(peek->save_button()->isHidden());
    EXPECT_FALSE(peek->save());
    peek->close();
}

TEST_F(PlayersWindowsTest, SearchSelectsEveryMatchAndTextExportsThem)
{
    insert_players({ { "Al", "West" }, { "Bea", "Cole" }, { "Cy", "Cole" } });
    PlayersWindow players(session);
    players.search_box()->setText(QStringLiteral(" COLE "));
    players.search_button()->click();
    EXPECT_EQ(players.shown_pid(), pid_of("Bea Cole"));
    QStringList chosen;
    for (const auto* item : players.list()->selectedItems())
        chosen << item->text();
    chosen.sort();
    EXPECT_EQ(chosen, (QStringList { "Bea Cole", "Cy Cole" }));

    session.settings().set_disk_var("on_file_save", "3");
    talk.clear();
    EXPECT_TRUE(players.export_text());
    const auto file = session.dirs().working / "players_details.txt";
    EXPECT_EQ(talk.messages(), std::vector<std::string> { file.string() });
    std::ifstream in(file, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_NE(text.find("player: Bea Cole\r\n"), std::string::npos);
    EXPECT_NE(text.find("player: Cy Cole\r\n"), std::string::npos);
    EXPECT_EQ(text.find("Al West"), std::string::npos);

    talk.clear();
    players.search_box()->setText(QStringLiteral("zed"));
    EXPECT_FALSE(players.search());
    EXPECT_EQ(talk.last_message(), "player not found");
}

TEST_F(PlayersWindowsTest, DeleteFromTheRegisterAsksUnlessNoPrompt)
{
    insert_players({ { "Al", "West" }, { "Bea", "Cole" }, { "Cy", "Dunn" } });
    PlayersWindow players(session);
    players.show();
    test::select_line(players.list(), "Bea Cole");

    talk.answers = { Answer::No };
    EXPECT_FALSE(players.remove());
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said[0].text, "Confirm player delete");
    EXPECT_EQ(talk.said[0].title, "Confirm");
    EXPECT_EQ(player_count(), 3);

    talk.answers = { Answer::Yes };
    players.delete_button()->click();
    EXPECT_EQ(test::lines_of(players.list()), (QStringList { "Al West", "Cy Dunn" }));
    // The next row takes the place of the one that went.
    EXPECT_EQ(players.shown_pid(), pid_of("Cy Dunn"));
    EXPECT_EQ(players.fields()->fname()->text(), "Cy");

    talk.clear();
    players.no_prompt()->setChecked(true);
    EXPECT_TRUE(players.remove());
    EXPECT_TRUE(talk.said.empty());
    EXPECT_EQ(test::lines_of(players.list()), QStringList { "Al West" });
    EXPECT_EQ(players.shown_pid(), pid_of("Al West"));
    EXPECT_EQ(host.count("refresh 0"), 2);
}

TEST_F(PlayersWindowsTest, DeleteWindowLeavesEnteredPlayersAndReportsThem)
{
    insert_players({ { "Al", "West" }, { "Bea", "Cole" }, { "Cy", "Dunn" }, { "Di", "Eck" } });
    db().run("insert into evententries (ent_idx, eid, player) values (1, 1, 'Bea Cole')");
    PlayersWindow register_window(session);
    PlayersDeleteWindow deleting(session);
    deleting.show();
    EXPECT_EQ(
        test::lines_of(deleting.list()), (QStringList { "set filter...", "Al West", "Bea Cole", "Cy Dunn", "Di Eck" }));
    EXPECT_TRUE(deleting.filter_tag()->text().startsWith("all players"));

    // Al: yes; Bea is entered and not asked about; Cy: no. Then the summary, declined.
    for (const char* name : { "Al West", "Bea Cole", "Cy Dunn" })
        test::select_line(deleting.list(), QString::fromLatin1(name));
    talk.answers = { Answer::Yes, Answer::No, Answer::No };
    EXPECT_EQ(deleting.remove(), 1);
    std::vector<std::string> asked;
    for (const auto& s : talk.said)
        asked.push_back(s.kind + ":" + s.text);
    EXPECT_EQ(asked,
        (std::vector<std::string> { "ask:Confirm player delete", "ask:Confirm player delete",
            "ask:1 records deleted,1 errors,view the errors?" }));
    EXPECT_EQ(test::lines_of(deleting.list()), (QStringList { "set filter...", "Bea Cole", "Cy Dunn", "Di Eck" }));
    EXPECT_EQ(test::lines_of(register_window.list()), (QStringList { "Bea Cole", "Cy Dunn", "Di Eck" }));

    // Without the prompt: nothing asked but the outcome.
    talk.clear();
    deleting.no_prompt()->setChecked(true);
    test::select_line(deleting.list(), "Di Eck");
    EXPECT_EQ(deleting.remove(), 1);
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "1 players deleted" });
    EXPECT_EQ(talk.said.size(), 1u);

    talk.clear();
    test::select_line(deleting.list(), "Bea Cole");
    talk.answers = { Answer::Yes };
    EXPECT_EQ(deleting.remove(), 0);
    EXPECT_EQ(talk.said.at(0).text, "no players deleted,1 errors detected,all players,view the errors?");
    EXPECT_EQ(talk.said.at(1).kind, "text");
    EXPECT_EQ(test::lines_of(deleting.list()), (QStringList { "set filter...", "Bea Cole", "Cy Dunn" }));
}

} // namespace
} // namespace qv
