// SPDX-License-Identifier: MIT
#include "platform/system/preferences.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>

namespace tolvane {

namespace {

class FileDomain final : public PreferencesDomain
{
public:
    explicit FileDomain(const QString &path)
        : m_settings(path, QSettings::IniFormat)
    {
        m_settings.setFallbacksEnabled(false);
    }

    std::optional<QString> text(const QString &key) const override
    {
        const QVariant value = m_settings.value(key);
        if (value.typeId() != QMetaType::QString)
            return std::nullopt;
        return value.toString();
    }

    std::optional<QByteArray> bytes(const QString &key) const override
    {
        const QVariant value = m_settings.value(key);
        if (value.typeId() != QMetaType::QByteArray)
            return std::nullopt;
        return value.toByteArray();
    }

    void setText(const QString &key, const std::optional<QString> &value) override
    {
        write(key, value ? QVariant(*value) : QVariant());
    }

    void setBytes(const QString &key, const std::optional<QByteArray> &value) override
    {
        write(key, value ? QVariant(*value) : QVariant());
    }

private:
    void write(const QString &key, const QVariant &value)
    {
        // Every answer of the backend contains the customer id, which rarely changes.
        if (m_settings.value(key) == value)
            return;
        // QSettings would cache a value that it cannot write, and return it to later readers.
        if (!ensureFile())
            return;
        if (value.isValid())
            m_settings.setValue(key, value);
        else
            m_settings.remove(key);
        m_settings.sync();
    }

    /// Creates the file with private permissions, which rewriting keeps; QSettings would make it
    /// readable for everybody. False if the file cannot be created.
    bool ensureFile() const
    {
        constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
        QFile file(m_settings.fileName());
        if (!file.setPermissions(ownerOnly))
            QDir().mkpath(QFileInfo(file).path());
        return file.open(QIODevice::ReadWrite, ownerOnly);
    }

    QSettings m_settings;
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
