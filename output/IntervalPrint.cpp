#include "output/IntervalPrint.h"

#include <cmath>
#include <exception>

#include "output/PrintFile.h"

namespace quorvin {

bool IntervalPrint::start(double first, double last, bool norec)
{
    first = std::trunc(first);
    last = std::trunc(last);
    const auto count = static_cast<double>(file_.recordCount());
    if (first <= 0 || last <= 0 || last > count) return false;
    norec_ = norec;
    first_ = first > count ? file_.recordCount() + 1 : static_cast<RecordNumber>(first);
    last_ = static_cast<RecordNumber>(last);
    scanner_.start(first_, last_);
    running_ = true;
    return true;
}

bool IntervalPrint::advance(RecordNumber most)
{
    try {
        for (; most > 0 && running_; most -= scanner_.effort()) {
            if (printFile_.isFull() || !scanner_.next()) {
                stop();
            } else if (!norec_ || !scanner_.isDeleted()) {
                printFile_.add(scanner_);
            }
        }
    } catch (const std::exception&) {
        stop();
        throw;
    }
    return running_;
}

void IntervalPrint::stop()
{
    running_ = false;
    scanner_.stop();
}

double IntervalPrint::progress() const
{
    if (last_ < first_) return 1;
    return static_cast<double>(scanner_.number() - first_ + 1) / static_cast<double>(last_ - first_ + 1);
}

}  // namespace quorvin
