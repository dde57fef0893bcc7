#pragma once

#include "tuning-tool/source/snapshot.h"

#include <optional>
#include <vector>

namespace tool
{
/// One value that two snapshots have in different ways.
struct Difference
{
    const Part* pPart;
    std::string field;                 ///< of the part; empty where a whole part is there once only
    std::string place;                 ///< for people: the field with its element, or a table's row and column
    std::optional<Json::Value> before; ///< nothing where it is not there
    std::optional<Json::Value> after;
};

/// For people, also where there is no value.
std::string sideText(const std::optional<Json::Value>& value);

/// Whether a loop that writes the field runs in both.
bool isMoving(const Part& part, const std::string& field, const Snapshot& before, const Snapshot& after);

/// By element: of equal numbers that are written in different ways there is none. Of parts that neither snapshot has,
/// such as those that the board refuses, there is none either, nor of fields that are moving.
std::vector<Difference> differences(const Snapshot& before, const Snapshot& after);

/// The same for one field.
std::vector<Difference> differences(const Part& part, const std::string& field, const Json::Value& before,
                                    const Json::Value& after);
} // namespace tool
