#include "core/app_options.h"

#include "core/session.h"
#include "core/utf8.h"

namespace qv {

const std::vector<TickOption>& tick_options()
{
    static const std::vector<TickOption> ticks {
        { "use footprint", "app.usefootprint" },
        { "open last db on start", "open_last_db_on_start" },
        { "allow double click auto scroll", "double_click_auto_scroll" },
        { "allow screenscrape", "app.screenscrape" },
        { "fill rr voids", "app.fillrrvoids" },
        { "refresh availability/from code on do draw", "refresh_ac_on_do_draw" },
        { "include next round pointer in text draws", "include_next_round_pointers" },
        { "on qv5 load pull tournament name", "qv5_load_pull_tname" },
        { "on qv6 export include data prompts", "qv6_export_include_prompts" },
        { "store peek qv5", "store_peek_qv5" },
    };
    return ticks;
}

const std::vector<std::string_view>& on_file_save_choices()
{
    static const std::vector<std::string_view> choices { "beep", "ok", "prompt to view", "show path" };
    return choices;
}

const std::vector<NumberOption>& number_options()
{
    static const std::vector<NumberOption> numbers {
        { "ftp timeout (seconds)", "app.ftp_timeout", 6, 0 },
        { "print indent spaces", "app.text_left", 0, 50 },
        { "print header lines", "app.text_top", 0, 50 },
        { "admin line space", "app.admin_lines", 0, 10 },
    };
    return numbers;
}

std::optional<Refusal> set_number_option(Session& session, const NumberOption& option, std::string_view typed)
{
    const std::string value = trim(typed);
    Check check = value_required(value);
    if (!check)
        check = check_integer(value);
    // Digits only by now; a number too long to read is simply too big.
    const long long number = check ? 0 : value.size() > 9 ? 1'000'000'000LL : std::stoll(value);
    if (!check && number < option.min)
        check = Refusal { "value must be greater than 5 seconds" };
    if (!check && option.max > 0 && number > option.max)
        check = Refusal { "max " + std::to_string(option.max) };
    if (!report(session.talk(), check))
        return check;
    session.settings().set_disk_var(option.key, value);
    return std::nullopt;
}

const std::vector<ColorOption>& color_options()
{
    static const std::vector<ColorOption> colors {
        { "general textcolor", "colors_textcolor", "0" },
        { "general backcolor", "colors_backcolor", "16777215" },
        { "current marker backcolor", "current_marker_color", "49152" },
        { "footprint backcolor", "footprint_color", "49151" },
        { "ko score hilight color", "ko_score_highlite_color", "12648447" },
    };
    return colors;
}

const std::vector<UrlOption>& url_options()
{
    static const std::vector<UrlOption> urls {
        { "help", "help_url", "https://quorvelin.example/help" },
        { "signup", "signup_url", "https://quorvelin.example/signup" },
        { "homepage", "homepage_url", "https://quorvelin.example/" },
    };
    return urls;
}

bool update_url(Session& session, const UrlOption& option, std::string_view address)
{
    const std::string value = trim(address);
    if (!report(session.talk(), value_required(value)))
        return false;
    session.settings().set_disk_var(option.key, value);
    return true;
}

} // namespace qv
