#include "tuning-tool/source/auto-table.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/local-file.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

namespace tool
{
namespace
{
CommandShape shapeOf(const Session& session, const std::string& suffix)
{
    const auto& commandClass = commandClassFind(session.options.words[0]);
    if (!commandFind(commandClass, "table", suffix))
    {
        std::string others;
        for (const auto& name : commandNames("table" + suffix))
            others += " " + name.substr(0, name.find('.'));
        throw Failure(Usage, commandClass.name + " has no auto table, but" + others);
    }
    return commandShape(commandClass.name + ".table", suffix, session.options.generation);
}
} // namespace

void tableGet(Session& session)
{
    if (session.options.isDryRun)
    {
        session.send(shapeOf(session, "Get"), Payload({}, {}));
        return;
    }
    const auto jTable = tableRead(session, shapeOf(session, "Get"));
    if (session.options.isJson)
        return session.jsonPrint(jTable);
    std::vector<std::vector<std::string>> rows(1);
    for (const auto& jColumn : jTable["columns"])
        rows.back().push_back(valueText(jColumn));
    for (const auto& jRow : jTable["rows"])
    {
        rows.emplace_back();
        for (const auto& jCell : jRow)
            rows.back().push_back(valueText(jCell));
    }
    session.columnsPrint(rows);
}

void tableSet(Session& session)
{
    const auto shape = shapeOf(session, "Set");
    const auto jTable = jsonRead(session.options.words[1]);
    tableCheck(jTable, LocalFile);
    Payload payload(shape.request, shape.generation);
    Json::Value jKeys;
    jKeys["table"] = jTable;
    payload.take(jKeys);
    if (!session.send(shape, payload))
        return;
    const auto jNow = tableRead(session, shapeOf(session, "Get"));
    if (session.options.isJson)
        session.jsonPrint(jNow);
    else
        session.out << shape.name() << " done, " << jNow["rows"].size() << " rows\n";
    if (!isSame(jTable["columns"], jNow["columns"]) || !isSame(jTable["rows"], jNow["rows"]))
        throw Failure(Other, "The board has another table than was sent");
}
} // namespace tool
