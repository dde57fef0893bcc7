#include "tuning-tool/source/nearest.h"

#include <algorithm>
#include <cctype>

namespace tool
{
namespace
{
constexpr std::size_t most = 3;

std::string lower(std::string text)
{
    for (auto& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

/// Letters to put in, leave out or replace until one text is the other.
std::size_t distance(const std::string& left, const std::string& right)
{
    std::vector<std::size_t> row(right.size() + 1);
    for (std::size_t k = 0; k <= right.size(); ++k)
        row[k] = k;
    for (std::size_t i = 1; i <= left.size(); ++i)
    {
        auto diagonal = row[0];
        row[0] = i;
        for (std::size_t k = 1; k <= right.size(); ++k)
        {
            const auto replaced = diagonal + (left[i - 1] == right[k - 1] ? 0 : 1);
            diagonal = row[k];
            row[k] = std::min({replaced, row[k] + 1, row[k - 1] + 1});
        }
    }
    return row[right.size()];
}

/// Part of a name is near to it, as "red" is to "wbGains.Red".
std::size_t strangeness(const std::string& name, const std::string& candidate)
{
    const bool isPart = name.size() > 1 && candidate.find(name) != std::string::npos;
    return isPart ? 1 : distance(name, candidate);
}
} // namespace

std::vector<std::string> nearest(const std::string& name, const std::vector<std::string>& names)
{
    const auto sought = lower(name.substr(0, 200));
    const auto limit = std::max<std::size_t>(2, sought.size() / 3);
    std::vector<std::pair<std::size_t, std::string>> found;
    for (const auto& candidate : names)
        if (const auto value = strangeness(sought, lower(candidate)); value <= limit)
            found.emplace_back(value, candidate);
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<std::string> result;
    for (const auto& candidate : found)
        if (result.size() < most)
            result.push_back(candidate.second);
    return result;
}

std::string meantText(const std::string& name, const std::vector<std::string>& names)
{
    std::string text;
    for (const auto& near : nearest(name, names))
        text += (text.empty() ? "; did you mean " : " or ") + near;
    return text.empty() ? text : text + "?";
}
} // namespace tool
