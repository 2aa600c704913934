/// A stable sort that can be done a little at a time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace quorvin {

/// Sorts items by `<` between other work: short runs first, then ever longer ones merged in pairs; `run` is
/// to be called until it says that it is done.
template<class T>
class StepwiseSort {
public:
    /// `items` and `buffer` must outlive the sort; the buffer grows to as many items.
    StepwiseSort(std::span<T> items, std::vector<T>& buffer) : items_(items), buffer_(buffer) {}

    /// Goes on for about `steps` items; true when all are in order.
    bool run(std::size_t steps)
    {
        for (std::size_t done = 0; done < steps && !sorted_; done += kRun) {
            if (width_ == 0) {
                sortRun();
            } else {
                mergeSome();
            }
        }
        return sorted_;
    }

private:
    static constexpr std::size_t kRun = 4096;

    void sortRun()
    {
        const std::size_t end = std::min(place_ + kRun, items_.size());
        std::stable_sort(items_.begin() + static_cast<std::ptrdiff_t>(place_),
                         items_.begin() + static_cast<std::ptrdiff_t>(end));
        place_ = end;
        if (place_ == items_.size()) startPass(kRun);
    }

    void startPass(std::size_t width)
    {
        width_ = width;
        place_ = 0;
        sorted_ = width_ >= items_.size();
        buffer_.clear();
        if (!sorted_) buffer_.reserve(items_.size());
        startPair();
    }

    void startPair()
    {
        left_ = place_;
        middle_ = std::min(place_ + width_, items_.size());
        right_ = middle_;
        end_ = std::min(middle_ + width_, items_.size());
    }

    /// One run's worth of items from the two runs being merged.
    void mergeSome()
    {
        const std::size_t most = buffer_.size() + kRun;
        while (buffer_.size() < most && (left_ < middle_ || right_ < end_)) {
            const bool fromRight = left_ == middle_ || (right_ < end_ && items_[right_] < items_[left_]);
            buffer_.push_back(items_[fromRight ? right_++ : left_++]);
        }
        if (left_ < middle_ || right_ < end_) return;
        place_ = end_;
        if (place_ < items_.size()) {
            startPair();
            return;
        }
        std::copy(buffer_.begin(), buffer_.end(), items_.begin());
        startPass(2 * width_);
    }

    std::span<T> items_;
    std::vector<T>& buffer_;
    bool sorted_ = false;
    std::size_t width_ = 0;  ///< of the runs being merged; 0 while they are made
    std::size_t place_ = 0;  ///< where the run, or the pair of runs, in work begins
    std::size_t left_ = 0, middle_ = 0, right_ = 0, end_ = 0;
};

}  // namespace quorvin
