// SPDX-License-Identifier: MIT
// Damaged preferences files: they can be read and written again.
#include "platform/system/preferences.h"

#include "targets.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>

namespace tolvane::fuzz {

namespace {

using namespace Qt::StringLiterals;

const QString idKey = u"customer.id"_s;
const QString brandingKey = u"branding"_s;

/// A separate domain for each input. Its file is removed afterwards.
struct DomainFile
{
    explicit DomainFile(const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
                "the input is written to the file");
    }
    ~DomainFile() { QFile::remove(path); }

    std::unique_ptr<PreferencesDomain> open() const { return makeFilePreferences()->open(name); }

    static inline int count = 0;

    const QString name = u"domain-%1"_s.arg(count++);
    const QString path = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                         u'/' + name + u".ini"_s;
};

} // namespace

void preferences(Input input)
{
    const DomainFile file(input.rest());
    const auto before = file.open();
    require(before != nullptr, "the domain can be opened");
    const auto id = before->text(idKey);
    const auto branding = before->bytes(brandingKey);
    require(!(id && before->bytes(idKey)), "a value is either text or bytes");

    const QString written = id.value_or(QString()) + u"é=;%\n\"x"_s;
    file.open()->setText(idKey, written);
    const auto after = file.open();
    require(after->text(idKey) == written, "a written value is read back");
    require(after->bytes(brandingKey) == branding, "other values stay unchanged");
    require(!(QFile::permissions(file.path) & (QFile::ReadGroup | QFile::ReadOther)),
            "only the owner can read the file");
}

} // namespace tolvane::fuzz
