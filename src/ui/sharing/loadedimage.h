// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QCoroTask>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtQml/QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

#include <stop_token>

namespace tolvane {

/// Loads the full-size picture of a URL for sharing. It sends no request: it looks in the response
/// cache at once, and again half a second later, when the view may have loaded the picture. If the
/// cache does not have it by then, the image stays null. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT LoadedImage : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(QUrl url READ url WRITE setUrl NOTIFY urlChanged REQUIRED)

public:
    using QObject::QObject;
    ~LoadedImage() override;

    const QUrl &url() const { return m_url; }
    void setUrl(const QUrl &url);
    const QImage &image() const { return m_image; }

Q_SIGNALS:
    void urlChanged();
    void imageChanged();

protected:
    void classBegin() override {}
    void componentComplete() override;

private:
    void start();
    static QCoro::Task<> load(QPointer<LoadedImage> self, QUrl url, std::stop_token stop);

    QUrl m_url;
    QImage m_image;
    bool m_isComplete = false;
    std::stop_source m_stop;
};

} // namespace tolvane
