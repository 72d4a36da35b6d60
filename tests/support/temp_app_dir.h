#pragma once

#include <filesystem>

namespace qv::test {

// A fresh application directory for one test: init_files/ copied from the build, removed afterwards.
class TempAppDir
{
public:
    TempAppDir();
    ~TempAppDir();
    TempAppDir(const TempAppDir&) = delete;
    TempAppDir& operator=(const TempAppDir&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path init_files() const { return m_path / "init_files"; }
    // A new tournament file copied from the blank one.
    std::filesystem::path new_tournament(const std::string& name = "t.qvd") const;

private:
    std::filesystem::path m_path;
};

} // namespace qv::test
