#pragma once

#include "board-wire/source/wire.h"

#include <string>
#include <vector>

namespace board
{

/// The bytes of one record, read and written by the names of its fields.
class RecordBytes
{
public:
    RecordBytes(const Record& record, const Layout& layout);
    /// Starts from zeros; the members of the object `values` are written over them.
    RecordBytes(const Record& record, const Layout& layout, const Json::Value& values);

    const std::string& bytes() const { return content; }
    /// Throws `Failure` if the size is not that of the record. Kept fields stay as they are.
    void bytesSet(const std::string& bytes);
    /// These fields are the board's own: what a client sends in their place means nothing.
    void keep(const Json::Value& fieldNames);

    /// The value of an element as a number; any non-zero byte of a "bool" is 1.
    double number(const std::string& fieldName, size_t index = 0) const;
    /// Integers take the nearest value that they can hold.
    void numberSet(const std::string& fieldName, double value, size_t index = 0);
    /// As many elements as there are values, from the first one on.
    void numbersSet(const std::string& fieldName, const std::vector<double>& values);
    /// Text that is cut to the field's size; a text that fills it has no NUL.
    void textSet(const std::string& fieldName, const std::string& text, size_t index = 0);

private:
    void valueSet(const Field& field, const Json::Value& value, size_t& index);

    const Record* pRecord;
    const Layout* pLayout;
    std::vector<const Field*> kept;
    std::string content;
};

} // namespace board
