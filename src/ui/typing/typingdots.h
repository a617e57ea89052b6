// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The animation of the typing dots, as functions of the time. Without a state, the dots stay in
/// phase after a pause. Lengths are in device-independent pixels, times in seconds.
class TOLVANE_VIEWS_AUTOTEST_EXPORT TypingDots : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int dotCount MEMBER dotCount CONSTANT)
    Q_PROPERTY(double dotSize MEMBER dotSize CONSTANT)
    Q_PROPERTY(double spacing MEMBER spacing CONSTANT)
    /// Enough for the dots at any offset.
    Q_PROPERTY(double height READ height CONSTANT)

public:
    using QObject::QObject;

    int dotCount = 3;
    double dotSize = 8;
    /// The greatest offset up or down.
    double verticalAmplitude = 4;
    /// The scale at the bottom of the wave, and its increase at the top.
    double baseScale = 0.95;
    double scaleAmplitude = 0.12;
    double baseOpacity = 0.6;
    double opacityAmplitude = 0.4;
    double cyclesPerSecond = 1;
    /// From one dot to the next, in radians.
    double phaseOffsetPerDot = 1.0471975511965976;
    double spacing = 6;

    double height() const { return dotSize + 2 * verticalAmplitude; }

    /// Up is negative.
    Q_INVOKABLE double offset(int dot, double time) const;
    Q_INVOKABLE double scale(int dot, double time) const;
    Q_INVOKABLE double opacity(int dot, double time) const;

    /// Seconds since the beginning of 2001, UTC.
    Q_INVOKABLE double now() const;

private:
    double wave(int dot, double time) const;
    /// 0 at the bottom of the wave, 1 at its top.
    double rise(int dot, double time) const { return (wave(dot, time) + 1) * 0.5; }
};

} // namespace tolvane
