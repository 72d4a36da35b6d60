#pragma once

#include "documents/documents_tournament.h"
#include "documents/live_days.h"
#include "online/website_make.h"
#include "support/gui_app.h"
#include "support/session_fixture.h"

#include <filesystem>
#include <string>
#include <vector>

namespace qv::test {

inline constexpr const char* website_server = "http://127.0.0.1:8780/qv";

// The documents' tournament (a knock-out of 16, a round robin of five, a knock-out of four teams over two days)
// with its knock-out of 16 named with blanks and an apostrophe, its details for the website, an account with its
// server, and runs at a fixed moment so that every page comes out the same.
class WebsiteFixture : public TournamentFixture
{
protected:
    void SetUp() override
    {
        TournamentFixture::SetUp();
        ensure_gui_app();
        DocumentsTournamentBuilder(session).build();
        db().run("update events set eventname='men''s open singles' where eid=1");
        db().run("update schedule set eventname='men''s open singles' where eid=1");
        db().run(R"(update tournaments set tournament='Harbour Open', phone='555 0101', mobile='555 0199',
            email='desk@harbour.example', venue='Lakeside Club', dates='2-3 March 2026', cpt='Harbour Open Club',
            country='NZL' where idx=1)");
        auto& settings = session.settings();
        settings.set_tournament_cache(db(), "itname", "Harbour Open");
        settings.set_tournament_cache(db(), "itdates", "2-3 March 2026");
        settings.set_disk_var("app.servlet", website_server);
        settings.set_disk_var("app.custid", "club7");
        settings.set_disk_var("homepage_url", "https://quorvelin.example/");
        choose_website_pair(settings, WebsitePair::entries, false);
        choose_website_pair(settings, WebsitePair::players, true);
        choose_website_pair(settings, WebsitePair::alias, false);
        talk.clear();
    }

    static WebsiteRun fixed_run()
    {
        WebsiteRun run;
        run.now.tm_year = 2026 - 1900;
        run.now.tm_mon = 2;
        run.now.tm_mday = 2;
        run.now.tm_hour = 10;
        run.now.tm_min = 30;
        run.sequence = "020320261030001";
        return run;
    }

    // Every part and page option on, both draws and every day chosen.
    WebsiteOptions everything()
    {
        WebsiteOptions options;
        apply_website_style(options, "select all");
        options.draws = { true, false, true, true, { 1, 2, 3 } };
        options.schedules = { true, true, true, true, true, true, days_working_schedule(db()) };
        options.player_times = { true, days_playertimes(db()) };
        options.results = { true, true, true, true, true, true, true, true, days_results(db()) };
        return options;
    }

    std::filesystem::path site() { return session.dirs().website; }

    std::vector<std::string> site_files()
    {
        std::vector<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(site()))
            names.push_back(file.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    bool has(const std::string& name) { return std::filesystem::exists(site() / name); }
};

} // namespace qv::test
