#pragma once

#include <ctime>
#include <string>
#include <vector>

namespace qv {

class Database;

// VIP_make_file_tdetails_text: the labelled details of table tournaments, one "label-value" a line, and last
// the website's time stamp.
std::vector<std::string> tdetails_text_lines(Database& tournament, const std::tm& now);

} // namespace qv
