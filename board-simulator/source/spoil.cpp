#include "board-simulator/source/spoil.h"

#include "board-wire/source/base64.h"

#include <random>
#include <set>

namespace board
{

using namespace std::string_literals;

namespace
{

void fail(Json::Value& answer, const std::string& message)
{
    answer = Json::Value(Json::objectValue);
    answer["error"] = 1;
    if (!message.empty())
        answer["message"] = message;
}

template <typename Change>
void recordsChange(Json::Value& answer, Change change)
{
    static const std::set<std::string> keys{"config", "curve", "map", "metadata", "status", "x", "y"};
    for (const std::string& key : answer.getMemberNames())
        if (keys.count(key) && answer[key].isString())
            answer[key] = change(answer[key].asString());
}

void recordsResize(Json::Value& answer, int64_t difference)
{
    recordsChange(answer,
                  [difference](const std::string& text)
                  {
                      std::string bytes = base64Decode(text).value_or("");
                      const int64_t size = static_cast<int64_t>(bytes.size()) + difference;
                      bytes.resize(size > 0 ? static_cast<size_t>(size) : 0, '\x55');
                      return base64Encode(bytes);
                  });
}

Json::Value otherType(const Json::Value& value)
{
    if (value.isString())
        return Json::Value(Json::objectValue);
    if (value.isArray())
        return 42;
    return value.isObject() ? Json::Value(Json::arrayValue) : Json::Value("text");
}

void typesChange(const Fault& fault, Json::Value& answer)
{
    if (!fault.text.empty())
    {
        answer[fault.text] = otherType(answer[fault.text]);
        return;
    }
    bool isChanged = false;
    for (const std::string& key : answer.getMemberNames())
    {
        if (key != "error" && key != "message")
        {
            answer[key] = otherType(answer[key]);
            isChanged = true;
        }
    }
    if (!isChanged)
        answer["error"] = otherType(answer["error"]);
}

void namesChange(const Fault& fault, Json::Value& answer)
{
    const std::string name = fault.text.empty() ? "../../../../tmp/../etc/hostile" : fault.text;
    for (const char* key : {"calib.file", "driver.file", "file.name"})
        if (answer.isMember(key))
            answer[key] = name;
    if (answer.isMember("file.list"))
    {
        Json::Value& list = answer["file.list"] = Json::Value(Json::arrayValue);
        for (const std::string& hostile :
             {name, "/etc/passwd"s, ".."s, "."s, ""s, "a\nb\x1b[31m.xml"s, "..\\..\\c.xml"s, "&<b>bold</b>.xml"s,
              std::string(300, 'n') + ".xml", "nul\0inside.xml"s, "\xff\xfe.xml"s})
            list.append(hostile);
    }
}

} // namespace

bool isRefused(const Fault& fault)
{
    return fault.kind == Fault::Error || fault.kind == Fault::ErrorBare || fault.kind == Fault::MessageControl ||
           fault.kind == Fault::MessageLong;
}

void spoil(const Fault& fault, Json::Value& answer)
{
    switch (fault.kind)
    {
    case Fault::Error:
        fail(answer, fault.text.empty() ? "The board refuses" : fault.text);
        break;
    case Fault::ErrorBare:
        fail(answer, "");
        break;
    case Fault::MessageControl:
        fail(answer, "\x1b[31mred\x07\r\n\t\0<b>bold</b> %s %n \xff\x7f"s);
        break;
    case Fault::MessageLong:
        fail(answer, std::string(fault.amountOr(1u << 20), 'm'));
        break;
    case Fault::RecordShort:
        recordsResize(answer, -static_cast<int64_t>(fault.amountOr(1)));
        break;
    case Fault::RecordLong:
        recordsResize(answer, static_cast<int64_t>(fault.amountOr(1)));
        break;
    case Fault::Base64Broken:
        recordsChange(answer, [](const std::string& text) { return "*" + text; });
        break;
    case Fault::WrongTypes:
        typesChange(fault, answer);
        break;
    case Fault::HostileNames:
        namesChange(fault, answer);
        break;
    default:
        break;
    }
}

void spoil(const Fault& fault, std::string& text)
{
    switch (fault.kind)
    {
    case Fault::NotJson:
        text = fault.text.empty() ? "The board is out to lunch" : fault.text;
        break;
    case Fault::JsonCut:
        text.resize(text.size() / 2);
        break;
    case Fault::Nesting:
        text.assign(fault.amountOr(5'000'000), '[');
        break;
    case Fault::AnswerArray:
        text = "[]";
        break;
    case Fault::AnswerNumber:
        text = "42";
        break;
    case Fault::AnswerNull:
        text = "null";
        break;
    case Fault::AnswerEmpty:
        text.clear();
        break;
    case Fault::RandomBytes:
        text = randomBytes(fault.amountOr(4096));
        break;
    default:
        break;
    }
}

std::string randomBytes(uint64_t count)
{
    std::mt19937 generator(20221116);
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(generator() & 0xFF);
    return bytes;
}

} // namespace board
