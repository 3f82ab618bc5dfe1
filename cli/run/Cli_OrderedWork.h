#ifndef KERFLINE_CLI_ORDEREDWORK_H
#define KERFLINE_CLI_ORDEREDWORK_H

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace Cli {

/// Does work(0), work(1) up to `count` on several threads, and hands what comes out to
/// take(index, result) in that order on the calling thread. `work` must not throw.
///
/// Threads run only so far ahead that the results that wait stay few. Once isStopped() is true no
/// further work begins; returns how many results were taken.
template <class Result, class Work, class Take, class IsStopped>
std::size_t doInOrder(std::size_t count, unsigned jobs, Work work, Take take, IsStopped isStopped) {
    if (jobs <= 1 || count <= 1) {
        std::size_t index = 0;
        for (; index < count && !isStopped(); ++index) take(index, work(index));
        return index;
    }
    constexpr std::size_t aheadPerJob = 32;
    std::mutex mutex;
    std::condition_variable changed;
    // Those that have begun and are not taken yet, from `taken` on.
    std::deque<std::optional<Result>> waiting;
    std::size_t taken = 0;

    const auto begun = [&] { return taken + waiting.size(); };
    const auto mayBegin = [&] {
        return begun() == count || waiting.size() < aheadPerJob * jobs || isStopped();
    };
    const auto serve = [&] {
        std::unique_lock lock(mutex);
        while (true) {
            changed.wait(lock, mayBegin);
            if (begun() == count || isStopped()) break;
            const std::size_t index = begun();
            waiting.emplace_back();
            lock.unlock();
            Result result = work(index);
            lock.lock();
            waiting[index - taken] = std::move(result);
            changed.notify_all();
        }
        changed.notify_all();
    };

    std::vector<std::jthread> threads;
    while (threads.size() < jobs && threads.size() < count) threads.emplace_back(serve);
    std::unique_lock lock(mutex);
    while (true) {
        const auto isOver = [&] { return taken == count || (waiting.empty() && isStopped()); };
        changed.wait(lock, [&] { return isOver() || (!waiting.empty() && waiting.front().has_value()); });
        if (isOver()) break;
        Result result = std::move(*waiting.front());
        waiting.pop_front();
        const std::size_t index = taken++;
        changed.notify_all();
        lock.unlock();
        take(index, std::move(result));
        lock.lock();
    }
    return taken;
}

} // namespace Cli

#endif
