// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/network/urlsession.h"

#include <QCoroTask>
#include <QtCore/QObject>
#include <QtGui/QImage>

#include <memory>
#include <optional>

namespace tolvane {

/// What one view has of the picture at an address, and how it gets it: from the caches, else from
/// the network, which fills them. Main thread.
///
/// A load that has begun runs to its end, whether or not the view is still there; it keeps this
/// object alive meanwhile.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ImageLoad final : public QObject,
                                                      public std::enable_shared_from_this<ImageLoad>
{
    Q_OBJECT

public:
    /// @param url the picture's; anything but an http or https address is never loaded
    /// @param thumbnailSize in points; without it, the whole picture is what is loaded
    ImageLoad(const QUrl &url, std::optional<QSizeF> thumbnailSize);

    /// Null until there is one.
    const QImage &image() const { return m_image; }
    /// Stays true for what came and is no picture: asking again would bring the same.
    bool isLoading() const { return m_isLoading; }

    /// Takes the whole picture from the caches if it is at hand there, without waiting for
    /// anything. Thumbnails are never at hand.
    void lookAtCaches();

    /// For the view that has appeared: begins to load, unless there is nothing left to load or a
    /// load is running.
    /// @param scale pixels of the screen to the point
    void begin(qreal scale);

Q_SIGNALS:
    void changed();

private:
    /// What was made of bytes: what goes into the cache, if anything, and what the view shows.
    struct Pictures
    {
        QImage whole;
        QImage shown;
    };
    class Recipe;

    QCoro::Task<> load(QSize target);
    void setLoading(bool isLoading);
    void finish(const QImage &image);

    const UrlRequest m_request;
    const QString m_key;
    const std::optional<QSizeF> m_thumbnailSize;
    const bool m_isLoadable;
    QImage m_image;
    bool m_isLoading = false;
};

} // namespace tolvane
