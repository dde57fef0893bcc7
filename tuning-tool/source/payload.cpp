#include "tuning-tool/source/payload.h"

#include "board-wire/source/base64.h"
#include "board-wire/source/failure.h"
#include "board-wire/source/field-value.h"
#include "board-wire/source/scalar.h"
#include "tuning-common/source/limits.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/local-file.h"
#include "tuning-tool/source/nearest.h"
#include "tuning-tool/source/value-text.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace tool
{
namespace
{
/// "auto.level" and "autoLevel", "auto" and "isAuto" are the same setting under two names.
std::string meaning(const std::string& name)
{
    std::string result;
    for (const unsigned char c : name.rfind("is", 0) == 0 ? name.substr(2) : name)
        if (c != '.')
            result += static_cast<char>(std::tolower(c));
    return result;
}

/// Takes the last index off a name; nothing where there is none.
bool indexTake(std::string& name, std::vector<size_t>& index)
{
    const auto open = name.rfind('[');
    if (open == std::string::npos || name.back() != ']')
        return false;
    size_t number = 0;
    const auto* pEnd = name.data() + name.size() - 1;
    const auto result = std::from_chars(name.data() + open + 1, pEnd, number);
    if (result.ec != std::errc() || result.ptr != pEnd)
        return false;
    index.insert(index.begin(), number);
    name.resize(open);
    return true;
}

/// Base64 as it is, or of the bytes of a file: "@FILE".
std::string base64Text(const std::string& text)
{
    return text.rfind('@', 0) == 0 ? board::base64Encode(fileRead(text.substr(1), t_common::limit::jsonFile)) : text;
}

/// "config:strength"; nothing is put together, since a snapshot asks thousands of times.
bool isQualified(const std::string& name, const std::string& key, const std::string& field)
{
    return name.size() == key.size() + 1 + field.size() && name[key.size()] == ':' && name.rfind(key, 0) == 0 &&
           name.compare(key.size() + 1, field.size(), field) == 0;
}

std::string typeText(const board::Field& field)
{
    auto text = field.type;
    for (const auto count : field.shape)
        text += "[" + std::to_string(count) + "]";
    return text;
}
} // namespace

Payload::Payload(std::vector<board::Key> keys_, std::string generation_)
    : keys(std::move(keys_)), generation(std::move(generation_))
{
    for (const auto& key : keys)
        if (!key.recordName().empty())
            recordBytes[key.name] = std::string(board::Wire::instance().record(key.recordName()).size, '\0');
}

const board::Key* Payload::keyFind(const std::string& name) const
{
    const auto found = std::find_if(keys.begin(), keys.end(), [&](const auto& key) { return key.name == name; });
    return found == keys.end() ? nullptr : &*found;
}

const board::Layout& Payload::layout(const board::Key& key) const
{
    return board::layoutOf(board::Wire::instance().record(key.recordName()), generation);
}

void Payload::recordTake(const board::Key& key, const Json::Value& value)
{
    const auto bytes = board::base64Decode(value.asString());
    auto& known = recordBytes[key.name];
    if (!bytes || bytes->size() != known.size())
        throw Failure(Unreadable, key.name + " is no Base64 record of " + std::to_string(known.size()) + " bytes");
    known = *bytes;
    isGiven[key.name] = true;
}

void Payload::take(const Json::Value& jAnswer)
{
    for (const auto& key : keys)
    {
        if (!jAnswer.isMember(key.name))
        {
            if (!key.isOptional)
                throw Failure(Unreadable, key.name + " is missing in the answer");
            continue;
        }
        // A table is whatever the board says.
        const auto& value = jAnswer[key.name];
        if (key.type != "table" && !key.fits(value))
            throw Failure(Unreadable, key.name + " is not of type " + key.type + " in the answer");
        if (key.recordName().empty())
            plain[key.name] = value;
        else
            recordTake(key, value);
    }
}

void Payload::adopt(const Payload& other)
{
    for (const auto& key : keys)
    {
        const auto bytes = other.recordBytes.find(key.name);
        if (key.recordName().empty())
        {
            if (const auto found = other.plain.find(key.name); found != other.plain.end())
                plain[key.name] = found->second;
        }
        else if (bytes != other.recordBytes.end() && other.isGiven.count(key.name) > 0)
        {
            recordBytes[key.name] = bytes->second;
            isGiven[key.name] = true;
        }
    }
}

void Payload::recordsFill(const Payload& other)
{
    for (const auto& key : keys)
    {
        if (key.recordName().empty() || other.recordBytes.count(key.name) > 0)
            continue;
        for (const auto& field : layout(key).fields)
            for (const auto& [name, value] : plain)
                if (meaning(name) == meaning(field.name))
                    board::fieldSet(field, recordBytes[key.name], {}, value);
        isGiven[key.name] = true;
    }
}

Payload::Place Payload::findExactly(const std::string& name) const
{
    Place place;
    if ((place.pKey = keyFind(name)) != nullptr)
    {
        // A record of one nameless field is that field.
        if (!place.pKey->recordName().empty() && layout(*place.pKey).fields.front().name.empty())
            place.pField = &layout(*place.pKey).fields.front();
        return place;
    }
    for (const auto& key : keys)
    {
        if (key.recordName().empty())
            continue;
        for (const auto& field : layout(key).fields)
            if (!field.name.empty() && (name == field.name || isQualified(name, key.name, field.name)))
                return {&key, &field, {}};
    }
    return {};
}

Payload::Place Payload::findAny(std::string name) const
{
    auto place = findExactly(name);
    std::vector<size_t> index;
    while (!place.pKey && indexTake(name, index))
        place = findExactly(name);
    // Only a field has elements.
    if (!index.empty() && !place.pField)
        return {};
    place.index = std::move(index);
    return place;
}

Payload::Place Payload::find(const std::string& name) const
{
    auto place = findAny(name);
    if (!place.pKey)
        throw Failure(Usage, "There is no field \"" + name + "\"" + meantText(name, names()));
    return place;
}

void Payload::plainSet(const board::Key& key, const Json::Value& value)
{
    board::scalarCheck(key.type, value, key.name);
    if (!key.fits(value))
        throw Failure(Usage, key.name + " is of type " + key.type);
    if (key.type == "bytes" && !board::base64Decode(value.asString()))
        throw Failure(Usage, key.name + " is Base64, or @FILE");
    plain[key.name] = value;
}

void Payload::set(const std::string& name, const std::string& text)
{
    const auto place = find(name);
    const auto* pField = place.pField;
    const bool isText =
        pField && pField->type == "char" && !pField->shape.empty() && place.index.size() + 1 == pField->shape.size();
    const bool isList = !isText && text.rfind('[', 0) == 0;
    try
    {
        // Without a list or an index behind it, the name of such a field is that of the whole record.
        const bool isRecord = place.pField && place.pField->name.empty() && place.index.empty() && !isList;
        if (place.pField && !isRecord)
        {
            const auto type = isList ? std::string() : place.pField->type;
            board::fieldSet(*place.pField, recordBytes[place.pKey->name], place.index, valueParse(text, type));
            isGiven[place.pKey->name] = true;
        }
        else if (place.pKey->recordName().empty())
            plainSet(*place.pKey, valueParse(place.pKey->type == "bytes" ? base64Text(text) : text, place.pKey->type));
        else
            recordTake(*place.pKey, base64Text(text));
    }
    catch (const Failure& failure)
    {
        if (failure.code == LocalFile)
            throw;
        throw Failure(Usage, name + " is refused: " + failure.what());
    }
    catch (const std::exception& exception)
    {
        throw Failure(Usage, name + "=" + text.substr(0, 80) + " is refused: " + exception.what());
    }
}

void Payload::valueSet(const std::string& name, const Json::Value& value)
{
    const auto place = find(name);
    if (!place.pField)
        return plainSet(*place.pKey, value);
    board::fieldSet(*place.pField, recordBytes[place.pKey->name], place.index, value);
    isGiven[place.pKey->name] = true;
}

std::optional<Json::Value> Payload::value(const std::string& name) const
{
    const auto place = findAny(name);
    if (!place.pKey)
        return {};
    if (place.pKey->recordName().empty())
    {
        const auto found = plain.find(place.pKey->name);
        return found == plain.end() ? std::nullopt : std::optional<Json::Value>(found->second);
    }
    if (isGiven.count(place.pKey->name) == 0)
        return {};
    const auto& bytes = recordBytes.at(place.pKey->name);
    if (!place.pField)
        return board::base64Encode(bytes);
    auto result = board::fieldGet(*place.pField, bytes);
    for (const auto index : place.index)
        result = Json::Value(result[static_cast<Json::ArrayIndex>(index)]);
    return result;
}

void Payload::wholeCheck() const
{
    for (const auto& key : keys)
    {
        const bool isThere = key.recordName().empty() ? plain.count(key.name) > 0 : isGiven.count(key.name) > 0;
        if (!isThere && !key.isOptional)
            throw Failure(Usage, key.name + " is missing, of type " + key.type);
    }
}

Json::Value Payload::travelling() const
{
    Json::Value result(Json::objectValue);
    for (const auto& [name, value] : plain)
        result[name] = value;
    for (const auto& [name, bytes] : recordBytes)
        if (isGiven.count(name) > 0)
            result[name] = board::base64Encode(bytes);
    return result;
}

Json::Value Payload::readable() const
{
    Json::Value result(Json::objectValue);
    for (const auto& [name, value] : plain)
        result[name] = value;
    for (const auto& key : keys)
        if (!key.recordName().empty() && isGiven.count(key.name) > 0)
            for (const auto& field : layout(key).fields)
            {
                auto& target = field.name.empty() ? result[key.name] : result[key.name][field.name];
                target = board::fieldGet(field, recordBytes.at(key.name));
            }
    return result;
}

std::vector<std::string> Payload::names() const
{
    std::vector<std::string> result;
    for (const auto& key : keys)
    {
        if (key.recordName().empty() || layout(key).fields.front().name.empty())
        {
            result.push_back(key.name);
            continue;
        }
        for (const auto& field : layout(key).fields)
        {
            const auto place = findExactly(field.name);
            result.push_back(place.pField == &field ? field.name : key.name + ":" + field.name);
        }
    }
    return result;
}

std::string Payload::type(const std::string& name) const
{
    const auto place = find(name);
    return place.pField ? typeText(*place.pField) : place.pKey->type;
}
} // namespace tool
