#include "toolkit/process/ForkedWorkers.h"

#include "basic/Interrupted.h"
#include "basic/RunTimeError.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

constexpr std::size_t longestMessage = 65536;

void check(bool holds) {
    if (!holds) throw runTimeErrorOfErrno(errno);
}

// One message; "" where the other side has gone.
std::string messageFrom(int socket) {
    std::array<char, longestMessage> bytes{};
    const ssize_t count = untilNotInterrupted([&] { return ::recv(socket, bytes.data(), bytes.size(), 0); });
    return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}

bool send(int socket, const std::string& message) {
    const std::size_t length = std::min(message.size(), longestMessage);
    return untilNotInterrupted([&] { return ::send(socket, message.data(), length, MSG_NOSIGNAL); }) >= 0;
}

} // namespace

ForkedWorkers::ForkedWorkers(std::size_t count, Work work, StopSignals& signals)
    : m_work(std::move(work)), m_signals(signals), m_copies(count) {}

ForkedWorkers::~ForkedWorkers() {
    askToStop();
    for (Copy& copy : m_copies)
        if (copy.process != 0) endOf(copy);
}

void ForkedWorkers::start(Copy& copy) {
    std::array<int, 2> ends{};
    check(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) == 0);
    const pid_t self = getpid();
    copy.process = fork();
    if (copy.process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != self) _exit(1);
        ::close(ends[0]);
        for (const Copy& other : m_copies)
            if (other.socket >= 0) ::close(other.socket);
        work(ends[1]);
    }
    const int problem = errno;
    ::close(ends[1]);
    if (copy.process < 0) {
        ::close(ends[0]);
        copy = Copy();
        throw runTimeErrorOfErrno(problem);
    }
    copy.socket = ends[0];
}

// Leaves without the program's usual end, which belongs to the first process.
void ForkedWorkers::work(int socket) {
    try {
        for (std::string job = messageFrom(socket); !job.empty(); job = messageFrom(socket))
            if (!send(socket, m_work(job))) break;
    } catch (const std::exception&) {
        _exit(1);
    }
    _exit(0);
}

void ForkedWorkers::give(std::size_t worker, const std::string& job) {
    Copy& copy = m_copies.at(worker);
    if (copy.process == 0) start(copy);
    copy.busy = true;
    send(copy.socket, job); // one that just died is found out by wait()
}

WorkerEvent ForkedWorkers::wait(std::chrono::milliseconds atMost) {
    std::vector<pollfd> waited{{m_signals.descriptor(), POLLIN, 0}};
    for (const Copy& copy : m_copies)
        waited.push_back({copy.busy ? copy.socket : -1, POLLIN, 0});
    if (::poll(waited.data(), waited.size(), static_cast<int>(atMost.count())) <= 0) return {};
    if (waited[0].revents != 0 && m_signals.next() != StopWish::none) return {WorkerEvent::Kind::stop, 0, ""};
    for (std::size_t worker = 0; worker < m_copies.size(); ++worker)
        if (waited[worker + 1].revents != 0) return receive(worker);
    return {};
}

WorkerEvent ForkedWorkers::receive(std::size_t worker) {
    Copy& copy = m_copies[worker];
    copy.busy = false;
    std::string answer = messageFrom(copy.socket);
    if (!answer.empty()) return {WorkerEvent::Kind::answer, worker, std::move(answer)};
    return {WorkerEvent::Kind::death, worker, endOf(copy)};
}

std::string ForkedWorkers::endOf(Copy& copy) {
    ::close(copy.socket);
    int status = 0;
    untilNotInterrupted([&] { return waitpid(copy.process, &status, 0); });
    copy = Copy();
    if (WIFSIGNALED(status)) return std::string("ended by the signal ") + strsignal(WTERMSIG(status));
    return "ended with status " + std::to_string(WEXITSTATUS(status));
}

void ForkedWorkers::signalBusy(int signal) const {
    for (const Copy& copy : m_copies)
        if (copy.busy) ::kill(copy.process, signal);
}

void ForkedWorkers::askToStop() {
    signalBusy(SIGTERM);
}

void ForkedWorkers::kill() {
    signalBusy(SIGKILL);
}

} // namespace korvel
