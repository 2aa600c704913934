/// Stands in for EpiData: leaves a file beside the one it was started with, so that a test sees that it ran.

#include <fstream>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 2) return 1;
    std::ofstream(std::string(argv[1]) + ".started") << argv[1];
    return 0;
}
