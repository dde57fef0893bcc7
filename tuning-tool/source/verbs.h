#pragma once

#include "tuning-tool/source/session.h"

/// The sub-commands. Each takes its words from the session's options and throws `Failure`.
namespace tool
{
void get(Session& session);
void set(Session& session);
void call(Session& session);
void list(Session& session);
void tableGet(Session& session);
void tableSet(Session& session);
void fileList(Session& session);
void fileGet(Session& session);
void filePut(Session& session);
void fileRemove(Session& session);
void capture(Session& session);
void registerRead(Session& session);
void registerWrite(Session& session);
void registerDump(Session& session);
void snapshot(Session& session);
void diff(Session& session);
void merge(Session& session);
void apply(Session& session);
void sweep(Session& session);
void chipCheck(Session& session);
void chipPages(Session& session);
void completion(Session& session);

/// Prints what may stand in place of the last word.
void complete(Session& session);
} // namespace tool
