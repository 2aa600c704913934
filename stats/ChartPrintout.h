/// The chart on paper, and as a picture beside the REC file.
#pragma once

#include <filesystem>

#include "output/Printout.h"

namespace quorvin {

class ChartView;
class Dialogs;
class RecFile;

/// Printing the chart also saves it as "chart.jpg" in the REC file's folder. A file of that name that this
/// run of the program has not written is replaced only when the user says so.
class ChartPrintout : public Printout {
public:
    /// All must outlive the printout.
    ChartPrintout(const ChartView& view, const RecFile& recFile, Dialogs& dialogs) :
        view_(view),
        recFile_(recFile),
        dialogs_(dialogs)
    {
    }

    bool isShown() const override;
    void prepare() override;
    void print(QPrinter& printer) override;

private:
    void save(const std::filesystem::path& name) const;

    const ChartView& view_;
    const RecFile& recFile_;
    Dialogs& dialogs_;
    std::filesystem::path written_;
};

}  // namespace quorvin
