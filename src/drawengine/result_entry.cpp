#include "drawengine/result_entry.h"

#include "core/database.h"
#include "core/match_record.h"
#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_row_values.h"
#include "drawengine/rr_scoring.h"

namespace qv {

namespace {

// The row the winner of a knock-out row goes to: the row of the event whose mt or mb is its mw_ptr.
struct NextRow
{
    std::int64_t sid = 0;
    char side = 't';
    std::string mwtag;
};
std::optional<NextRow> next_row(Database& db, std::int64_t eid, const std::string& mw_ptr)
{
    if (mw_ptr.empty())
        return std::nullopt;
    auto row = db.query(
        "select sid, mt, mwtag from schedule where (mt=? or mb=?) and eid=? order by \"match\"", mw_ptr, mw_ptr, eid);
    if (!row.step())
        return std::nullopt;
    return NextRow { row.integer(0), row.text(1) == mw_ptr ? 't' : 'b', row.text(2) };
}

// The state rules of the event, in their order (an empty side "1", both sides "2" unless unfinished, a winner "3",
// a bye "0", the later rule winning), for the rows a result wrote: no other row's state depends on them.
void recompute_written_states(Database& db, const std::vector<std::int64_t>& sids)
{
    auto update = db.query("update schedule set match_state = case "
                           "when mtttt='bye' or mbttt='bye' then '0' "
                           "when mtttt<>'' and mbttt<>'' and mwttt<>'' then '3' "
                           "when mtttt='' or mbttt='' then '1' "
                           "when match_state='2.1' then '2.1' else '2' end where sid=?");
    for (auto sid : sids) {
        update.bind_all(sid);
        update.step();
        update.reset();
    }
}

ResultWinner winner_of(std::string_view mwtag, std::string_view mttag, std::string_view mbtag)
{
    if (mwtag.empty())
        return ResultWinner::none;
    return mwtag == mttag ? ResultWinner::top : mwtag == mbtag ? ResultWinner::bottom : ResultWinner::none;
}

std::string forbidden_message(std::string_view what, std::string_view mark)
{
    std::string text;
    text.append(what).append(" cannot contain the character ").append(mark);
    return text;
}

constexpr std::string_view forbidden_marks[] = { "\u00BF", "~" };

// Each character is tested in the first box and then in the second, in the order the messages stand.
bool refuse_pair(UserTalk& talk, std::string_view first, std::string_view first_what, std::string_view second,
    std::string_view second_what)
{
    for (const auto mark : forbidden_marks)
        for (const auto& [text, what] : { std::pair { first, first_what }, std::pair { second, second_what } })
            if (text.find(mark) != std::string_view::npos) {
                talk.message(forbidden_message(what, mark));
                return true;
            }
    return false;
}

// One box: "¿" first, then "~".
bool refuse_box(UserTalk& talk, std::string_view text, std::string_view what)
{
    for (const auto mark : forbidden_marks)
        if (text.find(mark) != std::string_view::npos) {
            talk.message(forbidden_message(what, mark));
            return true;
        }
    return false;
}

} // namespace

std::string format_day_time(std::string_view date, std::string_view time)
{
    if (date.empty() && time.empty())
        return "day/time=unscheduled";
    if (!date.empty() && !time.empty())
        return "day/time=" + std::string(date) + "/" + std::string(time);
    if (!date.empty())
        return "day=" + std::string(date);
    return "time=" + std::string(time);
}

std::string get_pts_str(int pts)
{
    const auto line = rr_scoring_line(pts);
    return line.empty() ? std::string() : " (" + std::string(line) + ")";
}

std::string result_side_text(std::string_view tag, std::string_view seed, std::string_view country)
{
    std::string text(tag);
    if (const auto s = trim(seed); !s.empty() && s != "0")
        text += " (" + s + ")";
    if (const auto c = trim(country); !c.empty())
        text += " (" + c + ")";
    return text;
}

std::optional<LoadedMatch> loadsid(Session& session, std::int64_t sid)
{
    auto& db = session.tournament();
    auto row = db.query("select * from schedule where sid=?", sid);
    if (!row.step()) {
        session.talk().message(std::to_string(sid) + " not found");
        return std::nullopt;
    }
    if (row.text("rname") == "winner")
        return std::nullopt;

    const auto words = current_sport_words(session);
    LoadedMatch m;
    m.sid = sid;
    m.eid = row.integer("eid");
    m.drawtype = row.text("drawtype");
    m.pts = static_cast<int>(db.scalar_integer("select pts from events where eid=?", m.eid));
    m.details.push_back(format_day_time(row.text("scheduledate"), row.text("matchtime")));
    m.details.push_back("event id=" + std::to_string(m.eid));
    m.details.push_back("eventname=" + row.text("eventname"));
    if (m.drawtype == "rr") {
        m.details.push_back("drawtype=rr" + get_pts_str(m.pts) + " number=" + row.text("rname"));
    } else {
        m.details.push_back("drawtype=ko");
        m.details.push_back("round=" + row.text("rname"));
    }
    m.details.push_back(words.match + " id=" + std::to_string(sid));
    m.details.push_back(words.court + "=" + cid_word(row.integer("cid")));

    m.mttag = row.text("mttag");
    m.mbtag = row.text("mbtag");
    m.top = result_side_text(m.mttag, row.text("mtseeding"), row.text("mt_country"));
    m.bottom = result_side_text(m.mbtag, row.text("mbseeding"), row.text("mb_country"));
    m.winner = winner_of(row.text("mwtag"), m.mttag, m.mbtag);
    m.matchscore = row.text("matchscore");
    m.matchlongscore = row.text("matchlongscore");
    m.points1 = row.text("points1");
    m.points2 = row.text("points2");

    if (m.drawtype != "rr")
        if (const auto next = next_row(db, m.eid, row.text("mw_ptr"))) {
            m.following_sid = next->sid;
            m.locked = !next->mwtag.empty();
        }
    return m;
}

std::string filter_text(std::string_view text)
{
    std::u32string kept;
    for (char32_t c : decode_utf8(text))
        if (c != U'\u00BF' && c != U'~')
            kept.push_back(c);
    return encode_utf8(kept);
}

void rr_result_mode(int pts, MatchResult& result)
{
    RrMatch line;
    line.points1 = result.points1;
    line.points2 = result.points2;
    line.score = result.matchscore;
    line.winner = result.winner == ResultWinner::top ? RrWinner::top
        : result.winner == ResultWinner::bottom      ? RrWinner::bottom
                                                     : RrWinner::none;
    rr_apply_scoring(line, pts);
    result.points1 = line.points1;
    result.points2 = line.points2;
    result.matchscore = line.score;
}

bool check_result_texts(UserTalk& talk, std::string_view drawtype, const MatchResult& result)
{
    if (drawtype == "rr") {
        if (refuse_box(talk, result.matchscore, "rr score") || refuse_box(talk, result.matchlongscore, "rr long score"))
            return false;
        return report(talk, check_double(result.points1)) && report(talk, check_double(result.points2));
    }
    return !refuse_pair(talk, result.matchscore, "short score", result.matchlongscore, "long score");
}

std::vector<std::int64_t> write_result(Session& session, const MatchResult& result)
{
    auto& db = session.tournament();
    auto row = db.query("select eid, drawtype, mw_ptr, mtttt, mtfrn, mttag, mbttt, mbfrn, mbtag, mwtag from "
                        "schedule where sid=? and rname<>'winner'",
        result.sid);
    if (!row.step())
        return {};
    const auto eid = row.integer(0);
    const bool rr = row.text(1) == "rr";
    const auto next = rr ? std::nullopt : next_row(db, eid, row.text(2));
    if (next && !next->mwtag.empty()) {
        session.talk().message("following round played, cannot change winner");
        return {};
    }
    std::string ttt, frn, tag;
    if (result.winner != ResultWinner::none) {
        const int at = result.winner == ResultWinner::top ? 3 : 6;
        ttt = row.text(at);
        frn = row.text(at + 1);
        tag = row.text(at + 2);
    }

    Transaction transaction(db);
    if (rr)
        db.run("update schedule set mwttt=?, imwttt=?, mwfrn=?, imwfrn=?, mwtag=?, imwtag=?, matchscore=?, "
               "imatchscore=?, matchlongscore=?, imatchlongscore=?, points1=?, ipoints1=?, points2=?, ipoints2=? "
               "where sid=?",
            ttt, ttt, frn, frn, tag, tag, result.matchscore, result.matchscore, result.matchlongscore,
            result.matchlongscore, result.points1, result.points1, result.points2, result.points2, result.sid);
    else
        db.run("update schedule set mwttt=?, imwttt=?, mwfrn=?, imwfrn=?, mwtag=?, imwtag=?, matchscore=?, "
               "imatchscore=?, matchlongscore=?, imatchlongscore=? where sid=?",
            ttt, ttt, frn, frn, tag, tag, result.matchscore, result.matchscore, result.matchlongscore,
            result.matchlongscore, result.sid);
    store_changed(db, result.sid);
    std::vector<std::int64_t> written { result.sid };
    if (next) {
        for (std::string_view prefix : { "", "i" })
            carry_winner(db, result.sid, next->sid, prefix, next->side);
        store_changed(db, next->sid);
        written.push_back(next->sid);
    }
    recompute_written_states(db, written);
    transaction.commit();
    return written;
}

} // namespace qv
