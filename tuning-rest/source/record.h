#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>

namespace rest
{
/// A truth value of one byte in a record. Any byte that is not zero reads as true, and a byte that nobody assigned goes
/// back as it came.
class Flag
{
public:
    Flag() = default;
    Flag(bool isSet) : byte(isSet ? 1 : 0) {}

    operator bool() const { return byte != 0; }

private:
    uint8_t byte;
};

static_assert(sizeof(Flag) == 1 && std::is_trivially_copyable_v<Flag> &&
              std::is_trivially_default_constructible_v<Flag>);

/// A record is a plain structure, or an array of numbers, whose memory image travels; everything else travels as plain
/// JSON.
template <class T>
constexpr bool isRecord = std::is_trivially_copyable_v<T> &&
                          (std::is_class_v<T> || std::is_union_v<T> ||
                           (std::is_array_v<T> && !std::is_same_v<std::remove_extent_t<T>, char>)) &&
                          !std::is_same_v<T, Flag>;

/// An address on the board; it means nothing here.
using BoardPointer = uint64_t;

/// A record with all of its bytes zero, padding included: the start of every record that did not come from the board.
template <class Record>
Record recordZero()
{
    static_assert(isRecord<Record>);
    Record record;
    std::memset(static_cast<void*>(&record), 0, sizeof record);
    return record;
}

/// The text of a character array: up to its first NUL, or to its end where it has none.
template <size_t Size>
std::string recordText(const char (&text)[Size])
{
    return std::string(text, strnlen(text, Size));
}

/// How many elements of `array` are in use: `count` as the board tells it, held to the array.
template <class Count, class T, size_t Size>
constexpr size_t recordCount(Count count, const T (&)[Size])
{
    const auto used = count > 0 ? static_cast<uint64_t>(count) : 0;
    return used < Size ? used : Size;
}
} // namespace rest

#ifndef RECORD_SIZE
/// Hold a record to its layout on the wire: they stand under each structure, one line a field. The compilers warn of
/// fields of a structure with a base; the check itself proves that the answer is right.
#define RECORD_SIZE(record, size) static_assert(sizeof(record) == (size) && ::rest::isRecord<record>)
#define RECORD_FIELD(record, field, offset)                                                                            \
    _Pragma("GCC diagnostic push")                                                                                     \
        _Pragma("GCC diagnostic ignored \"-Winvalid-offsetof\"") static_assert(offsetof(record, field) == (offset));   \
    _Pragma("GCC diagnostic pop") static_assert(true)
#endif
