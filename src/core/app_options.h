#pragma once

#include "core/validators.h"

#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// The options of the control panel. Each control writes its one setting at once; there is no "apply".

// The ticks, by caption and setting.
struct TickOption
{
    std::string_view caption;
    std::string_view key;
};
const std::vector<TickOption>& tick_options();

// "on file save": the index of the choice is the setting's value.
const std::vector<std::string_view>& on_file_save_choices();

// The number fields: "ftp timeout (seconds)" at least 5, the print spaces and lines at most 50, the admin line
// space at most 10. A refused value is told and nothing is written.
struct NumberOption
{
    std::string_view caption;
    std::string_view key;
    int min = 0;
    int max = 0; // 0: no upper bound
};
const std::vector<NumberOption>& number_options();
std::optional<Refusal> set_number_option(Session& session, const NumberOption& option, std::string_view value);

// The colours, as decimal colour numbers, with the value "set defaults" puts back.
struct ColorOption
{
    std::string_view caption;
    std::string_view key;
    std::string_view default_value;
};
const std::vector<ColorOption>& color_options();

// The addresses of the "urls" list; "default" puts the built-in one back.
struct UrlOption
{
    std::string_view caption;
    std::string_view key;
    std::string_view builtin;
};
const std::vector<UrlOption>& url_options();
// "update": stores the edited address; "value required" when it is empty.
bool update_url(Session& session, const UrlOption& option, std::string_view address);

} // namespace qv
