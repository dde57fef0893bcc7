#include "tuning-common/source/text.h"

#include <algorithm>

namespace t_common
{
namespace
{
bool isSpecial(unsigned char byte) { return (byte < 0x20) | (byte >= 0x7f); }

/// Bytes before the first special one, in blocks that the compiler checks at once.
std::size_t plainLength(const char* pText, std::size_t size)
{
    constexpr std::size_t block = 64;
    std::size_t length = 0;
    for (; length + block <= size; length += block)
    {
        unsigned char found = 0;
        for (std::size_t i = 0; i < block; ++i)
            found |= isSpecial(static_cast<unsigned char>(pText[length + i]));
        if (found)
            break;
    }
    while (length < size && !isSpecial(static_cast<unsigned char>(pText[length])))
        ++length;
    return length;
}

/// Bytes of the UTF-8 sequence at the start, 0 for one that is broken, overlong or no character.
std::size_t sequenceLength(const unsigned char* pText, std::size_t left)
{
    const auto first = pText[0];
    if (first < 0xc2 || first > 0xf4)
        return 0;
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (length > left)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((pText[i] & 0xc0) != 0x80)
            return 0;
    const auto second = pText[1];
    const bool isOverlong = (first == 0xe0 && second < 0xa0) || (first == 0xf0 && second < 0x90);
    const bool isSurrogate = first == 0xed && second >= 0xa0;
    const bool isAbove = first == 0xf4 && second >= 0x90;
    return isOverlong || isSurrogate || isAbove ? 0 : length;
}

/// As above, and 0 for a C1 control character.
std::size_t shownLength(const unsigned char* pText, std::size_t left)
{
    const auto length = sequenceLength(pText, left);
    return length == 2 && pText[0] == 0xc2 && pText[1] < 0xa0 ? 0 : length;
}
} // namespace

std::string printable(const std::string& text, std::size_t maximum, Lines lines)
{
    const auto* pText = reinterpret_cast<const unsigned char*>(text.data());
    const std::size_t size = text.size();
    std::string result;
    result.reserve(size < maximum ? size : maximum + 3);
    for (std::size_t i = 0; i < size;)
    {
        const char* pRun = text.data() + i;
        const auto plain = plainLength(pRun, std::min(size - i, maximum - result.size()));
        result.append(pRun, plain);
        i += plain;
        if (i == size)
            break;
        const std::size_t length = pText[i] < 0x80 ? 1 : shownLength(pText + i, size - i);
        if (result.size() + (length == 0 ? 1 : length) > maximum)
            return result + "...";
        if (length > 1)
            result.append(text, i, length);
        else if (text[i] == '\n' || text[i] == '\t')
            result += lines == Lines::Many ? text[i] : ' ';
        else
            result += '?';
        i += length == 0 ? 1 : length;
    }
    return result;
}

bool isUtf8(const std::string& text)
{
    const auto* pText = reinterpret_cast<const unsigned char*>(text.data());
    for (std::size_t i = 0; i < text.size();)
    {
        const std::size_t length = pText[i] < 0x80 ? 1 : sequenceLength(pText + i, text.size() - i);
        if (length == 0)
            return false;
        i += length;
    }
    return true;
}
} // namespace t_common
