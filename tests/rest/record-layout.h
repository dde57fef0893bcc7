#pragma once

// Collects what the headers of the command layer say of their records: stands before the first of them, whose compiler
// checks it replaces by entries in a table.

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <type_traits>
#include <typeindex>
#include <utility>
#include <vector>

namespace rest
{
class Flag;
}

namespace layout
{
struct Field
{
    std::string path;
    size_t offset;
    std::string type;            ///< as the wire names it; empty for a structure
    std::vector<size_t> shape;   ///< numbers of elements
    std::type_index elementType; ///< of one element
    size_t elementSize;
};

struct Record
{
    std::string name;
    size_t size = 0;
    std::vector<Field> fields;
};

inline std::map<std::type_index, Record>& records()
{
    static std::map<std::type_index, Record> map;
    return map;
}

template <class T>
std::string typeName()
{
    if constexpr (std::is_enum_v<T>)
        return "enum";
    else if constexpr (std::is_same_v<T, char>)
        return "char";
    else if constexpr (std::is_floating_point_v<T>)
        return std::is_same_v<T, float> ? "float" : "double";
    else if constexpr (std::is_integral_v<T>)
        return (std::is_unsigned_v<T> ? "uint" : "int") + std::to_string(8 * sizeof(T)) + "_t";
    else
        return std::is_same_v<T, rest::Flag> ? "bool" : "";
}

template <class T>
bool recordAdd(const char* name, size_t size)
{
    records()[typeid(T)].name = name;
    records()[typeid(T)].size = size;
    return true;
}

template <class Record, class Member>
bool fieldAdd(const char* path, size_t offset)
{
    using Element = std::remove_all_extents_t<Member>;
    std::vector<size_t> shape;
    if constexpr (std::rank_v < Member >> 0)
        shape.push_back(std::extent_v<Member, 0>);
    if constexpr (std::rank_v < Member >> 1)
        shape.push_back(std::extent_v<Member, 1>);
    records()[typeid(Record)].fields.push_back(
        {path, offset, typeName<Element>(), shape, typeid(Element), sizeof(Element)});
    return true;
}

/// Names of indices as numbers.
inline std::string withNumbers(std::string path)
{
    const auto bracket = path.find('[');
    const auto end = path.find(']', bracket + 1);
    if (bracket != std::string::npos && path.find_first_not_of("0123456789", bracket + 1) != end)
        path.replace(bracket + 1, end - bracket - 1, path.compare(end - 3, 3, "Red") == 0 ? "1" : "0");
    return path;
}

/// The fields of a record that are no structures, by their paths.
inline std::map<std::string, Field> leaves(std::type_index type)
{
    std::map<std::string, Field> result;
    for (const auto& field : records()[type].fields)
    {
        if (!field.type.empty())
        {
            result.emplace(withNumbers(field.path), field);
            continue;
        }
        const size_t count = field.shape.empty() ? 1 : field.shape[0];
        for (const auto& [path, leaf] : leaves(field.elementType))
        {
            for (size_t i = 0; i < count; ++i)
            {
                auto element = leaf;
                element.path = field.path + (field.shape.empty() ? "" : "[" + std::to_string(i) + "]") + "." + path;
                element.offset = field.offset + i * field.elementSize + leaf.offset;
                result.emplace(element.path, element);
            }
        }
    }
    return result;
}

/// The record of that name on the wire, or null.
inline const std::pair<const std::type_index, Record>* recordFind(const std::string& name)
{
    for (const auto& entry : records())
        if (entry.second.name == name || "rest::" + entry.second.name == name)
            return &entry;
    return nullptr;
}

/// The field of that name on the wire, or null. The wire knows the members of a union by the names of its layouts; a
/// record of one layout is no union there, whatever its structure is.
inline const Field* leafFind(const std::map<std::string, Field>& leaves, std::string layoutName,
                             const std::string& name)
{
    for (auto& c : layoutName)
        c = static_cast<char>(std::tolower(c));
    for (const auto& prefix : {layoutName + ".", std::string(), std::string("v1."), std::string("v2.")})
    {
        const auto found = leaves.find(prefix + withNumbers(name));
        if (found != leaves.end())
            return &found->second;
    }
    return nullptr;
}
} // namespace layout

#define LAYOUT_JOIN2(a, b) a##b
#define LAYOUT_JOIN(a, b) LAYOUT_JOIN2(a, b)
#define RECORD_SIZE(record, size)                                                                                      \
    [[maybe_unused]] static const bool LAYOUT_JOIN(recordEntry, __COUNTER__) =                                         \
        ::layout::recordAdd<record>(#record, size)
#define RECORD_FIELD(record, field, offset)                                                                            \
    [[maybe_unused]] static const bool LAYOUT_JOIN(recordEntry, __COUNTER__) =                                         \
        ::layout::fieldAdd<record, std::remove_reference_t<decltype(std::declval<record&>().field)>>(#field, offset)
