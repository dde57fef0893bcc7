#include "board-simulator/source/module.h"

#include "board-wire/source/base64.h"
#include "board-wire/source/failure.h"

namespace board
{

namespace
{

std::string recordDecode(const Json::Value& query, const std::string& key)
{
    const Json::Value& value = query[key];
    auto bytes = value.isString() ? base64Decode(value.asString()) : std::nullopt;
    if (!bytes)
        throw Failure(key + " is not Base64");
    return *bytes;
}

} // namespace

Group::Group(const Json::Value& start)
{
    for (const std::string& key : start.getMemberNames())
    {
        const Json::Value& value = start[key];
        if (value.isObject() && value.isMember("record"))
        {
            const Record& record = Wire::instance().record(value["record"].asString());
            RecordBytes bytes(record, record.layout(value["layout"].asString()), value["values"]);
            bytes.keep(value["kept"]);
            values.emplace(key, std::move(bytes));
        }
        else
        {
            values.emplace(key, value);
        }
    }
}

void Group::write(Json::Value& answer) const
{
    for (const auto& [key, value] : values)
    {
        const auto* pRecord = std::get_if<RecordBytes>(&value);
        answer[key] = pRecord ? Json::Value(base64Encode(pRecord->bytes())) : std::get<Json::Value>(value);
    }
}

void Group::read(const Json::Value& query)
{
    auto next = values;
    for (auto& [key, value] : next)
    {
        if (query.isMember(key))
        {
            if (auto* pBytes = std::get_if<RecordBytes>(&value))
                pBytes->bytesSet(recordDecode(query, key));
            else
                value = query[key];
        }
    }
    values = std::move(next);
}

bool Group::hasPlain(const std::string& key) const
{
    auto found = values.find(key);
    return found != values.end() && std::holds_alternative<Json::Value>(found->second);
}

void Group::plainSet(const std::string& key, const Json::Value& value) { values[key] = value; }

RecordBytes* Group::record(const std::string& key)
{
    auto found = values.find(key);
    return found == values.end() ? nullptr : std::get_if<RecordBytes>(&found->second);
}

Module::Module(const Json::Value& startValues) : start(startValues) { reset(); }

void Module::reset()
{
    isEnabled = start["enable"].asBool();
    config = Group(start["config"]);
    status = Group(start["status"]);
    table = start["table"];
}

} // namespace board
