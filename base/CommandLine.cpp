#include "base/CommandLine.h"

#include <csignal>
#include <cstdlib>

#ifdef _WIN32
#include <windows.h>
// shellapi.h needs windows.h before it.
#include <shellapi.h>
#endif

namespace quorvin {

#ifdef _WIN32

std::vector<std::string> utf8Arguments(int, char**)
{
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; words && i < count; ++i)
        arguments.push_back(utf8FromPath(std::filesystem::path(words[i])));
    LocalFree(words);
    return arguments;
}

void useUtf8Console()
{
    static const UINT before = GetConsoleOutputCP();
    if (before == 0) return;
    SetConsoleOutputCP(CP_UTF8);
    // The page is the console's, which other programs use afterwards.
    std::atexit([] { SetConsoleOutputCP(before); });
}

#else

std::vector<std::string> utf8Arguments(int argc, char** argv)
{
    if (argc < 1) return {};
    return std::vector<std::string>(argv + 1, argv + argc);
}

void useUtf8Console() {}

#endif

namespace {

volatile std::sig_atomic_t endingAsked = 0;

#ifdef SIGHUP
constexpr int kEndings[] = {SIGINT, SIGTERM, SIGHUP};
#else
// Ctrl-Break; when its console is closed, the program ends before it could clear up.
constexpr int kEndings[] = {SIGINT, SIGTERM, SIGBREAK};
#endif

}  // namespace

void noteEndings()
{
    for (const int signal : kEndings) {
        if (std::signal(signal, [](int) { endingAsked = 1; }) == SIG_IGN) std::signal(signal, SIG_IGN);
    }
}

bool isToEnd()
{
    return endingAsked != 0;
}

void surviveSizeLimits()
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

std::filesystem::path pathFromUtf8(const std::string& utf8)
{
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string utf8FromPath(const std::filesystem::path& name)
{
    const std::u8string text = name.u8string();
    return std::string(text.begin(), text.end());
}

}  // namespace quorvin
