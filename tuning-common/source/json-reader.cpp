#include "tuning-common/source/json-reader.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text-run.h"
#include "tuning-common/source/text.h"

#include <charconv>
#include <cstring>
#include <stdexcept>

namespace t_common
{
namespace
{
bool isDigit(char c) { return c >= '0' && c <= '9'; }

void appendUtf8(std::string& result, unsigned int code)
{
    const auto tail = [&](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3f)); };
    if (code < 0x80)
    {
        result += static_cast<char>(code);
    }
    else if (code < 0x800)
    {
        result += {static_cast<char>(0xc0 | code >> 6), tail(0)};
    }
    else if (code < 0x10000)
    {
        result += {static_cast<char>(0xe0 | code >> 12), tail(6), tail(0)};
    }
    else
    {
        result += {static_cast<char>(0xf0 | code >> 18), tail(12), tail(6), tail(0)};
    }
}
} // namespace

JsonReader::JsonReader(const std::string& text_) : text(text_), pNext(text.data()), pEnd(text.data() + text.size()) {}

Json::Value JsonReader::read()
{
    Json::Value result;
    blanks();
    if (peek() != '{' && peek() != '[')
    {
        fail("no object or array");
    }
    value(result);
    blanks();
    if (pNext != pEnd)
    {
        fail("more behind the value");
    }
    return result;
}

void JsonReader::value(Json::Value& target)
{
    switch (peek())
    {
    case '{':
        object(target);
        break;
    case '[':
        array(target);
        break;
    case '"':
        target = string();
        break;
    default:
        if (take("true"))
        {
            target = true;
        }
        else if (take("false"))
        {
            target = false;
        }
        else if (!take("null"))
        {
            number(target);
        }
        break;
    }
}

void JsonReader::object(Json::Value& target)
{
    enter();
    target = Json::objectValue;
    if (!take('}'))
    {
        do
        {
            count();
            blanks();
            if (peek() != '"')
            {
                fail("no key");
            }
            const auto key = string();
            demand(':');
            blanks();
            auto& member = target[key];
            member = Json::Value();
            value(member);
        } while (take(','));
        demand('}');
    }
    --depth;
}

void JsonReader::array(Json::Value& target)
{
    enter();
    target = Json::arrayValue;
    if (!take(']'))
    {
        do
        {
            count();
            blanks();
            value(target.append(Json::Value()));
        } while (take(','));
        demand(']');
    }
    --depth;
}

void JsonReader::number(Json::Value& target)
{
    const char* pBegin = pNext;
    const auto digits = [this]
    {
        if (!isDigit(peek()))
        {
            fail("no value");
        }
        while (isDigit(peek()))
        {
            ++pNext;
        }
    };
    bool isReal = false;
    if (peek() == '-')
    {
        ++pNext;
    }
    digits();
    if (peek() == '.')
    {
        isReal = true;
        ++pNext;
        digits();
    }
    if (peek() == 'e' || peek() == 'E')
    {
        isReal = true;
        ++pNext;
        if (peek() == '+' || peek() == '-')
        {
            ++pNext;
        }
        digits();
    }

    Json::Int64 integer = 0;
    Json::UInt64 large = 0;
    double real = 0;
    if (!isReal && std::from_chars(pBegin, pNext, integer).ec == std::errc())
    {
        target = integer;
    }
    else if (!isReal && *pBegin != '-' && std::from_chars(pBegin, pNext, large).ec == std::errc())
    {
        target = large;
    }
    else if (std::from_chars(pBegin, pNext, real).ec == std::errc())
    {
        target = real;
    }
    else
    {
        fail("a number out of range");
    }
}

std::string JsonReader::string()
{
    std::string result;
    ++pNext;
    while (true)
    {
        const char* pBegin = pNext;
        pNext = findSpecial(pBegin, pEnd, [](unsigned char c) { return (c == '"') | (c == '\\'); });
        result.append(pBegin, pNext);
        if (pNext == pEnd)
        {
            fail("no end of a text");
        }
        if (*pNext++ == '"')
        {
            return result;
        }
        escape(result);
    }
}

void JsonReader::escape(std::string& result)
{
    constexpr auto names = "\"\\/bfnrt";
    constexpr auto characters = "\"\\/\b\f\n\r\t";
    const char name = peek();
    if (name == 'u')
    {
        ++pNext;
        auto code = hexadecimal();
        if (code >= 0xd800 && code < 0xe000)
        {
            const bool isPair = code < 0xdc00 && pEnd - pNext >= 2 && pNext[0] == '\\' && pNext[1] == 'u';
            pNext += isPair ? 2 : 0;
            const auto low = isPair ? hexadecimal() : 0;
            if (low < 0xdc00 || low > 0xdfff)
            {
                fail("half a character");
            }
            code = 0x10000 + ((code - 0xd800) << 10) + (low - 0xdc00);
        }
        appendUtf8(result, code);
        return;
    }
    const char* pName = name == '\0' ? nullptr : std::strchr(names, name);
    if (pName == nullptr)
    {
        fail("an unknown escape");
    }
    result += characters[pName - names];
    ++pNext;
}

unsigned int JsonReader::hexadecimal()
{
    unsigned int code = 0;
    const auto length = std::min<std::ptrdiff_t>(pEnd - pNext, 4);
    const auto result = std::from_chars(pNext, pNext + length, code, 16);
    if (result.ec != std::errc() || result.ptr != pNext + 4)
    {
        fail("an unknown escape");
    }
    pNext += 4;
    return code;
}

void JsonReader::blanks()
{
    while (pNext != pEnd && (*pNext == ' ' || *pNext == '\n' || *pNext == '\r' || *pNext == '\t'))
    {
        ++pNext;
    }
}

bool JsonReader::take(char c)
{
    blanks();
    const bool isThere = pNext != pEnd && *pNext == c;
    pNext += isThere ? 1 : 0;
    return isThere;
}

bool JsonReader::take(const char* pWord)
{
    const auto size = std::strlen(pWord);
    const bool isThere = static_cast<std::size_t>(pEnd - pNext) >= size && std::memcmp(pNext, pWord, size) == 0;
    pNext += isThere ? size : 0;
    return isThere;
}

void JsonReader::demand(char c)
{
    if (!take(c))
    {
        fail(std::string("no '") + c + "'");
    }
}

void JsonReader::enter()
{
    ++pNext;
    count();
    if (++depth > limit::jsonDepth)
    {
        fail("more than " + std::to_string(limit::jsonDepth) + " nested values");
    }
}

void JsonReader::count()
{
    if (++elements > limit::jsonElements)
    {
        fail("more than " + std::to_string(limit::jsonElements) + " elements");
    }
}

void JsonReader::fail(const std::string& reason) const
{
    throw std::runtime_error("JSON parse failed: " + reason + " at byte " + std::to_string(pNext - text.data()) +
                             " of " + std::to_string(text.size()) + " bytes \"" + printable(text, limit::jsonExcerpt) +
                             "\"");
}
} // namespace t_common
