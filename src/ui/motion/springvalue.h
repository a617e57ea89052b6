// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/motion/spring.h"

#include <QtCore/QAbstractAnimation>
#include <QtCore/QObject>
#include <QtQml/QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// A number that follows its target like a damped spring, one step per frame, and comes to rest
/// exactly at the target. If the target changes during the motion, the value continues with its
/// current velocity.
///
///     SpringValue { id: height; target: view.isOpen ? 240 : 80 }
///
/// A target that is set during construction applies without animation. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT SpringValue : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    /// Infinite numbers and NaN are ignored; an equal number changes nothing.
    Q_PROPERTY(double target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(double value READ value NOTIFY valueChanged)
    /// In seconds; at 0 or less, the value follows immediately. Changes of `response` and
    /// `dampingFraction` apply from the next target on.
    Q_PROPERTY(double response READ response WRITE setResponse NOTIFY springChanged)
    /// At least 0.05, so that the value comes to rest.
    Q_PROPERTY(
        double dampingFraction READ dampingFraction WRITE setDampingFraction NOTIFY springChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY isRunningChanged)

public:
    explicit SpringValue(QObject *parent = nullptr);

    double target() const { return m_target; }
    void setTarget(double target);
    double value() const { return m_value; }
    double response() const { return m_spring.response; }
    void setResponse(double response);
    double dampingFraction() const { return m_spring.dampingFraction; }
    void setDampingFraction(double fraction);
    bool isRunning() const { return m_frameTicker.state() == QAbstractAnimation::Running; }

    /// Sets target and value without animation. Stops a running animation.
    Q_INVOKABLE void jumpTo(double value);

Q_SIGNALS:
    void targetChanged();
    void valueChanged();
    void springChanged();
    void isRunningChanged();

protected:
    void classBegin() override { m_isComplete = false; }
    void componentComplete() override { m_isComplete = true; }

private:
    /// Calls step() once per frame.
    class FrameTicker final : public QAbstractAnimation
    {
    public:
        explicit FrameTicker(SpringValue &value)
            : m_springValue(value)
        {
        }
        int duration() const override { return -1; }

    protected:
        void updateCurrentTime(int) override { m_springValue.step(); }

    private:
        SpringValue &m_springValue;
    };

    Spring::Motion motion() const;
    void step();
    void comeToRest();
    void setValue(double value);
    bool replaceTarget(double target);

    Spring m_spring;
    /// The spring of the running animation, and the motion that it started with.
    Spring m_runningSpring;
    Spring::Motion m_start;
    double m_target = 0;
    double m_value = 0;
    FrameTicker m_frameTicker{*this};
    bool m_isComplete = true;
};

} // namespace tolvane
