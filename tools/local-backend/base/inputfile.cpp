// SPDX-License-Identifier: MIT
#include "base/inputfile.h"

#include <QtCore/QFile>

namespace tolvane::backend {

std::string readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw InputError("cannot be read (" + file.errorString().toStdString() +
                         "); check its name and permissions");
    return file.readAll().toStdString();
}

} // namespace tolvane::backend
