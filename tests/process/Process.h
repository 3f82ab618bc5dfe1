#ifndef KERFLINE_TESTS_PROCESS_H
#define KERFLINE_TESTS_PROCESS_H

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

/// How a process ended, and what it wrote.
struct Finished {
    /// -1 if a signal ended it.
    int status = -1;
    int signal = 0;
    std::string out;
    std::string err;
};

/// What a process finds when it starts.
struct Surroundings {
    std::string folder = ".";
    std::string input = {};
    /// "NAME=VALUE". The user's configuration is an empty folder unless this says otherwise.
    std::vector<std::string> environment = {};
    /// Called in the new process before the program starts.
    std::function<void()> prepare = {};
};

using Words = std::vector<std::string>;

/// A running process; it is killed with this object.
class Process {
public:
    /// `words` start with the program to run.
    explicit Process(Words words, Surroundings surroundings = {});
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    void send(int signal) const;
    /// Waits for its end.
    Finished finish();
    /// The same, but kills what does not end in time.
    Finished finishWithin(std::chrono::seconds patience);

private:
    std::string scratch_;
    ::pid_t id_ = -1;
};

/// The program under test with these arguments.
Words kerfline(const Words& arguments);

/// Runs the program under test to its end.
Finished run(const Words& arguments, const Surroundings& surroundings = {});

/// Runs the program under test on a terminal of its own and types `typed` once `question` has been
/// shown. Returns all that the terminal showed, as `out`.
Finished runOnTerminal(const Words& arguments, const std::string& question, const std::string& typed,
                       const Surroundings& surroundings = {});

bool isInstalled(const std::string& program);

#endif
