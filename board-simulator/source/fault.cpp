#include "board-simulator/source/fault.h"

namespace board
{

const std::map<std::string, Fault::Kind>& faultKinds()
{
    static const std::map<std::string, Fault::Kind> kinds{{"error", Fault::Error},
                                                          {"error-bare", Fault::ErrorBare},
                                                          {"message-control", Fault::MessageControl},
                                                          {"message-long", Fault::MessageLong},
                                                          {"record-short", Fault::RecordShort},
                                                          {"record-long", Fault::RecordLong},
                                                          {"base64-broken", Fault::Base64Broken},
                                                          {"wrong-types", Fault::WrongTypes},
                                                          {"hostile-names", Fault::HostileNames},
                                                          {"not-json", Fault::NotJson},
                                                          {"json-cut", Fault::JsonCut},
                                                          {"nesting", Fault::Nesting},
                                                          {"answer-array", Fault::AnswerArray},
                                                          {"answer-number", Fault::AnswerNumber},
                                                          {"answer-null", Fault::AnswerNull},
                                                          {"answer-empty", Fault::AnswerEmpty},
                                                          {"random-bytes", Fault::RandomBytes},
                                                          {"silence", Fault::Silence},
                                                          {"delay", Fault::Delay},
                                                          {"drip", Fault::Drip},
                                                          {"close", Fault::Close},
                                                          {"reset-in-body", Fault::ResetInBody},
                                                          {"body-short", Fault::BodyShort},
                                                          {"chunked", Fault::Chunked},
                                                          {"chunked-cut", Fault::ChunkedCut},
                                                          {"no-length", Fault::NoLength},
                                                          {"http-status", Fault::HttpStatus},
                                                          {"no-reason", Fault::NoReason},
                                                          {"continue", Fault::Continue},
                                                          {"pieces", Fault::Pieces},
                                                          {"head-huge", Fault::HeadHuge},
                                                          {"not-http", Fault::NotHttp}};
    return kinds;
}

std::optional<Fault::Kind> faultKind(const std::string& name)
{
    auto found = faultKinds().find(name);
    return found == faultKinds().end() ? std::nullopt : std::make_optional(found->second);
}

void Faults::set(const Fault& fault)
{
    std::lock_guard lock(mutex);
    faults[fault.id] = fault;
}

void Faults::clear()
{
    std::lock_guard lock(mutex);
    faults.clear();
}

std::optional<Fault> Faults::take(int64_t id)
{
    std::lock_guard lock(mutex);
    auto found = faults.find(id);
    if (found == faults.end())
        found = faults.find(Fault::Everything);
    if (found == faults.end())
        return std::nullopt;
    const Fault fault = found->second;
    if (found->second.count > 0 && --found->second.count == 0)
        faults.erase(found);
    return fault;
}

} // namespace board
