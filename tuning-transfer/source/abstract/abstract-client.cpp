#include "tuning-transfer/source/abstract/abstract-client.h"

#include "tuning-common/source/text.h"

#include <iostream>

namespace t_transfer::abstract
{
namespace
{
Client& refuse(Client& client, const char* pOperation)
{
    std::cout << pOperation << "\n" << std::endl;
    return client;
}

constexpr auto notAvailable = "not available on this transport";
} // namespace

Report& Report::operator<<(const std::string& text)
{
    if (fReport)
        fReport(text);
    else
        std::cout << t_common::printable(text, std::string::npos, t_common::Lines::Many);
    return *this;
}

Report& Report::operator<<(char c) { return *this << std::string(1, c); }

Object& Object::reportSet(std::function<void(const std::string&)> fReport)
{
    report.fReport = std::move(fReport);
    return *this;
}

Client& Client::configGet(Json::Value&) { return refuse(*this, "configGetis not available"); }

Client& Client::configSet(const Json::Value&) { return refuse(*this, "configSetis not available"); }

Client& Client::fileDownload(const Json::Value&, const Patience&)
{
    failure = notAvailable;
    return refuse(*this, "fileDownloadis not available");
}

Client& Client::fileUpload(const Json::Value&, const Patience&)
{
    failure = notAvailable;
    return refuse(*this, "fileUploadis not available");
}

Client& Client::info() { return refuse(*this, "infois not available"); }

Client& Client::request(const Json::Value&, Json::Value&, std::int32_t)
{
    return refuse(*this, "requestis not available request");
}

Client& Client::request(const Json::Value&, const std::function<void(Json::Value)>&, std::int32_t)
{
    failure = notAvailable;
    return refuse(*this, "requestis not available");
}

Client& Client::textRead(std::string&) { return refuse(*this, "textReadis not available"); }

Client& Client::textWrite(const std::string&) { return refuse(*this, "textWriteis not available"); }
} // namespace t_transfer::abstract
