/// The document on paper.
#pragma once

#include "output/Printout.h"

namespace quorvin {

class DocumentFrame;

class DocumentPrintout : public Printout {
public:
    /// The frame must outlive the printout.
    explicit DocumentPrintout(const DocumentFrame& frame) : frame_(frame) {}

    bool isShown() const override;
    bool isEmpty() const override;
    void print(QPrinter& printer) override;

private:
    const DocumentFrame& frame_;
};

}  // namespace quorvin
