#include "documents/picture_options.h"

#include "core/database.h"
#include "core/session.h"
#include "core/time_rules.h"

#include <array>
#include <string_view>

namespace qv {

namespace {

constexpr std::array<std::string_view, 7> header_keys
    = { "round1", "round2", "round3", "round4", "quaters", "semi_", "final/winner" };

// The page behind the site's line when the installation names none.
constexpr std::string_view built_in_homepage = "https://quorvelin.example/";

} // namespace

PictureOptions picture_options_from_settings(Session& session)
{
    auto& settings = session.settings();
    PictureOptions options;
    options.split128 = settings.integer("draw.isplit128") == 1;
    options.country = settings.integer("draw.icc") == 1;
    options.times = settings.integer("draw.itimesonimage") == 1;
    options.fill_rr_voids = settings.integer("app.fillrrvoids") == 1;
    options.generic_c = settings.text("app.generic_c");
    options.generic_m = settings.text("app.generic_m");
    options.site_line = picture_site_line(session);
    options.now = local_time_now();
    return options;
}

std::map<std::string, std::string> event_header_overrides(Database& tournament, std::int64_t eid)
{
    std::map<std::string, std::string> labels;
    for (auto row = tournament.query("select rname, caption from rounds where eid=? order by rid, pos", eid);
         row.step();) {
        const auto key = row.text("rname");
        for (auto known : header_keys)
            if (key == known && !labels.count(key))
                labels[key] = row.text("caption");
    }
    return labels;
}

std::string home_page_address(Session& session)
{
    const auto& page = session.settings().text("homepage_url");
    return page.empty() || page == "0" ? std::string(built_in_homepage) : page;
}

std::string picture_site_line(Session& session)
{
    return "quorvelin " + home_page_address(session);
}

} // namespace qv
