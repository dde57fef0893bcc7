#pragma once

#include "tuning-common/source/logic-error.h"

#include <cstring>
#include <string>
#include <type_traits>

namespace t_common
{
/// Base64 texts of memory blocks and plain structures. Decoding skips blanks and line ends; anything else that is
/// foreign makes the result empty.
class Base64
{
public:
    static std::string encode(const void* pData, unsigned int size);

    /// The memory image of a plain structure, padding included.
    template <class T>
    static std::string encode(T value)
    {
        static_assert(std::is_trivially_copyable_v<T> && !std::is_pointer_v<T>, "only memory images travel");
        return encode(&value, sizeof value);
    }

    static std::string decode(const std::string& text);

    /// Throws `LogicError` when the text holds another number of bytes than the structure; it is unchanged then.
    template <class T>
    static void decode(const std::string& text, T& value)
    {
        static_assert(std::is_trivially_copyable_v<T> && !std::is_pointer_v<T>, "only memory images travel");
        const auto bytes = decode(text);
        if (bytes.size() != sizeof value)
            throw LogicError(LogicError::WrongSize, "Base64 decode failed: object size not match");
        std::memcpy(&value, bytes.data(), sizeof value);
    }

    /// A block of any length; the caller releases it with `std::free`. An empty one is a null pointer.
    static void decode(const std::string& text, void** ppData, unsigned int& size);
};
} // namespace t_common
