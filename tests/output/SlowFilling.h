/// The filling of a document once more, slow and plain, to hold the real one against.
#pragma once

#include <map>
#include <string>

namespace quorvin::test {

/// Texts of fields by their numbers.
using Fields = std::map<int, std::string>;

/// Fills step by step and returns the error's number.
int fillSlowly(std::string& text, const Fields& fields);

}  // namespace quorvin::test
