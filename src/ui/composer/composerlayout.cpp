// SPDX-License-Identifier: MIT
#include "ui/composer/composerlayout.h"

#include <QtCore/QMetaObject>

#include <utility>

namespace tolvane {

ComposerLayout::ComposerLayout(QObject *parent)
    : QObject(parent)
{
    connect(this, &ComposerLayout::heightsChanged, this, &ComposerLayout::scheduleUpdate);
}

void ComposerLayout::setAvailableHeight(double height)
{
    if (m_availableHeight == height)
        return;
    m_availableHeight = height;
    Q_EMIT heightsChanged();
}

void ComposerLayout::setHasThumbnails(bool hasThumbnails)
{
    if (m_hasThumbnails == hasThumbnails)
        return;
    m_hasThumbnails = hasThumbnails;
    Q_EMIT heightsChanged();
}

void ComposerLayout::setTextHeight(double height)
{
    m_textHeight = height;
    scheduleUpdate();
}

void ComposerLayout::scheduleUpdate()
{
    const bool isMeasured = m_textHeight > 0;
    if (!isMeasured || std::exchange(m_isScheduled, true))
        return;
    QMetaObject::invokeMethod(this, &ComposerLayout::update, Qt::QueuedConnection);
}

void ComposerLayout::update()
{
    m_isScheduled = false;
    if (const auto height = m_rules.update(m_textHeight, m_measuredHeight, heights().editor)) {
        m_measuredHeight = *height;
        Q_EMIT measuredHeightChanged();
    }
}

} // namespace tolvane
