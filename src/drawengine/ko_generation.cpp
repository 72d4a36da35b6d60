#include "drawengine/ko_generation.h"

#include "core/database.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/utf8.h"
#include "drawengine/name_forms.h"
#include "drawengine/seeding_patterns.h"
#include "entries/main_lists.h"

#include <optional>

namespace qv {

namespace {

// A row of draw_stage1 as the passes read it.
struct Candidate
{
    std::int64_t i = 0;
    std::string seeding;
    std::string player;
    int pwq = 0;
    std::string cty;
    std::string ar;
    std::string psex;
};

enum Pwq { player_kind = 0, wildcard_kind = 1, qualifier_kind = 2, bye_kind = 3 };

// The first row of draw_stage1, in shuffled order, that the condition picks. The condition is one of the fixed
// texts below, never user text.
std::optional<Candidate> first_candidate(Database& db, std::string_view condition)
{
    auto row = db.query("select i, seeding, player, pwq, cty, ar, psex from draw_stage1 where " + std::string(condition)
        + " order by i limit 1");
    if (!row.step())
        return std::nullopt;
    return Candidate { row.integer("i"), row.text("seeding"), row.text("player"), static_cast<int>(row.integer("pwq")),
        row.text("cty"), row.text("ar"), row.text("psex") };
}

std::optional<Candidate> first_seeded(Database& db, const std::string& seed)
{
    auto row = db.query(
        "select i, seeding, player, pwq, cty, ar, psex from draw_stage1 where seeding = ? order by i limit 1", seed);
    if (!row.step())
        return std::nullopt;
    return Candidate { row.integer("i"), row.text("seeding"), row.text("player"), static_cast<int>(row.integer("pwq")),
        row.text("cty"), row.text("ar"), row.text("psex") };
}

void mark_gone(Database& db, const Candidate& candidate)
{
    db.run("update draw_stage1 set gone = 1 where i = ?", candidate.i);
}

bool slot_free(Database& db, int slot)
{
    return db.scalar_integer("select count(*) from draw_stage2 where i = ? and player = '-'", slot) > 0;
}

std::string slot_player(Database& db, int slot)
{
    return db.scalar_text("select player from draw_stage2 where i = ?", slot);
}

void place(Database& db, int slot, const Candidate& candidate, const std::string& seed)
{
    db.run("update draw_stage2 set seed = ?, player = ?, cty = ?, ar = ?, psex = ? where i = ?", seed, candidate.player,
        candidate.cty, candidate.ar, candidate.psex, slot);
    mark_gone(db, candidate);
}

void place_bye(Database& db, int slot, const Candidate& bye)
{
    db.run("update draw_stage2 set player = ? where i = ?", bye.player, slot);
    mark_gone(db, bye);
}

std::string seed_of_kind(int pwq)
{
    if (pwq == wildcard_kind)
        return "wc";
    if (pwq == qualifier_kind)
        return "q";
    return {};
}

bool begins(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

// One shuffled name into draw_stage1: an entry when an entry has that name, else one of the labels.
void add_candidate(Database& db, std::int64_t eid, int i, const std::string& name)
{
    auto entry = db.query(R"(select player, seeding, country, ar, psex from evententries
        where eid = ? and reserve = 0 and lower(trim(player)) = ? order by rowid limit 1)",
        eid, name_key(name));
    if (entry.step()) {
        auto seeding = entry.text("seeding");
        if (seeding == "0")
            seeding.clear();
        db.run(R"(insert into draw_stage1 (i, seeding, player, pwq, cty, ar, psex, gone)
            values (?, ?, ?, 0, ?, ?, ?, 0))",
            i, seeding, entry.text("player"), entry.text("country"), entry.text("ar"), sex_code(entry.text("psex")));
        return;
    }
    int pwq = player_kind;
    if (begins(name, "wildcard"))
        pwq = wildcard_kind;
    else if (begins(name, "qualifier"))
        pwq = qualifier_kind;
    else if (begins(name, "bye"))
        pwq = bye_kind;
    db.run("insert into draw_stage1 (i, seeding, player, gone, pwq) values (?, ?, ?, 0, ?)", i, seed_of_kind(pwq), name,
        pwq);
}

// Seeds go on their pattern slots in ascending order, and while byes last each seed gets one beside it.
void place_seeds(Database& db, Database& init, int drawsize)
{
    for (const auto& row : default_seed_positions(init, drawsize)) {
        const int partner = OpenDraw::partner(row.pos);
        const auto seeded = first_seeded(db, std::to_string(row.seed));
        if (!seeded || !slot_free(db, row.pos))
            continue;
        place(db, row.pos, *seeded, seeded->seeding);
        if (const auto bye = first_candidate(db, "pwq=3 and gone=0"); bye && slot_free(db, partner))
            place_bye(db, partner, *bye);
    }
}

// Every pair still empty gets one candidate on its top slot: players first, wildcards and qualifiers last, so
// that no pair is left to two byes while a candidate remains.
void fill_empty_pairs(Database& db, int drawsize)
{
    for (int s = 1; s <= drawsize; s += 2) {
        if (slot_player(db, s) != "-" || slot_player(db, s + 1) != "-")
            continue;
        auto candidate = first_candidate(db, "pwq=0 and gone=0");
        if (!candidate)
            candidate = first_candidate(db, "pwq=1 and gone=0");
        if (!candidate)
            candidate = first_candidate(db, "pwq=2 and gone=0");
        if (candidate)
            place(db, s, *candidate, seed_of_kind(candidate->pwq));
    }
}

// The free slots are taken in random order; the byes left over go first.
void fill_the_rest(Database& db, DrawRandom& random)
{
    std::vector<int> hold;
    for (auto free = db.query("select i from draw_stage2 where player='-' order by rowid"); free.step();)
        hold.push_back(static_cast<int>(free.integer("i")));
    while (!hold.empty()) {
        const auto k = random.pick(hold.size());
        const int s = hold[k];
        if (const auto bye = first_candidate(db, "pwq=3 and gone=0"))
            place_bye(db, s, *bye);
        else if (const auto candidate = first_candidate(db, "gone=0"))
            place(db, s, *candidate, seed_of_kind(candidate->pwq));
        hold.erase(hold.begin() + static_cast<std::ptrdiff_t>(k));
    }
}

// The running numbers come off the labels. This runs over the whole table, so a player whose name begins with
// these letters is renamed as well; draws have always come out this way.
void strip_labels(Database& db)
{
    db.run("update draw_stage2 set player='bye' where substr(player,1,3)='bye' collate nocase");
    db.run("update draw_stage2 set player='wildcard' where substr(player,1,8)='wildcard' collate nocase");
    db.run("update draw_stage2 set player='qualifier' where substr(player,1,9)='qualifier' collate nocase");
}

std::string rname_for(int slots, int rid)
{
    switch (slots) {
    case 8:
        return "quaters";
    case 4:
        return "semis";
    case 2:
        return "final";
    case 1:
        return "winner";
    default:
        return "r" + std::to_string(rid);
    }
}

// Keeps the all-draws flag up only while the run lasts, also when a database fault ends it early.
class AllDrawsFlag
{
public:
    explicit AllDrawsFlag(DrawState& draw)
        : m_draw(draw)
    {
        m_draw.all_draws = true;
    }
    AllDrawsFlag(const AllDrawsFlag&) = delete;
    AllDrawsFlag& operator=(const AllDrawsFlag&) = delete;
    ~AllDrawsFlag() { m_draw.all_draws = false; }

private:
    DrawState& m_draw;
};

} // namespace

int get_random(DrawRandom& random, bool flag)
{
    return flag ? 2 + static_cast<int>(random.pick(2)) : 1 + static_cast<int>(random.pick(3));
}

void KO_do_draw_jumble1(std::vector<std::string>& hold, std::vector<std::string>& hold2, DrawRandom& random)
{
    while (!hold.empty()) {
        const auto k = static_cast<std::ptrdiff_t>(random.pick(hold.size()));
        hold2.push_back(std::move(hold[static_cast<std::size_t>(k)]));
        hold.erase(hold.begin() + k);
    }
}

void KO_do_draw_jumble2(std::vector<std::string>& hold, std::vector<std::string>& hold2, DrawRandom& random)
{
    hold.clear();
    while (!hold2.empty()) {
        const auto k = static_cast<std::ptrdiff_t>(random.pick(hold2.size()));
        hold.push_back(std::move(hold2[static_cast<std::size_t>(k)]));
        hold2.erase(hold2.begin() + k);
    }
}

void pull_ar_countries(Database& tournament, std::int64_t eid)
{
    struct Entry
    {
        std::int64_t row = 0;
        std::string player;
    };
    std::vector<Entry> entries;
    for (auto rows = tournament.query(
             "select rowid as r, player from evententries where eid = ? and reserve = 0 order by rowid", eid);
         rows.step();)
        entries.push_back({ rows.integer("r"), rows.text("player") });

    for (const auto& entry : entries) {
        std::vector<std::string> names;
        if (entry.player.find('/') != std::string::npos) {
            const auto pair = split_pair(entry.player);
            names = { pair.left, pair.right };
        } else {
            names = { trim(entry.player) };
        }
        std::string country;
        std::string ar;
        for (std::size_t n = 0; n < names.size(); ++n) {
            auto person = tournament.query(
                "select country, availabilityrestrictions from players where player = ? order by rowid limit 1",
                names[n]);
            const bool found = person.step();
            if (n > 0)
                country += "/";
            if (found) {
                country += person.text("country");
                if (!is_empty(person.text("availabilityrestrictions")))
                    ar += ".";
            }
        }
        tournament.run("update evententries set country = ?, ar = ? where rowid = ?", country, ar, entry.row);
    }
}

void load_event_state(Database& tournament, std::int64_t eid, DrawState& draw)
{
    auto event = tournament.query(R"(select eventname, sex, drawtype, singdobs, pts, drawsize, min_sid, max_sid,
        timestamp_text from events where eid = ?)",
        eid);
    draw.curr_eid = eid;
    if (!event.step())
        return;
    draw.eventname = event.text("eventname");
    draw.evtsex = event.text("sex");
    draw.drawtype = event.text("drawtype");
    draw.singdobs = event.text("singdobs");
    draw.pts = static_cast<int>(event.integer("pts"));
    draw.drawsize = static_cast<int>(event.integer("drawsize"));
    draw.rounds = round_count(draw.drawsize) + 1;
    draw.min_sid = event.integer("min_sid");
    draw.max_sid = event.integer("max_sid");
    draw.timestamp_text = event.text("timestamp_text");
}

bool KO_do_draw2(Session& session, OpenDraw& open, DrawRandom& random, const DrawHooks& hooks)
{
    auto& db = session.tournament();
    auto& draw = open.draw;
    const auto eid = draw.curr_eid;

    std::int64_t wildcards = 0;
    std::int64_t qualifiers = 0;
    if (auto event = db.query("select wildcards, qualifiers, singdobs from events where eid = ?", eid); event.step()) {
        wildcards = event.integer("wildcards");
        qualifiers = event.integer("qualifiers");
        draw.singdobs = event.text("singdobs");
    }
    std::vector<std::string> hold;
    for (auto entries = db.query("select player from evententries where eid = ? and reserve = 0 order by rowid", eid);
         entries.step();)
        hold.push_back(entries.text("player"));
    if (hold.empty() && wildcards + qualifiers <= 0) {
        if (!draw.all_draws)
            session.talk().message("no players");
        return false;
    }

    // The stage tables take hundreds of small writes; one transaction keeps them off the disk until the end.
    Transaction transaction(db);
    if (session.settings().integer("refresh_ac_on_do_draw") == 1)
        pull_ar_countries(db, eid);

    for (std::int64_t w = 1; w <= wildcards; ++w)
        hold.push_back("wildcard" + std::to_string(w));
    for (std::int64_t q = 1; q <= qualifiers; ++q)
        hold.push_back("qualifier" + std::to_string(q));
    const int count = static_cast<int>(hold.size());
    if (count > 128 && !draw.all_draws)
        session.talk().message("max 128 players, you have " + std::to_string(count) + ",edit in draw config");
    const int drawsize = calcdrawsize(count);
    // A size past 128 has no tree to place into: the draw stops here rather than leave a draw nobody can use.
    if (round_count(drawsize) == 0) {
        transaction.commit();
        return false;
    }
    for (int b = 1; b <= drawsize - count; ++b)
        hold.push_back("bye" + std::to_string(b));

    std::vector<std::string> hold2;
    KO_do_draw_jumble1(hold, hold2, random);
    KO_do_draw_jumble2(hold, hold2, random);

    db.run("delete from draw_stage1");
    for (int i = 1; !hold.empty(); ++i) {
        const auto k = random.pick(hold.size());
        add_candidate(db, eid, i, hold[k]);
        hold.erase(hold.begin() + static_cast<std::ptrdiff_t>(k));
    }

    db.run("delete from draw_stage2");
    db.run("insert into draw_stage2 (i) select i from draw_stage1");
    db.run("update draw_stage2 set player='-'");

    place_seeds(db, session.init_db(), drawsize);
    fill_empty_pairs(db, drawsize);
    fill_the_rest(db, random);
    strip_labels(db);

    open.build_tree(drawsize);
    KO_pull_draw_stage2(db, open);
    k_fmt_names_current_pre_draw(db, open);
    transaction.commit();

    draw.on_screen = true;
    draw.new_draw = true;
    if (hooks.set_scoreboxes)
        hooks.set_scoreboxes(open, session.settings().integer("draw.ihilightscorebox") == 1);
    if (session.settings().integer("draw.byes_thru_on_do_draw") == 1 && hooks.sendbyesthru)
        hooks.sendbyesthru(open);
    if (hooks.show_draw)
        hooks.show_draw(open);
    return true;
}

void KO_pull_draw_stage2(Database& tournament, OpenDraw& open)
{
    for (auto rows = tournament.query("select i, player, seed, cty, ar, psex from draw_stage2 order by i");
         rows.step();) {
        const int i = static_cast<int>(rows.integer("i"));
        if (!open.has_slot(1, i))
            continue;
        auto& slot = open.slot(1, i);
        slot.ttt = slot.frn = slot.tag = rows.text("player");
        slot.seed = rows.text("seed");
        // Only a single code fits the draw sheet; a pair's "a/b" is left off.
        const auto cty = rows.text("cty");
        slot.country = cty.find('/') == std::string::npos && char_count(cty) <= 3 ? cty : std::string();
        slot.ar = rows.text("ar");
        slot.sex = rows.text("psex");
    }
}

bool RR_KO_delete_draw(Session& session, OpenDraw& open)
{
    auto& draw = open.draw;
    if (!draw.on_screen || draw.drawsize == 0 || draw.curr_eid == 0)
        return true;
    const auto answer
        = session.talk().ask("This will delete the draw data including any schedule data that may exist,continue?",
            "Confirm", Buttons::YesNoCancel);
    if (answer != Answer::Yes)
        return false;
    open.clear_tree();
    auto& db = session.tournament();
    db.run("delete from schedule where eid = ?", draw.curr_eid);
    db.run("update events set drawdone = 0, drawsize = 0, timestamp_text = '' where eid = ?", draw.curr_eid);
    db.run("update evententries set drawdone = 0 where eid = ?", draw.curr_eid);
    // The event's "*" goes, and with it everything that lists draws or shows the schedule board.
    session.refresh_lists(Lists::events);
    session.refresh_lists(Lists::draw);
    draw.on_screen = false;
    return true;
}

void DODRAW(Session& session, OpenDraw& open, DrawRandom& random, const DrawHooks& hooks)
{
    if (open.draw.curr_eid == 0)
        return;
    // The draw stays on show while the user is asked; only a Yes takes it away, before the new one is placed.
    const bool had_draw = open.draw.on_screen;
    if (!RR_KO_delete_draw(session, open))
        return;
    if (had_draw && !open.draw.on_screen && hooks.show_draw)
        hooks.show_draw(open);
    if (open.draw.drawtype == "ko")
        KO_do_draw2(session, open, random, hooks);
    else if (open.draw.drawtype == "rr" && hooks.round_robin)
        hooks.round_robin(open);
}

void add_draw_stub(Database& tournament, OpenDraw& open)
{
    auto& draw = open.draw;
    const int rounds = round_count(draw.drawsize);
    if (rounds == 0)
        return;
    std::int64_t sid = 1;
    if (auto max = tournament.query("select max(sid) as maxsid from schedule"); max.step() && !max.is_null("maxsid"))
        sid = max.integer("maxsid") + 1;
    const auto min_sid = sid;
    const int levels = rounds + 1;
    const std::string maxrounds = std::to_string(levels - 1);

    Transaction transaction(tournament);
    auto insert = tournament.query(R"(insert into schedule (eid, ds, drawtype, singdobs, eventname, evtsex, "match",
        maxrounds, sid, rid, rname, rsname, mt, mb, mw_ptr, matchtime_int, match_state,
        scheduledate, mtseeding, mbseeding, prev_match_state, mtttt, mtfrn, mttag, mbttt, mbfrn, mbtag,
        mwttt, mwfrn, mwtag, imtttt, imtfrn, imttag, imbttt, imbfrn, imbtag, imwttt, imwfrn, imwtag,
        imatchscore, imatchlongscore, matchtime, nbat, p1_matchnote, p2_matchnote, p3_matchnote, p4_matchnote,
        mg_matchnote)
        values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, -1, '1',
        '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '', '',
        '', '', '', '', '', '', '', '', ''))");
    int match = 1;
    int slots = draw.drawsize;
    for (int rid = 1; rid <= levels; ++rid) {
        for (int s = 1; s <= slots; s += 2) {
            insert.reset();
            insert.bind_all(draw.curr_eid, draw.drawsize, draw.drawtype, draw.singdobs, draw.eventname, draw.evtsex,
                match, levels - 1, sid, rid, rname_for(slots, rid), std::to_string(rid) + "." + maxrounds,
                OpenDraw::address_text(rid, s), OpenDraw::address_text(rid, s + 1),
                OpenDraw::address_text(rid + 1, OpenDraw::next_position(s)));
            insert.step();
            ++sid;
            ++match;
        }
        slots /= 2;
    }
    const auto last_sid = sid - 1;
    tournament.run("update events set min_sid = ?, max_sid = ? where eid = ?", min_sid, last_sid, draw.curr_eid);
    transaction.commit();

    draw.min_sid = min_sid;
    draw.max_sid = last_sid + 1;
    for (int level = 1; level <= open.levels(); ++level)
        for (int position = 1; position <= open.positions(level); ++position)
            open.slot(level, position).sid = min_sid + open.match_of(level, position) - 1;
}

void do_all_draws(
    Session& session, OpenDraw& open, DrawRandom& random, const DrawHooks& hooks, const AllDrawsSteps& steps)
{
    if (steps.close_draw && !steps.close_draw(open))
        return;
    {
        // One unit of work: a failure part way leaves every event as it was.
        Transaction transaction(session.tournament());
        AllDrawsFlag flag(open.draw);
        // Only the events the list shows: a filtered-out event keeps having no draw.
        const auto lines = steps.event_lines ? steps.event_lines() : loadevents(session.tournament());
        for (const auto& line : lines) {
            if (line.text.find('*') != std::string::npos)
                continue;
            if (steps.load_draw) {
                steps.load_draw(open, line.id);
            } else {
                load_event_state(session.tournament(), line.id, open.draw);
                open.clear_tree();
                open.draw.on_screen = false;
                open.draw.new_draw = false;
            }
            if (steps.breathe)
                steps.breathe();
            DODRAW(session, open, random, hooks);
            if (steps.save_draw_doing_all_draws)
                steps.save_draw_doing_all_draws(open);
        }
        if (steps.close_draw_special)
            steps.close_draw_special(open);
        if (steps.save_draw_END_doing_all_draws)
            steps.save_draw_END_doing_all_draws(open);
        transaction.commit();
    }
    session.talk().message("ok");
}

} // namespace qv
