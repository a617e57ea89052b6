// SPDX-License-Identifier: MIT
#include "ui/dialogs/dialoglayer.h"

#include "ui/dialogs/picturesfolder.h"

#include <QtCore/QFileInfo>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickItem>

#include <algorithm>

namespace tolvane {

namespace {

/// Above the messenger and its menus.
constexpr double raisedZ = 2000002;

bool isDialog(const QObject *object)
{
    return object && object->inherits("QQuickDialog");
}

QQuickWindow *windowOf(const QObject *dialog)
{
    return dialog
               ? qobject_cast<QQuickWindow *>(dialog->property("parentWindow").value<QWindow *>())
               : nullptr;
}

/// The parent item of the window's popups; null if the window has had no popup.
QQuickItem *overlayOf(const QQuickWindow &window)
{
    const QList<QQuickItem *> items = window.contentItem()->childItems();
    const auto overlay = std::ranges::find_if(
        items, [](const QQuickItem *item) { return item->inherits("QQuickOverlay"); });
    return overlay == items.end() ? nullptr : *overlay;
}

/// The topmost open dialog among the children; null if none of them is one.
QObject *openDialogIn(const QQuickItem &parent)
{
    const QList<QQuickItem *> items = parent.childItems();
    const auto dialog = std::find_if(items.rbegin(), items.rend(), [](const QQuickItem *item) {
        return item->isVisible() && isDialog(item->parent());
    });
    return dialog == items.rend() ? nullptr : (*dialog)->parent();
}

/// Finds a dialog that is open in a window of its own, as from Qt 6.8 on; otherwise returns null.
QObject *openDialogAbove(const QQuickWindow &window)
{
    for (QWindow *each : QGuiApplication::topLevelWindows()) {
        const auto *own = qobject_cast<QQuickWindow *>(each);
        if (!own || !own->isVisible() || own->transientParent() != &window)
            continue;
        if (QObject *dialog = openDialogIn(*own->contentItem()))
            return dialog;
    }
    return nullptr;
}

} // namespace

QUrl DialogLayer::picturesFolder()
{
    const QString folder = tolvane::picturesFolder();
    return QFileInfo::exists(folder) ? QUrl::fromLocalFile(folder) : QUrl();
}

void DialogLayer::open(QObject *dialog)
{
    const QQuickWindow *window = windowOf(dialog);
    m_dialog = dialog;
    m_focusItem = window ? window->activeFocusItem() : nullptr;
    m_dialogConfirms = true;
    connect(dialog, SIGNAL(visibleChanged()), this, SLOT(handleVisibleChange()),
            Qt::UniqueConnection);
    QMetaObject::invokeMethod(dialog, "open");
}

void DialogLayer::handleVisibleChange()
{
    if (m_dialog && m_dialog->property("visible").toBool())
        raise();
    else
        lower();
}

void DialogLayer::raise()
{
    const QQuickWindow *window = windowOf(m_dialog);
    if (!window)
        return;
    QQuickItem *overlay = overlayOf(*window);
    m_popup = overlay ? openDialogIn(*overlay) : nullptr;
    if (m_popup)
        raise(*overlay);
    else if ((m_popup = openDialogAbove(*window)))
        keepFocus();
}

void DialogLayer::raise(QQuickItem &overlay)
{
    m_overlay = &overlay;
    m_overlayZ = overlay.z();
    overlay.setZ(raisedZ);
    m_popup->setProperty("modal", true);
    // Newer versions of Qt have a dialog inside the dialog, which asks whether to replace a file.
    m_dialogConfirms = std::ranges::any_of(m_popup->findChildren<QObject *>(), isDialog);
    connect(&overlay, &QQuickItem::widthChanged, this, &DialogLayer::fitPopup);
    connect(&overlay, &QQuickItem::heightChanged, this, &DialogLayer::fitPopup);
    fitPopup();
}

void DialogLayer::keepFocus()
{
    for (const QObject *each : m_popup->findChildren<QObject *>()) {
        if (isDialog(each))
            connect(each, SIGNAL(closed()), this, SLOT(focusPopup()), Qt::UniqueConnection);
    }
}

void DialogLayer::focusPopup()
{
    if (m_popup)
        QMetaObject::invokeMethod(m_popup, "forceActiveFocus");
}

void DialogLayer::fitPopup()
{
    if (!m_popup || !m_overlay)
        return;
    const auto fit = [this](const char *size, const char *implicitSize, double most) {
        m_popup->setProperty(size, std::min(m_popup->property(implicitSize).toDouble(), most));
    };
    fit("width", "implicitWidth", m_overlay->width());
    fit("height", "implicitHeight", m_overlay->height());
}

void DialogLayer::lower()
{
    if (m_overlay) {
        m_overlay->disconnect(this);
        m_overlay->setZ(m_overlayZ);
    }
    m_overlay.clear();
    m_popup.clear();
    if (m_focusItem)
        m_focusItem->forceActiveFocus();
    m_focusItem.clear();
}

bool DialogLayer::needsConfirmation(const QUrl &file) const
{
    return !m_dialogConfirms && QFileInfo::exists(file.toLocalFile());
}

} // namespace tolvane
