#include "datafiles/results_file.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/utf8.h"
#include "datafiles/marked_tokens.h"

#include <algorithm>
#include <array>

namespace qv {

namespace {

constexpr const char* header_end = "tmentendmarker";
constexpr const char* event_end = "¿";
constexpr const char* match_end = "&";

constexpr std::array<const char*, 8> event_columns { "eid", "eventname", "singdobs", "sex", "drawtype", "drawsize",
    "pts", "timestamp_text" };
// The match record: the column p1 stands twice and p2 not at all, as the format has always had it; the reader
// stores the second p1 into p2. The day follows as the record's last field.
constexpr std::array<const char*, 35> match_columns { "sid", "eid", "match", "rid", "rname", "rsname", "mt", "mb",
    "mtttt", "mbttt", "mtfrn", "mttag", "mbfrn", "mbtag", "mwtag", "matchscore", "matchlongscore", "points1", "points2",
    "mt_country", "mb_country", "mtseeding", "mbseeding", "mtsex", "mbsex", "eventname", "singdobs", "evtsex",
    "drawtype", "ds", "pts", "p1", "p1", "p3", "p4" };

constexpr std::array<std::size_t, 3> event_numbers { 0, 5, 6 };
constexpr std::array<std::size_t, 6> match_numbers { 0, 1, 2, 3, 29, 30 };

std::string default_date(Database& tournament)
{
    const auto dates = tournament.scalar_text("select dates from tournament where idx = 1");
    const auto date = qv4_date(left_chars(dates, 10));
    return date == "//" ? "1/1/1900" : date;
}

std::string header_line(Database& tournament)
{
    auto row
        = tournament.query("select tournament, dates, venue, address, country, surface from tournament where idx = 1");
    std::string line;
    if (row.step())
        for (int i = 0; i < 6; ++i)
            line += row.text(i) + "^";
    else
        line = "^^^^^^";
    return line + header_end + "^";
}

std::string full_sex(std::string_view code)
{
    if (code == "m")
        return "male";
    if (code == "f")
        return "female";
    if (code == "x")
        return "mixed";
    return std::string(code);
}

template <std::size_t N> bool numbers_hold(const std::vector<std::string>& fields, const std::array<std::size_t, N>& at)
{
    for (const auto i : at)
        if (!whole_number(fields[i]))
            return false;
    return true;
}

// Binds the fields by position, the number columns as numbers.
template <std::size_t N>
void bind_fields(Statement& insert, const std::vector<std::string>& fields, const std::array<std::size_t, N>& numbers)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool number = std::find(numbers.begin(), numbers.end(), i) != numbers.end();
        if (number)
            insert.bind(static_cast<int>(i + 1), static_cast<std::int64_t>(std::stoll(fields[i])));
        else
            insert.bind(static_cast<int>(i + 1), fields[i]);
    }
}

class Qv4Reader
{
public:
    Qv4Reader(Database& store, const std::string& prefix, const std::string& fn)
        : m_events(store.query("insert into " + prefix + R"(_events (eid, eventname, singdobs, sex, drawtype, drawsize,
              pts, timestamp_text, tn, dts, venue, address, country, surface, fn)
              values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))"))
        , m_matches(store.query("insert into " + prefix + R"(_schedule (sid, eid, "match", rid, rname, rsname, mt, mb,
              mtttt, mbttt, mtfrn, mttag, mbfrn, mbtag, mwtag, matchscore, matchlongscore, points1, points2,
              mt_country, mb_country, mtseeding, mbseeding, mtsex, mbsex, eventname, singdobs, evtsex, drawtype, ds,
              pts, p1, p2, p3, p4, dts_date, tn, dts, country, surface, fn)
              values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?,
              ?, ?, ?, ?, ?, ?, ?, ?))"))
        , m_fn(fn)
    {
    }

    bool read(const std::vector<std::string>& tokens)
    {
        std::vector<std::string> record;
        for (const auto& token : tokens) {
            bool good = true;
            if (token == header_end)
                take_header(record);
            else if (token == event_end)
                good = add_event(record);
            else if (token == match_end)
                good = add_match(record);
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

    const Qv4Header& header() const { return m_header; }

private:
    void take_header(std::vector<std::string> fields)
    {
        fields.resize(6);
        m_header = { fields[0], fields[1], fields[2], fields[3], fields[4], fields[5] };
    }

    bool add_event(std::vector<std::string> fields)
    {
        if (fields.size() != event_columns.size() || !numbers_hold(fields, event_numbers))
            return false;
        fields[3] = full_sex(fields[3]);
        m_events.reset();
        bind_fields(m_events, fields, event_numbers);
        m_events.bind(9, m_header.tournament);
        m_events.bind(10, m_header.dates);
        m_events.bind(11, m_header.venue);
        m_events.bind(12, m_header.address);
        m_events.bind(13, m_header.country);
        m_events.bind(14, m_header.surface);
        m_events.bind(15, m_fn);
        m_events.step();
        return true;
    }

    bool add_match(const std::vector<std::string>& fields)
    {
        if (fields.size() != match_columns.size() + 1 || !numbers_hold(fields, match_numbers))
            return false;
        m_matches.reset();
        bind_fields(m_matches, fields, match_numbers);
        m_matches.bind(37, m_header.tournament);
        m_matches.bind(38, m_header.dates);
        m_matches.bind(39, m_header.country);
        m_matches.bind(40, m_header.surface);
        m_matches.bind(41, m_fn);
        m_matches.step();
        return true;
    }

    Statement m_events;
    Statement m_matches;
    std::string m_fn;
    Qv4Header m_header;
};

bool read_qv4(Database& store, const std::string& prefix, bool emptied, const std::filesystem::path& file,
    const std::string& fn, Qv4Header& header)
{
    const auto bytes = read_file_bytes(file);
    if (!bytes)
        return false;
    const auto tokens = marked_tokens(*bytes);
    if (!tokens)
        return false;
    Transaction transaction(store);
    if (emptied) {
        store.empty_table(prefix + "_events");
        store.empty_table(prefix + "_schedule");
    }
    {
        Qv4Reader reader(store, prefix, fn);
        if (!reader.read(*tokens))
            return false;
        header = reader.header();
    }
    transaction.commit();
    return true;
}

} // namespace

std::string qv4_date(std::string_view day_key)
{
    return mid_chars(day_key, 3, 2) + "/" + mid_chars(day_key, 5, 3) + "/" + mid_chars(day_key, 8, 2);
}

std::vector<std::string> qv4_lines(Database& tournament)
{
    std::vector<std::string> lines { header_line(tournament) };
    auto events = tournament.query(
        "select eid, eventname, singdobs, sex, drawtype, drawsize, pts, timestamp_text from events where drawdone "
        "order by eid");
    while (events.step()) {
        std::string line;
        for (int i = 0; i < static_cast<int>(event_columns.size()); ++i)
            line += events.text(i) + "^";
        lines.push_back(line + event_end + "^");
    }
    const auto no_day = default_date(tournament);
    auto matches = tournament.query(R"(select sid, eid, "match", rid, rname, rsname, mt, mb, mtttt, mbttt, mtfrn,
        mttag, mbfrn, mbtag, mwtag, matchscore, matchlongscore, points1, points2, mt_country, mb_country, mtseeding,
        mbseeding, mtsex, mbsex, eventname, singdobs, evtsex, drawtype, ds, pts, p1, p1, p3, p4, scheduledate
        from schedule order by sid)");
    while (matches.step()) {
        std::string line;
        for (int i = 0; i < static_cast<int>(match_columns.size()); ++i)
            line += matches.text(i) + "^";
        const auto day = matches.text("scheduledate");
        lines.push_back(line + (day.empty() ? no_day : qv4_date(day)) + "^" + match_end + "^");
    }
    return lines;
}

bool write_qv4_file(Database& tournament, const std::filesystem::path& file)
{
    return write_text_file(file, qv4_lines(tournament));
}

bool save_qv4_file(Session& session)
{
    auto& db = session.tournament();
    auto name = trim(db.scalar_text("select tournament from tournament where idx = 1"));
    const auto file = session.talk().choose_file({ FileDialogKind::SaveAs, "save qv4 file",
        name.empty() ? "qv4file" : name, "qv4.", session.settings().text("app.last_dir_opened") });
    if (!file)
        return false;
    if (!write_qv4_file(db, *file)) {
        session.talk().message("cannot write file:" + file->string());
        return false;
    }
    on_file_save(session, *file);
    return true;
}

bool read_qv4_single(Database& store, const std::filesystem::path& file, const std::string& fn, Qv4Header& header)
{
    return read_qv4(store, "qv4_single", true, file, fn, header);
}

bool read_qv4_multiple(Database& store, const std::filesystem::path& file, const std::string& fn, Qv4Header& header)
{
    return read_qv4(store, "qv4_multiple", false, file, fn, header);
}

} // namespace qv
