#include "tuning-json/source/value.h"

#include "tests/support/outcome.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

using t_json::Value;

namespace
{
Value parsed(const std::string& text)
{
    Value value;
    std::istringstream stream(text);
    stream >> value;
    EXPECT_FALSE(stream.fail());
    return value;
}

std::string written(const Value& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

std::string failure(const std::string& text)
{
    Value value("before");
    std::istringstream stream(text);
    const auto reason = failureOf<std::runtime_error>([&] { stream >> value; });
    EXPECT_EQ(reason.empty(), written(value) != "\"before\"");
    return reason;
}

template <class Target>
Target get(const Value& value)
{
    Target target{};
    value >> target;
    return target;
}
} // namespace

TEST(Value, UntouchedDocumentIsWrittenAsItStood)
{
    for (const std::string text : {
             "{\n\t\"z\" : 0.1,\r\n  \"a\":[1,2 , 3],\"m\": [ ], \"e\":{\n} , \"a\" : null }\n\n",
             "[0.1, 1.50, 1e5, -0, -0.0, 1E+2, 123456789012345678901234567890, 0.1000000000000000055, 1e-400, "
             "-0.5E-999]",
             "[9223372036854775807, -9223372036854775808, 18446744073709551615, 9007199254740993]",
             R"(["\u00e4\u20AC\ud83d\ude00", "ä€😀", "\/ \"\\\b\f\n\r\t", "\ud800", "\u0000", "é"])",
             "\xef\xbb\xbf {} ",
             "[\"not \xff UTF-8\"]",
             "true",
         })
        EXPECT_EQ(written(parsed(text)), text);
}

TEST(Value, ChangesTouchTheirOwnTextOnly)
{
    auto value = parsed("{\n  \"z\": [1, 2.50],\n  \"a\": {\"k\": \"old\"},\n  \"b\": true\n}\n");
    value["z"][1] = 0.1;
    value["a"]["k"] = std::string("a \"b\"\n\x01 ä/");
    value["b"] = false;
    EXPECT_EQ(written(value),
              "{\n  \"z\": [1, 0.1],\n  \"a\": {\"k\": \"a \\\"b\\\"\\n\\u0001 ä/\"},\n  \"b\": false\n}\n");
    EXPECT_EQ(get<std::string>(value["a"]["k"]), "a \"b\"\n\x01 ä/");
}

TEST(Value, ElementsComeAndGoInTheStyleOfTheirArray)
{
    const auto edited = [](const std::string& text, auto edit)
    {
        auto value = parsed(text);
        edit(value);
        return written(value);
    };
    const auto duplicate = [](int i) { return [i](Value& value) { value.insert(i, value[i]); }; };
    const auto erase = [](int i) { return [i](Value& value) { value.erase(i); }; };
    const auto append = [](Value& value) { value.insert(value.size(), 7); };
    EXPECT_EQ(edited("[1, 2, 3]", duplicate(0)), "[1, 1, 2, 3]");
    EXPECT_EQ(edited("[1, 2, 3]", duplicate(2)), "[1, 2, 3, 3]");
    EXPECT_EQ(edited("[\n 1,\n 2\n]", duplicate(1)), "[\n 1,\n 2,\n 2\n]");
    EXPECT_EQ(edited("[{ \"a\": [1] }]", duplicate(0)), "[{ \"a\": [1] },{ \"a\": [1] }]");
    EXPECT_EQ(edited("[\n 1,\n 2\n]", append), "[\n 1,\n 2,\n 7\n]");
    EXPECT_EQ(edited("[ ]", append), "[7]");
    EXPECT_EQ(edited("[1, 2, 3]", erase(0)), "[2, 3]");
    EXPECT_EQ(edited("[\n 1,\n 2\n]", erase(1)), "[\n 1\n]");
    EXPECT_EQ(edited("[\n 1\n]", erase(0)), "[]");
    // Room for the new ones has to be found again and again, while the copied one moves with them.
    EXPECT_EQ(edited("[\"x\"]",
                     [&](Value& value)
                     {
                         for (int i = 0; i < 9; ++i)
                             value.insert(i, value[0]);
                     }),
              "[" + repeated(9, "\"x\",") + "\"x\"]");
}

TEST(Value, NumbersKeepTheirDigitsAndTheirType)
{
    using namespace t_json;
    const auto value = parsed("[0, -1, 9223372036854775807, 9223372036854775808, 18446744073709551616, 1.0, 1e2]");
    const ValueType types[] = {ValueTypeInt,    ValueTypeInt,    ValueTypeInt,   ValueTypeUInt,
                               ValueTypeDouble, ValueTypeDouble, ValueTypeDouble};
    for (int i = 0; i < value.size(); ++i)
        EXPECT_EQ(value[i].type(), types[i]) << i;
    EXPECT_EQ(get<long long>(value[2]), std::numeric_limits<long long>::max());
    EXPECT_EQ(get<unsigned long long>(value[3]), 1ull << 63);
    EXPECT_THROW(get<int>(value[2]), std::out_of_range);
    EXPECT_THROW(get<unsigned int>(value[1]), std::out_of_range);
    EXPECT_THROW(get<int>(value[5]), std::out_of_range);
    EXPECT_THROW(get<int>(Value("1")), std::invalid_argument);
    EXPECT_THROW(get<bool>(Value(1)), std::invalid_argument);

    for (const double number : {0.1, 1.0, -0.0, 1.0 / 3, 5e-324, 1.7976931348623157e308, 1e21, 123456789.0})
    {
        const auto text = written(Value(number));
        EXPECT_EQ(get<double>(parsed(text)), number);
        EXPECT_EQ(parsed(text).type(), ValueTypeDouble) << text;
    }
    EXPECT_EQ(written(Value(0.1)), "0.1");
    EXPECT_EQ(written(Value(20.0)), "20.0");
    EXPECT_THROW(Value(std::nan("")), std::invalid_argument);
    EXPECT_EQ(written(Value(std::numeric_limits<unsigned long long>::max())), "18446744073709551615");
}

TEST(Value, DecodesStrings)
{
    const auto value = parsed(R"(["\u00e4\u20AC\ud83d\ude00", "\ud83dx", "\ude00\ud83d\u0041", "\/\"\\\b\f\n\r\t"])");
    EXPECT_EQ(get<std::string>(value[0]), "ä€😀");
    EXPECT_EQ(get<std::string>(value[1]), "\xef\xbf\xbdx");
    EXPECT_EQ(get<std::string>(value[2]), "\xef\xbf\xbd\xef\xbf\xbd"
                                          "A");
    EXPECT_EQ(get<std::string>(value[3]), "/\"\\\b\f\n\r\t");
    const std::string zero("a\0b", 3);
    EXPECT_EQ(get<std::string>(parsed(written(Value(zero)))), zero);
}

TEST(Value, MembersAreSortedAndTheLastOfSeveralCounts)
{
    const auto value = parsed(R"({"b": 1, "\u0061": 2, "b": 3, "": 4})");
    EXPECT_EQ(value.members(), (std::vector<std::string>{"", "a", "b"}));
    EXPECT_EQ(value.size(), 3);
    EXPECT_EQ(get<int>(value["b"]), 3);
    EXPECT_EQ(get<int>(value["a"]), 2);
    EXPECT_THROW(value["c"], std::out_of_range);
    EXPECT_THROW(value[0], std::out_of_range);
    EXPECT_THROW(parsed("[1]")[1], std::out_of_range);
    EXPECT_THROW(parsed("[1]")[-1], std::out_of_range);
    EXPECT_THROW(parsed("{}").insert(0, 1), std::out_of_range);
    EXPECT_THROW(parsed("[]").erase(0), std::out_of_range);
}

TEST(Value, RefusesWhatIsNoDocument)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "no value"},
        {" \n ", "no value, line 2"},
        {"{\n\"a\": 1,\n}", "string is missing, line 3"},
        {"[1,]", "no value"},
        {"[1 2]", "',' or ']'"},
        {"{\"a\" 1}", "':' is missing"},
        {"[1] x", "follows"},
        {"01", "follows"},
        {"1.", "no value"},
        {"1e", "no value"},
        {"1e999", "out of range"},
        {"tru", "no value"},
        {"\"a", "does not end"},
        {"\"a\nb\"", "does not end"},
        {"\"\\x\"", "escape"},
        {"\"\\u12g4\"", "escape"},
        {"\"\\", "escape"},
        {"// remark\n1", "no value"},
        {"{1: 2}", "string is missing"},
    };
    for (const auto& [pText, pReason] : cases)
    {
        EXPECT_NE(failure(pText).find(pReason), std::string::npos) << pText << ": " << failure(pText);
        EXPECT_EQ(failure(pText).find("JSON parse failed: "), 0u) << pText;
    }
    EXPECT_EQ(failure(repeated(256, "[") + repeated(256, "]")), "");
    EXPECT_NE(failure(repeated(257, "[") + repeated(257, "]")).find("nested deeper than 256"), std::string::npos);
    EXPECT_NE(failure(std::string(5'000'000, '[')).find("nested"), std::string::npos);
    EXPECT_EQ(failure("[" + repeated(199'998, "1,") + "1]"), "");
    EXPECT_NE(failure("[" + repeated(199'999, "1,") + "1]").find("more than 200000 values"), std::string::npos);
    EXPECT_NE(failure(std::string((16 << 20) + 1, ' ')).find("larger than 16 MiB"), std::string::npos);
    // Any piece of a document ends in a reason.
    const std::string text = R"({"a": [1.5e3, "\u00e4\n", true, null], "b": {}})";
    for (std::size_t size = 0; size < text.size(); ++size)
        EXPECT_NE(failure(text.substr(0, size)), "") << size;
}
