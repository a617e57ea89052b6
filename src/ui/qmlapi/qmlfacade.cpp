// SPDX-License-Identifier: MIT
#include "ui/qmlapi/qmlfacade.h"

#include "analytics/manager.h"
#include "state/hostoptions.h"
#include "state/sdkdata.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QPointer>
#include <QtQml/qqmlinfo.h>

namespace tolvane {

namespace {

QVariantMap toVariantMap(const TolvaneAnalyticsEvent &event)
{
    QVariantMap description = {
        {QStringLiteral("name"), event.name()},
        {QStringLiteral("properties"), event.properties()},
        {QStringLiteral("timestamp"), event.timestamp()},
        {QStringLiteral("sdkVersion"), event.sdkVersion()},
        {QStringLiteral("environment"), event.environment()},
    };
    if (event.customerId())
        description.insert(QStringLiteral("customerId"), *event.customerId());
    if (event.originalCustomerId())
        description.insert(QStringLiteral("originalCustomerId"), *event.originalCustomerId());
    return description;
}

/// Absent for `undefined` and `null`.
std::optional<QString> optionalText(const QVariant &value)
{
    if (!value.isValid() || value.typeId() == QMetaType::Nullptr)
        return std::nullopt;
    return value.toString();
}

} // namespace

/// A separate object, so that it stays valid if a handler of the signal destroys the facade.
class QmlFacade::AnalyticsObserver final : public TolvaneAnalyticsDelegate
{
public:
    explicit AnalyticsObserver(QmlFacade *facade)
        : m_facade(facade)
    {
    }

    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override
    {
        if (m_facade)
            Q_EMIT m_facade->analyticsEvent(toVariantMap(event));
    }

private:
    QPointer<QmlFacade> m_facade;
};

QmlFacade::QmlFacade(QObject *parent)
    : QObject(parent)
    , m_isOpen(SdkData::shared()->isOpen())
    , m_observer(std::make_shared<AnalyticsObserver>(this))
{
    connect(SdkData::shared().get(), &SdkData::changed, this, &QmlFacade::updateIsOpen);
    connect(HostOptions::shared().get(), &HostOptions::changed, this,
            &QmlFacade::presentationChanged);
    connect(Tolvane::notifier(), &TolvaneNotifier::unreadCountChanged, this,
            &QmlFacade::unreadCountChanged);
    TolvaneAnalyticsManager::shared().addObserver(m_observer);
}

QmlFacade::~QmlFacade() = default;

void QmlFacade::updateIsOpen()
{
    const bool isOpen = SdkData::shared()->isOpen();
    if (std::exchange(m_isOpen, isOpen) != isOpen)
        Q_EMIT isOpenChanged();
}

void QmlFacade::initialize(const QString &key)
{
    Tolvane::initialize(key);
}

void QmlFacade::setEnvironment(Environment environment)
{
    if (!QMetaEnum::fromType<Environment>().valueToKey(environment)) {
        qmlWarning(this) << "There is no environment " << static_cast<int>(environment);
        return;
    }
    Tolvane::setEnvironment(static_cast<Tolvane::Environment>(environment));
}

void QmlFacade::enableLogging(bool enabled)
{
    Tolvane::enableLogging(enabled);
}

void QmlFacade::updateCustomer(const QVariant &email, const QVariant &originalCustomerId)
{
    Tolvane::updateCustomer(optionalText(email), optionalText(originalCustomerId));
}

bool QmlFacade::isKnown(Presentation presentation) const
{
    if (QMetaEnum::fromType<Presentation>().valueToKey(presentation))
        return true;
    qmlWarning(this) << "There is no presentation " << static_cast<int>(presentation);
    return false;
}

void QmlFacade::setPresentation(Presentation presentation)
{
    if (isKnown(presentation))
        Tolvane::setPresentation(static_cast<Tolvane::Presentation>(presentation));
}

void QmlFacade::setPresentation(Presentation presentation, QObject *window)
{
    if (isKnown(presentation))
        Tolvane::setPresentation(static_cast<Tolvane::Presentation>(presentation), window);
}

void QmlFacade::setPanelSide(PanelSide side)
{
    if (!QMetaEnum::fromType<PanelSide>().valueToKey(side)) {
        qmlWarning(this) << "There is no side " << static_cast<int>(side);
        return;
    }
    Tolvane::setPanelSide(static_cast<Tolvane::PanelSide>(side));
}

void QmlFacade::setScreenshotEnabled(bool enabled)
{
    Tolvane::setScreenshotEnabled(enabled);
}

void QmlFacade::setEnterSends(bool sends)
{
    Tolvane::setEnterSends(sends);
}

void QmlFacade::open()
{
    Tolvane::open();
}

void QmlFacade::openConversation(const QString &id)
{
    Tolvane::openConversation(id);
}

void QmlFacade::openNewConversation(const QString &text)
{
    Tolvane::openNewConversation(text);
}

void QmlFacade::refreshUnread()
{
    Tolvane::refreshUnread();
}

void QmlFacade::close()
{
    Tolvane::close();
}

void QmlFacade::setDeviceToken(const QByteArray &deviceToken)
{
    Tolvane::setDeviceToken(deviceToken);
}

bool QmlFacade::isTolvanePushNotification(const QVariantMap &payload) const
{
    return Tolvane::isTolvanePushNotification(payload);
}

QmlFacade::PresentationOptions QmlFacade::willPresentNotification(const QVariantMap &payload)
{
    return static_cast<PresentationOptions>(Tolvane::willPresentNotification(payload));
}

void QmlFacade::handlePushNotification(const QVariantMap &payload)
{
    Tolvane::handlePushNotification(payload);
}

} // namespace tolvane
