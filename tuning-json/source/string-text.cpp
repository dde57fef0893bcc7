#include "tuning-json/source/string-text.h"

#include <cstdint>
#include <cstring>

namespace t_json
{
namespace
{
// A letter behind the backslash and what it stands for, at the same place.
constexpr char letters[] = "\"\\/bfnrt";
constexpr char characters[] = "\"\\/\b\f\n\r\t";

void utf8Append(std::string& string, std::uint32_t code)
{
    const auto tail = [&](int shift) { string += static_cast<char>(0x80 | ((code >> shift) & 0x3f)); };
    if (code < 0x80)
    {
        string += static_cast<char>(code);
    }
    else if (code < 0x800)
    {
        string += static_cast<char>(0xc0 | (code >> 6));
        tail(0);
    }
    else if (code < 0x10000)
    {
        string += static_cast<char>(0xe0 | (code >> 12));
        tail(6);
        tail(0);
    }
    else
    {
        string += static_cast<char>(0xf0 | (code >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::uint32_t unit(const std::string& text, std::size_t at)
{
    return static_cast<std::uint32_t>(std::stoul(text.substr(at, 4), nullptr, 16));
}

bool isIn(std::uint32_t code, std::uint32_t first, std::uint32_t last) { return code >= first && code <= last; }

/// The code point whose first unit begins at `at`, which moves to the last digit.
std::uint32_t codePoint(const std::string& text, std::size_t& at)
{
    const auto high = unit(text, at);
    at += 3;
    if (!isIn(high, 0xd800, 0xdfff))
        return high;
    if (high < 0xdc00 && text.compare(at + 1, 2, "\\u") == 0)
    {
        const auto low = unit(text, at + 3);
        if (isIn(low, 0xdc00, 0xdfff))
        {
            at += 6;
            return 0x10000 + ((high - 0xd800) << 10) + (low - 0xdc00);
        }
    }
    return 0xfffd;
}
} // namespace

std::string stringEncode(const std::string& string)
{
    constexpr auto digits = "0123456789abcdef";
    std::string text = "\"";
    for (const char c : string)
    {
        const auto* pFound = c == '/' || c == '\0' ? nullptr : std::strchr(characters, c);
        if (pFound)
            text += {'\\', letters[pFound - characters]};
        else if (static_cast<unsigned char>(c) < 0x20)
            text += {'\\', 'u', '0', '0', digits[c >> 4], digits[c & 0xf]};
        else
            text += c;
    }
    return text + '"';
}

std::string stringDecode(const std::string& text)
{
    std::string string;
    string.reserve(text.size());
    for (std::size_t i = 1; i + 1 < text.size(); ++i)
        if (text[i] != '\\')
            string += text[i];
        else if (text[++i] == 'u')
            utf8Append(string, codePoint(text, ++i));
        else
            string += characters[std::strchr(letters, text[i]) - letters];
    return string;
}
} // namespace t_json
