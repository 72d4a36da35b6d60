#include "core/command_line.h"

#include "core/utf8.h"

namespace qv {

std::optional<std::filesystem::path> tournament_file_argument(
    const std::vector<std::string>& arguments, const std::filesystem::path& working_dir)
{
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::filesystem::path file = arguments[i];
        if (lcase(file.extension().string()) != ".qvd" || file.stem().empty())
            continue;
        return (file.is_absolute() ? file : working_dir / file).lexically_normal();
    }
    return std::nullopt;
}

} // namespace qv
