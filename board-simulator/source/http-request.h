#pragma once

#include "board-simulator/source/request-log.h"

#include <cstdint>
#include <optional>
#include <string>

namespace board
{

/// What the head of a request says; its bytes stand in `request.head`.
struct RequestHead
{
    Request request;
    uint64_t length = 0;
};

/// Nothing if the head is none that the board understands.
std::optional<RequestHead> requestHeadParse(const std::string& head);
/// "%41" becomes "A"; a percent sign without two hexadecimal digits stays.
std::string percentDecode(const std::string& text);
/// The file's name in the target of an upload, nothing if the target is another. The name is the last parameter and may
/// hold any character.
std::optional<std::string> uploadName(const std::string& target);

} // namespace board
