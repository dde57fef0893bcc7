#include "tuning-tool/source/assignments.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

namespace tool
{
namespace
{
/// The command that reads what the other one writes.
CommandShape readerOf(const CommandShape& setter)
{
    const auto stem = setter.command.substr(0, setter.command.size() - 3);
    const auto* pCommand = commandFind(setter.commandClass, stem, "Get");
    if (!pCommand)
        throw Failure(Usage, setter.name() + " has no command that reads; use call");
    return {setter.commandClass, pCommand->name, setter.generation};
}

/// One change: what is read, written and read again.
class Change
{
public:
    explicit Change(Session& session_)
        : session(session_),
          setter(commandShape(session.options.words[0], "Set", session.options.generation)),
          reader(readerOf(setter)),
          sent(setter.request, setter.generation),
          assignments(assignmentsParse(session.options.words, 1, sent))
    {
        // A value that is refused is refused before anything is sent.
        assign(sent, assignments);
    }

    void run()
    {
        const auto before = read();
        sent.adopt(before);
        assign(sent, assignments);
        sent.recordsFill(before);
        assign(sent, assignments);
        if (!session.send(setter, sent))
            return;
        try
        {
            report(before, read());
        }
        catch (const Failure& failure)
        {
            if (failure.code == Other)
                throw;
            throw Failure(failure.code, setter.name() + " is done, but was not read back: " + failure.what());
        }
    }

private:
    Payload read()
    {
        Payload request(reader.request, reader.generation);
        request.adopt(sent);
        request.wholeCheck();
        Payload answer(reader.answer, reader.generation);
        answer.take(session.ask(reader, request));
        return answer;
    }

    void report(const Payload& before, const Payload& after)
    {
        std::vector<std::vector<std::string>> rows{{"", "before", "sent", "now"}};
        Json::Value jFields(Json::objectValue);
        std::string others;
        for (const auto& assignment : assignments)
        {
            const auto& name = assignment.first;
            const auto wanted = sent.value(name).value_or(Json::Value());
            auto& jField = jFields[name];
            jField["sent"] = wanted;
            rows.push_back({name, "", valueText(wanted), "(not told)"});
            // Arguments, and records that are only sent, have no value in the answer.
            const auto now = after.value(name);
            if (!now)
                continue;
            jField["before"] = before.value(name).value_or(Json::Value());
            jField["now"] = *now;
            const bool isKept = isSame(wanted, jField["now"], sent.type(name));
            rows.back() = {name, valueText(jField["before"]), valueText(wanted), valueText(jField["now"]),
                           unitOf(name)};
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

    Session& session;
    const CommandShape setter;
    const CommandShape reader;
    Payload sent;
    const Assignments assignments;
};
} // namespace

void set(Session& session)
{
    Change change(session);
    change.run();
}
} // namespace tool
