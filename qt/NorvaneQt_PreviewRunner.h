#ifndef KERFLINE_NORVANEQT_PREVIEWRUNNER_H
#define KERFLINE_NORVANEQT_PREVIEWRUNNER_H

#include "ui/NorvaneUI_Preview.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace NorvaneQt {

/// Runs preview jobs on a thread of its own, so that a long one never holds up typing.
///
/// A job waits a moment first, since the next key may outdate it. Of the jobs that wait only the
/// newest is run, and one that is outdated while it runs ends early.
class PreviewRunner {
public:
    using Done = std::function<void(const NorvaneUI::PreviewResult&)>;

    /// `newest` is the generation of the newest job, and outlives the runner. `done` is called on
    /// the thread of the caller.
    PreviewRunner(const std::atomic<std::uint64_t>& newest, Done done);
    PreviewRunner(const PreviewRunner&) = delete;
    PreviewRunner& operator=(const PreviewRunner&) = delete;
    /// Waits for the end of a run; its result is dropped.
    ~PreviewRunner();

    void start(NorvaneUI::PreviewJob job);

private:
    void handOver();
    void work();
    std::optional<NorvaneUI::PreviewJob> nextJob();

    const std::atomic<std::uint64_t>& newest_;
    Done done_;
    // On the thread of the caller.
    QObject receiver_;
    QTimer pause_;
    std::optional<NorvaneUI::PreviewJob> waiting_;
    // Shared, under the mutex.
    std::mutex mutex_;
    std::condition_variable changed_;
    std::optional<NorvaneUI::PreviewJob> next_;
    bool ending_ = false;
    /// Uses all of the above, so it comes last.
    std::thread thread_;
};

} // namespace NorvaneQt

#endif
