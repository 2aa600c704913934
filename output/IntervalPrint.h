/// Prints the records of an interval into the print file, some at a time.
#pragma once

#include "rec/RecordScanner.h"

namespace quorvin {

class PrintFile;

class IntervalPrint {
public:
    /// Both must outlive this.
    IntervalPrint(RecFile& file, PrintFile& printFile) : file_(file), printFile_(printFile), scanner_(file) {}

    /// Begins; the file must have been counted. `first`, `last`: as typed, fractions are cut off. False, and
    /// nothing is printed, when one of them is not positive or the last is beyond the file.
    bool start(double first, double last, bool norec);

    /// Prints at most `most` records, fewer where reading them takes long; false when none is left or the
    /// print file is full. An error ends the printing and is raised: what reading raises, and 9 for an entry
    /// of the matrix without a field.
    bool advance(RecordNumber most);
    void stop();

    /// Share of the interval that is done, 0 to 1.
    double progress() const;

private:
    RecFile& file_;
    PrintFile& printFile_;
    RecordScanner scanner_;
    RecordNumber first_ = 1;
    RecordNumber last_ = 0;
    bool running_ = false;
    bool norec_ = false;  ///< records deleted in EpiData are skipped
};

}  // namespace quorvin
