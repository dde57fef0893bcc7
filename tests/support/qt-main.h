#pragma once

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

#include <functional>

/// The one time limit of all waiting in tests, in milliseconds. Sanitizer builds get five times as much.
int waitLimit();

/// Runs the event loop until the condition holds. False when the limit passed first.
bool waitUntil(const std::function<bool()>& condition);
