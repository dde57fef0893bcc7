#include "tuning-common/source/base64.h"
#include "tuning-common/source/file-system.h"
#include "tuning-common/source/method-name.h"
#include "tuning-common/source/text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>

using t_common::Base64;
using t_common::FileSystem;
using t_common::Lines;
using t_common::printable;

TEST(Base64, RecordComesBackAndOnlyWithItsOwnSize)
{
    struct Record
    {
        float gain;
        int index;
    };
    const auto text = Base64::encode(Record{1.5f, -7});
    EXPECT_EQ(text, "AADAP/n///8=");
    Record record{};
    Base64::decode("AADA\r\nP/n/ //8=\n", record);
    EXPECT_EQ(record.gain, 1.5f);
    EXPECT_EQ(record.index, -7);

    for (const auto* pText : {"AADAP/n//w==", "AADAP/n///8A", "", "AADAP/n/*/8=", "AADAP/n///8=,"})
    {
        Record other{2.0f, 3};
        try
        {
            Base64::decode(pText, other);
            ADD_FAILURE() << pText;
        }
        catch (const t_common::LogicError& error)
        {
            EXPECT_EQ(error.error, 6);
            EXPECT_STREQ(error.what(), "Base64 decode failed: object size not match");
        }
        EXPECT_EQ(other.index, 3);
    }
}

TEST(Base64, AnyBytesDecodeToSomething)
{
    EXPECT_EQ(Base64::decode("QUI"), "AB");
    EXPECT_EQ(Base64::decode("QUI="), "AB");
    for (const auto& text : {std::string("Q=I="), std::string("===="), std::string("QU\0I", 4), std::string("QUI=QUI="),
                             std::string("QUI-"), std::string(" \n"), std::string("\xff\xfe")})
        EXPECT_EQ(Base64::decode(text), "") << text;
}

TEST(Base64, BlockOfAnyLength)
{
    void* pBlock = nullptr;
    unsigned int size = 0;
    Base64::decode("QUI=", &pBlock, size);
    ASSERT_EQ(size, 2u);
    EXPECT_EQ(std::string(static_cast<char*>(pBlock), size), "AB");
    std::free(pBlock);
    Base64::decode("*", &pBlock, size);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(pBlock, nullptr);
}

TEST(FileSystem, BoardNeverChoosesTheDirectory)
{
    EXPECT_EQ(FileSystem::localNameGet("a/b/c d.xml"), "c d.xml");
    EXPECT_EQ(FileSystem::localNameGet("../../.profile"), ".profile");
    for (const auto* pName : {"\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80", "\xed\x9f\xbf", "\xf4\x8f\xbf\xbf"})
        EXPECT_EQ(FileSystem::localNameGet(pName), pName);
    EXPECT_EQ(FileSystem::localNameGet(std::string(255, 'x')).size(), 255u);
    for (const auto& text :
         {std::string(), std::string("."), std::string("a/.."), std::string("dir/"), std::string("a\nb"),
          std::string("a\0b", 3), std::string("..\\a"), std::string("\x7f"), std::string(256, 'x'),
          std::string("\xff.xml"), std::string("cut\xe2\x82"), std::string("\xc0\x80"), std::string("\xc1\xbf"),
          std::string("\xed\xa0\x80"), std::string("\xf4\x90\x80\x80"),
          std::string("\xef\xbb\xbf"
                      "a.xml")})
        EXPECT_THROW(FileSystem::localNameGet(text), std::runtime_error) << text;
    EXPECT_EQ(FileSystem::filenameGetFromPath("/a/b"), "b");
    EXPECT_EQ(FileSystem::filenameGetFromPath("b"), "b");
    EXPECT_EQ(FileSystem::filenameGetFromPath("a/"), "");
}

namespace rest
{
struct Probe
{
    std::string capture(const std::string&, const std::function<void(const std::string&)>&)
    {
        return computeMethodName(__func__, __PRETTY_FUNCTION__);
    }
    std::function<void()>* statusGet(std::string& name)
    {
        name = computeMethodName(__func__, __PRETTY_FUNCTION__);
        return nullptr;
    }
};
} // namespace rest

TEST(MethodName, ClassAndMethodWhateverTheCompiler)
{
    EXPECT_EQ(rest::Probe().capture("", {}), "rest::Probe::capture");
    std::string name;
    rest::Probe().statusGet(name);
    EXPECT_EQ(name, "rest::Probe::statusGet");

    const auto gcc = "rest::Ae& rest::Ae::configGet(rest::Ae::Config&, rest::Ae::Generation)";
    const auto clang = "Ae &rest::Ae::configGet(rest::Ae::Config &, rest::Ae::Generation)";
    const auto other = "rest::Camera& rest::Camera::capture(const string&, rest::Camera::SnapshotType, uint32_t, const "
                       "std::function<void(const Json::Value&)>&)";
    EXPECT_EQ(computeMethodName("configGet", gcc), "rest::Ae::configGet");
    EXPECT_EQ(computeMethodName("configGet", clang), "rest::Ae::configGet");
    EXPECT_EQ(computeMethodName("capture", other), "rest::Camera::capture");
    EXPECT_EQ(computeMethodName("main", "int main(int, char**)"), "main");
    EXPECT_EQ(computeMethodName("run", ""), "run");
}

TEST(Printable, NothingReachesTheScreenButText)
{
    EXPECT_EQ(printable("a\x1b[2J\tb\nc\x7f"), "a?[2J b c?");
    EXPECT_EQ(printable("a\tb\r\n", std::string::npos, Lines::Many), "a\tb?\n");
    EXPECT_EQ(printable("\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80"), "\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80");
    // A control character of two bytes, one in an overlong form, a broken sequence and a stray byte.
    EXPECT_EQ(printable("\xc2\x9b|\xe0\x80\x9b|\xe2\x82|\x80"), "??|???|??|?");
    EXPECT_EQ(printable(std::string("\0x", 2)), "?x");
}

TEST(Printable, CutsBetweenCharacters)
{
    EXPECT_EQ(printable("abcd", 4), "abcd");
    EXPECT_EQ(printable("abcde", 4), "abcd...");
    EXPECT_EQ(printable("abc\xc3\xa4", 4), "abc...");
    EXPECT_EQ(printable("abc\xc3\xa4", 5), "abc\xc3\xa4");
    EXPECT_EQ(printable("a", 0), "...");
}
