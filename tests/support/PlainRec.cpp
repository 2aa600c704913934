#include "tests/support/PlainRec.h"

#include <algorithm>
#include <utility>

namespace quorvin::test {

PlainRec::PlainRec(std::string all) : bytes(std::move(all))
{
    const auto lineBehind = [this](std::size_t at) { return bytes.find("\r\n", at) + 2; };
    std::size_t columns = 0;
    dataStart = lineBehind(0);
    for (int left = std::stoi(bytes); left > 0; --left) {
        lengths.push_back(std::stoul(bytes.substr(dataStart + 37, 3)));
        columns += lengths.back();
        dataStart = lineBehind(dataStart);
    }
    std::size_t end = dataStart;
    for (std::size_t line = 0; line < (columns + 77) / 78; ++line)
        end = lineBehind(end);
    recordBytes = end - dataStart;
}

std::vector<std::string> PlainRec::record(std::size_t n) const
{
    std::vector<std::string> values(1);
    std::string text;
    const std::size_t end = dataStart + n * recordBytes;
    for (std::size_t at = end - recordBytes; at < end;) {
        const std::size_t length = bytes.find("\r\n", at) - at;
        text += bytes.substr(at, std::min<std::size_t>(length, 78));
        values[0] = bytes[at + length - 1];
        at += length + 2;
    }
    std::size_t from = 0;
    for (std::size_t i = 1; i < lengths.size(); from += lengths[i++])
        values.push_back(from < text.size() ? text.substr(from, lengths[i]) : std::string());
    return values;
}

}  // namespace quorvin::test
