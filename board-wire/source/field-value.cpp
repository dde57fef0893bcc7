#include "board-wire/source/field-value.h"

#include "board-wire/source/failure.h"
#include "board-wire/source/scalar.h"

#include <algorithm>
#include <cctype>

namespace board
{

namespace
{

bool isSameWord(const std::string& left, const std::string& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

/// One dimension of a field after the other, from the bytes of its first element on.
class Walk
{
public:
    explicit Walk(const Field& walkedField) : field(walkedField), isText(field.type == "char" && !field.shape.empty())
    {
    }

    Json::Value get(const char* pBytes, size_t dimension) const
    {
        if (isLeaf(dimension))
            return isText ? textGet(pBytes) : scalarFind(field.type)->fLoad(pBytes);
        Json::Value list(Json::arrayValue);
        for (size_t i = 0; i < field.shape[dimension]; ++i)
            list.append(get(pBytes + i * size(dimension + 1), dimension + 1));
        return list;
    }

    void set(char* pBytes, size_t dimension, const Json::Value& value) const
    {
        if (isLeaf(dimension))
            return isText ? textSet(pBytes, value) : scalarSet(pBytes, value);
        if (!value.isArray() || value.size() != field.shape[dimension])
            throw Failure(field.name + " is a list of " + std::to_string(field.shape[dimension]) + " values");
        for (Json::ArrayIndex i = 0; i < value.size(); ++i)
            set(pBytes + i * size(dimension + 1), dimension + 1, value[i]);
    }

    /// Bytes of what is left behind the first dimensions.
    size_t size(size_t dimension) const
    {
        size_t bytes = field.elementSize();
        for (size_t i = dimension; i < field.shape.size(); ++i)
            bytes *= field.shape[i];
        return bytes;
    }

    size_t dimensions() const { return field.shape.size() - (isText ? 1 : 0); }

private:
    bool isLeaf(size_t dimension) const { return dimension >= dimensions(); }

    Json::Value textGet(const char* pBytes) const
    {
        return std::string(pBytes, std::find(pBytes, pBytes + field.shape.back(), '\0'));
    }

    void textSet(char* pBytes, const Json::Value& value) const
    {
        const std::string text = value.isString() ? value.asString() : std::string();
        if (!value.isString() || text.size() > field.shape.back() || text.find('\0') != std::string::npos)
            throw Failure(field.name + " is a text of at most " + std::to_string(field.shape.back()) + " bytes");
        std::fill(std::copy(text.begin(), text.end(), pBytes), pBytes + field.shape.back(), '\0');
    }

    void scalarSet(char* pBytes, const Json::Value& value) const
    {
        scalarCheck(field.type, value, field.name);
        scalarFind(field.type)->fStore(pBytes, value);
    }

    const Field& field;
    const bool isText;
};

} // namespace

const Layout& layoutOf(const Record& record, const std::string& generation)
{
    for (const Layout& layout : record.layouts)
        if (isSameWord(layout.name, generation))
            return layout;
    return record.layout();
}

Json::Value fieldGet(const Field& field, const std::string& bytes)
{
    return Walk(field).get(bytes.data() + field.offset, 0);
}

void fieldSet(const Field& field, std::string& bytes, const std::vector<size_t>& index, const Json::Value& value)
{
    const Walk walk(field);
    if (index.size() > walk.dimensions())
        throw Failure(field.name + " has " + std::to_string(walk.dimensions()) + " dimensions");
    std::string next = bytes;
    size_t offset = field.offset;
    for (size_t i = 0; i < index.size(); ++i)
    {
        if (index[i] >= field.shape[i])
            throw Failure(field.name + " has the elements 0 to " + std::to_string(field.shape[i] - 1));
        offset += index[i] * walk.size(i + 1);
    }
    walk.set(next.data() + offset, index.size(), value);
    bytes = std::move(next);
}

} // namespace board
