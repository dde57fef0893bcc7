#include "tests/rest/record-layout.h"

#include "tests/rest/services.h"

#include "board-wire/source/wire.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(Records, HaveTheWiresLayout)
{
    for (const auto& [name, record] : board::Wire::instance().records())
    {
        if (name == "double[50]")
            continue;
        const auto* pKnown = layout::recordFind(name);
        ASSERT_NE(pKnown, nullptr) << name;
        EXPECT_EQ(pKnown->second.size, record.size) << name;
        const auto leaves = layout::leaves(pKnown->first);
        for (const auto& wireLayout : record.layouts)
        {
            for (const auto& field : wireLayout.fields)
            {
                SCOPED_TRACE(name + " " + wireLayout.name + " " + field.name);
                const auto* pLeaf = layout::leafFind(leaves, wireLayout.name, field.name);
                ASSERT_NE(pLeaf, nullptr);
                EXPECT_EQ(pLeaf->offset, field.offset);
                EXPECT_EQ(pLeaf->type, field.type == "pointer" ? "uint64_t" : field.type);
                EXPECT_EQ(pLeaf->shape, field.shape);
            }
        }
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
