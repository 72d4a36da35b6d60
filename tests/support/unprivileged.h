#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace qv::test {

// Runs body as an ordinary user and returns what it returned. Root may write any file, so a read-only file
// means nothing to it: when the tests run as root, body runs in a child process under the user "nobody", and
// the directory `owned` is given to that user first. Otherwise body runs here as it is.
std::string as_unprivileged_user(const std::filesystem::path& owned, const std::function<std::string()>& body);

} // namespace qv::test
