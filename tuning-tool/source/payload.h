#pragma once

#include "board-wire/source/keys.h"
#include "board-wire/source/wire.h"

#include <json/json.h>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tool
{
/// The keys of a request or an answer with their values, records as named fields. A field is named as it is, or with
/// its key before it where another one has the name: "config:strength". An element has its index: "Coeff[4]".
class Payload
{
public:
    /// Records start from zero.
    Payload(std::vector<board::Key> keys_, std::string generation_);

    /// What the board has answered, or what it is about to be sent: plain values, records as Base64. Keys that are not
    /// described are passed over. Throws `Failure` for one that is missing or of the wrong type.
    void take(const Json::Value& jAnswer);

    /// Gives every key that the other one has its value.
    void adopt(const Payload& other);

    /// Fills the records that the other one has not: their fields take the plain keys of the same meaning.
    void recordsFill(const Payload& other);

    /// One field or plain key from a text of the command line; a whole record is Base64, or "@FILE". Throws `Failure`
    /// for an unknown name, with those that are near, and for a value that the type cannot hold.
    void set(const std::string& name, const std::string& text);

    /// The same from a value such as `value` gives. Throws `std::runtime_error` for one that the type cannot hold.
    void valueSet(const std::string& name, const Json::Value& value);

    /// Nothing where the name leads nowhere or there is no value.
    std::optional<Json::Value> value(const std::string& name) const;

    /// Throws `Failure` where a value is missing.
    void wholeCheck() const;

    /// As they travel.
    Json::Value travelling() const;

    /// For people and programs: records as objects of their fields.
    Json::Value readable() const;

    /// The bytes of records, by their keys.
    const std::map<std::string, std::string>& records() const { return recordBytes; }

    /// All names that `set` takes, but for elements.
    std::vector<std::string> names() const;

    /// The type of a field or plain key, such as "float[9]".
    std::string type(const std::string& name) const;

private:
    /// What a name leads to.
    struct Place
    {
        const board::Key* pKey = nullptr;
        const board::Field* pField = nullptr; ///< null for a plain key and for a whole record
        std::vector<size_t> index;
    };

    const board::Key* keyFind(const std::string& name) const;
    const board::Layout& layout(const board::Key& key) const;
    Place find(const std::string& name) const; ///< throws `Failure`
    Place findAny(std::string name) const;
    Place findExactly(const std::string& name) const;
    void plainSet(const board::Key& key, const Json::Value& value);
    void recordTake(const board::Key& key, const Json::Value& value);

    std::vector<board::Key> keys;
    std::string generation;
    std::map<std::string, Json::Value> plain;
    std::map<std::string, std::string> recordBytes;
    std::map<std::string, bool> isGiven; ///< of records: whether any of their bytes was
};
} // namespace tool
