#pragma once

#include "tuning-client/source/config/abstract-config.h"
#include "tuning-rest/source/camera.h"

#include <QPair>
#include <QString>
#include <QVector>

#include <cstdint>

namespace cfg
{
/// Where calibration files land on this computer.
struct Calibration
{
    QString path = QDir::currentPath();

    void restore(QJsonValueRef section);
    void store(QJsonValueRef section) const;
};

/// How captures are taken and where they land.
struct Capture
{
    bool isAe = false;  ///< lock exposure
    bool isAf = false;  ///< lock focus
    bool isAwb = false; ///< lock white balance
    QString path = QDir::homePath() + "/Pictures";
    rest::Camera::SnapshotType snapshotType = rest::Camera::Raw08;

    void restore(QJsonValueRef section);
    void store(QJsonValueRef section) const;
};

/// The way to the board. It has no file of its own.
class Server : public Abstract
{
public:
    struct Http
    {
        int index = 0; ///< of the current server in `collection`; comes from a file, so it may lie outside
        QVector<QPair<QString, uint16_t>> collection; ///< host and port

        void add(const QString& host, uint16_t port);

        /// The current server; throws std::logic_error when there is none.
        QPair<QString, uint16_t>& server();

        void restore(QJsonValueRef section);
        void store(QJsonValueRef section) const;
    };

    struct Uart
    {
        QString port; ///< name of the serial port

        void restore(QJsonValueRef section);
        void store(QJsonValueRef section) const;
    };

    Http http;
    Uart uart;
    QString type = "http"; ///< "http" or "uart"

    /// The section holds the records of both transports, so that a change of transport loses nothing.
    void restore(QJsonValueRef section);
    void store(QJsonValueRef section) const;
};

/// How the window behaves.
struct Window
{
    bool isAutoResize = false; ///< pages remember the size of the window

    void restore(QJsonValueRef section);
    void store(QJsonValueRef section) const;
};

/// `preferences.json`.
class Preferences : public Abstract
{
public:
    Preferences();
    ~Preferences();

    /// Fields from the file's content; called once, by main.
    void restore();
    void store();

    Calibration calibration;
    Capture capture;
    Server server;
    Window window;
};
} // namespace cfg
