#include "core/settings.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>

namespace qv {

namespace {

std::string_view trim_blanks(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    const auto last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

// A whole number written out in full, or nothing.
std::optional<std::int64_t> whole_number(std::string_view text)
{
    text = trim_blanks(text);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

} // namespace

int to_setting_integer(std::string_view text)
{
    const auto value = whole_number(text);
    if (!value || *value < std::numeric_limits<std::int16_t>::min()
        || *value > std::numeric_limits<std::int16_t>::max())
        return 0;
    return static_cast<int>(*value);
}

Settings::Settings(UserTalk& talk)
    : m_talk(talk)
{
}

void Settings::attach(Database& init_db)
{
    m_init = &init_db;
}

void Settings::detach()
{
    m_init = nullptr;
}

Database& Settings::init_db()
{
    if (!m_init || !m_init->is_open())
        throw std::logic_error("settings used without an open init database");
    return *m_init;
}

std::string Settings::get_disk_var(std::string_view key)
{
    auto& db = init_db();
    auto row = db.query("select rowid, value from disk_vars where nm = ? order by rowid limit 1", key);
    if (!row.step())
        return "0";
    const auto rowid = row.integer(0);
    std::string value = row.text(1);
    db.run("update disk_vars set note = '1' where rowid = ?", rowid);
    return value;
}

void Settings::set_disk_var(std::string_view key, std::string_view value)
{
    auto& db = init_db();
    auto row = db.query("select rowid from disk_vars where nm = ? order by rowid limit 1", key);
    if (!row.step()) {
        m_talk.message("cannot find diskvar " + std::string(key));
        return;
    }
    db.run("update disk_vars set value = ? where rowid = ?", value, row.integer(0));
    apply_disk_var(key, value);
}

void Settings::apply_disk_var(std::string_view key, std::string_view value)
{
    if (const auto* entry = find_applied_setting_key(key))
        store(entry->variable, entry->kind, value);
}

void Settings::load_disk_vars()
{
    m_values.clear();
    // One transaction for the read marks: a write per key would make every boot wait on the disk.
    Transaction transaction(init_db());
    for (const auto& boot : boot_setting_keys())
        store(boot.key, boot.kind, get_disk_var(boot.key));
    transaction.commit();
}

void Settings::store(std::string_view variable, SettingKind kind, std::string_view value)
{
    Value stored;
    if (kind == SettingKind::Integer) {
        stored.number = to_setting_integer(value);
        stored.text = std::to_string(stored.number);
    } else {
        stored.text = std::string(value);
        stored.number = to_setting_integer(value);
    }
    auto it = m_values.find(variable);
    if (it == m_values.end())
        m_values.emplace(std::string(variable), std::move(stored));
    else
        it->second = std::move(stored);
}

const std::string& Settings::text(std::string_view variable) const
{
    static const std::string unset;
    const auto it = m_values.find(variable);
    return it == m_values.end() ? unset : it->second.text;
}

int Settings::integer(std::string_view variable) const
{
    const auto it = m_values.find(variable);
    return it == m_values.end() ? 0 : it->second.number;
}

void Settings::load_tournament_cache(Database& tournament)
{
    auto row = tournament.query("select * from tournament where idx=1");
    if (row.step()) {
        m_itname = row.text("tournament");
        m_itdates = row.text("dates");
    } else {
        clear_tournament_cache();
    }
}

void Settings::set_tournament_cache(Database& tournament, std::string_view word, std::string_view value)
{
    if (word == "itname") {
        tournament.run("update tournament set tournament = ? where idx=1", value);
        m_itname = std::string(value);
    } else if (word == "itdates") {
        tournament.run("update tournament set dates = ? where idx=1", value);
        m_itdates = std::string(value);
    }
}

void Settings::clear_tournament_cache()
{
    m_itname.clear();
    m_itdates.clear();
}

namespace {

bool id_exists(Database& tournament, std::string_view source, std::string_view id)
{
    const auto number = whole_number(id);
    if (!number)
        return false;
    if (source == "2")
        return tournament.scalar_integer("select count(*) from events where eid = ?", *number) > 0;
    return tournament.scalar_integer("select count(*) from folders where fid = ?", *number) > 0;
}

} // namespace

void repair_stored_filters(Settings& settings, Database& tournament)
{
    static constexpr std::string_view keys[]
        = { "players_import_export_filter", "players_folders_assign_filter", "players_delete_filter" };
    for (const auto key : keys) {
        // The filter is source^id^rest; only the id is ever rewritten.
        const std::string filter = settings.text(key);
        const auto first = filter.find('^');
        if (first == std::string::npos)
            continue;
        const auto second = filter.find('^', first + 1);
        const std::string source = filter.substr(0, first);
        const std::string id
            = filter.substr(first + 1, second == std::string::npos ? std::string::npos : second - first - 1);
        const std::string rest = second == std::string::npos ? std::string() : filter.substr(second);
        if ((source != "2" && source != "3") || id == "0")
            continue;
        if (id_exists(tournament, source, id))
            continue;
        settings.set_disk_var(key, source + "^0" + rest);
    }
}

} // namespace qv
