/// What the print button prints instead of the print file.
#pragma once

class QPrinter;

namespace quorvin {

/// Something on the form that can be put on paper while it is shown.
class Printout {
public:
    Printout() = default;
    Printout(const Printout&) = delete;
    Printout& operator=(const Printout&) = delete;
    virtual ~Printout() = default;

    virtual bool isShown() const = 0;
    /// Whether there is nothing on it to print.
    virtual bool isEmpty() const { return false; }
    /// What is done at the button's press besides printing, and before it. Shows its own boxes.
    virtual void prepare() {}
    /// Puts it on the printer's pages. Raises RuntimeError 57 when that fails.
    virtual void print(QPrinter& printer) = 0;
};

}  // namespace quorvin
