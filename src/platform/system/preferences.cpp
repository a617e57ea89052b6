// SPDX-License-Identifier: MIT
#include "platform/system/preferences.h"

#include "platform/system/settingsfile.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace tolvane {

namespace {

QVariant variantOf(const std::optional<QString> &text)
{
    return text ? QVariant(*text) : QVariant();
}

std::optional<QString> textOf(const QVariant &value)
{
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

class FileDomain final : public PreferencesDomain
{
public:
    explicit FileDomain(const QString &path)
        : m_file(SettingsFile::at(path))
    {
    }

    std::optional<QString> text(const QString &key) const override
    {
        return textOf(m_file.value(key));
    }

    std::optional<QByteArray> bytes(const QString &key) const override
    {
        const QVariant value = m_file.value(key);
        if (value.typeId() != QMetaType::QByteArray)
            return std::nullopt;
        return value.toByteArray();
    }

    void setText(const QString &key, const std::optional<QString> &value) override
    {
        m_file.setValue(key, variantOf(value));
    }

    void setBytes(const QString &key, const std::optional<QByteArray> &value) override
    {
        m_file.setValue(key, value ? QVariant(*value) : QVariant());
    }

    std::optional<QString> exchangeText(const QString &key, const std::optional<QString> &expected,
                                        const QString &value) override
    {
        const QVariant current = m_file.value(key);
        if (textOf(current) != expected)
            return textOf(current);
        return textOf(m_file.exchange(key, current, value));
    }

private:
    SettingsFile &m_file;
};

class FilePreferences final : public Preferences
{
public:
    std::unique_ptr<PreferencesDomain> open(const QString &name) const override
    {
        const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
        if (folder.isEmpty())
            return nullptr;
        const QString path = QDir(folder).filePath(name + QStringLiteral(".ini"));
        return std::make_unique<FileDomain>(path);
    }
};

} // namespace

std::unique_ptr<Preferences> makeFilePreferences()
{
    return std::make_unique<FilePreferences>();
}

} // namespace tolvane
