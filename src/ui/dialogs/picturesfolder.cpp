// SPDX-License-Identifier: MIT
#include "ui/dialogs/picturesfolder.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace tolvane {

QString picturesFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return folder.isEmpty() ? QDir::homePath() : folder;
}

} // namespace tolvane
