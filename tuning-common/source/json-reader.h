#pragma once

#include <json/json.h>

#include <string>

namespace t_common
{
/// Reads one JSON text strictly and within the limits of what may come from outside. The library's own reader lets
/// garbage pass behind a value, has no limit on elements, and takes ten times as long for a record in Base64.
class JsonReader
{
public:
    explicit JsonReader(const std::string& text_);

    /// Throws `std::runtime_error` for anything but one whole object or array.
    Json::Value read();

private:
    void value(Json::Value& target);
    void object(Json::Value& target);
    void array(Json::Value& target);
    void number(Json::Value& target);
    std::string string();
    void escape(std::string& result);
    unsigned int hexadecimal();

    void blanks();
    char peek() const { return pNext == pEnd ? '\0' : *pNext; }
    bool take(char c);
    bool take(const char* pWord);
    void demand(char c);
    void enter();
    void count();
    [[noreturn]] void fail(const std::string& reason) const;

    const std::string& text;
    const char* pNext;
    const char* pEnd;
    std::size_t elements = 0;
    std::size_t depth = 0;
};
} // namespace t_common
