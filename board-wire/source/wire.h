#pragma once

#include <cstddef>
#include <cstdint>
#include <json/json.h>
#include <map>
#include <string>
#include <vector>

namespace board
{

/// A field of a record: its place and its kind. A field of several elements has the numbers of them in `shape`.
struct Field
{
    std::string name;
    size_t offset = 0;
    /// "bool", "char", "enum", "float", "double", "pointer" or an integer type such as "uint16_t".
    std::string type;
    std::vector<size_t> shape;

    /// Bytes of one element.
    size_t elementSize() const;
    size_t elementCount() const;
};

/// One meaning of a record's bytes. A record that is a union has several.
struct Layout
{
    std::string name;
    std::vector<Field> fields;

    /// Throws `std::out_of_range` for an unknown name.
    const Field& field(const std::string& fieldName) const;
};

struct Record
{
    std::string name;
    size_t size = 0;
    std::vector<Layout> layouts;

    /// The layout of that name; the first one for an empty name. Throws `std::out_of_range`.
    const Layout& layout(const std::string& layoutName = {}) const;
};

struct Command
{
    std::string name;
    int64_t id = 0;
};

/// A command class, named without the "rest::" before it.
struct CommandClass
{
    std::string name;
    std::vector<Command> commands;
    /// Empty for a class without generations.
    std::map<std::string, int> generations;

    /// The number of a command. Throws `std::out_of_range`.
    int64_t id(const std::string& command) const;
};

/// All commands and record layouts that the board knows.
class Wire
{
public:
    /// The one description that is compiled in.
    static const Wire& instance();
    explicit Wire(const Json::Value& description);

    const std::vector<CommandClass>& classes() const { return commandClasses; }
    const std::map<std::string, Record>& records() const { return recordMap; }
    /// Both throw `std::out_of_range` for an unknown name.
    const CommandClass& commandClass(const std::string& name) const;
    const Record& record(const std::string& name) const;

private:
    std::vector<CommandClass> commandClasses;
    std::map<std::string, Record> recordMap;
};

} // namespace board
