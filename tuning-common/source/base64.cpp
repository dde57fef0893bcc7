#include "tuning-common/source/base64.h"

#include <QByteArray>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace t_common
{
std::string Base64::encode(const void* pData, unsigned int size)
{
    return QByteArray::fromRawData(static_cast<const char*>(pData), static_cast<int>(size)).toBase64().toStdString();
}

std::string Base64::decode(const std::string& text)
{
    constexpr auto blanks = " \t\r\n";
    if (text.find_first_of(blanks) != std::string::npos)
    {
        auto dense = text;
        dense.erase(
            std::remove_if(dense.begin(), dense.end(), [=](char c) { return c != 0 && std::strchr(blanks, c); }),
            dense.end());
        return decode(dense);
    }
    const auto result = QByteArray::fromBase64Encoding(
        QByteArray::fromRawData(text.data(), static_cast<int>(text.size())), QByteArray::AbortOnBase64DecodingErrors);
    return result ? result.decoded.toStdString() : std::string();
}

void Base64::decode(const std::string& text, void** ppData, unsigned int& size)
{
    const auto bytes = decode(text);
    void* pBlock = nullptr;
    if (!bytes.empty())
    {
        pBlock = std::malloc(bytes.size());
        if (pBlock == nullptr)
            throw std::bad_alloc();
        std::memcpy(pBlock, bytes.data(), bytes.size());
    }
    *ppData = pBlock;
    size = static_cast<unsigned int>(bytes.size());
}
} // namespace t_common
