#pragma once

#include <json/json.h>
#include <string>
#include <vector>

namespace board
{

/// One key of a command or its answer.
struct Key
{
    std::string name;
    /// "bool", "float", "double" or an integer type such as "uint16_t"; "text"; "record NAME", "bytes": Base64 text;
    /// "table"; "list of ...", "pair of ...".
    std::string type;
    bool isOptional = false;

    /// The record that travels under it, or an empty text.
    std::string recordName() const;
    /// Whether `value` is what the type says, as far as JSON shows it.
    bool fits(const Json::Value& value) const;
};

/// What commands carry beyond the envelope, by the names of the class, the command and the generation.
class Keys
{
public:
    /// The one description that is compiled in.
    static const Keys& instance();

    std::vector<Key> request(const std::string& className, const std::string& command,
                             const std::string& generation = {}) const;
    std::vector<Key> answer(const std::string& className, const std::string& command,
                            const std::string& generation = {}) const;
    /// A remark on the command, or on the class where `command` is empty.
    std::string note(const std::string& className, const std::string& command = {}) const;
    /// Throws `Failure` for a request that lacks a key or has one of the wrong type.
    void requestCheck(const std::string& className, const std::string& command, const Json::Value& query) const;

private:
    Keys();
    const Json::Value& entry(const std::string& className, const std::string& command) const;
    std::vector<Key> keys(const std::string& className, const std::string& command, const char* side,
                          const std::string& generation) const;

    Json::Value shapes;
    Json::Value classes;
};

} // namespace board
