#include "core/command_line.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(TournamentFileArgument, TheFirstTournamentFileIsOpenedAndMadeAbsolute)
{
    struct Case
    {
        std::vector<std::string> arguments;
        std::optional<std::filesystem::path> file;
    };
    const std::vector<Case> cases {
        { { "quorvelin" }, std::nullopt }, { { "quorvelin", "/data/club open.qvd" }, "/data/club open.qvd" },
        { { "quorvelin", "CLUB.QVD" }, "/home/dir/CLUB.QVD" },
        { { "quorvelin", "../cups/./spring.qvd" }, "/home/cups/spring.qvd" },
        { { "quorvelin", "--verbose", "notes.txt", "a.qvd", "b.qvd" }, "/home/dir/a.qvd" },
        { { "quorvelin", ".qvd", "qvd" }, std::nullopt },
        { { "/usr/bin/x.qvd" }, std::nullopt }, // the program's own name is no argument
    };
    for (const auto& c : cases)
        EXPECT_EQ(tournament_file_argument(c.arguments, "/home/dir"), c.file) << c.arguments.back();
}

} // namespace
} // namespace qv
