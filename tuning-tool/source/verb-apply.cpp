#include "tuning-tool/source/change.h"
#include "tuning-tool/source/difference.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/interruption.h"
#include "tuning-tool/source/journal.h"
#include "tuning-tool/source/plan.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

#include <algorithm>

namespace tool
{
namespace
{
constexpr auto wayBack = "; \"tuning-tool apply --rollback\" returns to the state of before";

/// What became of the values that were sent, field by field.
class Report
{
public:
    void add(const Step& step, const Change& change)
    {
        for (const auto& [field, wanted] : step.values)
        {
            const auto told = [](const Payload& payload, const std::string& name)
            { return sound(payload.value(name).value_or(Json::Value())); };
            const auto others = differences(*step.pPart, field, wanted, told(change.now(), field));
            const auto before = differences(*step.pPart, field, told(change.before(), field), wanted);
            for (const auto& one : before)
                add(step, one, others);
            // What the board has made another, though it was not to change.
            for (const auto& other : others)
                if (std::none_of(before.begin(), before.end(),
                                 [&](const auto& one) { return one.place == other.place; }))
                    add(step, {other.pPart, field, other.place, other.before, other.before}, others);
        }
    }

    void print(Session& session) const
    {
        if (session.options.isJson)
            session.jsonPrint(jChanges);
        else if (rows.size() > 1)
            session.columnsPrint(rows);
    }

    const std::string& others() const { return otherNames; }

private:
    void add(const Step& step, const Difference& change, const std::vector<Difference>& others)
    {
        const auto other = std::find_if(others.begin(), others.end(),
                                        [&](const auto& candidate) { return candidate.place == change.place; });
        const auto& now = other == others.end() ? change.after : other->after;
        Json::Value jChange;
        jChange["part"] = step.pPart->name();
        jChange["place"] = change.place;
        jChange["before"] = change.before.value_or(Json::Value());
        jChange["sent"] = change.after.value_or(Json::Value());
        jChange["now"] = now.value_or(Json::Value());
        jChanges.append(jChange);
        rows.push_back({step.pPart->name(), change.place, sideText(change.before), sideText(change.after),
                        sideText(now), step.isPassing ? "for the time of the change" : ""});
        if (other != others.end())
            otherNames += (otherNames.empty() ? "" : ", ") + step.pPart->name() + " " + change.place;
    }

    Json::Value jChanges{Json::arrayValue};
    std::vector<std::vector<std::string>> rows{{"", "", "before", "sent", "now"}};
    std::string otherNames;
};

bool isAlready(const Step& step, const Payload& told)
{
    return std::all_of(step.values.begin(), step.values.end(),
                       [&](const auto& value)
                       {
                           const auto now = told.value(value.first);
                           return now && isSame(value.second, sound(*now), step.pPart->type(value.first));
                       });
}

/// Brings a board to a state, command by command.
class Application
{
public:
    Application(Session& session_, const Snapshot& target)
        : session(session_), live(Snapshot::take(session, partsNeeded(target)))
    {
        for (const auto& [pPart, text] : live.refused)
            if (target.parts.count(pPart) > 0)
                throw Failure(Refused, "The board does not tell " + pPart->name() + ", nothing was sent: " + text);
        columnsCheck(target);
        for (auto& step : plan(live, target))
        {
            const auto fAssign = [values = step.values](Payload& payload)
            {
                for (const auto& [field, value] : values)
                    payload.valueSet(field, value);
            };
            try
            {
                changes.emplace_back(session, step.pPart->setter, step.pPart->reader, fAssign);
            }
            catch (const std::exception& exception)
            {
                throw Failure(Usage, step.pPart->name() + " can't be sent, and nothing was: " + exception.what());
            }
            steps.push_back(std::move(step));
        }
    }

    std::size_t count() const { return steps.size(); }

    /// The state of before, of what will be changed.
    Snapshot before() const
    {
        Snapshot snapshot;
        snapshot.head = live.head;
        for (const auto& step : steps)
            snapshot.parts[step.pPart] = live.parts.at(step.pPart);
        return snapshot;
    }

    /// Throws `Failure` where the board has what it could not be sent again, such as a number that is not finite.
    void wayBackCheck() const
    {
        for (const auto& step : steps)
            for (const auto& [field, value] : live.parts.at(step.pPart))
                try
                {
                    if (step.values.count(field) > 0)
                        Payload(step.pPart->setter.request, step.pPart->setter.generation).valueSet(field, value);
                }
                catch (const std::exception&)
                {
                    throw Failure(Usage, step.pPart->name() + " " + field + " is " + valueText(value) +
                                             ", which can't be taken back, and nothing was sent; --force sends");
                }
    }

    /// Sends and reads back; tells the report also where it fails in the middle. The journal is null for none.
    void run(Journal* pJournal)
    {
        const Interruption interruption;
        Report report;
        try
        {
            for (std::size_t i = 0; i < steps.size(); ++i)
                stepRun(i, pJournal, report);
        }
        catch (const Failure&)
        {
            report.print(session);
            throw;
        }
        catch (const std::exception& exception)
        {
            // Of an answer that has another shape than the description says.
            report.print(session);
            throw Failure(Unreadable, exception.what());
        }
        if (!session.options.isDryRun)
            report.print(session);
        if (!report.others().empty())
            throw Failure(Other, "The board has another value than was sent: " + report.others());
    }

private:
    /// What the columns of a table are is the board's matter.
    void columnsCheck(const Snapshot& target) const
    {
        for (const auto& [pPart, values] : target.parts)
        {
            const auto table = values.find("table");
            if (pPart->kind != "table" || table == values.end())
                continue;
            const auto& jLive = live.parts.at(pPart).at("table")["columns"];
            if (!jLive.empty() && jLive != table->second["columns"])
                throw Failure(LocalFile, pPart->name() + " has other columns than the board's, nothing was sent");
        }
    }

    void stepRun(std::size_t i, Journal* pJournal, Report& report)
    {
        Interruption::check();
        const auto& step = steps[i];
        auto& change = changes[i];
        change.prepare();
        // Generations of one class may be one module of the board. In a dry run nothing is, of what was to be sent.
        if (!session.options.isDryRun && isAlready(step, change.before()))
            return;
        const auto command = step.pPart->setter.name() +
                             (step.pPart->reader.generation.empty() ? "" : " " + step.pPart->reader.generation);
        if (pJournal)
            pJournal->sending(command);
        if (!change.write())
            return;
        if (pJournal)
            pJournal->done(command);
        report.add(step, change);
    }

    Session& session;
    const Snapshot live;
    std::vector<Step> steps;
    std::vector<Change> changes;
};

Snapshot targetLoad(const Session& session)
{
    const auto& path = session.options.words[0];
    auto target = Snapshot::load(path);
    sameChipCheck(target.chip(), chipOf(session.options));
    const auto wanted = partsNamed(session.options.only);
    std::swap(target.parts, target.leftOut);
    for (const auto* pPart : wanted)
        target.parts.insert(target.leftOut.extract(pPart));
    if (target.parts.empty())
        throw Failure(LocalFile,
                      path + " has no settings" + (session.options.only.empty() ? "" : " of " + session.options.only));
    return target;
}

void tell(Session& session, const std::string& text)
{
    if (!session.options.isJson)
        session.out << text << '\n';
}

void rollback(Session& session, Journal& journal)
{
    if (!journal.isThere())
        throw Failure(LocalFile, "Nothing was applied to this board that could be taken back");
    const auto entries = journal.read();
    tell(session, "Taking back: " + sentText(entries));
    try
    {
        Application application(session, entries.before);
        if (!session.options.isDryRun)
            journal.returning();
        application.run(nullptr);
    }
    catch (const Failure& failure)
    {
        const auto* ended =
            failure.code == Other ? "Taken back, but " : "Taking back has not ended, it can be run again: ";
        throw Failure(failure.code, ended + std::string(failure.what()));
    }
    if (session.options.isDryRun)
        return;
    journal.remove();
    tell(session, "The board is in the state of before");
}

void unfinishedCheck(const Session& session, const Journal& journal)
{
    if (!journal.isThere() || session.options.isForced)
        return;
    constexpr auto wayOn = ", --force goes on from here";
    std::string unfinished;
    try
    {
        const auto entries = journal.read();
        if (entries.isEnded)
            return;
        unfinished = entries.isReturning ? "The last apply to this board was not taken back whole"
                                         : "The last apply to this board has not ended, " + sentText(entries);
    }
    catch (const Failure& failure)
    {
        throw Failure(failure.code, failure.what() + std::string(wayOn));
    }
    throw Failure(Usage, unfinished + wayBack + wayOn);
}
} // namespace

void apply(Session& session)
{
    const auto& options = session.options;
    Journal journal(session.boardName());
    if (options.words.empty() && !options.isRollback)
        throw Failure(Usage, "Usage: tuning-tool apply FILE, or tuning-tool apply --rollback");
    if (!options.isDryRun)
        journal.lock();
    if (options.words.empty())
        return rollback(session, journal);
    const auto target = targetLoad(session);
    unfinishedCheck(session, journal);
    Application application(session, target);
    if (application.count() == 0)
    {
        tell(session, "Nothing differs");
        return application.run(nullptr);
    }
    if (!options.isForced)
        application.wayBackCheck();
    if (options.isDryRun)
        return application.run(nullptr);
    journal.begin(application.before(), application.count());
    try
    {
        application.run(&journal);
        journal.end();
    }
    catch (const Failure& failure)
    {
        if (failure.code == Other)
        {
            journal.end();
            throw;
        }
        const auto sent = std::string(failure.what()) + "; " + sentText(journal.read());
        if (!options.isRollback)
            throw Failure(failure.code, sent + wayBack);
        try
        {
            rollback(session, journal);
        }
        catch (const Failure& other)
        {
            throw Failure(failure.code, sent + "; " + other.what());
        }
        throw Failure(failure.code, sent + "; taken back");
    }
}
} // namespace tool
