#include "documents/print_configs.h"
#include "documents/print_setup.h"
#include "support/session_fixture.h"

namespace qv {
namespace {

class PrintConfigsTest : public test::SessionFixture
{
protected:
    PrintKind ko32 { "ko", 32 };

    void SetUp() override { session.boot_start_app(""); }

    static PrintFields fields(std::string name, std::string l = "5", std::string t = "5", std::string w = "90",
        std::string h = "60", std::string orientation = "portrait")
    {
        return { std::move(name), std::move(l), std::move(t), std::move(w), std::move(h), std::move(orientation) };
    }

    std::vector<std::string> lines(const PrintKind& kind)
    {
        std::vector<std::string> out;
        for (const auto& config : list_print_configs(session.init_db(), kind))
            out.push_back(print_config_line(config));
        return out;
    }

    std::string default_name(const PrintKind& kind)
    {
        const auto config = default_print_config(session.init_db(), kind);
        return config ? config->name : "<none>";
    }
};

TEST(DrawKinds, WordsReadBackAsKinds)
{
    EXPECT_EQ(draw_kind_words().size(), 15u);
    EXPECT_EQ(draw_kind_from_word("ko-64"), (PrintKind { "ko", -64 }));
    EXPECT_EQ(draw_kind_from_word("RR5"), (PrintKind { "rr", 5 }));
    EXPECT_FALSE(draw_kind_from_word("ko3"));
    EXPECT_FALSE(draw_kind_from_word("rr9"));
    EXPECT_FALSE(draw_kind_from_word(""));
}

TEST_F(PrintConfigsTest, EveryKindHasASystemDefault)
{
    for (auto word : draw_kind_words()) {
        const auto kind = *draw_kind_from_word(word);
        const auto config = default_print_config(session.init_db(), kind);
        ASSERT_TRUE(config) << word;
        EXPECT_TRUE(config->system) << word;
        EXPECT_EQ(config->orientation, "portrait") << word;
    }
    EXPECT_EQ(lines(ko32),
        (std::vector<std::string> { "landscape  system ko32 landscape", "portrait  system ko32 portrait  (default)" }));
}

TEST_F(PrintConfigsTest, RefusalsOfTheWindow)
{
    struct Case
    {
        PrintFields typed;
        const char* message;
    };
    const Case cases[] = {
        { fields("  "), "custom configuration requires a name" },
        { fields(" Default "), "custom configuration cannot be named default" },
        { fields("my system a4"), "custom configuration cannot contain the word 'system'" },
        { fields("a4", ""), "value is a percentage and must be between 0 and 100" },
        { fields("a4", "5", "x"), "value is a percentage and must be between 0 and 100" },
        { fields("a4", "5", "5", "100.5"), "value is a percentage and must be between 0 and 100" },
        { fields("a4", "5", "5", "90", "-1"), "value is a percentage and must be between 0 and 100" },
    };
    const auto before = session.init_db().row_count("prints");
    for (const auto& c : cases) {
        talk.clear();
        EXPECT_FALSE(save_print_config_as(session, ko32, c.typed)) << c.message;
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message });
    }
    EXPECT_EQ(session.init_db().row_count("prints"), before);

    // The page's far corner is a place too: the picture then lies off the page.
    talk.clear();
    EXPECT_TRUE(save_print_config_as(session, ko32, fields("off the page", "100", "0", "100", "100")));
    EXPECT_TRUE(talk.messages().empty());
}

TEST_F(PrintConfigsTest, SaveAsSaveAndNames)
{
    const auto idx = save_print_config_as(session, ko32, fields("wall chart", "10", "12.4", "80", "70", "landscape"));
    ASSERT_TRUE(idx);
    auto loaded = load_print_config(session.init_db(), talk, *idx);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->orientation, "landscape");
    EXPECT_EQ(std::vector<int>({ loaded->left, loaded->top, loaded->width, loaded->height }),
        std::vector<int>({ 10, 12, 80, 70 }));
    EXPECT_FALSE(loaded->is_default);

    talk.clear();
    EXPECT_FALSE(save_print_config_as(session, PrintKind { "rr", 4 }, fields(" WALL chart")));
    EXPECT_EQ(talk.last_message(), "already have a configuration named :WALL chart");

    const auto other = save_print_config_as(session, ko32, fields("club board"));
    talk.clear();
    EXPECT_FALSE(save_print_config(session, *other, fields("wall chart")));
    EXPECT_EQ(talk.last_message(), "already have an entry with name & wall chart");
    EXPECT_TRUE(save_print_config(session, *idx, fields("wall chart", "0", "0", "100", "100")));
    EXPECT_EQ(load_print_config(session.init_db(), talk, *idx)->width, 100);

    talk.clear();
    const auto system_row = default_print_config(session.init_db(), ko32)->idx;
    EXPECT_FALSE(save_print_config(session, system_row, fields("mine")));
    EXPECT_EQ(talk.last_message(), "system config, cannot edit");
    EXPECT_FALSE(save_print_config(session, 999, fields("mine")));
    EXPECT_EQ(talk.last_message(), "print record not found");
    EXPECT_FALSE(load_print_config(session.init_db(), talk, 999));
}

// Deleting the default of a kind gives the default back to the kind's system row of portrait orientation.
TEST_F(PrintConfigsTest, DeletingTheDefault)
{
    const auto idx = save_print_config_as(session, ko32, fields("wall chart"));
    ASSERT_TRUE(set_print_config_default(session, ko32, *idx));
    EXPECT_EQ(default_name(ko32), "wall chart");
    EXPECT_EQ(default_name(PrintKind { "ko", 64 }), "system ko64 portrait");
    EXPECT_EQ(session.init_db().scalar_integer(R"(select count(*) from prints where "default"='default' and
        drawsize=32 and drawtype='ko')"),
        1);

    ASSERT_TRUE(delete_print_config(session, ko32, *idx));
    EXPECT_EQ(default_name(ko32), "system ko32 portrait");
    EXPECT_FALSE(load_print_config(session.init_db(), talk, *idx));
}

TEST_F(PrintConfigsTest, DeleteAndDefaultRefusals)
{
    EXPECT_FALSE(delete_print_config(session, ko32, std::nullopt));
    EXPECT_EQ(talk.last_message(), "select configuration");
    EXPECT_FALSE(set_print_config_default(session, ko32, std::nullopt));
    EXPECT_EQ(talk.last_message(), "select configuration");
    const auto system_row = default_print_config(session.init_db(), ko32)->idx;
    EXPECT_FALSE(delete_print_config(session, ko32, system_row));
    EXPECT_EQ(talk.last_message(), "cannot delete a system configuration");
    EXPECT_FALSE(set_print_config_default(session, ko32, 999));
    EXPECT_EQ(talk.last_message(), "print record not found");
    EXPECT_EQ(default_name(ko32), "system ko32 portrait");

    // A default that is not the deleted row stays.
    const auto idx = save_print_config_as(session, ko32, fields("spare"));
    ASSERT_TRUE(delete_print_config(session, ko32, *idx));
    EXPECT_EQ(default_name(ko32), "system ko32 portrait");
}

// The moving buttons step by 5 or, with small steps, by 1, and keep each value on the page.
TEST(PictureMoves, StepsToolsAndWholePercentages)
{
    const PicturePlace start { "portrait", 10, 10, 80, 60 };
    const auto four = [](const PicturePlace& p) { return std::vector<double> { p.left, p.top, p.width, p.height }; };
    struct Case
    {
        PictureMove move;
        bool small;
        std::vector<double> expected;
    };
    const Case cases[] = {
        { PictureMove::left, false, { 5, 10, 80, 60 } },
        { PictureMove::right, true, { 11, 10, 80, 60 } },
        { PictureMove::up, false, { 10, 5, 80, 60 } },
        { PictureMove::down, false, { 10, 15, 80, 60 } },
        { PictureMove::width_plus, false, { 10, 10, 85, 60 } },
        { PictureMove::width_minus, true, { 10, 10, 79, 60 } },
        { PictureMove::height_plus, true, { 10, 10, 80, 61 } },
        { PictureMove::height_minus, false, { 10, 10, 80, 55 } },
    };
    for (const auto& c : cases)
        EXPECT_EQ(four(move_picture(start, c.move, c.small)), c.expected) << static_cast<int>(c.move);

    EXPECT_EQ(four(move_picture({ "portrait", 2, 98, 100, 0 }, PictureMove::left, false))[0], 0);
    EXPECT_EQ(four(move_picture({ "portrait", 2, 98, 100, 0 }, PictureMove::down, false))[1], 100);
    EXPECT_EQ(four(move_picture({ "portrait", 2, 98, 100, 0 }, PictureMove::width_plus, false))[2], 100);
    EXPECT_EQ(four(move_picture({ "portrait", 2, 98, 100, 0 }, PictureMove::height_minus, true))[3], 0);

    EXPECT_EQ(four(expand_to_fit(start)), (std::vector<double> { 0, 0, 100, 100 }));
    EXPECT_EQ(four(set_origin_0_0(start)), (std::vector<double> { 0, 0, 80, 60 }));
    EXPECT_EQ(four(clear_settings()), (std::vector<double> { 0, 0, 0, 0 }));
    EXPECT_EQ(clear_settings().orientation, "portrait");
    EXPECT_EQ(whole_number_pct(12.5), 13);
    EXPECT_EQ(whole_number_pct(12.49), 12);
}

} // namespace
} // namespace qv
