// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>

#include <memory>
#include <stdexcept>

namespace tolvane::test {

/// Creates an item from QML source text. Throws std::runtime_error if the source has errors.
inline std::unique_ptr<QQuickItem> createItem(QQmlEngine &engine, const QByteArray &source,
                                              const QVariantMap &properties = {})
{
    QQmlComponent component(&engine);
    component.setData(source, QUrl());
    std::unique_ptr<QObject> object(component.createWithInitialProperties(properties));
    auto *item = qobject_cast<QQuickItem *>(object.get());
    if (!item)
        throw std::runtime_error("no item: " + component.errorString().toStdString());
    Q_UNUSED(object.release())
    return std::unique_ptr<QQuickItem>(item);
}

} // namespace tolvane::test
