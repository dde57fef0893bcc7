#include "tuning-tool/source/snapshot.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-tool/source/auto-table.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/local-file.h"
#include "tuning-tool/source/nearest.h"
#include "tuning-tool/source/value-text.h"

#include <QDateTime>
#include <QDir>

namespace tool
{
namespace
{
constexpr auto format = "tuning-tool snapshot 1";

/// What else the board tells of itself; a board without that is no worse.
Json::Value versionsOf(Session& session)
{
    try
    {
        auto jVersions = session.ask(commandShape("Cli.versionGet", {}, {}), Payload({}, {}));
        jVersions.removeMember("error");
        jVersions.removeMember("message");
        return sound(jVersions);
    }
    catch (const Failure& failure)
    {
        if (failure.code == NoAnswer)
            throw;
        return {};
    }
}

/// The values of a part as a file has them: a configuration by its fields, all else as it is.
Json::Value partJson(const Part& part, const Snapshot::Values& values)
{
    if (part.kind != "config")
        return values.begin()->second;
    Json::Value jFields(Json::objectValue);
    for (const auto& [field, value] : values)
        jFields[field] = value;
    return jFields;
}

Snapshot::Values partValues(const Part& part, const Json::Value& jPart)
{
    Snapshot::Values values;
    if (part.kind != "config")
        values[part.kind] = jPart;
    else if (!jPart.isObject())
        throw Failure(LocalFile, part.name() + " is no object of fields");
    else
        for (const auto& field : jPart.getMemberNames())
            values[field] = jPart[field];
    for (const auto& [field, value] : values)
        part.check(field, value);
    return values;
}

/// The part of those names; throws `Failure`.
const Part& partFind(const std::string& moduleName, const std::string& kind)
{
    std::vector<std::string> names;
    for (const auto& part : allParts())
    {
        names.push_back(part.name());
        if (part.moduleName() == moduleName && part.kind == kind)
            return part;
    }
    const auto name = moduleName + "." + kind;
    throw Failure(LocalFile, "There is no setting \"" + name + "\"" + meantText(name, names));
}

void objectCheck(const Json::Value& value, const std::string& name)
{
    if (!value.isObject())
        throw Failure(LocalFile, "\"" + name + "\" is no object");
}

template <class Each>
void eachPart(const Json::Value& jModules, const std::string& name, Each each)
{
    objectCheck(jModules, name);
    for (const auto& moduleName : jModules.getMemberNames())
    {
        objectCheck(jModules[moduleName], moduleName);
        for (const auto& kind : jModules[moduleName].getMemberNames())
            each(partFind(moduleName, kind), jModules[moduleName][kind]);
    }
}

void headCheck(const Json::Value& jSnapshot)
{
    if (jSnapshot["format"] != format)
        throw Failure(LocalFile, "this is no snapshot: its \"format\" is not \"" + std::string(format) + "\"");
    if (!jSnapshot["chip"].isNull() && !jSnapshot["chip"].isString())
        throw Failure(LocalFile, "\"chip\" is no text");
}
} // namespace

Snapshot::Values Snapshot::read(Session& session, const Part& part)
{
    Values values;
    if (part.kind == "table")
    {
        values["table"] = sound(tableRead(session, part.reader));
        return values;
    }
    Payload answer(part.reader.answer, part.reader.generation);
    answer.take(session.ask(part.reader, Payload({}, {})));
    for (const auto& field : part.fields)
        if (auto value = answer.value(field))
            values[field] = sound(std::move(*value));
    return values;
}

Snapshot Snapshot::take(Session& session, const std::vector<const Part*>& wanted)
{
    Snapshot snapshot;
    snapshot.head["format"] = format;
    snapshot.head["chip"] = chipOf(session.options);
    snapshot.head["time"] = QDateTime::currentDateTime()
                                .toOffsetFromUtc(QDateTime::currentDateTime().offsetFromUtc())
                                .toString(Qt::ISODate)
                                .toStdString();
    snapshot.head["board"] = session.boardName();
    snapshot.head["versions"] = versionsOf(session);
    for (const auto* pPart : wanted)
        try
        {
            snapshot.parts[pPart] = read(session, *pPart);
        }
        catch (const Failure& failure)
        {
            if (failure.code == NoAnswer)
                throw;
            snapshot.refused[pPart] = failure.what();
        }
    return snapshot;
}

Snapshot Snapshot::fromJson(const Json::Value& jSnapshot, const std::string& path)
{
    Snapshot snapshot;
    try
    {
        objectCheck(jSnapshot, path);
        headCheck(jSnapshot);
        for (const auto& name : jSnapshot.getMemberNames())
            if (name != "modules" && name != "refused")
                snapshot.head[name] = jSnapshot[name];
        eachPart(jSnapshot["modules"], "modules",
                 [&](const Part& part, const Json::Value& jPart) { snapshot.parts[&part] = partValues(part, jPart); });
        if (jSnapshot.isMember("refused"))
            eachPart(jSnapshot["refused"], "refused",
                     [&](const Part& part, const Json::Value& jText) { snapshot.refused[&part] = valueText(jText); });
    }
    catch (const Failure& failure)
    {
        throw Failure(LocalFile, path + ": " + t_common::printable(failure.what(), t_common::limit::statusBarText));
    }
    return snapshot;
}

Snapshot Snapshot::load(const std::string& path) { return fromJson(jsonRead(path), path); }

Json::Value Snapshot::toJson() const
{
    auto jSnapshot = head;
    jSnapshot["modules"] = Json::Value(Json::objectValue);
    jSnapshot["refused"] = Json::Value(Json::objectValue);
    for (const auto& [pPart, values] : parts)
        jSnapshot["modules"][pPart->moduleName()][pPart->kind] = partJson(*pPart, values);
    for (const auto& [pPart, text] : refused)
        jSnapshot["refused"][pPart->moduleName()][pPart->kind] = text;
    return jSnapshot;
}

bool Snapshot::isOn(const Part& part) const
{
    for (const auto* pValues : {&parts, &leftOut})
        if (const auto found = pValues->find(&part); found != pValues->end())
            return found->second.at("enable").asBool();
    return false;
}

std::string chipOf(const Options& options)
{
    if (!options.chip.empty())
        return options.chip;
    try
    {
        const auto path = QDir::homePath().toStdString() + "/.tuning-client/setting.json";
        return t_common::printable(jsonRead(path)["chip.name"].asString(), t_common::limit::listText);
    }
    catch (const std::exception&)
    {
        return {};
    }
}

void sameChipCheck(const std::string& chip, const std::string& other)
{
    const auto shown = [](const std::string& text)
    { return "\"" + t_common::printable(text, t_common::limit::listText) + "\""; };
    if (!chip.empty() && !other.empty() && chip != other)
        throw Failure(LocalFile, "This is a snapshot of the chip " + shown(chip) + ", but here is " + shown(other) +
                                     "; --chip tells another one");
}
} // namespace tool
