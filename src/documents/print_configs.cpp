#include "documents/print_configs.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"

#include <array>
#include <charconv>
#include <cmath>

namespace qv {

namespace {

constexpr std::array<std::string_view, 15> kind_words = { "ko2", "ko4", "ko8", "ko16", "ko32", "ko64", "ko-64", "ko128",
    "rr2", "rr3", "rr4", "rr5", "rr6", "rr7", "rr8" };

constexpr const char* not_found = "print record not found";
constexpr const char* select_configuration = "select configuration";
constexpr const char* bad_percentage = "value is a percentage and must be between 0 and 100";

constexpr const char* select_row = R"(select idx, name, "system", "default", drawsize, drawtype, orientation, "left",
    "top", width, height from prints )";

std::string prints_query(std::string_view condition)
{
    std::string sql(select_row);
    sql.append(condition);
    return sql;
}

PrintConfig read_config(const Statement& row)
{
    PrintConfig config;
    config.idx = row.integer("idx");
    config.name = row.text("name");
    config.system = row.integer("system") == 1;
    config.is_default = lcase(trim(row.text("default"))) == "default";
    config.kind = { lcase(trim(row.text("drawtype"))), static_cast<int>(row.integer("drawsize")) };
    config.orientation = lcase(trim(row.text("orientation"))) == "landscape" ? "landscape" : "portrait";
    config.left = static_cast<int>(row.integer("left"));
    config.top = static_cast<int>(row.integer("top"));
    config.width = static_cast<int>(row.integer("width"));
    config.height = static_cast<int>(row.integer("height"));
    return config;
}

std::optional<PrintConfig> find_config(Database& init, std::int64_t idx)
{
    auto row = init.query(prints_query("where idx=?"), idx);
    if (!row.step())
        return std::nullopt;
    return read_config(row);
}

struct Percentages
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

Percentages percentages_of(const PrintFields& fields)
{
    return { *percentage(fields.left), *percentage(fields.top), *percentage(fields.width), *percentage(fields.height) };
}

std::string orientation_of(const PrintFields& fields)
{
    return lcase(trim(fields.orientation)) == "landscape" ? "landscape" : "portrait";
}

} // namespace

std::span<const std::string_view> draw_kind_words()
{
    return kind_words;
}

std::optional<PrintKind> draw_kind_from_word(std::string_view word)
{
    const auto key = lcase(trim(word));
    for (auto known : kind_words) {
        if (key != known)
            continue;
        PrintKind kind { std::string(known.substr(0, 2)), 0 };
        const auto size = known.substr(2);
        std::from_chars(size.data(), size.data() + size.size(), kind.drawsize);
        return kind;
    }
    return std::nullopt;
}

std::vector<PrintConfig> list_print_configs(Database& init, const PrintKind& kind)
{
    std::vector<PrintConfig> configs;
    for (auto row
         = init.query(prints_query(R"(where drawsize=? and drawtype=? order by "system" desc,orientation,name)"),
             kind.drawsize, kind.drawtype);
         row.step();)
        configs.push_back(read_config(row));
    return configs;
}

std::string print_config_line(const PrintConfig& config)
{
    return config.orientation + "  " + config.name + (config.is_default ? "  (default)" : "");
}

std::optional<PrintConfig> load_print_config(Database& init, UserTalk& talk, std::int64_t idx)
{
    auto config = find_config(init, idx);
    if (!config)
        talk.message(not_found);
    return config;
}

std::optional<PrintConfig> default_print_config(Database& init, const PrintKind& kind)
{
    auto row = init.query(
        prints_query(R"(where drawsize=? and drawtype=? and "default"='default')"), kind.drawsize, kind.drawtype);
    if (!row.step())
        return std::nullopt;
    return read_config(row);
}

std::optional<int> percentage(std::string_view text)
{
    const auto value = trim(text);
    if (value.empty())
        return std::nullopt;
    double number = 0;
    auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number, std::chars_format::fixed);
    if (error != std::errc {} || end != value.data() + value.size() || !(number >= 0 && number <= 100))
        return std::nullopt;
    return static_cast<int>(std::lround(number));
}

bool validate_4(UserTalk& talk, const PrintFields& fields)
{
    for (const auto* value : { &fields.left, &fields.top, &fields.width, &fields.height })
        if (!percentage(*value)) {
            talk.message(bad_percentage);
            return false;
        }
    return true;
}

bool validate(UserTalk& talk, const PrintFields& fields)
{
    const auto name = lcase(trim(fields.name));
    if (name.empty()) {
        talk.message("custom configuration requires a name");
        return false;
    }
    if (name == "default") {
        talk.message("custom configuration cannot be named default");
        return false;
    }
    if (name.find("system") != std::string::npos) {
        talk.message("custom configuration cannot contain the word 'system'");
        return false;
    }
    return validate_4(talk, fields);
}

bool save_print_config(Session& session, std::int64_t idx, const PrintFields& fields)
{
    auto& talk = session.talk();
    auto& init = session.init_db();
    if (!validate(talk, fields))
        return false;
    const auto current = find_config(init, idx);
    if (!current) {
        talk.message(not_found);
        return false;
    }
    if (current->system) {
        talk.message("system config, cannot edit");
        return false;
    }
    const auto name = trim(fields.name);
    if (init.query("select idx from prints where idx<>? and lower(trim(name))=?", idx, lcase(name)).step()) {
        talk.message("already have an entry with name & " + name);
        return false;
    }
    const auto p = percentages_of(fields);
    Transaction transaction(init);
    init.run(R"(update prints set name=?, orientation=?, "left"=?, "top"=?, width=?, height=? where idx=?)", name,
        orientation_of(fields), p.left, p.top, p.width, p.height, idx);
    transaction.commit();
    return true;
}

std::optional<std::int64_t> save_print_config_as(Session& session, const PrintKind& kind, const PrintFields& fields)
{
    auto& talk = session.talk();
    auto& init = session.init_db();
    if (!validate(talk, fields))
        return std::nullopt;
    const auto name = trim(fields.name);
    if (init.query("Select idx from prints where lower(trim(name))=?", lcase(name)).step()) {
        talk.message("already have a configuration named :" + name);
        return std::nullopt;
    }
    const auto p = percentages_of(fields);
    Transaction transaction(init);
    const auto idx = init.next_id("prints", "idx");
    init.run(R"(insert into prints (idx, name, "system", "default", drawsize, drawtype, orientation, "left", "top",
        width, height, fontname, fontsize, fontbold, fontitalic) values (?, ?, 0, '', ?, ?, ?, ?, ?, ?, ?, 'Verdana', 8,
        0, 0))",
        idx, name, kind.drawsize, kind.drawtype, orientation_of(fields), p.left, p.top, p.width, p.height);
    transaction.commit();
    return idx;
}

bool delete_print_config(Session& session, const PrintKind& kind, std::optional<std::int64_t> idx)
{
    auto& talk = session.talk();
    auto& init = session.init_db();
    if (!idx) {
        talk.message(select_configuration);
        return false;
    }
    const auto current = find_config(init, *idx);
    if (!current) {
        talk.message(not_found);
        return false;
    }
    if (current->system) {
        talk.message("cannot delete a system configuration");
        return false;
    }
    Transaction transaction(init);
    init.run("delete from prints where idx=?", *idx);
    if (current->is_default)
        init.run(R"(Update prints set "default"='default' where "system"=1 and orientation='portrait' and drawsize=?
            and drawtype=?)",
            kind.drawsize, kind.drawtype);
    transaction.commit();
    return true;
}

bool set_print_config_default(Session& session, const PrintKind& kind, std::optional<std::int64_t> idx)
{
    auto& init = session.init_db();
    if (!idx) {
        session.talk().message(select_configuration);
        return false;
    }
    if (!find_config(init, *idx)) {
        session.talk().message(not_found);
        return false;
    }
    Transaction transaction(init);
    init.run(R"(update prints set "default"='' where drawsize=? and drawtype=?)", kind.drawsize, kind.drawtype);
    init.run(R"(update prints set "default"='default' where idx=?)", *idx);
    transaction.commit();
    return true;
}

} // namespace qv
