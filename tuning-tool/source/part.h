#pragma once

#include "tuning-tool/source/command-shape.h"

#include <string>
#include <vector>

namespace tool
{
/// What a snapshot holds of a module, in the order in which the board describes itself: its configuration, its switch
/// or its auto table.
struct Part
{
    /// "Wb", and "Wdr V4" in a class with generations.
    std::string moduleName() const;
    std::string name() const { return moduleName() + "." + kind; }

    /// The type of a field, empty for what has none.
    std::string type(const std::string& field) const;

    /// The class whose loop, while it runs, takes the place of this field: the automatic white balance that of the
    /// manual one, the exposure that of the sensor's gain and time. Empty for none.
    std::string driver(const std::string& field) const;

    /// Whether that loop writes the field itself, so that it moves from one moment to the next.
    bool isMoved(const std::string& field) const
    {
        return reader.commandClass.name == "Sensor" && !driver(field).empty();
    }

    /// Throws `Failure` for a value that the field cannot have, with the names that are near for one that is not there.
    void check(const std::string& field, const Json::Value& value) const;

    std::string kind; ///< "config", "enable" or "table"
    CommandShape reader;
    CommandShape setter;
    std::vector<std::string> fields; ///< that are read as well as set, by the names that `set` takes
};

/// All of the description, each at one place for the whole run.
const std::vector<Part>& allParts();

/// The parts of modules that are named: "Wb,Wdr V4,Gc"; of all for an empty text. Throws `Failure` for a name that no
/// module has.
std::vector<const Part*> partsNamed(const std::string& names);

/// The part of that kind in the same module; null where there is none.
const Part* partOf(const Part& part, const std::string& kind);

/// The switches of a class, one for each generation.
std::vector<const Part*> switchesOf(const std::string& className);
} // namespace tool
