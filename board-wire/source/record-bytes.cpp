#include "board-wire/source/record-bytes.h"

#include "board-wire/source/failure.h"
#include "board-wire/source/scalar.h"

#include <stdexcept>

namespace board
{

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
    const double value = scalar(field.type).fNumber(content.data() + field.offset + index * field.elementSize());
    return field.type == "bool" ? value != 0.0 : value;
}

void RecordBytes::numberSet(const std::string& fieldName, double value, size_t index)
{
    const Field& field = pLayout->field(fieldName);
    if (index >= field.elementCount())
        throw std::out_of_range("Index outside of " + fieldName);
    scalar(field.type).fNumberStore(content.data() + field.offset + index * field.elementSize(), value);
}

void RecordBytes::numbersSet(const std::string& fieldName, const std::vector<double>& values)
{
    const Field& field = pLayout->field(fieldName);
    if (values.size() > field.elementCount())
        throw std::out_of_range("Too many values for " + fieldName);
    const Scalar& fieldScalar = scalar(field.type);
    const size_t size = field.elementSize();
    for (size_t i = 0; i < values.size(); ++i)
        fieldScalar.fNumberStore(content.data() + field.offset + i * size, values[i]);
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
