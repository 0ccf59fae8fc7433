#include "ChildProcess.hpp"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tovarin::test {

ChildResult runChild(const std::string& program, const std::vector<std::string>& args,
                     std::chrono::seconds deadline, int asUserId) {
    constexpr int kCannotSwitchUser = 125;
    std::array<int, 2> outPipe{-1, -1};
    std::array<int, 2> errPipe{-1, -1};
    if (::pipe2(outPipe.data(), O_CLOEXEC) != 0 || ::pipe2(errPipe.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("pipe failed");
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);

    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("fork failed");
    if (child == 0) {
        ::dup2(outPipe[1], STDOUT_FILENO);
        ::dup2(errPipe[1], STDERR_FILENO);
        if (asUserId >= 0) {
            const auto id = static_cast<uid_t>(asUserId);
            if (::setgroups(0, nullptr) != 0 || ::setresgid(id, id, id) != 0 ||
                ::setresuid(id, id, id) != 0)
                ::_exit(kCannotSwitchUser);
        }
        ::execv(program.c_str(), argv.data());
        ::_exit(126); // cannot start
    }
    ::close(outPipe[1]);
    ::close(errPipe[1]);

    // Both outputs are drained together, so a child filling one pipe never blocks.
    ChildResult result;
    const auto end = std::chrono::steady_clock::now() + deadline;
    std::array<pollfd, 2> fds{{{outPipe[0], POLLIN, 0}, {errPipe[0], POLLIN, 0}}};
    std::array<std::string*, 2> sinks{&result.out, &result.err};
    std::array<char, 65536> buffer{};
    result.finished = true;
    for (int open = 2; open > 0;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            ::kill(child, SIGKILL);
            result.finished = false;
            break;
        }
        if (::poll(fds.data(), fds.size(), static_cast<int>(left.count())) < 0 && errno != EINTR)
            break;
        for (std::size_t i = 0; i < fds.size(); ++i) {
            if (fds[i].fd < 0 || fds[i].revents == 0)
                continue;
            const ssize_t got = ::read(fds[i].fd, buffer.data(), buffer.size());
            if (got > 0) {
                sinks[i]->append(buffer.data(), static_cast<std::size_t>(got));
            } else if (got == 0 || errno != EINTR) {
                ::close(fds[i].fd);
                fds[i].fd = -1;
                --open;
            }
        }
    }
    for (const pollfd& fd : fds)
        if (fd.fd >= 0)
            ::close(fd.fd);

    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    result.maxResidentKiB = usage.ru_maxrss;
    if (WIFEXITED(status))
        result.status = WEXITSTATUS(status);
    else if (WIFSIGNALED(status))
        result.status = 128 + WTERMSIG(status);
    result.switchedUser = !(asUserId >= 0 && result.status == kCannotSwitchUser);
    return result;
}

} // namespace tovarin::test
