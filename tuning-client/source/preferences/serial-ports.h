#pragma once

#include <QDir>
#include <QStringList>

/// Names of the serial ports of this computer, sorted. `terminals` is where the system lists its terminals.
QStringList serialPorts(const QDir& terminals = QDir("/sys/class/tty"));
