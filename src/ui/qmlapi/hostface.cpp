// SPDX-License-Identifier: MIT
#include "ui/qmlapi/hostface.h"

#include "analytics/manager.h"
#include "state/sdkdata.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QPointer>
#include <QtQml/qqmlinfo.h>

namespace tolvane {

namespace {

QVariantMap describe(const TolvaneAnalyticsEvent &event)
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

/// Stays valid if a handler of the signal destroys the facade.
class HostFace::Observer final : public TolvaneAnalyticsDelegate
{
public:
    explicit Observer(HostFace *face)
        : m_face(face)
    {
    }

    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override
    {
        if (m_face)
            Q_EMIT m_face->analyticsEvent(describe(event));
    }

private:
    QPointer<HostFace> m_face;
};

HostFace::HostFace(QObject *parent)
    : QObject(parent)
    , m_isOpen(SdkData::shared()->isOpen())
    , m_observer(std::make_shared<Observer>(this))
{
    connect(SdkData::shared().get(), &SdkData::changed, this, &HostFace::followState);
    TolvaneAnalyticsManager::shared().addObserver(m_observer);
}

HostFace::~HostFace() = default;

void HostFace::followState()
{
    const bool isOpen = SdkData::shared()->isOpen();
    if (std::exchange(m_isOpen, isOpen) != isOpen)
        Q_EMIT isOpenChanged();
}

void HostFace::initialize(const QString &key)
{
    Tolvane::initialize(key);
}

void HostFace::setEnvironment(Environment environment)
{
    if (!QMetaEnum::fromType<Environment>().valueToKey(environment)) {
        qmlWarning(this) << "There is no environment " << static_cast<int>(environment);
        return;
    }
    Tolvane::setEnvironment(static_cast<Tolvane::Environment>(environment));
}

void HostFace::enableLogging(bool enabled)
{
    Tolvane::enableLogging(enabled);
}

void HostFace::updateCustomer(const QVariant &email, const QVariant &originalID)
{
    Tolvane::updateCustomer(optionalText(email), optionalText(originalID));
}

void HostFace::open()
{
    Tolvane::open();
}

void HostFace::setDeviceToken(const QByteArray &deviceToken)
{
    Tolvane::setDeviceToken(deviceToken);
}

bool HostFace::isTolvanePushNotification(const QVariantMap &payload) const
{
    return Tolvane::isTolvanePushNotification(payload);
}

HostFace::PresentationOptions HostFace::willPresentNotification(const QVariantMap &payload)
{
    return static_cast<PresentationOptions>(Tolvane::willPresentNotification(payload));
}

void HostFace::handlePushNotification(const QVariantMap &payload)
{
    Tolvane::handlePushNotification(payload);
}

} // namespace tolvane
