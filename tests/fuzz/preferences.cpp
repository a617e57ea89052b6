// SPDX-License-Identifier: MIT
// The file of the preferences, whatever became of it: it can be read, and written again.
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

/// A domain of its own for each input, whose file is gone afterwards.
struct DomainFile
{
    explicit DomainFile(const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
                "there is room for a file");
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
    require(before != nullptr, "there is a folder");
    const auto id = before->text(idKey);
    const auto branding = before->bytes(brandingKey);
    require(!(id && before->bytes(idKey)), "a value is a text or bytes");

    const QString written = id.value_or(QString()) + u"é=;%\n\"x"_s;
    file.open()->setText(idKey, written);
    const auto after = file.open();
    require(after->text(idKey) == written, "what is written is there");
    require(after->bytes(brandingKey) == branding, "the rest stays as it was");
    require(!(QFile::permissions(file.path) & (QFile::ReadGroup | QFile::ReadOther)),
            "nobody else can read it");
}

} // namespace tolvane::fuzz
