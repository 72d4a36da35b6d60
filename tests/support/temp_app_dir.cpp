#include "support/temp_app_dir.h"

#include <random>
#include <string>

namespace qv::test {

TempAppDir::TempAppDir()
{
    std::random_device device;
    m_path = std::filesystem::temp_directory_path() / ("quorvelin-test-" + std::to_string(device()));
    std::filesystem::create_directories(m_path);
    std::filesystem::copy(QV_INIT_FILES_DIR, m_path / "init_files", std::filesystem::copy_options::recursive);
}

TempAppDir::~TempAppDir()
{
    std::error_code ec;
    std::filesystem::remove_all(m_path, ec);
}

std::filesystem::path TempAppDir::new_tournament(const std::string& name) const
{
    const auto file = m_path / name;
    std::filesystem::copy_file(init_files() / "blank.qvd", file, std::filesystem::copy_options::overwrite_existing);
    return file;
}

} // namespace qv::test
