#include "tuning-client/source/config/preferences.h"

#include "tuning-common/source/limits.h"

#include <QJsonArray>

#include <stdexcept>

namespace cfg
{
namespace
{
void pathRestore(QString& path, const QJsonValue& value)
{
    if (!value.toString().isEmpty())
        path = value.toString();
}
} // namespace

void Calibration::restore(QJsonValueRef section) { pathRestore(path, section.toObject()["save.path"]); }

void Calibration::store(QJsonValueRef section) const
{
    auto jSection = section.toObject();
    jSection.insert("save.path", path);
    section = jSection;
}

void Capture::restore(QJsonValueRef section)
{
    const auto jSection = section.toObject();
    isAe = jSection["ae.enable"].toBool();
    isAf = jSection["af.enable"].toBool();
    isAwb = jSection["awb.enable"].toBool();
    pathRestore(path, jSection["save.path"]);
    const int type = jSection["image.type"].toInt();
    snapshotType = type >= rest::Camera::Raw08 && type <= rest::Camera::Yuv ? rest::Camera::SnapshotType(type)
                                                                            : rest::Camera::Raw08;
}

void Capture::store(QJsonValueRef section) const
{
    auto jSection = section.toObject();
    jSection.insert("save.path", path);
    jSection.insert("image.type", int(snapshotType));
    jSection.insert("ae.enable", isAe);
    jSection.insert("af.enable", isAf);
    jSection.insert("awb.enable", isAwb);
    section = jSection;
}

void Server::Http::add(const QString& host, uint16_t port) { collection.append({host, port}); }

QPair<QString, uint16_t>& Server::Http::server()
{
    if (collection.isEmpty())
        throw std::logic_error("Server list is empty");
    if (index < 0 || index >= collection.size())
        throw std::logic_error("Server index is out of range");
    return collection[index];
}

void Server::Http::restore(QJsonValueRef section)
{
    const auto jSection = section.toObject();
    index = jSection["index"].toInt();
    for (const auto& jHost : jSection["hosts"].toArray())
    {
        if (collection.size() >= int(t_common::limit::listElements))
            break;
        add(jHost.toObject()["ip"].toString(), uint16_t(jHost.toObject()["port"].toInt()));
    }
}

void Server::Http::store(QJsonValueRef section) const
{
    QJsonArray jHosts;
    for (const auto& host : collection)
        jHosts.append(QJsonObject{{"ip", host.first}, {"port", host.second}});
    auto jSection = section.toObject();
    jSection.insert("index", index);
    jSection.insert("hosts", jHosts);
    section = jSection;
}

void Server::Uart::restore(QJsonValueRef section) { port = section.toObject()["port"].toString(); }

void Server::Uart::store(QJsonValueRef section) const
{
    auto jSection = section.toObject();
    jSection.insert("port", port);
    section = jSection;
}

// Files of before the choice was kept have no type.
void Server::restore(QJsonValueRef section)
{
    type = section.toObject()["type"].toString() == "uart" ? "uart" : "http";
    http.restore(section);
    uart.restore(section);
}

void Server::store(QJsonValueRef section) const
{
    auto jSection = section.toObject();
    jSection.insert("type", type);
    section = jSection;
    http.store(section);
    uart.store(section);
}

void Window::restore(QJsonValueRef section) { isAutoResize = section.toObject()["auto.resize"].toBool(); }

void Window::store(QJsonValueRef section) const
{
    auto jSection = section.toObject();
    jSection.insert("auto.resize", isAutoResize);
    section = jSection;
}

Preferences::Preferences() : Abstract("preferences.json") {}

Preferences::~Preferences() { store(); }

// The writing operator[] leaves all four sections in the file, also on a first run.
void Preferences::restore()
{
    calibration.restore(jRoot["calibration"]);
    capture.restore(jRoot["capture"]);
    server.restore(jRoot["server"]);
    window.restore(jRoot["window"]);
}

void Preferences::store()
{
    calibration.store(jRoot["calibration"]);
    capture.store(jRoot["capture"]);
    server.store(jRoot["server"]);
    window.store(jRoot["window"]);
}
} // namespace cfg
