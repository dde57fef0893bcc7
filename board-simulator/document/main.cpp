#include "board-simulator/source/protocol-document.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace
{

int check(const std::string& path, const std::string& text)
{
    std::ifstream stream(path, std::ios::binary);
    const std::string old(std::istreambuf_iterator<char>(stream), {});
    if (old == text)
        return 0;
    const auto place = std::mismatch(old.begin(), old.end(), text.begin(), text.end()).first;
    std::cerr << path << ":" << std::count(old.begin(), place, '\n') + 1 << ": out of date. Run: protocol-document "
              << path << "\n";
    return 1;
}

int write(const std::string& path, const std::string& text)
{
    std::ofstream stream(path, std::ios::binary);
    stream << text << std::flush;
    if (!stream)
    {
        std::cerr << path << ": can't be written\n";
        return 1;
    }
    return 0;
}

} // namespace

/// Writes the handbook of the wire, or checks that the file has its present text.
int main(int count, char** pArguments)
{
    const auto* pUsage = "Usage: protocol-document [--check] FILE\n";
    const std::vector<std::string> arguments(pArguments + 1, pArguments + count);
    if (arguments == std::vector<std::string>{"--help"})
    {
        std::cout << pUsage;
        return 0;
    }
    const bool isCheck = arguments.size() == 2 && arguments.front() == "--check";
    // A mistyped option must not become a file.
    if (!(isCheck || arguments.size() == 1) || arguments.back().rfind("-", 0) == 0)
    {
        std::cerr << pUsage;
        return 2;
    }
    const std::string text = board::protocolDocument();
    return isCheck ? check(arguments.back(), text) : write(arguments.back(), text);
}
