/// REC files built in memory, column for column.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quorvin::test {

/// What a test cares about in a field; the rest has usual values.
struct FieldSpec {
    int length = 5;
    std::string question = "domanda";
    int questionX = 1;
    int questionY = 1;
    int fieldX = 20;
    int fieldY = 1;
    int questionColour = 30;
    int fieldColour = 112;
    std::string name = "CAMPO";
};

class RecBuilder {
public:
    explicit RecBuilder(std::vector<FieldSpec> fields, int screenColour = 1, std::string lineEnd = "\r\n");

    /// Adds a record; values are padded or cut to their field's length. The last line ends with `mark`.
    RecBuilder& record(const std::vector<std::string>& values, char mark = '!');
    /// Adds records of one field: "r1", "r2" and so on.
    RecBuilder& records(int count);
    const std::string& bytes() const { return bytes_; }

private:
    std::vector<FieldSpec> fields_;
    std::string lineEnd_;
    std::string bytes_;
};

/// Begins a file; easier on the eye, and on the compiler, than the constructor.
inline RecBuilder rec(std::vector<FieldSpec> fields, int screenColour = 1, std::string lineEnd = "\r\n")
{
    return RecBuilder(std::move(fields), screenColour, std::move(lineEnd));
}

/// A definition line with its numbers in their columns.
std::string definitionLine(const FieldSpec& field);

}  // namespace quorvin::test
