#pragma once

class QWidget;

namespace shortcut
{
/// Lets the wheel pass over all sliders, spin boxes and combo boxes below `pPage`: it scrolls the page and never tunes
/// the camera. May be called again after controls were added.
void wheelIgnore(QWidget* pPage);
} // namespace shortcut
