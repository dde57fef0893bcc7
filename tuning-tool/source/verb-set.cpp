#include "tuning-tool/source/assignments.h"
#include "tuning-tool/source/change.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

namespace tool
{
namespace
{
void report(Session& session, const Change& change, const Assignments& assignments)
{
    std::vector<std::vector<std::string>> rows{{"", "before", "sent", "now"}};
    Json::Value jFields(Json::objectValue);
    std::string others;
    for (const auto& assignment : assignments)
    {
        const auto& name = assignment.first;
        const auto wanted = change.sent().value(name).value_or(Json::Value());
        auto& jField = jFields[name];
        jField["sent"] = wanted;
        rows.push_back({name, "", valueText(wanted), "(not told)"});
        // Arguments, and records that are only sent, have no value in the answer.
        const auto now = change.now().value(name);
        if (!now)
            continue;
        jField["before"] = change.before().value(name).value_or(Json::Value());
        jField["now"] = *now;
        const bool isKept = isSame(wanted, jField["now"], change.sent().type(name));
        rows.back() = {name, valueText(jField["before"]), valueText(wanted), valueText(jField["now"]), unitOf(name)};
        if (!isKept)
            others += (others.empty() ? "" : ", ") + name;
    }
    if (session.options.isJson)
        session.jsonPrint(jFields);
    else
        session.columnsPrint(rows);
    if (!others.empty())
        throw Failure(Other, "The board has another value than was sent: " + others);
}
} // namespace

void set(Session& session)
{
    const auto& options = session.options;
    const auto setter = commandShape(options.words[0], "Set", options.generation);
    const auto assignments = assignmentsParse(options.words, 1, Payload(setter.request, setter.generation));
    Change change(session, setter, readerOf(setter), [&](Payload& payload) { assign(payload, assignments); });
    change.prepare();
    if (change.write())
        report(session, change, assignments);
}
} // namespace tool
