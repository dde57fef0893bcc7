#include "tuning-transfer/source/transfer-client.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-transfer/source/http/http-client.h"
#include "tuning-transfer/source/uart/uart-client.h"

#include <stdexcept>

namespace t_transfer
{
namespace
{
constexpr auto sent = "[Client] >>> ";
constexpr auto received = "[Client] <<< ";
} // namespace

ClientHolder::ClientHolder(Type type, std::function<void(const std::string&)> fReport, Json::Value& jConfig)
{
    switch (static_cast<int>(type))
    {
    case Http:
        pAbstract = std::make_unique<http::Client>(jConfig);
        break;
    case Usb:
        return;
    case Uart:
        pAbstract = std::make_unique<uart::Client>(jConfig);
        break;
    default:
        throw "Unknow transfer type: type(" + std::to_string(type) + ")\n";
    }
    pAbstract->reportSet(std::move(fReport));
}

abstract::Client& ClientHolder::abstract()
{
    if (pAbstract == nullptr)
        throw std::logic_error("Abstract is never initialized");
    return *pAbstract;
}

ClientHolder& ClientHolder::configGet(Json::Value& jConfig)
{
    abstract().configGet(jConfig);
    report(sent, jConfig);
    return *this;
}

ClientHolder& ClientHolder::configSet(const Json::Value& jConfig)
{
    report(received, jConfig);
    abstract().configSet(jConfig);
    return *this;
}

ClientHolder& ClientHolder::fileDownload(Json::Value& jQuery, const Patience& patience)
{
    report(sent, jQuery);
    abstract().fileDownload(jQuery, patience);
    return *this;
}

ClientHolder& ClientHolder::fileUpload(const Json::Value& jQuery)
{
    report(sent, jQuery);
    abstract().fileUpload(jQuery);
    return *this;
}

ClientHolder& ClientHolder::info()
{
    abstract().info();
    return *this;
}

ClientHolder& ClientHolder::request(const Json::Value& jQuery, Json::Value& jResponse, std::int32_t timeout)
{
    report(sent, jQuery);
    abstract().request(jQuery, jResponse, timeout);
    report(received, jResponse);
    return *this;
}

ClientHolder& ClientHolder::request(const Json::Value& jQuery, const std::function<void(Json::Value)>& fComplete,
                                    std::int32_t timeout)
{
    report(sent, jQuery);
    const auto fReportAndComplete = [&](const Json::Value& jResponse)
    {
        report(received, jResponse);
        fComplete(jResponse);
    };
    abstract().request(jQuery, fReportAndComplete, timeout);
    return *this;
}

ClientHolder& ClientHolder::textRead(std::string& text)
{
    abstract().textRead(text);
    report(received, text);
    return *this;
}

ClientHolder& ClientHolder::textWrite(const std::string& text)
{
    report(sent, text);
    abstract().textWrite(text);
    return *this;
}

void ClientHolder::report(const char* pPrefix, const Json::Value& value)
{
    abstract();
    report(pPrefix, t_common::JsonApp::toString(value, "  "));
}

void ClientHolder::report(const char* pPrefix, const std::string& text)
{
    const bool isLong = text.size() > t_common::limit::reportText;
    abstract().report << pPrefix
                      << (isLong ? text.substr(0, t_common::limit::reportText) + "... (" + std::to_string(text.size()) +
                                       " bytes)"
                                 : text)
                      << '\n';
}
} // namespace t_transfer
