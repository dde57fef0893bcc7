#include "tuning-image/source/netpbm.h"

#include "tuning-common/source/limits.h"

#include <algorithm>

namespace
{
constexpr int sampleCount = 65536;

/// Reads the numbers of the head, each behind blanks and comments.
class Head
{
public:
    explicit Head(const QByteArray& text) : bytes(text) {}

    /// -1 for what is no number of up to 65535.
    int numberGet()
    {
        while (position < bytes.size() && (isBlank() || bytes[position] == '#'))
        {
            if (bytes[position++] == '#')
                while (position < bytes.size() && bytes[position - 1] != '\n')
                    ++position;
        }
        int number = -1;
        for (; position < bytes.size() && bytes[position] >= '0' && bytes[position] <= '9'; ++position)
        {
            number = std::max(number, 0) * 10 + (bytes[position] - '0');
            if (number >= sampleCount)
                return -1;
        }
        return number;
    }

    /// Exactly one blank stands between the head and the samples.
    bool blankSkip() { return position < bytes.size() && isBlank() && ++position; }

    int position = 2;

private:
    bool isBlank() const
    {
        const char c = bytes[position];
        return c == ' ' || (c >= '\t' && c <= '\r');
    }

    const QByteArray& bytes;
};
} // namespace

std::optional<Netpbm> Netpbm::parse(const QByteArray& bytes)
{
    Netpbm picture;
    picture.channels = bytes.startsWith("P5") ? 1 : bytes.startsWith("P6") ? 3 : 0;
    if (picture.channels == 0)
        return std::nullopt;
    Head head(bytes);
    picture.width = head.numberGet();
    picture.height = head.numberGet();
    picture.maximum = head.numberGet();
    if (picture.width < 1 || picture.height < 1 || picture.maximum < 1 || !head.blankSkip())
        return std::nullopt;

    picture.offset = head.position;
    picture.sampleSize = picture.maximum < 256 ? 1 : 2;
    const auto pixels = qint64(picture.width) * picture.height;
    if (pixels * 4 > qint64(t_common::limit::picture) ||
        pixels * picture.channels * picture.sampleSize > bytes.size() - picture.offset)
        return std::nullopt;
    picture.bytes = bytes;
    return picture;
}

const unsigned char* Netpbm::sampleAt(qint64 index) const
{
    return reinterpret_cast<const unsigned char*>(bytes.constData()) + offset + index * sampleSize;
}

int Netpbm::sample(int x, int y, int channel) const
{
    const auto* pSample = sampleAt((qint64(y) * width + x) * channels + channel);
    return sampleSize == 1 ? *pSample : pSample[0] << 8 | pSample[1];
}

SampleGrid Netpbm::samples() const
{
    return {sampleAt(0), qint64(width) * channels * sampleSize, channels, channels,
            sampleSize == 1 ? SampleGrid::Bytes : SampleGrid::WordsOfFile};
}
