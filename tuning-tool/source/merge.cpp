#include "tuning-tool/source/merge.h"

#include "tuning-tool/source/difference.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/value-text.h"

#include <optional>
#include <set>

namespace tool
{
namespace
{
/// A value on the three sides; null where it is not there.
struct Sides
{
    const Json::Value* pBase;
    const Json::Value* pMine;
    const Json::Value* pTheirs;

    bool areAll() const { return pBase && pMine && pTheirs; }

    bool areLists() const
    {
        return areAll() && pBase->isArray() && pMine->isArray() && pTheirs->isArray() &&
               pBase->size() == pMine->size() && pBase->size() == pTheirs->size();
    }

    bool areObjects() const { return areAll() && pBase->isObject() && pMine->isObject() && pTheirs->isObject(); }
};

/// Merges value by value and collects what it cannot.
class Merger
{
public:
    explicit Merger(std::vector<Conflict>& conflicts_) : conflicts(conflicts_) {}

    std::optional<Json::Value> value(const std::string& place, const Sides& sides, const std::string& type)
    {
        const auto same = [&](const Json::Value* pLeft, const Json::Value* pRight)
        { return pLeft && pRight ? isSame(*pLeft, *pRight, type) : pLeft == pRight; };
        const auto taken = [](const Json::Value* pValue)
        { return pValue ? std::optional<Json::Value>(*pValue) : std::nullopt; };
        if (same(sides.pMine, sides.pTheirs))
            return taken(sides.pMine);
        // What is gone on one side may have been refused by a board or left out: that is no wish.
        const bool isGone = sides.pBase && !(sides.pMine && sides.pTheirs);
        if (!isGone && same(sides.pBase, sides.pMine))
            return taken(sides.pTheirs);
        if (!isGone && same(sides.pBase, sides.pTheirs))
            return taken(sides.pMine);
        if (sides.areLists())
            return list(place, sides, type);
        if (sides.areObjects())
            return object(place, sides, type);
        const auto shown = [](const Json::Value* pValue) { return pValue ? *pValue : Json::Value(); };
        conflicts.push_back({place, shown(sides.pBase), shown(sides.pMine), shown(sides.pTheirs)});
        return taken(sides.pBase);
    }

private:
    Json::Value list(const std::string& place, const Sides& sides, const std::string& type)
    {
        Json::Value result(Json::arrayValue);
        for (Json::ArrayIndex i = 0; i < sides.pBase->size(); ++i)
        {
            const Sides element{&(*sides.pBase)[i], &(*sides.pMine)[i], &(*sides.pTheirs)[i]};
            result.append(value(place + "[" + std::to_string(i) + "]", element, type).value_or(Json::Value()));
        }
        return result;
    }

    Json::Value object(const std::string& place, const Sides& sides, const std::string& type)
    {
        Json::Value result(Json::objectValue);
        std::set<std::string> names;
        for (const auto* pSide : {sides.pBase, sides.pMine, sides.pTheirs})
            for (const auto& name : pSide->getMemberNames())
                names.insert(name);
        const auto member = [](const Json::Value* pSide, const std::string& name)
        { return pSide->find(name.data(), name.data() + name.size()); };
        for (const auto& name : names)
            if (auto one =
                    value(place + " " + name,
                          {member(sides.pBase, name), member(sides.pMine, name), member(sides.pTheirs, name)}, type))
                result[name] = *one;
        return result;
    }

    std::vector<Conflict>& conflicts;
};

const Snapshot::Values* partIn(const Snapshot& snapshot, const Part& part)
{
    const auto found = snapshot.parts.find(&part);
    return found == snapshot.parts.end() ? nullptr : &found->second;
}

const Json::Value* fieldIn(const Snapshot::Values* pValues, const std::string& field)
{
    if (!pValues || pValues->count(field) == 0)
        return nullptr;
    return &pValues->at(field);
}

/// Of a part that both sides have.
Snapshot::Values fieldsMerge(const Part& part, const Snapshot& base, const Snapshot& mine, const Snapshot& theirs,
                             std::vector<Conflict>& conflicts)
{
    Merger merger(conflicts);
    Snapshot::Values values;
    const auto* pBase = partIn(base, part);
    const auto* pMine = partIn(mine, part);
    for (const auto& field : part.fields)
    {
        Sides sides{fieldIn(pBase, field), fieldIn(pMine, field), fieldIn(partIn(theirs, part), field)};
        // What a loop writes nobody has wished for.
        if (sides.pMine && isMoving(part, field, mine, theirs))
            sides.pTheirs = sides.pMine;
        if (auto one =
                merger.value(part.kind == "config" ? part.name() + " " + field : part.name(), sides, part.type(field)))
            values[field] = *one;
    }
    try
    {
        // Columns of one side and rows of the other need not fit together.
        for (const auto& [field, value] : values)
            part.check(field, value);
    }
    catch (const Failure& failure)
    {
        conflicts.push_back({part.name() + ": " + failure.what(), {}, {}, {}});
        return pBase ? *pBase : *pMine;
    }
    return values;
}
} // namespace

Merged merged(const Snapshot& base, const Snapshot& mine, const Snapshot& theirs)
{
    Merged result{mine, {}};
    result.snapshot.parts.clear();
    for (const auto& part : allParts())
    {
        const auto* pBase = partIn(base, part);
        const auto* pMine = partIn(mine, part);
        const auto* pTheirs = partIn(theirs, part);
        Snapshot::Values values;
        if (pMine && pTheirs)
            values = fieldsMerge(part, base, mine, theirs, result.conflicts);
        else if (!pBase && (pMine || pTheirs))
            values = pMine ? *pMine : *pTheirs;
        else if (pBase && (pMine || pTheirs))
        {
            const auto side = [](const auto* pSide) { return pSide ? Json::Value("there") : Json::Value(); };
            result.conflicts.push_back({part.name(), "there", side(pMine), side(pTheirs)});
            values = *pBase;
        }
        if (values.empty())
            continue;
        result.snapshot.parts[&part] = values;
        result.snapshot.refused.erase(&part);
    }
    return result;
}
} // namespace tool
