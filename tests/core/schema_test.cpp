#include "core/database.h"
#include "support/temp_app_dir.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qv {
namespace {

struct Column
{
    std::string name;
    std::string type;
    bool not_null = false;
    std::string default_value;
};

std::vector<std::string> table_names(Database& db)
{
    std::vector<std::string> names;
    auto rows = db.query("select name from sqlite_master where type='table' order by name");
    while (rows.step())
        names.push_back(rows.text(0));
    return names;
}

std::vector<Column> columns_of(Database& db, const std::string& table)
{
    std::vector<Column> columns;
    auto rows = db.query(R"(select name, type, "notnull", dflt_value from pragma_table_info(?) order by cid)", table);
    while (rows.step())
        columns.push_back({ rows.text(0), rows.text(1), rows.integer(2) != 0, rows.text(3) });
    return columns;
}

std::vector<std::string> column_names(Database& db, const std::string& table)
{
    std::vector<std::string> names;
    for (const auto& column : columns_of(db, table))
        names.push_back(column.name);
    return names;
}

std::string sql_name(const std::string& name)
{
    return "\"" + name + "\"";
}

class SchemaTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    Database blank { dir.init_files() / "blank.qvd" };
    Database init { dir.init_files() / "init.qvd" };
    Database peek { dir.init_files() / "qv4_peek_browse.qvd" };

    Database& file(const std::string& name)
    {
        if (name == "blank")
            return blank;
        if (name == "init")
            return init;
        return peek;
    }
};

// Readers of entries and results files store fields by position, and one window writes account fields
// from the sixth column on, so these tables must keep the order of their records.
TEST_F(SchemaTest, PositionalTablesKeepTheirRecordOrder)
{
    const std::vector<std::string> player_record { "timestamp", "timezone", "pid", "fname", "sname", "email",
        "password", "dob", "sex", "address1", "address2", "city", "state", "postcode", "country", "phone", "mobile",
        "rating", "ranking", "results", "club", "availabilityrestrictions", "tsd", "message", "pval" };
    const std::vector<std::string> event_record { "eid", "eventname", "sex", "pte", "fee", "singdobs" };
    const std::vector<std::string> results_event { "eid", "eventname", "singdobs", "sex", "drawtype", "drawsize", "pts",
        "timestamp_text" };
    const std::vector<std::string> results_match { "sid", "eid", "match", "rid", "rname", "rsname", "mt", "mb", "mtttt",
        "mbttt", "mtfrn", "mttag", "mbfrn", "mbtag", "mwtag", "matchscore", "matchlongscore", "points1", "points2",
        "mt_country", "mb_country", "mtseeding", "mbseeding", "mtsex", "mbsex", "eventname", "singdobs", "evtsex",
        "drawtype", "ds", "pts", "p1", "p2", "p3", "p4", "dts_date" };

    auto starts_with = [](const std::vector<std::string>& names, const std::vector<std::string>& head) {
        return names.size() >= head.size() && std::equal(head.begin(), head.end(), names.begin());
    };
    EXPECT_TRUE(starts_with(column_names(blank, "players"), player_record));
    EXPECT_TRUE(starts_with(column_names(blank, "events"), event_record));
    for (const char* table : { "qv4_single_events", "qv4_multiple_events" })
        EXPECT_TRUE(starts_with(column_names(peek, table), results_event)) << table;
    for (const char* table : { "qv4_single_schedule", "qv4_multiple_schedule" })
        EXPECT_TRUE(starts_with(column_names(peek, table), results_match)) << table;
    EXPECT_EQ(column_names(init, "acct_accountdata").at(5), "ftpurl");
}

// Tables copied into each other with "select *", or filled by the same reader, must match column for column.
TEST_F(SchemaTest, TwinTablesHaveTheSameColumns)
{
    auto shape = [](Database& db, const std::string& table) {
        std::vector<std::string> out;
        for (const auto& c : columns_of(db, table))
            out.push_back(c.name + " " + c.type + " " + c.default_value);
        return out;
    };
    for (const char* table : { "players", "events", "evententries", "rawdoublesentries" }) {
        const auto original = shape(blank, table);
        ASSERT_FALSE(original.empty()) << table;
        EXPECT_EQ(shape(peek, std::string("peek_") + table), original) << table;
        EXPECT_EQ(shape(peek, std::string("browse_") + table), original) << table;
    }
    EXPECT_EQ(shape(blank, "scheduledays_temp"), shape(blank, "scheduledays"));
    EXPECT_EQ(shape(blank, "scheduledays_courts_temp"), shape(blank, "scheduledays_courts"));
    EXPECT_EQ(shape(blank, "roundstemp"), shape(blank, "rounds"));
    EXPECT_EQ(shape(blank, "player_times_website"), shape(blank, "player_times_idocs"));
    for (const char* kind : { "events", "schedule", "players" })
        EXPECT_EQ(shape(peek, std::string("qv4_multiple_") + kind), shape(peek, std::string("qv4_single_") + kind))
            << kind;
    for (const char* table : { "alist", "alist4", "alist9_nm_sx", "qv4_text_box_file_text" })
        EXPECT_EQ(shape(peek, table), shape(blank, table)) << table;
}

TEST_F(SchemaTest, BlankFileHoldsOnlyTheTournamentRowAndTheNoDayRow)
{
    EXPECT_EQ(blank.scalar_integer("select count(*) from tournament where idx=1"), 1);
    EXPECT_EQ(blank.scalar_text("select tournament || dates || venue from tournament"), "");
    EXPECT_EQ(blank.scalar_integer("select count(*) from scheduledays where sdate='' and idx=0"), 1);
    const std::map<std::string, std::int64_t> rows { { "tournament", 1 }, { "tournaments", 1 }, { "scheduledays", 1 } };
    for (const auto& table : table_names(blank)) {
        const auto it = rows.find(table);
        EXPECT_EQ(blank.row_count(table), it == rows.end() ? 0 : it->second) << table;
    }
    for (const auto& table : table_names(peek))
        EXPECT_EQ(peek.row_count(table), 0) << table;
}

// Every column holds a value: texts default to '' and compare case-blind, numbers default to 0.
TEST_F(SchemaTest, TextColumnsDefaultEmptyAndCompareCaseBlind)
{
    const std::map<std::string, std::string> special_defaults { { "schedule.match_state", "'1'" },
        { "schedule.matchtime_int", "-1" }, { "players.pval", "1" }, { "peek_players.pval", "1" },
        { "browse_players.pval", "1" } };
    auto expected_default = [&](const std::string& key, const std::string& type) -> std::string {
        if (key == "disk_vars.nm")
            return ""; // the key: every row names its own
        const auto special = special_defaults.find(key);
        if (special != special_defaults.end())
            return special->second;
        return type == "TEXT" ? "''" : "0";
    };
    for (const char* name : { "blank", "init", "peek" }) {
        auto& db = file(name);
        for (const auto& table : table_names(db)) {
            const auto columns = columns_of(db, table);
            for (const auto& c : columns) {
                const auto key = table + "." + c.name;
                EXPECT_TRUE(c.not_null) << name << ": " << key;
                EXPECT_TRUE(c.type == "TEXT" || c.type == "INTEGER" || c.type == "REAL") << name << ": " << key;
                EXPECT_EQ(c.default_value, expected_default(key, c.type)) << name << ": " << key;
            }

            Transaction transaction(db);
            db.run("delete from " + sql_name(table));
            if (table == "disk_vars")
                db.run("insert into disk_vars (nm) values ('Probe Key')");
            else
                db.run("insert into " + sql_name(table) + " default values");
            for (const auto& c : columns) {
                if (c.type != "TEXT")
                    continue;
                const auto key = table + "." + c.name;
                const auto where = " from " + sql_name(table) + " where " + sql_name(c.name);
                if (expected_default(key, c.type) == "''") {
                    EXPECT_EQ(db.scalar_integer("select count(*)" + where + " = ''"), 1) << name << ": " << key;
                }
                db.run("update " + sql_name(table) + " set " + sql_name(c.name) + " = 'MiXed Ñame'");
                EXPECT_EQ(db.scalar_integer("select count(*)" + where + " = 'mixed Ñame'"), 1)
                    << name << ": " << key << " is not case-blind";
            }
        }
    }
}

TEST_F(SchemaTest, SettingNamesAreUniqueWhateverTheirCase)
{
    init.run("insert into disk_vars (nm, value) values ('probe.key', '1')");
    EXPECT_THROW(init.run("insert into disk_vars (nm, value) values ('PROBE.Key', '2')"), DbError);
}

TEST_F(SchemaTest, EveryDrawSizeHasOneSystemDefaultPatternPlacingSeedsApart)
{
    std::set<std::string> names;
    for (int ds = 2; ds <= 128; ds *= 2) {
        SCOPED_TRACE("drawsize " + std::to_string(ds));
        auto index
            = init.query(R"(select idx, nm, "system" from seedposmapping_index where drawsize=? and "default"=1)", ds);
        ASSERT_TRUE(index.step());
        const auto idx = index.integer(0);
        const auto name = index.text(1);
        EXPECT_EQ(index.integer(2), 1);
        EXPECT_FALSE(index.step()) << "more than one default";
        EXPECT_TRUE(names.insert(name).second) << "name " << name << " used twice";

        std::map<std::int64_t, std::int64_t> seed_at;
        std::map<std::int64_t, std::int64_t> pos_of;
        auto rows = init.query("select pos, seed, nm from seedposmapping where idx=? order by pos", idx);
        while (rows.step()) {
            const auto pos = rows.integer(0);
            const auto seed = rows.integer(1);
            EXPECT_EQ(rows.text(2), name) << "rows are also looked up by the pattern's name";
            EXPECT_TRUE(seed_at.emplace(pos, seed).second) << "position " << pos << " twice";
            if (seed != 0) {
                EXPECT_TRUE(pos_of.emplace(seed, pos).second) << "seed " << seed << " twice";
            }
        }
        ASSERT_EQ(seed_at.size(), static_cast<std::size_t>(ds));
        EXPECT_EQ(seed_at.begin()->first, 1);
        EXPECT_EQ(seed_at.rbegin()->first, ds);
        EXPECT_EQ(seed_at[1], 1);
        EXPECT_EQ(seed_at[ds], 2);
        if (ds >= 4) {
            EXPECT_EQ(pos_of.size(), static_cast<std::size_t>(ds / 2));
            for (int pos = 1; pos < ds; pos += 2)
                EXPECT_TRUE((seed_at[pos] == 0) != (seed_at[pos + 1] == 0)) << "pair " << pos << " needs one seed";
        }
        if (ds >= 8) {
            ASSERT_TRUE(pos_of.count(3) && pos_of.count(4));
            EXPECT_EQ(pos_of[3], ds / 2 + 1);
            EXPECT_EQ(pos_of[4], ds / 2);
            EXPECT_NE(pos_of[3] <= ds / 2, pos_of[4] <= ds / 2) << "seeds 3 and 4 share a half";
        }
    }
}

TEST_F(SchemaTest, EveryDrawKindPrintsThroughOneDefaultConfiguration)
{
    std::vector<std::pair<std::string, int>> kinds;
    for (int ds = 2; ds <= 128; ds *= 2)
        kinds.emplace_back("ko", ds);
    kinds.emplace_back("ko", -64);
    for (int n = 2; n <= 8; ++n)
        kinds.emplace_back("rr", n);
    for (const auto& [type, size] : kinds) {
        SCOPED_TRACE(type + std::to_string(size));
        EXPECT_EQ(
            init.scalar_integer(
                R"(select count(*) from prints where drawtype=? and drawsize=? and "default"='DEFAULT')", type, size),
            1);
        // Deleting a user default falls back on this row.
        EXPECT_EQ(init.scalar_integer(R"(select count(*) from prints where drawtype=? and drawsize=? and "system"=1
                                         and orientation='portrait')",
                      type, size),
            1);
    }
    EXPECT_EQ(init.scalar_integer(R"(select count(*) from prints where "left" not between 0 and 100
        or "top" not between 0 and 100 or width not between 1 and 100 or height not between 1 and 100)"),
        0);
}

TEST_F(SchemaTest, ReferenceListsAreFilled)
{
    EXPECT_GT(init.scalar_integer("select count(*) from ccodes"), 240);
    EXPECT_EQ(init.scalar_integer("select count(distinct code) from ccodes"), init.row_count("ccodes"));
    EXPECT_EQ(init.scalar_integer("select count(*) from ccodes where length(code) <> 3"), 0);
    EXPECT_EQ(init.scalar_text("select country from ccodes where code='gbr'"), "United Kingdom");
    for (int ds = 2; ds <= 128; ds *= 2)
        EXPECT_EQ(init.scalar_integer("select count(*) from pic_sizes where ds=? and width>0 and height>0", ds), 1)
            << ds;
    EXPECT_GT(init.row_count("readme"), 0);
    for (const char* table : { "disk_vars", "sort_dir", "acct_accountdata", "acct_online_tournament",
             "acct_onlineevents", "acct_remote_website" })
        EXPECT_TRUE(init.has_table(table)) << table;
}

} // namespace
} // namespace qv
