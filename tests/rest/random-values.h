#pragma once

#include "board-wire/source/base64.h"
#include "board-wire/source/keys.h"
#include "board-wire/source/wire.h"

#include <json/value.h>

#include <cfloat>
#include <iterator>
#include <limits>
#include <map>
#include <random>
#include <string>

/// Values that tell faults apart, as they travel: the ends of each type, and any bytes for a record.
class RandomValues
{
public:
    Json::Value value(const board::Key& key)
    {
        static const std::map<std::string, Json::Value (RandomValues::*)()> makers{
            {"bool", &RandomValues::flag},
            {"double", &RandomValues::number<double>},
            {"float", &RandomValues::number<float>},
            {"int16_t", &RandomValues::number<int16_t>},
            {"int32_t", &RandomValues::number<int32_t>},
            {"table", &RandomValues::table},
            {"text", &RandomValues::text},
            {"uint16_t", &RandomValues::number<uint16_t>},
            {"uint32_t", &RandomValues::number<uint32_t>},
            {"uint8_t", &RandomValues::number<uint8_t>},
        };
        const auto record = key.recordName();
        return record.empty() ? (this->*makers.at(key.type))() : this->record(record);
    }

    Json::Value record(const std::string& name)
    {
        std::string bytes(board::Wire::instance().record(name).size, '\0');
        for (auto& byte : bytes)
            byte = static_cast<char>(engine());
        return board::base64Encode(bytes);
    }

private:
    size_t below(size_t count) { return engine() % count; }

    Json::Value flag() { return below(2) == 1; }

    template <class T>
    Json::Value number()
    {
        using Limits = std::numeric_limits<T>;
        const T values[]{T(0),          T(1),          Limits::lowest(),     Limits::max(),
                         Limits::min(), T(below(120)), T(below(30000) % 127)};
        return values[below(std::size(values))];
    }

    Json::Value text()
    {
        static const std::string letters[]{"a", "Z", "\"", "\\", "\xc3\xa4", "/", " ", "\n"};
        std::string result;
        for (auto count = below(41); count > 0; --count)
            result += letters[below(std::size(letters))];
        return result;
    }

    Json::Value table()
    {
        Json::Value jTable;
        jTable["columns"][0] = "gain";
        jTable["rows"][0][0] = static_cast<Json::UInt64>(UINT64_MAX);
        jTable["rows"][0][1] = static_cast<Json::Int64>(INT64_MIN);
        jTable["rows"][1][0] = DBL_MAX;
        jTable["rows"][1][1] = text();
        jTable["rows"][1][2] = Json::Value();
        return jTable;
    }

    std::mt19937 engine{20221116};
};
