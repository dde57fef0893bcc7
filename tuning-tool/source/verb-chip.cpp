#include "tuning-common/source/page-names.h"
#include "tuning-tool/source/chip-check.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

#include <map>

namespace tool
{
void chipCheck(Session& session)
{
    Json::Value jFindings(Json::arrayValue);
    std::map<std::string, std::string> files; // by the chip's name
    const auto tell = [&](const std::string& path, const Finding& finding)
    {
        Json::Value jFinding;
        jFinding["file"] = path;
        jFinding["line"] = static_cast<Json::Int64>(finding.line);
        jFinding["text"] = finding.text;
        if (!session.options.isJson)
            session.out << valueText(path) << ':' << (finding.line > 0 ? std::to_string(finding.line) + ": " : " ")
                        << finding.text << '\n';
        jFindings.append(std::move(jFinding));
    };
    // A file that can't be read tells nothing of the others.
    std::string unread;
    for (const auto& path : session.options.words)
    {
        ChipReport report;
        try
        {
            report = chipReport(path);
        }
        catch (const Failure& failure)
        {
            unread += (unread.empty() ? "" : "\n") + std::string(failure.what());
            continue;
        }
        for (const auto& finding : report.findings)
            tell(path, finding);
        const auto [found, isNew] = files.emplace(report.chipName, path);
        if (!isNew && !report.chipName.empty())
            tell(path, {0, "has the ChipName of " + found->second + ": one of the two is not in the menu"});
    }
    if (session.options.isJson)
        session.jsonPrint(jFindings);
    if (!unread.empty())
        throw Failure(LocalFile, unread);
    if (!jFindings.empty())
        throw Failure(Refused, std::to_string(jFindings.size()) + (jFindings.size() == 1 ? " finding" : " findings"));
}

void chipPages(Session& session)
{
    Json::Value jNames(Json::arrayValue);
    for (const auto& name : t_common::pageNames)
        if (session.options.isJson)
            jNames.append(std::string(name));
        else
            session.out << name << '\n';
    if (session.options.isJson)
        session.jsonPrint(jNames);
}
} // namespace tool
