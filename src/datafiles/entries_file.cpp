#include "datafiles/entries_file.h"

#include "core/clear_data.h"
#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/utf8.h"
#include "datafiles/marked_tokens.h"
#include "online/reply.h"

#include <array>

namespace qv {

namespace {

constexpr const char* name_end = "%";
constexpr const char* event_end = "'";
constexpr const char* player_end = "/";
constexpr const char* entry_end = "\\";

// The player record after its stamp and zone word, in the order of the players table.
constexpr std::array<const char*, 23> player_columns { "pid", "fname", "sname", "email", "password", "dob", "sex",
    "address1", "address2", "city", "state", "postcode", "country", "phone", "mobile", "rating", "ranking", "results",
    "club", "availabilityrestrictions", "tsd", "message", "pval" };

std::string sex_word(std::string_view letter)
{
    if (letter == "m")
        return "male";
    if (letter == "f")
        return "female";
    if (letter == "x")
        return "mixed";
    if (letter == "n")
        return "neutral";
    return std::string(letter);
}

// What follows the first "." of a pair's sexes ("male.female" gives "female").
std::string split_sex(std::string_view psex)
{
    const auto dot = psex.find('.');
    return dot == std::string_view::npos ? std::string() : std::string(psex.substr(dot + 1));
}

std::string entry_line(const std::string& pid, std::int64_t eid, const std::string& fname, const std::string& sname,
    const std::string& sex)
{
    return pid + "^" + std::to_string(eid) + "^" + fname + "^" + sname + "^" + sex + "^" + entry_end + "^";
}

void add_entry_lines(Database& db, Qv5Doubles doubles, std::vector<std::string>& lines)
{
    auto pid_of = db.query("select pid from players where lower(trim(player)) = ?");
    const auto pid = [&](const std::string& name) -> std::optional<std::string> {
        pid_of.reset();
        pid_of.bind(1, name_key(name));
        if (!pid_of.step())
            return std::nullopt;
        return pid_of.text(0);
    };
    auto entries = db.query(doubles == Qv5Doubles::resolved ? "select * from evententries order by eid"
                                                            : "select * from evententries where sd = 'singles' "
                                                              "order by eid");
    while (entries.step()) {
        const bool singles = entries.text("sd") == "singles";
        if (const auto found = pid(entries.text(singles ? "player" : "p1name")))
            lines.push_back(singles ? entry_line(*found, entries.integer("eid"), "", "", "")
                                    : entry_line(*found, entries.integer("eid"), entries.text("partnerfname"),
                                        entries.text("partnersname"), split_sex(entries.text("psex"))));
    }
    if (doubles == Qv5Doubles::resolved)
        return;
    auto raw = db.query("select * from rawdoublesentries order by eid");
    while (raw.step())
        if (const auto found = pid(raw.text("player")))
            lines.push_back(entry_line(
                *found, raw.integer("eid"), raw.text("partnerfname"), raw.text("partnersname"), raw.text("p2sex")));
}

// Reads the records of an entries file into one set of tables.
class Qv5Reader
{
public:
    Qv5Reader(Database& db, const std::string& prefix)
        : m_event(db.query("insert into " + prefix + R"(events (eid, eventname, sex, pte, fee, singdobs, drawtype,
              pts) values (?, ?, ?, ?, ?, ?, 'ko', 0))"))
        , m_player(db.query("insert into " + prefix + R"(players ("timestamp", timezone, pid, fname, sname, email,
              password, dob, sex, address1, address2, city, state, postcode, country, phone, mobile, rating, ranking,
              results, club, availabilityrestrictions, tsd, message, pval, address, player, ar, paid_state,
              downloaded) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?,
              ?, '', 1))"))
        , m_singles(db.query("insert into " + prefix + R"(evententries (eid, pid, ent_idx, sd)
              values (?, ?, ?, 'singles'))"))
        , m_doubles(db.query("insert into " + prefix + R"(rawdoublesentries (eid, pid, rdidx, partnerfname,
              partnersname, partnername, p2sex) values (?, ?, ?, ?, ?, ?, ?))"))
        , m_singdobs(db.query("select singdobs from " + prefix + "events where eid = ?"))
    {
    }

    bool read(const std::vector<std::string>& tokens)
    {
        std::vector<std::string> record;
        for (const auto& token : tokens) {
            bool good = true;
            // The service's greeting stands before the first record.
            if (token == service_marker || token == "no_error")
                record.clear();
            else if (token == name_end)
                m_tname = name_of(record);
            else if (token == event_end)
                good = add_event(record);
            else if (token == player_end)
                good = add_player(record);
            else if (token == entry_end)
                good = add_entry(record);
            else {
                record.push_back(token);
                continue;
            }
            if (!good)
                return false;
            record.clear();
        }
        return true;
    }

    const std::string& tname() const { return m_tname; }

private:
    static std::string name_of(const std::vector<std::string>& record)
    {
        std::string name;
        for (const auto& field : record)
            name += (name.empty() ? "" : "^") + field;
        return name;
    }

    bool add_event(const std::vector<std::string>& f)
    {
        if (f.size() != 6 || !whole_number(f[0]))
            return false;
        m_event.reset();
        m_event.bind_all(std::stoll(f[0]), f[1], sex_word(f[2]), f[3], f[4], f[5]);
        m_event.step();
        return true;
    }

    bool add_player(std::vector<std::string> f)
    {
        if (f.size() != 2 + player_columns.size() || !whole_number(f[2]) || !whole_number(f.back()))
            return false;
        if (f[8] == "m" || f[8] == "f")
            f[8] = sex_word(f[8]);
        f[14] = lcase(f[14]);
        m_player.reset();
        for (std::size_t i = 0; i < f.size(); ++i) {
            if (i == 2 || i + 1 == f.size())
                m_player.bind(static_cast<int>(i + 1), static_cast<std::int64_t>(std::stoll(f[i])));
            else
                m_player.bind(static_cast<int>(i + 1), f[i]);
        }
        m_player.bind(26, f[9] + " " + f[10]);
        m_player.bind(27, trim(f[3] + " " + f[4]));
        m_player.bind(28, f[21].empty() ? "" : "1");
        m_player.step();
        return true;
    }

    bool add_entry(const std::vector<std::string>& f)
    {
        if (f.size() != 5 || !whole_number(f[0]) || !whole_number(f[1]))
            return false;
        const auto pid = std::stoll(f[0]);
        const auto eid = std::stoll(f[1]);
        m_singdobs.reset();
        m_singdobs.bind(1, eid);
        const auto kind = m_singdobs.step() ? m_singdobs.text(0) : std::string();
        if (kind == "singles") {
            m_singles.reset();
            m_singles.bind_all(eid, pid, ++m_ent_idx);
            m_singles.step();
            return true;
        }
        if (kind != "doubles")
            return false;
        // A doubles entry without a partner is entered with the partner required.
        const bool alone = f[2].empty() && f[3].empty();
        const auto fname = alone ? std::string("preq") : f[2];
        const auto sname = alone ? std::string("preq") : f[3];
        m_doubles.reset();
        m_doubles.bind_all(eid, pid, ++m_rdidx, fname, sname, fname + " " + sname, alone ? std::string() : f[4]);
        m_doubles.step();
        return true;
    }

    Statement m_event;
    Statement m_player;
    Statement m_singles;
    Statement m_doubles;
    Statement m_singdobs;
    std::string m_tname;
    std::int64_t m_ent_idx = 0;
    std::int64_t m_rdidx = 0;
};

// The entries carry the names, ratings and sexes of their players and the names and fees of their events, as
// entries made in the tournament do.
void import_flesh_out(Database& db, const std::string& p)
{
    db.exec_script("update " + p + "evententries set en = e.eventname, eventfee = e.fee from " + p
        + "events e where e.eid = " + p + "evententries.eid;" + "update " + p
        + "evententries set player = q.player, playerfname = q.fname, playersname = q.sname, p1name = q.player, "
          "rating = q.rating, ranking = q.ranking, country = q.country, ar = q.availabilityrestrictions, psex = "
          "case lower(q.sex) when 'male' then 'm' when 'female' then 'f' else '' end from "
        + p + "players q where q.pid = " + p + "evententries.pid;" + "update " + p
        + "rawdoublesentries set en = e.eventname from " + p + "events e where e.eid = " + p + "rawdoublesentries.eid;"
        + "update " + p
        + "rawdoublesentries set player = q.player, playerfname = q.fname, playersname = q.sname, p1sex = q.sex "
          "from "
        + p + "players q where q.pid = " + p + "rawdoublesentries.pid;");
}

} // namespace

std::optional<std::string> sex_letter(std::string_view sex)
{
    const auto key = name_key(sex);
    if (key == "male")
        return "m";
    if (key == "female")
        return "f";
    if (key == "mixed")
        return "x";
    if (key == "neutral")
        return "n";
    return std::nullopt;
}

std::vector<std::string> qv5_lines(Database& db, Qv5Doubles doubles)
{
    std::vector<std::string> lines { db.scalar_text("select tournament from tournament where idx = 1") + "^" + name_end
        + "^" };
    for (auto e = db.query("select * from events order by eid"); e.step();)
        lines.push_back(e.text("eid") + "^" + e.text("eventname") + "^" + sex_letter(e.text("sex")).value_or("") + "^"
            + e.text("pte") + "^" + e.text("fee") + "^" + e.text("singdobs") + "^" + event_end + "^");
    for (auto p = db.query("select * from players order by pid"); p.step();) {
        std::string line = p.text("timestamp") + "^est^";
        for (const auto* column : player_columns)
            line += p.text(column) + "^";
        lines.push_back(line + player_end + "^");
    }
    add_entry_lines(db, doubles, lines);
    return lines;
}

bool export_qv5(Session& session, Qv5Doubles doubles)
{
    auto& talk = session.talk();
    const auto file = talk.choose_file({ FileDialogKind::SaveAs, "save as..",
        doubles == Qv5Doubles::resolved ? "qv5_with_resolved_doubles.qv5" : "qv5_with_raw_doubles.qv5", "qv5.",
        session.settings().text("app.last_dir_opened") });
    if (!file)
        return false;
    if (!write_text_file(*file, qv5_lines(session.tournament(), doubles))) {
        talk.message("cannot write file:" + file->string());
        return false;
    }
    on_file_save(session, *file);
    return true;
}

std::string entries_prefix(EntriesTarget target)
{
    switch (target) {
    case EntriesTarget::peek:
        return "peek_";
    case EntriesTarget::browse:
        return "browse_";
    case EntriesTarget::tournament:
        break;
    }
    return "";
}

bool load_entries_file(Session& session, const std::filesystem::path& file, EntriesTarget target)
{
    auto& talk = session.talk();
    const bool into_tournament = target == EntriesTarget::tournament;
    auto& db = into_tournament ? session.tournament() : session.peek_browse_db();
    const auto prefix = entries_prefix(target);
    talk.progress("working...");
    const auto bytes = read_file_bytes(file);
    const auto tokens = bytes ? marked_tokens(*bytes) : std::nullopt;
    Transaction transaction(db);
    if (into_tournament)
        empty_tournament(db);
    else
        for (const char* table : { "info", "events", "players", "evententries", "rawdoublesentries" })
            db.empty_table(prefix + table);
    Qv5Reader reader(db, prefix);
    const bool good = tokens && reader.read(*tokens);
    talk.progress("");
    if (!good) {
        talk.message("invalid qv5 file,no data loaded");
        return false;
    }
    import_flesh_out(db, prefix);
    if (!into_tournament)
        db.run("insert into " + prefix + "info (tname, fn) values (?, ?)", reader.tname(), file.filename().string());
    else if (session.settings().integer("qv5_load_pull_tname") == 1)
        db.run("update tournament set tournament = ? where idx = 1", reader.tname());
    transaction.commit();
    return true;
}

bool load_entries_into_tournament(Session& session)
{
    auto& talk = session.talk();
    if (!session.has_tournament()) {
        talk.message("need a qvd file to load the qv5 file into");
        return false;
    }
    if (talk.ask("This will clear your current qvd tournament file - data will be lost - continue?",
            "Clear current qvd file", Buttons::YesNo)
        != Answer::Yes)
        return false;
    const auto file = talk.choose_file(
        { FileDialogKind::Open, "load qv5 file", "", "qv5.", session.settings().text("app.last_dir_opened") });
    if (!file || !load_entries_file(session, *file, EntriesTarget::tournament))
        return false;
    session.boot_restart_from_load_file();
    return true;
}

} // namespace qv
