#pragma once

#include <algorithm>
#include <cstddef>

namespace t_common
{
/// The first character for which `isSpecial` holds, or the end. Long texts of ordinary characters, such as records in
/// Base64, are passed in blocks that the compiler turns into vector instructions.
template <class Predicate>
const char* findSpecial(const char* pBegin, const char* pEnd, Predicate isSpecial)
{
    constexpr std::ptrdiff_t block = 32;
    for (; pEnd - pBegin >= block; pBegin += block)
    {
        unsigned char found = 0;
        for (std::ptrdiff_t i = 0; i < block; ++i)
        {
            found |= static_cast<unsigned char>(isSpecial(static_cast<unsigned char>(pBegin[i])));
        }
        if (found != 0)
        {
            break;
        }
    }
    return std::find_if(pBegin, pEnd, [=](char c) { return isSpecial(static_cast<unsigned char>(c)); });
}
} // namespace t_common
