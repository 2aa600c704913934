#include "tests/output/SlowFilling.h"

#include <cmath>
#include <cstdlib>

namespace quorvin::test {

namespace {

/// The number that the characters begin with.
double slowNumber(const std::string& text)
{
    std::string number;
    for (const char c : text) {
        if (c == ' ') continue;
        if (std::string("0123456789.+-").find(c) == std::string::npos) break;
        number += c;
    }
    return std::strtod(number.c_str(), nullptr);
}

}  // namespace

int fillSlowly(std::string& text, const Fields& fields)
{
    for (std::size_t from = 0;;) {
        const std::size_t p = text.find("*(", from);
        const std::size_t q = text.find(")*", from);
        if (p == std::string::npos && q == std::string::npos) return 0;
        if (p == std::string::npos || q == std::string::npos || q < p) return 5;
        const double n = slowNumber(text.substr(p + 2, q - p - 2));
        if (n < 0 || n != std::floor(n) || (n > 0 && (n > 1000 || fields.count(static_cast<int>(n)) == 0)))
            return 9;
        std::string v = n == 0 ? "" : fields.at(static_cast<int>(n));
        while (v.ends_with(' '))
            v.pop_back();
        while (v.starts_with(' '))
            v.erase(0, 1);
        const double length = static_cast<double>(v.size());
        text.replace(p, static_cast<std::size_t>(4 + (n < length ? length - n : n)), v);
        from = p + v.size();
    }
}

}  // namespace quorvin::test
