#pragma once

#include <QObject>
#include <QString>
#include <QVector>

class QXmlStreamReader;

/// The description of one chip: how many inputs and cores it has and which pages it offers.
class Chip : public QObject
{
    Q_OBJECT

public:
    struct Page
    {
        int level = 0;
        QString name;
        QString type;
    };

    /// Reads the description; with `isPreload` only its head. Failures give a warning in the log, and what was read
    /// until then stays.
    void loadXml(const QString& fileName, bool isPreload);

    /// Reads the pages: all `Page` elements of the rest of the document, in its order.
    void parseTable(QXmlStreamReader& reader);

    QString chipName;
    int inputMax = 0;
    int ispMax = 0;
    QVector<Page> pages;
    QString version;

signals:
    void valueChanged();
};
