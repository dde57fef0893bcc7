#include "tuning-transfer/source/http/http-client.h"

#include "tuning-common/source/file-system.h"
#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-transfer/source/abstract/answer.h"
#include "tuning-transfer/source/http/download-file.h"
#include "tuning-transfer/source/http/exchange.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <thread>

namespace t_transfer::http
{
namespace
{
namespace limit = t_common::limit;

void print(const std::string& text)
{
    std::cout << t_common::printable(text, std::string::npos, t_common::Lines::Many) + '\n';
}

/// For failures that the caller must not see.
void complain(const std::string& text) { std::cerr << t_common::printable(text) + '\n'; }

/// The fields and their order are what boards have been sent from the first day on.
std::string headGet(const std::string& method, const Url& url, const std::string& contentFields = {})
{
    return method + " " + url.requestTarget() + " HTTP/1.1\r\n" + contentFields + "Host: " + url.authority() +
           "\r\n"
           "Accept: */*\r\n"
           "Accept-Encoding: identity;q=1.0, *;q=0\r\n"
           "Connection: Close\r\n"
           "\r\n";
}

std::string contentFieldsGet(std::uint64_t size, const std::string& type)
{
    const auto typeField = "Content-Type: " + type + "\r\n";
    return size > 0 ? "Content-Length: " + std::to_string(size) + "\r\n" + typeField : typeField;
}

Json::Value failureGet(const std::string& message)
{
    Json::Value jResponse;
    jResponse["error"] = 1;
    jResponse["message"] = message;
    return jResponse;
}

/// A command on its way: prints what is sent, collects the answer.
class Command
{
public:
    Command(const std::string& ip, const std::string& port, const Json::Value& jQuery, std::int32_t timeout)
        : exchange{Url(ip, port, "/" + jQuery["path"].asString()), {}, {}, {}, limit::httpBody}, span(timeout)
    {
        const auto bodyString = t_common::JsonApp::toString(jQuery, "");
        print("[" + exchange.url.text() + "] <<< " + bodyString);
        exchange.request =
            headGet("POST", exchange.url, contentFieldsGet(bodyString.size(), "application/json")) + bodyString;
        exchange.fSink = [this](const char* pData, std::size_t size) { answer.append(pData, size); };
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    void run() { exchange.run(TimeLimit::whole(span)); }
    void answerPrint() const { print("[" + exchange.url.text() + "] >>> " + answer); }

    std::string answer;

private:
    Exchange exchange;
    std::chrono::seconds span;
};
} // namespace

Client::Client(Json::Value& jConfig_) : abstract::Client(jConfig_) { configSet(jConfig_); }

Client& Client::configGet(Json::Value& j)
{
    j["ip"] = ip;
    j["port"] = port;
    return *this;
}

Client& Client::configSet(const Json::Value& j)
{
    ip = j["ip"].asString();
    port = j["port"].asString();
    return *this;
}

Client& Client::request(const Json::Value& jQuery, Json::Value& jResponse, std::int32_t timeout)
{
    Command command(ip, port, jQuery, timeout);
    command.run();
    jResponse = abstract::answerGet(command.answer);
    command.answerPrint();
    return *this;
}

Client& Client::request(const Json::Value& jQuery, const std::function<void(Json::Value)>& fComplete,
                        std::int32_t timeout)
{
    Command command(ip, port, jQuery, timeout);
    std::exception_ptr pThrown;
    failure.clear();
    std::thread worker(
        [&]
        {
            try
            {
                command.run();
            }
            catch (const std::exception& exception)
            {
                failure = exception.what();
                complain(failure);
            }
            if (command.answer.empty())
            {
                failure = failure.empty() ? "the answer is empty" : failure;
                return;
            }
            try
            {
                command.answerPrint();
                Json::Value jResponse;
                try
                {
                    jResponse = failure.empty() ? abstract::answerGet(command.answer) : failureGet(failure);
                }
                catch (const std::exception& exception)
                {
                    jResponse = failureGet(exception.what());
                }
                fComplete(jResponse);
            }
            catch (...)
            {
                pThrown = std::current_exception();
            }
        });
    worker.join();
    if (pThrown)
        std::rethrow_exception(pThrown);
    return *this;
}

Client& Client::fileDownload(const Json::Value& jQuery, const Patience& patience)
{
    failure.clear();
    const Url url(ip, port, "/" + jQuery["path"].asString());
    print(url.text());
    auto filename = t_common::FileSystem::localNameGet(filenameGetFromUrl(url.text()));
    const auto localPath = jQuery["path.local"].asString();
    if (!localPath.empty())
        filename = localPath + "/" + filename;
    print("Saving to: " + filename);
    DownloadFile file(filename);
    if (!file.isOpen())
        complain("Saving of \"" + filename + "\" failed: the file can't be created");
    const auto fSink = [&](const char* pData, std::size_t size) { file.write(pData, size); };
    Exchange{url, headGet("GET", url), {}, fSink, limit::httpFile}.run(TimeLimit::silence(patience));
    file.write("\n", 1);
    file.commit();
    return *this;
}

Client& Client::fileUpload(const Json::Value& jQuery, const Patience& patience)
{
    failure.clear();
    const auto path = jQuery["path"].asString();
    const Url url(ip, port,
                  "/upload?path=" + jQuery["path.remote"].asString() +
                      "&filename=" + t_common::FileSystem::filenameGetFromPath(path));
    print(url.text());
    print("Loading from: " + path);
    // Opening a pipe would block, and only a regular file has a size.
    std::error_code error;
    auto left = std::filesystem::file_size(path, error);
    std::ifstream stream;
    if (!error)
        stream.open(path, std::ios::binary);
    if (!stream.is_open())
    {
        complain("Loading from \"" + path + "\" failed: the file can't be read");
        left = 0;
    }
    const auto fSource = [&](char* pData, std::size_t size) -> std::size_t
    {
        const auto count = static_cast<std::size_t>(std::min<std::uintmax_t>(size, left));
        if (!stream.read(pData, static_cast<std::streamsize>(count)))
            throw std::runtime_error("Loading from \"" + path + "\" failed: the file has become shorter");
        left -= count;
        return count;
    };
    Exchange exchange{url,
                      headGet("POST", url, contentFieldsGet(left, "x-application/octet-stream")),
                      {},
                      [](const char*, std::size_t) {},
                      limit::httpBody};
    if (left > 0)
        exchange.fSource = fSource;
    try
    {
        exchange.run(TimeLimit::silence(patience));
    }
    catch (const std::exception& exception)
    {
        complain(exception.what());
    }
    return *this;
}

std::string Client::filenameGetFromUrl(const std::string& url)
{
    const auto scheme = url.find("://");
    const auto begin = scheme == std::string::npos ? 0 : scheme + 3;
    const auto end = url.find_first_of("?#", begin);
    const auto slash = url.find('/', begin);
    const auto path = slash < end ? url.substr(slash, end - slash) : std::string();
    const auto name = path.substr(path.rfind('/') + 1);
    return name.empty() ? "index.html" : name;
}
} // namespace t_transfer::http
