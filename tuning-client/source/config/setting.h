#pragma once

#include "tuning-client/source/config/abstract-config.h"

namespace cfg
{
/// `setting.json`: what the main window remembers.
class Setting : public Abstract
{
public:
    Setting();
    ~Setting();

    void restore();
    void store();

    int inputIndex = 0;
    int ispIndex = 0;
    bool isViewTemplate = false; ///< the Template dock is visible
    bool isViewTransfer = false; ///< the Transfer dock is visible
    QString chipName;            ///< the last chosen chip
};
} // namespace cfg
