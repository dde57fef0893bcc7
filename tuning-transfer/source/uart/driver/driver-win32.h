#pragma once

#include "tuning-transfer/source/uart/driver/driver.h"

#include <windows.h>

namespace t_transfer::uart
{
/// A communications device, by its name without "\\.\".
class Win32 : public Abstract
{
public:
    explicit Win32(const std::string& name_);
    ~Win32() override;

    Win32& textRead(std::string& text) override;
    Win32& textWrite(const std::string& text) override;

private:
    bool settingsApply() const;

    HANDLE hCom;
};
} // namespace t_transfer::uart
