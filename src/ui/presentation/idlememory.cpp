// SPDX-License-Identifier: MIT
#include "ui/presentation/idlememory.h"

#include "base/errors.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "ui/icons/iconcache.h"
#include "ui/images/imagecache.h"
#include "ui/presentation/viewsengine.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickWindow>

#include <stop_token>

namespace tolvane::idlememory {

namespace {

/// Waits, then releases the memory. Its destruction cancels that.
class Release final : public QObject
{
public:
    explicit Release(QWindow *window)
        : QObject(qGuiApp)
        , m_window(window)
    {
        // Qt reports no shortage of memory. A system that is short of it suspends applications.
        connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
                [this](Qt::ApplicationState state) {
                    if (state == Qt::ApplicationSuspended)
                        run();
                });
        detach(runLater(this, m_stop.get_token()));
    }

    ~Release() override { m_stop.request_stop(); }

private:
    static QCoro::Task<> runLater(QPointer<Release> self, std::stop_token stop)
    {
        try {
            co_await awaitFuture(platform().clock->sleep(keptFor, stop));
        } catch (const CancellationError &) {
            co_return;
        }
        if (self)
            self->run();
    }

    void run()
    {
        deleteViewsEngine();
        ImageCache::shared().removeDecoded();
        IconCache::shared().clear();
        if (auto *window = qobject_cast<QQuickWindow *>(m_window.data()))
            window->releaseResources();
        deleteLater();
    }

    QPointer<QWindow> m_window;
    std::stop_source m_stop;
};

QPointer<Release> &pending()
{
    static QPointer<Release> release;
    return release;
}

} // namespace

void keep()
{
    delete pending();
}

void releaseLater(QWindow *window)
{
    keep();
    pending() = new Release(window);
}

} // namespace tolvane::idlememory
