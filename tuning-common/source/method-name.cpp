#include "tuning-common/source/method-name.h"

#include <cctype>

std::string computeMethodName(const std::string& function, const std::string& prettyFunction)
{
    const auto position = prettyFunction.find("::" + function + "(");
    if (position == std::string::npos)
        return function;
    auto begin = position;
    while (begin > 0)
    {
        const auto c = static_cast<unsigned char>(prettyFunction[begin - 1]);
        if (!std::isalnum(c) && c != '_' && c != ':')
            break;
        --begin;
    }
    return begin == position ? function : prettyFunction.substr(begin, position - begin) + "::" + function;
}
