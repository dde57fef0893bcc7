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

/// Fills `pMenu` anew with what `fEntry` adds for each name, or with "Not Found" when there is none.
void remoteMenuFill(QMenu* pMenu, const std::string& extension, const std::function<void(const QString&)>& fEntry);

/// A board's name as the text of a menu entry: on one line, bounded, and an ampersand is no mnemonic.
QString menuText(const QString& name);

/// Fetches the board's file `name` into `directory`. Throws with a text when the exchange fails or nothing was saved.
void remoteDownload(t_transfer::ClientHolder& clientHolder, const QString& name, const QString& directory);

/// Sends a local file. Throws with a text when there is none to read; how the exchange ends is not known.
void remoteUpload(t_transfer::ClientHolder& clientHolder, const QString& fileName);
} // namespace shortcut
