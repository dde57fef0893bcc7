#include "tuning-tool/source/command-line.h"

#include <iostream>

int main(int count, char** pArguments)
{
    // The transport tells its traffic on standard output, which is for the results.
    std::ostream out(std::cout.rdbuf());
    std::cout.rdbuf(nullptr);
    const auto code = tool::run({pArguments + 1, pArguments + count}, out, std::cerr);
    std::cout.rdbuf(out.rdbuf());
    return code;
}
