#include "tests/transfer/captured.h"
#include "tests/transfer/raw-peer.h"
#include "tuning-common/source/limits.h"
#include "tuning-transfer/source/transfer-client.h"

#include <gtest/gtest.h>

using t_transfer::ClientHolder;

namespace
{
/// A holder of the HTTP transport that keeps its reports.
struct Subject
{
    explicit Subject(unsigned short port)
    {
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = port;
        pHolder = std::make_unique<ClientHolder>(
            ClientHolder::Http, [this](const std::string& text) { reports.push_back(text); }, jConfig);
    }

    Json::Value jConfig;
    std::vector<std::string> reports;
    std::unique_ptr<ClientHolder> pHolder;
};

using Texts = std::vector<std::string>;

const std::string answerHead = "HTTP/1.1 200 OK\r\n\r\n";
} // namespace

TEST(Holder, ReportsWhatGoesAndWhatComes)
{
    const Captured out;
    const RawPeer peer(RawPeer::answering(answerHead + "{\"error\":0}"));
    Subject subject(peer.port);
    Json::Value jQuery;
    jQuery["id"] = 7;
    Json::Value jResponse;
    const Texts expected{"[Client] >>> ", "{\n  \"id\": 7\n}", "\n", "[Client] <<< ", "{\n  \"error\": 0\n}", "\n"};
    subject.pHolder->request(jQuery, jResponse, 5);
    EXPECT_EQ(subject.reports, expected);

    subject.reports.clear();
    Texts reportsBefore;
    subject.pHolder->request(
        jQuery, [&](const Json::Value&) { reportsBefore = subject.reports; }, 5);
    EXPECT_EQ(reportsBefore, expected);
}

TEST(Holder, ReportsNothingBehindAFailure)
{
    const Captured out;
    const RawPeer peer(RawPeer::answering(""));
    Subject subject(peer.port);
    Json::Value jResponse;
    EXPECT_THROW(subject.pHolder->request(Json::objectValue, jResponse, 5), std::logic_error);
    EXPECT_EQ(subject.reports, (Texts{"[Client] >>> ", "{}", "\n"}));
}

TEST(Holder, ReportsTransfersBeforeTheyGo)
{
    const Captured out;
    Subject subject(0);
    Json::Value jQuery;
    jQuery["path"] = "a";
    const Texts expected{"[Client] >>> ", "{\n  \"path\": \"a\"\n}", "\n"};
    EXPECT_THROW(subject.pHolder->fileDownload(jQuery), std::runtime_error);
    EXPECT_EQ(subject.reports, expected);
    subject.reports.clear();
    EXPECT_THROW(subject.pHolder->fileUpload(jQuery), std::runtime_error);
    EXPECT_EQ(subject.reports, expected);
}

TEST(Holder, ReportsConfigurationInItsOwnOrder)
{
    Subject subject(8080);
    Json::Value jConfig;
    subject.pHolder->configGet(jConfig);
    EXPECT_EQ(subject.reports, (Texts{"[Client] >>> ", "{\n  \"ip\": \"127.0.0.1\",\n  \"port\": \"8080\"\n}", "\n"}));
    subject.reports.clear();
    jConfig["ip"] = "10.0.0.1";
    subject.pHolder->configSet(jConfig);
    EXPECT_EQ(subject.reports, (Texts{"[Client] <<< ", "{\n  \"ip\": \"10.0.0.1\",\n  \"port\": \"8080\"\n}", "\n"}));
    subject.pHolder->configGet(jConfig);
    EXPECT_EQ(jConfig["ip"], "10.0.0.1");
}

TEST(Holder, ReportOfALargeValueIsCut)
{
    const Captured out;
    const std::string large(2 * t_common::limit::reportText, 'x');
    const RawPeer peer(RawPeer::answering(answerHead + "{\"a\":\"" + large + "\"}"));
    Subject subject(peer.port);
    Json::Value jResponse;
    subject.pHolder->request(Json::objectValue, jResponse, 5);
    EXPECT_EQ(jResponse["a"].asString().size(), large.size());
    const auto& report = subject.reports.at(4);
    const auto tail = "... (" + std::to_string(large.size() + 13) + " bytes)";
    EXPECT_EQ(report.size(), t_common::limit::reportText + tail.size());
    EXPECT_EQ(report.substr(report.size() - tail.size()), tail);
}

TEST(Holder, WithoutASinkReportsGoToStandardOutput)
{
    const Captured out;
    Json::Value jConfig;
    ClientHolder holder(ClientHolder::Http, {}, jConfig);
    std::string text = "a\x1b"
                       "b\n";
    holder.textRead(text).textWrite(text).info();
    EXPECT_EQ(out.get(), "textReadis not available\n\n[Client] <<< a?b\n\n[Client] >>> a?b\n\n"
                         "textWriteis not available\n\ninfois not available\n\n");
}

TEST(Holder, WhatATransportLacksSaysSo)
{
    const Captured out;
    Json::Value jConfig;
    std::string text;
    t_transfer::abstract::Client client(jConfig);
    client.configGet(jConfig).configSet(jConfig).fileDownload(jConfig).fileUpload(jConfig).info();
    client
        .request(
            jConfig, [](const Json::Value&) { FAIL(); }, 1)
        .request(jConfig, jConfig, 1);
    client.textRead(text).textWrite(text);
    EXPECT_EQ(out.get(),
              "configGetis not available\n\nconfigSetis not available\n\nfileDownloadis not available\n\n"
              "fileUploadis not available\n\ninfois not available\n\nrequestis not available\n\n"
              "requestis not available request\n\ntextReadis not available\n\ntextWriteis not available\n\n");
    EXPECT_EQ(client.failure, "not available on this transport");
}

TEST(Holder, TypesWithoutATransport)
{
    Json::Value jConfig;
    ClientHolder usb(ClientHolder::Usb, {}, jConfig);
    try
    {
        usb.configGet(jConfig);
        ADD_FAILURE();
    }
    catch (const std::logic_error& error)
    {
        EXPECT_STREQ(error.what(), "Abstract is never initialized");
    }
    try
    {
        ClientHolder(ClientHolder::Sum, {}, jConfig);
        ADD_FAILURE();
    }
    catch (const std::string& text)
    {
        EXPECT_EQ(text, "Unknow transfer type: type(3)\n");
    }
}
