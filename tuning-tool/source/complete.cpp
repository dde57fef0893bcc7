#include "tuning-tool/source/camera.h"
#include "tuning-tool/source/command-line.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/part.h"
#include "tuning-tool/source/verbs.h"

#include <algorithm>
#include <utility>

namespace tool
{
namespace
{
/// The board's words are plain: names of the description, without blanks. What it has no names for, such as files, is
/// left to the shell.
constexpr auto script = R"(# Completion of tuning-tool for bash.
_tuning_tool()
{
    local line=${COMP_LINE:0:COMP_POINT}
    local -a words
    read -ra words <<<"$line"
    [[ $line != *" " ]] || words+=("")
    local last=${words[-1]}
    # The shell takes "=" and ":" for ends of words, and wants only what is behind the last one.
    local cut=${last%"${last##*[=:]}"}
    mapfile -t COMPREPLY < <("${words[0]}" complete "${words[@]:1}" 2>/dev/null)
    COMPREPLY=("${COMPREPLY[@]#"$cut"}")
    [[ ${#COMPREPLY[@]} -ne 1 || ${COMPREPLY[0]} != *= ]] || compopt -o nospace
}
complete -o default -F _tuning_tool tuning-tool
)";

using Words = std::vector<std::string>;

const Verb* verbOf(const Words& words)
{
    for (const auto& verb : verbs())
    {
        const bool isOne = !words.empty() && words[0] == verb.name;
        const bool isTwo = words.size() > 1 && words[0] + " " + words[1] == verb.name;
        if (isOne || isTwo)
            return &verb;
    }
    return nullptr;
}

/// First or second words of all verbs.
Words verbWords(const Words& words)
{
    Words result;
    for (const auto& verb : verbs())
    {
        const auto blank = verb.name.find(' ');
        const auto first = verb.name.substr(0, blank);
        if (words.empty())
            result.push_back(first);
        else if (first == words[0] && blank != std::string::npos)
            result.push_back(verb.name.substr(blank + 1));
    }
    return result;
}

std::string suffixOf(const Verb& verb)
{
    const bool isSetting = verb.name == "set" || verb.name == "sweep";
    return verb.name == "get" ? "Get" : isSetting ? "Set" : "";
}

Words generationsOf(const std::string& name)
{
    Words result;
    for (const auto& generation : commandClassFind(name.substr(0, name.find('.'))).generations)
        result.push_back(generation.first);
    return result;
}

/// The names of fields, with what stands before a value.
Words fieldsOf(const Verb& verb, const std::string& name, std::string generation, const std::string& end)
{
    const auto known = generationsOf(name);
    if (generation.empty() && !known.empty())
        generation = known.front();
    const auto shape = commandShape(name, suffixOf(verb), generation);
    Words result;
    for (const auto& field : Payload(shape.request, shape.generation).names())
        result.push_back(field + end);
    return result;
}

Words classesWith(const std::string& suffix)
{
    Words result;
    for (const auto& name : commandNames(suffix))
        result.push_back(name.substr(0, name.find('.')));
    return result;
}

/// Without those of several generations, whose names have blanks.
Words moduleNames()
{
    Words result;
    for (const auto& part : allParts())
        result.push_back(part.reader.commandClass.name);
    return result;
}

/// What the words before the last one say.
struct Line
{
    explicit Line(const Words& before)
    {
        for (const auto& word : before)
        {
            const auto equals = word.find('=');
            if (!open.empty())
                valueTake(std::exchange(open, {}), word);
            else if (word.rfind("--", 0) != 0)
                words.push_back(word);
            else if (equals != std::string::npos)
                valueTake(word.substr(2, equals - 2), word.substr(equals + 1));
            else if (hasValue(word.substr(2)))
                open = word.substr(2);
        }
    }

    static bool hasValue(const std::string& name)
    {
        const auto& options = allOptions();
        return std::any_of(options.begin(), options.end(),
                           [&](const auto& option) { return option.name == name && !option.value.empty(); });
    }

    void valueTake(const std::string& option, const std::string& value)
    {
        if (option == "generation")
            generation = value;
    }

    Words words; ///< that are no options
    std::string generation;
    std::string open; ///< the option whose value comes next
};

Words optionValues(const std::string& option, const std::string& className)
{
    if (option == "generation" && !className.empty())
        return generationsOf(className);
    if (option == "only")
        return moduleNames();
    if (option == "lock")
        return {"ae", "af", "awb"};
    return option == "type" || option == "capture" ? pictureTypes() : Words();
}

/// With what is typed of them already: `start`, and of a list all but its last element.
Words optionWords(const std::string& option, const std::string& className, const std::string& start,
                  const std::string& typed)
{
    const auto comma = typed.rfind(',');
    const auto before = comma == std::string::npos ? start : start + typed.substr(0, comma + 1);
    auto values = optionValues(option, className);
    for (auto& value : values)
        value.insert(0, before);
    return values;
}

/// What may follow the words before the last one.
Words candidates(const Words& before, const std::string& last)
{
    const Line line(before);
    const auto* pVerb = verbOf(line.words);
    const auto count = !pVerb || pVerb->name.find(' ') == std::string::npos ? std::size_t(1) : std::size_t(2);
    const auto name = line.words.size() > count ? line.words[count] : std::string();
    if (!line.open.empty())
        return optionWords(line.open, name, {}, last);
    if (const auto equals = last.find('='); last.rfind("--", 0) == 0 && equals != std::string::npos)
        return optionWords(last.substr(2, equals - 2), name, last.substr(0, equals + 1), last.substr(equals + 1));
    if (last.rfind('-', 0) == 0)
        return pVerb ? optionsOf(*pVerb) : optionNames();
    if (!pVerb)
        return verbWords(line.words);
    const bool isSweep = pVerb->name == "sweep";
    const bool isNamed = pVerb->name == "get" || pVerb->name == "set" || pVerb->name == "call" || isSweep;
    if (isNamed)
        return name.empty() ? commandNames(suffixOf(*pVerb))
                            : fieldsOf(*pVerb, name, line.generation, isSweep ? "" : "=");
    if (pVerb->name == "list")
        return commandNames({});
    return pVerb->name.rfind("table", 0) == 0 && name.empty() ? classesWith("tableGet") : Words();
}
} // namespace

void completion(Session& session) { session.out << script; }

void complete(Session& session)
{
    auto before = session.options.words;
    const auto last = before.empty() ? std::string() : before.back();
    if (!before.empty())
        before.pop_back();
    auto found = candidates(before, last);
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    for (const auto& candidate : found)
        if (candidate.rfind(last, 0) == 0)
            session.out << candidate << '\n';
}
} // namespace tool
