#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

class Database;
class Session;

// The tournament's events at the online service, and the two windows, entries and withdrawals, that the
// director opens and closes there. Every request goes for the default account; the local record of the
// account (acct_online_tournament, acct_onlineevents) changes only after the service said yes.

// The events as they are uploaded: per event "eid,eventname,sex letter,pte,fee,singdobs," and "^". A sex the
// service does not know takes the letter of the event before it. on_event is told the running count.
std::string uploadevents_text(Database& tournament, const std::function<void(int count)>& on_event = {});

// "upload events": after the question, the events replace the online ones (their entries go with them), the
// online list is read again and entries and withdrawals are closed, online and here.
bool uploadevents_script_new(Session& session);
// "clear online events": the online events and entries go, and the local list of them.
bool clear_online_events_script(Session& session);
// "clear players and entries": the online players and their entries go; the events stay.
bool clear_players_and_entries(Session& session);

// "refresh event list": the online events into acct_onlineevents.
bool refreshevents(Session& session);
// The records of a getrawevents reply ("eid^eventname^^" each) become the account's rows of
// acct_onlineevents, replacing the old ones; the greeting tokens are dropped.
void process_event_refresh_file(Database& init, std::string_view custid, const std::filesystem::path& file);
// The account's online events, by eid.
std::vector<std::pair<std::int64_t, std::string>> online_events(Database& init, std::string_view custid);

// The six words of set_state and their captions in the list of online operations.
struct StateWord
{
    std::string_view caption;
    std::string_view word;
};
const std::vector<StateWord>& state_words();

// "open entries" and its kin: the word to the service, then the local record and "ok".
bool set_state(Session& session, std::string_view word);
// "entries^withdrawals" after a state word: the word's half (or both) becomes "open" or "closed".
std::string set_state_update(std::string_view entries_withdrawals, std::string_view word);
// "refresh ew state": the service's two states into the local record, and "ok".
bool refresh_online_entries_wdrawls_state(Session& session);

// The two states as the labels show them: "OPEN" or "CLOSED", empty while the account has no record.
struct OnlineStateWords
{
    std::string entries;
    std::string withdrawals;
};
OnlineStateWords online_state_words(Database& init, std::string_view custid);
// "entries are " the state, a line end, "withdrawals are " the state.
std::string set_online_entries_wdrawls_text(const OnlineStateWords& states);

// The address of a public page of the service ("players", "entries", "enter1_enterpage", ...) for the default
// account, or nothing after the user was told that the account or its server is missing.
std::optional<std::string> online_page_url(Session& session, std::string_view page);
// One online event's entries, as the list of online events asks for them.
std::optional<std::string> online_event_entries_url(Session& session, std::int64_t eid);

} // namespace qv
