#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace gis {

/// Works on batches on several threads and takes the results on the caller's, in the order in which
/// the batches came. A failure in a batch is thrown where its result would be taken.
template <class Batch, class Result>
class InOrder {
public:
    /// Takes the number of its thread, from 0.
    using Work = std::function<Result(std::size_t thread, Batch)>;
    using Take = std::function<void(Result)>;

    /// One thread is that of the caller.
    InOrder(std::size_t threads, Work work, Take take)
        : work_(std::move(work)), take_(std::move(take)) {
        for (std::size_t i = 0; threads > 1 && i < threads; ++i)
            threads_.emplace_back([this, i](const std::stop_token& stop) { Run(stop, i); });
    }

    void Push(Batch batch) {
        if (threads_.empty()) return take_(work_(0, std::move(batch)));
        // So many that no thread waits while the caller takes a result.
        if (pending_.size() >= 2 * threads_.size()) TakeFirst();
        Task task([this, given = std::move(batch)](std::size_t thread) mutable {
            return work_(thread, std::move(given));
        });
        pending_.push_back(task.get_future());
        {
            const std::scoped_lock lock(mutex_);
            tasks_.push_back(std::move(task));
        }
        change_.notify_one();
    }
    void Finish() {
        while (!pending_.empty()) TakeFirst();
    }

private:
    using Task = std::packaged_task<Result(std::size_t thread)>;

    void Run(const std::stop_token& stop, std::size_t thread) {
        std::unique_lock lock(mutex_);
        while (change_.wait(lock, stop, [this] { return !tasks_.empty(); })) {
            if (stop.stop_requested()) return;
            auto task = std::move(tasks_.front());
            tasks_.pop_front();
            lock.unlock();
            task(thread);
            lock.lock();
        }
    }
    void TakeFirst() {
        auto first = std::move(pending_.front());
        pending_.pop_front();
        take_(first.get());
    }

    Work work_;
    Take take_;
    std::mutex mutex_;
    std::condition_variable_any change_;
    std::deque<Task> tasks_;
    std::deque<std::future<Result>> pending_;
    std::vector<std::jthread> threads_;  ///< Destroyed first: each ends its batch.
};

}  // namespace gis
