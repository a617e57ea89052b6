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
/// A load that has started runs to its end, whether or not the view still exists; it keeps this
/// object alive until then.
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
    /// Stays true if the response is not a picture: an appearance of the view does not load it
    /// again.
    bool isLoading() const { return m_isLoading; }
    /// Whether the last attempt brought no picture; true for a URL that is never loaded.
    bool hasFailed() const { return m_hasFailed; }

    /// Takes the full-size picture from the caches if it is available there without waiting.
    /// Thumbnails never are.
    void loadFromCaches();

    /// Called when the view has appeared: starts to load, unless there is nothing left to load or a
    /// load is running.
    /// @param scale the device pixel ratio
    void start(qreal scale);

    /// Loads a picture again that has failed.
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
