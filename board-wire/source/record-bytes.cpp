#include "board-wire/source/record-bytes.h"

#include "board-wire/source/failure.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace board
{

namespace
{

template <typename T>
double load(const char* pBytes)
{
    T value;
    std::memcpy(&value, pBytes, sizeof value);
    return static_cast<double>(value);
}

template <typename T>
void store(char* pBytes, double number)
{
    T value;
    if constexpr (std::is_integral_v<T>)
    {
        // The upper bound of a 64-bit type is not a double; the next lower one is.
        const double low = static_cast<double>(std::numeric_limits<T>::min());
        const double high = std::nextafter(std::ldexp(1.0, std::numeric_limits<T>::digits), 0.0);
        value = std::isnan(number) ? T{} : static_cast<T>(std::clamp(number, low, high));
    }
    else
    {
        value = static_cast<T>(number);
    }
    std::memcpy(pBytes, &value, sizeof value);
}

struct Access
{
    double (*fLoad)(const char*);
    void (*fStore)(char*, double);
};

template <typename T>
constexpr Access accessOf()
{
    return {load<T>, store<T>};
}

const Access& access(const std::string& type)
{
    static const std::map<std::string, Access> accesses{
        {"bool", accessOf<uint8_t>()},    {"char", accessOf<uint8_t>()},      {"int8_t", accessOf<int8_t>()},
        {"uint8_t", accessOf<uint8_t>()}, {"int16_t", accessOf<int16_t>()},   {"uint16_t", accessOf<uint16_t>()},
        {"enum", accessOf<int32_t>()},    {"int32_t", accessOf<int32_t>()},   {"uint32_t", accessOf<uint32_t>()},
        {"int64_t", accessOf<int64_t>()}, {"uint64_t", accessOf<uint64_t>()}, {"pointer", accessOf<uint64_t>()},
        {"float", accessOf<float>()},     {"double", accessOf<double>()}};
    return accesses.at(type);
}

} // namespace

RecordBytes::RecordBytes(const Record& record, const Layout& layout)
    : pRecord(&record), pLayout(&layout), content(record.size, '\0')
{
}

RecordBytes::RecordBytes(const Record& record, const Layout& layout, const Json::Value& values)
    : RecordBytes(record, layout)
{
    for (const std::string& name : values.getMemberNames())
    {
        size_t index = 0;
        valueSet(layout.field(name), values[name], index);
    }
}

void RecordBytes::bytesSet(const std::string& bytes)
{
    if (bytes.size() != pRecord->size)
    {
        throw Failure(pRecord->name + " has " + std::to_string(pRecord->size) + " bytes, not " +
                      std::to_string(bytes.size()));
    }
    auto next = bytes;
    for (const Field* pField : kept)
    {
        const size_t size = pField->elementSize() * pField->elementCount();
        next.replace(pField->offset, size, content, pField->offset, size);
    }
    content = std::move(next);
}

void RecordBytes::keep(const Json::Value& fieldNames)
{
    for (const Json::Value& name : fieldNames)
        kept.push_back(&pLayout->field(name.asString()));
}

double RecordBytes::number(const std::string& fieldName, size_t index) const
{
    const Field& field = pLayout->field(fieldName);
    const double value = access(field.type).fLoad(content.data() + field.offset + index * field.elementSize());
    return field.type == "bool" ? value != 0.0 : value;
}

void RecordBytes::numberSet(const std::string& fieldName, double value, size_t index)
{
    const Field& field = pLayout->field(fieldName);
    if (index >= field.elementCount())
        throw std::out_of_range("Index outside of " + fieldName);
    access(field.type).fStore(content.data() + field.offset + index * field.elementSize(), value);
}

void RecordBytes::numbersSet(const std::string& fieldName, const std::vector<double>& values)
{
    const Field& field = pLayout->field(fieldName);
    if (values.size() > field.elementCount())
        throw std::out_of_range("Too many values for " + fieldName);
    const Access& fieldAccess = access(field.type);
    const size_t size = field.elementSize();
    for (size_t i = 0; i < values.size(); ++i)
        fieldAccess.fStore(content.data() + field.offset + i * size, values[i]);
}

void RecordBytes::textSet(const std::string& fieldName, const std::string& text, size_t index)
{
    const Field& field = pLayout->field(fieldName);
    const size_t length = field.shape.back();
    if ((index + 1) * length > field.elementCount())
        throw std::out_of_range("Index outside of " + fieldName);
    std::string padded = text.substr(0, length);
    padded.resize(length, '\0');
    content.replace(field.offset + index * length, length, padded);
}

void RecordBytes::valueSet(const Field& field, const Json::Value& value, size_t& index)
{
    if (value.isArray())
        for (const Json::Value& element : value)
            valueSet(field, element, index);
    else if (value.isString())
        textSet(field.name, value.asString(), index++);
    else
        numberSet(field.name, value.asDouble(), index++);
}

} // namespace board
