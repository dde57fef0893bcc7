#include "tuning-tool/source/difference.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/merge.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

#include <algorithm>
#include <iostream>

namespace tool
{
namespace
{
void differencesPrint(Session& session, const std::vector<Difference>& differences, const std::string& first,
                      const std::string& second)
{
    std::vector<std::vector<std::string>> rows{{"", "", first, second}};
    Json::Value jDifferences(Json::arrayValue);
    for (const auto& difference : differences)
    {
        rows.push_back(
            {difference.pPart->name(), difference.place, sideText(difference.before), sideText(difference.after)});
        Json::Value jDifference;
        jDifference["part"] = difference.pPart->name();
        jDifference["field"] = difference.field;
        jDifference["place"] = difference.place;
        jDifference["old"] = difference.before.value_or(Json::Value());
        jDifference["new"] = difference.after.value_or(Json::Value());
        jDifferences.append(jDifference);
    }
    if (session.options.isJson)
        session.jsonPrint(jDifferences);
    else if (rows.size() > 1)
        session.columnsPrint(rows);
}

/// What a board is asked for, to be compared with: what is wanted, and which loops run.
template <class Wanted>
std::vector<const Part*> askedOf(const Snapshot& snapshot, Wanted isWanted)
{
    std::vector<const Part*> parts;
    for (const auto& part : allParts())
        if ((snapshot.parts.count(&part) > 0 || snapshot.refused.count(&part) > 0) &&
            (isWanted(&part) || part.kind == "enable"))
            parts.push_back(&part);
    return parts;
}
} // namespace

void snapshot(Session& session)
{
    const auto taken = Snapshot::take(session, partsNamed(session.options.only));
    session.jsonPrint(taken.toJson());
    if (!taken.refused.empty())
        std::cerr << "tuning-tool: " << taken.refused.size() << " of " << taken.refused.size() + taken.parts.size()
                  << " settings were not told, \"refused\" has the board's words\n";
}

void diff(Session& session)
{
    const auto& words = session.options.words;
    const auto wanted = partsNamed(session.options.only);
    const auto isWanted = [&](const Part* pPart) { return std::count(wanted.begin(), wanted.end(), pPart) > 0; };
    const auto first = Snapshot::load(words[0]);
    const auto second = words.size() > 1 ? Snapshot::load(words[1]) : Snapshot::take(session, askedOf(first, isWanted));
    sameChipCheck(first.chip(), second.chip());
    auto found = differences(first, second);
    found.erase(std::remove_if(found.begin(), found.end(), [&](const auto& one) { return !isWanted(one.pPart); }),
                found.end());
    differencesPrint(session, found, words[0], words.size() > 1 ? words[1] : session.boardName());
    if (!found.empty())
        throw Failure(Refused, std::to_string(found.size()) + (found.size() == 1 ? " difference" : " differences"));
}

void merge(Session& session)
{
    const auto& words = session.options.words;
    const auto base = Snapshot::load(words[0]);
    const auto mine = Snapshot::load(words[1]);
    const auto theirs = Snapshot::load(words[2]);
    sameChipCheck(base.chip(), mine.chip());
    sameChipCheck(mine.chip(), theirs.chip());
    const auto result = merged(base, mine, theirs);
    if (result.conflicts.empty())
        return session.jsonPrint(result.snapshot.toJson());
    std::string conflicts;
    for (const auto& conflict : result.conflicts)
        conflicts += "\n  " + conflict.place + ": base " + valueText(conflict.base) + ", mine " +
                     valueText(conflict.mine) + ", theirs " + valueText(conflict.theirs);
    throw Failure(Refused, "Nothing is merged, both sides have changed:" + conflicts);
}
} // namespace tool
