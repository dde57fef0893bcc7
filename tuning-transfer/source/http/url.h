#pragma once

#include <string>

namespace t_transfer::http
{
/// Where an exchange goes. The port is a decimal number, and the host a name or a numeric address.
struct Url
{
    /// Throws `std::runtime_error` for a host or a port that can't be one, and for control characters in the target.
    Url(const std::string& host_, const std::string& port_, const std::string& target_);

    /// Host and port, with brackets round a numeric address that contains colons.
    std::string authority() const;

    /// As the user sees it.
    std::string text() const;

    /// The target with blanks and bytes from 0x80 on percent-encoded, everything else as it stands.
    std::string requestTarget() const;

    std::string host;
    unsigned short port;
    std::string target;
};
} // namespace t_transfer::http
