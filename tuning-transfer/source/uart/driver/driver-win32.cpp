#include "tuning-transfer/source/uart/driver/driver-win32.h"

#include <cstring>

namespace t_transfer::uart
{
Win32::Win32(const std::string& name_)
    : Abstract(name_),
      hCom(::CreateFileA(("\\\\.\\" + name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0,
                         nullptr))
{
    if (hCom == INVALID_HANDLE_VALUE)
        openFail();
    if (!settingsApply())
    {
        ::CloseHandle(hCom);
        openFail();
    }
}

Win32::~Win32() { ::CloseHandle(hCom); }

bool Win32::settingsApply() const
{
    // Zero disables DTR and RTS as well as every kind of flow control.
    DCB settings{};
    settings.DCBlength = sizeof settings;
    settings.BaudRate = CBR_115200;
    settings.fBinary = TRUE;
    settings.ByteSize = 8;
    settings.Parity = NOPARITY;
    settings.StopBits = ONESTOPBIT;
    settings.XonLim = 2;
    settings.XoffLim = 4;
    settings.XonChar = 0x13;
    settings.XoffChar = 0x19;
    COMMTIMEOUTS limits{};
    if (!::SetCommState(hCom, &settings) || !::GetCommTimeouts(hCom, &limits))
        return false;
    limits.ReadIntervalTimeout = static_cast<DWORD>(readPause.count());
    limits.ReadTotalTimeoutConstant = static_cast<DWORD>(readLimit.count());
    return ::SetCommTimeouts(hCom, &limits);
}

Win32& Win32::textRead(std::string& text)
{
    char buffer[readSize] = {};
    DWORD count = 0;
    if (!::ReadFile(hCom, buffer, sizeof buffer, &count, nullptr))
        readFail(count);
    text.assign(buffer, ::strnlen(buffer, count));
    return *this;
}

Win32& Win32::textWrite(const std::string& text)
{
    std::size_t count = 0;
    while (count < text.size())
    {
        DWORD size = 0;
        const auto left = static_cast<DWORD>(text.size() - count);
        // A time limit that the port came with ends a write without a failure.
        if (!::WriteFile(hCom, text.data() + count, left, &size, nullptr) || size == 0)
            writeFail(count);
        count += size;
    }
    return *this;
}
} // namespace t_transfer::uart
