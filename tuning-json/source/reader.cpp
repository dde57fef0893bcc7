#include "tuning-json/source/reader.h"

#include "tuning-common/source/limits.h"
#include "tuning-json/source/number-text.h"
#include "tuning-json/source/string-text.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <numeric>
#include <stdexcept>

namespace t_json
{
namespace
{
namespace limit = t_common::limit;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

template <class Number>
bool fits(const std::string& text)
{
    Number number;
    return numberRead(text, number);
}
} // namespace

Value Reader::document()
{
    // Some editors put a mark of the encoding in front.
    const std::string mark = text.compare(0, 3, "\xef\xbb\xbf") == 0 ? text.substr(0, 3) : "";
    at = mark.size();
    const auto before = mark + blanks();
    auto result = value(0);
    result.before = before;
    result.behind = blanks();
    if (at < text.size())
        fail("something follows the value");
    return result;
}

Value Reader::value(std::size_t depth)
{
    if (++values > limit::jsonFileValues)
        fail("more than " + std::to_string(limit::jsonFileValues) + " values");
    switch (next())
    {
    case '[':
        return container(depth + 1, ValueTypeArray, ']');
    case '{':
        return container(depth + 1, ValueTypeObject, '}');
    case '"':
        return {ValueTypeString, string()};
    case 't':
        return word("true", ValueTypeBoolean);
    case 'f':
        return word("false", ValueTypeBoolean);
    case 'n':
        return word("null", ValueTypeNull);
    default:
        return number();
    }
}

Value Reader::container(std::size_t depth, ValueType type, char close)
{
    if (depth > limit::jsonFileDepth)
        fail("nested deeper than " + std::to_string(limit::jsonFileDepth));
    ++at;
    Value result(type, blanks());
    if (take(close))
        return result;
    auto head = std::move(result.json);
    result.json.clear();
    do
    {
        Value::Element element;
        element.head = head + blanks();
        head.clear();
        if (type == ValueTypeObject)
        {
            const auto keyText = string();
            element.key = stringDecode(keyText);
            element.head += keyText + blanks();
            if (!take(':'))
                fail("':' is missing");
            element.head += ':' + blanks();
        }
        element.value = value(depth);
        element.tail = blanks();
        result.elements.push_back(std::move(element));
    } while (take(','));
    if (!take(close))
        fail(std::string("',' or '") + close + "' is missing");

    result.elements.shrink_to_fit();
    if (type == ValueTypeObject)
    {
        result.byKey.resize(result.elements.size());
        std::iota(result.byKey.begin(), result.byKey.end(), 0);
        std::stable_sort(result.byKey.begin(), result.byKey.end(),
                         [&](std::size_t a, std::size_t b) { return result.elements[a].key < result.elements[b].key; });
    }
    return result;
}

Value Reader::number()
{
    const auto begin = at;
    take('-');
    if (!take('0'))
        digits();
    const auto integerEnd = at;
    if (take('.'))
        digits();
    if (take('e') || take('E'))
    {
        take('+') || take('-');
        digits();
    }
    const auto number = text.substr(begin, at - begin);
    if (!fits<double>(number))
        fail("a number is out of range");
    if (at > integerEnd)
        return {ValueTypeDouble, number};
    return {fits<long long>(number)            ? ValueTypeInt
            : fits<unsigned long long>(number) ? ValueTypeUInt
                                               : ValueTypeDouble,
            number};
}

void Reader::digits()
{
    if (!isDigit(next()))
        fail("no value");
    while (isDigit(next()))
        ++at;
}

Value Reader::word(const char* pWord, ValueType type)
{
    const auto length = std::strlen(pWord);
    if (text.compare(at, length, pWord) != 0)
        fail("no value");
    at += length;
    return {type, pWord};
}

std::string Reader::string()
{
    const auto begin = at;
    if (!take('"'))
        fail("a string is missing");
    while (!take('"'))
    {
        if (static_cast<unsigned char>(next()) < 0x20)
            fail("a string does not end");
        if (!take('\\'))
        {
            ++at;
            continue;
        }
        const bool isLong = next() == 'u';
        const auto isHex = [](unsigned char c) { return std::isxdigit(c) != 0; };
        const bool isSound = isLong ? text.size() - at > 4 && std::all_of(&text[at + 1], &text[at + 5], isHex)
                                    : next() != '\0' && std::strchr("\"\\/bfnrt", next()) != nullptr;
        if (!isSound)
            fail("a string has an unknown escape sequence");
        at += isLong ? 5 : 1;
    }
    return text.substr(begin, at - begin);
}

std::string Reader::blanks()
{
    const auto begin = at;
    while (next() == ' ' || next() == '\t' || next() == '\n' || next() == '\r')
        ++at;
    return text.substr(begin, at - begin);
}

bool Reader::take(char c)
{
    const bool isNext = at < text.size() && text[at] == c;
    at += isNext ? 1 : 0;
    return isNext;
}

void Reader::fail(const std::string& reason) const
{
    const auto line = 1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    throw std::runtime_error("JSON parse failed: " + reason + ", line " + std::to_string(line));
}
} // namespace t_json
