/// Records that prove themselves: what of one reaches the window shows whether it was written just so.
#pragma once

#include <cstdio>
#include <string>

namespace quorvin::test {

/// Versions are counted from 0 to here, and then anew.
inline constexpr unsigned kVersions = 10000000;

/// Names a record and the one write of it, with a check sum: "r00012v0000345c1a2b", 19 characters.
inline std::string token(unsigned record, unsigned version)
{
    constexpr unsigned kSpread = 2654435761U;
    const unsigned sum = (record * kSpread) ^ (version * (kSpread >> 3U)) ^ ((record + version) >> 5U);
    char text[40];
    std::snprintf(text, sizeof text, "r%05uv%07uc%04x", record % 100000, version % kVersions,
                  (sum >> 7U) & 0xFFFFU);
    return text;
}

/// Widths of the fields: the token; three of them, so that a record goes over two lines; a group of its
/// version; the token again, at the record's end.
inline constexpr int kProvenWidths[] = {20, 60, 2, 20};

inline std::string group(unsigned version)
{
    return "k" + std::to_string(version % 7);
}

/// The record's text as its fields hold it, without marks and line ends.
inline std::string provenText(unsigned record, unsigned version)
{
    const std::string one = token(record, version) + ' ';
    return one + one + one + one + group(version) + one;
}

/// Whether a record's text is one that `provenText` made, in either case; with its number if one is given.
inline bool isProven(const std::string& text, unsigned number = 0)
{
    unsigned record = 0;
    unsigned version = 0;
    if (std::sscanf(text.c_str(), "r%5uv%7uc", &record, &version) != 2) return false;
    return (number == 0 || record == number) && text == provenText(record, version);
}

}  // namespace quorvin::test
