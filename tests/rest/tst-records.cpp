#include "tests/rest/record-layout.h"

#include "tests/rest/services.h"

#include "board-simulator/source/wire.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

namespace
{
class Records : public testing::TestWithParam<std::string>
{
};

std::vector<std::string> recordNames()
{
    std::vector<std::string> names;
    for (const auto& [name, record] : board::Wire::instance().records())
    {
        if (name != "double[50]")
            names.push_back(name);
    }
    return names;
}

TEST_P(Records, HaveTheWiresLayout)
{
    const auto& record = board::Wire::instance().record(GetParam());
    const auto* pKnown = layout::recordFind(GetParam());
    ASSERT_NE(pKnown, nullptr);
    EXPECT_EQ(pKnown->second.size, record.size);
    const auto leaves = layout::leaves(pKnown->first);
    for (const auto& wireLayout : record.layouts)
    {
        for (const auto& field : wireLayout.fields)
        {
            const auto* pLeaf = layout::leafFind(leaves, wireLayout.name, field.name);
            ASSERT_NE(pLeaf, nullptr) << wireLayout.name << " " << field.name;
            const auto type = field.type == "pointer" ? "uint64_t" : field.type;
            EXPECT_EQ(pLeaf->offset, field.offset) << pLeaf->path;
            EXPECT_EQ(pLeaf->type, type) << pLeaf->path;
            EXPECT_EQ(pLeaf->shape, field.shape) << pLeaf->path;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Records, testing::ValuesIn(recordNames()),
                         [](const auto& test) { return std::regex_replace(test.param, std::regex("::"), "_"); });

TEST(Generations, HaveTheWiresNumbers)
{
    using namespace rest;
    struct Generations
    {
        std::map<std::string, int> numbers;
        size_t count = 0;
    };
    const std::map<std::string, Generations> known{
        {"Ae", {{{"V1", Ae::V1}, {"V2", Ae::V2}}, Ae::VMax}},
        {"Ahdr", {{{"V1", Ahdr::V1}}, Ahdr::VMax}},
        {"DeMosaic", {{{"V1", DeMosaic::V1}, {"V2", DeMosaic::V2}}, DeMosaic::VMax}},
        {"Dnr2", {{{"V1", Dnr2::V1}, {"V5", Dnr2::V5}}, Dnr2::VMax}},
        {"Dnr3", {{{"V1", Dnr3::V1}, {"V3", Dnr3::V3}, {"V3_2", Dnr3::V3_2}}, Dnr3::VMax}},
        {"Gc", {{{"V1", Gc::V1}, {"V2", Gc::V2}}, Gc::VMax}},
        {"Hdr", {{{"V1", Hdr::V1}, {"V1_2", Hdr::V1_2}, {"V2", Hdr::V2}, {"V2_LITE", Hdr::V2_LITE}}, Hdr::VMax}},
        {"Wdr", {{{"V1", Wdr::V1}, {"V2", Wdr::V2}, {"V3", Wdr::V3}, {"V4", Wdr::V4}, {"V5", Wdr::V5}}, Wdr::VMax}}};
    for (const auto& commandClass : board::Wire::instance().classes())
    {
        const auto found = known.find(commandClass.name);
        const auto expected = found == known.end() ? Generations() : found->second;
        EXPECT_EQ(commandClass.generations, expected.numbers) << commandClass.name;
        EXPECT_EQ(commandClass.generations.size(), expected.count) << commandClass.name;
    }
}

TEST(Records, StartFromZeroWithTheirPadding)
{
    std::vector<char> dirty(sizeof(rest::Dewarp::Config), '\x5a');
    const auto& config = *new (dirty.data()) rest::Dewarp::Config;
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&config.padding), 4), std::string(4, '\0'));
    EXPECT_EQ(config.params.padding, 0);
    EXPECT_EQ(config.distortionMap[1].pUserMap, 0u);
    EXPECT_EQ(config.distortionMap[1].index, 1u);
    EXPECT_EQ(config.distortionMap[1].distortion_coeff[3], 0.001900736217850351);
    EXPECT_EQ(config.params.dewarp_type, 8u);
    const auto gamma = rest::recordZero<rest::Gc::Config>();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&gamma), sizeof gamma), std::string(sizeof gamma, '\0'));
}

TEST(Records, CountsAndTextsEndAtTheirArrays)
{
    auto awb = rest::recordZero<rest::Awb::Config>();
    for (const int32_t count : {INT32_MIN, -1, 0, 3, 10, 11, INT32_MAX})
        EXPECT_EQ(rest::recordCount(count, awb.profilesName), static_cast<size_t>(std::clamp(count, 0, 10)));
    const auto roi = rest::recordZero<rest::Roi::Config>();
    EXPECT_EQ(rest::recordCount(UINT32_MAX, roi.roi), 16u);
    std::memset(awb.profilesName, 'x', sizeof awb.profilesName);
    EXPECT_EQ(rest::recordText(awb.profilesName[9]), std::string(20, 'x'));
    awb.profilesName[9][4] = '\0';
    EXPECT_EQ(rest::recordText(awb.profilesName[9]), "xxxx");
}

TEST(Records, FlagIsTrueForAnyByteButZero)
{
    for (const char byte : {'\0', '\1', '\2', '\x80'})
    {
        rest::Flag flag;
        std::memcpy(static_cast<void*>(&flag), &byte, 1);
        EXPECT_EQ(bool(flag), byte != 0);
    }
}
} // namespace
