#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace t_json
{
enum ValueType
{
    ValueTypeNull,
    ValueTypeArray,
    ValueTypeBoolean,
    ValueTypeDouble,
    ValueTypeInt,
    ValueTypeObject,
    ValueTypeString,
    ValueTypeUInt ///< only what is beyond the range of ValueTypeInt, when it was read from a text
};

/// A JSON value that remembers its text: what was read and not assigned since is written as it stood, blanks, order of
/// keys and digits included. Numbers have no width of their own, so no digit of a long integer is lost. A pointer to an
/// element holds until its array changes.
class Value
{
public:
    Value();
    Value(bool isTrue);
    /// Keeps the fewest digits that read back as the same number. Throws `std::invalid_argument` for one that is not
    /// finite, since JSON has no text for it.
    Value(double number);
    Value(int number);
    Value(unsigned int number);
    Value(long long number);
    Value(unsigned long long number);
    Value(const std::string& string);
    Value(const char* pString);
    Value(const Value&);
    Value(Value&&) noexcept;
    Value& operator=(const Value&);
    Value& operator=(Value&&) noexcept;
    ~Value();

    ValueType type() const { return valueType; }

    /// The number of elements or members; 0 for everything else.
    int size() const;

    /// The keys of an object, sorted, each once.
    std::vector<std::string> members() const;

    /// An element of an array. Throws `std::out_of_range` when there is none.
    Value& operator[](int index);
    const Value& operator[](int index) const;

    /// A member of an object, of several with the same key the last. Throws `std::out_of_range` when there is none.
    Value& operator[](const std::string& key);
    const Value& operator[](const std::string& key) const;

    /// Puts a copy in front of the element at `index`, or behind the last. Throws `std::out_of_range` for another place
    /// or when this is no array; so does `erase`.
    void insert(int index, const Value& value);
    void erase(int index);

    /// Throw `std::invalid_argument` for a value of another type, `std::out_of_range` for a number that does not fit.
    const Value& operator>>(bool& isTrue) const;
    const Value& operator>>(double& number) const;
    const Value& operator>>(int& number) const;
    const Value& operator>>(unsigned int& number) const;
    const Value& operator>>(long long& number) const;
    const Value& operator>>(unsigned long long& number) const;

    /// The text of a string, the JSON text of a number, of "true", "false" and "null", and nothing for an array or an
    /// object.
    const Value& operator>>(std::string& string) const;

    friend std::istream& operator>>(std::istream& stream, Value& value);
    friend std::ostream& operator<<(std::ostream& stream, const Value& value);

private:
    friend class Reader;
    struct Element;

    Value(ValueType type, std::string text);
    template <class Number>
    const Value& numberGet(Number& number) const;
    std::size_t position(const std::string& key) const;
    std::size_t position(int index, int end) const;

    ValueType valueType = ValueTypeNull;
    std::string json;               ///< of a scalar its JSON text, of an empty array or object what is in its brackets
    std::vector<Element> elements;  ///< in the order of the text
    std::vector<std::size_t> byKey; ///< of an object: its elements, sorted by key
    std::string before;             ///< blanks around a whole document
    std::string behind;
};

/// Reads the rest of the stream, which is one JSON value and nothing else. Throws `std::runtime_error` with the reason
/// and the line for anything else and for what is larger or deeper than any file of a board; the value is as before
/// then.
std::istream& operator>>(std::istream& stream, Value& value);

std::ostream& operator<<(std::ostream& stream, const Value& value);
} // namespace t_json
