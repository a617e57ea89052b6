// SPDX-License-Identifier: MIT
#include "ui/kit/keyboard.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>

#include <utility>

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
    qGuiApp->installEventFilter(this);
}

bool Keyboard::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool isKey = type == QEvent::KeyPress;
    if (isKey || type == QEvent::MouseButtonPress || type == QEvent::TouchBegin) {
        if (std::exchange(m_isInUse, isKey) != isKey)
            Q_EMIT isInUseChanged();
    }
    return QObject::eventFilter(watched, event);
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
