#pragma once

#include <json/json.h>
#include <string>
#include <vector>

namespace board
{

/// How one element of a type lies in memory, and what it can be. The types are those of `Field` and of plain keys.
struct Scalar
{
    size_t size = 0;
    /// Exact: integers of 64 bits, and of a float the shortest number that is the same float. What is not finite is a
    /// text, since JSON has no number for it.
    Json::Value (*fLoad)(const char* pBytes);
    /// Whether the type can hold the value; it is stored then.
    bool (*fStore)(char* pBytes, const Json::Value& value);
    /// The value as a number, of a "bool" the byte itself.
    double (*fNumber)(const char* pBytes);
    /// Stores the number; an integer takes the nearest value that it can hold.
    void (*fNumberStore)(char* pBytes, double number);
    /// For people, such as "0 to 255".
    std::string range;

    bool canHold(const Json::Value& value) const;
};

/// The scalar of that name, or null for a type that is none.
const Scalar* scalarFind(const std::string& type);

/// Throws `std::out_of_range` for a type that is none.
const Scalar& scalar(const std::string& type);

/// Throws `Failure` unless a plain key of that type can have the value; `name` is told.
void scalarCheck(const std::string& type, const Json::Value& value, const std::string& name);

} // namespace board
