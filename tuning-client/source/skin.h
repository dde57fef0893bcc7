#pragma once

/// The look of the application. Both operations need a live `QApplication` and come before the first widget.
namespace skin
{
struct Font
{
    static void Kestrix();
};

/// Fusion with a light palette of its own, whatever the desktop's colours are, and numbers with a point and without
/// grouping in every box, table and plot: a comma that is typed becomes a point, so that "1,5" is not taken for 15.
struct Style
{
    static void Kestrix();
};
} // namespace skin
