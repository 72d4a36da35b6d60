#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qv {

class Database;
class UserTalk;

// The availability restrictions of the people of one match, a line each: the name, ": " and what the register
// holds, or "none". A match that has gone says so and gives no lines.
std::vector<std::string> availability_restrictions(Database& tournament, UserTalk& talk, std::int64_t sid);

} // namespace qv
