#include "entries/folders.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "core/validators.h"

namespace qv {

namespace {

bool valid_folder_name(UserTalk& talk, std::string_view name)
{
    return report(talk, value_required(name)) && report(talk, check_class(name, ValueClass::systemdisallow));
}

// The name is the key: another folder (not `except`) of the same lcase(trim(nm)).
bool name_taken(Database& db, std::string_view name, std::int64_t except)
{
    return db.scalar_integer(
               "select count(*) from folders where lower(trim(nm))=? and fid <> ?", name_key(name), except)
        > 0;
}

bool folder_exists(Database& db, std::int64_t fid)
{
    return db.scalar_integer("select count(*) from folders where fid=?", fid) > 0;
}

void confirm(Session& session)
{
    if (session.settings().integer("folders_beep_ok") == 1)
        session.talk().beep();
}

} // namespace

std::vector<Folder> load_folders(Database& db)
{
    std::vector<Folder> folders;
    auto rows = db.query("select fid, nm from folders order by nm, fid");
    while (rows.step())
        folders.push_back({ rows.integer("fid"), rows.text("nm") });
    return folders;
}

std::vector<ListLine> folder_players(Database& db, std::int64_t fid)
{
    std::vector<ListLine> lines;
    auto rows = db.query("select pid, player from players where fid=? order by player, pid", fid);
    while (rows.step())
        lines.push_back({ rows.text("player"), rows.integer("pid") });
    return lines;
}

std::optional<std::int64_t> addnew_folder(Session& session, std::string_view name)
{
    auto& db = session.tournament();
    if (!valid_folder_name(session.talk(), name))
        return std::nullopt;
    const auto nm = trim(name);
    // No folder has fid 0: that is "in no folder".
    if (name_taken(db, nm, 0)) {
        session.talk().message("already have a folder named " + nm);
        return std::nullopt;
    }
    const auto fid = db.next_id("folders", "fid");
    db.run("insert into folders (fid, nm) values (?, ?)", fid, nm);
    session.refresh_lists(Lists::folders);
    confirm(session);
    return fid;
}

bool rename_folder(Session& session, std::optional<std::int64_t> fid, std::string_view name)
{
    auto& db = session.tournament();
    if (!fid || !folder_exists(db, *fid)) {
        session.talk().message("select folder");
        return false;
    }
    if (!valid_folder_name(session.talk(), name))
        return false;
    const auto nm = trim(name);
    if (name_taken(db, nm, *fid)) {
        session.talk().message("already have a folder with the name " + nm);
        return false;
    }
    db.run("Update folders set nm=? where fid=?", nm, *fid);
    session.refresh_lists(Lists::folders);
    confirm(session);
    return true;
}

bool delete_folders(Session& session, const std::vector<std::int64_t>& fids)
{
    if (fids.empty()) {
        session.talk().message("select folder(s) to delete");
        return false;
    }
    auto& db = session.tournament();
    Transaction transaction(db);
    for (const auto fid : fids) {
        db.run("delete from folders where fid=?", fid);
        db.run("Update players set fid=0 where fid=?", fid);
    }
    transaction.commit();
    session.refresh_lists(Lists::folders);
    session.refresh_lists(Lists::players);
    confirm(session);
    return true;
}

bool assign_to_folder(Session& session, std::optional<std::int64_t> fid, const std::vector<std::int64_t>& pids)
{
    auto& db = session.tournament();
    if (!fid || !folder_exists(db, *fid)) {
        session.talk().message("select folder");
        return false;
    }
    if (pids.empty()) {
        session.talk().message("select players to export");
        return false;
    }
    Transaction transaction(db);
    for (const auto pid : pids)
        db.run("Update players set fid=? where pid=?", *fid, pid);
    transaction.commit();
    session.refresh_lists(Lists::folders);
    session.refresh_lists(Lists::players);
    confirm(session);
    return true;
}

bool move_out_of_folder(Session& session, const std::vector<std::int64_t>& pids)
{
    if (pids.empty()) {
        session.talk().message("select players to export");
        return false;
    }
    auto& db = session.tournament();
    Transaction transaction(db);
    for (const auto pid : pids)
        db.run("Update players set fid=0 where pid=?", pid);
    transaction.commit();
    session.refresh_lists(Lists::folders);
    session.refresh_lists(Lists::players);
    confirm(session);
    return true;
}

} // namespace qv
