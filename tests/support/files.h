#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include <string>

/// For messages, since a QString is not printable by the test library.
inline std::string str(const QString& text) { return text.toStdString(); }

/// The bytes of a file, "no file" for none.
inline QByteArray fileRead(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

inline void fileWrite(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << str(path);
    ASSERT_EQ(file.write(bytes), bytes.size());
}
