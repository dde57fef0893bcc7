#pragma once

#include "tuning-tool/source/part.h"
#include "tuning-tool/source/session.h"

#include <map>
#include <string>

namespace tool
{
/// The settings of a board at one time, as named values.
struct Snapshot
{
    using Values = std::map<std::string, Json::Value>; ///< by the names of fields

    /// Asks the board for the parts. Throws `Failure` where there is no board; what it refuses or answers in another
    /// way than the description says is kept with its words.
    static Snapshot take(Session& session, const std::vector<const Part*>& wanted);

    /// One part of the board. Throws `Failure`.
    static Values read(Session& session, const Part& part);

    /// From a file, whole and checked: every name is known and there once, and every value fits. Throws `Failure`.
    static Snapshot load(const std::string& path);
    static Snapshot fromJson(const Json::Value& jSnapshot, const std::string& path);

    Json::Value toJson() const;

    /// Of a switch: whether it is there, and on.
    bool isOn(const Part& part) const;

    std::string chip() const { return head["chip"].asString(); }

    Json::Value head{Json::objectValue}; ///< chip, time, board, versions
    std::map<const Part*, Values> parts;
    std::map<const Part*, Values> leftOut; ///< not to be sent; its switches tell which loops run
    std::map<const Part*, std::string> refused;
};

/// The chip that the board is taken for: the one of the options, else the one that the window has stored; empty where
/// neither tells.
std::string chipOf(const Options& options);

/// Throws `Failure` for snapshots of two chips, where both are known.
void sameChipCheck(const std::string& chip, const std::string& other);
} // namespace tool
