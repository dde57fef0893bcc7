#include "tuning-tool/source/difference.h"

#include "tuning-tool/source/value-text.h"

#include <algorithm>

namespace tool
{
namespace
{
/// Two values at one place; null for one that is not there.
struct Pair
{
    const Json::Value* pBefore;
    const Json::Value* pAfter;

    Json::ArrayIndex size() const { return std::max(sizeOf(pBefore), sizeOf(pAfter)); }
    bool isList() const { return isListOrNone(pBefore) && isListOrNone(pAfter); }
    Pair element(Json::ArrayIndex i) const { return {elementOf(pBefore, i), elementOf(pAfter, i)}; }

    static Json::ArrayIndex sizeOf(const Json::Value* pValue) { return pValue ? pValue->size() : 0; }
    static bool isListOrNone(const Json::Value* pValue) { return !pValue || pValue->isArray(); }
    static const Json::Value* elementOf(const Json::Value* pValue, Json::ArrayIndex i)
    {
        return i < sizeOf(pValue) ? &(*pValue)[i] : nullptr;
    }
};

/// Collects what differs in one part.
class Comparison
{
public:
    Comparison(const Part& part_, std::vector<Difference>& result_) : part(part_), result(result_) {}

    void field(const std::string& name, const Pair& pair)
    {
        fieldName = name;
        type = part.type(name);
        if (part.kind == "table" && pair.pBefore && pair.pAfter)
            table(*pair.pBefore, *pair.pAfter);
        else
            value(name, pair);
    }

    void value(const std::string& place, const Pair& pair)
    {
        if (pair.pBefore && pair.pAfter && isSame(*pair.pBefore, *pair.pAfter, type))
            return;
        if (!pair.isList())
            return add(place, pair);
        for (Json::ArrayIndex i = 0; i < pair.size(); ++i)
            value(place + "[" + std::to_string(i) + "]", pair.element(i));
    }

private:
    void table(const Json::Value& before, const Json::Value& after)
    {
        const Pair columns{&before["columns"], &after["columns"]};
        const Pair rows{&before["rows"], &after["rows"]};
        value("column", columns);
        for (Json::ArrayIndex i = 0; i < rows.size(); ++i)
        {
            const auto row = rows.element(i);
            for (Json::ArrayIndex j = 0; j < row.size(); ++j)
            {
                const auto named = columns.element(j);
                const auto& name = named.pBefore ? *named.pBefore : *named.pAfter;
                value("row " + std::to_string(i + 1) + ", " + valueText(name), row.element(j));
            }
        }
    }

    void add(const std::string& place, const Pair& pair)
    {
        const auto copy = [](const Json::Value* pValue)
        { return pValue ? std::optional<Json::Value>(*pValue) : std::nullopt; };
        result.push_back({&part, fieldName, place, copy(pair.pBefore), copy(pair.pAfter)});
    }

    const Part& part;
    std::vector<Difference>& result;
    std::string fieldName;
    std::string type;
};

void partCompare(const Part& part, const Snapshot& before, const Snapshot& after, std::vector<Difference>& result)
{
    Comparison comparison(part, result);
    const auto find = [&part](const Snapshot& snapshot, const std::string& name) -> const Json::Value*
    {
        const auto& values = snapshot.parts.at(&part);
        const auto found = values.find(name);
        return found == values.end() ? nullptr : &found->second;
    };
    for (const auto& field : part.fields)
        if (const Pair pair{find(before, field), find(after, field)};
            (pair.pBefore || pair.pAfter) && !isMoving(part, field, before, after))
            comparison.field(field, pair);
}

/// For a part that is there on one side only: of what a board refuses no field can be compared.
std::optional<Json::Value> wholeText(const Part& part, const Snapshot& snapshot)
{
    if (snapshot.parts.count(&part) > 0)
        return Json::Value("there");
    const auto refused = snapshot.refused.find(&part);
    return refused == snapshot.refused.end() ? std::nullopt : std::optional<Json::Value>("refused: " + refused->second);
}
} // namespace

std::string sideText(const std::optional<Json::Value>& value) { return value ? valueText(*value) : "not there"; }

bool isMoving(const Part& part, const std::string& field, const Snapshot& before, const Snapshot& after)
{
    if (!part.isMoved(field))
        return false;
    const auto switches = switchesOf(part.driver(field));
    const auto isOn = [&](const Part* pSwitch) { return before.isOn(*pSwitch) && after.isOn(*pSwitch); };
    return std::any_of(switches.begin(), switches.end(), isOn);
}

std::vector<Difference> differences(const Snapshot& before, const Snapshot& after)
{
    std::vector<Difference> result;
    for (const auto& part : allParts())
    {
        const bool isBefore = before.parts.count(&part) > 0;
        const bool isAfter = after.parts.count(&part) > 0;
        if (isBefore && isAfter)
            partCompare(part, before, after, result);
        else if (isBefore || isAfter)
            result.push_back({&part, {}, {}, wholeText(part, before), wholeText(part, after)});
    }
    return result;
}

std::vector<Difference> differences(const Part& part, const std::string& field, const Json::Value& before,
                                    const Json::Value& after)
{
    std::vector<Difference> result;
    Comparison(part, result).field(field, {&before, &after});
    return result;
}
} // namespace tool
