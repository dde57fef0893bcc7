#include "tuning-common/source/json-app.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <utility>

namespace t_common
{
namespace
{
/// The fewest digits, 15 to 17, in which every real of `value` reads back as the same number: 0.1 stays 0.1. Throws for
/// a number that is not finite.
int digitsNeeded(const Json::Value& value)
{
    constexpr int fewest = 15;
    constexpr int most = 17;
    if (value.isArray() || value.isObject())
    {
        int digits = fewest;
        for (const auto& element : value)
            digits = std::max(digits, digitsNeeded(element));
        return digits;
    }
    if (value.type() != Json::realValue)
        return fewest;
    const double number = value.asDouble();
    if (!std::isfinite(number))
        throw std::runtime_error("JSON text failed: a number is not finite");
    char text[32];
    auto* pEnd = std::to_chars(text, text + sizeof text, number, std::chars_format::scientific).ptr;
    const auto digits = std::count_if(text, std::find(text, pEnd, 'e'), [](char c) { return c >= '0' && c <= '9'; });
    return std::clamp(static_cast<int>(digits), fewest, most);
}

// Readers and writers are kept: to set one up costs more than a command's text. They hold state, so each thread has its
// own.

Json::StreamWriter& writer(const std::string& indentation, int digits)
{
    thread_local std::map<std::pair<std::string, int>, std::unique_ptr<Json::StreamWriter>> writers;
    auto& pWriter = writers[{indentation, digits}];
    if (!pWriter)
    {
        Json::StreamWriterBuilder builder;
        builder["indentation"] = indentation;
        builder["commentStyle"] = "None";
        builder["enableYAMLCompatibility"] = !indentation.empty(); // ": " instead of " : "
        builder["emitUTF8"] = true;
        builder["precision"] = digits;
        pWriter.reset(builder.newStreamWriter());
    }
    return *pWriter;
}

/// Takes the text as it is written: a string stream would be set up for each text, and copy it as it grows and at the
/// end.
class TextBuffer : public std::streambuf
{
public:
    std::string text;

protected:
    std::streamsize xsputn(const char* pText, std::streamsize size) override
    {
        text.append(pText, static_cast<std::size_t>(size));
        return size;
    }

    int_type overflow(int_type c) override
    {
        text += traits_type::to_char_type(c);
        return c;
    }
};

Json::CharReader& reader(JsonApp::Keys keys)
{
    const auto make = [](JsonApp::Keys madeFor)
    {
        Json::CharReaderBuilder builder;
        Json::CharReaderBuilder::strictMode(&builder.settings_);
        builder["collectComments"] = false;
        builder["rejectDupKeys"] = madeFor == JsonApp::Keys::Once;
        return std::unique_ptr<Json::CharReader>(builder.newCharReader());
    };
    thread_local const auto pTolerant = make(JsonApp::Keys::LastCounts);
    thread_local const auto pStrict = make(JsonApp::Keys::Once);
    return *(keys == JsonApp::Keys::Once ? pStrict : pTolerant);
}

/// The closing quote of the string that opens at `open`, or the end of the text. A search, since records make strings
/// of thousands of characters.
std::size_t stringEnd(const std::string& text, std::size_t open)
{
    auto close = text.find('"', open + 1);
    while (close != std::string::npos)
    {
        const auto backslashes = close - 1 - text.find_last_not_of('\\', close - 1);
        if (backslashes % 2 == 0)
            return close;
        close = text.find('"', close + 1);
    }
    return text.size();
}

/// What stands in the way of parsing `text` at all, before memory is spent on it; empty for nothing.
std::string obstacle(const std::string& text)
{
    std::size_t depth = 0;
    std::size_t elements = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        switch (text[i])
        {
        case '"':
            i = stringEnd(text, i);
            break;
        case '[':
        case '{':
            ++elements;
            if (++depth > limit::jsonDepth)
                return "nested deeper than " + std::to_string(limit::jsonDepth);
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
        if (elements > limit::jsonElements)
            return "more than " + std::to_string(limit::jsonElements) + " elements";
    }
    return {};
}

[[noreturn]] void fail(const std::string& text, const std::string& reason)
{
    throw std::runtime_error("JSON parse failed: " + reason + ", " + std::to_string(text.size()) + " bytes \"" +
                             printable(text, limit::jsonExcerpt) + "\"");
}

/// The reader's report has several lines; the first tells the place, the second the reason.
std::string reasonOf(const std::string& report)
{
    std::istringstream lines(report);
    std::string place;
    std::string reason;
    std::getline(lines, place);
    std::getline(lines >> std::ws, reason);
    return reason.empty() ? "no value" : reason;
}
} // namespace

std::string JsonApp::toString(const Json::Value& value, const std::string& indentation)
{
    thread_local std::ostream stream(nullptr);
    TextBuffer buffer;
    stream.rdbuf(&buffer);
    writer(indentation, digitsNeeded(value)).write(value, &stream);
    stream.rdbuf(nullptr);
    return std::move(buffer.text);
}

Json::Value JsonApp::fromString(const std::string& text, Keys keys)
{
    const auto hindrance = obstacle(text);
    if (!hindrance.empty())
        fail(text, hindrance);
    Json::Value value;
    std::string report;
    bool isParsed = false;
    try
    {
        isParsed = reader(keys).parse(text.data(), text.data() + text.size(), &value, &report);
    }
    catch (const std::exception& exception)
    {
        fail(text, exception.what());
    }
    if (!isParsed)
        fail(text, reasonOf(report));
    return value;
}
} // namespace t_common
