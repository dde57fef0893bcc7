#pragma once

class MainWindow;
class QMenu;

/// Adds the entries that move the board's settings, all of them in one calibration file, between this computer and the
/// board, and that tell the board which of its files to use. The files' content is not looked at.
void settingsTransferAdd(MainWindow* pMainWindow, QMenu* pMenuFile);
