#include "online/entries_download.h"

#include "core/database.h"
#include "core/session.h"
#include "core/text_rules.h"
#include "core/time_rules.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "datafiles/entries_file.h"
#include "online/service_operations.h"

#include <algorithm>

namespace qv {

namespace {

// The question before a tournament's content is replaced by an entries file.
bool ok_to_clear_db(Session& session)
{
    return session.talk().ask("This will clear the current tournament file.Are you sure you want to do this ?",
               "Confirm", Buttons::YesNo)
        == Answer::Yes;
}

bool load_into_tournament(Session& session, const std::filesystem::path& file)
{
    if (!session.has_tournament()) {
        session.talk().message("need a qvd file to load the qv5 file into");
        return false;
    }
    if (!ok_to_clear_db(session) || !load_entries_file(session, file, EntriesTarget::tournament))
        return false;
    session.boot_restart_from_load_file();
    return true;
}

// Moves the file into the archive under its name, replacing a file of that name.
std::optional<std::filesystem::path> archive(Session& session, const std::filesystem::path& file, bool peek)
{
    const auto& dir = session.dirs().qv5_file_archive;
    std::error_code error;
    std::filesystem::create_directories(dir, error);
    const std::string tname = session.tournament().scalar_text("select tournament from tournament where idx=1");
    const auto target = dir / qv5_archive_name(tname, local_time_now(), peek);
    std::filesystem::rename(file, target, error);
    if (error) {
        session.talk().message("cannot write file:" + target.string());
        return std::nullopt;
    }
    return target;
}

std::filesystem::path archived(Session& session, const std::string& name)
{
    return session.dirs().qv5_file_archive / std::filesystem::path(name).filename();
}

bool chosen(Session& session, const std::string& name)
{
    if (!name.empty() && std::filesystem::is_regular_file(archived(session, name)))
        return true;
    session.talk().message("select a qv5 file");
    return false;
}

} // namespace

std::string qv5_archive_name(std::string_view tournament_name, const std::tm& when, bool peek)
{
    std::string name = clean_file_name(tournament_name);
    if (name.empty())
        name = "qv5file";
    return (peek ? "peek_" : "") + name + "@" + clean_file_name(date_time_long(when)) + ".qv5";
}

std::optional<std::filesystem::path> down_load_entry_file(Session& session, DownloadTarget target)
{
    if (!havecustidpwd(session))
        return std::nullopt;
    const auto temp = session.dirs().working / "temp.txt";
    ServiceClient client(session, default_account(session));
    if (!getrawdata(client, temp))
        return std::nullopt;
    const auto file = archive(session, temp, target == DownloadTarget::peek);
    if (!file)
        return std::nullopt;
    if (target == DownloadTarget::peek && !load_entries_file(session, *file, EntriesTarget::peek))
        return std::nullopt;
    if (target == DownloadTarget::load)
        load_into_tournament(session, *file);
    return file;
}

std::vector<std::string> qv5_archive_files(Session& session)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(session.dirs().qv5_file_archive, error))
        if (entry.is_regular_file() && lcase(entry.path().extension().string()) == ".qv5")
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

bool load_archived_entries(Session& session, const std::string& name)
{
    return chosen(session, name) && load_into_tournament(session, archived(session, name));
}

bool browse_archived_entries(Session& session, const std::string& name)
{
    return chosen(session, name) && load_entries_file(session, archived(session, name), EntriesTarget::browse);
}

bool rename_qv5_file(Session& session, const std::string& name, std::string_view new_name)
{
    auto& talk = session.talk();
    if (!chosen(session, name))
        return false;
    std::string stem = trim(new_name);
    if (lcase(stem).ends_with(".qv5"))
        stem.resize(stem.size() - 4);
    if (!report(talk, value_required(stem)) || !report(talk, check_class(stem, ValueClass::vbfilename)))
        return false;
    const auto target = archived(session, stem + ".qv5");
    if (std::filesystem::exists(target)) {
        talk.message(stem + ".qv5 already exists in the qv5 file archive");
        return false;
    }
    std::error_code error;
    std::filesystem::rename(archived(session, name), target, error);
    if (error) {
        talk.message("cannot write file:" + target.string());
        return false;
    }
    talk.message("ok");
    return true;
}

int clear_peek_files(Session& session)
{
    auto& talk = session.talk();
    if (talk.ask("This will delete the peek qv5 files of the archive?", "Confirm", Buttons::YesNo) != Answer::Yes)
        return 0;
    int count = 0;
    for (const auto& name : qv5_archive_files(session)) {
        std::error_code error;
        if (name.starts_with("peek_") && std::filesystem::remove(archived(session, name), error))
            ++count;
    }
    talk.message(std::to_string(count) + " files deleted");
    return count;
}

std::optional<PeekPlayer> peek_player(Session& session, std::int64_t pid)
{
    auto row = session.peek_browse_db().query("select * from peek_players where pid=?", pid);
    if (!row.step())
        return std::nullopt;
    return PeekPlayer { pid, row.text("fname"), row.text("sname"), row.text("email"), row.text("sex") };
}

bool withdraw_peek_player(Session& session, std::int64_t pid)
{
    auto& talk = session.talk();
    const auto player = peek_player(session, pid);
    if (!player) {
        talk.message("select a player to withdraw");
        return false;
    }
    const std::string name = player->fname + " " + player->sname;
    const std::string pronoun = name_key(player->sex) == "male" ? "he" : "she";
    if (talk.ask("This will withdraw " + name + " from the tournament online, " + pronoun
                + " will be removed from all events. Are you sure you want to do this ?",
            "Confirm", Buttons::YesNo)
        != Answer::Yes)
        return false;
    if (!havecustidpwd(session))
        return false;
    ServiceClient client(session, default_account(session));
    const auto data = withdraw_vb(client, pid, player->fname, player->sname, player->email);
    if (!data)
        return false;
    auto& db = session.peek_browse_db();
    Transaction transaction(db);
    for (const char* table : { "peek_players", "peek_evententries", "peek_rawdoublesentries" })
        db.run("delete from " + std::string(table) + " where pid=?", pid);
    transaction.commit();
    if (trim(*data) == "entry not found")
        talk.message(
            "no entry was found for " + name + " was found online,player may have withdrawn themselves already");
    else
        talk.message(name + " has been withdrawn from the tournament");
    return true;
}

} // namespace qv
