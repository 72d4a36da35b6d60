#pragma once

#include "core/database.h"
#include "core/user_talk.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qv {

// Sets match_state of an event's rows from their name columns: empty "1", live "2" (an unfinished "2.1"
// stays), dead "3", bye "0", later rules winning.
void recompute_match_states(Database& tournament, std::int64_t eid);
// The same for every row of the table.
void recompute_all_match_states(Database& tournament);

// The people of one match, pairs split at "/", reserved names left out. A sid that has gone is reported
// and gives an empty list.
std::vector<std::string> match_names(Database& tournament, UserTalk& talk, std::int64_t sid);

// Court codes as words. Bracketed: -1 "(fa)", -3 "(tbc)", anything else its number.
std::string cid_paren_word(std::int64_t cid);
// Short form of every reserved code: -1 "fa", -2 "cb", -3 "tbc", -4 "dcb", anything else its number.
std::string cid_word(std::int64_t cid);
// Short form for the court lists, in their order: -1 "fa", -2 "cb", -3 "tbc", -4 "dcb", anything else its
// number.
std::string court_list_cid_word(std::int64_t cid);

} // namespace qv
