/// Runs commands in turn and prints their median times, and least processor times, side by side:
/// compare TITLE [NEW OLD]
/// Standard input: one command a line, a label, a tab, and the command for the system's shell; one without a
/// command is printed as not installed. Each command's output is read to its end, as another program would;
/// its messages are discarded.
/// With NEW and OLD, texts that lead to two builds, every command that holds NEW also runs with OLD instead.
/// ROUNDS: how often each runs.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#ifdef _WIN32
#define popen _popen
#define pclose _pclose
#else
#include <sys/resource.h>
#endif

namespace {

constexpr int kRounds = 7;

#ifdef _WIN32
constexpr const char* kNoMessages = " 2> NUL";
double processorTime()
{
    return 0;
}
#else
constexpr const char* kNoMessages = " 2> /dev/null";

/// Milliseconds of processor time that all commands so far have taken: it counts less what else runs.
double processorTime()
{
    struct rusage usage {};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto of = [](const timeval& time) {
        return 1e3 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_usec);
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}
#endif

struct Command {
    std::string line;
    std::vector<double> milliseconds;
    double processor = 0;  ///< least milliseconds of processor time

    double median()
    {
        std::sort(milliseconds.begin(), milliseconds.end());
        return milliseconds.empty() ? 0 : milliseconds[milliseconds.size() / 2];
    }
};

struct Row {
    std::string label;
    Command now;
    Command before;
};

std::string replaced(std::string line, const std::string& from, const std::string& to)
{
    for (std::size_t at = line.find(from); at != std::string::npos; at = line.find(from, at + to.size()))
        line.replace(at, from.size(), to);
    return line;
}

/// `builds`: the two texts, or nothing.
std::vector<Row> readRows(const std::vector<std::string>& builds)
{
    std::vector<Row> rows;
    for (std::string line; std::getline(std::cin, line);) {
        const std::size_t tab = line.find('\t');
        if (tab == std::string::npos) continue;
        Row row{line.substr(0, tab), {line.substr(tab + 1), {}, 0}, {}};
        const bool isOurs = builds.size() == 2 && row.now.line.find(builds[0]) != std::string::npos;
        if (isOurs) row.before.line = replaced(row.now.line, builds[0], builds[1]);
        rows.push_back(row);
    }
    return rows;
}

void runOnce(Command& command)
{
    if (command.line.empty()) return;
    static std::array<char, 1 << 16> output;
    const auto start = std::chrono::steady_clock::now();
    const double processorBefore = processorTime();
    FILE* pipe = popen(("(" + command.line + ")" + kNoMessages).c_str(), "r");
    while (pipe && std::fread(output.data(), 1, output.size(), pipe) > 0) {
    }
    const bool worked = pipe && pclose(pipe) == 0;
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    const double processor = processorTime() - processorBefore;
    if (command.milliseconds.empty() || processor < command.processor) command.processor = processor;
    command.milliseconds.push_back(time.count());
    if (worked) return;
    std::cerr << "failed: " << command.line << '\n';
    std::exit(1);
}

void print(std::vector<Row>& rows, const char* title, bool twoBuilds)
{
    std::printf("%-52s %10s %8s %10s", title, "median ms", "times", "cpu ms");
    std::printf(twoBuilds ? " %10s %8s %10s %8s\n" : "\n", "before", "now/bef.", "cpu before", "now/bef.");
    double first = 0;
    for (Row& row : rows) {
        std::printf("%-52s ", row.label.c_str());
        const double now = row.now.median();
        if (first == 0) first = now;
        if (row.now.line.empty()) {
            std::printf("not installed\n");
            continue;
        }
        std::printf("%10.1f %8.2f %10.1f", now, now / first, row.now.processor);
        const double before = row.before.median();
        if (before > 0)
            std::printf(" %10.1f %8.2f %10.1f %8.2f", before, now / before, row.before.processor,
                        row.now.processor / row.before.processor);
        std::printf("\n");
    }
    std::printf("\n");
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty()) return 2;
    const std::vector<std::string> builds(arguments.begin() + 1, arguments.end());
    std::vector<Row> rows = readRows(builds);
    const char* given = std::getenv("ROUNDS");
    const int rounds = given ? std::atoi(given) : kRounds;
    // In turn, so that a slow moment of the machine does not fall on one command alone.
    for (int round = 0; round < rounds; ++round) {
        for (Row& row : rows) {
            runOnce(row.now);
            runOnce(row.before);
        }
    }
    print(rows, argv[1], builds.size() == 2);
}
