#include "board-simulator/source/http-request.h"

#include <algorithm>
#include <cctype>

namespace board
{

namespace
{

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

int hexDigit(char c)
{
    const std::string digits = "0123456789abcdef";
    const size_t value = digits.find(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
    return value == std::string::npos ? -1 : static_cast<int>(value);
}

std::string trim(const std::string& text)
{
    const size_t begin = text.find_first_not_of(" \t");
    const size_t end = text.find_last_not_of(" \t");
    return begin == std::string::npos ? "" : text.substr(begin, end - begin + 1);
}

bool lengthParse(const std::string& text, uint64_t& length)
{
    const bool isNumber = !text.empty() && text.size() <= 15 &&
                          std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
    length = isNumber ? std::stoull(text) : 0;
    return isNumber;
}

} // namespace

std::optional<RequestHead> requestHeadParse(const std::string& head)
{
    RequestHead result;
    result.request.head = head;
    const size_t lineEnd = head.find("\r\n");
    const std::string line = head.substr(0, lineEnd);
    const size_t first = line.find(' ');
    const size_t last = line.rfind(' ');
    if (lineEnd == std::string::npos || first == std::string::npos || first == last ||
        line.compare(last + 1, 5, "HTTP/") != 0)
        return std::nullopt;
    result.request.method = line.substr(0, first);
    result.request.target = line.substr(first + 1, last - first - 1);
    if (result.request.target.compare(0, 1, "/") != 0)
        return std::nullopt;

    for (size_t begin = lineEnd + 2; begin < head.size();)
    {
        const size_t end = head.find("\r\n", begin);
        const std::string field = head.substr(begin, end == std::string::npos ? end : end - begin);
        const size_t colon = field.find(':');
        const std::string name = lower(field.substr(0, colon));
        // Bodies without a length are not the board's; nobody sends it any.
        if (name == "transfer-encoding" ||
            (name == "content-length" && !lengthParse(trim(field.substr(colon + 1)), result.length)))
            return std::nullopt;
        begin = end == std::string::npos ? head.size() : end + 2;
    }
    return result;
}

std::string percentDecode(const std::string& text)
{
    std::string result;
    for (size_t i = 0; i < text.size(); ++i)
    {
        const int high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? hexDigit(text[i + 2]) : -1;
        result += low >= 0 ? static_cast<char>(high * 16 + low) : text[i];
        i += low >= 0 ? 2 : 0;
    }
    return result;
}

std::optional<std::string> uploadName(const std::string& target)
{
    const std::string begin = "/upload?";
    const std::string key = "filename=";
    const size_t place = target.find(key, begin.size() - 1);
    if (target.compare(0, begin.size(), begin) != 0 || place == std::string::npos)
        return std::nullopt;
    return percentDecode(target.substr(place + key.size()));
}

} // namespace board
