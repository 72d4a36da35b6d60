#include "datafiles/results_reimport.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "datafiles/data_lines.h"
#include "drawengine/name_forms.h"
#include "drawengine/result_entry.h"

#include <algorithm>
#include <array>
#include <optional>

namespace qv {

namespace {

constexpr std::size_t field_count = 8;

bool holds(std::string_view text, std::string_view word)
{
    return lcase(text).find(word) != std::string::npos;
}

std::string name_validate(std::string_view text, const std::string& side)
{
    if (text.empty())
        return side + " name required";
    if (char_count(text) > 100)
        return side + " name cannot be > 100 characters";
    if (const auto said = check_class_text(text, ValueClass::systemdisallow_resultsimport); said != "ok")
        return said;
    if (holds(text, "wildcard"))
        return side + " name cannot contain word 'wildcard'";
    if (holds(text, "qualifier"))
        return side + " name cannot contain word 'qualifier'";
    if (lcase(text) == "bye")
        return side + " name cannot equal 'bye'";
    return "ok";
}

std::string score_validate(std::string_view text, std::size_t longest, const std::string& what)
{
    if (char_count(text) > longest)
        return what + " cannot be > " + std::to_string(longest) + " characters in length";
    for (const char* mark : { "¿", "~" })
        if (text.find(mark) != std::string_view::npos)
            return what + " cannot contain character " + mark;
    return "ok";
}

std::string points_validate(std::string_view text)
{
    return char_count(text) > 10 ? "points cannot be > 10 characters in length" : "ok";
}

std::string prompt_or(const std::string& value, const char* prompt, bool prompts)
{
    return prompts && value.empty() ? prompt : value;
}

// The fields of a line: the texts before each of its eight commas, trimmed.
std::vector<std::string> qv6_fields(std::string_view line)
{
    std::vector<std::string> fields;
    for (auto comma = line.find(','); comma != std::string_view::npos && fields.size() < field_count;
         comma = line.find(',')) {
        fields.push_back(trim(line.substr(0, comma)));
        line.remove_prefix(comma + 1);
    }
    return fields;
}

// The first field that fails its check, by number, with the answer.
std::optional<std::pair<int, std::string>> process_qv6_line(std::vector<std::string>& f)
{
    using Validate = std::string (*)(std::string_view);
    static constexpr std::array<Validate, field_count> checks { qv6_sid_1_validate, qv6_mtttt_2_validate,
        qv6_mbttt_3_validate, qv6_wl_4_validate, qv6_score_5_validate, qv6_longscore_6_validate, qv6_points1_7_validate,
        qv6_points2_8_validate };
    for (std::size_t i = 0; i < field_count; ++i)
        if (auto said = checks[i](f[i]); said != "ok")
            return std::make_pair(static_cast<int>(i + 1), said);
    for (auto* points : { &f[6], &f[7] })
        if (points->empty())
            *points = "0";
    return std::nullopt;
}

// Writes a checked line's result: "ok" or why the match refuses it.
std::string process_qv6_line2(Session& session, const std::vector<std::string>& f)
{
    auto& db = session.tournament();
    const auto m = current_sport_words(session).match;
    const auto sid = std::stoll(f[0]);
    auto row = db.query("select rname, eid, mw_ptr, drawtype, singdobs, mtttt, mbttt from schedule where sid=?", sid);
    if (!row.step())
        return m + " id not found:";
    if (row.text("rname") == "winner")
        return "invalid " + m + " id";
    if (row.text("singdobs") == "singles") {
        if (f[1].find('/') != std::string::npos)
            return "player1 name contains a '/'";
        if (f[2].find('/') != std::string::npos)
            return "player2 name contains a '/'";
    }
    const auto mw_ptr = row.text("mw_ptr");
    if (row.text("drawtype") == "ko" && !mw_ptr.empty()
        && !db.scalar_text("select mwtag from schedule where (mt=? or mb=?) and eid=? order by \"match\"", mw_ptr,
                  mw_ptr, row.integer("eid"))
                .empty())
        return "following " + m + " for " + f[0] + " " + " already played, rollback the following " + m
            + " before changing the result";
    for (const auto& [name, column] : { std::pair { f[1], "mtttt" }, std::pair { f[2], "mbttt" } })
        if (!same_name(name, row.text(column)))
            return "cannot find player " + name + " in " + m + "=" + f[0];
    MatchResult result { sid,
        f[3] == "1"       ? ResultWinner::top
            : f[3] == "2" ? ResultWinner::bottom
                          : ResultWinner::none,
        f[4], f[5], f[6], f[7] };
    if (write_result(session, result).empty())
        return "invalid " + m + " id";
    db.run("update schedule set points1=?, ipoints1=?, points2=?, ipoints2=? where sid=?", f[6], f[6], f[7], f[7], sid);
    return "ok";
}

} // namespace

std::vector<std::string> qv6_lines(Database& tournament, bool prompts)
{
    std::vector<std::string> lines;
    auto rows = tournament.query("select * from schedule where (match_state='2' or match_state='2.1') order by sid");
    while (rows.step()) {
        const auto top = rows.text("mtttt");
        const auto bottom = rows.text("mbttt");
        if (wcq(top) || wcq(bottom))
            continue;
        const std::array<std::string, field_count> f { rows.text("sid"), top, bottom,
            prompts ? "winner value(0-no winner 1-player1 2-player2)" : "0",
            prompt_or(rows.text("matchscore"), "score", prompts),
            prompt_or(rows.text("matchlongscore"), "longscore", prompts),
            prompt_or(rows.text("points1"), "points-p1-rr", prompts),
            prompt_or(rows.text("points2"), "points-p2-rr", prompts) };
        std::string line;
        for (const auto& field : f)
            line += trim(field) + ",";
        lines.push_back(line);
    }
    return lines;
}

bool export_qv6_file(Session& session)
{
    auto& talk = session.talk();
    const auto file = talk.choose_file({ FileDialogKind::SaveAs, "save as..", "results template", "txt.",
        session.settings().text("app.last_dir_opened") });
    if (!file)
        return false;
    if (!write_text_file(
            *file, qv6_lines(session.tournament(), session.settings().integer("qv6_export_include_prompts") != 0))) {
        talk.message("cannot write file:" + file->string());
        return false;
    }
    on_file_save(session, *file);
    return true;
}

std::string qv6_sid_1_validate(std::string_view text)
{
    if (text.empty())
        return "no match id defined";
    if (char_count(text) > 10)
        return "match id  > 10 characters";
    return check_integer_text(text);
}

std::string qv6_mtttt_2_validate(std::string_view text)
{
    return name_validate(text, "p1");
}

std::string qv6_mbttt_3_validate(std::string_view text)
{
    return name_validate(text, "p2");
}

std::string qv6_wl_4_validate(std::string_view text)
{
    if (text.empty())
        return "result flag required";
    if (text != "0" && text != "1" && text != "2")
        return "invalid result flag, must be 0,1 or 2:" + std::string(text);
    return "ok";
}

std::string qv6_score_5_validate(std::string_view text)
{
    return score_validate(text, 14, "short score");
}

std::string qv6_longscore_6_validate(std::string_view text)
{
    return score_validate(text, 100, "long score");
}

std::string qv6_points1_7_validate(std::string_view text)
{
    return points_validate(text);
}

std::string qv6_points2_8_validate(std::string_view text)
{
    return points_validate(text);
}

int import_qv6_file(Session& session, const std::filesystem::path& file)
{
    auto& talk = session.talk();
    const auto lines = read_data_file(file);
    if (!lines) {
        talk.message("cannot read file:" + file.string());
        return 0;
    }
    ImportFeedback feedback("qv6 file import errors", file);
    feedback.plain("");
    int number = 0;
    int imported = 0;
    Transaction transaction(session.tournament());
    for (const auto& line : *lines) {
        talk.progress(std::to_string(++number));
        const auto where = "line: " + std::to_string(number);
        if (const int commas = static_cast<int>(std::count(line.begin(), line.end(), ','));
            commas != static_cast<int>(field_count)) {
            feedback.error_block({ "", where, "expecting 8 commas got " + std::to_string(commas) + " commas" });
            continue;
        }
        auto fields = qv6_fields(line);
        if (const auto fault = process_qv6_line(fields)) {
            feedback.error_block({ "", where, "error at field: " + std::to_string(fault->first),
                "error description: " + fault->second });
            continue;
        }
        if (const auto said = process_qv6_line2(session, fields); said != "ok") {
            feedback.error_block({ "", where, "error description: " + said });
            continue;
        }
        ++imported;
    }
    transaction.commit();
    talk.progress("working...");
    if (imported > 0) {
        session.refresh_lists(Lists::schedule);
        session.refresh_lists(Lists::draw);
    }
    talk.progress("");
    feedback.finish(session, number, imported, "import results errors");
    return imported;
}

} // namespace qv
