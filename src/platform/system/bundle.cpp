// SPDX-License-Identifier: MIT
#include "platform/system/bundle.h"

#include "platform/system/librarytexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QVariant>

#include <mutex>

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

    QString string(const QString &key) const override { return texts().text(key); }

    QString string(const QString &key, qint64 count) const override
    {
        return texts().text(key, count);
    }

    QString hostString(const QString &key) const override
    {
        const QString text = QCoreApplication::translate("Tolvane", key.toUtf8().constData());
        if (text != key)
            return text;
        const QString libraryKey = QStringLiteral("host_") + key;
        const QString ownText = texts().text(libraryKey);
        return ownText == libraryKey ? key : ownText;
    }

    Qt::LayoutDirection layoutDirection() const override { return texts().direction(); }

    QLocale locale() const override
    {
        const QLocale system = QLocale::system();
        return system.language() == texts().locale().language() ? system : texts().locale();
    }

private:
    const LibraryTexts &texts() const
    {
        std::call_once(m_loading, [this] { m_texts.emplace(QLocale::system().uiLanguages()); });
        return *m_texts;
    }

    static std::optional<QString> textOrAbsent(const QString &text)
    {
        return text.isEmpty() ? std::nullopt : std::optional(text);
    }

    mutable std::once_flag m_loading;
    mutable std::optional<LibraryTexts> m_texts;
};

} // namespace

std::unique_ptr<Bundle> makeApplicationBundle()
{
    return std::make_unique<ApplicationBundle>();
}

} // namespace tolvane
