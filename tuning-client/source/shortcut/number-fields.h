#pragma once

namespace shortcut
{
/// Makes a comma a point in every field for numbers that is shown from now on, whether it is typed, pasted or dropped.
/// A field says that it is for numbers by its input method hints, as spin boxes do by themselves.
void commaIsPoint();
} // namespace shortcut
