#pragma once

#include <QObject>
#include <QStatusBar>

#include <exception>
#include <type_traits>
#include <utility>

namespace shortcut
{
/// Shows a failure's text, plain and bounded, until the next message. Does nothing without a status bar.
void failureShow(QStatusBar* pStatusBar, const char* text);

/// How many failures the guards have caught so far: for a series of changes that ends with the first failure.
int failureCount();

/// Runs `action`; a std::exception becomes a text in the context's status bar, and the result is false. Everything that
/// touches the board runs in here, since no exception may enter the event loop.
template <class Context, class Action>
bool guarded(Context* pContext, Action&& action)
{
    try
    {
        std::forward<Action>(action)();
        return true;
    }
    catch (const std::exception& exception)
    {
        failureShow(pContext->statusBar(), exception.what());
        return false;
    }
}

/// Calls `action` with a signal's arguments or, where it takes none, without.
template <class Action, class... Arguments>
void call(const Action& action, const Arguments&... arguments)
{
    if constexpr (std::is_invocable_v<const Action&, const Arguments&...>)
        action(arguments...);
    else
        action();
}

/// Connects `signal` to `action` inside the guard. `action` takes the signal's arguments or none.
template <class Context, class Sender, class Signal, class Action>
void connectGuarded(Context* pContext, const Sender* pSender, Signal signal, Action action)
{
    QObject::connect(pSender, signal, pContext,
                     [pContext, action](auto... arguments) { guarded(pContext, [&] { call(action, arguments...); }); });
}
} // namespace shortcut
