#include "tuning-tool/source/session.h"

#include "tuning-common/source/file-system.h"
#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-common/source/no-answer.h"
#include "tuning-common/source/text.h"
#include "tuning-tool/source/board-address.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/fresh-directory.h"
#include "tuning-tool/source/local-file.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-transfer/source/transfer-client.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace tool
{
namespace
{
namespace limit = t_common::limit;
namespace fs = std::filesystem;

std::string shown(const std::string& text) { return t_common::printable(text, limit::statusBarText); }

Json::Value queryOf(const CommandShape& shape, const Payload& payload)
{
    auto jQuery = payload.travelling();
    const auto jEnvelope = shape.envelope();
    for (const auto& name : jEnvelope.getMemberNames())
        jQuery[name] = jEnvelope[name];
    return jQuery;
}

/// The board's own verdict on a command.
void judge(const CommandShape& shape, const Json::Value& jAnswer)
{
    const auto& jError = jAnswer["error"];
    const auto& jMessage = jAnswer["message"];
    if (!(jError.isNull() || jError.isInt64()) || !(jMessage.isNull() || jMessage.isString()))
        throw Failure(Unreadable, "The answer to " + shape.name() + " has an error or a message of the wrong type");
    const auto message = jMessage.asString();
    if (jError.asInt64() == 0 || message == "REST SIMULATE ON")
        return;
    throw Failure(Refused, shape.name() + ": " + (message.empty() ? "refused without a reason" : shown(message)));
}

std::string hexText(const std::string& bytes)
{
    constexpr auto digits = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : bytes)
        text += {digits[byte >> 4], digits[byte & 15]};
    return text;
}

/// What the transport tells on standard error only.
class Complaints
{
public:
    Complaints() : pBefore(std::cerr.rdbuf(text.rdbuf())) {}
    ~Complaints() { std::cerr.rdbuf(pBefore); }
    Complaints(const Complaints&) = delete;
    Complaints& operator=(const Complaints&) = delete;

    std::string get() const { return text.str(); }

private:
    std::ostringstream text;
    std::streambuf* pBefore;
};
} // namespace

// A board takes "?" and the like for the end of an address and decodes "%41": it would find another file.
void nameCheck(const std::string& name, const std::string& ends, Exit code)
{
    const auto isHex = [&](std::size_t i)
    { return i < name.size() && std::isxdigit(static_cast<unsigned char>(name[i])); };
    for (std::size_t i = 0; i < name.size(); ++i)
        if (ends.find(name[i]) != std::string::npos || (name[i] == '%' && isHex(i + 1) && isHex(i + 2)))
            throw Failure(code, "\"" + shown(name) + "\" can't be named to the board, \"" + name[i] +
                                    "\" has a meaning of its own");
}

Session::Session(Options options_, std::ostream& out_) : options(std::move(options_)), out(out_) {}

Session::~Session() = default;

t_transfer::ClientHolder& Session::holder()
{
    if (!pHolder)
    {
        auto jAddress = boardAddress(options);
        const auto report = [isVerbose = options.isVerbose](const std::string& text)
        {
            if (isVerbose)
                std::clog << t_common::printable(text, limit::reportText, t_common::Lines::Many);
        };
        using Holder = t_transfer::ClientHolder;
        pHolder = std::make_unique<Holder>(jAddress["type"] == "uart" ? Holder::Uart : Holder::Http, report, jAddress);
    }
    return *pHolder;
}

std::string Session::boardName() const
{
    const auto jAddress = boardAddress(options);
    const auto& jPort = jAddress["port"];
    return jAddress["type"] == "uart" ? jPort.asString() : jAddress["ip"].asString() + ":" + jPort.asString();
}

void Session::guard(const std::function<void()>& exchange)
{
    try
    {
        exchange();
    }
    catch (const Failure&)
    {
        throw;
    }
    catch (const t_common::NoAnswer& exception)
    {
        throw Failure(NoAnswer, shown(exception.what()));
    }
    catch (const t_common::LogicError& exception)
    {
        throw Failure(NoAnswer, shown(exception.what()));
    }
    catch (const std::exception& exception)
    {
        throw Failure(Unreadable, shown(exception.what()));
    }
}

Json::Value Session::ask(const CommandShape& shape, const Payload& payload)
{
    Json::Value jAnswer;
    guard([&] { holder().request(queryOf(shape, payload), jAnswer, shape.timeout()); });
    judge(shape, jAnswer);
    return jAnswer;
}

std::optional<Json::Value> Session::send(const CommandShape& shape, const Payload& payload)
{
    payload.wholeCheck();
    if (!options.isDryRun)
        return ask(shape, payload);
    dryPrint(queryOf(shape, payload), payload);
    return {};
}

void Session::dryPrint(const Json::Value& jQuery, const Payload& payload)
{
    Json::Value jRecords(Json::objectValue);
    for (const auto& [name, bytes] : payload.records())
        if (jQuery.isMember(name))
            jRecords[name] = hexText(bytes);
    if (options.isJson)
    {
        Json::Value jDry;
        jDry["request"] = jQuery;
        jDry["records"] = jRecords;
        return jsonPrint(jDry);
    }
    out << t_common::JsonApp::toString(sound(jQuery), "") << '\n';
    constexpr std::size_t line = 16;
    for (const auto& name : jRecords.getMemberNames())
    {
        const auto hex = jRecords[name].asString();
        out << name << ", " << hex.size() / 2 << " bytes\n";
        for (std::size_t i = 0; i < hex.size(); i += 2)
        {
            if (i % (2 * line) == 0)
                out << (i > 0 ? "\n" : "") << "  ";
            else
                out << ' ';
            out << hex.substr(i, 2);
        }
        out << '\n';
    }
}

bool Session::showsFile(const std::string& operation, const std::string& name)
{
    if (options.isDryRun && options.isJson)
    {
        Json::Value jDry;
        jDry["request"]["function"] = operation;
        jDry["request"]["path"] = name;
        jDry["records"] = Json::Value(Json::objectValue);
        jsonPrint(jDry);
    }
    else if (options.isDryRun)
        out << operation << ' ' << t_common::printable(name, limit::listText) << '\n';
    return options.isDryRun;
}

std::string Session::download(const std::string& boardName)
{
    filesNeed();
    std::string name;
    guard([&] { name = t_common::FileSystem::localNameGet(boardName); });
    if (name[0] == '.')
        throw Failure(Unreadable, shown(name) + " would be a hidden file");
    nameCheck(boardName, "?#", Unreadable);
    const auto path = options.directory + "/" + name;
    placeCheck(path);
    // A symbolic link stays one: its file is replaced.
    std::error_code error;
    const auto linked = fs::canonical(path, error);
    const auto target = error ? fs::path(path) : linked;
    const FreshDirectory fresh(target.parent_path());
    const auto arrived = fileFetch(boardName, fresh.path());
    placeCheck(path);
    if (const auto status = fs::status(target, error); fs::exists(status))
        fs::permissions(arrived, status.permissions(), error);
    fs::rename(arrived, target, error);
    if (error)
        throw Failure(LocalFile, "Saving of " + path + " failed: " + error.message());
    return path;
}

void Session::placeCheck(const std::string& path) const
{
    std::error_code error;
    if (!fs::exists(fs::symlink_status(path, error)))
        return;
    if (!options.isForced)
        throw Failure(LocalFile, path + " is there already; --force replaces it");
    if (!fs::is_regular_file(path, error))
        throw Failure(LocalFile, path + " is no file that can be replaced");
}

std::string Session::fileFetch(const std::string& boardName, const std::string& directory)
{
    Json::Value jFile;
    jFile["path"] = boardName;
    jFile["path.local"] = directory;
    const Complaints complaints;
    guard([&] { holder().fileDownload(jFile); });
    const auto path = directory + "/" + t_common::FileSystem::localNameGet(boardName);
    std::error_code error;
    const auto size = fs::file_size(path, error);
    if (error || size == 0 || !complaints.get().empty())
        throw Failure(LocalFile, "Saving of " + shown(boardName) + " failed. " + shown(complaints.get()));
    // The transport ends a file with a line feed that is none of the board's.
    fs::resize_file(path, size - 1, error);
    if (error)
        throw Failure(LocalFile, "Saving of " + shown(boardName) + " failed: " + error.message());
    return path;
}

void Session::filesNeed() const
{
    if (boardAddress(options)["type"] == "uart")
        throw Failure(NoAnswer, "Files do not travel on a serial line");
    std::error_code error;
    if (!fs::is_directory(options.directory, error))
        throw Failure(LocalFile, options.directory + " is no directory");
}

void Session::upload(const std::string& path)
{
    filesNeed();
    std::error_code error;
    if (!fs::is_regular_file(path, error) || !std::ifstream(path))
        throw Failure(LocalFile, path + " is no file that can be read");
    nameCheck(t_common::FileSystem::filenameGetFromPath(path), "#&");
    Json::Value jFile;
    jFile["path"] = path;
    const Complaints complaints;
    guard([&] { holder().fileUpload(jFile); });
    if (!complaints.get().empty())
        throw Failure(NoAnswer, "Upload of " + path + " failed: " + shown(complaints.get()));
}

bool Session::isOnBoard(const std::string& path)
{
    std::error_code error;
    const auto directory = fs::temp_directory_path(error);
    if (error)
        throw Failure(LocalFile, "There is no directory for temporary files");
    const FreshDirectory fresh(directory);
    const auto copy = fileFetch(t_common::FileSystem::filenameGetFromPath(path), fresh.path());
    return isSameFile(copy, path);
}

void Session::columnsPrint(const std::vector<std::vector<std::string>>& rows)
{
    // In characters: a byte that goes on with one has no width.
    const auto width = [](const std::string& text)
    {
        return static_cast<std::size_t>(
            std::count_if(text.begin(), text.end(), [](unsigned char c) { return (c & 0xc0) != 0x80; }));
    };
    // One long text must not push the column behind it off the screen.
    constexpr std::size_t widest = 60;
    std::vector<std::size_t> widths;
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
        {
            widths.resize(std::max(widths.size(), i + 1));
            widths[i] = std::max(widths[i], std::min(width(row[i]), widest));
        }
    for (const auto& row : rows)
    {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
        {
            line += row[i];
            const auto wide = width(row[i]);
            line += std::string(wide < widths[i] ? widths[i] - wide + 2 : 2, ' ');
        }
        line.resize(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
}

void Session::jsonPrint(const Json::Value& value) { out << t_common::JsonApp::toString(sound(value), "  ") << '\n'; }
} // namespace tool
