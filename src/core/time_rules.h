#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace qv {

// Times of day are "hh:mm" text; a day runs up to 26 hours, so "25:30" is legal.

// Hours * 60 + minutes; the empty (or blank) text is -1, the mark of "no time".
int time_to_minutes(std::string_view hhmm);

// Adds n minutes by way of decimal hours, as the times were always computed: anything past 24 hours is
// "24:00", single digits get a leading "0", the minutes are the fraction * 60 rounded half to even.
std::string add_minutes(std::string_view hhmm, int n);

// The short round key as a phrase: "1.7" -> "(r1,round of 128,ds=128),", "2/6" ->
// "(rr,<match word> 2 of 6),"; a key outside the knock-out table gives "(),".
std::string round_description(std::string_view rsname, std::string_view generic_match_word);

// How far a player got, for player lists: "winner", "in final", "in semis", "in quaters", else "in round"
// and the round number (the rname without its leading "r").
std::string round_word(std::string_view rname);

std::tm local_time_now();

// A name unique in the session: "ddMMyyyyHHnnss" and a counter that rises by 1 at every call, so the first
// stamp after a reset ends in "1". The session resets it when a tournament is opened.
class StampCounter
{
public:
    std::string stamp_now();
    std::string stamp_at(const std::tm& when);
    void reset() { m_count = 0; }

private:
    long m_count = 0;
};

// Dates as files show them; months are "Jan", "Feb" ... "Dec".
std::string date_time_long(const std::tm& when); // "dd-mmm-yyyy hh:mm:ss", 24-hour clock
std::string date_time_ampm(const std::tm& when); // "dd-mmm-yyyy hh:mm AM/PM", 12-hour clock
std::string date_time_minutes(const std::tm& when); // "dd-mmm-yyyy hh:mm"
std::string date_time_short_year(const std::tm& when); // "dd-mmm-yy hh:mm:ss"
std::string export_stamp(const std::tm& when); // "yy-mm-dd hh:mm:ss"

} // namespace qv
