#include "tuning-transfer/source/http/url.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>
#include <stdexcept>

namespace t_transfer::http
{
namespace
{
[[noreturn]] void fail(const std::string& what, const std::string& text)
{
    throw std::runtime_error("Connection failed: \"" + t_common::printable(text, t_common::limit::fileName) + "\" is " +
                             what);
}

std::string hostGet(const std::string& text)
{
    const bool isBracketed = text.size() > 2 && text.front() == '[' && text.back() == ']';
    const auto host = isBracketed ? text.substr(1, text.size() - 2) : text;
    const auto isHostCharacter = [](unsigned char c)
    { return c < 0x80 && (std::isalnum(c) || (c != 0 && std::strchr(".-_:%", c) != nullptr)); };
    // A first start. The resolver would take an empty name for this computer.
    if (text.empty())
        throw std::runtime_error("No board chosen: Edit > Preferences > Server Settings");
    if (host.empty() || !std::all_of(host.begin(), host.end(), isHostCharacter))
        fail("not the address of a board", text);
    return host;
}

unsigned short portGet(const std::string& text)
{
    unsigned short port = 0;
    const auto* pEnd = text.data() + text.size();
    const auto result = std::from_chars(text.data(), pEnd, port);
    if (result.ec != std::errc() || result.ptr != pEnd || port == 0)
        fail("not a port from 1 to 65535", text);
    return port;
}
} // namespace

Url::Url(const std::string& host_, const std::string& port_, const std::string& target_)
    : host(hostGet(host_)), port(portGet(port_)), target(target_)
{
    if (std::any_of(target.begin(), target.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; }))
        fail("not a path, it has control characters", target);
}

std::string Url::authority() const
{
    const bool isIpV6 = host.find(':') != std::string::npos;
    return (isIpV6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

std::string Url::text() const { return "http://" + authority() + target; }

std::string Url::requestTarget() const
{
    constexpr auto digits = "0123456789ABCDEF";
    std::string result;
    for (const unsigned char c : target)
        if (c == ' ' || c >= 0x80)
            result += {'%', digits[c >> 4], digits[c & 0xf]};
        else
            result += static_cast<char>(c);
    return result;
}
} // namespace t_transfer::http
