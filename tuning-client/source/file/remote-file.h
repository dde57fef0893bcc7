#pragma once

#include <QMenu>
#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace t_transfer
{
class ClientHolder;
}

namespace shortcut
{
/// The files of the board with `extension`. Throws as the exchange does.
std::vector<std::string> remoteList(const std::string& extension);

/// Fills `pMenu` anew with what `fEntry` adds for each name, or with "Not Found" when there is none. A name that a
/// QString can't hold, and how many more there are than a menu takes, are entries that do nothing.
void remoteMenuFill(QMenu* pMenu, const std::string& extension, const std::function<void(const QString&)>& fEntry);

/// A board's name as the text of a menu entry: on one line, bounded, and an ampersand is no mnemonic.
QString menuText(const QString& name);

/// The name that the board's file `name` gets in `directory`. Throws with a text for a name that is none here or would
/// be another one on its way to the board, and for a directory that takes no file.
QString downloadNameGet(const std::string& name, const QString& directory);

/// Fetches the board's file `name` into `directory`. Throws with a text when the exchange fails or nothing was saved.
/// With a transport that has no files nothing happens.
void remoteDownload(t_transfer::ClientHolder& clientHolder, const std::string& name, const QString& directory);

/// Sends a local file. Throws with a text when there is none to read or its name would be another one on its way to
/// the board; how the exchange ends is not known.
void remoteUpload(t_transfer::ClientHolder& clientHolder, const QString& fileName);

/// Removes a file of the board. Throws as the exchange does, and for a name that would be another one on its way.
void remoteRemove(const QString& name);
} // namespace shortcut
