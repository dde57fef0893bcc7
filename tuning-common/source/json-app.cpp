#include "tuning-common/source/json-app.h"

#include "tuning-common/source/json-reader.h"
#include "tuning-common/source/text-run.h"

#include <charconv>
#include <cmath>
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
        while (true)
        {
            const char* pPlain = pBegin;
            pBegin = findSpecial(pBegin, pEnd, [](unsigned char c) { return (c < 0x20) | (c == '"') | (c == '\\'); });
            text.append(pPlain, pBegin);
            if (pBegin == pEnd)
            {
                break;
            }
            escape(*pBegin++);
        }
        text += '"';
    }

    void escape(char c)
    {
        constexpr auto digits = "0123456789abcdef";
        switch (c)
        {
        case '"':
        case '\\':
            text += {'\\', c};
            break;
        case '\n':
            text += "\\n";
            break;
        case '\t':
            text += "\\t";
            break;
        default:
            text += {'\\', 'u', '0', '0', digits[c >> 4], digits[c & 0xf]};
            break;
        }
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
} // namespace

std::string JsonApp::toString(const Json::Value& value, const std::string& indentation)
{
    Writer writer(indentation);
    writer.write(value);
    return std::move(writer.text);
}

Json::Value JsonApp::fromString(const std::string& text) { return JsonReader(text).read(); }
} // namespace t_common
