#pragma once

#include "tuning-json/source/element.h"

namespace t_json
{
/// Takes a JSON text apart into values that keep their piece of it.
class Reader
{
public:
    explicit Reader(const std::string& documentText) : text(documentText) {}

    /// The one value of the text. Throws `std::runtime_error`.
    Value document();

private:
    Value value(std::size_t depth);
    Value container(std::size_t depth, ValueType type, char close);
    Value number();
    Value word(const char* pWord, ValueType type);
    std::string string();
    std::string blanks();
    void digits();
    bool take(char c);
    char next() const { return at < text.size() ? text[at] : '\0'; }
    [[noreturn]] void fail(const std::string& reason) const;

    const std::string& text;
    std::size_t at = 0;
    std::size_t values = 0;
};
} // namespace t_json
