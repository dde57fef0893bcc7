#pragma once

#include "tuning-transfer/source/abstract/abstract-client.h"

namespace t_transfer::http
{
/// Commands and files over HTTP, each on a connection of its own. Making a client touches no network: an address that
/// is wrong shows at the first command.
class Client : public abstract::Client
{
public:
    /// Takes the keys `ip` and `port`.
    explicit Client(Json::Value& jConfig);

    Client& configGet(Json::Value& jConfig) override;
    Client& configSet(const Json::Value& jConfig) override;

    /// Stores the board's file `path` in the directory `path.local`, a line feed behind it. The file is whole or as it
    /// was before, empty when it is new. Throws `t_common::NoAnswer` when the board does not send it whole and
    /// `std::runtime_error` for other failures; a file that can't be created is only told on standard error.
    Client& fileDownload(const Json::Value& jQuery, const Patience& patience = {}) override;

    /// Sends the local file `path`. How the exchange ends is only told on standard error.
    Client& fileUpload(const Json::Value& jQuery, const Patience& patience = {}) override;

    /// Posts a command; `timeout` bounds the exchange from resolving the name to the last byte. Throws
    /// `t_common::NoAnswer` without an answer and `std::runtime_error` for one that is no JSON object.
    Client& request(const Json::Value& jQuery, Json::Value& jResponse, std::int32_t timeout) override;

    /// As above, but `fComplete` runs on a worker thread that ends before this returns. An answer that can't be read
    /// reaches it with `error` and `message`; an exchange that brings nothing does not reach it. What it throws is
    /// thrown here.
    Client& request(const Json::Value& jQuery, const std::function<void(Json::Value)>& fComplete,
                    std::int32_t timeout) override;

    /// The name under which the file of a URL is stored: its last component, or "index.html".
    static std::string filenameGetFromUrl(const std::string& url);

private:
    std::string ip;
    std::string port;
};
} // namespace t_transfer::http
