#include "tuning-json/source/value.h"

#include "tuning-common/source/limits.h"
#include "tuning-json/source/element.h"
#include "tuning-json/source/number-text.h"
#include "tuning-json/source/reader.h"
#include "tuning-json/source/string-text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <istream>
#include <ostream>
#include <stdexcept>

namespace t_json
{
namespace
{
std::string doubleText(double number)
{
    if (!std::isfinite(number))
        throw std::invalid_argument("JSON text failed: a number is not finite");
    char text[32];
    const std::string shortest(text, std::to_chars(text, text + sizeof text, number).ptr);
    // Without a point it would come back as an integer.
    return shortest.find_first_of(".e") == std::string::npos ? shortest + ".0" : shortest;
}
} // namespace

Value::Value() : Value(ValueTypeNull, "null") {}
Value::Value(bool isTrue) : Value(ValueTypeBoolean, isTrue ? "true" : "false") {}
Value::Value(double number) : Value(ValueTypeDouble, doubleText(number)) {}
Value::Value(int number) : Value(ValueTypeInt, std::to_string(number)) {}
Value::Value(unsigned int number) : Value(ValueTypeUInt, std::to_string(number)) {}
Value::Value(long long number) : Value(ValueTypeInt, std::to_string(number)) {}
Value::Value(unsigned long long number) : Value(ValueTypeUInt, std::to_string(number)) {}
Value::Value(const std::string& string) : Value(ValueTypeString, stringEncode(string)) {}
Value::Value(const char* pString) : Value(std::string(pString)) {}
Value::Value(ValueType type, std::string text) : valueType(type), json(std::move(text)) {}
Value::Value(const Value&) = default;
Value::Value(Value&&) noexcept = default;
Value& Value::operator=(const Value&) = default;
Value& Value::operator=(Value&&) noexcept = default;
Value::~Value() = default;

int Value::size() const { return static_cast<int>(valueType == ValueTypeObject ? members().size() : elements.size()); }

std::vector<std::string> Value::members() const
{
    std::vector<std::string> keys;
    keys.reserve(byKey.size());
    for (const auto i : byKey)
        if (keys.empty() || keys.back() != elements[i].key)
            keys.push_back(elements[i].key);
    return keys;
}

std::size_t Value::position(int index, int end) const
{
    if (valueType != ValueTypeArray || index < 0 || index >= end)
        throw std::out_of_range("JSON array has no element " + std::to_string(index));
    return static_cast<std::size_t>(index);
}

std::size_t Value::position(const std::string& key) const
{
    const auto behind_ =
        std::upper_bound(byKey.begin(), byKey.end(), key,
                         [&](const std::string& sought, std::size_t i) { return sought < elements[i].key; });
    if (behind_ == byKey.begin() || elements[*(behind_ - 1)].key != key)
        throw std::out_of_range("JSON object has no member \"" + key + "\"");
    return *(behind_ - 1);
}

Value& Value::operator[](int index) { return elements[position(index, size())].value; }
const Value& Value::operator[](int index) const { return elements[position(index, size())].value; }
Value& Value::operator[](const std::string& key) { return elements[position(key)].value; }
const Value& Value::operator[](const std::string& key) const { return elements[position(key)].value; }

void Value::insert(int index, const Value& value)
{
    const auto i = position(index, size() + 1);
    // Before anything moves: the value may be one of the elements.
    Element element{{}, {}, value, {}};
    if (elements.empty())
    {
        json.clear();
    }
    else if (i == elements.size())
    {
        element.head = elements.size() > 1 ? elements.back().head : std::string();
        element.tail.swap(elements.back().tail);
    }
    else
    {
        element.head = elements[i].head;
        if (i == 0 && elements.size() > 1)
            elements[0].head = elements[1].head;
    }
    elements.insert(elements.begin() + index, std::move(element));
}

void Value::erase(int index)
{
    const auto i = position(index, size());
    if (i + 1 < elements.size())
        elements[i + 1].head = elements[i].head;
    else if (i > 0)
        elements[i - 1].tail = elements[i].tail;
    elements.erase(elements.begin() + index);
}

template <class Number>
const Value& Value::numberGet(Number& number) const
{
    if (valueType != ValueTypeInt && valueType != ValueTypeUInt && valueType != ValueTypeDouble)
        throw std::invalid_argument("JSON value is no number");
    Number result;
    if (!numberRead(json, result))
        throw std::out_of_range("JSON number " + json + " does not fit");
    number = result;
    return *this;
}

const Value& Value::operator>>(double& number) const { return numberGet(number); }
const Value& Value::operator>>(int& number) const { return numberGet(number); }
const Value& Value::operator>>(unsigned int& number) const { return numberGet(number); }
const Value& Value::operator>>(long long& number) const { return numberGet(number); }
const Value& Value::operator>>(unsigned long long& number) const { return numberGet(number); }

const Value& Value::operator>>(bool& isTrue) const
{
    if (valueType != ValueTypeBoolean)
        throw std::invalid_argument("JSON value is no truth value");
    isTrue = json == "true";
    return *this;
}

const Value& Value::operator>>(std::string& string) const
{
    const bool isContainer = valueType == ValueTypeArray || valueType == ValueTypeObject;
    string = isContainer ? std::string() : valueType == ValueTypeString ? stringDecode(json) : json;
    return *this;
}

std::istream& operator>>(std::istream& stream, Value& value)
{
    constexpr auto maximum = t_common::limit::jsonFile;
    std::string text;
    char piece[16384];
    while (text.size() <= maximum && (stream.read(piece, sizeof piece), stream.gcount() > 0))
        text.append(piece, static_cast<std::size_t>(stream.gcount()));
    if (text.size() > maximum)
    {
        throw std::runtime_error("JSON parse failed: larger than " + std::to_string(maximum / t_common::limit::MiB) +
                                 " MiB");
    }
    // Having read to the end is no failure here.
    stream.clear(stream.rdstate() & ~std::ios::failbit);
    value = Reader(text).document();
    return stream;
}

std::ostream& operator<<(std::ostream& stream, const Value& value)
{
    const bool isObject = value.valueType == ValueTypeObject;
    if (!isObject && value.valueType != ValueTypeArray)
        return stream << value.before << value.json << value.behind;
    stream << value.before << (isObject ? '{' : '[') << value.json;
    for (const auto& element : value.elements)
        stream << (&element == &value.elements.front() ? "" : ",") << element.head << element.value << element.tail;
    return stream << (isObject ? '}' : ']') << value.behind;
}
} // namespace t_json
