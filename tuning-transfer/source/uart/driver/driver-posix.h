#pragma once

#include "tuning-transfer/source/uart/driver/driver.h"

namespace t_transfer::uart
{
/// A terminal device, by its path or by its name below "/dev".
class Posix : public Abstract
{
public:
    explicit Posix(const std::string& name_);
    ~Posix() override;

    Posix& textRead(std::string& text) override;

    /// A line that takes nothing for `t_common::limit::serialStall` fails.
    Posix& textWrite(const std::string& text) override;

private:
    using Clock = std::chrono::steady_clock;

    bool settingsApply() const;

    /// True when reading or writing would not block any more, and when the port has failed.
    bool await(short events, Clock::time_point end) const;

    int hCom;
};
} // namespace t_transfer::uart
