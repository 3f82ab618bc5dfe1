#include "qt/NorvaneQt_PreviewRunner.h"

#include <chrono>
#include <utility>

namespace NorvaneQt {

namespace {

/// Shorter than what a person takes for a delay, longer than the time between two keys of a burst.
constexpr std::chrono::milliseconds kPause{60};

} // namespace

PreviewRunner::PreviewRunner(const std::atomic<std::uint64_t>& newest, Done done)
    : newest_(newest), done_(std::move(done)), thread_([this] { work(); }) {
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    QObject::connect(&pause_, &QTimer::timeout, &receiver_, [this] { handOver(); });
}

PreviewRunner::~PreviewRunner() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void PreviewRunner::start(NorvaneUI::PreviewJob job) {
    waiting_ = std::move(job);
    // Not started again while it runs: somebody who types on and on shall see something, too.
    if (!pause_.isActive()) pause_.start();
}

void PreviewRunner::handOver() {
    {
        const std::lock_guard lock(mutex_);
        next_ = std::move(waiting_);
    }
    waiting_.reset();
    changed_.notify_one();
}

std::optional<NorvaneUI::PreviewJob> PreviewRunner::nextJob() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ending_ || next_.has_value(); });
    if (ending_) return std::nullopt;
    return std::exchange(next_, std::nullopt);
}

void PreviewRunner::work() {
    while (const auto job = nextJob()) {
        auto result = NorvaneUI::runPreview(*job, &newest_);
        QMetaObject::invokeMethod(
            &receiver_, [this, result = std::move(result)] { done_(result); }, Qt::QueuedConnection);
    }
}

} // namespace NorvaneQt
