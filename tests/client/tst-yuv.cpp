// Pictures without a window: the conversion of YUV captures, their files, and what is taken for a picture at all.

#include "tests/support/files.h"
#include "tests/support/full-disk.h"
#include "tests/support/outcome.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/image/picture.h"
#include "tuning-client/source/image/yuv-file.h"
#include "tuning-client/source/image/yuv.h"

#include <random>
#include <stdexcept>
#include <sys/stat.h>
#include <vector>

namespace
{
/// The rule pixel by pixel; `last` becomes the last byte that it reads.
std::vector<uint8_t> reference(const std::vector<uint8_t>& yuv, uint8_t mode, unsigned width, unsigned height,
                               std::size_t& last)
{
    const unsigned offset = mode == 4 ? width / 2 : mode == 5 ? width / 4 : 0;
    const std::size_t chroma = std::size_t(width) * height;
    std::vector<uint8_t> rgb;
    const auto put = [&](int value) { rgb.push_back(uint8_t(std::min(std::max(value, 0), 255))); };
    last = 0;
    for (unsigned j = 0; j < height; ++j)
    {
        for (unsigned i = 0; i < width; ++i)
        {
            const std::size_t c = chroma + 2 * (offset * j + i / 2);
            const int y = yuv[j * width + i];
            const int u = yuv.at(c);
            const int v = yuv.at(c + 1);
            last = std::max(last, c + 1);
            put(y + (((v - 128) * 360) >> 8));
            put(y - (((u - 128) * 88 + (v - 128) * 184) >> 8));
            put(y + (((u - 128) * 455) >> 8));
        }
    }
    return rgb;
}

/// Both buffers as small as they may be, so that a sanitizer sees any byte too much.
std::vector<uint8_t> converted(const std::vector<uint8_t>& yuv, uint8_t mode, unsigned width, unsigned height)
{
    std::vector<uint8_t> source(yuv.begin(),
                                yuv.begin() + long(semiplanarSizeGet(mode, uint16_t(width), uint16_t(height))));
    source.shrink_to_fit();
    std::vector<uint8_t> rgb(std::size_t(3) * width * height);
    convert_semiplanar_to_rgb24_buffer(source.data(), rgb.data(), mode, uint16_t(width), uint16_t(height));
    return rgb;
}

class FilesTest : public testing::Test
{
protected:
    QString write(const QString& name, const QByteArray& bytes)
    {
        fileWrite(directory.filePath(name), bytes);
        return directory.filePath(name);
    }

    QStringList names() const { return QDir(directory.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir directory;
};
} // namespace

TEST(Yuv, EveryPairOfChromaWithEveryLumaIsTheSameToTheBit)
{
    constexpr unsigned width = 512;
    constexpr unsigned height = 256;
    std::vector<uint8_t> yuv(2 * width * height);
    for (unsigned v = 0; v < 256; ++v)
    {
        for (unsigned u = 0; u < 256; ++u)
        {
            yuv[width * height + v * width + 2 * u] = uint8_t(u);
            yuv[width * height + v * width + 2 * u + 1] = uint8_t(v);
        }
    }
    std::size_t last = 0;
    for (unsigned y = 0; y < 256; y += 3)
    {
        for (unsigned i = 0; i < width * height; ++i)
            yuv[i] = uint8_t(y + i % 2);
        ASSERT_EQ(converted(yuv, 4, width, height), reference(yuv, 4, width, height, last)) << y;
    }
}

TEST(Yuv, EverySizeAndModeIsTheSameToTheBit)
{
    std::mt19937 random(7);
    std::vector<uint8_t> yuv(1 << 16);
    for (auto& byte : yuv)
        byte = uint8_t(random());
    for (uint8_t mode : {4, 5, 0, 255})
    {
        for (unsigned width = 1; width < 140; ++width)
        {
            for (unsigned height : {1u, 2u, 5u})
            {
                SCOPED_TRACE(testing::Message() << int(mode) << ": " << width << "x" << height);
                std::size_t last = 0;
                const auto expected = reference(yuv, mode, width, height, last);
                ASSERT_EQ(semiplanarSizeGet(mode, uint16_t(width), uint16_t(height)), last + 1);
                ASSERT_EQ(converted(yuv, mode, width, height), expected);
            }
        }
    }
    EXPECT_EQ(converted({0, 255, 128, 255}, 4, 2, 1), (std::vector<uint8_t>{178, 0, 0, 255, 164, 255}));
    EXPECT_EQ(converted({255, 255, 128, 128}, 4, 2, 1), std::vector<uint8_t>(6, 255));
    EXPECT_EQ(semiplanarSizeGet(4, 0, 100), 0u);
}

TEST_F(FilesTest, ConversionWritesThePictureBesideTheCapture)
{
    const auto capture = write("YUV_1.a.yuv", QByteArray::fromHex("00ff80ff") + "\n");
    const auto shown = yuvFileConvert(capture, 2, 1);
    EXPECT_EQ(shown, directory.filePath("RGB_1.ppm"));
    EXPECT_EQ(fileRead(shown), "P6\n2 1\n255\n" + QByteArray::fromHex("b20000ffa4ff"));
    EXPECT_EQ(names(), QStringList({"RGB_1.ppm", "YUV_1.a.yuv"}));

    EXPECT_EQ(displayFileGet("/a.b/YUV/YUV_YUV.x.yuv"), "/a.b/YUV/RGB_RGB.ppm");
    EXPECT_EQ(displayFileGet("/d/yuv"), "/d/yuv.ppm");
}

TEST_F(FilesTest, ConversionThatFailsSaysWhyAndLeavesNothing)
{
    const auto capture = write("YUV_1.yuv", QByteArray(64 * 48 * 2 - 1, 'x'));
    write("RGB_2.ppm", "from before");
    const struct
    {
        QString capture;
        uint32_t width;
        uint32_t height;
        const char* text;
    } cases[] = {{capture, 64, 48, "64x48 takes 6144 bytes, the file has 6143"},
                 // The last pixel of an odd width takes the pair behind its row.
                 {capture, 6143, 1, "6143x1 takes 12287 bytes"},
                 {capture, 0, 48, "size of 0x48"},
                 {capture, 64, 0, "size of 64x0"},
                 {capture, 32768, 1, "size of 32768x1"},
                 {capture, 32767, 32767, "size of 32767x32767"},
                 {capture, 4294967295u, 4294967295u, "size of 4294967295x4294967295"},
                 {directory.filePath("none.yuv"), 2, 2, "can't be read"},
                 {directory.path(), 2, 2, "can't be read"},
                 {write("same.ppm", "12345678"), 2, 2, "same.ppm can't be written: "},
                 {write("YUV_2.yuv", "12345678"), 2, 2, "RGB_2.ppm can't be written: "}};
    for (const auto& row : cases)
    {
        const auto text = failureOf([&] { yuvFileConvert(row.capture, row.width, row.height); });
        EXPECT_NE(text.find(" failed: "), std::string::npos) << text;
        EXPECT_NE(text.find(row.text), std::string::npos) << text;
        EXPECT_EQ(text.find("Unknown error"), std::string::npos) << text;
    }
    // A small picture fits into what a file keeps in memory until it is closed.
    const auto large = write("YUV_3.yuv", QByteArray(512 * 256 * 2, 'x'));
    for (const auto& [width, height] : {std::make_pair(64u, 48u), {512u, 256u}})
    {
        const FullDisk disk(1000);
        const auto text = failureOf([&, w = width, h = height] { yuvFileConvert(large, w, h); });
        EXPECT_NE(text.find("client_rgb.ppm\" failed: File too large"), std::string::npos) << text;
    }
    EXPECT_EQ(names(), QStringList({"RGB_2.ppm", "same.ppm", "YUV_1.yuv", "YUV_2.yuv", "YUV_3.yuv"}));
    EXPECT_EQ(fileRead(directory.filePath("same.ppm")), "12345678");
    EXPECT_EQ(fileRead(directory.filePath("RGB_2.ppm")), "from before");
    EXPECT_TRUE(QDir().entryList({"client_rgb*"}, QDir::AllEntries | QDir::Hidden).isEmpty());
}

TEST_F(FilesTest, SamplesAreThoseOfTheFile)
{
    const auto hex = [](const char* text) { return QByteArray::fromHex(text); };
    const struct
    {
        QByteArray bytes;
        QPoint pixel;
        const char* samples;
        QColor colour;
    } rows[] = {{"P5 #\n# 9 9\n2\t1\n1023\n" + hex("020003ff"), {0, 0}, "512", {127, 127, 127}},
                {"P5\n2 1\n1023\n" + hex("020003ff"), {1, 0}, "1023", {255, 255, 255}},
                {"P5\n1 1\n1000\n" + hex("ffff"), {0, 0}, "65535", {255, 255, 255}},
                {"P6 1 2 65535\n" + hex("000000000000ffff80000001"), {0, 1}, "65535 32768 1", {255, 127, 0}}};
    for (const auto& row : rows)
    {
        const Picture picture(write("any.name", row.bytes));
        ASSERT_FALSE(picture.isNull()) << row.samples;
        EXPECT_EQ(str(picture.samplesText(row.pixel)), row.samples);
        EXPECT_EQ(picture.imageGet().pixelColor(row.pixel), row.colour) << row.samples;
    }
    QImage wide(3, 2, QImage::Format_Grayscale16);
    wide.fill(0);
    reinterpret_cast<quint16*>(wide.scanLine(1))[2] = 40001;
    ASSERT_TRUE(wide.save(directory.filePath("wide.png")));
    EXPECT_EQ(Picture(directory.filePath("wide.png")).samplesText({2, 1}), "40001");
    QImage narrow(2, 2, QImage::Format_RGB32);
    narrow.fill(qRgb(1, 2, 3));
    ASSERT_TRUE(narrow.save(directory.filePath("narrow.png")));
    EXPECT_EQ(Picture(directory.filePath("narrow.png")).samplesText({1, 1}), "1 2 3");
}

TEST_F(FilesTest, WhatIsNoPictureIsRefused)
{
    const QByteArray bad[] = {"",
                              "P5",
                              "P5\n2 2 255",
                              "P5\n2 2 255\n123",
                              "P5\n2 2 256\n1234567",
                              "P6\n2 2 255\n12345678901",
                              "P5\n0 2 255\n1234",
                              "P5\n-1 2 255\n1234",
                              "P5\n2 2 0\n1234",
                              "P5\n2 2 65536\n12345678",
                              "P5\n99999999999999999999 2 255\n1234",
                              "P5\n65535 65535 255\n1234",
                              "P5\n2 # a comment without an end",
                              "P3\n30000 30000\n255\n0 0 0",
                              QByteArray(100000, '\0')};
    for (const auto& bytes : bad)
        EXPECT_TRUE(Picture(write("bad.pgm", bytes)).isNull()) << bytes.left(40).toStdString();

    // A picture that is small in the file and gigabytes in memory.
    QImage image(64, 64, QImage::Format_Mono);
    image.fill(0);
    ASSERT_TRUE(image.save(directory.filePath("bomb.bmp")));
    auto bomb = fileRead(directory.filePath("bomb.bmp"));
    bomb.replace(18, 8, QByteArray::fromHex("60ea000060ea0000"));
    EXPECT_TRUE(Picture(write("bomb.bmp", bomb)).isNull());
    EXPECT_TRUE(Picture(write("cut.bmp", fileRead(directory.filePath("bomb.bmp")).left(40))).isNull());

    const auto pipe = directory.filePath("pipe.pgm");
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    EXPECT_TRUE(Picture(pipe).isNull());
    EXPECT_TRUE(Picture(directory.path()).isNull());
    EXPECT_TRUE(Picture(directory.filePath("none.pgm")).isNull());
}
