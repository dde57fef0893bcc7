#include "tuning-client/source/file/capture.h"

#include "tuning-client/source/file/remote-file.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>
#include <stdexcept>

using rest::Camera;

namespace
{
/// Has the board take the picture and returns the name that it gave the file.
std::string boardCapture(t_transfer::ClientHolder& clientHolder, const cfg::Capture& capture)
{
    const auto name = shortcut::captureNameGet(capture.snapshotType, QDateTime::currentDateTime());
    // Another thread fills it, which has ended when the call returns.
    std::optional<Json::Value> jResponse;
    Camera().capture(name.toStdString(), capture.snapshotType, shortcut::captureLocksGet(capture),
                     [&jResponse](const Json::Value& jAnswer) { jResponse = jAnswer; });
    if (!jResponse)
        throw std::runtime_error("Capture failed: " + clientHolder.abstract().failure);
    if (rest::answerGet<int32_t>(*jResponse, "error") != 0)
    {
        const auto message = rest::answerGet<std::string>(*jResponse, "message");
        throw std::runtime_error(message.empty() ? "Capture failed: the board gives no reason" : message);
    }
    return rest::answerGet<std::string>(*jResponse, "file.name");
}
} // namespace

namespace shortcut
{
QString captureNameGet(Camera::SnapshotType snapshotType, const QDateTime& time)
{
    const char* prefix = nullptr;
    switch (snapshotType)
    {
    case Camera::Raw08:
        prefix = "RAW08_";
        break;
    case Camera::Raw10:
        prefix = "RAW10_";
        break;
    case Camera::Raw12:
        prefix = "RAW12_";
        break;
    case Camera::Raw16:
        prefix = "RAW16_";
        break;
    case Camera::Rgb:
        prefix = "RGB_";
        break;
    case Camera::Yuv:
        prefix = "YUV_";
        break;
    }
    return prefix ? prefix + time.toString("yyyyMMdd") + "_" + time.toString("hhmmss") : QString();
}

uint32_t captureLocksGet(const cfg::Capture& capture)
{
    return (capture.isAf ? 1u : 0u) | (capture.isAe ? 2u : 0u) | (capture.isAwb ? 4u : 0u);
}

QString captureTake(t_transfer::ClientHolder& clientHolder, const cfg::Capture& capture)
{
    const auto boardName = boardCapture(clientHolder, capture);
    const auto name = downloadNameGet(boardName, capture.path);
    // The viewer shows the newest file that is not hidden.
    if (name.startsWith('.'))
        throw std::runtime_error(QObject::tr("Download failed: %1 would be a hidden file").arg(name).toStdString());
    const auto path = capture.path + "/" + name;
    // A picture from before that can't be replaced would pass for the new one.
    if (QFileInfo::exists(path) && !QFileInfo(path).isWritable())
        throw std::runtime_error(QObject::tr("Saving of %1 failed: it is read-only").arg(path).toStdString());

    const bool isUsersOwn = QFileInfo::exists(name);
    Json::Value jFile;
    jFile["path"] = boardName;
    jFile["path.local"] = capture.path.toStdString();
    clientHolder.fileDownload(jFile);
    // A transport may store in the working directory. What lay there before is none of ours.
    if (!isUsersOwn && QFile::copy(name, path))
        QFile::remove(name);
    // A transport that could not write has no way to say so.
    if (!QFileInfo(path).isFile())
        throw std::runtime_error(
            QObject::tr("Download failed: no file %1 in %2").arg(name, capture.path).toStdString());
    return path;
}

bool isCaptureNameTaken(const cfg::Capture& capture, const QDateTime& time)
{
    const auto name = captureNameGet(capture.snapshotType, time) + ".*";
    // The picture beside a capture in YUV.
    return !QDir(capture.path).entryList({name, QString(name).replace("YUV", "RGB")}).isEmpty();
}
} // namespace shortcut
