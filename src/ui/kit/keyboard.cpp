// SPDX-License-Identifier: MIT
#include "ui/kit/keyboard.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>

namespace tolvane {

namespace {

QRectF currentArea()
{
    const QInputMethod *inputMethod = QGuiApplication::inputMethod();
    if (!inputMethod->isVisible())
        return {};
    const QRectF area = inputMethod->keyboardRectangle();
#ifdef Q_OS_ANDROID
    // In physical pixels; all others report device-independent pixels.
    const double ratio = qGuiApp->devicePixelRatio();
    return {area.topLeft() / ratio, area.size() / ratio};
#else
    return area;
#endif
}

} // namespace

Keyboard::Keyboard(QObject *parent)
    : QObject(parent)
{
    const QInputMethod *inputMethod = QGuiApplication::inputMethod();
    const auto update = [this] { setArea(currentArea()); };
    connect(inputMethod, &QInputMethod::visibleChanged, this, update);
    connect(inputMethod, &QInputMethod::keyboardRectangleChanged, this, update);
    m_area = currentArea();
}

void Keyboard::setArea(const QRectF &area)
{
    if (m_area == area)
        return;
    const bool wasShown = isShown();
    m_area = area;
    Q_EMIT changed();
    if (isShown() && !wasShown)
        Q_EMIT appeared();
}

void Keyboard::hide()
{
    QGuiApplication::inputMethod()->hide();
}

} // namespace tolvane
