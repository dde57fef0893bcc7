#include "tuning-tool/source/assignments.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

namespace tool
{
namespace
{
/// What the board told beside its verdict, where the description names no key.
Json::Value rest(Json::Value jAnswer)
{
    jAnswer.removeMember("error");
    jAnswer.removeMember("message");
    return jAnswer;
}

void answerPrint(Session& session, const CommandShape& shape, const Json::Value& jAnswer)
{
    Payload answer(shape.answer, shape.generation);
    answer.take(jAnswer);
    const auto jRest = shape.answer.empty() ? sound(rest(jAnswer)) : Json::Value();
    if (session.options.isJson)
        return session.jsonPrint(shape.answer.empty() ? jRest : answer.readable());
    auto rows = rowsOf(answer);
    if (!jRest.empty())
        rowsAppend(rows, {}, jRest);
    if (rows.empty())
        session.out << shape.name() << " done\n";
    session.columnsPrint(rows);
}

void run(Session& session, const std::string& suffix)
{
    const auto& options = session.options;
    const auto shape = commandShape(options.words[0], suffix, options.generation);
    Payload request(shape.request, shape.generation);
    assign(request, assignmentsParse(options.words, 1, request));
    if (const auto jAnswer = session.send(shape, request))
        answerPrint(session, shape, *jAnswer);
}
} // namespace

void get(Session& session) { run(session, "Get"); }

void call(Session& session) { run(session, {}); }
} // namespace tool
