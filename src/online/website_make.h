#pragma once

#include "online/website_options.h"

#include <ctime>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

class Session;

// What a run needs beyond the options: the present time for the pages that carry it, the sequence of the
// message frame, and a call between steps that tells the user what is being made and keeps the window alive.
struct WebsiteRun
{
    std::tm now {};
    std::string sequence;
    std::function<void(std::string_view)> step;
};

// A run at this moment, its steps shown through the session's user-talk.
WebsiteRun website_run_now(Session& session);

// make_website: empties the website directory and writes into it every page and file the options ask for,
// then says "ok". False, after "cannot write file:" and the file, when a file cannot be written.
bool make_website(Session& session, const WebsiteOptions& options, const WebsiteRun& run);

// "view local website": the index of the website directory, or none after "no index file found".
std::optional<std::filesystem::path> local_website_index(Session& session);

} // namespace qv
