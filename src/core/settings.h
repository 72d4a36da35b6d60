#pragma once

#include "core/database.h"
#include "core/settings_keys.h"
#include "core/user_talk.h"

#include <map>
#include <string>
#include <string_view>

namespace qv {

// A stored text as a 16-bit setting: optional blanks, an optional sign and digits. Anything else ("", "abc",
// "1.5") or a number outside -32768..32767 gives 0, so a damaged row reads as an unticked box.
int to_setting_integer(std::string_view text);

// The installation's settings: rows of disk_vars in the init database, mirrored in memory variables that are
// read once at boot and written through together with the rows.
class Settings
{
public:
    explicit Settings(UserTalk& talk);

    // The open init database; detach() before it closes.
    void attach(Database& init_db);
    void detach();
    bool is_attached() const { return m_init != nullptr; }

    // The value of the first row named key, or "0" when there is none. Marks the row as read (note '1').
    std::string get_disk_var(std::string_view key);
    // Writes the row and then the memory variable; a missing row is reported and nothing changes.
    void set_disk_var(std::string_view key, std::string_view value);
    // Puts a value into the memory variable the key names; an unknown key is ignored.
    void apply_disk_var(std::string_view key, std::string_view value);
    // Reads every boot key, in order, into memory. Models a boot: memory starts afresh.
    void load_disk_vars();

    // Memory value of a setting by its variable name: "" (or 0) when the variable was never set.
    // Either kind can be read either way: an integer setting reads as its decimal text, a text as its number.
    const std::string& text(std::string_view variable) const;
    int integer(std::string_view variable) const;

    // The tournament name and dates of the open tournament file.
    void load_tournament_cache(Database& tournament);
    // "itname" writes the column tournament, "itdates" the column dates, and the cache with it.
    void set_tournament_cache(Database& tournament, std::string_view word, std::string_view value);
    void clear_tournament_cache();
    const std::string& itname() const { return m_itname; }
    const std::string& itdates() const { return m_itdates; }

private:
    struct Value
    {
        std::string text;
        int number = 0;
    };

    Database& init_db();
    void store(std::string_view variable, SettingKind kind, std::string_view value);

    UserTalk& m_talk;
    Database* m_init = nullptr;
    std::map<std::string, Value, std::less<>> m_values;
    std::string m_itname;
    std::string m_itdates;
};

// At open: a player filter that names an event (source "2") or a folder (source "3") by an id that no longer
// exists in this tournament file gets the id "0". Other filters, and the rest of these texts, stay as they are.
void repair_stored_filters(Settings& settings, Database& tournament);

} // namespace qv
