#pragma once

#include "tuning-tool/source/command-shape.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/options.h"
#include "tuning-tool/source/payload.h"

#include <json/json.h>

#include <functional>
#include <memory>
#include <optional>
#include <ostream>

namespace t_transfer
{
class ClientHolder;
}

namespace tool
{
/// Names of files travel in the address of an exchange. Throws `Failure` for one that has a meaning of its own there:
/// one of the characters `ends`, or what looks encoded; with the code of whose name it is.
void nameCheck(const std::string& name, const std::string& ends, Exit code = Usage);

/// One run of the program: what it was asked for, where its output goes, and the way to the board, which is opened when
/// it is first needed.
class Session
{
public:
    Session(Options options_, std::ostream& out_);
    ~Session();

    /// "HOST:PORT" or the device of a serial line. Throws `Failure` where none is known.
    std::string boardName() const;

    /// Sends the command and gives the whole answer as it came. Throws `Failure`.
    Json::Value ask(const CommandShape& shape, const Payload& payload);

    /// The same for what a dry run shows instead: nothing comes back then.
    std::optional<Json::Value> send(const CommandShape& shape, const Payload& payload);

    /// Shows the transfer of a file instead of doing it, in a dry run. False otherwise.
    bool showsFile(const std::string& operation, const std::string& name);

    /// Throws `Failure` where the line to the board has no files, or they have nowhere to land, before anything is done
    /// for one.
    void filesNeed() const;

    /// Stores the board's file under its own name in the directory; gives the path. One that is there already stays,
    /// unless `isForced`; and so it does when the transfer fails or is interrupted.
    std::string download(const std::string& boardName);

    /// Sends the file. Whether the board has taken it does not show.
    void upload(const std::string& path);

    /// Whether the board's file of the same name has the same bytes, which are read back.
    bool isOnBoard(const std::string& path);

    /// A table of texts, each column as wide as its widest text.
    void columnsPrint(const std::vector<std::vector<std::string>>& rows);

    /// JSON for programs.
    void jsonPrint(const Json::Value& value);

    const Options options;
    std::ostream& out;

private:
    t_transfer::ClientHolder& holder();
    void guard(const std::function<void()>& exchange);
    void placeCheck(const std::string& path) const;
    std::string fileFetch(const std::string& boardName, const std::string& directory);
    void dryPrint(const Json::Value& jQuery, const Payload& payload);

    std::unique_ptr<t_transfer::ClientHolder> pHolder;
};
} // namespace tool
