#pragma once

#include "tuning-client/source/config/preferences.h"

#include <QDateTime>
#include <QString>

namespace t_transfer
{
class ClientHolder;
}

namespace shortcut
{
/// The name that a capture is asked for under; the board adds the suffix. Empty for a type that is none.
QString captureNameGet(rest::Camera::SnapshotType snapshotType, const QDateTime& time);

/// The routines that the board holds during the capture: 1 focus, 2 exposure, 4 white balance.
uint32_t captureLocksGet(const cfg::Capture& capture);

/// Has the board take a picture and fetches the file into the capture directory. Returns its path. Every other end is a
/// `std::exception` with the text to show.
QString captureTake(t_transfer::ClientHolder& clientHolder, const cfg::Capture& capture);

/// Whether a capture of that time would take the name of a file that is there already.
bool isCaptureNameTaken(const cfg::Capture& capture, const QDateTime& time);
} // namespace shortcut
