#include "core/app_options.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

class AppOptionsTest : public test::SessionFixture
{
protected:
    void SetUp() override { session.boot_start_app(""); }

    const NumberOption& number(std::string_view key)
    {
        for (const auto& option : number_options())
            if (option.key == key)
                return option;
        throw std::logic_error("no such option");
    }
};

TEST_F(AppOptionsTest, NumbersAreCheckedAndWrittenAtOnce)
{
    struct Case
    {
        std::string_view key;
        std::string value;
        std::string refusal; // empty: stored
    };
    const Case cases[] = {
        { "app.ftp_timeout", "4", "value must be greater than 5 seconds" },
        { "app.ftp_timeout", "5", "value must be greater than 5 seconds" },
        { "app.ftp_timeout", "6", "" },
        { "app.ftp_timeout", "", "value required" },
        { "app.ftp_timeout", "1x", "invalid character for integer" },
        { "app.text_left", "51", "max 50" },
        { "app.text_left", "50", "" },
        { "app.text_top", "99999999999", "max 50" },
        { "app.admin_lines", "11", "max 10" },
        { "app.admin_lines", " 7 ", "" },
    };
    for (const auto& c : cases) {
        const std::string before = session.settings().text(c.key);
        const auto refused = set_number_option(session, number(c.key), c.value);
        if (c.refusal.empty()) {
            EXPECT_FALSE(refused) << c.key << "=" << c.value;
            EXPECT_EQ(session.settings().get_disk_var(c.key), std::string(c.value == " 7 " ? "7" : c.value));
        } else {
            ASSERT_TRUE(refused) << c.key << "=" << c.value;
            EXPECT_EQ(talk.last_message(), c.refusal);
            EXPECT_EQ(session.settings().text(c.key), before);
        }
    }
}

TEST_F(AppOptionsTest, EveryOptionHasItsSettingRow)
{
    auto& init = session.init_db();
    for (const auto& tick : tick_options())
        EXPECT_EQ(init.scalar_integer("select count(*) from disk_vars where nm=?", tick.key), 1) << tick.key;
    for (const auto& color : color_options())
        EXPECT_EQ(init.scalar_text("select value from disk_vars where nm=?", color.key), color.default_value);
    for (const auto& url : url_options())
        EXPECT_EQ(init.scalar_integer("select count(*) from disk_vars where nm=?", url.key), 1) << url.key;

    EXPECT_FALSE(update_url(session, url_options()[0], " "));
    EXPECT_EQ(talk.last_message(), "value required");
    EXPECT_TRUE(update_url(session, url_options()[0], " https://help.example/ "));
    EXPECT_EQ(session.settings().text("help_url"), "https://help.example/");
}

} // namespace
} // namespace qv
