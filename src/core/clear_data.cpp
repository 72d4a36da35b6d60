#include "core/clear_data.h"

#include "core/scratch_tables.h"
#include "core/session.h"

namespace qv {

namespace {

void empty_entries(Database& db)
{
    db.empty_table("evententries");
    db.empty_table("rawdoublesentries");
}

void clear_days(Database& db)
{
    db.empty_table("scheduledays");
    db.empty_table("scheduledays_courts");
    db.run("update tournament set dates=''");
    db.run("insert into scheduledays (sdate) values ('')");
}

void clear_details(Database& db)
{
    db.run(R"(update tournament set tournament='', currencycode='', venue='', address='', country='', surface='',
        tdetails='', tdetails2='', entryinstructions='', messagetoplayers='', paymentinstructions='', conditions=''
        where idx=1)");
}

// Whatever was ticked, every draw, the whole schedule and all folders go.
void clear_always(Database& db)
{
    empty_tables(db, tournament_scratch_tables());
    empty_tables(db, clear_data_tables());
    db.run("update events set drawdone=false,drawsize=0,min_sid=0,max_sid=0");
    for (const char* table : { "scheduledays", "scheduledays_courts" }) {
        db.run(std::string("update ") + table
            + " set empty_cnt=0, live_cnt=0, unf_cnt=0, dead_cnt=0,"
              " empty_cnt_ind='', live_cnt_ind='', unf_cnt_ind='', dead_cnt_ind=''");
    }
}

void clear_ticked(Database& db, const ClearDataTicks& ticks)
{
    if (ticks.players_and_entries) {
        db.empty_table("players");
        empty_entries(db);
    }
    if (ticks.events_and_entries) {
        db.empty_table("events");
        empty_entries(db);
    }
    if (ticks.entries)
        empty_entries(db);
    if (ticks.days)
        clear_days(db);
    if (ticks.details)
        clear_details(db);
    clear_always(db);
}

} // namespace

ClearDataTicks load_clear_data_ticks(Session& session)
{
    auto& s = session.settings();
    return { s.integer("cdata_1") == 1, s.integer("cdata_2") == 1, s.integer("cdata_3") == 1, s.integer("cdata_4") == 1,
        s.integer("cdata_5") == 1 };
}

void empty_tournament(Database& db)
{
    clear_ticked(db, { true, true, true, true, true });
}

bool clear_data(Session& session, const ClearDataTicks& ticks)
{
    if (!session.has_tournament())
        return false;
    if (session.talk().ask("This will clear data from the current tournament file?", "Confirm", Buttons::YesNo)
        != Answer::Yes)
        return false;
    auto& db = session.tournament();
    Transaction transaction(db);
    clear_ticked(db, ticks);
    transaction.commit();
    session.boot_restart_from_clear_data();
    return true;
}

} // namespace qv
