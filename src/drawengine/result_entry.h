#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;
class UserTalk;

// The side marked as winner in the result window.
enum class ResultWinner { none, top, bottom };

// A match as the result window shows it (loadsid).
struct LoadedMatch
{
    std::int64_t sid = 0;
    std::int64_t eid = 0;
    std::string drawtype; // "ko" or "rr"
    int pts = 0; // the event's scoring mode
    std::vector<std::string> details; // the lines of the details text
    std::string top, bottom; // mttag and mbtag with seed and country, as the side buttons show them
    std::string mttag, mbtag;
    ResultWinner winner = ResultWinner::none;
    std::string matchscore, matchlongscore, points1, points2;
    // The following round has a winner: the winner and the scores cannot be changed here.
    bool locked = false;
    std::int64_t following_sid = 0; // the row the winner goes to; 0 for a round robin or the winner row
};

// "day/time=unscheduled", "day/time=" date "/" time, or "day=" date.
std::string format_day_time(std::string_view date, std::string_view time);
// The scoring mode for the details line: " (" and the mode's line ")"; empty for a mode outside 1..3.
std::string get_pts_str(int pts);
// A side's caption: the tag, the seed in brackets and the country in brackets.
std::string result_side_text(std::string_view tag, std::string_view seed, std::string_view country);

// Loads a match by sid. A sid that is not there is reported (the number and " not found"); the "winner" row is
// no match and loads nothing, silently.
std::optional<LoadedMatch> loadsid(Session& session, std::int64_t sid);

// The typed score keeps every character but "¿" and "~".
std::string filter_text(std::string_view text);

// What the result window saves.
struct MatchResult
{
    std::int64_t sid = 0;
    ResultWinner winner = ResultWinner::none;
    std::string matchscore, matchlongscore;
    std::string points1, points2; // round robins only
};

// What a round robin's scoring mode makes of the boxes: mode 1 the score "points1/points2" (blanks as "0"),
// mode 2 the points from the winner mark (1 and 0, 0 and 1, 0 and 0); mode 3 leaves them.
void rr_result_mode(int pts, MatchResult& result);

// The save's tests of the typed texts, in their order, for the draw type; the first fault is said.
bool check_result_texts(UserTalk& talk, std::string_view drawtype, const MatchResult& result);

// Writes a result to its row, live and shadow columns alike: the winner's three name forms, the scores and for a
// round robin the points; a knock-out's winner then goes into its side of the row named by mw_ptr. The rows
// written take their states by the rules of the match record. Returns the rows written (the match first); empty
// when the match has gone, or when its following round has a winner (said: the winner cannot change then).
std::vector<std::int64_t> write_result(Session& session, const MatchResult& result);

} // namespace qv
