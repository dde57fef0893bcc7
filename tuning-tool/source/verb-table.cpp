#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/local-file.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

namespace tool
{
namespace
{
namespace limit = t_common::limit;

CommandShape shapeOf(const Session& session, const std::string& suffix)
{
    return commandShape(session.options.words[0] + ".table", suffix, session.options.generation);
}

/// Columns of texts and rows of numbers, no longer than the window's editor takes.
void tableCheck(const Json::Value& jTable, Exit exit)
{
    const auto refuse = [exit](const std::string& reason) { throw Failure(exit, "This is no auto table: " + reason); };
    if (!jTable.isObject() || !jTable["columns"].isArray() || !jTable["rows"].isArray())
        refuse("it has no lists \"columns\" and \"rows\"");
    const auto& jColumns = jTable["columns"];
    if (jColumns.size() > limit::tableColumns || jTable["rows"].size() > limit::tableCells)
        refuse("it is too large");
    for (const auto& jColumn : jColumns)
        if (!jColumn.isString())
            refuse("a column's name is no text");
    std::size_t number = 0;
    for (const auto& jRow : jTable["rows"])
    {
        ++number;
        if (!jRow.isArray() || jRow.size() != jColumns.size())
            refuse("row " + std::to_string(number) + " has not as many values as there are columns");
        if (number * jColumns.size() > limit::tableCells)
            refuse("it is too large");
        for (const auto& jCell : jRow)
            if (!jCell.isNumeric())
                refuse("row " + std::to_string(number) + " has a value that is no number");
    }
}

Json::Value tableRead(Session& session)
{
    const auto shape = shapeOf(session, "Get");
    auto jTable = session.ask(shape, Payload({}, {}))["table"];
    tableCheck(jTable, Unreadable);
    return jTable;
}
} // namespace

void tableGet(Session& session)
{
    if (session.options.isDryRun)
    {
        session.send(shapeOf(session, "Get"), Payload({}, {}));
        return;
    }
    const auto jTable = tableRead(session);
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
    const auto& path = session.options.words[1];
    Json::Value jTable;
    try
    {
        jTable = t_common::JsonApp::fromString(fileRead(path, limit::jsonFile));
    }
    catch (const Failure&)
    {
        throw;
    }
    catch (const std::exception& exception)
    {
        throw Failure(LocalFile, path + ": " + exception.what());
    }
    tableCheck(jTable, LocalFile);
    Payload payload(shape.request, shape.generation);
    Json::Value jKeys;
    jKeys["table"] = jTable;
    payload.take(jKeys);
    if (!session.send(shape, payload))
        return;
    const auto jNow = tableRead(session);
    if (session.options.isJson)
        session.jsonPrint(jNow);
    else
        session.out << shape.name() << " done, " << jNow["rows"].size() << " rows\n";
    if (!isSame(jTable["columns"], jNow["columns"]) || !isSame(jTable["rows"], jNow["rows"]))
        throw Failure(Other, "The board has another table than was sent");
}
} // namespace tool
