#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;
class UserTalk;

// A draw kind of the print configurations: a draw type and a size, named by a short word.
struct PrintKind
{
    std::string drawtype; // "ko" or "rr"
    int drawsize = 0; // -64 is one half of a split draw of 128
    std::string word() const { return drawtype + std::to_string(drawsize); }
    friend bool operator==(const PrintKind&, const PrintKind&) = default;
};

// The words in their order: "ko2" .. "ko64", "ko-64", "ko128", "rr2" .. "rr8".
std::span<const std::string_view> draw_kind_words();
// nullopt for any other word.
std::optional<PrintKind> draw_kind_from_word(std::string_view word);

// A row of prints. The place of the picture is a share of the page's inner width or height, in percent.
struct PrintConfig
{
    std::int64_t idx = 0;
    std::string name;
    bool system = false;
    bool is_default = false;
    PrintKind kind;
    std::string orientation = "portrait"; // or "landscape"
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

// The rows of a draw kind, the system rows first, then by orientation and name.
std::vector<PrintConfig> list_print_configs(Database& init, const PrintKind& kind);
// A row's line in the window's list: orientation, name and the mark of the default.
std::string print_config_line(const PrintConfig& config);
// load: the row by its id; "print record not found" when it has gone.
std::optional<PrintConfig> load_print_config(Database& init, UserTalk& talk, std::int64_t idx);
// The row that serves a draw kind, if any.
std::optional<PrintConfig> default_print_config(Database& init, const PrintKind& kind);

// What the window holds in its fields.
struct PrintFields
{
    std::string name;
    std::string left;
    std::string top;
    std::string width;
    std::string height;
    std::string orientation = "portrait";
};

// A percentage field's value: a number from 0 to 100, as a whole number; nullopt otherwise.
std::optional<int> percentage(std::string_view text);
// The four percentages present, numeric and from 0 to 100.
bool validate_4(UserTalk& talk, const PrintFields& fields);
// The name, then the four values.
bool validate(UserTalk& talk, const PrintFields& fields);

// "save": the chosen row takes the fields. False, changing nothing, when refused.
bool save_print_config(Session& session, std::int64_t idx, const PrintFields& fields);
// "save as": a new row of the draw kind; its id, or nullopt when refused.
std::optional<std::int64_t> save_print_config_as(Session& session, const PrintKind& kind, const PrintFields& fields);
// "delete": the chosen row goes; a default's place goes back to the kind's system row of portrait orientation.
bool delete_print_config(Session& session, const PrintKind& kind, std::optional<std::int64_t> idx);
// "set as default": the chosen row serves its draw kind.
bool set_print_config_default(Session& session, const PrintKind& kind, std::optional<std::int64_t> idx);

} // namespace qv
