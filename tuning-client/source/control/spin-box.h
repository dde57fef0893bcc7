#pragma once

#include <QString>

#include <optional>

class QDoubleSpinBox;
class QSpinBox;

/// What a box of values says of itself: its range, its step, and the value that the board reported last.
QString valueTip(const QDoubleSpinBox& box, std::optional<double> readValue = {});
QString valueTip(const QSpinBox& box, std::optional<double> readValue = {});

/// The box holds a text that the user has not entered yet: not the moment to show another value.
bool isHalfTyped(const QDoubleSpinBox* pBox);
bool isHalfTyped(const QSpinBox* pBox);
