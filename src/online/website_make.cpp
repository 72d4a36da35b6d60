#include "online/website_make.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/time_rules.h"
#include "core/utf8.h"
#include "datafiles/entries_reports.h"
#include "datafiles/results_file.h"
#include "documents/idocuments.h"
#include "documents/makedrawpic_new.h"
#include "documents/picture_options.h"
#include "online/request_url.h"
#include "online/service_client.h"
#include "online/website_containers.h"
#include "online/website_draw_pages.h"
#include "online/website_files.h"
#include "online/website_finals.h"
#include "online/website_index.h"
#include "online/website_tdetails.h"
#include "online/website_text_pages.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

// Writes the files of one run; the first file that cannot be written stops it.
class SiteWriter
{
public:
    SiteWriter(Session& session, const WebsiteRun& run)
        : m_session(session)
        , m_run(run)
        , m_dir(session.dirs().website)
    {
    }

    const fs::path& dir() const { return m_dir; }
    void step(std::string_view what) const
    {
        if (m_run.step)
            m_run.step(what);
    }
    bool page(const std::string& name, const PageLines& lines)
    {
        return written(name, write_page(m_dir / name, lines));
    }
    bool pages(const std::vector<NamedPage>& made)
    {
        for (const auto& one : made)
            if (!page(one.file, one.lines))
                return false;
        return true;
    }
    bool text_page(const std::string& name, const std::vector<std::string>& text, std::string_view title)
    {
        return page(name, wrap_text_page(text, title));
    }
    bool written(const std::string& name, bool ok)
    {
        if (!ok)
            m_session.talk().message("cannot write file:" + (m_dir / name).string());
        return ok;
    }

private:
    Session& m_session;
    const WebsiteRun& m_run;
    fs::path m_dir;
};

IndexFacts index_facts(Session& session, const WebsiteRun& run)
{
    auto& settings = session.settings();
    const auto account = default_account(session);
    return { settings.itname(), settings.itdates(), account.server, account.custid, run.sequence,
        website_setting_on(settings, "entries_online"), website_setting_on(settings, "entries_make"),
        website_setting_on(settings, "players_online"), website_setting_on(settings, "players_make") };
}

bool make_index(Session& session, SiteWriter& site, const WebsiteOptions& options, const WebsiteRun& run)
{
    site.step("index");
    const auto facts = index_facts(session, run);
    if (!options.parts.message)
        return site.page("index.htm", index_left_page(options.parts, facts, IndexKind::plain));
    return site.page("index.htm", framed_index_page(facts))
        && site.page("leftindex.htm", index_left_page(options.parts, facts, IndexKind::left_frame))
        && site.page("topindex.htm", index_top_page(facts));
}

bool make_draws(Session& session, SiteWriter& site, const WebsiteDrawOptions& options, const WebsiteRun& run)
{
    const auto events = chosen_drawn_events(session.tournament(), options.eids);
    if (!site.page("file_draws.htm", draws_container_page(event_names(events), options.text_draws)))
        return false;
    auto pictures = picture_options_from_settings(session);
    pictures.split128 = false; // the container links one picture an event
    pictures.country = options.from;
    pictures.times = options.times;
    pictures.now = run.now;
    for (const auto& event : events) {
        site.step("draw " + event.names.name);
        const auto saved
            = save_draw_pictures(makepic1(session, DrawStore::tournament, event.eid, pictures), site.dir());
        if (!saved.ok()) {
            session.talk().message(GdiErrorString(saved.status), saved.failed.filename().string());
            return false;
        }
    }
    if (!options.text_draws)
        return true;
    for (const auto& event : events) {
        site.step("text draw " + event.names.name);
        const auto page = text_draw_page(session.tournament(), event, options);
        if (!site.page(page.file, page.lines))
            return false;
    }
    return true;
}

bool make_qv4(Session& session, SiteWriter& site)
{
    site.step("qv4 file");
    const auto name = website_qv4_file_name(session.settings().itname());
    return site.written(name, write_qv4_file(session.tournament(), site.dir() / name))
        && site.page("file_qv4.htm", qv4_page(name, home_page_address(session)));
}

bool make_entries_players(Session& session, SiteWriter& site, const WebsiteParts& parts, const DocumentContext& context)
{
    auto& settings = session.settings();
    if (parts.entries && website_setting_on(settings, "entries_make")) {
        site.step("entries");
        if (!site.text_page("entries.htm", entriesexpanded(session.tournament()), "entries"))
            return false;
    }
    if (parts.players && website_setting_on(settings, "players_make")) {
        site.step("players");
        if (!site.text_page("players.htm", VIP_text_rating_ranking(context, PlayerListOptions {}).texts(), "players"))
            return false;
    }
    return true;
}

} // namespace

WebsiteRun website_run_now(Session& session)
{
    return { local_time_now(), get_sequence(session),
        [&session](std::string_view what) { session.talk().progress(what); } };
}

bool make_website(Session& session, const WebsiteOptions& options, const WebsiteRun& run)
{
    SiteWriter site(session, run);
    if (!empty_website_directory(site.dir()))
        return site.written("", false);
    const auto& parts = options.parts;
    bool ok = make_index(session, site, options, run);
    if (ok && parts.details)
        ok = site.written("file_tdetails.txt",
            write_text_file(site.dir() / "file_tdetails.txt", tdetails_text_lines(session.tournament(), run.now)));
    if (ok && parts.draws)
        ok = make_draws(session, site, options.draws, run);
    auto context = document_context(session);
    context.created = run.now;
    if (ok && parts.alias) {
        site.step("alias");
        const bool one_page = website_setting_on(session.settings(), "alias_page");
        ok = site.pages(alias_pages(context, chosen_drawn_events(session.tournament(), options.draws.eids), one_page));
    }
    if (ok && parts.schedules) {
        site.step("schedules");
        ok = site.pages(schedule_pages(context, options.schedules));
    }
    if (ok && parts.player_times) {
        site.step("player times");
        const auto page = player_times_page(context, options.player_times);
        ok = site.page(page.file, page.lines);
    }
    if (ok && parts.results) {
        site.step("results");
        ok = site.pages(results_pages(context, options.results))
            && site.pages(finals_summary_pages(
                context, chosen_drawn_events(session.tournament(), options.draws.eids), options.results));
    }
    if (ok && parts.qv4_file)
        ok = make_qv4(session, site);
    if (ok)
        ok = make_entries_players(session, site, parts, context);
    site.step("");
    if (ok)
        session.talk().message("ok");
    return ok;
}

std::optional<fs::path> local_website_index(Session& session)
{
    const auto index = session.dirs().website / "index.htm";
    if (fs::exists(index))
        return index;
    session.talk().message("no index file found");
    return std::nullopt;
}

} // namespace qv
