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

/// The picture at an address for sharing it, apart from what a view shows of it: out of the cache
/// of responses, now, or half a second later when a view had it loaded meanwhile. It sends no
/// request itself. What is not there by then stays null. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT LoadedImage : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(QUrl url MEMBER m_url REQUIRED)

public:
    using QObject::QObject;
    ~LoadedImage() override;

    const QUrl &url() const { return m_url; }
    const QImage &image() const { return m_image; }

Q_SIGNALS:
    void imageChanged();

protected:
    void classBegin() override {}
    void componentComplete() override;

private:
    static QCoro::Task<> load(QPointer<LoadedImage> self, QUrl url, std::stop_token stop);

    QUrl m_url;
    QImage m_image;
    std::stop_source m_stop;
};

} // namespace tolvane
