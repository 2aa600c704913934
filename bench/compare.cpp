/// Runs commands in turn and prints their median times side by side.
/// Standard input: one command a line, a label, a tab, and the command for the system's shell; its output is
/// discarded.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr int kRounds = 7;

#ifdef _WIN32
constexpr const char* kDiscard = " > NUL";
#else
constexpr const char* kDiscard = " > /dev/null";
#endif

struct Command {
    std::string label;
    std::string line;
    std::vector<double> milliseconds;

    double median()
    {
        std::sort(milliseconds.begin(), milliseconds.end());
        return milliseconds[milliseconds.size() / 2];
    }
};

std::vector<Command> readCommands()
{
    std::vector<Command> commands;
    for (std::string line; std::getline(std::cin, line);) {
        const std::size_t tab = line.find('\t');
        if (tab != std::string::npos) commands.push_back({line.substr(0, tab), line.substr(tab + 1), {}});
    }
    return commands;
}

bool runOnce(Command& command)
{
    const auto start = std::chrono::steady_clock::now();
    const int status = std::system((command.line + kDiscard).c_str());
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    command.milliseconds.push_back(time.count());
    return status == 0;
}

}  // namespace

int main()
{
    std::vector<Command> commands = readCommands();
    // In turn, so that a slow moment of the machine does not fall on one command alone.
    for (int round = 0; round < kRounds; ++round) {
        for (Command& command : commands) {
            if (runOnce(command)) continue;
            std::cerr << "failed: " << command.line << '\n';
            return 1;
        }
    }
    if (commands.empty()) return 0;
    const double first = commands.front().median();
    std::printf("%-50s %12s %10s\n", "whole process, median", "ms", "ratio");
    for (Command& command : commands)
        std::printf("%-50s %12.1f %10.2f\n", command.label.c_str(), command.median(),
                    command.median() / first);
}
