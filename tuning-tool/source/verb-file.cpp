#include "tuning-common/source/file-system.h"
#include "tuning-common/source/limits.h"
#include "tuning-tool/source/camera.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/nearest.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

#include <QDateTime>

#include <algorithm>
#include <map>

namespace tool
{
namespace
{
/// A request of plain texts and numbers.
Payload payloadOf(const CommandShape& shape, const std::vector<std::pair<std::string, std::string>>& values)
{
    Payload payload(shape.request, shape.generation);
    for (const auto& [name, value] : values)
        payload.set(name, value);
    return payload;
}

/// The set of bits for "af,ae,awb"; throws `Failure`.
unsigned lockBits(std::string names)
{
    const std::map<std::string, unsigned> bits{{"af", 1}, {"ae", 2}, {"awb", 4}};
    unsigned locks = 0;
    while (!names.empty())
    {
        const auto comma = names.find(',');
        const auto name = names.substr(0, comma);
        if (bits.count(name) == 0)
            throw Failure(Usage, "\"" + name + "\" can't be locked, but af, ae and awb");
        locks |= bits.at(name);
        names = comma == std::string::npos ? std::string() : names.substr(comma + 1);
    }
    return locks;
}

void printPaths(Session& session, const std::vector<std::string>& paths)
{
    Json::Value jPaths(Json::arrayValue);
    for (const auto& path : paths)
        if (session.options.isJson)
            jPaths.append(path);
        else
            session.out << valueText(path) << '\n';
    if (session.options.isJson)
        session.jsonPrint(jPaths);
}

/// A file that has arrived: told at once, since a later one may fail; to programs in one list.
void pathTell(Session& session, std::vector<std::string>& paths, const std::string& path)
{
    paths.push_back(path);
    if (!session.options.isJson)
        printPaths(session, {path});
}

/// The board's files of that extension; nothing in a dry run.
std::optional<std::vector<std::string>> filesOf(Session& session, const std::string& extension)
{
    const auto shape = commandShape("FileSystem.list", {}, {});
    const auto jAnswer = session.send(shape, payloadOf(shape, {{"file.extension", extension}, {"path", "."}}));
    if (!jAnswer)
        return {};
    Payload answer(shape.answer, {});
    answer.take(*jAnswer);
    const auto& jNames = (*jAnswer)["file.list"];
    if (jNames.size() > t_common::limit::listElements)
        throw Failure(Unreadable, "The board lists too many files");
    std::vector<std::string> names;
    for (const auto& jName : jNames)
    {
        if (!jName.isString())
            throw Failure(Unreadable, "The board lists a name that is no text");
        names.push_back(jName.asString());
    }
    return names;
}

/// The transport takes whatever a board says of a file that it has not for the file, and does not tell of an upload
/// that the board refused.
void presenceCheck(Session& session, const std::string& name)
{
    const auto dot = name.rfind('.');
    const auto names = filesOf(session, dot == std::string::npos ? std::string() : name.substr(dot + 1));
    if (names && std::find(names->begin(), names->end(), name) == names->end())
        throw Failure(Refused, "The board lists no file \"" + valueText(name) + "\"" + meantText(name, *names));
}
} // namespace

void fileList(Session& session)
{
    // What the window asks for: settings, pictures, sensor drivers.
    const auto extensions =
        session.options.words.empty() ? std::vector<std::string>{"xml", "pgm", "drv"} : session.options.words;
    std::vector<std::string> names;
    for (const auto& extension : extensions)
        if (const auto found = filesOf(session, extension))
            names.insert(names.end(), found->begin(), found->end());
    if (!session.options.isDryRun)
        printPaths(session, names);
}

void fileGet(Session& session)
{
    std::vector<std::string> paths;
    for (const auto& name : session.options.words)
    {
        if (session.showsFile("download", name))
            continue;
        presenceCheck(session, name);
        pathTell(session, paths, session.download(name));
    }
    if (session.options.isJson && !session.options.isDryRun)
        printPaths(session, paths);
}

void filePut(Session& session)
{
    for (const auto& path : session.options.words)
        if (!session.showsFile("upload", path))
        {
            session.upload(path);
            presenceCheck(session, t_common::FileSystem::filenameGetFromPath(path));
            session.out << "sent " << valueText(path) << '\n';
        }
}

void fileRemove(Session& session)
{
    const auto shape = commandShape("FileSystem.remove", {}, {});
    for (const auto& name : session.options.words)
    {
        nameCheck(name, "?#");
        if (session.send(shape, payloadOf(shape, {{"path", name}})))
            session.out << "removed " << valueText(name) << '\n';
    }
}

void capture(Session& session)
{
    constexpr int most = 1000;
    const auto& options = session.options;
    const auto locks = lockBits(options.lock);
    if (options.frames < 1 || options.frames > most)
        throw Failure(Usage, "--frames is a number from 1 to " + std::to_string(most));
    // All of a run have one time in their names: two of them may be taken in one second.
    const auto stamp = QDateTime::currentDateTime().toString("yyyyMMdd_hhmmss").toStdString();
    std::vector<std::string> paths;
    for (int i = 1; i <= options.frames; ++i)
    {
        const auto number = options.frames > 1 ? "_" + std::to_string(i) : std::string();
        const auto path = pictureTake(session, options.type, options.type + "_" + stamp + number, locks);
        if (!options.isDryRun)
            pathTell(session, paths, path);
    }
    if (options.isJson && !options.isDryRun)
        printPaths(session, paths);
}
} // namespace tool
