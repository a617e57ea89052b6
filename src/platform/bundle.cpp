// SPDX-License-Identifier: MIT
#include "platform/services.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QVariant>

namespace tolvane {

namespace {

class ApplicationBundle final : public Bundle
{
public:
    std::optional<QString> hostVersion() const override
    {
        return textOrAbsent(QCoreApplication::applicationVersion());
    }

    std::optional<QString> hostBuild() const override
    {
        const QCoreApplication *app = QCoreApplication::instance();
        return app ? textOrAbsent(app->property("applicationBuild").toString()) : std::nullopt;
    }

private:
    static std::optional<QString> textOrAbsent(const QString &text)
    {
        return text.isEmpty() ? std::nullopt : std::optional(text);
    }
};

} // namespace

std::unique_ptr<Bundle> makeApplicationBundle()
{
    return std::make_unique<ApplicationBundle>();
}

} // namespace tolvane
