#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

/// A pipe with a name that nobody writes to for long.
class NamedPipe {
public:
    explicit NamedPipe(std::string path) : path_(std::move(path)) { ::mkfifo(path_.c_str(), 0600); }

    /// Waits for somebody who reads.
    void openForReader() {
        for (int i = 0; i < 1000 && writer_ < 0; ++i) {
            writer_ = ::open(path_.c_str(), O_WRONLY | O_NONBLOCK);
            if (writer_ < 0) std::this_thread::sleep_for(10ms);
        }
        // Time for the reader to come from its open to its read; either has to be left.
        std::this_thread::sleep_for(50ms);
    }
    void close() { ::close(std::exchange(writer_, -1)); }
    const std::string& path() const { return path_; }
    ~NamedPipe() {
        if (writer_ >= 0) ::close(writer_);
    }
    NamedPipe(const NamedPipe&) = delete;
    NamedPipe& operator=(const NamedPipe&) = delete;

private:
    const std::string path_;
    int writer_ = -1;
};

class Wait : public testing::TestWithParam<int> {
protected:
    TempFolder folder;
    NamedPipe pipe{folder / "pipe"};
};

TEST_P(Wait, ForAPipeEndsAtASignal) {
    Process process(kerfline({folder.write("a.c", "int a;\n"), pipe.path()}));
    pipe.openForReader();
    process.send(GetParam());
    EXPECT_EQ(process.finishWithin(20s).signal, GetParam());
}

TEST_P(Wait, ForStandardInputEndsAtASignal) {
    // Both ends belong to the reader, so no end of the input ever comes.
    const auto takeInput = [this] { ::dup2(::open(pipe.path().c_str(), O_RDWR), STDIN_FILENO); };
    const NamedPipe first(folder / "first");
    Process process(kerfline({first.path(), "-"}), {.prepare = takeInput});
    NamedPipe writer(first.path());
    writer.openForReader();
    writer.close();
    std::this_thread::sleep_for(100ms);
    process.send(GetParam());
    EXPECT_EQ(process.finishWithin(20s).signal, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Process, Wait, testing::Values(SIGTERM, SIGINT, SIGHUP));

} // namespace
