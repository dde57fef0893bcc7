#include "tuning-tool/source/plan.h"

#include <algorithm>
#include <map>
#include <set>

namespace tool
{
namespace
{
/// When a running module's fields are free.
enum Free
{
    Never,
    NotMode, ///< all but the modes and the auto table
    Always
};

Free freeOf(const Part& part)
{
    static const std::map<std::string, Free> modules{
        {"Ahdr V1", Always},  {"Avs", Always},        {"Dg", Always},      {"Dnr2 V1", NotMode},
        {"Dnr3 V1", NotMode}, {"Dnr3 V3_2", NotMode}, {"Ee", NotMode},     {"Filter", NotMode},
        {"Ge", Always},       {"Hdr V1_2", Always},   {"Hdr V2", Always},  {"Hdr V2_LITE", Always},
        {"Lsc", Always},      {"Wdr V3", NotMode},    {"Wdr V4", NotMode}, {"Wdr V5", NotMode},
    };
    const auto found = modules.find(part.moduleName());
    return found == modules.end() ? Never : found->second;
}

bool isMode(const std::string& field)
{
    return field == "auto" || field == "isAuto" || field == "flat" || field == "globalCureveMode" || field == "table";
}

/// What is off together: a class, with the one that its loop drives.
std::string groupOf(const Part& part)
{
    const auto& name = part.reader.commandClass.name;
    return name == "Sensor" ? "Ae" : name == "Wb" ? "Awb" : name;
}

/// In the order of the description, which has windows behind the exposure that weighs them.
std::vector<std::string> groups()
{
    std::vector<std::string> names;
    for (const auto& part : allParts())
        if (const auto name = groupOf(part); std::find(names.begin(), names.end(), name) == names.end())
            names.push_back(name);
    return names;
}

class Planner
{
public:
    Planner(const Snapshot& live_, const Snapshot& target_) : live(live_), target(target_)
    {
        for (const auto& difference : differences(live, target))
            changesAdd(difference);
    }

    std::vector<Step> run()
    {
        for (const auto& group : groups())
        {
            eachSwitch(group, [&](const Part& part) { off(part); });
            for (const auto& [pPart, values] : changed)
                if (groupOf(*pPart) == group && pPart->kind != "enable")
                    steps.push_back({pPart, values});
            eachSwitch(group, [&](const Part& part) { last(part); });
        }
        return std::move(steps);
    }

private:
    void changesAdd(const Difference& difference)
    {
        // Only what the target has; a plan is made of parts that are there on both sides.
        const auto wanted = target.parts.find(difference.pPart);
        if (wanted == target.parts.end() || wanted->second.count(difference.field) == 0)
            return;
        const auto& part = *difference.pPart;
        changed[&part][difference.field] = wanted->second.at(difference.field);
        for (const auto* pDriver : switchesOf(part.driver(difference.field)))
            resting.insert(pDriver);
        if (const auto* pSwitch = partOf(part, "enable"); pSwitch && isOffNeeded(part, difference.field))
            resting.insert(pSwitch);
    }

    template <class Each>
    void eachSwitch(const std::string& group, Each each)
    {
        for (const auto& part : allParts())
            if (part.kind == "enable" && groupOf(part) == group)
                each(part);
    }

    bool isWanted(const Part& part) const
    {
        return target.parts.count(&part) > 0 ? target.isOn(part) : live.isOn(part);
    }

    void off(const Part& part)
    {
        if (live.isOn(part) && (resting.count(&part) > 0 || !isWanted(part)))
            turn(part, false, isWanted(part));
    }

    void last(const Part& part)
    {
        if (isWanted(part) && (!live.isOn(part) || resting.count(&part) > 0))
            turn(part, true, false);
    }

    void turn(const Part& part, bool isEnable, bool isPassing)
    {
        steps.push_back({&part, {{"enable", isEnable}}, isPassing});
    }

    const Snapshot& live;
    const Snapshot& target;
    std::map<const Part*, Snapshot::Values> changed;
    std::set<const Part*> resting; ///< switches that have to be off meanwhile
    std::vector<Step> steps;
};
} // namespace

bool isOffNeeded(const Part& part, const std::string& field)
{
    const auto free = freeOf(part);
    return part.kind != "enable" && (free == Never || (free == NotMode && isMode(field)));
}

std::vector<Step> plan(const Snapshot& live, const Snapshot& target) { return Planner(live, target).run(); }

std::vector<const Part*> partsNeeded(const Snapshot& target)
{
    std::set<const Part*> needed;
    for (const auto& entry : target.parts)
    {
        const auto& part = *entry.first;
        needed.insert(&part);
        needed.insert(partOf(part, "enable"));
        for (const auto& field : part.fields)
            for (const auto* pDriver : switchesOf(part.driver(field)))
                needed.insert(pDriver);
    }
    needed.erase(nullptr);
    return {needed.begin(), needed.end()};
}
} // namespace tool
