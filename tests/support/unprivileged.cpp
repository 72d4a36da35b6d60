#include "support/unprivileged.h"

#include <exception>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qv::test {

namespace {

constexpr uid_t nobody = 65534;

void give_to_nobody(const std::filesystem::path& dir)
{
    [[maybe_unused]] int ignored = ::chown(dir.c_str(), nobody, nobody);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(dir))
        ignored = ::lchown(entry.path().c_str(), nobody, nobody);
}

void write_all(int fd, const std::string& text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const auto n = ::write(fd, text.data() + done, text.size() - done);
        if (n <= 0)
            return;
        done += static_cast<std::size_t>(n);
    }
}

} // namespace

std::string as_unprivileged_user(const std::filesystem::path& owned, const std::function<std::string()>& body)
{
    if (::geteuid() != 0)
        return body();
    give_to_nobody(owned);
    int pipe_fds[2];
    if (::pipe(pipe_fds) != 0)
        return "pipe failed";
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(pipe_fds[0]);
        std::string answer = "cannot become nobody";
        try {
            if (::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 && ::setuid(nobody) == 0)
                answer = body();
        } catch (const std::exception& fault) {
            answer = std::string("fault: ") + fault.what();
        }
        write_all(pipe_fds[1], answer);
        ::close(pipe_fds[1]);
        ::_exit(0);
    }
    ::close(pipe_fds[1]);
    std::string answer;
    char buffer[4096];
    ssize_t n = 0;
    while ((n = ::read(pipe_fds[0], buffer, sizeof buffer)) > 0)
        answer.append(buffer, static_cast<std::size_t>(n));
    ::close(pipe_fds[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return answer;
}

} // namespace qv::test
