#include "tests/support/outcome.h"
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
    explicit Subject(const std::string& answer) : peer(RawPeer::answering(answer)) { jQuery["path"] = "a"; }

    RawPeer peer;
    Json::Value jConfig = peer.config();
    Json::Value jQuery;
    Json::Value jResponse;
    std::vector<std::string> reports;
    ClientHolder holder{ClientHolder::Http, [this](const std::string& text) { reports.push_back(text); }, jConfig};
    Captured out;
};

using Texts = std::vector<std::string>;

const std::string answerHead = "HTTP/1.1 200 OK\r\n\r\n";
const Texts command{"[Client] >>> ", "{\n  \"path\": \"a\"\n}", "\n"};
} // namespace

TEST(Holder, ReportsWhatGoesAndWhatComes)
{
    Subject subject(answerHead + "{\"error\":0}");
    auto expected = command;
    expected.insert(expected.end(), {"[Client] <<< ", "{\n  \"error\": 0\n}", "\n"});
    subject.holder.request(subject.jQuery, subject.jResponse, 5);
    EXPECT_EQ(subject.reports, expected);

    subject.reports.clear();
    Texts reportsBefore;
    subject.holder.request(
        subject.jQuery, [&](const Json::Value&) { reportsBefore = subject.reports; }, 5);
    EXPECT_EQ(reportsBefore, expected);
}

TEST(Holder, ReportsBeforeAnythingGoesAndNothingBehindAFailure)
{
    Subject subject("");
    subject.jConfig["port"] = 0;
    subject.holder.configSet(subject.jConfig);
    const std::function<void()> calls[]{
        [&] { subject.holder.request(subject.jQuery, subject.jResponse, 5); },
        [&] { subject.holder.fileDownload(subject.jQuery); },
        [&] { subject.holder.fileUpload(subject.jQuery); },
    };
    for (const auto& fCall : calls)
    {
        subject.reports.clear();
        EXPECT_THROW(fCall(), std::runtime_error);
        EXPECT_EQ(subject.reports, command);
    }
}

TEST(Holder, ReportsConfigurationInItsOwnOrder)
{
    Subject subject("");
    const auto textOf = [&](const std::string& ip)
    { return "{\n  \"ip\": \"" + ip + "\",\n  \"port\": \"" + std::to_string(subject.peer.port) + "\"\n}"; };
    Json::Value jConfig;
    subject.holder.configGet(jConfig);
    jConfig["ip"] = "10.0.0.1";
    subject.holder.configSet(jConfig);
    subject.holder.configGet(jConfig);
    EXPECT_EQ(subject.reports, (Texts{"[Client] >>> ", textOf("127.0.0.1"), "\n", "[Client] <<< ", textOf("10.0.0.1"),
                                      "\n", "[Client] >>> ", textOf("10.0.0.1"), "\n"}));
}

TEST(Holder, ReportOfALargeValueIsCut)
{
    const std::string large(2 * t_common::limit::reportText, 'x');
    Subject subject(answerHead + "{\"a\":\"" + large + "\"}");
    subject.holder.request(Json::objectValue, subject.jResponse, 5);
    EXPECT_EQ(subject.jResponse["a"].asString().size(), large.size());
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
    EXPECT_EQ(failureOf<std::logic_error>([&] { usb.configGet(jConfig); }), "Abstract is never initialized");
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
