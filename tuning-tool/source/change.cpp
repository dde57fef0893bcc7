#include "tuning-tool/source/change.h"

#include "tuning-tool/source/failure.h"

namespace tool
{
CommandShape readerOf(const CommandShape& setter)
{
    const auto stem = setter.command.substr(0, setter.command.size() - 3);
    const auto* pCommand = commandFind(setter.commandClass, stem, "Get");
    if (!pCommand)
        throw Failure(Usage, setter.name() + " has no command that reads; use call");
    return {setter.commandClass, pCommand->name, setter.generation};
}

Change::Change(Session& session_, const CommandShape& setter_, const CommandShape& reader_, Assign fAssign_)
    : session(session_),
      setter(setter_),
      reader(reader_),
      fAssign(std::move(fAssign_)),
      request(setter.request, setter.generation),
      answerBefore(reader.answer, reader.generation),
      answerNow(answerBefore)
{
    fAssign(request);
}

void Change::prepare()
{
    answerBefore = read();
    try
    {
        request.adopt(answerBefore);
        fAssign(request);
        request.recordsFill(answerBefore);
        fAssign(request);
    }
    catch (const Failure&)
    {
        throw;
    }
    catch (const std::exception& exception)
    {
        throw Failure(Unreadable, reader.name() + " tells what can't be sent: " + exception.what());
    }
}

bool Change::write()
{
    if (!session.send(setter, request))
        return false;
    try
    {
        answerNow = read();
    }
    catch (const Failure& failure)
    {
        throw Failure(failure.code, setter.name() + " is done, but was not read back: " + failure.what());
    }
    return true;
}

Payload Change::read()
{
    Payload question(reader.request, reader.generation);
    question.adopt(request);
    question.wholeCheck();
    Payload answer(reader.answer, reader.generation);
    answer.take(session.ask(reader, question));
    return answer;
}
} // namespace tool
