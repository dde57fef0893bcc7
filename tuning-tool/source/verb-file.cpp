#include "tuning-common/source/file-system.h"
#include "tuning-common/source/limits.h"
#include "tuning-tool/source/camera.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/nearest.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

#include <QDateTime>

#include <algorithm>
#include <functional>
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

/// Does it for one name after the other and tells what `fDo` gives, if anything: to people at once, since a later one
/// may fail; to programs in one list, then as well.
void tellEach(Session& session, const std::vector<std::string>& names, const char* done,
              const std::function<std::string(const std::string&)>& fDo)
{
    const auto& options = session.options;
    Json::Value jDone(Json::arrayValue);
    try
    {
        for (const auto& name : names)
        {
            const auto text = fDo(name);
            if (text.empty())
                continue;
            jDone.append(text);
            if (!options.isJson)
                session.out << done << valueText(text) << '\n';
        }
    }
    catch (const Failure&)
    {
        if (options.isJson && !jDone.empty())
            session.jsonPrint(jDone);
        throw;
    }
    if (options.isJson && !options.isDryRun)
        session.jsonPrint(jDone);
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

/// The transport takes whatever a board says of a file that it has not for the file.
void presenceCheck(Session& session, const std::string& name)
{
    const auto dot = name.rfind('.');
    const auto names = filesOf(session, dot == std::string::npos ? std::string() : name.substr(dot + 1));
    if (names && std::find(names->begin(), names->end(), name) == names->end())
        throw Failure(Refused, "The board lists no file \"" + valueText(name) + "\"" + meantText(name, *names));
}

/// Whatever a board answers to an upload, also that it refuses it, means nothing: only the file itself tells.
void uploadCheck(Session& session, const std::string& path)
{
    const auto name = t_common::FileSystem::filenameGetFromPath(path);
    presenceCheck(session, name);
    bool isKept = false;
    try
    {
        isKept = session.isOnBoard(path);
    }
    catch (const Failure& failure)
    {
        throw Failure(failure.code, path + " is sent, but was not read back: " + failure.what());
    }
    if (!isKept)
        throw Failure(Other, "The board has another file \"" + valueText(name) + "\" than was sent");
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
    tellEach(session, names, "", [](const auto& name) { return name; });
}

void fileGet(Session& session)
{
    const auto fGet = [&](const std::string& name)
    {
        if (session.showsFile("download", name))
            return std::string();
        presenceCheck(session, name);
        return session.download(name);
    };
    tellEach(session, session.options.words, "", fGet);
}

void filePut(Session& session)
{
    const auto fPut = [&](const std::string& path)
    {
        if (session.showsFile("upload", path))
            return std::string();
        session.upload(path);
        uploadCheck(session, path);
        return path;
    };
    tellEach(session, session.options.words, "sent ", fPut);
}

void fileRemove(Session& session)
{
    const auto shape = commandShape("FileSystem.remove", {}, {});
    const auto fRemove = [&](const std::string& name)
    {
        nameCheck(name, "?#");
        return session.send(shape, payloadOf(shape, {{"path", name}})) ? name : std::string();
    };
    tellEach(session, session.options.words, "removed ", fRemove);
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
    std::vector<std::string> names;
    for (int i = 1; i <= options.frames; ++i)
        names.push_back(options.type + "_" + stamp + (options.frames > 1 ? "_" + std::to_string(i) : ""));
    tellEach(session, names, "", [&](const auto& name) { return pictureTake(session, options.type, name, locks); });
}
} // namespace tool
