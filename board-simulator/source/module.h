#pragma once

#include "board-wire/source/record-bytes.h"

#include <json/json.h>
#include <map>
#include <string>
#include <variant>

namespace board
{

/// What a command carries in one direction: records, as Base64 text, and plain values, each under its key.
class Group
{
public:
    Group() = default;
    /// A member of `start` that is an object with "record" (and "layout", "values", "kept") is a record.
    explicit Group(const Json::Value& start);

    void write(Json::Value& answer) const;
    /// Takes over what a command brings, all or nothing. Throws `Failure` for a record of the wrong size or one that is
    /// not Base64.
    void read(const Json::Value& query);

    bool hasPlain(const std::string& key) const;
    void plainSet(const std::string& key, const Json::Value& value);
    /// The record of that key, or null.
    RecordBytes* record(const std::string& key);

private:
    using Value = std::variant<Json::Value, RecordBytes>;
    std::map<std::string, Value> values;
};

/// The settings of one module in one generation.
class Module
{
public:
    explicit Module(const Json::Value& start);
    /// Back to the start values.
    void reset();

    bool isEnabled = false;
    Group config;
    Group status;
    Json::Value table;

private:
    Json::Value start;
};

} // namespace board
