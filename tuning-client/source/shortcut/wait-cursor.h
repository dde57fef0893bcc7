#pragma once

#include <QApplication>

namespace shortcut
{
/// The wait cursor for as long as it lives: for what may take longer than two seconds.
struct WaitCursor
{
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};
} // namespace shortcut
