#include "drawengine/ko_progression.h"

#include "core/database.h"
#include "core/match_record.h"
#include "core/session.h"
#include "core/utf8.h"
#include "drawengine/draw_saving.h"

namespace qv {

namespace {

bool begins(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

std::string name_of(const OpenDraw& open, SlotAddress at)
{
    return lcase(trim(open.caption(at.level, at.position)));
}

// A player who may be sent on against a bye: anyone but the empty slot and the reserved places.
bool named_player(std::string_view caption)
{
    const auto name = lcase(trim(caption));
    return !name.empty() && !begins(name, "wildcard") && !begins(name, "qualifier") && !begins(name, "bye");
}

// The copy keeps the target's score box and row: they belong to the match, not to the player.
void copy_player(const Slot& from, Slot& to)
{
    to.ttt = from.ttt;
    to.frn = from.frn;
    to.tag = from.tag;
    to.seed = from.seed;
    to.country = from.country;
    to.ar = from.ar;
    to.sex = from.sex;
}

ClickResult refuse(Session& session, std::string_view text)
{
    session.talk().message(text);
    return { ClickOutcome::refused, {} };
}

ClickResult send_on(Session& session, OpenDraw& open, int level, int position)
{
    const auto& draw = open.draw;
    if (draw.list1_showing || level >= draw.rounds || level >= open.levels())
        return {};
    const auto ctl = get_click_ctls(open, level, position);

    if (level == 1) {
        const auto name = name_of(open, ctl.clicked);
        if (begins(name, "bye"))
            return refuse(session, "cannot send bye to next round");
        if (begins(name, "wildcard"))
            return refuse(session, "cannot send wildcard to next round");
        if (begins(name, "qualifier"))
            return refuse(session, "cannot send qualifier to next round");
        const auto opponent = name_of(open, ctl.opponent);
        if (begins(opponent, "wildcard") || begins(opponent, "qualifier"))
            return refuse(session, "player must have opponent");
    }
    if (open.is_empty(level, position))
        return {};
    if (open.is_empty(ctl.opponent.level, ctl.opponent.position))
        return refuse(session, "no opponent");
    if (ctl.has_next_next && !open.is_empty(ctl.next_next.level, ctl.next_next.position) && !draw.batch)
        return refuse(session, "next round already played,roll back first");

    copy_player(open.slot(ctl.clicked), open.slot(ctl.next));
    KO_imm_save(session, open, level, position);
    return { ClickOutcome::sent_on, { ctl.next } };
}

ClickResult take_back(Session& session, OpenDraw& open, int level, int position)
{
    if (level == 1)
        return { ClickOutcome::first_round_menu, {} };
    if (open.is_empty(level, position))
        return {};
    const int next = OpenDraw::next_position(position);
    if (level + 1 <= open.draw.rounds && open.has_slot(level + 1, next) && !open.is_empty(level + 1, next))
        return refuse(session, "clear result first");

    open.clear_slot(level, position);
    KO_imm_save(session, open, level - 1, position * 2 - 1);
    KO_imm_save(session, open, level - 1, position * 2);
    return { ClickOutcome::taken_back, { { level, position } } };
}

// Keeps the batch flag up only while the sends run, also when a database fault ends them early.
class BatchFlag
{
public:
    explicit BatchFlag(DrawState& draw)
        : m_draw(draw)
    {
        m_draw.batch = true;
    }
    BatchFlag(const BatchFlag&) = delete;
    BatchFlag& operator=(const BatchFlag&) = delete;
    ~BatchFlag() { m_draw.batch = false; }

private:
    DrawState& m_draw;
};

} // namespace

ClickControls get_click_ctls(const OpenDraw& open, int level, int position)
{
    ClickControls ctl;
    ctl.clicked = { level, position };
    ctl.opponent = { level, OpenDraw::partner(position) };
    const int n = OpenDraw::next_position(position);
    ctl.next = { level + 1, n };
    ctl.next_next = { level + 2, OpenDraw::next_position(n) };
    ctl.has_next = open.has_slot(ctl.next.level, ctl.next.position);
    ctl.has_next_next = open.has_slot(ctl.next_next.level, ctl.next_next.position);
    return ctl;
}

std::optional<ScoreBoxMatch> get_ctr_match(const OpenDraw& open, int level, int position)
{
    if (level < 2 || !open.has_slot(level, position) || !open.has_slot(level - 1, position * 2))
        return std::nullopt;
    ScoreBoxMatch match;
    match.top = { level - 1, position * 2 - 1 };
    match.bottom = { level - 1, position * 2 };
    match.match = open.match_of(match.top.level, match.top.position);
    match.sid = open.slot(match.top).sid;
    return match;
}

std::optional<LongScoreRequest> add_ls(const OpenDraw& open, int level, int position)
{
    const auto match = get_ctr_match(open, level, position);
    if (!match)
        return std::nullopt;
    return LongScoreRequest { *match, open.slot(level, position).score.matchlongscore,
        open.caption(match->top.level, match->top.position),
        open.caption(match->bottom.level, match->bottom.position) };
}

ClickResult master_click(Session& session, OpenDraw& open, int level, int position, int button)
{
    if (!open.has_slot(level, position))
        return {};
    if (button & left_button)
        return send_on(session, open, level, position);
    if (button & right_button)
        return take_back(session, open, level, position);
    return {};
}

std::vector<SlotAddress> sendbyesthru(Session& session, OpenDraw& open)
{
    const auto& draw = open.draw;
    std::vector<SlotAddress> filled;
    if (draw.drawtype != "ko" || draw.curr_eid == 0 || !draw.on_screen)
        return filled;
    BatchFlag batch(open.draw);
    for (int i = 1; i <= draw.drawsize && open.has_slot(1, i); ++i) {
        const int partner = OpenDraw::partner(i);
        if (open.caption(1, i) != "bye" || !named_player(open.caption(1, partner)))
            continue;
        const auto result = master_click(session, open, 1, partner, left_button);
        filled.insert(filled.end(), result.changed.begin(), result.changed.end());
    }
    return filled;
}

int KO_getbyecount(const OpenDraw& open)
{
    int count = 0;
    for (int i = 1; i <= open.positions(1); ++i)
        count += lcase(open.caption(1, i)) == "bye";
    return count;
}

void set_scoreboxes(OpenDraw& open, bool highlight)
{
    for (int level = 2; level <= open.draw.rounds && level <= open.levels(); ++level)
        for (int position = 1; position <= open.positions(level); ++position)
            open.slot(level, position).score.highlighted = highlight;
}

ScoreDisplay settsdisplay(const ScoreBox& box)
{
    const auto mark = box.tag.find('?');
    if (mark == std::string::npos)
        return { box.tag, {} };
    return { box.tag.substr(0, mark), box.tag.substr(mark + 1) };
}

void progressdraw(Session& session, std::int64_t eid, int rid)
{
    auto& db = session.tournament();
    struct Row
    {
        std::int64_t sid = 0;
        std::string ttt, frn, tag, country, seeding, ar, sex, p1, p2, mw_ptr;
    };
    std::vector<Row> rows;
    for (auto q = db.query("select * from schedule where eid = ? and rid = ? order by \"match\"", eid, rid); q.step();)
        rows.push_back({ q.integer("sid"), q.text("mtttt"), q.text("mtfrn"), q.text("mttag"), q.text("mt_country"),
            q.text("mtseeding"), q.text("mtar"), q.text("mtsex"), q.text("p1"), q.text("p2"), q.text("mw_ptr") });

    static constexpr std::string_view score = "61 62 63 64";
    static constexpr std::string_view longscore = "61 (76) 62 63 64";
    Transaction transaction(db);
    for (const auto& row : rows) {
        db.run(R"(update schedule set mwttt = ?, mwfrn = ?, mwtag = ?, matchscore = ?, matchlongscore = ?,
            imwttt = ?, imwfrn = ?, imwtag = ?, imatchscore = ?, imatchlongscore = ? where sid = ?)",
            row.ttt, row.frn, row.tag, score, longscore, row.ttt, row.frn, row.tag, score, longscore, row.sid);
        const auto target = OpenDraw::split_mtmb(row.mw_ptr);
        if (!target)
            continue;
        // The column names come from these two fixed texts only.
        if (OpenDraw::side(target->position) == 't')
            db.run(R"(update schedule set mtttt = ?, mtfrn = ?, mttag = ?, mt_country = ?, mtseeding = ?, mtar = ?,
                mtsex = ?, p1 = ?, p2 = ?, imtttt = ?, imtfrn = ?, imttag = ?, imt_country = ?, imtseeding = ?,
                imtar = ?, imtsex = ?, ip1 = ?, ip2 = ? where eid = ? and mt = ?)",
                row.ttt, row.frn, row.tag, row.country, row.seeding, row.ar, row.sex, row.p1, row.p2, row.ttt, row.frn,
                row.tag, row.country, row.seeding, row.ar, row.sex, row.p1, row.p2, eid, row.mw_ptr);
        else
            db.run(R"(update schedule set mbttt = ?, mbfrn = ?, mbtag = ?, mb_country = ?, mbseeding = ?, mbar = ?,
                mbsex = ?, p3 = ?, p4 = ?, imbttt = ?, imbfrn = ?, imbtag = ?, imb_country = ?, imbseeding = ?,
                imbar = ?, imbsex = ?, ip3 = ?, ip4 = ? where eid = ? and mb = ?)",
                row.ttt, row.frn, row.tag, row.country, row.seeding, row.ar, row.sex, row.p1, row.p2, row.ttt, row.frn,
                row.tag, row.country, row.seeding, row.ar, row.sex, row.p1, row.p2, eid, row.mw_ptr);
    }
    recompute_match_states(db, eid);
    transaction.commit();
}

} // namespace qv
