#pragma once

namespace tool
{
/// What each control of each page of the window is and sends, as the tests of the pages have written it down.
extern const char* const pagesText;
} // namespace tool
