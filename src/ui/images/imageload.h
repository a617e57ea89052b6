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

/// Loads the picture of a URL for one view: from the caches, else from the network, which fills the
/// caches. Main thread.
///
/// A running load is never cancelled: it keeps this object alive, even without the view.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ImageLoad final : public QObject,
                                                      public std::enable_shared_from_this<ImageLoad>
{
    Q_OBJECT

public:
    /// @param url anything but an http or https URL is never loaded
    /// @param thumbnailSize in pixels; without it, the picture is loaded at full size
    ImageLoad(const QUrl &url, std::optional<QSizeF> thumbnailSize);

    /// Null until the picture is loaded.
    const QImage &image() const { return m_image; }
    /// Stays true if the response is not a picture, so that start() does not load it again.
    bool isLoading() const { return m_isLoading; }
    /// Whether the last attempt failed; true for a URL that is never loaded.
    bool hasFailed() const { return m_hasFailed; }

    /// Takes the full-size picture from the caches if that does not block. Thumbnails are not
    /// cached.
    void loadFromCaches();

    /// Starts to load, unless the picture is loaded or a load is running. To be called when the
    /// view appears.
    /// @param scale the device pixel ratio
    void start(qreal scale);

    /// Tries to load the picture again after a failure.
    /// @param scale the device pixel ratio
    void retry(qreal scale);

Q_SIGNALS:
    void changed();

private:
    /// The decoded pictures: the one for the cache, which may be null, and the one for the view.
    struct Pictures
    {
        QImage whole;
        QImage shown;
    };
    class DecodePlan;

    QCoro::Task<> load(QSize target);
    void setLoading(bool isLoading);
    void finish(const QImage &image);

    const UrlRequest m_request;
    const QString m_key;
    const std::optional<QSizeF> m_thumbnailSize;
    const bool m_isLoadable;
    QImage m_image;
    bool m_isLoading = false;
    bool m_hasFailed;
};

} // namespace tolvane
