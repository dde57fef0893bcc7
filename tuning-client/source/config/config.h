#pragma once

#include "tuning-client/source/config/preferences.h"
#include "tuning-client/source/config/setting.h"

namespace cfg
{
/// `widget.json`: a member for each page that was ever built. Pages read and change the tree itself.
class Widget : public Abstract
{
public:
    Widget() : Abstract("widget.json") {}
};

/// All that the client remembers between runs. GUI thread only.
class Config
{
public:
    Preferences preferences;
    Setting setting;
    Widget widget;
};
} // namespace cfg

/// Built before main, written to disk at process exit, when no GUI class is left.
extern cfg::Config config;
