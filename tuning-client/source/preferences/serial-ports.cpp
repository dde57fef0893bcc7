#include "tuning-client/source/preferences/serial-ports.h"

#include <QFile>
#include <QSettings>

QStringList serialPorts(const QDir& terminals)
{
    QStringList ports;
#ifdef Q_OS_WIN
    Q_UNUSED(terminals)
    const QSettings devices("HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM", QSettings::NativeFormat);
    for (const auto& key : devices.allKeys())
        ports.append(devices.value(key).toString());
    ports.sort();
#else
    for (const auto& name : terminals.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
    {
        // Consoles and pseudo-terminals have no device behind them. Type 0 is a place for a port that is not there.
        QFile type(terminals.filePath(name + "/type"));
        const bool isEmpty = type.open(QIODevice::ReadOnly) && type.readLine(16).trimmed() == "0";
        if (QFile::exists(terminals.filePath(name + "/device")) && !isEmpty)
            ports.append("/dev/" + name);
    }
#endif
    return ports;
}
