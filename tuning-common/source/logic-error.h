#pragma once

#include <exception>
#include <string>
#include <utility>

namespace t_common
{
/// The exception of the transfer layer and of the record decoder: a text with a code.
class LogicError : public std::exception
{
public:
    enum Code
    {
        Io = 1,        ///< a serial port could not be opened, read or written
        WrongSize = 6, ///< a record has another size than its structure
        NotFound = 9   ///< something that is needed is missing
    };

    LogicError(int code, std::string text) : error(code), message(std::move(text)) {}

    const char* what() const noexcept override { return message.c_str(); }

    int error;
    std::string message;
};
} // namespace t_common
