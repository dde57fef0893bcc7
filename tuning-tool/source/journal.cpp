#include "tuning-tool/source/journal.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/local-file.h"

#include <QDir>
#include <QSaveFile>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tool
{
namespace
{
void lineTake(Journal::Entries& entries, const Json::Value& jLine)
{
    entries.open = jLine["sending"].asString();
    if (jLine.isMember("done"))
        entries.sent.push_back(jLine["done"].asString());
    entries.isReturning = entries.isReturning || jLine.isMember("returning");
    entries.isEnded = jLine.isMember("end");
}
} // namespace

Journal::Journal(const std::string& boardName_) : boardName(boardName_)
{
    std::string name;
    for (const unsigned char c : boardName)
        name += std::isalnum(c) || c == '.' || c == '-' ? static_cast<char>(c) : '_';
    path = QDir::homePath().toStdString() + "/.tuning-client/apply-" + name + ".journal";
}

void Journal::lock()
{
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
    pLock = std::make_unique<QLockFile>(QString::fromStdString(path + ".lock"));
    // Only that of a program that is gone is stale, however long an apply takes.
    pLock->setStaleLockTime(0);
    // Where it can't be made, on a full disk, no apply begins either; but a way back is open.
    if (!pLock->tryLock() && pLock->error() == QLockFile::LockFailedError)
        throw Failure(Usage, "Another apply to this board is running");
}

void Journal::begin(const Snapshot& before, std::size_t commands)
{
    Json::Value jHead;
    jHead["commands"] = static_cast<Json::UInt64>(commands);
    jHead["before"] = before.toJson();
    const auto text = t_common::JsonApp::toString(jHead, "") + "\n";
    // Whole or not at all, and on the disk before the first command.
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), static_cast<qint64>(text.size())) < 0 ||
        !file.commit())
        throw Failure(LocalFile, path + " can't be written: " + file.errorString().toStdString());
}

void Journal::append(const char* key, const Json::Value& value)
{
    Json::Value jLine;
    jLine[key] = value;
    std::ofstream file(path, std::ios::app);
    file << t_common::JsonApp::toString(jLine, "") << '\n';
    file.close();
    if (!file)
        throw Failure(LocalFile, path + " can't be written");
}

void Journal::sending(const std::string& command) { append("sending", command); }

void Journal::done(const std::string& command) { append("done", command); }

void Journal::end() { append("end", true); }

void Journal::returning()
{
    try
    {
        append("returning", true);
    }
    catch (const Failure&)
    {
        // A full disk must not stand in the way back.
    }
}

void Journal::remove()
{
    std::error_code error;
    std::filesystem::remove(path, error);
}

bool Journal::isThere() const
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

Journal::Entries Journal::read() const
{
    std::istringstream lines(fileRead(path, 2 * t_common::limit::jsonFile));
    Entries entries;
    std::string line;
    std::getline(lines, line);
    try
    {
        const auto jHead = t_common::JsonApp::fromString(line);
        entries.commands = jHead["commands"].asUInt64();
        entries.before = Snapshot::fromJson(jHead["before"], path);
    }
    catch (const Failure&)
    {
        throw;
    }
    catch (const std::exception& exception)
    {
        throw Failure(LocalFile, path + " can't be read: " + exception.what());
    }
    if (entries.before.head["board"] != boardName)
        throw Failure(LocalFile, path + " is of another board");
    try
    {
        while (std::getline(lines, line))
            lineTake(entries, t_common::JsonApp::fromString(line));
    }
    catch (const std::exception&)
    {
        // The program was killed within its last line.
    }
    return entries;
}

std::string sentText(const Journal::Entries& entries)
{
    std::string text =
        std::to_string(entries.sent.size()) + " of " + std::to_string(entries.commands) + " commands sent";
    for (std::size_t i = 0; i < entries.sent.size(); ++i)
        text += (i == 0 ? ": " : ", ") + entries.sent[i];
    return text + (entries.open.empty() ? "" : "; under way: " + entries.open);
}
} // namespace tool
