// SPDX-License-Identifier: MIT
#include "ui/kit/keyboard.h"

#include <QtCore/QRectF>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>

#include <utility>

namespace tolvane {

namespace {

/// Android reports the rectangle in physical pixels, all others in device-independent pixels.
double keyboardPixelRatio()
{
#ifdef Q_OS_ANDROID
    return qGuiApp->devicePixelRatio();
#else
    return 1;
#endif
}

} // namespace

Keyboard::Keyboard(QObject *parent)
    : QObject(parent)
{
    const QInputMethod *inputMethod = QGuiApplication::inputMethod();
    connect(inputMethod, &QInputMethod::visibleChanged, this, &Keyboard::update);
    connect(inputMethod, &QInputMethod::keyboardRectangleChanged, this, &Keyboard::update);
    m_wasShown = isShown();
}

void Keyboard::update()
{
    Q_EMIT changed();
    if (!std::exchange(m_wasShown, isShown()) && m_wasShown)
        Q_EMIT appeared();
}

bool Keyboard::isShown() const
{
    const QInputMethod *inputMethod = QGuiApplication::inputMethod();
    return inputMethod->isVisible() && !inputMethod->keyboardRectangle().isEmpty();
}

double Keyboard::top() const
{
    return QGuiApplication::inputMethod()->keyboardRectangle().top() / keyboardPixelRatio();
}

void Keyboard::hide()
{
    QGuiApplication::inputMethod()->hide();
}

} // namespace tolvane
