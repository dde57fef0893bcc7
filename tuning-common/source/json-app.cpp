#include "tuning-common/source/json-app.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <charconv>
#include <cmath>
#include <memory>
#include <stdexcept>

namespace t_common
{
namespace
{
/// Writes the text itself: the library's own writer gives 0.1 as 0.10000000000000001.
class Writer
{
public:
    explicit Writer(const std::string& indentation_) : indentation(indentation_) {}

    void write(const Json::Value& value)
    {
        switch (value.type())
        {
        case Json::nullValue:
            text += "null";
            break;
        case Json::booleanValue:
            text += value.asBool() ? "true" : "false";
            break;
        case Json::intValue:
            number(value.asInt64());
            break;
        case Json::uintValue:
            number(value.asUInt64());
            break;
        case Json::realValue:
            real(value.asDouble());
            break;
        case Json::stringValue:
        {
            const char* pBegin = nullptr;
            const char* pEnd = nullptr;
            value.getString(&pBegin, &pEnd);
            string(pBegin, pEnd);
            break;
        }
        case Json::arrayValue:
        case Json::objectValue:
            container(value);
            break;
        }
    }

    std::string text;

private:
    template <class T>
    void number(T value)
    {
        char buffer[32];
        const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
        text.append(buffer, result.ptr);
    }

    void real(double value)
    {
        if (!std::isfinite(value))
        {
            throw std::runtime_error("JSON text failed: a number is not finite");
        }
        const auto start = text.size();
        number(value);
        if (text.find_first_of(".e", start) == std::string::npos)
        {
            text += ".0";
        }
    }

    void string(const char* pBegin, const char* pEnd)
    {
        text += '"';
        for (const char* p = pBegin; p != pEnd; ++p)
        {
            const char c = *p;
            if (c == '"' || c == '\\')
            {
                text += '\\';
                text += c;
            }
            else if (c == '\n')
            {
                text += "\\n";
            }
            else if (c == '\t')
            {
                text += "\\t";
            }
            else if (static_cast<unsigned char>(c) < 0x20)
            {
                constexpr auto digits = "0123456789abcdef";
                text += "\\u00";
                text += digits[c >> 4];
                text += digits[c & 0xf];
            }
            else
            {
                text += c;
            }
        }
        text += '"';
    }

    void container(const Json::Value& value)
    {
        const bool isObject = value.isObject();
        text += isObject ? '{' : '[';
        ++depth;
        for (auto it = value.begin(); it != value.end(); ++it)
        {
            if (it != value.begin())
            {
                text += ',';
            }
            line();
            if (isObject)
            {
                const char* pEnd = nullptr;
                const char* pBegin = it.memberName(&pEnd);
                string(pBegin, pEnd);
                text += indentation.empty() ? ":" : ": ";
            }
            write(*it);
        }
        --depth;
        if (!value.empty())
        {
            line();
        }
        text += isObject ? '}' : ']';
    }

    void line()
    {
        if (!indentation.empty())
        {
            text += '\n';
            for (int i = 0; i < depth; ++i)
            {
                text += indentation;
            }
        }
    }

    const std::string& indentation;
    int depth = 0;
};

[[noreturn]] void fail(const std::string& text, const std::string& reason)
{
    throw std::runtime_error("JSON parse failed: " + reason + " in " + std::to_string(text.size()) + " bytes \"" +
                             printable(text, limit::jsonExcerpt) + "\"");
}

/// The parser recurses and builds as it reads, so the text is measured before it sees it.
void measure(const std::string& text)
{
    std::size_t elements = 0;
    std::size_t depth = 0;
    bool isString = false;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const char c = text[i];
        if (isString)
        {
            if (c == '\\')
            {
                ++i;
            }
            else if (c == '"')
            {
                isString = false;
            }
            continue;
        }
        switch (c)
        {
        case '"':
            isString = true;
            break;
        case '[':
        case '{':
            ++elements;
            if (++depth > limit::jsonDepth)
            {
                fail(text, "more than " + std::to_string(limit::jsonDepth) + " nested values");
            }
            break;
        case ']':
        case '}':
            depth -= depth > 0 ? 1 : 0;
            break;
        case ',':
            ++elements;
            break;
        default:
            break;
        }
    }
    if (elements > limit::jsonElements)
    {
        fail(text, "more than " + std::to_string(limit::jsonElements) + " elements");
    }
}

std::unique_ptr<Json::CharReader> makeReader()
{
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    builder["allowComments"] = false;
    builder["allowTrailingCommas"] = false;
    builder["failIfExtra"] = true;
    // Without it, garbage behind the value that is no token at all would pass.
    builder["strictRoot"] = true;
    return std::unique_ptr<Json::CharReader>(builder.newCharReader());
}
} // namespace

std::string JsonApp::toString(const Json::Value& value, const std::string& indentation)
{
    Writer writer(indentation);
    writer.write(value);
    return std::move(writer.text);
}

Json::Value JsonApp::fromString(const std::string& text)
{
    thread_local const auto pReader = makeReader();
    measure(text);
    Json::Value value;
    bool isRead = false;
    try
    {
        isRead = pReader->parse(text.data(), text.data() + text.size(), &value, nullptr);
    }
    catch (const Json::Exception&)
    {
        isRead = false;
    }
    if (!isRead)
    {
        fail(text, "no JSON object or array");
    }
    return value;
}
} // namespace t_common
