#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;

// The last known list of an account's remote files (acct_remote_website), in the order of pos; shown when the
// window opens, with no connection.
std::vector<std::string> load_remote_website(Database& init, std::string_view custid);
// Replaces the account's rows by these names, pos counting from 1.
void save_remote_website(Database& init, std::string_view custid, const std::vector<std::string>& names);
void delete_remote_website(Database& init, std::string_view custid);

} // namespace qv
