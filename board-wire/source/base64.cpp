#include "board-wire/source/base64.h"

#include <cstdint>
#include <cstring>

namespace board
{

namespace
{

const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

} // namespace

std::string base64Encode(const std::string& bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (size_t i = 0; i < bytes.size(); i += 3)
    {
        uint32_t group = 0;
        for (size_t k = 0; k < 3; ++k)
            group = group << 8 | (i + k < bytes.size() ? static_cast<uint8_t>(bytes[i + k]) : 0u);
        text += alphabet[group >> 18];
        text += alphabet[group >> 12 & 63];
        text += i + 1 < bytes.size() ? alphabet[group >> 6 & 63] : '=';
        text += i + 2 < bytes.size() ? alphabet[group & 63] : '=';
    }
    return text;
}

std::optional<std::string> base64Decode(const std::string& text)
{
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    uint32_t group = 0;
    size_t digits = 0;
    size_t pads = 0;
    for (char c : text)
    {
        if (c == ' ' || c == '\r' || c == '\n' || c == '\t')
            continue;
        if (c == '=')
        {
            ++pads;
            continue;
        }
        const char* pDigit = c == '\0' ? nullptr : std::strchr(alphabet, c);
        if (!pDigit || pads)
            return std::nullopt;
        group = (group << 6 | static_cast<uint32_t>(pDigit - alphabet)) & 0xFFFFFF;
        if (++digits % 4 == 0)
        {
            bytes += static_cast<char>(group >> 16);
            bytes += static_cast<char>(group >> 8);
            bytes += static_cast<char>(group);
        }
    }
    switch (digits % 4)
    {
    case 0:
        return pads ? std::nullopt : std::make_optional(bytes);
    case 2:
        bytes += static_cast<char>(group >> 4);
        break;
    case 3:
        bytes += static_cast<char>(group >> 10);
        bytes += static_cast<char>(group >> 2);
        break;
    default:
        return std::nullopt;
    }
    return digits % 4 + pads == 4 ? std::make_optional(bytes) : std::nullopt;
}

} // namespace board
