/// A REC file taken apart by hand, to hold what the program shows against it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quorvin::test {

/// A whole file in memory, byte by byte. It must be a good one: lines end in CR LF, all records are alike.
struct PlainRec {
    explicit PlainRec(std::string all);

    std::size_t count() const { return (bytes.size() - dataStart) / recordBytes; }
    /// Stored values of the fields, from 1; slot 0 holds the mark.
    std::vector<std::string> record(std::size_t n) const;

    std::string bytes;
    std::vector<std::size_t> lengths = {0};  ///< of the fields, from 1
    std::size_t dataStart = 0;
    std::size_t recordBytes = 0;
};

}  // namespace quorvin::test
