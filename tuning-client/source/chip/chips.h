#pragma once

#include "tuning-client/source/chip/chip.h"

#include <QDir>
#include <QMap>
#include <QStringList>

/// All chip descriptions of the directory "chip" below the working directory, and the chosen one.
class Chips : public QObject
{
    Q_OBJECT

public:
    Chips();

    /// Reads the heads of all descriptions.
    void searchChips();

    /// Loads the description of `chipName` and makes it current; `chipChanged` is emitted before the call returns.
    void chipSet(const QString& chipName);

    QDir directory;
    QStringList xmls;             ///< file names found
    QMap<QString, QString> chips; ///< chip name to file path
    Chip chip;                    ///< the chosen one

signals:
    void chipChanged();
};

/// Built before main, so it uses no GUI class.
extern Chips chips;
