#include "tuning-image/source/netpbm.h"
#include "tuning-image/source/sharpness.h"
#include "tuning-tool/source/camera.h"
#include "tuning-tool/source/change.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/interruption.h"
#include "tuning-tool/source/local-file.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

#include "tuning-common/source/limits.h"

#include <QDateTime>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <optional>
#include <thread>

namespace tool
{
namespace
{
constexpr double valuesMost = 1000;

/// "1.0:2.0:0.1", both ends among the values; throws `Failure`.
std::vector<std::string> valuesOf(const std::string& text)
{
    const auto refuse = [&](const std::string& reason) -> Failure
    { return Failure(Usage, "\"" + text + "\" is no FIRST:LAST:STEP" + reason); };
    const auto first = text.find(':');
    const auto second = text.find(':', first + 1);
    if (first == std::string::npos || second == std::string::npos)
        throw refuse("");
    double numbers[3];
    const std::string texts[]{text.substr(0, first), text.substr(first + 1, second - first - 1),
                              text.substr(second + 1)};
    for (int i = 0; i < 3; ++i)
    {
        const auto value = valueParse(texts[i], "double");
        if (!value.isNumeric())
            throw refuse(" of numbers");
        numbers[i] = value.asDouble();
    }
    // A last value that is missed by the digits of a step such as 0.1 is meant.
    constexpr double missed = 1e-6;
    const auto steps = std::floor((numbers[1] - numbers[0]) / numbers[2] + missed);
    if (!(steps >= 0 && steps < valuesMost))
        throw refuse(" of 1 to " + std::to_string(int(valuesMost)) + " values");
    std::vector<std::string> values;
    for (int i = 0; i <= int(steps); ++i)
    {
        char value[32];
        std::snprintf(value, sizeof value, "%.12g", numbers[0] + i * numbers[2]);
        values.emplace_back(value);
    }
    return values;
}

/// A name that a board and a file system take.
std::string fileName(const std::string& text)
{
    auto name = text;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c) && c != '.' && c != '-'; }, '_');
    return name;
}

/// What a picture is like. Throws `Failure` for a file that is no grey or colour picture.
Json::Value figuresOf(const std::string& path, bool isMosaic)
{
    const auto bytes = fileRead(path, t_common::limit::httpFile);
    const auto picture = Netpbm::parse(QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size())));
    if (!picture)
        throw Failure(Unreadable, path + " is no picture whose samples are known");
    double count = 0;
    double sum = 0;
    double squares = 0;
    SampleCounter counter(false);
    counter.add(picture->samples(), {QPoint(), picture->size()});
    for (const auto& channel : std::move(counter).result())
    {
        const auto samples = static_cast<double>(channel.count);
        count += samples;
        sum += samples * channel.mean;
        squares += samples * (channel.deviation * channel.deviation + channel.mean * channel.mean);
    }
    const auto mean = sum / count;
    Json::Value jFigures;
    jFigures["mean"] = mean;
    jFigures["deviation"] = std::sqrt(std::max(squares / count - mean * mean, 0.0));
    jFigures["sharpness"] = sharpnessGet(picture->samples(), picture->size(), isMosaic);
    return jFigures;
}

/// Until the pictures show the change; a signal ends it.
void wait(double seconds)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    while (Interruption::check(), Clock::now() < end)
        std::this_thread::sleep_for(std::min<Clock::duration>(end - Clock::now(), std::chrono::milliseconds(50)));
}

/// One field over its values, a picture of each, and the value of before in the end.
class Sweep
{
public:
    explicit Sweep(Session& session_)
        : session(session_),
          setter(commandShape(options().words[0], "Set", options().generation)),
          reader(readerOf(setter)),
          field(options().words[1]),
          values(valuesOf(options().words[2])),
          stamp(QDateTime::currentDateTime().toString("yyyyMMdd_hhmmss").toStdString())
    {
        // All of them before the first is sent.
        for (const auto& value : values)
            changeTo(value);
        if (pictureType(options().type) == pictureType("YUV"))
            throw Failure(Usage, "Pictures of type YUV do not tell their size, take another one");
        if (!options().isDryRun)
            session.filesNeed();
    }

    void run()
    {
        const Interruption interruption;
        std::optional<Failure> failure;
        try
        {
            for (const auto& value : values)
                valueRun(value);
        }
        catch (const Failure& caught)
        {
            failure.emplace(caught);
        }
        catch (const std::exception& exception)
        {
            failure.emplace(Unreadable, exception.what());
        }
        // The board first: who reads the table may let it wait.
        giveBack(failure);
        print();
        if (failure)
            throw Failure(*failure);
    }

private:
    const Options& options() const { return session.options; }

    Change changeTo(const std::string& value)
    {
        return {session, setter, reader, [this, value](Payload& payload) { payload.set(field, value); }};
    }

    void valueRun(const std::string& value)
    {
        auto change = changeTo(value);
        change.prepare();
        if (before.isNull())
            before = change.before().value(field).value_or(Json::Value());
        const bool isSent = change.write();
        if (isSent)
            wait(options().wait);
        const auto path = pictureTake(session, options().type, fileName(stamp + "_" + field + "_" + value), 0);
        if (!isSent)
            return;
        auto jRow = figuresOf(path, options().type != "RGB");
        jRow["value"] = change.sent().value(field).value_or(Json::Value());
        jRow["now"] = change.now().value(field).value_or(Json::Value());
        jRow["file"] = path;
        jRows.append(jRow);
    }

    /// What it cannot give back it adds to the failure.
    void giveBack(std::optional<Failure>& failure)
    {
        if (before.isNull() || options().isDryRun)
            return;
        try
        {
            Change change(session, setter, reader, [this](Payload& payload) { payload.valueSet(field, before); });
            change.prepare();
            change.write();
            const auto now = change.now().value(field).value_or(Json::Value());
            if (!isSame(before, now, change.sent().type(field)))
                throw Failure(Other, "the board has " + valueText(now));
        }
        catch (const std::exception& exception)
        {
            const auto* pFailure = dynamic_cast<const Failure*>(&exception);
            const auto code = failure ? failure->code : pFailure ? pFailure->code : Refused;
            const auto text = failure ? failure->what() + std::string("; ") : std::string();
            failure.emplace(code, text + field + " is not back at " + valueText(before) + ": " + exception.what());
        }
    }

    void print()
    {
        if (options().isDryRun)
            return;
        if (options().isJson)
            return session.jsonPrint(jRows);
        const auto number = [](const Json::Value& figure, int decimals)
        {
            char text[32];
            std::snprintf(text, sizeof text, "%.*f", decimals, figure.asDouble());
            return std::string(text);
        };
        std::vector<std::vector<std::string>> rows{{field, "now", "mean", "deviation", "sharpness", "file"}};
        for (const auto& jRow : jRows)
            rows.push_back({valueText(jRow["value"]), valueText(jRow["now"]), number(jRow["mean"], 2),
                            number(jRow["deviation"], 2), number(jRow["sharpness"], 5), valueText(jRow["file"])});
        session.columnsPrint(rows);
    }

    Session& session;
    const CommandShape setter;
    const CommandShape reader;
    const std::string field;
    const std::vector<std::string> values;
    const std::string stamp;
    Json::Value before; ///< null until it was read
    Json::Value jRows{Json::arrayValue};
};
} // namespace

void sweep(Session& session)
{
    Sweep sweep_(session);
    sweep_.run();
}
} // namespace tool
