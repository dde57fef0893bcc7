#pragma once

#include <json/json.h>
#include <memory>
#include <string>

namespace board
{

/// Reader and writer that are built once, since building them costs more than a short command. Not thread-safe.
class JsonText
{
public:
    JsonText();
    /// The value of strict JSON text. Throws `Failure`.
    Json::Value parse(const std::string& text);
    /// The value as text without line ends. NaN and infinity are written as such, since tests send them.
    std::string write(const Json::Value& value);

private:
    std::unique_ptr<Json::CharReader> pReader;
    std::unique_ptr<Json::StreamWriter> pWriter;
};

} // namespace board
