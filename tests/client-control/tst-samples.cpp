// The statistics of a picture's samples, against figures computed elsewhere.

#include "tests/support/files.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/image/mosaic.h"
#include "tuning-client/source/image/picture.h"
#include "tuning-image/source/netpbm.h"
#include "tuning-image/source/sharpness.h"

#include <cmath>

namespace
{
const QTemporaryDir directory;

Picture picture(const QString& name, const QByteArray& bytes)
{
    fileWrite(directory.filePath(name), bytes);
    return Picture(directory.filePath(name));
}

/// Count, mean, deviation, least and greatest value of a channel.
void expectFigures(const ChannelStatistics& channel, const std::vector<double>& figures)
{
    const double found[] = {double(channel.count), channel.mean, channel.deviation, double(channel.minimum),
                            double(channel.maximum)};
    for (std::size_t i = 0; i < figures.size(); ++i)
        EXPECT_NEAR(found[i], figures[i], 1e-4) << i;
}
} // namespace

TEST(Samples, PartOfARawPictureHasFourChannels)
{
    // Of 6 by 5 pixels, the sample at x, y being 7919 x^2 + 104729 y + 13 x y modulo 65536.
    QByteArray bytes = "P5 6 5 65535\n";
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 6; ++x)
            bytes.append(char((7919 * x * x + 104729 * y + 13 * x * y) >> 8))
                .append(char(7919 * x * x + 104729 * y + 13 * x * y));
    const auto raw = picture("a.pgm", bytes);
    const QRect part(1, 1, 4, 3);
    const auto channels = raw.statistics(part, true);
    ASSERT_EQ(channels.size(), 4u);
    // mean(), pstdev(), min() and max() of Python's statistics.
    expectFigures(channels[0], {2, 26582.000000, 17996.000000, 8586, 44578});
    expectFigures(channels[1], {2, 19729.000000, 1066.000000, 18663, 20795});
    expectFigures(channels[2], {4, 26582.000000, 16124.374375, 5359, 47831});
    expectFigures(channels[3], {4, 52497.000000, 6538.495699, 44967, 60001});
    const auto whole = raw.statistics(part, false);
    ASSERT_EQ(whole.size(), 1u);
    expectFigures(whole[0], {12, 34078.166667, 18181.813683, 5359, 60001});
    EXPECT_EQ(whole[0].counts[47125], 1u) << "the sample at 1, 1";

    const auto pixel = raw.statistics({2, 1, 1, 1}, true);
    expectFigures(pixel[2], {1, 5359, 0, 5359, 5359});
    for (int i : {0, 1, 3})
        EXPECT_EQ(pixel[std::size_t(i)].count, 0);
}

TEST(Samples, OtherFormsOfPicturesAreMeasuredAsTheirFilesHaveThem)
{
    const auto colour =
        picture("a.ppm", QByteArray("P6 2 2 255\n\x01\x02\x03\x05\x06\x07\x09\x0a\xff\x0d\x0e\x0f", 23));
    const auto left = colour.statistics({0, 0, 1, 2}, false);
    ASSERT_EQ(left.size(), 3u);
    expectFigures(left[0], {2, 5, 4, 1, 9});
    expectFigures(left[2], {2, 129, 126, 3, 255});

    // Black but for the last pixel, of the right column but for its first one.
    constexpr int count = 129;
    const struct
    {
        QImage::Format format;
        QRgba64 colour;
        std::vector<int> values;
    } rows[] = {{QImage::Format_Grayscale8, QRgba64::fromRgba(9, 9, 9, 255), {9}},
                {QImage::Format_Grayscale16, QRgba64::fromRgba64(771, 771, 771, 65535), {771}},
                {QImage::Format_ARGB32, QRgba64::fromRgba(200, 30, 4, 17), {200, 30, 4}},
                {QImage::Format_RGBA64, QRgba64::fromRgba64(60000, 300, 5, 40000), {60000, 300, 5}}};
    for (const auto& row : rows)
    {
        QImage image(2, count + 1, row.format);
        image.fill(Qt::black);
        image.setPixelColor(1, count, QColor::fromRgba64(row.colour));
        ASSERT_TRUE(image.save(directory.filePath("a.png")));
        const auto channels = Picture(directory.filePath("a.png")).statistics({1, 1, 1, count}, false);
        ASSERT_EQ(channels.size(), row.values.size()) << row.format;
        for (std::size_t i = 0; i < channels.size(); ++i)
        {
            const double value = row.values[i];
            expectFigures(channels[i], {count, value / count, value * std::sqrt(count - 1) / count, 0, value});
        }
    }
}

TEST(Samples, GreensAreNamedByTheColourOfTheirRow)
{
    using mosaic::Pattern;
    EXPECT_EQ(mosaic::channels(Pattern::Rggb), QStringList({"R", "Gr", "Gb", "B"}));
    EXPECT_EQ(mosaic::channels(Pattern::Grbg), QStringList({"Gr", "R", "B", "Gb"}));
    EXPECT_EQ(mosaic::channels(Pattern::Gbrg), QStringList({"Gb", "B", "R", "Gr"}));
    EXPECT_EQ(mosaic::channels(Pattern::Bggr), QStringList({"B", "Gb", "Gr", "R"}));
    EXPECT_EQ(mosaic::channels(Pattern(77)), QStringList({"x0 y0", "x1 y0", "x0 y1", "x1 y1"}));
    EXPECT_TRUE(mosaic::isRawCapture("/RGB/RAW08_20240131_235959.pgm"));
    EXPECT_FALSE(mosaic::isRawCapture("/RAW08_x/RGB_20240131_235959.ppm"));
}

TEST(Samples, SharpnessIsOfNeighboursOfOneColour)
{
    const std::tuple<QByteArray, bool, double> cases[]{
        {QByteArray("P5 2 1 255\n\x01\x03"), false, 1},               // a difference of 2, a mean of 2
        {QByteArray("P5 2 1 65535\n\x01\x00\x03\x00", 17), false, 1}, // the same 256 times as bright
        {QByteArray("P5 # 9\n2 1 256\n\x00\x01\x00\x03", 19), false, 1},
        {QByteArray("P5 2 3 255\n\x01\x03\x01\x03\x07\x03"), true, 6 / 3. / M_SQRT2}, // two apart: 6 and 0 of two
        {QByteArray("P6 2 1 255\n\x01\x02\x03\x03\x02\x01"), false, std::sqrt(8 / 3.) / 2},
        {QByteArray("P5 1 1 255\n\x05"), false, 0},
        {QByteArray("P5 2 1 255\n\x00\x00", 13), false, 0},
    };
    for (const auto& [bytes, isMosaic, expected] : cases)
    {
        const auto netpbm = Netpbm::parse(bytes);
        ASSERT_TRUE(netpbm) << bytes.constData();
        EXPECT_NEAR(sharpnessGet(netpbm->samples(), netpbm->size(), isMosaic), expected, 1e-9) << bytes.constData();
    }
    EXPECT_FALSE(Netpbm::parse("P5 2 1 255\n\x01")) << "cut short";
}
