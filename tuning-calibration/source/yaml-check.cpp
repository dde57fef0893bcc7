#include "tuning-calibration/source/yaml-check.h"

#include "tuning-common/source/limits.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace clb
{
namespace
{
constexpr auto npos = std::string_view::npos;

void require(bool isGood, const char* pReason)
{
    if (!isGood)
        throw std::runtime_error(pReason);
}

bool startsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

/// Counts blocks and brackets that are open at the same time. Where it can't know, it counts one as open: a quoted or
/// commented bracket opens, but never closes.
class Depth
{
public:
    void lineAdd(std::string_view line)
    {
        const auto first = line.find_first_not_of(' ');
        if (first == npos || line[first] == '#')
            return;
        // Within brackets no block ends, whatever the columns.
        if (brackets.empty())
            blocks.erase(blocks.upper_bound(placeOf(line, first)), blocks.end());
        blocksAdd(line, first);
        bracketsAdd(line);
    }

private:
    static bool isEndOrBlank(std::string_view line, std::size_t i) { return i >= line.size() || line[i] == ' '; }

    /// A sequence may stand in the column of its key, hence two places for each column.
    static std::size_t placeOf(std::string_view line, std::size_t column)
    {
        return 2 * column + (line[column] == '-' && isEndOrBlank(line, column + 1) ? 1 : 0);
    }

    void check() const
    {
        require(blocks.size() + brackets.size() <= t_common::limit::yamlDepth, "it is nested too deep");
    }

    /// A block starts with the line, after each dash and after each colon.
    void blocksAdd(std::string_view line, std::size_t first)
    {
        while (first != npos)
        {
            blocks.insert(placeOf(line, first));
            check();
            std::size_t i = first;
            while (i < line.size() && line[i] != ':' && !(line[i] == '-' && isEndOrBlank(line, i + 1)))
                ++i;
            first = line.find_first_not_of(' ', i + 1);
        }
    }

    void bracketsAdd(std::string_view line)
    {
        const bool isPlain = line.find_first_of("\"'#") == npos;
        for (const char c : line)
        {
            if (c == '[' || c == '{')
            {
                brackets.push_back(c);
                check();
            }
            else if ((c == ']' || c == '}') && isPlain && !brackets.empty())
            {
                require(brackets.back() == (c == ']' ? '[' : '{'), "its brackets don't match");
                brackets.pop_back();
            }
        }
    }

    std::set<std::size_t> blocks; ///< where they start
    std::vector<char> brackets;
};
} // namespace

void yamlCheck(const std::string& text)
{
    require(startsWith(text, "%YAML"), "it is no YAML");
    require(std::all_of(text.begin(), text.end(),
                        [](unsigned char c) { return c >= ' ' ? c != 0x7f : c == '\n' || c == '\r'; }),
            "it is no plain text");
    Depth depth;
    std::string_view rest(text);
    while (!rest.empty())
    {
        const auto end = std::min(rest.find('\n'), rest.size());
        auto line = rest.substr(0, end);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        // The parser drops what follows one within a line.
        require(line.find('\r') == npos, "it is no plain text");
        depth.lineAdd(line);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}
} // namespace clb
