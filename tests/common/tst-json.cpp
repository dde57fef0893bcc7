#include "tests/support/outcome.h"
#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

using t_common::JsonApp;
namespace limit = t_common::limit;

namespace
{
std::string failureOfText(const std::string& text)
{
    return failureOf<std::runtime_error>([&] { JsonApp::fromString(text); });
}
} // namespace

TEST(Json, CompactTextHasNoBlanksAndIndentedTextReads)
{
    Json::Value value;
    value["id"] = 4000103;
    value["function"] = "rest::Ae::enableGet";
    value["list"].append(true);
    value["list"].append(Json::nullValue);
    value["none"] = Json::objectValue;
    EXPECT_EQ(JsonApp::toString(value, ""),
              R"({"function":"rest::Ae::enableGet","id":4000103,"list":[true,null],"none":{}})");
    EXPECT_EQ(JsonApp::toString(value, "  "), "{\n  \"function\": \"rest::Ae::enableGet\",\n  \"id\": 4000103,\n"
                                              "  \"list\": [ true, null ],\n  \"none\": {}\n}");
}

TEST(Json, NumbersComeBackExactly)
{
    Json::Value value;
    value.append(0.1);
    EXPECT_EQ(JsonApp::toString(value, ""), "[0.1]");
    for (const double number : {1.0, -0.0, 1.0 / 3, 1e22, 5e-324, std::numeric_limits<double>::max(), 16777217.0})
    {
        value[0] = number;
        const auto copy = JsonApp::fromString(JsonApp::toString(value, ""));
        EXPECT_TRUE(copy[0].type() == Json::realValue) << number;
        EXPECT_EQ(copy[0].asDouble(), number);
        EXPECT_EQ(std::signbit(copy[0].asDouble()), std::signbit(number));
    }
    value[0] = std::numeric_limits<Json::Int64>::min();
    value[1] = std::numeric_limits<Json::UInt64>::max();
    EXPECT_EQ(JsonApp::fromString(JsonApp::toString(value, "")), value);
    for (const double number : {std::nan(""), HUGE_VAL})
    {
        value[0] = number;
        EXPECT_THROW(JsonApp::toString(value, ""), std::runtime_error);
    }
}

TEST(Json, TextsComeBackExactly)
{
    Json::Value value;
    const std::string text("\"\\/\b\t\r\n\x1f\x7f \xc3\xa4 \0 end", 17);
    value[text] = text;
    EXPECT_EQ(JsonApp::fromString(JsonApp::toString(value, "")), value);
    EXPECT_NE(JsonApp::toString(value, "").find("\xc3\xa4"), std::string::npos);
    EXPECT_EQ(JsonApp::fromString("[\"\\u00e4\\u20AC\\ud83d\\ude00\\u0041\\/\"]")[0],
              "\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80"
              "A/");
    // Long enough for several blocks, with an escape in each place of one.
    for (std::size_t i = 0; i < 70; ++i)
    {
        value[text] = std::string(i, 'x') + "\"" + std::string(70 - i, '\\');
        EXPECT_EQ(JsonApp::fromString(JsonApp::toString(value, "  ")), value);
    }
}

TEST(Json, WhatIsNoStrictJsonIsRefused)
{
    const char* const texts[]{"",      "{} @",    "{}{}",          "{} // end", "[1,]", "{'a':1}",
                              "[NaN]", "[1e999]", "[\"\\ud800\"]", "[\"a\\",    "5",    "\x80\x81"};
    for (const auto* pText : texts)
        EXPECT_TRUE(contains(failureOfText(pText), "JSON parse failed")) << pText;
}

TEST(Json, FailureNamesWhatWasReceived)
{
    const auto failure = failureOfText("\x1b[31mnot json\n" + std::string(200, 'x'));
    EXPECT_TRUE(contains(failure, "214 bytes")) << failure;
    EXPECT_TRUE(contains(failure, "?[31mnot json xxx")) << failure;
    EXPECT_EQ(failure.find('\n'), std::string::npos);
    EXPECT_LT(failure.size(), 200u);
}

TEST(Json, SizeIsLimitedBeforeItIsParsed)
{
    const auto nested = [](std::size_t depth) { return repeated(depth, "[") + repeated(depth, "]"); };
    EXPECT_EQ(failureOfText(nested(limit::jsonDepth)), "");
    EXPECT_NE(failureOfText(nested(limit::jsonDepth + 1)), "");
    EXPECT_NE(failureOfText(repeated(5'000'000, "[")), "");
    EXPECT_NE(failureOfText("[" + repeated(limit::jsonElements, "0,") + "0]"), "");
    EXPECT_NE(failureOfText("[" + repeated(limit::jsonElements / 2, "{},") + "0]"), "");
    // Brackets and commas within a text count nothing.
    EXPECT_EQ(failureOfText("[\"\\\"" + repeated(limit::jsonElements, "[,") + "\"]"), "");
    // They count again behind one that ends with a backslash.
    EXPECT_NE(failureOfText(R"(["\\\",)" + nested(limit::jsonDepth) + "]"), "");
    EXPECT_NE(failureOfText(R"(["\\")" + repeated(limit::jsonElements, ",0") + "]"), "");
}

TEST(Json, ThreadsReadAtTheSameTime)
{
    const auto read = []
    {
        for (int i = 0; i < 200; ++i)
            ASSERT_EQ(JsonApp::fromString("{\"a\":[1,2," + std::to_string(i) + "]}")["a"][2].asInt(), i);
    };
    std::thread other(read);
    read();
    other.join();
}
