#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <utility>

namespace gis {

/// Works on batches on several threads and takes the results on the caller's, in the order in which
/// the batches came. A failure in a batch is thrown where its result would be taken.
template <class Batch, class Result>
class InOrder {
public:
    using Work = std::function<Result(Batch)>;
    using Take = std::function<void(Result)>;

    InOrder(std::size_t threads, Work work, Take take)
        : threads_(threads), work_(std::move(work)), take_(std::move(take)) {}

    void Push(Batch batch) {
        if (threads_ <= 1) return take_(work_(std::move(batch)));
        if (pending_.size() >= threads_) TakeFirst();
        pending_.push_back(std::async(std::launch::async, std::cref(work_), std::move(batch)));
    }
    void Finish() {
        while (!pending_.empty()) TakeFirst();
    }

private:
    void TakeFirst() {
        auto first = std::move(pending_.front());
        pending_.pop_front();
        take_(first.get());
    }

    std::size_t threads_;
    Work work_;
    Take take_;
    std::deque<std::future<Result>> pending_;  ///< Waits for its threads when it is destroyed.
};

}  // namespace gis
