#include "tests/process/Process.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    if (in.peek() != std::ifstream::traits_type::eof()) out << in.rdbuf();
    return out.str();
}

void setEnvironment(const Surroundings& surroundings) {
    ::setenv("XDG_CONFIG_HOME", "/nonexistent", 1);
    ::unsetenv("NO_COLOR");
    ::setenv("TERM", "xterm", 1);
    for (const std::string& setting : surroundings.environment) {
        const std::size_t equals = setting.find('=');
        ::setenv(setting.substr(0, equals).c_str(), setting.substr(equals + 1).c_str(), 1);
    }
}

[[noreturn]] void execute(const Words& words, const Surroundings& surroundings) {
    setEnvironment(surroundings);
    if (::chdir(surroundings.folder.c_str()) != 0) ::_exit(126);
    if (surroundings.prepare) surroundings.prepare();
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

Finished ended(int state) {
    Finished finished;
    if (WIFEXITED(state)) finished.status = WEXITSTATUS(state);
    if (WIFSIGNALED(state)) finished.signal = WTERMSIG(state);
    return finished;
}

void redirect(const std::string& path, int flags, int number) {
    const int file = ::open(path.c_str(), flags, 0600);
    if (file < 0 || ::dup2(file, number) < 0) ::_exit(125);
    ::close(file);
}

} // namespace

Process::Process(Words words, Surroundings surroundings) {
    std::string name = (std::filesystem::temp_directory_path() / "kerfline-process-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    scratch_ = name;
    // Files in the place of pipes: nothing can wait for somebody who reads.
    std::ofstream(scratch_ + "/in", std::ios::binary) << surroundings.input;
    id_ = ::fork();
    if (id_ < 0) throw std::runtime_error("no process");
    if (id_ > 0) return;
    redirect(scratch_ + "/in", O_RDONLY, STDIN_FILENO);
    redirect(scratch_ + "/out", O_WRONLY | O_CREAT, STDOUT_FILENO);
    redirect(scratch_ + "/err", O_WRONLY | O_CREAT, STDERR_FILENO);
    execute(words, surroundings);
}

Process::~Process() {
    if (id_ > 0) {
        send(SIGKILL);
        finish();
    }
    std::error_code ignored;
    std::filesystem::remove_all(scratch_, ignored);
}

void Process::send(int signal) const { ::kill(id_, signal); }

Finished Process::finishWithin(std::chrono::seconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    ::siginfo_t ended{};
    while (::waitid(P_PID, static_cast<::id_t>(id_), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 && ended.si_pid == 0) {
        if (std::chrono::steady_clock::now() > end) send(SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return finish();
}

Finished Process::finish() {
    int state = 0;
    while (::waitpid(id_, &state, 0) < 0 && errno == EINTR) {
    }
    id_ = -1;
    Finished finished = ended(state);
    finished.out = readFile(scratch_ + "/out");
    finished.err = readFile(scratch_ + "/err");
    return finished;
}

Words kerfline(const Words& arguments) {
    Words words = {KERFLINE_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}

Finished run(const Words& arguments, const Surroundings& surroundings) {
    return Process(kerfline(arguments), surroundings).finish();
}

Finished runOnTerminal(const Words& arguments, const std::string& question, const std::string& typed,
                       const Surroundings& surroundings) {
    constexpr int patience = 30000;
    int terminal = -1;
    const ::pid_t id = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    if (id < 0) throw std::runtime_error("no terminal");
    if (id == 0) execute(kerfline(arguments), surroundings);
    std::string shown;
    bool isAnswered = typed.empty();
    for (struct pollfd waiting = {terminal, POLLIN, 0}; ::poll(&waiting, 1, patience) > 0;) {
        char buffer[4096];
        const auto count = ::read(terminal, buffer, sizeof buffer);
        if (count <= 0) break;
        shown.append(buffer, static_cast<std::size_t>(count));
        if (isAnswered || shown.find(question) == std::string::npos) continue;
        isAnswered = ::write(terminal, typed.data(), typed.size()) == static_cast<::ssize_t>(typed.size());
    }
    ::close(terminal);
    int state = 0;
    while (::waitpid(id, &state, 0) < 0 && errno == EINTR) {
    }
    Finished finished = ended(state);
    finished.out = shown;
    return finished;
}

bool isInstalled(const std::string& program) {
    return Process({"sh", "-c", "command -v " + program}).finish().status == 0;
}
