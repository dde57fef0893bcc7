#pragma once

#include "board-simulator/source/base64.h"
#include "board-simulator/source/wire.h"
#include "tests/rest/record-layout.h"
#include "tuning-rest/source/record.h"

#include <json/value.h>

#include <array>
#include <cfloat>
#include <iterator>
#include <limits>
#include <random>

/// Values that tell faults apart: the ends of each type, and what no type should hold but a board may send.
class RandomValues
{
public:
    size_t below(size_t count) { return engine() % count; }

    template <class T>
    T number()
    {
        using Limits = std::numeric_limits<T>;
        const T values[]{T(0),          T(1),          Limits::lowest(),     Limits::max(),
                         Limits::min(), T(below(120)), T(below(30000) % 127)};
        return values[below(std::size(values))];
    }

    std::string text(size_t maximum)
    {
        static const std::string letters[]{"a", "Z", "\"", "\\", "\xc3\xa4", "/", " ", "\n"};
        std::string result;
        for (auto count = below(maximum + 1); count > 0; --count)
            result += letters[below(std::size(letters))];
        return result;
    }

    /// A record's bytes: in every field one of its type's hard cases, in the padding anything.
    std::string record(const board::Record& record)
    {
        std::string bytes(record.size, '\0');
        for (auto& byte : bytes)
            byte = static_cast<char>(engine());
        const auto& layout = record.layouts[below(record.layouts.size())];
        for (const auto& field : layout.fields)
        {
            for (size_t i = 0; i < field.elementCount(); ++i)
            {
                const auto element = fieldBytes(field.type, field.elementSize());
                bytes.replace(field.offset + i * field.elementSize(), element.size(), element);
            }
        }
        return bytes;
    }

private:
    template <class T>
    static std::string image(T value)
    {
        return std::string(reinterpret_cast<const char*>(&value), sizeof value);
    }

    template <class T>
    std::string floatingBytes()
    {
        using Limits = std::numeric_limits<T>;
        const T values[]{Limits::quiet_NaN(),  -Limits::quiet_NaN(),
                         Limits::infinity(),   -Limits::infinity(),
                         Limits::denorm_min(), T(-0.0),
                         Limits::max(),        T(0.1)};
        return image(values[below(std::size(values))]);
    }

    std::string fieldBytes(const std::string& type, size_t size)
    {
        if (type == "float")
            return floatingBytes<float>();
        if (type == "double")
            return floatingBytes<double>();
        if (type == "bool")
            return std::string(1, "\x00\x01\x02\x80\xff"[below(5)]);
        if (type == "enum")
            return image(std::array<uint32_t, 4>{0, 1, 0x80000000, 0xffffffff}[below(4)]);
        // All bits but the first or the last make the ends of signed types.
        std::string bytes(size, "\x00\xff\x7f"[below(3)]);
        bytes.back() = "\x00\x7f\x80\xff"[below(4)];
        return bytes;
    }

    std::mt19937 engine{20221116};
};
