#include "board-simulator/source/protocol-document.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>

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
    const bool isCheck = count == 3 && std::string(pArguments[1]) == "--check";
    if (count != 2 && !isCheck)
    {
        std::cerr << "Usage: protocol-document [--check] FILE\n";
        return 2;
    }
    const std::string text = board::protocolDocument();
    return isCheck ? check(pArguments[2], text) : write(pArguments[1], text);
}
