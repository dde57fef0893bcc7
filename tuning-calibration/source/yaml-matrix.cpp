#include "tuning-calibration/source/yaml-matrix.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <stdexcept>
#include <string_view>

namespace clb
{
namespace
{
constexpr auto npos = std::string_view::npos;
constexpr auto blanks = " \r\n";

/// What follows the key, up to the next line that is not indented.
std::string_view blockOf(std::string_view text, const std::string& key)
{
    const auto start = text.find("\n" + key + ":");
    if (start == npos)
        throw std::runtime_error(key + " is missing");
    text.remove_prefix(start + key.size() + 2);
    auto end = text.find('\n');
    while (end != npos && end + 1 < text.size() && text.find_first_of(blanks, end + 1) == end + 1)
        end = text.find('\n', end + 1);
    return text.substr(0, end);
}

/// Takes one matrix apart.
class Matrix
{
public:
    Matrix(std::string_view text, const std::string& key_) : rest(text), key(key_)
    {
        require(word() == "!!opencv-matrix", "is no matrix");
        while (!isEnd())
        {
            const auto name = std::string(word());
            require(take(':'), "is no matrix");
            fields[name] = name == "data" ? list() : std::string(word());
        }
    }

    std::string text()
    {
        const auto isSide = [](const std::string& side)
        { return !side.empty() && side.size() < 6 && side.find_first_not_of("0123456789") == npos; };
        require(isSide(fields["rows"]) && isSide(fields["cols"]) && !fields["data"].empty(), "is no matrix");
        require(fields["dt"] == "d" || fields["dt"] == "f", "is not of real numbers");
        return key + ": !!opencv-matrix\n   rows: " + fields["rows"] + "\n   cols: " + fields["cols"] +
               "\n   dt: " + fields["dt"] + "\n   data: [ " + fields["data"] + " ]\n";
    }

private:
    void require(bool isGood, const char* pReason) const
    {
        if (!isGood)
            throw std::runtime_error(key + " " + pReason);
    }

    bool isEnd()
    {
        rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
        return rest.empty();
    }

    bool take(char c)
    {
        const bool isThere = !isEnd() && rest.front() == c;
        rest.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    std::string_view word()
    {
        isEnd();
        const auto result = rest.substr(0, rest.find_first_of(" \r\n:,[]"));
        rest.remove_prefix(result.size());
        return result;
    }

    std::string list()
    {
        require(take('['), "is no matrix");
        std::string numbers;
        do
            numbers += (numbers.empty() ? "" : ", ") + number();
        while (take(','));
        require(take(']'), "holds what is no number");
        return numbers;
    }

    std::string number()
    {
        const auto text = word();
        const auto digits = text.substr(!text.empty() && text.front() == '+' ? 1 : 0);
        double value = 0;
        const auto [pEnd, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        require(text != ".Nan" && text != ".Inf" && text != "-.Inf" && error != std::errc::result_out_of_range,
                "holds a number that is not finite");
        require(error == std::errc() && pEnd == digits.data() + digits.size() &&
                    digits.find_first_not_of("0123456789.eE+-") == npos,
                "holds what is no number");
        // Whole numbers are taken as real ones, since the parser cuts them to 32 bits.
        return std::string(digits) + (digits.find_first_of(".eE") == npos ? "." : "");
    }

    std::string_view rest;
    const std::string key;
    std::map<std::string, std::string> fields;
};
} // namespace

std::string yamlMatrix(const std::string& text, const std::string& key)
{
    return Matrix(blockOf(text, key), key).text();
}
} // namespace clb
