#include "tuning-tool/source/auto-table.h"

#include "tuning-common/source/limits.h"

namespace tool
{
namespace limit = t_common::limit;

void tableCheck(const Json::Value& jTable, Exit code)
{
    const auto refuse = [code](const std::string& reason) { throw Failure(code, "This is no auto table: " + reason); };
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

Json::Value tableRead(Session& session, const CommandShape& reader)
{
    auto jTable = session.ask(reader, Payload({}, {}))["table"];
    tableCheck(jTable, Unreadable);
    return jTable;
}
} // namespace tool
