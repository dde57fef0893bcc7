#include "tuning-client/source/message-handler.h"

#include <gtest/gtest.h>

TEST(MessageHandler, WritesTheColourOfTheTypeAndNoNewline)
{
    testing::internal::CaptureStdout();
    for (auto type : {QtDebugMsg, QtInfoMsg, QtWarningMsg, QtCriticalMsg, QtFatalMsg})
        messageOutput(type, {}, QString::fromUtf8("\u20ac"));
    std::string expected;
    for (auto colour : {"34", "32", "33", "31", "31"})
        expected += std::string("\033[") + colour + "m\u20ac\033[0m";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), expected);
}

TEST(MessageHandler, KeepsControlCharactersFromTheTerminal)
{
    testing::internal::CaptureStdout();
    messageOutput(QtDebugMsg, {}, QString("a\n\tb") + QChar(0) + QChar(0x1b) + "[2J\r" + QChar(0x9b) + QChar(0x7f));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\033[34ma\n\tb\\x00\\x1b[2J\\x0d\\x9b\\x7f\033[0m");
}
